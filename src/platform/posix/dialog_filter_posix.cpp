#include "platform/dialog_filter.h"

#include <algorithm>
#include <cctype>

namespace tamarind::platform {
namespace {

/// "*.bin" as "*.[bB][iI][nN]"; "*.*" as "*", which names without a dot match too.
std::string IgnoringCase(const std::string& patterns) {
    std::string result;
    for (const char c : patterns == "*.*" ? std::string("*") : patterns) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalpha(byte) == 0) {
            result += c;
        } else {
            result += {'[', static_cast<char>(std::tolower(byte)), static_cast<char>(std::toupper(byte)), ']'};
        }
    }
    return result;
}

} // namespace

std::string DialogFilter(const std::string& filter) {
    std::string result;
    std::size_t start = 0;
    for (int part = 0; start <= filter.size(); ++part) {
        const std::size_t end = std::min(filter.find('|', start), filter.size());
        const std::string text = filter.substr(start, end - start);
        result += (part == 0 ? "" : "|") + (part % 2 == 0 ? text : IgnoringCase(text));
        start = end + 1;
    }
    return result;
}

} // namespace tamarind::platform

#include "install/record_insert.h"

#include "text/code_page.h"
#include "text/runtime_error.h"
#include "text/search.h"

namespace tamarind::install {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

/// The index, from 0, of the character behind the one at `at`; the text's size at its end.
std::size_t NextCharacter(std::string_view text, std::size_t at) {
    if (at >= text.size()) return text.size();
    std::string_view rest = text.substr(at);
    static_cast<void>(text::TakeCodePoint(rest));
    return text.size() - rest.size();
}

} // namespace

std::string JoinAround(std::string_view left, std::string_view records, std::string_view right) {
    if (right.starts_with(kLineEnd) && records.ends_with(kLineEnd)) right.remove_prefix(kLineEnd.size());
    std::string joined;
    joined.reserve(left.size() + records.size() + right.size());
    return joined.append(left).append(records).append(right);
}

std::string InsertRecords(std::string_view index, std::string_view records) {
    const std::size_t end = text::FindLastNoCase(index, "</Record");
    const std::size_t tag = text::FindLast(index, ">", end);
    if (end == 0 || tag == 0) throw text::RuntimeError(text::ErrorNumber::InvalidProcedureCall);
    const std::size_t second = NextCharacter(index, tag);
    const std::size_t third = NextCharacter(index, second);
    return JoinAround(index.substr(0, third), records, index.substr(second));
}

std::size_t CountOf(std::string_view text, std::string_view key) {
    const text::FoldedKey folded(key);
    std::size_t count = 0;
    for (std::size_t at = text::FindNoCase(text, folded); at != 0;
         at = text::FindNoCase(text, folded, at + key.size())) {
        ++count;
    }
    return count;
}

bool HoldsWholeRecords(std::string_view text, std::string_view openTag, std::string_view closeTag) {
    const std::size_t opened = CountOf(text, openTag);
    return opened > 0 && opened == CountOf(text, closeTag) &&
           text::FindNoCase(text, openTag) < text::FindNoCase(text, closeTag) &&
           text::FindLastNoCase(text, openTag) < text::FindLastNoCase(text, closeTag);
}

} // namespace tamarind::install

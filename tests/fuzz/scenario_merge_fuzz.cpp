// The removal of scenarios' records from any index gives what the plainest reading of its rule gives.
#include "install/package_reader.h"
#include "install/scenario_merge.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <cstdint>
#include <cstdlib>

namespace {

using namespace tamarind;

std::string RemovePlainly(std::string text, const std::vector<std::string>& entries) {
    for (const std::string& entry : entries) {
        const std::size_t found = entry.empty() ? 0 : text::FindNoCase(text, entry);
        if (found == 0) continue;
        const std::size_t start = text::FindLastNoCase(text, install::kScenarioOpenTag, found);
        const std::size_t end = text::FindNoCase(text, install::kScenarioCloseTag, found);
        if (start == 0 || end == 0) continue;
        text = text.substr(0, start - 1) + text.substr(end - 1 + install::kScenarioCloseTag.size());
    }
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::size_t border = bytes.find('\0');
    const std::string_view rest = border == std::string_view::npos ? std::string_view() : bytes.substr(border + 1);
    const std::string_view index = bytes.substr(0, border);
    const auto list = install::ParseScenarioList(rest.substr(0, rest.find('\0')));
    if (install::RemoveScenarios(index, list.ids) != RemovePlainly(std::string(index), list.ids)) std::abort();
    try {
        static_cast<void>(install::MergeScenarios(index, list.ids, rest));
    } catch (const text::RuntimeError& error) {
        if (error.Code() != text::ErrorNumber::InvalidProcedureCall) std::abort();
    }
    return 0;
}

// What the packagers take out of texts, on any bytes: an index's entry, a list of scenarios, patterns of file names.
#include "install/folder_lists.h"
#include "platform/batch_file.h"
#include "routes/package_layout.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace tamarind;

void Require(bool condition) {
    if (!condition) std::abort();
}

void TryEntry(std::string_view index, std::string_view id, routes::IndexKind kind, std::string_view open,
              std::string_view close) {
    try {
        const std::string entry = routes::EntryOf(index, id, kind);
        Require(text::StartsWithNoCase(entry, open) && text::EndsWithNoCase(entry, close));
        Require(index.find(entry) != std::string_view::npos);
    } catch (const text::RuntimeError& error) {
        Require(error.Number() == 5);
    }
}

/// A line of the copy script is read as what it was made of.
void TryCopyLine(const std::string& source, const std::string& target) {
    if (!routes::FitsCopyScript(source) || !routes::FitsCopyScript(target) || source.ends_with("\\*.*") ||
        source.find('\0') != std::string::npos) {
        return;
    }
    const auto commands = platform::ParseBatchFile(routes::CopyScriptFile(routes::CopyScriptLine(source, target, "x")));
    Require(commands.has_value() && commands->size() == 1);
    const auto* const copy = std::get_if<platform::CopyToFolder>(&commands->front());
    Require(copy != nullptr && copy->source == source && copy->destination == target + "\\x");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::size_t split = std::min(bytes.find('\n'), bytes.size());
    const std::string first(bytes.substr(0, split));
    const std::string_view rest = bytes.substr(std::min(split + 1, bytes.size()));
    TryEntry(rest, first, routes::IndexKind::Routes, "<cRouteProperties", "</cRouteProperties>");
    TryEntry(rest, first, routes::IndexKind::Scenarios, "<cScenarioProperties", "</cScenarioProperties>");
    Require(first.ends_with(routes::LastCharacters(first, routes::kIdLength)));
    Require(first.ends_with(routes::RelativePath(first)));
    Require(routes::IsPackageName(first) ? first.find('\\') == std::string::npos : true);
    Require(install::MatchesPattern(first, "*"));
    static_cast<void>(install::MatchesPattern(first, rest));
    TryCopyLine(first, std::string(rest));
    return 0;
}

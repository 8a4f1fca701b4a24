#include "routes/package_layout.h"

#include "routes/folder_name.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <algorithm>
#include <array>

namespace tamarind::routes {

using text::ErrorNumber;
using text::FindLastNoCase;
using text::FindNoCase;
using text::RuntimeError;

namespace {

constexpr const char* kLineEnd = "\r\n";

std::string Quoted(const std::string& path) { return "\"" + path + "\""; }

/// "COM1" to "COM9" and the like, which some systems take for devices whatever the ending.
bool IsDevice(std::string_view name) {
    constexpr std::array<std::string_view, 4> kDevices = {"CON", "PRN", "AUX", "NUL"};
    const std::string_view base = name.substr(0, name.find_first_of(". "));
    const auto is = [base](std::string_view device) { return text::EqualNoCase(base, device); };
    if (std::any_of(kDevices.begin(), kDevices.end(), is)) return true;
    constexpr std::size_t kPortLength = 4;
    const bool isPort = text::StartsWithNoCase(base, "COM") || text::StartsWithNoCase(base, "LPT");
    return isPort && base.size() == kPortLength && base.back() >= '1' && base.back() <= '9';
}

} // namespace

std::string EntryOf(std::string_view indexText, std::string_view id, IndexKind kind) {
    const bool isRoute = kind == IndexKind::Routes;
    const std::string_view open = isRoute ? "<cRouteProperties" : "<cScenarioProperties";
    const std::string_view close = isRoute ? "</cRouteProperties>" : "</cScenarioProperties>";
    const std::size_t position = FindNoCase(indexText, id);
    const std::size_t start = FindLastNoCase(indexText, open, position);
    if (position == 0 || start == 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    const std::size_t end = FindNoCase(indexText, close, isRoute ? position : start);
    if (end == 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    return std::string(indexText.substr(start - 1, end + close.size() - start));
}

bool HoldsGameRoot(std::string_view path) { return FindNoCase(path, kGameRoot) > 0; }

std::string RelativePath(std::string_view path) {
    const std::size_t position = FindNoCase(path, kGameRoot);
    return std::string(path.substr(position == 0 ? 0 : position - 1));
}

std::string CopyScriptLine(std::string_view sourceFolder, std::string_view packageFolder,
                           std::string_view relativePath) {
    return "call Xcopy " + Quoted(std::string(sourceFolder) + "\\*.*") + " " +
           Quoted(std::string(packageFolder) + "\\" + std::string(relativePath) + "\\*.*") + " /I /C /S" + kLineEnd;
}

std::string CopyScriptFile(std::string_view lines) { return std::string(lines) + kLineEnd; }

std::string ScenarioIndexOf(std::string_view scenarioPath) {
    return std::string(scenarioPath.substr(0, FindLastNoCase(scenarioPath, "\\Scenarios"))) + "Scenarios.bin";
}

std::string ScenarioListText(std::string_view routeId, std::span<const std::string> names) {
    std::string list = std::string(routeId) + kLineEnd;
    for (const std::string& name : names)
        list += name + kLineEnd;
    return list;
}

std::string LastCharacters(std::string_view text, std::size_t count) {
    constexpr unsigned kContinuationMask = 0xC0;
    constexpr unsigned kContinuation = 0x80;
    std::size_t start = text.size();
    while (count > 0 && start > 0) {
        --start;
        if ((static_cast<unsigned char>(text[start]) & kContinuationMask) != kContinuation) --count;
    }
    return std::string(text.substr(start));
}

bool FitsCopyScript(std::string_view path) {
    constexpr unsigned char kFirstPrintable = 0x20;
    return std::none_of(path.begin(), path.end(),
                        [](char c) { return c == '"' || static_cast<unsigned char>(c) < kFirstPrintable; });
}

bool IsPackageName(std::string_view name) { return IsFolderName(name) && !IsDevice(name); }

} // namespace tamarind::routes

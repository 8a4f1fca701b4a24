#include "install/package_reader.h"

#include "platform/myfile.h"
#include "platform/paths.h"
#include "routes/package_layout.h"
#include "text/code_page.h"
#include "text/field_reader.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <optional>

namespace tamarind::install {

using text::ErrorNumber;
using text::RuntimeError;

namespace {

std::optional<std::string> NextItem(text::FieldReader& reader) {
    try {
        return reader.Next();
    } catch (const RuntimeError&) {
        return std::nullopt; // past the end, the only error that it knows
    }
}

class Survey {
public:
    Survey(const platform::Files& files, PackageContent& content) : files_(files), content_(content) {}

    /// `folder` is relative to the root and ends with "\", or is empty.
    void Walk(const std::string& folder) {
        std::vector<platform::FolderEntry> entries;
        try {
            entries = files_.List(platform::WithoutTrailingBackslash(content_.root + "\\" + folder));
        } catch (const RuntimeError&) {
            content_.skipped.push_back(platform::WithoutTrailingBackslash(folder));
            return;
        }
        for (const platform::FolderEntry& entry : entries)
            Take(folder + entry.name, entry.isFolder);
    }

private:
    void Take(const std::string& path, bool isFolder) {
        const std::string full = content_.root + "\\" + path;
        if (isFolder) {
            content_.folders.push_back(path);
            Walk(path + "\\");
            return;
        }
        const auto stamp = files_.Stamp(full);
        // The root's links are followed already, so a path that changes now leads through a link.
        const std::string real = files_.ResolveLinks(full);
        if (!stamp || !text::StartsWithNoCase(real, content_.root + "\\")) {
            content_.skipped.push_back(path);
            return;
        }
        content_.files.push_back({path, stamp->size});
        content_.bytes += stamp->size;
    }

    const platform::Files& files_;
    PackageContent& content_;
};

} // namespace

bool HasOwnFile(const platform::Files& files, const std::string& packageFolder, const std::string& name) {
    const std::string path = packageFolder + "\\" + name;
    return platform::FileExists(files, path) &&
           text::StartsWithNoCase(files.ResolveLinks(path), files.ResolveLinks(packageFolder) + "\\");
}

std::string ReadOwnFile(const platform::Files& files, const std::string& packageFolder, const std::string& name) {
    const std::string path = packageFolder + "\\" + name;
    if (!HasOwnFile(files, packageFolder, name)) throw RuntimeError(ErrorNumber::FileNotFound, path);
    std::string text;
    platform::ReadUniFile(files, path, text);
    return text;
}

void MakeRoom(platform::Files& files, const std::string& path) {
    while (files.EntryExists(path))
        files.Remove(path, true);
}

InstallMode ModeOf(const platform::Files& files, const std::string& packageFolder) {
    if (HasOwnFile(files, packageFolder, routes::kRouteMarker)) return InstallMode::Route;
    if (HasOwnFile(files, packageFolder, routes::kScenarioMarker)) return InstallMode::Scenario;
    return InstallMode::Assets;
}

ScenarioList ParseScenarioList(std::string_view text) {
    text::FieldReader reader(text);
    ScenarioList list;
    list.routeFolder = NextItem(reader).value_or("");
    while (auto item = NextItem(reader))
        list.ids.push_back(std::move(*item));
    return list;
}

ScenarioList ReadScenarioList(const platform::Files& files, const std::string& packageFolder) {
    const std::string path = packageFolder + "\\" + routes::kScenarioList;
    const auto stamp = files.Stamp(path);
    if (!stamp || !HasOwnFile(files, packageFolder, routes::kScenarioList)) {
        throw RuntimeError(ErrorNumber::FileNotFound, path);
    }
    if (stamp->size > kMostListBytes) throw RuntimeError(ErrorNumber::InvalidProcedureCall, path);
    return ParseScenarioList(text::FromCodePage(platform::ReadBytes(files, path)));
}

PackageContent SurveyContent(const platform::Files& files, const std::string& packageFolder) {
    PackageContent content;
    const std::string folder = packageFolder + "\\" + routes::kGameRoot;
    content.exists = files.IsFolder(folder);
    if (!content.exists) return content;
    content.root = files.ResolveLinks(folder);
    const std::string package = files.ResolveLinks(packageFolder);
    if (!text::StartsWithNoCase(content.root, package + "\\")) {
        content.exists = false; // a link out of the package
        content.skipped.push_back(platform::NameOf(folder));
        return content;
    }
    Survey(files, content).Walk("");
    return content;
}

} // namespace tamarind::install

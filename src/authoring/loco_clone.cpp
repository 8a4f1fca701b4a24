#include "authoring/loco_clone.h"

#include "authoring/developer_folders.h"
#include "authoring/name_rules.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "platform/tree_copy.h"
#include "routes/scan_progress.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tamarind::authoring {

using platform::Files;
using platform::Tree;
using session::EditorContext;
using session::FolderJob;
using text::RuntimeError;

namespace {

constexpr const char* kTitle = "Clone Loco";

/// Copies all but the links. False when the person asked to end it; throws at the first failure.
bool CopyTree(EditorContext& context, const Tree& tree, const std::string& from, const std::string& to) {
    routes::ScanProgress progress(context.ui, kTitle);
    progress.Expect(tree.files.size());
    platform::TreeCopier copier(context.platform.files, from, to);
    for (const std::string& folder : tree.folders)
        copier.MakeFolder(folder);
    for (const Tree::File& file : tree.files) {
        if (!progress.Show(file.path) || context.ui.StopRequested()) return false;
        copier.Copy(file.path);
        progress.Count();
    }
    return true;
}

/// Removes a copy that is not whole, which is all ours; says so where something of it stays.
std::string RemoveCopy(Files& files, const std::string& folder) {
    platform::DelAll(files, folder);
    if (!files.EntryExists(folder)) return "\r\nNothing of the copy was kept.";
    return "\r\nWhat was copied could not be removed again:\r\n" + platform::ForDisplay(folder);
}

std::string Problem(const RuntimeError& error, const std::string& path) {
    return error.Description() + "\r\n" + platform::ForDisplay(error.Details().empty() ? path : error.Details());
}

std::string DoneText(const Tree& tree, const std::string& to) {
    std::string text = "The copy of the loco is now in \r\n" + platform::ForDisplay(to) +
                       "\r\nThe texts inside its files are unchanged and still name the original.";
    if (!tree.links.empty()) text += "\r\nLinks that lead elsewhere were left out:";
    for (const std::string& link : tree.links)
        text += "\r\n" + platform::ForDisplay(link);
    return text;
}

/// The name of the copy; empty when the person gives none.
std::string AskForName(EditorContext& context, std::string name) {
    while (true) {
        name = context.ui.AskForText("Enter a name for the folder of the copy", kTitle, name);
        if (name.empty()) return {};
        const std::string refusal = FolderNameRefusal(name);
        if (refusal.empty()) return name;
        context.ui.Show({.text = refusal});
    }
}

/// The folder that the copy is to be made as; nothing when the person ends it.
std::optional<std::string> AskForTarget(EditorContext& context, const std::string& source) {
    auto& state = context.session.Authoring;
    std::string name = platform::NameOf(source);
    while (true) {
        name = AskForName(context, name);
        if (name.empty()) return std::nullopt;
        state.Folder = FolderJob::CloneTarget;
        if (!context.view.ShowFolderChooser()) return std::nullopt;
        std::string folder = platform::WithoutTrailingBackslash(state.CloneTarget) + "\\" + name;
        if (!context.platform.files.EntryExists(folder)) return folder;
        context.ui.Show({.text = "The name \"" + name + "\" is taken already in\r\n" +
                                 platform::ForDisplay(state.CloneTarget) + "\r\nPlease try again."});
    }
}

} // namespace

bool IsLocoFolder(std::string_view folder) {
    constexpr std::array<std::string_view, 3> kKinds{"Steam", "Diese", "Elect"};
    const std::string kind = platform::NameOf(platform::FolderOf(platform::WithoutTrailingBackslash(folder)));
    return std::any_of(kKinds.begin(), kKinds.end(),
                       [&kind](std::string_view letters) { return text::StartsWithNoCase(kind, letters); });
}

bool AcceptsLoco(EditorContext& context, std::string_view folder) {
    if (IsLocoFolder(folder)) return true;
    context.ui.Show({.text = "You must select a loco folder in the top level, e.g. Diesel\\Class55 etc"});
    return false;
}

bool IsCloneTarget(const EditorContext& context, std::string_view folder) {
    const std::string source = SourceFolder(context);
    const std::size_t length = source.empty() ? 0 : text::MatchLengthNoCase(folder, source + "\\");
    if (length == 0) return false;
    const std::string below = "\\" + std::string(folder.substr(length)) + "\\";
    return text::FindNoCase(below, "\\RailVehicles\\") > 0;
}

bool CopyLoco(EditorContext& context, const std::string& from, const std::string& to) {
    auto& files = context.platform.files;
    bool isMade = false;
    std::string told;
    Tree tree;
    try {
        const platform::BusyPointer busy(context.ui);
        tree = platform::ListTree(files, from);
        if (!tree.unreadable.empty()) {
            throw RuntimeError(text::ErrorNumber::PathNotFound, from + "\\" + tree.unreadable.front());
        }
        files.CreateFolder(to);
        isMade = true;
        if (!CopyTree(context, tree, from, to)) told = "The copying of the loco was cancelled.";
    } catch (const RuntimeError& error) {
        told = "The loco could not be copied: " + Problem(error, from);
    }
    if (told.empty()) {
        context.ui.Show({.text = DoneText(tree, to), .icon = platform::Icon::Information, .opensFolder = to});
        return true;
    }
    if (isMade) told += RemoveCopy(files, to);
    context.ui.Show({.text = told});
    return false;
}

void CloneLoco(EditorContext& context) {
    if (!KnowsGame(context)) return;
    auto& state = context.session.Authoring;
    state.CloneSource.clear();
    state.Folder = FolderJob::LocoToClone;
    if (!context.view.ShowFolderChooser()) return;
    const std::string source = state.CloneSource;
    const auto target = AskForTarget(context, source);
    if (target) CopyLoco(context, source, *target);
}

} // namespace tamarind::authoring

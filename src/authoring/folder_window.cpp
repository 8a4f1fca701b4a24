#include "authoring/folder_window.h"

#include "authoring/blueprint.h"
#include "authoring/developer_folders.h"
#include "authoring/loco_clone.h"
#include "authoring/name_rules.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "text/runtime_error.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace tamarind::authoring {

using session::EditorContext;
using session::FolderJob;
using text::RuntimeError;

namespace {

constexpr const char* kNoTarget = "Please select a folder RailVehicles below Source, e.g. "
                                  "Source\\Developer\\AddOn\\RailVehicles";

/// Makes a folder the current and the chosen one. A failure is shown, and nothing changes: false.
bool GoTo(EditorContext& context, FolderWindow& window, const std::string& folder) {
    try {
        const std::string drive = install::DriveOf(folder);
        const std::string root = install::RootOf(drive);
        const std::string path = install::RootOf(folder) == root ? root : platform::WithoutTrailingBackslash(folder);
        window.DirRows = install::FolderRows(context.platform.files, path);
        window.Drive1 = drive;
        window.Dir1 = path;
        window.Text1 = path;
        return true;
    } catch (const RuntimeError& error) {
        context.ui.Show({.text = error.Description() + "\r\n" +
                                 platform::ForDisplay(error.Details().empty() ? folder : error.Details())});
        return false;
    }
}

std::string CaptionOf(const EditorContext& context) {
    const auto& state = context.session.Authoring;
    switch (state.Folder) {
    case FolderJob::AddOn: return "Select your Developer Folder";
    case FolderJob::BlueprintOutput: return FormOf(state.BlueprintMode).folderCaption;
    case FolderJob::LocoToClone: return "Choose Loco Folder To Clone";
    case FolderJob::CloneTarget: return "Select your RailVehicles folder";
    }
    return {};
}

std::string StartFolder(const EditorContext& context) {
    const std::string& game = context.session.RailSimPath;
    if (game.empty()) return {};
    const bool isLoco = context.session.Authoring.Folder == FolderJob::LocoToClone;
    const std::string folder = isLoco ? game + "\\Assets\\Kuju\\RailSimulator\\RailVehicles" : SourceFolder(context);
    return install::NearestFolder(context.platform.files, folder);
}

std::string AddOnFolder(const FolderWindow& window) {
    return platform::WithoutTrailingBackslash(window.Text1) + "\\" + window.Text2;
}

/// An add-on without a name is the folder that is chosen already, and so it exists.
bool IsAddOnThere(const EditorContext& context, const FolderWindow& window) {
    return window.Text2.empty() || context.platform.files.EntryExists(AddOnFolder(window));
}

void ConfirmAddOn(EditorContext& context, FolderWindow& window) {
    const std::string base = AddOnFolder(window);
    const std::string refusal = window.Text2.empty() ? std::string() : FolderNameRefusal(window.Text2);
    window.isConfirmed = true;
    if (!refusal.empty()) {
        context.ui.Show({.text = refusal});
    } else if (IsAddOnThere(context, window)) {
        context.ui.ShowStatus("Nothing was made: " + platform::ForDisplay(base) + " exists already");
    } else if (MakeAddOn(context, base) == AddOn::Made) {
        context.ui.ShowStatus("Made " + platform::ForDisplay(base));
    }
}

std::string AddOnHint(const EditorContext& context, const FolderWindow& window) {
    if (window.Text2.empty()) return "The name of a new folder in the one above.";
    const std::string refusal = FolderNameRefusal(window.Text2);
    if (!refusal.empty()) return refusal;
    if (IsAddOnThere(context, window)) return "This folder exists already: nothing will be made.";
    return fmt::format("Makes this folder and {} folders in it.", AddOnFolders().size());
}

std::string LocoHint(const FolderWindow& window) {
    return IsLocoFolder(window.Text1) ? "Makes a copy of " + platform::NameOf(window.Text1) + "."
                                      : "Open the folder of one loco, in Steam, Diesel or Electric.";
}

} // namespace

void LoadFolders(EditorContext& context, FolderWindow& window) {
    window = {};
    window.job = context.session.Authoring.Folder;
    window.caption = CaptionOf(context);
    window.Drives = context.platform.files.Drives();
    const bool hasC = std::find(window.Drives.begin(), window.Drives.end(), "C:") != window.Drives.end();
    const std::string drive = hasC || window.Drives.empty() ? "C:" : window.Drives.front();
    const std::string folder = StartFolder(context);
    GoTo(context, window, folder.empty() ? install::RootOf(drive) : folder);
}

bool ChangeDrive(EditorContext& context, FolderWindow& window, const std::string& drive) {
    return GoTo(context, window, install::RootOf(drive));
}

bool ClickFolder(EditorContext& context, FolderWindow& window, std::size_t row) {
    if (row >= window.DirRows.size()) return false;
    return GoTo(context, window, std::string(window.DirRows[row].path));
}

std::string FolderHint(const EditorContext& context, const FolderWindow& window) {
    switch (window.job) {
    case FolderJob::AddOn: return AddOnHint(context, window);
    case FolderJob::BlueprintOutput: return "The blueprint is going to be made in this folder.";
    case FolderJob::LocoToClone: return LocoHint(window);
    case FolderJob::CloneTarget:
        return IsCloneTarget(context, window.Text1) ? "The copy is going to be made in this folder."
                                                    : "Open a folder RailVehicles below Source.";
    }
    return {};
}

bool CanConfirm(const FolderWindow& window) { return !window.Text1.empty(); }

void Confirm(EditorContext& context, FolderWindow& window) {
    auto& state = context.session.Authoring;
    if (!CanConfirm(window)) return;
    switch (window.job) {
    case FolderJob::AddOn: ConfirmAddOn(context, window); return;
    case FolderJob::BlueprintOutput:
        state.BlueprintFolder = window.Text1;
        window.isConfirmed = true;
        return;
    case FolderJob::LocoToClone:
        window.isConfirmed = AcceptsLoco(context, window.Text1);
        if (!window.isConfirmed) window.Text1.clear();
        state.CloneSource = window.Text1;
        return;
    case FolderJob::CloneTarget:
        window.isConfirmed = IsCloneTarget(context, window.Text1);
        if (!window.isConfirmed) context.ui.Show({.text = kNoTarget});
        state.CloneTarget = window.isConfirmed ? window.Text1 : "";
        return;
    }
}

} // namespace tamarind::authoring

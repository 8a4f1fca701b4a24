#include "authoring/developer_folders.h"

#include "authoring/made_folders.h"
#include "authoring/name_rules.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "text/runtime_error.h"

#include <array>

namespace tamarind::authoring {

using session::EditorContext;
using text::RuntimeError;

namespace {

constexpr std::array kFirstLevel{"Audio",        "Environment",    "Particles", "RailNetwork",
                                 "RailVehicles", "RouteMarkers",   "Scenery",   "Stations",
                                 "System",       "TemplateRoutes", "Weather"};
constexpr const char* kScenery = "Scenery\\";
constexpr std::array kInScenery{"Animated",   "Billboards", "Brushes",           "Buildings",  "Characters",
                                "Clocks",     "Clutter",    "DestinationBoards", "Procedural", "Structures",
                                "Vegetation", "Vehicles",   "Wildlife"};

/// Tells of a failure, after taking back what was made before it.
void TellFailure(EditorContext& context, MadeFolders& folders, const std::string& what, const RuntimeError& error) {
    std::string text = what + " could not be made: " + error.Description();
    if (!error.Details().empty()) text += "\r\n" + platform::ForDisplay(error.Details());
    const std::vector<std::string> left = folders.TakeBack();
    if (!left.empty()) text += "\r\nAlready made, and not to be removed again:";
    for (const std::string& folder : left)
        text += "\r\n" + platform::ForDisplay(folder);
    context.ui.Show({.text = text});
}

/// False when it is not there and cannot be made.
bool MakeSource(EditorContext& context) {
    const std::string source = SourceFolder(context);
    if (platform::FolderExists(context.platform.files, source)) return true;
    MadeFolders made(context.platform.files);
    try {
        made.Make(source);
        return true;
    } catch (const RuntimeError& error) {
        TellFailure(context, made, "The folder of all developers", error);
        return false;
    }
}

} // namespace

std::string SourceFolder(const EditorContext& context) {
    const std::string& game = context.session.RailSimPath;
    return game.empty() ? std::string() : game + "\\Source";
}

bool KnowsGame(EditorContext& context) {
    if (!context.session.RailSimPath.empty()) return true;
    // Else folders would be made at the top of the drive.
    context.ui.Show({.text = "Please select the RS path from the Options menu first."});
    return false;
}

std::vector<std::string> AddOnFolders() {
    std::vector<std::string> folders(kFirstLevel.begin(), kFirstLevel.end());
    for (const char* const name : kInScenery)
        folders.push_back(std::string(kScenery) + name);
    return folders;
}

std::optional<std::string> MakeDeveloperFolder(EditorContext& context, const std::string& name) {
    auto& files = context.platform.files;
    if (!KnowsGame(context)) return std::nullopt;
    const std::string refusal = FolderNameRefusal(name);
    if (!refusal.empty()) {
        context.ui.Show({.text = refusal});
        return std::nullopt;
    }
    const std::string source = SourceFolder(context);
    std::string folder = source + "\\" + name;
    if (files.EntryExists(folder)) {
        context.ui.Show({.text = "A Developer Folder with that name already exists. Please try again."});
        return std::nullopt;
    }
    MadeFolders made(files);
    try {
        if (!platform::FolderExists(files, source)) made.Make(source);
        made.Make(folder);
    } catch (const RuntimeError& error) {
        TellFailure(context, made, "The developer's folder", error);
        return std::nullopt;
    }
    return folder;
}

AddOn MakeAddOn(EditorContext& context, const std::string& base) {
    auto& files = context.platform.files;
    if (files.EntryExists(base)) return AddOn::Exists;
    MadeFolders made(files);
    try {
        made.Make(base);
        const std::string below = base + "\\";
        for (const std::string& folder : AddOnFolders())
            made.Make(below + folder);
    } catch (const RuntimeError& error) {
        TellFailure(context, made, "The add-on's folders", error);
        return AddOn::Failed;
    }
    return AddOn::Made;
}

void SetUpDeveloperFolder(EditorContext& context) {
    if (!KnowsGame(context) || !MakeSource(context)) return;
    const std::string name =
        context.ui.AskForText("Enter your Developer name (Use alpha characters only, no spaces)", "Developer Name", "");
    if (name.empty()) return;
    const auto folder = MakeDeveloperFolder(context, name);
    if (folder) context.ui.ShowStatus("Made " + platform::ForDisplay(*folder));
}

void SetUpSubFolders(EditorContext& context) {
    context.session.Authoring.Folder = session::FolderJob::AddOn;
    static_cast<void>(context.view.ShowFolderChooser());
}

} // namespace tamarind::authoring

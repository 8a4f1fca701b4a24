#pragma once

#include "session/editor_context.h"

#include <span>
#include <string>
#include <vector>

/// The routes window without its controls: what it shows, as plain data, and its commands as functions. The window
/// fills its lists from RouteWindow after every command and hands over which items are selected.
namespace tamarind::routes {

/// Indices of selected items, from 0, in the order of the list. The window unselects them when a command has run.
using Selection = std::span<const std::size_t>;

struct RouteWindow {
    std::string RoutesFile;      ///< full path of the routes index
    std::string RoutesText;      ///< its text, as read when the window was loaded or last written
    std::string RouteFolder;     ///< of the route whose scenarios are listed; empty before
    std::string ScenarioXmlName; ///< name of the converted scenario index in TempFiles

    std::vector<std::string> List1; ///< display names of the routes; or the package's entries, see showsPackage
    std::vector<std::string> List2; ///< ids of the routes
    std::vector<std::string> List3; ///< display names of the scenarios; after a check for textures its blueprints
    std::vector<std::string> List4; ///< ids of the scenarios; while scenarios are packaged the paths of those added
    bool isFile1Visible = true;

    /// List3 shows the scenarios of RouteFolder. A check ends that, for it needs List3 and TempFiles.
    bool hasScenarios = false;
    /// List1 shows the paths of the scenarios in the package, from "Rail Simulator" on. No other route can be chosen
    /// then.
    bool showsPackage = false;
    // What "Add to Package" keeps; see scenario_packaging.h.
    std::string PackageBatch;        ///< the lines of the copy script
    std::string PackageScenarioPath; ///< full path of the scenario added last
    std::string PackageRelativePath; ///< from "Rail Simulator" on
    std::string PackageRouteId;      ///< taken once

    /// A command is waiting for the converter or copies: no other one may begin.
    bool isBusy = false;
    /// The window is to close.
    bool isClosed = false;
};

enum class Control {
    Command1, ///< list scenarios
    Command2, ///< delete scenario
    Command3, ///< list stock
    Command4, ///< check route
    Command5, ///< add to package
    Command6, ///< process package
    Command7, ///< edit scenario
    OKButton, ///< delete or package route
    CancelButton,
    LabelRouteName,
    LabelRouteFolder,
    LabelScenarioName,
    LabelScenarioFolder,
};

[[nodiscard]] std::string TitleOf(const session::RouteState& state);
[[nodiscard]] std::string CaptionOf(Control control, const session::RouteState& state);
[[nodiscard]] bool IsVisible(Control control, const session::RouteState& state);
/// Whether the button has a command that may begin now: no other one is waiting, and those on a scenario need a list of
/// scenarios. Adding to a package may begin without one: it then repeats the last addition.
[[nodiscard]] bool IsEnabled(Control control, const session::RouteState& state, const RouteWindow& window);
/// For the status line: how many routes there are, and the full path of the selected one, as the system writes it;
/// while none is selected, of the one whose scenarios are listed.
[[nodiscard]] std::string StatusText(const session::EditorContext& context, const RouteWindow& window,
                                     Selection selectedRoutes);

/// For File1: the names of the files in the folder of the selected route. Empty without one, or when it cannot be read.
[[nodiscard]] std::vector<std::string> RouteFiles(const session::EditorContext& context, const RouteWindow& window,
                                                  Selection selectedRoutes);

/// How a command ended.
enum class Ended {
    Done,
    Failed,   ///< the person was told why
    Declined, ///< its question was not answered with Yes
};

/// The menu command that deletes and checks routes: opens the window for that.
void OpenRoutes(session::EditorContext& context);
/// Opens the window in a mode (0 or kSet); one that is open in the other mode closes first. While the window packages
/// scenarios it only comes to the front, so that what was added is not lost.
void OpenRoutesFor(session::EditorContext& context, std::int16_t routeFormMode);
/// Told where a window that packages scenarios is in the way of another job.
inline constexpr const char* kScenariosFirst = "Please close this window first: it packages scenarios.";
[[nodiscard]] bool PackagesRoute(const session::RouteState& state);
[[nodiscard]] bool PackagesScenarios(const session::RouteState& state);

/// Window load: reads the routes index and lists its routes. Without an index the lists are empty.
/// Throws RuntimeError, which ends the program, for an index that cannot be read or whose records are not whole.
void LoadRoutes(session::EditorContext& context, RouteWindow& window);

/// The window was closed, by whatever means.
void CloseRoutes(session::EditorContext& context, RouteWindow& window);

/// Command1: lists the scenarios of the last selected route; without one the lists are emptied. A failure is shown, and
/// the lists keep what was added before.
Ended ListScenarios(session::EditorContext& context, RouteWindow& window, Selection selectedRoutes);

/// The full path of a route's folder.
[[nodiscard]] std::string RouteFolderOf(const session::EditorContext& context, const std::string& routeId);

} // namespace tamarind::routes

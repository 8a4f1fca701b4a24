#pragma once

#include "routes/route_packaging.h"

#include <span>
#include <string>

namespace tamarind::routes {

/// The menu command that packages scenarios: begins and opens the routes window for that; one that packages scenarios
/// already comes to the front. While the asset packager is open, which shares the package's name and TempFiles, that
/// one comes to the front instead.
void OpenScenarioPackager(session::EditorContext& context);

/// Before the routes window opens: TempFiles is emptied (what is recovered stays), and the package
/// has no name yet. False, and nothing changed, while a game file is being converted; the person is told.
bool BeginScenarioPackaging(session::EditorContext& context);

/// Command5: adds the first selected scenario of List3 to the package. The first addition turns List1 from the list of
/// routes into that of the package's entries; List4 takes the scenarios' paths. Without a selection the line and the
/// List1 entry of the scenario added last, or empty ones, are appended once more. A failure is shown.
Ended AddToPackage(session::EditorContext& context, RouteWindow& window, Selection selectedScenarios);

/// Command6: makes the package from what was added. It may go by several times; the records of an earlier one stay in
/// "Scenario.zzz". A failure is shown, and what was already made stays; the status line tells where.
Packaged ProcessPackage(session::EditorContext& context, RouteWindow& window);

/// Appends the records of scenarios to "Scenario.zzz" in TempFiles, out of "Scenarios.xml" there, which listing the
/// scenarios left. `firstEntry` is the relative path of the first scenario; the index that it leads to is converted
/// once more, for other tools to look at. Throws InvalidProcedureCall at a scenario without a record; those before it
/// are written then.
void CollectScenarioRecords(session::EditorContext& context, const std::string& firstEntry,
                            std::span<const std::string> scenarioPaths);

} // namespace tamarind::routes

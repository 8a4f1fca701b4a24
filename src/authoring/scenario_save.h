#pragma once

#include "authoring/scenario_window.h"

#include <string>

/// The commands of the scenario editor that write into the game.
namespace tamarind::authoring {

struct Written {
    bool isDone = false;
    std::string backup; ///< full path; empty when none was made
};

/// Command1: saves once. After that it only says that the window has to be opened again.
Written SaveChanges(session::EditorContext& context, ScenarioWindow& window);

/// What saving does: checks the fields, changes the record, and has the route's index of scenarios written by the
/// converter, the old one under a backup name. The shared record is the whole index from then on, so that once more in
/// the same window it changes the first record of the index and puts the index into itself. When it fails, the person
/// was told, and record and index are as they were.
Written WriteScenario(session::EditorContext& context, ScenarioWindow& window);

/// Command4: makes the player the driver of the consist with that index, -1 for none, and has the scenario's own file
/// written by the converter, the old one under a backup name. When it fails, the person was told, and the file is as it
/// was.
Written DriveIt(session::EditorContext& context, ScenarioWindow& window, int selected);

} // namespace tamarind::authoring

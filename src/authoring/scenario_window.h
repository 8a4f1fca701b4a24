#pragma once

#include "authoring/consists.h"
#include "authoring/scenario_fields.h"
#include "install/folder_lists.h"
#include "session/editor_context.h"

#include <array>
#include <string>
#include <vector>

/// The scenario editor without its controls: what it shows, as plain data, and its commands as functions. What it edits
/// stands in the session's ScenarioEditState.
namespace tamarind::authoring {

inline constexpr const char* kScenarioWindowTitle = "Scenario Editor";

/// The items of Combo1.
inline constexpr std::array<const char*, 4> kSeasons{"SEASON_SPRING", "SEASON_SUMMER", "SEASON_AUTUMN",
                                                     "SEASON_WINTER"};

struct ScenarioWindow {
    FieldTexts Text1;
    bool isCombo1Visible = true;
    std::string Dir1;                        ///< the folder of weather that File1 shows
    std::vector<install::FolderRow> DirRows; ///< the rows of Dir1
    std::vector<std::string> File1;
    std::vector<Consist> Consists; ///< List1 shows their names
    std::string Command2 = "Cancel";

    bool isSaved = false;      ///< the record is in the index: a second save would put the index into itself
    bool isSaveEnabled = true; ///< of Command1
    bool isRecordUtf8 = false; ///< the record's texts are UTF-8, though they were read as Windows-1252
    bool isBusy = false;       ///< a command waits for the converter: no other one may begin
};

/// Window load. A record that cannot be edited is told: false.
bool LoadScenario(session::EditorContext& context, ScenarioWindow& window);

/// A field's text as letters that a person can read.
[[nodiscard]] std::string ShownText(const ScenarioWindow& window, Field field);
/// The other way round, for a text that was typed; one that was not changed stays to the byte.
void TypeText(ScenarioWindow& window, Field field, const std::string& typed);

/// Combo1: takes the season over and hides the chooser.
void ChooseSeason(ScenarioWindow& window, const std::string& season);

/// What Command4 reads for a selected row of List1, -1 for none: which consist it is going to act on.
[[nodiscard]] std::string DriveCaption(const ScenarioWindow& window, int selected);

/// A click on a row of Dir1. A folder that cannot be listed is told, and the lists stay: false.
bool ClickWeatherFolder(session::EditorContext& context, ScenarioWindow& window, std::size_t row);
/// Command3: takes over the file with that index in File1. One outside of the game's Assets is refused: false.
bool SetWeather(session::EditorContext& context, ScenarioWindow& window, std::size_t file);

} // namespace tamarind::authoring

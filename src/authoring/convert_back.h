#pragma once

#include "authoring/scenario_window.h"

#include <string>

/// How the scenario editor puts changed XML into the game.
namespace tamarind::authoring {

/// For the length of a command that converts: no other one of the window begins, and no game file of the same working
/// files is opened or saved.
class Busy {
public:
    /// `tempBase` as in Session::convertingBases.
    Busy(session::EditorContext& context, ScenarioWindow& window, const std::string& tempBase);
    ~Busy();
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    session::EditorContext& context_;
    ScenarioWindow& window_;
};

/// Writes the text with one line end behind it to a working file. Throws as WriteSafely.
void WriteLine(platform::Files& files, const std::string& path, const std::string& text);

struct ConvertedBack {
    std::string backup; ///< empty when all names were taken
    bool isNew = false; ///< the converter wrote a file that is not the old one
};

/// Renames a game file, `stem` + ".bin", to its free backup name, `stem` + ".bak" and so on, and has the converter
/// write the XML into its place. When that leaves nothing new, the old file stands there again. Throws when the old
/// file cannot be renamed, and then nothing was changed; and when it cannot be put back.
[[nodiscard]] ConvertedBack ConvertBack(session::EditorContext& context, const std::string& source,
                                        const std::string& stem);

} // namespace tamarind::authoring

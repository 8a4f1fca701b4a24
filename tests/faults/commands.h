#pragma once

#include "support/editor_rig.h"
#include "support/fake_converter.h"
#include "support/fault_runs.h"
#include "support/temp_folder.h"

#include <functional>
#include <string>
#include <vector>

namespace tamarind::tests {

inline constexpr const char* kOldXml = "<Top>old</Top>";
inline constexpr const char* kNewXml = "<Top>new text that is longer</Top>";

/// A kit with an open game file on the real disk. The commands reach the disk through faults.
class FaultyKit {
public:
    explicit FaultyKit(Fault fault);

    /// Runs a command as the window does: an error that leaves it is shown, and unsaved work is kept.
    void Run(const std::function<void(session::EditorContext&)>& command);
    /// Fills in what the run met.
    void Finish(FaultRun& run) const;

    /// An open game file "Track.XSec" with changed text and a changed document, an earlier backup and an earlier
    /// result of the converter.
    void OpenTrack();

    [[nodiscard]] std::string Game(std::string_view name) const { return folder.Read("Game\\" + std::string(name)); }
    [[nodiscard]] bool GameHas(std::string_view name) const;
    /// Everything shown to the person, in one text.
    [[nodiscard]] std::string Told() const;

    TempFolder folder;
    FaultyFiles files;
    EditorRig rig;
    FakeConverter converter;
};

/// The names, without those of temporary files.
[[nodiscard]] std::vector<std::string> WithoutTemporaries(const std::vector<std::string>& names);

/// Checks a save of Track.XSec: the game file is wholly old or wholly new, and where it is new the old content is kept.
/// Earlier backups are untouched, the person was told of a failure, and nothing else lies about.
void CheckTrack(const FaultyKit& kit, const FaultRun& run, const std::string& newXml);

} // namespace tamarind::tests

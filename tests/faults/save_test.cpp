#include "convert/game_file.h"
#include "faults/commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// Each change of the disk fails in each way: the game file stays whole, its backups stay, and the person is told.
namespace tamarind::tests {
namespace {

using testing::HasSubstr;

constexpr int kWays = 8; // four kinds of fault, each once and for ever
constexpr const char* kTidyXml = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<Top>new text that is longer</Top>\r\n";

/// Which description the person must have read.
const char* DescriptionOf(FaultKind kind) {
    switch (kind) {
    case FaultKind::IoError: return "Device I/O error";
    case FaultKind::AccessDenied: return "Permission denied";
    default: return "Disk full";
    }
}

void CheckTold(const FaultyKit& kit, const FaultRun& run) {
    if (run.struck) {
        EXPECT_THAT(kit.Told(), HasSubstr(DescriptionOf(run.fault.kind))) << run.Name();
    } else {
        EXPECT_EQ(kit.Told(), "") << run.Name();
    }
}

TEST(SaveFaults, TheTextEditorsSaveSurvivesEveryOne) {
    const int points = TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        kit.OpenTrack();
        kit.Run([](session::EditorContext& context) { convert::SaveRailSimFile(context); });
        kit.Finish(run);
        CheckTrack(kit, run, kNewXml);
        CheckTold(kit, run);
        EXPECT_EQ(kit.Game("Track.XSec") == GameFile(kNewXml), !run.struck) << run.Name();
        EXPECT_EQ(kit.rig.view.isTextModified, run.struck) << run.Name();
    });
    // The XML: Create, CopyAttributes, Write, Flush, Close, Replace. The working files: two times Remove, and Rename.
    // The game file: as the XML, and HardLink.
    EXPECT_EQ(points, (6 + 3 + 7) * kWays);
}

TEST(SaveFaults, TheTreeEditorsSaveSurvivesEveryOne) {
    const int points = TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        kit.OpenTrack();
        kit.Run([](session::EditorContext& context) { convert::SaveRailSimFileFromTree(context); });
        kit.Finish(run);
        CheckTrack(kit, run, kTidyXml);
        CheckTold(kit, run);
        EXPECT_EQ(kit.Game("Track.XSec") == GameFile(kTidyXml), !run.struck) << run.Name();
    });
    EXPECT_EQ(points, (6 + 3 + 7) * kWays);
}

TEST(SaveFaults, AFailureAtTheGameFileSaysThatItIsUnchanged) {
    TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        kit.OpenTrack();
        kit.Run([](session::EditorContext& context) { convert::SaveRailSimFile(context); });
        kit.Finish(run);
        if (run.struck && run.fault.at > 9) { // behind the XML and the working files
            EXPECT_THAT(kit.Told(), HasSubstr("The game file is unchanged.")) << run.Name();
        }
    });
}

TEST(SaveFaults, UnsavedTextSurvivesAFailedSave) {
    TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        kit.OpenTrack();
        kit.Run([](session::EditorContext& context) { convert::SaveRailSimFile(context); });
        kit.Finish(run);
        // In the editor still, or, where the program ends, in Recovered or in the XML in TempFiles.
        const bool ends = kit.Told().find("Tamarind ends now.") != std::string::npos;
        if (ends && !run.fault.forever) {
            EXPECT_EQ(kit.folder.Read("Kit\\TempFiles\\Recovered\\Track.xml"), kNewXml) << run.Name();
        } else if (ends) {
            EXPECT_EQ(kit.folder.Read("Kit\\TempFiles\\Track.xml"), kNewXml) << run.Name();
        } else {
            EXPECT_EQ(kit.rig.view.EditorText(), kNewXml) << run.Name();
        }
    });
}

TEST(SaveFaults, SavingXmlAsSurvivesEveryOne) {
    const int points = TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        kit.folder.Write("Game\\a.xml", kOldXml);
        kit.rig.view.TypeText(kNewXml);
        kit.rig.ui.filePaths = {kit.folder / "Game\\a.xml"};
        kit.Run(convert::SaveXmlTextAs);
        kit.Finish(run);
        EXPECT_EQ(kit.Game("a.xml"), run.struck ? kOldXml : kNewXml) << run.Name();
        EXPECT_EQ(kit.rig.view.isTextModified, run.struck) << run.Name();
        CheckTold(kit, run);
        if (!run.fault.forever) {
            EXPECT_EQ(kit.folder.Names("Game"), std::vector<std::string>{"a.xml"}) << run.Name();
        }
    });
    EXPECT_EQ(points, 6 * kWays);
}

TEST(OpenFaults, OpeningAGameFileTouchesOnlyWorkingFiles) {
    const int points = TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        kit.rig.session.CommandFile = kit.folder.Write("Game\\Track.XSec", GameFile(kOldXml));
        kit.rig.session.UseCommandFile = true;
        kit.Run([](session::EditorContext& context) { convert::OpenRailSimFile(context); });
        kit.Finish(run);
        CheckTold(kit, run);
        EXPECT_EQ(kit.Game("Track.XSec"), GameFile(kOldXml)) << run.Name();
        EXPECT_EQ(kit.folder.Names("Game"), std::vector<std::string>{"Track.XSec"}) << run.Name();
        EXPECT_EQ(kit.rig.view.EditorText(), run.struck ? "" : kOldXml) << run.Name();
    });
    EXPECT_EQ(points, 5 * kWays); // the working copy: Create, Write, Flush, Close, Replace
}

} // namespace
} // namespace tamarind::tests

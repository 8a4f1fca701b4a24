#include "faults/commands.h"
#include "shell/closing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using testing::HasSubstr;

constexpr int kWays = 8;
constexpr const char* kOld = "1,2,3,4,\"\",\"\",\"C:\\Old\",#TRUE#\r\n";

std::string New(const FaultyKit& kit) {
    return "0,0,0,0,\"\",\"\",\"" + kit.rig.session.RailSimPath + "\",#FALSE#\r\n";
}

void CloseAndCheck(FaultyKit& kit, FaultRun& run, const std::string& old) {
    kit.rig.session.RailSimPath = "C:\\New";
    bool mayClose = false;
    kit.Run([&](session::EditorContext& context) { mayClose = shell::MayClose(context); });
    kit.Finish(run);
    EXPECT_TRUE(mayClose) << run.Name();
    EXPECT_EQ(kit.folder.Read("Kit\\preferences.txt"), run.struck ? old : New(kit)) << run.Name();
    if (run.struck) {
        EXPECT_THAT(kit.Told(), HasSubstr("The settings could not be saved: ")) << run.Name();
    } else {
        EXPECT_EQ(kit.Told(), "") << run.Name();
    }
    if (!run.fault.forever) {
        EXPECT_EQ(kit.folder.Names("Kit"), WithoutTemporaries(kit.folder.Names("Kit"))) << run.Name();
    }
}

TEST(SettingsFaults, WritingTheSettingsSurvivesEveryOne) {
    const int points = TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        kit.folder.Write("Kit\\preferences.txt", kOld);
        CloseAndCheck(kit, run, kOld);
    });
    EXPECT_EQ(points, 6 * kWays); // Create, CopyAttributes, Write, Flush, Close, Replace
}

TEST(SettingsFaults, SettingsThatWereNotUnderstoodAreNeverLost) {
    const int points = TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        kit.folder.Write("Kit\\preferences.txt", "garbled");
        kit.folder.Write("Kit\\preferences.txt.bak", "an earlier backup");
        kit.rig.session.preferencesUnreadable = true;
        CloseAndCheck(kit, run, "garbled");
        EXPECT_EQ(kit.folder.Read("Kit\\preferences.txt.bak"), "an earlier backup") << run.Name();
        if (!run.struck) {
            EXPECT_EQ(kit.folder.Read("Kit\\preferences.txt.bak1"), "garbled");
        }
    });
    EXPECT_EQ(points, (5 + 6) * kWays); // the backup is a new file, without CopyAttributes
}

} // namespace
} // namespace tamarind::tests

#include "cli/cli_program.h"
#include "system/program.h"

#include <gmock/gmock.h>

namespace tamarind::tests {
namespace {

using samples::Utf8;
using samples::WriteFile;
using testing::ElementsAre;

/// tamarind-cli in a folder that is nobody's own, with the converter in the game's folder.
class SharedCli : public CliTest {
protected:
    SharedCli() {
        WriteFile(Path("Bin") / "shared-installation", "");
        WriteFile(Path("Bin") / "RouteSetup.exe", "setup");
        fs::copy_file(samples::ProgramFolder() / SERZ_NAME, game_ / "serz.exe");
    }

    Ran Open() {
        return RunWords({"--game", Utf8(game_), "open", Utf8(track_)}, {{"XDG_DATA_HOME", Utf8(Path("Data"))}});
    }
};

TEST_F(SharedCli, WorksInAFolderOfThePersonsOwn) {
    const Ran ran = Open();
    EXPECT_EQ(ran.exitCode, 0) << ran.errors;
    EXPECT_EQ(ran.output, Utf8(Path("Data") / "tamarind" / "TempFiles" / "Track.xml") + "\n");
    EXPECT_EQ(samples::ReadFile(Path("Data") / "tamarind" / "TempFiles" / "Track.xml"), kOldXml);
    EXPECT_THAT(Names("Data/tamarind"), ElementsAre("RouteSetup.exe", "TempFiles"));
}

TEST_F(SharedCli, LeavesTheInstallationAsItIs) {
    Open();
    EXPECT_THAT(Names("Bin"), ElementsAre("RouteSetup.exe", "shared-installation", CLI_NAME));
}

TEST_F(SharedCli, SaysWhenThePersonsFolderCannotBeMade) {
    WriteFile(Path("Data"), "a file where the folder should be");
    const Ran ran = Open();
    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_NE(ran.errors.find(Utf8(Path("Data") / "tamarind")), std::string::npos) << ran.errors;
    EXPECT_EQ(ran.output, "");
}

TEST_F(SharedCli, UsesTheFolderThatIsNamedInstead) {
    const Ran ran = RunWords({"--program-dir", Utf8(kit_), "--game", Utf8(game_), "open", Utf8(track_)},
                             {{"XDG_DATA_HOME", Utf8(Path("Data"))}});
    EXPECT_EQ(ran.exitCode, 0) << ran.errors;
    EXPECT_EQ(ran.output, Utf8(kit_ / "TempFiles" / "Track.xml") + "\n");
    EXPECT_FALSE(fs::exists(Path("Data")));
}

} // namespace
} // namespace tamarind::tests

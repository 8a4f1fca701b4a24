#include "cli_program.h"

#include "system/program.h"

#include <gmock/gmock.h>

namespace tamarind::tests {
namespace {

using nlohmann::json;
using samples::ReadFile;
using samples::Utf8;
using samples::WriteFile;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

/// "Game/Wall.TgPcDx": two levels, 4 x 4 and 2 x 2 pixels of 32 bits. All bytes of a level are the same.
std::string WallXml(const std::string& first, const std::string& second) {
    const auto repeated = [](const std::string& byte, int count) {
        std::string hex;
        for (int i = 0; i < count; ++i)
            hex += byte;
        return hex;
    };
    return "<Texture>\r\n<Width>4</Width>\r\n<Height>4</Height>\r\n<Format>HC_IMAGE_FORMAT_COLA8888</Format>\r\n"
           "<d:blob d:size=\"64\">" +
           repeated(first, 64) +
           "</d:blob>\r\n"
           "<d:blob d:size=\"16\">" +
           repeated(second, 16) + "</d:blob>\r\n</Texture>\r\n";
}

class CliTexture : public CliTest {
protected:
    CliTexture() : wall_(game_ / "Wall.TgPcDx"), temp_(kit_ / "TempFiles") {
        WriteFile(wall_, Binary(WallXml("41", "42")));
    }
    [[nodiscard]] std::string Dds() const { return Utf8(temp_ / "Wall.dds"); }
    void Export() { ASSERT_EQ(Run({"texture", "export", Utf8(wall_)}).exitCode, 0); }

    fs::path wall_;
    fs::path temp_;
};

TEST_F(CliTexture, ExportWritesPictureAndCompanion) {
    const Ran ran = Run({"texture", "export", Utf8(wall_)});
    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.output, Shown(temp_ / "Wall.dds") + "\t" + Shown(temp_ / "Wall.dat") + "\n");
    EXPECT_EQ(ReadFile(temp_ / "Wall.dds").substr(128), std::string(64, 'A') + std::string(16, 'B'));
    EXPECT_THAT(ReadFile(temp_ / "Wall.dat"), StartsWith(" 2\r\n\"<Texture>\r\n"));
}

TEST_F(CliTexture, ExportReportsItsFilesAndTheMessage) {
    const json report = RunJson({"texture", "export", Utf8(wall_)}, 0);
    const json expected = {
        {"command", "texture export"},
        {"messages",
         {{{"icon", "information"},
           {"title", "Editing .dds files"},
           {"text", "If you wish to edit this file, then it must be saved with the following format:-\r\n1. .DDS\r\n"
                    "2. ARGB 8.8.8.8\r\n3. Number of Mip-Maps - 2"},
           {"buttons", "ok"},
           {"answer", "ok"}}}},
        {"result", {{"dds", Shown(temp_ / "Wall.dds")}, {"dat", Shown(temp_ / "Wall.dat")}}},
        {"error", nullptr}};
    EXPECT_EQ(report, expected);
}

TEST_F(CliTexture, ExportGoesOnAfterAFileThatFailed) {
    WriteFile(game_ / "Roof.TgPcDx", Binary("<Texture><Format>OTHER</Format></Texture>"));
    WriteFile(game_ / "Gate.TgPcDx", Binary(WallXml("43", "44")));
    const std::vector<std::string> words = {"texture",
                                            "export",
                                            Utf8(game_ / "missing.TgPcDx"),
                                            Utf8(game_ / "Roof.TgPcDx"),
                                            Utf8(wall_),
                                            Utf8(game_ / "Gate.TgPcDx")};
    const json report = RunJson(words, 1);
    EXPECT_TRUE(report["error"].is_null());
    const json& files = report["result"]["files"];
    ASSERT_EQ(files.size(), 4U);
    EXPECT_EQ(files[0]["argument"], words[2]);
    EXPECT_TRUE(files[0]["result"].is_null());
    EXPECT_EQ(files[0]["error"], json({{"number", 53}, {"description", "File not found"}}));
    EXPECT_TRUE(files[1]["result"].is_null());
    EXPECT_TRUE(files[1]["error"].is_null()); // a message said why
    EXPECT_EQ(report["messages"][0]["text"],
              "Sorry, unable to convert files of the following type at this time:- OTHER\r\n");
    EXPECT_EQ(files[2]["result"]["dds"], Shown(temp_ / "Wall.dds"));
    EXPECT_EQ(files[3]["result"]["dds"], Shown(temp_ / "Gate.dds"));
    const Ran ran = Run(words);
    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_THAT(ran.errors, HasSubstr("missing.TgPcDx: Run-time error 53: File not found"));
    EXPECT_THAT(ran.output, HasSubstr(Shown(temp_ / "Gate.dat") + "\n"));
}

TEST_F(CliTexture, ExportOfAMissingFileIsAnError) {
    const json report = RunJson({"texture", "export", Utf8(game_ / "missing.TgPcDx")}, 1);
    EXPECT_EQ(report["error"]["number"], 53);
    EXPECT_TRUE(report["result"].is_null());
}

TEST_F(CliTexture, ExportTakesNoTextOfAnEarlierConversion) {
    Export();
    fs::remove(temp_ / "Wall.dds");
    EXPECT_EQ(Run({"texture", "export", Utf8(wall_)}, {{"TAMARIND_SERZ_FAIL", "1"}}).exitCode, 1);
    EXPECT_FALSE(fs::exists(temp_ / "Wall.dds"));
}

TEST_F(CliTexture, ImportPutsChangedPixelsIntoTheGameFile) {
    Export();
    const std::string old = ReadFile(wall_);
    WriteFile(temp_ / "Wall.dds", std::string(128, 'h') + std::string(64, 'C') + std::string(16, 'D'));
    const json report = RunJson({"--yes", "texture", "import", Dds()}, 0);
    EXPECT_EQ(report["result"]["file"], Shown(wall_));
    EXPECT_EQ(report["result"]["backup"], Shown(game_ / "Wall.TgPcDx.bak"));
    EXPECT_EQ(report["messages"].size(), 1U);
    EXPECT_EQ(ReadFile(game_ / "Wall.TgPcDx.bak"), old);
    Export();
    EXPECT_EQ(ReadFile(temp_ / "Wall.dds").substr(128), std::string(64, 'C') + std::string(16, 'D'));
}

TEST_F(CliTexture, ImportWithoutChangesKeepsPixelsAndText) {
    Export();
    const std::string picture = ReadFile(temp_ / "Wall.dds");
    const std::string companion = ReadFile(temp_ / "Wall.dat");
    EXPECT_EQ(Run({"--yes", "texture", "import", Dds()}).exitCode, 0);
    Export();
    EXPECT_EQ(ReadFile(temp_ / "Wall.dds"), picture);
    const auto withoutLineEnds = [](std::string text) {
        std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
        return text;
    };
    EXPECT_EQ(withoutLineEnds(ReadFile(temp_ / "Wall.dat")), withoutLineEnds(companion));
}

TEST_F(CliTexture, ImportIsDeclinedWithoutAnAnswer) {
    Export();
    const std::string old = ReadFile(wall_);
    EXPECT_EQ(Run({"texture", "import", Dds()}).exitCode, 3);
    EXPECT_EQ(Run({"--no", "texture", "import", Dds()}).exitCode, 3);
    EXPECT_EQ(ReadFile(wall_), old);
    EXPECT_FALSE(fs::exists(game_ / "Wall.TgPcDx.bak"));
}

TEST_F(CliTexture, ImportWithAFailingConverterPutsTheOriginalBack) {
    Export();
    const std::string old = ReadFile(wall_);
    const json report = RunJson({"--yes", "texture", "import", Dds()}, 1, {{"TAMARIND_SERZ_FAIL", "1"}});
    EXPECT_EQ(report["error"]["number"], 53);
    EXPECT_THAT(report["messages"][1]["text"].get<std::string>(), HasSubstr(Shown(game_ / "Wall.TgPcDx.bak")));
    EXPECT_EQ(ReadFile(wall_), old);
    EXPECT_FALSE(fs::exists(game_ / "Wall.TgPcDx.bak"));
}

TEST_F(CliTexture, ImportOfSeveralGoesOn) {
    WriteFile(game_ / "Gate.TgPcDx", Binary(WallXml("43", "44")));
    ASSERT_EQ(Run({"texture", "export", Utf8(wall_), Utf8(game_ / "Gate.TgPcDx")}).exitCode, 0);
    fs::remove(temp_ / "Wall.dat");
    const json report = RunJson({"--yes", "texture", "import", Dds(), Utf8(temp_ / "Gate.dds")}, 1);
    EXPECT_EQ(report["messages"][0]["text"],
              "No header file found in TempFiles for this .dds file, cannot process further.");
    EXPECT_TRUE(report["result"]["files"][0]["result"].is_null());
    EXPECT_EQ(report["result"]["files"][1]["result"]["file"], Shown(game_ / "Gate.TgPcDx"));
}

TEST_F(CliTexture, PreviewWritesALevelAsAPngPicture) {
    const json report = RunJson({"texture", "preview", Utf8(wall_), "-o", Utf8(Path("wall.png")), "--level", "1"}, 0);
    const json expected = {{"file", Utf8(Path("wall.png"))}, {"width", 2}, {"height", 2},
                           {"format", "ARGB 8.8.8.8"},       {"level", 1}, {"levels", 2}};
    EXPECT_EQ(report["result"], expected);
    EXPECT_THAT(ReadFile(Path("wall.png")), StartsWith("\x89PNG\r\n"));
    const Ran ran = Run({"texture", "preview", Utf8(wall_), "-o", Utf8(Path("wall.png"))});
    EXPECT_EQ(ran.output, Utf8(Path("wall.png")) + "\t4\t4\tARGB 8.8.8.8\t0\t2\n");
}

TEST_F(CliTexture, PreviewOfAMissingLevelFails) {
    const Ran ran = Run({"texture", "preview", Utf8(wall_), "-o", Utf8(Path("wall.png")), "--level", "2"});
    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_THAT(ran.errors, HasSubstr("There is no level 2: this texture has 2."));
    EXPECT_FALSE(fs::exists(Path("wall.png")));
}

TEST_F(CliTexture, WrongUsageIsTold) {
    EXPECT_EQ(Run({"texture"}).exitCode, 2);
    EXPECT_EQ(Run({"texture", "export"}).exitCode, 2);
    EXPECT_EQ(Run({"texture", "preview", Utf8(wall_)}).exitCode, 2);
    EXPECT_EQ(Run({"texture", "preview", Utf8(wall_), "-o", "x.png", "--level", "-1"}).exitCode, 2);
    EXPECT_EQ(RunJson({"texture", "import"}, 2)["command"], "texture import");
    EXPECT_THAT(Run({"texture", "export", "--help"}).output, HasSubstr("The .TgPcDx files"));
}

} // namespace
} // namespace tamarind::tests

#include "cli_program.h"

#include "system/program.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <thread>

namespace tamarind::tests {
namespace {

using nlohmann::json;
using samples::ReadFile;
using samples::Utf8;
using samples::WriteFile;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kDeclaration = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n";

class Cli : public CliTest {
protected:
    void ExpectError(const json& report, int number, const std::string& description) {
        EXPECT_EQ(report["error"]["number"], number);
        EXPECT_EQ(report["error"]["description"], description);
        EXPECT_TRUE(report["result"].is_null());
    }
    json Save(int exitCode = 0, const Environment& environment = {}) {
        WriteFile(Path("new.xml"), kNewXml);
        return RunJson({"save", Utf8(track_), Utf8(Path("new.xml"))}, exitCode, environment);
    }
    void ExpectTrackUntouched() {
        EXPECT_EQ(ReadFile(track_), Binary(kOldXml));
        EXPECT_THAT(Names("Game"), ElementsAre("Track.XSec"));
    }
};

TEST_F(Cli, OpenConvertsIntoTempFiles) {
    const Ran ran = Run({"open", Utf8(track_)});
    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.output, Shown(kit_ / "TempFiles" / "Track.xml") + "\n");
    EXPECT_EQ(ran.errors, "");
    EXPECT_EQ(ReadFile(kit_ / "TempFiles" / "Track.xml"), kOldXml);
    EXPECT_THAT(Names("Kit/TempFiles"), ElementsAre("Track.bin", "Track.xml"));
    ExpectTrackUntouched();
}

TEST_F(Cli, OpenReportsXmlBaseAndExtension) {
    const json report = RunJson({"open", Utf8(track_)}, 0);
    const json expected = {
        {"command", "open"},
        {"messages", json::array()},
        {"result", {{"xml", Shown(kit_ / "TempFiles" / "Track.xml")}, {"base", "Track."}, {"extension", "XSec"}}},
        {"error", nullptr}};
    EXPECT_EQ(report, expected);
}

TEST_F(Cli, OpenOfATextureLeavesTheExtensionEmpty) {
    WriteFile(game_ / "Wall.TgPcDx", Binary("<Texture/>"));
    const json report = RunJson({"open", Utf8(game_ / "Wall.TgPcDx")}, 0);
    EXPECT_EQ(report["result"]["base"], "Wall.");
    EXPECT_EQ(report["result"]["extension"], "");
    EXPECT_EQ(ReadFile(kit_ / "TempFiles" / "Wall.xml"), "<Texture/>");
}

TEST_F(Cli, OpenOfAMissingFileFails) {
    const std::string missing = Utf8(game_ / "missing.bin");
    ExpectError(RunJson({"open", missing}, 1), 53, "File not found");
    const Ran ran = Run({"open", missing});
    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(ran.output, "");
    EXPECT_THAT(ran.errors, HasSubstr("Run-time error 53: File not found\n"));
    EXPECT_THAT(ran.errors, HasSubstr("missing.bin"));
}

TEST_F(Cli, OpenOfAFolderFails) { ExpectError(RunJson({"open", Utf8(game_)}, 1), 75, "Path/File access error"); }

TEST_F(Cli, OpenOfATruncatedFileSaysThatNothingWasConverted) {
    WriteFile(track_, Binary(kOldXml).substr(0, 20));
    const Ran ran = Run({"open", Utf8(track_)});
    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(ran.output, "");
    EXPECT_EQ(ran.errors, "The converter wrote nothing: there is no text to show.\n");
}

TEST_F(Cli, OpenWithAFailingConverterNamesTheEarlierText) {
    EXPECT_EQ(Run({"open", Utf8(track_)}).exitCode, 0);
    const Ran ran = Run({"open", Utf8(track_)}, {{"TAMARIND_SERZ_FAIL", "1"}});
    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(ran.errors, "The converter wrote nothing: the text shown is from an earlier conversion.\n");
    EXPECT_EQ(ReadFile(kit_ / "TempFiles" / "Track.xml"), kOldXml);
}

TEST_F(Cli, OpenWithoutAConverterFails) {
    fs::remove(kit_ / "serz.exe");
    const Ran ran = Run({"open", Utf8(track_)}, {{"PATH", Utf8(game_)}, {"WINEPATH", ""}});
    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_THAT(ran.errors, HasSubstr("The converter wrote nothing"));
}

TEST_F(Cli, TheConverterIsTakenFromTheGameFolderWhenTheProgramHasNone) {
    fs::rename(kit_ / "serz.exe", game_ / "serz.exe");
    EXPECT_EQ(Run({"open", Utf8(track_)}, {{"PATH", Utf8(folder_)}}).exitCode, 0);
}

TEST_F(Cli, TheConverterIsTakenFromTheSearchPathLast) {
    fs::create_directories(Path("Elsewhere"));
    fs::rename(kit_ / "serz.exe", Path("Elsewhere") / "serz.exe");
    EXPECT_EQ(Run({"open", Utf8(track_)}, {{"PATH", Utf8(Path("Elsewhere"))}}).exitCode, 0);
}

TEST_F(Cli, TheProgramsConverterComesBeforeTheGamesAndThatBeforeTheSearchPath) {
    // A converter that is found but cannot run shows which one was taken.
    const auto spoil = [](const fs::path& folder) {
        fs::create_directories(folder);
        WriteFile(folder / "serz.exe", "no program");
    };
    spoil(game_);
    spoil(Path("Elsewhere"));
    const Environment path = {{"PATH", Utf8(Path("Elsewhere"))}};
    EXPECT_EQ(Run({"open", Utf8(track_)}, path).exitCode, 0);
    fs::remove(game_ / "serz.exe");
    fs::rename(kit_ / "serz.exe", game_ / "serz.exe");
    EXPECT_EQ(Run({"open", Utf8(track_)}, path).exitCode, 0);
    fs::remove(game_ / "serz.exe");
    EXPECT_EQ(Run({"open", Utf8(track_)}, path).exitCode, 1);
}

TEST_F(Cli, SaveReplacesTheGameFileAndKeepsABackup) {
    const json report = Save();
    EXPECT_EQ(report["result"]["file"], Utf8(track_));
    EXPECT_EQ(report["result"]["backup"], Shown(game_ / "Track.XSec.bak"));
    EXPECT_TRUE(report["error"].is_null());
    EXPECT_TRUE(report["messages"].empty());
    EXPECT_EQ(ReadFile(track_), Binary(kNewXml));
    EXPECT_EQ(ReadFile(game_ / "Track.XSec.bak"), Binary(kOldXml));
}

TEST_F(Cli, SaveAsTextNamesFileAndBackup) {
    WriteFile(Path("new.xml"), kNewXml);
    const Ran ran = Run({"save", Utf8(track_), Utf8(Path("new.xml"))});
    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.output, Utf8(track_) + "\t" + Shown(game_ / "Track.XSec.bak") + "\n");
    EXPECT_EQ(ran.errors, "Saved " + Shown(track_) + ", old content in " + Shown(game_ / "Track.XSec.bak") + "\n");
}

TEST_F(Cli, SaveTakesTheXmlThatOpeningOverwrites) {
    EXPECT_EQ(Run({"open", Utf8(track_)}).exitCode, 0);
    const fs::path xml = kit_ / "TempFiles" / "Track.xml";
    WriteFile(xml, kNewXml);
    EXPECT_EQ(Run({"save", Utf8(track_), Utf8(xml)}).exitCode, 0);
    EXPECT_EQ(ReadFile(track_), Binary(kNewXml));
}

TEST_F(Cli, SaveKeepsEveryByte) {
    std::string xml = "<A>";
    for (int byte = 1; byte < 256; ++byte) {
        if (byte != '<' && byte != '>' && byte != '&') xml += static_cast<char>(byte);
    }
    xml += "</A>";
    WriteFile(Path("new.xml"), xml);
    EXPECT_EQ(Run({"save", Utf8(track_), Utf8(Path("new.xml"))}).exitCode, 0);
    EXPECT_EQ(ReadFile(track_), Binary(xml));
}

TEST_F(Cli, SaveWithEveryBackupNameTakenReportsNone) {
    WriteFile(game_ / "Track.XSec.bak", "backup 0");
    for (int number = 1; number <= 50; ++number) {
        WriteFile(game_ / ("Track.XSec.bak" + std::to_string(number)), "backup " + std::to_string(number));
    }
    const json report = Save();
    EXPECT_TRUE(report["result"]["backup"].is_null());
    EXPECT_EQ(ReadFile(track_), Binary(kNewXml));
    EXPECT_EQ(ReadFile(game_ / "Track.XSec.bak"), "backup 0");
    for (int number = 1; number <= 50; ++number) {
        EXPECT_EQ(ReadFile(game_ / ("Track.XSec.bak" + std::to_string(number))), "backup " + std::to_string(number));
    }
    EXPECT_EQ(Names("Game").size(), 52U);
}

TEST_F(Cli, SaveWithAFailingConverterTouchesNothing) {
    ExpectError(Save(1, {{"TAMARIND_SERZ_FAIL", "1"}}), 53, "File not found");
    ExpectTrackUntouched();
}

TEST_F(Cli, SaveOfTextThatIsNoXmlTouchesNothing) {
    WriteFile(Path("new.xml"), "<Track><Gauge></Track>");
    ExpectError(RunJson({"save", Utf8(track_), Utf8(Path("new.xml"))}, 1), 53, "File not found");
    ExpectTrackUntouched();
}

TEST_F(Cli, SaveWithAPartialConversionKeepsTheOldContent) {
    Save(0, {{"TAMARIND_SERZ_PARTIAL", "1"}}); // the converter says that it worked
    EXPECT_EQ(ReadFile(game_ / "Track.XSec.bak"), Binary(kOldXml));
}

TEST_F(Cli, SaveWithoutItsXmlTouchesNothing) {
    ExpectError(RunJson({"save", Utf8(track_), Utf8(Path("missing.xml"))}, 1), 53, "File not found");
    ExpectTrackUntouched();
    EXPECT_FALSE(fs::exists(kit_ / "TempFiles"));
}

TEST_F(Cli, SaveReplacesAReadOnlyOriginalAsARenameWould) {
    fs::permissions(track_, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove);
    Save();
    EXPECT_EQ(ReadFile(track_), Binary(kNewXml));
    EXPECT_EQ(ReadFile(game_ / "Track.XSec.bak"), Binary(kOldXml));
    for (const char* name : {"Track.XSec", "Track.XSec.bak"}) {
        fs::permissions(game_ / name, fs::perms::owner_write, fs::perm_options::add);
    }
}

TEST_F(Cli, KilledWhileTheConverterRunsLeavesTheGameFile) {
    WriteFile(Path("new.xml"), kNewXml);
    EXPECT_EQ(Run({"open", Utf8(track_)}).exitCode, 0);
    samples::ChildProgram child(program_, {"--program-dir", Utf8(kit_), "save", Utf8(track_), Utf8(Path("new.xml"))},
                                {{"TAMARIND_SERZ_DELAY_MS", "1500"}, {"TAMARIND_SERZ_LOG", Utf8(Path("log"))}},
                                {{}, Path("output"), Path("errors")});
    // The second run of the converter is the one back.
    const auto runs = [&] {
        const std::string log = fs::exists(Path("log")) ? ReadFile(Path("log")) : "";
        return std::count(log.begin(), log.end(), '\n');
    };
    for (int round = 0; round < 600 && runs() < 2; ++round) {
        EXPECT_FALSE(child.WaitFor(std::chrono::milliseconds(20)));
    }
    EXPECT_EQ(runs(), 2);
    child.Stop();
    ExpectTrackUntouched();
    std::this_thread::sleep_for(std::chrono::seconds(2)); // the converter ends by itself
    ExpectTrackUntouched();
}

TEST_F(Cli, TidyWritesOverTheFile) {
    WriteFile(Path("a.xml"), "<A><B x='1'>t</B></A>");
    const Ran ran = Run({"tidy", Utf8(Path("a.xml"))});
    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.output, Utf8(Path("a.xml")) + "\n");
    EXPECT_EQ(ReadFile(Path("a.xml")), std::string(kDeclaration) + "<A>\r\n <B x=\"1\">t</B>\r\n</A>\r\n");
}

TEST_F(Cli, TidyWritesIntoAnotherFile) {
    WriteFile(Path("a.xml"), "<A/>");
    const json report = RunJson({"tidy", Utf8(Path("a.xml")), "-o", Utf8(Path("b.xml"))}, 0);
    EXPECT_EQ(report["result"]["file"], Utf8(Path("b.xml")));
    EXPECT_EQ(ReadFile(Path("a.xml")), "<A/>");
    EXPECT_EQ(ReadFile(Path("b.xml")), std::string(kDeclaration) + "<A></A>\r\n");
}

TEST_F(Cli, TidyIntoAMissingFolderFails) {
    WriteFile(Path("a.xml"), "<A/>");
    const json report = RunJson({"tidy", Utf8(Path("a.xml")), "-o", Utf8(Path("missing") / "b.xml")}, 1);
    ASSERT_EQ(report["messages"].size(), 1U);
    EXPECT_EQ(report["messages"][0]["text"], "Unable to save the file: Path not found");
    EXPECT_EQ(report["messages"][0]["title"], "Save Failed");
}

TEST_F(Cli, MalformedXmlIsRefusedWithLineAndColumn) {
    WriteFile(Path("a.xml"), "<A>\n  <B></C>\n</A>");
    for (const char* command : {"tidy", "tree"}) {
        const json report = RunJson({command, Utf8(Path("a.xml"))}, 1);
        ASSERT_EQ(report["messages"].size(), 1U);
        const json message = report["messages"][0];
        EXPECT_EQ(message["icon"], "exclamation");
        EXPECT_EQ(message["title"], "Tamarind");
        EXPECT_EQ(message["buttons"], "ok");
        EXPECT_EQ(message["answer"], "ok");
        // The reader stops at the name of the wrong end tag.
        EXPECT_THAT(message["text"].get<std::string>(), testing::EndsWith("\r\nLine 2, column 8."));
        EXPECT_TRUE(report["result"].is_null());
        EXPECT_TRUE(report["error"].is_null());
    }
    EXPECT_EQ(ReadFile(Path("a.xml")), "<A>\n  <B></C>\n</A>");
    const Ran ran = Run({"tree", Utf8(Path("a.xml"))});
    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_EQ(ran.output, "");
    EXPECT_THAT(ran.errors, testing::EndsWith("\nLine 2, column 8.\n"));
}

TEST_F(Cli, TreeListsTheRows) {
    WriteFile(Path("a.xml"), "<A><B x='1' d:y='2 \\'>two\n\tlines</B><C/></A>");
    const Ran ran = Run({"tree", Utf8(Path("a.xml"))});
    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.output, "nod1\t1\tA\t\t\n"
                          "nod2\t2\tB\tx=\"1\" d:y=\"2 \\\\\"\ttwo\\n\\tlines\n"
                          "nod3\t2\tC\t\t\n");
}

TEST_F(Cli, TreeReportsTheRows) {
    WriteFile(Path("a.xml"), "<A><B x='1' d:y='2'>caf\xC3\xA9</B></A>");
    const json report = RunJson({"tree", Utf8(Path("a.xml"))}, 0);
    const json expected = {
        {{"key", "nod1"}, {"level", 1}, {"name", "A"}, {"attributes", json::array()}, {"characters", ""}},
        {{"key", "nod2"},
         {"level", 2},
         {"name", "B"},
         {"attributes", json::array({json::array({"x", "1"}), json::array({"d:y", "2"})})},
         {"characters", "café"}}};
    EXPECT_EQ(report["result"]["rows"], expected);
}

TEST_F(Cli, TakesUnicodeNames) {
    const fs::path file = game_ / fs::path(u8"Züge – Поезд.XSec");
    WriteFile(file, Binary(kOldXml));
    WriteFile(Path("новый.xml"), kNewXml);
    const json report = RunJson({"save", Utf8(file), Utf8(Path("новый.xml"))}, 0);
    EXPECT_EQ(report["result"]["backup"], Shown(file) + ".bak");
    EXPECT_EQ(ReadFile(file), Binary(kNewXml));
}

/// A file so deep down that its path has more than 300 letters. It goes at the end of the scope, since not every system
/// removes such folders with the folder above.
class DeepFile {
public:
    DeepFile(const fs::path& top, const std::string& name) {
        for (fs::path folder = top; Utf8(folder).size() < 300;) {
            folder /= "a folder with a long name";
            folders_.push_back(folder);
            fs::create_directory(samples::Reachable(folder));
        }
        path_ = folders_.back() / name;
    }
    ~DeepFile() {
        std::error_code ignored;
        for (const char* suffix : {"", ".bak"}) {
            fs::remove(samples::Reachable(fs::path(path_) += suffix), ignored);
        }
        for (; !folders_.empty(); folders_.pop_back()) {
            fs::remove(samples::Reachable(folders_.back()), ignored);
        }
    }
    DeepFile(const DeepFile&) = delete;
    DeepFile& operator=(const DeepFile&) = delete;
    [[nodiscard]] const fs::path& Path() const { return path_; }

private:
    std::vector<fs::path> folders_;
    fs::path path_;
};

TEST_F(Cli, TakesLongPaths) {
    const DeepFile deep(game_, "Track.XSec");
    const fs::path& file = deep.Path();
    ASSERT_GT(Utf8(file).size(), 300U);
    WriteFile(file, Binary(kOldXml));
    WriteFile(Path("new.xml"), kNewXml);
    const json report = RunJson({"save", Utf8(file), Utf8(Path("new.xml"))}, 0);
    EXPECT_EQ(report["result"]["backup"], Shown(file) + ".bak");
    EXPECT_EQ(ReadFile(file), Binary(kNewXml));
    EXPECT_EQ(ReadFile(fs::path(file) += ".bak"), Binary(kOldXml));
}

TEST_F(Cli, UnreadableSettingsAreShownAndKept) {
    WriteFile(kit_ / "preferences.txt", "garbled");
    const json report = RunJson({"open", Utf8(track_)}, 0);
    ASSERT_EQ(report["messages"].size(), 1U);
    EXPECT_THAT(report["messages"][0]["text"].get<std::string>(), testing::StartsWith("Type mismatch\r\n"));
    EXPECT_EQ(ReadFile(kit_ / "preferences.txt"), "garbled");
}

TEST_F(Cli, TheGameFolderOfTheSettingsIsUsed) {
    fs::rename(kit_ / "serz.exe", game_ / "serz.exe");
    std::string game = Utf8(game_);
    std::replace(game.begin(), game.end(), '/', '\\'); // settings are the same on every system
    WriteFile(kit_ / "preferences.txt", "1,2,3,4,\"\",\"\",\"" + game + "\",#FALSE#\r\n");
    const Ran ran = RunWords({"--program-dir", Utf8(kit_), "open", Utf8(track_)}, {{"PATH", Utf8(folder_)}});
    EXPECT_EQ(ran.exitCode, 0) << ran.errors;
}

} // namespace
} // namespace tamarind::tests

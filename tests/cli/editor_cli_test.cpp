#include "cli_program.h"

#include "system/program.h"

#include <gmock/gmock.h>

namespace tamarind::tests {
namespace {

using nlohmann::json;
using samples::Utf8;
using samples::WriteFile;
using testing::HasSubstr;

class EditorCli : public CliTest {
protected:
    std::string Xml(const std::string& text) {
        WriteFile(Path("a.xml"), text);
        return Utf8(Path("a.xml"));
    }
    json Rows(const std::vector<std::string>& words) { return RunJson(words, 0)["result"]["rows"]; }
};

constexpr const char* kRows = "<Line><Mark>a halt</Mark><Marker>Halt2</Marker><Mark_A>halting</Mark_A></Line>";

TEST_F(EditorCli, HighlightListsTheRuns) {
    const json expected = {{0, 2, "blue"}, {4, 1, "red"}, {8, 1, "blue"}, {10, 4, "blue"}};
    EXPECT_EQ(RunJson({"highlight", Xml("<a b=\"1\">x</a>")}, 0)["result"], (json{{"runs", expected}}));
}

TEST_F(EditorCli, HighlightCountsCharacters) {
    // One byte of the file is one character, which takes two bytes in UTF-8.
    const json expected = {{0, 3, "blue"}, {4, 4, "blue"}};
    EXPECT_EQ(RunJson({"highlight", Xml("<a>\xE9</a>")}, 0)["result"]["runs"], expected);
}

TEST_F(EditorCli, HighlightListsNothingWithoutATag) {
    EXPECT_EQ(RunJson({"highlight", Xml("version = 1")}, 0)["result"]["runs"], json::array());
}

TEST_F(EditorCli, HighlightShowsTheFileInColours) {
    EXPECT_EQ(Run({"highlight", Xml("<a b=\"1\">")}).output,
              "\x1B[34m<a\x1B[39m b\x1B[31m=\x1B[39m\"1\"\x1B[34m>\x1B[39m");
}

TEST_F(EditorCli, HighlightHonoursNoColor) {
    const std::string xml = Xml("<a b=\"1\">");
    EXPECT_EQ(Run({"highlight", xml}, {{"NO_COLOR", "1"}}).output, "<a b=\"1\">");
}

TEST_F(EditorCli, HighlightOfAMissingFileFails) {
    EXPECT_EQ(RunJson({"highlight", Utf8(Path("none.xml"))}, 1)["error"]["number"], 53);
}

TEST_F(EditorCli, FindListsTheRowsWhoseNameHoldsTheText) {
    EXPECT_EQ(Rows({"find", Xml(kRows), "MARK"}), (json{"nod2", "nod3", "nod4"}));
    EXPECT_EQ(Run({"find", Xml(kRows), "marker"}).output, "nod3\n");
}

TEST_F(EditorCli, FindLooksForWholeWords) {
    EXPECT_EQ(Rows({"find", Xml(kRows), "mark", "--whole-word"}), (json{"nod2", "nod4"}));
}

TEST_F(EditorCli, FindLooksIntoTheTexts) {
    EXPECT_EQ(Rows({"find", Xml(kRows), "halt", "--in-text"}), (json{"nod2", "nod3", "nod4"}));
    EXPECT_EQ(Rows({"find", Xml(kRows), "halt", "--in-text", "--whole-word"}), (json{"nod2", "nod3"}));
}

TEST_F(EditorCli, FindTellsWhenNothingIsFound) {
    const json report = RunJson({"find", Xml(kRows), "tram"}, 0);
    EXPECT_EQ(report["result"]["rows"], json::array());
    const json expected = {
        {{"icon", "none"}, {"title", "Tamarind"}, {"text", "Not found"}, {"buttons", "ok"}, {"answer", "ok"}}};
    EXPECT_EQ(report["messages"], expected);
}

TEST_F(EditorCli, FindRefusesTooManyRows) {
    std::string xml = "<a>";
    for (int row = 2; row <= 65'501; ++row)
        xml += "<a/>";
    const json report = RunJson({"find", Xml(xml + "</a>"), "a"}, 1);
    EXPECT_TRUE(report["result"].is_null());
    EXPECT_EQ(report["messages"][0]["icon"], "exclamation");
    EXPECT_THAT(report["messages"][0]["text"].get<std::string>(), HasSubstr("too long for this Search"));
}

TEST_F(EditorCli, FindOfATextThatIsNoXmlFails) {
    EXPECT_THAT(RunJson({"find", Xml("<a>"), "a"}, 1)["messages"][0]["text"].get<std::string>(),
                HasSubstr("cannot be read as XML"));
}

} // namespace
} // namespace tamarind::tests

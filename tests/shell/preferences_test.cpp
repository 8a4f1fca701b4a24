#include "shell/preferences.h"

#include "platform/expect_error.h"
#include "support/memory_files.h"
#include "text/runtime_error.h"

#include <gtest/gtest.h>

namespace tamarind::shell {
namespace {

using session::Geometry;

constexpr int kOverflow = 6;
constexpr int kTypeMismatch = 13;
constexpr int kInputPastEnd = 62;
constexpr const char* kPath = "C:\\Kit\\preferences.txt";

int ErrorOf(const std::string& bytes) {
    return tests::NumberOfError([&] { static_cast<void>(ParsePreferences(bytes)); });
}

Preferences Example() {
    return {.window = {12000, 9000, 150, -300},
            .textureEditorPath = "C:\\Paint\\paint.exe",
            .viewerPath = "",
            .railSimPath = "C:\\Program Files\\Rail Simulator",
            .xmlEditorDefault = true};
}

void ExpectEqual(const Preferences& left, const Preferences& right) {
    EXPECT_EQ(left.window, right.window);
    EXPECT_EQ(left.textureEditorPath, right.textureEditorPath);
    EXPECT_EQ(left.viewerPath, right.viewerPath);
    EXPECT_EQ(left.railSimPath, right.railSimPath);
    EXPECT_EQ(left.xmlEditorDefault, right.xmlEditorDefault);
}

TEST(Preferences, AreOneLineOfEightFields) {
    EXPECT_EQ(FormatPreferences(Example()),
              "12000,9000,150,-300,\"C:\\Paint\\paint.exe\",\"\",\"C:\\Program Files\\Rail Simulator\",#TRUE#\r\n");
    EXPECT_EQ(FormatPreferences({}), "0,0,0,0,\"\",\"\",\"\",#FALSE#\r\n");
}

TEST(Preferences, AreWrittenInTheCodePage) {
    Preferences preferences;
    preferences.railSimPath = "C:\\Spiele für Züge €";
    EXPECT_EQ(FormatPreferences(preferences), "0,0,0,0,\"\",\"\",\"C:\\Spiele f\xFCr Z\xFCge \x80\",#FALSE#\r\n");
}

TEST(Preferences, AreUtf8WithAMarkWhenAPathDoesNotFitTheCodePage) {
    Preferences preferences;
    preferences.railSimPath = "C:\\Игры";
    EXPECT_EQ(FormatPreferences(preferences), "\xEF\xBB\xBF"
                                              "0,0,0,0,\"\",\"\",\"C:\\Игры\",#FALSE#\r\n");
}

TEST(Preferences, ComeBackAsTheyWereWritten) {
    for (const char* path : {"", "C:\\a,b", "C:\\für €", "C:\\Игры 🚂", "\\home\\\xC2\x81"}) {
        for (const bool isTree : {false, true}) {
            Preferences written = Example();
            written.textureEditorPath = path;
            written.viewerPath = std::string(path) + "1";
            written.railSimPath = std::string(path) + "2";
            written.xmlEditorDefault = isTree;
            ExpectEqual(ParsePreferences(FormatPreferences(written)), written);
        }
    }
}

TEST(Preferences, KeepEveryByteOfTheCodePageInAPath) {
    for (int byte = 1; byte < 256; ++byte) {
        if (byte == '"') continue;
        const std::string bytes = std::string("1,2,3,4,\"x") + static_cast<char>(byte) + "y\",\"\",\"\",#TRUE#\r\n";
        EXPECT_EQ(FormatPreferences(ParsePreferences(bytes)), bytes) << byte;
    }
}

TEST(Preferences, MayBeSeparatedByLineBreaks) {
    ExpectEqual(ParsePreferences("12000\r\n9000\n150\r-300\r\n\"C:\\Paint\\paint.exe\"\r\n\"\"\r\n"
                                 "\"C:\\Program Files\\Rail Simulator\"\r\n#TRUE#\r\n"),
                Example());
}

TEST(Preferences, NeedNoLineEnd) { EXPECT_TRUE(ParsePreferences("1,2,3,4,,,,#TRUE#").xmlEditorDefault); }

TEST(Preferences, TakeStringsWithoutQuotes) {
    const Preferences read = ParsePreferences("1,2,3,4,C:\\a b\\c.exe, ,\"C:\\d\" ,#FALSE#\r\n");
    EXPECT_EQ(read.textureEditorPath, "C:\\a b\\c.exe");
    EXPECT_EQ(read.viewerPath, "");
    EXPECT_EQ(read.railSimPath, "C:\\d");
}

TEST(Preferences, KeepCommasInsideQuotes) {
    EXPECT_EQ(ParsePreferences("1,2,3,4,\"a,b\",\"\",\"\",#TRUE#\r\n").textureEditorPath, "a,b");
}

TEST(Preferences, TakeBlanksRoundNumbersAndTruthInAnyCase) {
    const Preferences read = ParsePreferences(" 1 , 2 ,\t3, 4 ,\"\",\"\",\"\", #true# \r\n");
    EXPECT_EQ(read.window, (Geometry{1, 2, 3, 4}));
    EXPECT_TRUE(read.xmlEditorDefault);
}

TEST(Preferences, RoundNumbersHalvesToEven) {
    EXPECT_EQ(ParsePreferences("0.5,1.5,2.5,-1.5,,,,#TRUE#").window, (Geometry{0, 2, 2, -2}));
}

TEST(Preferences, IgnoreSurplusFields) {
    EXPECT_EQ(ParsePreferences("1,2,3,4,\"\",\"\",\"\",#TRUE#,5,\"six\"\r\nmore").window, (Geometry{1, 2, 3, 4}));
}

TEST(Preferences, FailWhereAFieldIsMissing) {
    EXPECT_EQ(ErrorOf(""), kInputPastEnd);
    EXPECT_EQ(ErrorOf("1,2,3,4,\"\",\"\",\"\"\r\n"), kInputPastEnd);
    EXPECT_EQ(ErrorOf("1,2,3\r\n"), kInputPastEnd);
    EXPECT_EQ(ErrorOf("1,2,3,4,\"never closed,\"\"\r\n"), kInputPastEnd);
    EXPECT_EQ(ErrorOf("\xEF\xBB\xBF"), kInputPastEnd);
}

TEST(Preferences, FailWhereAFieldIsGarbled) {
    EXPECT_EQ(ErrorOf("x,2,3,4,\"\",\"\",\"\",#TRUE#\r\n"), kTypeMismatch);
    EXPECT_EQ(ErrorOf("1,2,,4,\"\",\"\",\"\",#TRUE#\r\n"), kTypeMismatch);
    EXPECT_EQ(ErrorOf("1,2,3,4,\"\",\"\",\"\",TRUE\r\n"), kTypeMismatch);
    EXPECT_EQ(ErrorOf("1,2,3,4,\"\",\"\",\"\",#MAYBE#\r\n"), kTypeMismatch);
    EXPECT_EQ(ErrorOf(std::string(10000, '\xFE')), kTypeMismatch);
}

TEST(Preferences, FailWhereANumberIsOutOfRange) {
    EXPECT_EQ(ParsePreferences("32767,-32768,0,0,,,,#TRUE#").window, (Geometry{32767, -32768, 0, 0}));
    EXPECT_EQ(ErrorOf("32768,2,3,4,\"\",\"\",\"\",#TRUE#\r\n"), kOverflow);
    EXPECT_EQ(ErrorOf("1,-32769,3,4,\"\",\"\",\"\",#TRUE#\r\n"), kOverflow);
    EXPECT_EQ(ErrorOf("1,2,1e999,4,\"\",\"\",\"\",#TRUE#\r\n"), kOverflow);
}

TEST(Preferences, FailWhereAPathIsLongerThanAnySystemAllows) {
    const auto withPath = [](std::size_t length) {
        return "1,2,3,4,\"" + std::string(length, 'a') + "\",\"\",\"\",#TRUE#\r\n";
    };
    EXPECT_EQ(ParsePreferences(withPath(32767)).textureEditorPath.size(), 32767U);
    EXPECT_EQ(ErrorOf(withPath(32768)), kTypeMismatch);
}

TEST(Preferences, AreWrittenBesideTheProgram) {
    tests::MemoryFiles files;
    files.folders = {"C:\\Kit"};
    session::Session session;
    session.ProgramFolder = "C:\\Kit";
    session.TextureEditorPath = "t";
    session.ViewerPath = "v";
    session.RailSimPath = "g";
    WritePreferences(files, session, {1, 2, 3, 4});
    EXPECT_EQ(files.contents.at(kPath), "1,2,3,4,\"t\",\"v\",\"g\",#FALSE#\r\n");
    EXPECT_EQ(files.contents.size(), 1U);
}

TEST(Preferences, ReplaceTheFileOfTheRunBefore) {
    tests::MemoryFiles files;
    files.folders = {"C:\\Kit"};
    files.contents[kPath] = "old";
    session::Session session;
    session.ProgramFolder = "C:\\Kit";
    WritePreferences(files, session, {});
    EXPECT_EQ(files.contents.at(kPath), "0,0,0,0,\"\",\"\",\"\",#FALSE#\r\n");
    EXPECT_EQ(files.contents.size(), 1U);
}

TEST(Preferences, KeepAFileThatWasNotUnderstoodOnce) {
    tests::MemoryFiles files;
    files.folders = {"C:\\Kit"};
    files.contents[kPath] = "garbled";
    session::Session session;
    session.ProgramFolder = "C:\\Kit";
    session.preferencesUnreadable = true;
    WritePreferences(files, session, {});
    EXPECT_EQ(files.contents.at("C:\\Kit\\preferences.txt.bak"), "garbled");
    WritePreferences(files, session, {1, 1, 1, 1});
    EXPECT_EQ(files.contents.at("C:\\Kit\\preferences.txt.bak"), "garbled");
    EXPECT_EQ(files.contents.size(), 2U);
}

TEST(Preferences, SetPathsAndDefaultEditorOfTheSession) {
    session::Session session;
    ApplyTo(session, Example());
    EXPECT_EQ(session.TextureEditorPath, "C:\\Paint\\paint.exe");
    EXPECT_EQ(session.ViewerPath, "");
    EXPECT_EQ(session.RailSimPath, "C:\\Program Files\\Rail Simulator");
    EXPECT_TRUE(session.XmlEditorDefault);
}

} // namespace
} // namespace tamarind::shell

#include "cli_program.h"

#include "system/program.h"

#include <gmock/gmock.h>

// Options, help, usage and what stands on the two streams.
namespace tamarind::tests {
namespace {

using samples::Utf8;
using samples::WriteFile;
using testing::HasSubstr;
using testing::StartsWith;

using CliArguments = CliTest;

TEST_F(CliArguments, VersionIsPrinted) {
    const Ran ran = RunWords({"--version"});
    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.output, "tamarind-cli " TAMARIND_VERSION "\n");
    EXPECT_EQ(ran.errors, "");
}

TEST_F(CliArguments, VersionAndHelpWorkForEachCommand) {
    for (const char* command : {"open", "save", "tidy", "tree"}) {
        const Ran version = RunWords({command, "--version"});
        EXPECT_EQ(version.exitCode, 0) << command;
        EXPECT_EQ(version.output, "tamarind-cli " TAMARIND_VERSION "\n") << command;
        const Ran help = RunWords({command, "--help"});
        EXPECT_EQ(help.exitCode, 0) << command;
        EXPECT_THAT(help.output, HasSubstr(command));
        EXPECT_EQ(help.errors, "") << command;
    }
}

TEST_F(CliArguments, HelpNamesEveryCommandAndOption) {
    const Ran ran = RunWords({"--help"});
    EXPECT_EQ(ran.exitCode, 0);
    for (const char* word : {"open", "save", "tidy", "tree", "--game", "--program-dir", "--yes", "--no", "--json"}) {
        EXPECT_THAT(ran.output, HasSubstr(word));
    }
}

TEST_F(CliArguments, WrongUsageIsToldWithExitCodeTwo) {
    const std::vector<std::vector<std::string>> wrong = {
        {},
        {"unknown"},
        {"open"},
        {"open", "a", "b"},
        {"save", "a"},
        {"tidy", "a", "-o"},
        {"tree", "a", "--unknown"},
        {"tree", "a", "--game"},
        {"--yes", "--no", "tree", "a"},
        {"open", "a", "tree", "b"},
    };
    for (const std::vector<std::string>& words : wrong) {
        const Ran ran = RunWords(words);
        EXPECT_EQ(ran.exitCode, 2) << testing::PrintToString(words);
        EXPECT_EQ(ran.output, "") << testing::PrintToString(words);
        EXPECT_THAT(ran.errors, HasSubstr("--help")) << testing::PrintToString(words);
    }
}

TEST_F(CliArguments, WrongUsageWithJsonIsOneObjectToo) {
    const Ran ran = RunWords({"tree", "--json"});
    EXPECT_EQ(ran.exitCode, 2);
    const auto report = nlohmann::json::parse(ran.output, nullptr, false);
    ASSERT_TRUE(report.is_object()) << ran.output;
    EXPECT_EQ(report["command"], "tree");
    EXPECT_TRUE(report["result"].is_null());
    EXPECT_THAT(ran.errors, HasSubstr("--help"));
}

TEST_F(CliArguments, JsonBehindTheDoubleDashIsAnArgument) {
    const Ran ran = RunWords({"tree", "--", "a", "--json"});
    EXPECT_EQ(ran.exitCode, 2);
    EXPECT_EQ(ran.output, "");
}

TEST_F(CliArguments, OptionsStandBeforeOrAfterTheCommand) {
    WriteFile(Path("a.xml"), "<A/>");
    const std::string file = Utf8(Path("a.xml"));
    const Ran before = RunWords({"--json", "tree", file});
    const Ran after = RunWords({"tree", file, "--json"});
    const Ran between = RunWords({"tree", "--json", file});
    EXPECT_EQ(before.exitCode, 0);
    EXPECT_THAT(before.output, StartsWith("{\"command\":\"tree\""));
    EXPECT_EQ(after.output, before.output);
    EXPECT_EQ(between.output, before.output);
    const Ran open = RunWords({"open", Utf8(track_), "--program-dir", Utf8(kit_), "--game=" + Utf8(game_)});
    EXPECT_EQ(open.exitCode, 0) << open.errors;
}

TEST_F(CliArguments, AllBehindTheDoubleDashAreArguments) {
    WriteFile(Path("--json"), "<A/>");
    const Ran ran = RunWords({"tree", "--", "--json"}, {}, folder_);
    EXPECT_EQ(ran.exitCode, 0) << ran.errors;
    EXPECT_EQ(ran.output, "nod1\t1\tA\t\t\n");
}

TEST_F(CliArguments, NegativeNumbersAreArguments) {
    for (const char* name : {"-1", "-3.25"}) {
        WriteFile(Path(name), "<A/>");
        const Ran ran = RunWords({"tree", name}, {}, folder_);
        EXPECT_EQ(ran.exitCode, 0) << ran.errors;
        EXPECT_EQ(ran.output, "nod1\t1\tA\t\t\n");
    }
}

TEST_F(CliArguments, AFileMayBearACommandsName) {
    WriteFile(Path("open"), "<A/>");
    const Ran ran = RunWords({"tree", "open"}, {}, folder_);
    EXPECT_EQ(ran.exitCode, 0) << ran.errors;
    EXPECT_EQ(ran.output, "nod1\t1\tA\t\t\n");
}

TEST_F(CliArguments, APathMayBeginWithASlash) {
    const Ran ran = RunWords({"tree", "/no/such/file.xml"});
    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_THAT(ran.errors, HasSubstr("Run-time error "));
}

TEST_F(CliArguments, ARelativePathStartsInTheCurrentFolder) {
    const Ran ran = RunWords({"--program-dir", "Kit", "open", "Game/Track.XSec"}, {}, folder_);
    EXPECT_EQ(ran.exitCode, 0) << ran.errors;
    EXPECT_EQ(ran.output, Shown(kit_ / "TempFiles" / "Track.xml") + "\n");
}

} // namespace
} // namespace tamarind::tests

#include "platform/command_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Texts(std::string_view commandLine) {
    std::vector<std::string> texts;
    for (const CommandArgument& argument : ParseArguments(commandLine)) {
        texts.push_back(argument.text);
    }
    return texts;
}

std::vector<std::string> Names(std::string_view commandLine) {
    std::vector<std::string> names;
    for (const ProgramCandidate& candidate : ProgramCandidates(commandLine)) {
        names.push_back(candidate.name);
    }
    return names;
}

TEST(ParseArguments, SeparatesAtBlanksAndTabs) { EXPECT_THAT(Texts(" a  b\tc "), ElementsAre("a", "b", "c")); }

TEST(ParseArguments, FindsNoneInBlanks) { EXPECT_THAT(Texts("  "), IsEmpty()); }

TEST(ParseArguments, KeepsBlanksInsideQuotes) { EXPECT_THAT(Texts(R"("a b" c)"), ElementsAre("a b", "c")); }

TEST(ParseArguments, JoinsQuotedAndUnquotedParts) {
    EXPECT_THAT(Texts(R"(xml:"c:\my game\a.xml"x)"), ElementsAre(R"(xml:c:\my game\a.xmlx)"));
}

TEST(ParseArguments, KeepsAnEmptyQuotedArgument) { EXPECT_THAT(Texts(R"(a "" b)"), ElementsAre("a", "", "b")); }

TEST(ParseArguments, KeepsBackslashesThatStandBeforeNoQuote) {
    EXPECT_THAT(Texts(R"(a\\b c\)"), ElementsAre(R"(a\\b)", R"(c\)"));
}

TEST(ParseArguments, HalvesAnEvenNumberOfBackslashesBeforeAQuote) {
    EXPECT_THAT(Texts(R"("c:\a b\\" d)"), ElementsAre(R"(c:\a b\)", "d"));
    EXPECT_THAT(Texts(R"(a\\\\"b c")"), ElementsAre(R"(a\\b c)"));
}

TEST(ParseArguments, TakesAQuoteAfterAnOddNumberOfBackslashesAsText) {
    EXPECT_THAT(Texts(R"(a\"b c)"), ElementsAre(R"(a"b)", "c"));
    EXPECT_THAT(Texts(R"(a\\\"b)"), ElementsAre(R"(a\"b)"));
}

TEST(ParseArguments, TakesTwoQuotesInsideQuotesAsOne) { EXPECT_THAT(Texts(R"("a""b" c)"), ElementsAre(R"(a"b)", "c")); }

TEST(ParseArguments, EndsAnUnclosedQuoteWithTheLine) { EXPECT_THAT(Texts(R"(a "b c)"), ElementsAre("a", "b c")); }

TEST(ParseArguments, RemembersWhichPartsWereQuoted) {
    const std::vector<CommandArgument> arguments = ParseArguments(R"(xml:"\home\a b" "x" y "p"-"q")");
    ASSERT_EQ(arguments.size(), 4U);
    EXPECT_THAT(arguments[0].quoted, ElementsAre(CommandArgument::Part{4, 9}));
    EXPECT_THAT(arguments[1].quoted, ElementsAre(CommandArgument::Part{0, 1}));
    EXPECT_THAT(arguments[2].quoted, IsEmpty());
    EXPECT_THAT(arguments[3].quoted, ElementsAre(CommandArgument::Part{0, 1}, CommandArgument::Part{2, 1}));
}

std::string Marked(const std::string& path) { return "<" + path + ">"; }

std::string Translate(std::string_view argument) { return TranslatePaths(ParseArguments(argument).at(0), Marked); }

TEST(TranslatePaths, TranslatesQuotedPartsThatBeginWithABackslash) {
    EXPECT_EQ(Translate(R"("\home\a b.bin")"), R"(<\home\a b.bin>)");
    EXPECT_EQ(Translate(R"(xml:"\home\a b.xml")"), R"(xml:<\home\a b.xml>)");
    EXPECT_EQ(Translate(R"("\p","\q")"), R"(<\p>,<\q>)");
}

TEST(TranslatePaths, LeavesEverythingElse) {
    EXPECT_EQ(Translate(R"("c:\a.bin")"), R"(c:\a.bin)");
    EXPECT_EQ(Translate(R"(\home\a.bin)"), R"(\home\a.bin)");
    EXPECT_EQ(Translate(R"(/switch)"), "/switch");
}

TEST(ProgramCandidates, AQuotedNameIsTheOnlyOne) {
    const auto candidates = ProgramCandidates(R"( "c:\program files\view.exe" "a b.dds")");
    ASSERT_EQ(candidates.size(), 1U);
    EXPECT_EQ(candidates[0].name, R"(c:\program files\view.exe)");
    EXPECT_EQ(candidates[0].end, 28U);
}

TEST(ProgramCandidates, AnUnquotedNameMayEndAtEachBlank) {
    EXPECT_THAT(Names(R"(c:\program files\my game\go.bat)"),
                ElementsAre(R"(c:\program)", R"(c:\program files\my)", R"(c:\program files\my game\go.bat)"));
}

TEST(ProgramCandidates, StopAtTheFirstQuote) {
    EXPECT_THAT(Names(R"(serz.exe "c:\a b.bin" xml:"c:\a b.xml")"), ElementsAre("serz.exe"));
    EXPECT_THAT(Names(R"(tool xml:"a b")"), ElementsAre("tool", "tool xml:"));
}

TEST(ProgramCandidates, AreNoneInAnEmptyLine) {
    EXPECT_THAT(Names(""), IsEmpty());
    EXPECT_THAT(Names("   "), IsEmpty());
}

TEST(ProgramCandidates, TakeAnUnclosedQuoteToTheEnd) { EXPECT_THAT(Names("\"abc"), ElementsAre("abc")); }

} // namespace
} // namespace tamarind::platform

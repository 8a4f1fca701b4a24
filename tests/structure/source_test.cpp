#include "structure/source_tree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::vector<std::string> kRooms{"text",    "platform", "document", "session",   "editors", "convert",
                                      "markers", "routes",   "install",  "authoring", "shell",   "cli"};
constexpr std::size_t kMostLines = 500;

const SourceTree& Sources() {
    static const SourceTree sources = ReadSources(SOURCE_FOLDER);
    return sources;
}

SourceTree TreeOf(std::initializer_list<std::pair<std::string, std::string>> files) {
    SourceTree tree;
    for (const auto& [path, text] : files)
        tree[path] = ParseSource(path, text);
    return tree;
}

TEST(Sources, AreFound) {
    EXPECT_TRUE(Sources().contains("shell/frmEditor.cpp"));
    EXPECT_TRUE(Sources().contains("platform/windows/files_windows.cpp"));
}

TEST(Sources, StandInKnownRooms) {
    for (const auto& [path, file] : Sources())
        EXPECT_THAT(kRooms, testing::Contains(file.Room())) << path;
}

TEST(Sources, IncludeDownwardsOnly) { EXPECT_THAT(UpwardIncludes(Sources(), kRooms), IsEmpty()); }

TEST(Sources, IncludeByThePathBelowTheSourceFolder) { EXPECT_THAT(UnknownIncludes(Sources()), IsEmpty()); }

TEST(Sources, IncludeInNoCircle) { EXPECT_THAT(Circles(Sources()), IsEmpty()); }

TEST(Sources, KnowTheWindowSystemInWindowsOnly) { EXPECT_THAT(StrayToolkitIncludes(Sources()), IsEmpty()); }

TEST(Sources, KnowTheOperatingSystemInThePlatformOnly) { EXPECT_THAT(SystemIncludes(Sources()), IsEmpty()); }

TEST(Sources, OfTextIncludeTheStandardLibraryAlone) { EXPECT_THAT(ForeignIncludesOfText(Sources()), IsEmpty()); }

TEST(Sources, CompileTheSameLinesOnEverySystem) { EXPECT_THAT(ConditionalLines(Sources()), IsEmpty()); }

TEST(Sources, AreShort) { EXPECT_THAT(FilesLongerThan(Sources(), kMostLines), IsEmpty()); }

// The rules themselves find what breaks them.

TEST(SourceRules, FindAnIncludeOfAHigherRoom) {
    const SourceTree tree = TreeOf({{"text/a.cpp", "#include \"shell/b.h\"\n#include \"text/a.h\"\n"}});
    EXPECT_THAT(UpwardIncludes(tree, {"text", "shell"}), ElementsAre("text/a.cpp includes shell/b.h"));
}

TEST(SourceRules, FindACircle) {
    const SourceTree tree = TreeOf({{"text/a.h", "#include \"text/b.h\"\n"}, {"text/b.h", "#include \"text/a.h\"\n"}});
    EXPECT_THAT(Circles(tree), ElementsAre("text/a.h -> text/b.h -> text/a.h"));
}

TEST(SourceRules, FindTheToolkitOutsideWindows) {
    const SourceTree tree = TreeOf({{"shell/closing.cpp", "#include <wx/frame.h>\n"},
                                    {"shell/frmEditor.cpp", "#include <wx/frame.h>\n"},
                                    {"editors/tree_page.h", "#include <wx/panel.h>\n"},
                                    {"platform/wx/wx_ui.cpp", "#include <wx/app.h>\n"}});
    EXPECT_THAT(StrayToolkitIncludes(tree), ElementsAre("shell/closing.cpp includes wx/frame.h"));
}

TEST(SourceRules, FindSystemHeadersAndFilesOutsideThePlatform) {
    const SourceTree tree = TreeOf({{"convert/a.cpp", "#include <fstream>\n#include <string>\n#include <unistd.h>\n"},
                                    {"platform/b.cpp", "#include <fstream>\n#include <windows.h>\n"}});
    EXPECT_THAT(SystemIncludes(tree), ElementsAre("convert/a.cpp includes fstream", "convert/a.cpp includes unistd.h"));
}

TEST(SourceRules, FindALibraryInText) {
    const SourceTree tree = TreeOf({{"text/a.cpp", "#include <fmt/format.h>\n#include <string>\n"}});
    EXPECT_THAT(ForeignIncludesOfText(tree), ElementsAre("text/a.cpp includes fmt/format.h"));
}

TEST(SourceRules, FindConditionalCompilation) {
    const SourceTree tree = TreeOf({{"text/a.cpp", "#pragma once\n  # ifdef _WIN32\n"}});
    EXPECT_THAT(ConditionalLines(tree), ElementsAre("text/a.cpp:   # ifdef _WIN32"));
}

TEST(SourceRules, FindALongFile) {
    const SourceTree tree = TreeOf({{"text/a.cpp", "1\n2\n3\n"}});
    EXPECT_THAT(FilesLongerThan(tree, 2), ElementsAre("text/a.cpp has 3 lines"));
    EXPECT_THAT(FilesLongerThan(tree, 3), IsEmpty());
}

} // namespace
} // namespace tamarind::tests

#include "platform/converter.h"

#include "support/fake_processes.h"
#include "support/scripted_ui.h"
#include "text/runtime_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::platform {
namespace {

using testing::ElementsAre;

TEST(Converter, CommandLineToXmlIsExact) {
    EXPECT_EQ(CommandLineToXml(R"(c:\a b\x.bin)", R"(c:\a b\x.xml)"), R"(serz.exe "c:\a b\x.bin" xml:"c:\a b\x.xml")");
}

TEST(Converter, CommandLineToBinaryIsExact) {
    EXPECT_EQ(CommandLineToBinary(R"(c:\x.xml)", R"(c:\x.bin)"), R"(serz.exe "c:\x.xml" bin:"c:\x.bin")");
}

TEST(Converter, CommandLineToTextureHasASlash) {
    EXPECT_EQ(CommandLineToTexture(R"(c:\x.xml)", R"(c:\x.bin)"), R"(serz.exe "c:\x.xml" /bin:"c:\x.bin")");
}

TEST(ConvertToTexture, RunsInTheFolderThatIsNamed) {
    tests::FakeProcesses processes;
    tests::ScriptedUserInterface ui;
    ConvertToTexture(processes, ui, {"\\prog", "\\game"}, "\\prog\\TempFiles", "\\t\\a.xml", "\\t\\a.bin");
    ASSERT_EQ(processes.starts.size(), 1U);
    EXPECT_EQ(processes.starts[0].folder, "\\prog\\TempFiles");
    EXPECT_THAT(processes.starts[0].searchFolders, ElementsAre("\\prog", "\\game"));
}

TEST(ConvertToXml, RunsHiddenInTheProgramsFolderAndLivesMeanwhile) {
    tests::FakeProcesses processes;
    processes.looksBeforeEnd = 2;
    tests::ScriptedUserInterface ui;
    ConvertToXml(processes, ui, {"\\prog", "\\game"}, "\\t\\a.bin", "\\t\\a.xml");
    ASSERT_EQ(processes.starts.size(), 1U);
    const ProcessStart& start = processes.starts[0];
    EXPECT_EQ(start.commandLine, R"(serz.exe "\t\a.bin" xml:"\t\a.xml")");
    EXPECT_EQ(start.folder, "\\prog");
    EXPECT_THAT(start.searchFolders, ElementsAre("\\prog", "\\game"));
    EXPECT_EQ(start.style, WindowStyle::Hidden);
    EXPECT_EQ(ui.EventRounds(), 3);
}

TEST(ConvertToBinary, LooksOnlyInTheProgramsFolderWithoutAGameFolder) {
    tests::FakeProcesses processes;
    tests::ScriptedUserInterface ui;
    ConvertToBinary(processes, ui, {"\\prog", ""}, "\\t\\a.xml", "\\t\\a.bin");
    ASSERT_EQ(processes.starts.size(), 1U);
    EXPECT_EQ(processes.starts[0].commandLine, R"(serz.exe "\t\a.xml" bin:"\t\a.bin")");
    EXPECT_THAT(processes.starts[0].searchFolders, ElementsAre("\\prog"));
}

TEST(ConvertToXml, SaysNothingWhenTheConverterIsMissing) {
    tests::FakeProcesses processes;
    processes.run = [](const ProcessStart&) { throw text::RuntimeError(text::ErrorNumber::FileNotFound); };
    tests::ScriptedUserInterface ui;
    EXPECT_NO_THROW(ConvertToXml(processes, ui, {"\\prog", ""}, "\\a.bin", "\\a.xml"));
    EXPECT_TRUE(ui.Everything().empty());
}

} // namespace
} // namespace tamarind::platform

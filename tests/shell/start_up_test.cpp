#include "shell/start_up.h"

#include "platform/paths.h"
#include "shell/closing.h"
#include "support/editor_rig.h"
#include "support/fake_converter.h"
#include "support/memory_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace tamarind::shell {
namespace {

using platform::Answer;
using testing::ElementsAre;
using testing::StartsWith;

constexpr const char* kSettings = "C:\\Kit\\preferences.txt";
constexpr const char* kDefaultExecutable = "c:\\program files\\rail simulator\\railsim.exe";
constexpr const char* kDefaultFolder = "c:\\program files\\rail simulator";
constexpr const char* kRegistryKey = "Software\\Rail Simulator\\Packager Manager\\Installation";
constexpr const char* kCaption =
    "RS bin file editor and texture viewer  Version " TAMARIND_VERSION "   Rail Simulator path in use is - ";

class StartUpTest : public testing::Test {
protected:
    StartUpTest() {
        files.folders = {"C:\\Kit", "C:\\Game"};
        rig.processes.run = tests::FakeConverter(files);
    }
    /// Settings that name a game folder, so that nothing is asked.
    void HaveSettings(bool isTree = false) {
        files.contents[kSettings] = std::string("9000,6000,300,450,\"C:\\t.exe\",\"C:\\v.exe\",\"C:\\Game\",") +
                                    (isTree ? "#TRUE#" : "#FALSE#") + "\r\n";
    }
    void HaveGameFile(const std::string& path) { files.contents[path] = tests::GameFile("<Top>text</Top>"); }
    void Start(const std::string& commandLine = {}) { StartUp(rig.context, commandLine); }
    static std::string Caption(const std::string& gameFolder) { return kCaption + platform::ForDisplay(gameFolder); }
    std::string OpenInTree() { return rig.document.isOpen ? rig.document.path : ""; }

    tests::MemoryFiles files;
    tests::EditorRig rig{files, "C:\\Kit"};
};

TEST_F(StartUpTest, BeginsWithAnEmptyDocument) {
    HaveSettings();
    Start();
    EXPECT_EQ(rig.document.path, "C:\\Kit\\undefined.xml");
    EXPECT_TRUE(rig.document.document.IsEmpty());
    EXPECT_FALSE(rig.document.isModified);
    EXPECT_FALSE(rig.document.isOpen);
    EXPECT_FALSE(rig.document.hasFileName);
    EXPECT_FALSE(rig.document.canSaveAs);
    EXPECT_FALSE(rig.document.canCopy);
    EXPECT_FALSE(rig.document.canPaste);
    EXPECT_TRUE(rig.ui.Messages().empty());
}

TEST_F(StartUpTest, AppliesTheSettings) {
    HaveSettings(true);
    Start();
    EXPECT_EQ(rig.view.CurrentGeometry(), (session::Geometry{9000, 6000, 300, 450}));
    EXPECT_EQ(rig.session.TextureEditorPath, "C:\\t.exe");
    EXPECT_EQ(rig.session.ViewerPath, "C:\\v.exe");
    EXPECT_EQ(rig.session.RailSimPath, "C:\\Game");
    EXPECT_TRUE(rig.session.XmlEditorDefault);
}

TEST_F(StartUpTest, KeepsTheDesignedPlaceWithoutSettings) {
    files.folders.insert(kDefaultFolder);
    files.contents[kDefaultExecutable] = "";
    Start();
    EXPECT_THAT(rig.view.calls, testing::Not(testing::Contains("SetGeometry")));
    EXPECT_FALSE(rig.session.XmlEditorDefault);
    EXPECT_FALSE(files.contents.contains(kSettings));
}

TEST_F(StartUpTest, ShowsThePageOfTheDefaultEditor) {
    HaveSettings(false);
    Start();
    EXPECT_EQ(rig.view.page, session::Page::Text);
    HaveSettings(true);
    Start();
    EXPECT_EQ(rig.view.page, session::Page::Tree);
}

TEST_F(StartUpTest, MakesTempFilesOnce) {
    HaveSettings();
    Start();
    EXPECT_TRUE(files.folders.contains("C:\\Kit\\TempFiles"));
    files.contents["C:\\Kit\\TempFiles\\a.xml"] = "kept";
    Start();
    EXPECT_EQ(files.contents["C:\\Kit\\TempFiles\\a.xml"], "kept");
    EXPECT_TRUE(rig.ui.Messages().empty());
}

TEST_F(StartUpTest, TakesTheGameFolderFromTheRegistryWhenTheSettingsHaveNone) {
    rig.registry.SetText(kRegistryKey, "", "D:\\Rail");
    Start();
    EXPECT_EQ(rig.session.RailSimPath, "D:\\Rail");
    EXPECT_EQ(rig.view.Caption(), Caption("D:\\Rail"));
    EXPECT_TRUE(rig.ui.Messages().empty());
}

TEST_F(StartUpTest, PrefersTheSettingsToTheRegistry) {
    HaveSettings();
    rig.registry.SetText(kRegistryKey, "", "D:\\Rail");
    Start();
    EXPECT_EQ(rig.session.RailSimPath, "C:\\Game");
}

TEST_F(StartUpTest, OnlyTestsTheDefaultExecutableAndLeavesThePathEmpty) {
    files.folders.insert(kDefaultFolder);
    files.contents[kDefaultExecutable] = "";
    Start();
    EXPECT_EQ(rig.session.RailSimPath, "");
    EXPECT_EQ(rig.view.Caption(), kCaption);
    EXPECT_TRUE(rig.ui.Messages().empty());
}

TEST_F(StartUpTest, AsksForTheGameWhenNothingNamesIt) {
    rig.ui.answers = {Answer::Yes};
    rig.ui.filePaths = {"E:\\Games\\Rail\\RailSim.exe"};
    Start();
    EXPECT_THAT(rig.ui.MessageTexts(), ElementsAre("Use this option to select your Rail Simulator\r\npath."));
    EXPECT_EQ(rig.session.RailSimPath, "E:\\Games\\Rail");
    // Built anew: the segment that the command appended is not there twice.
    EXPECT_EQ(rig.view.Caption(), Caption("E:\\Games\\Rail"));
}

TEST_F(StartUpTest, AsksBeforeTheWindowAppears) {
    bool wasShown = true;
    rig.ui.onMessage = [&](const platform::Message&) {
        wasShown = std::count(rig.view.calls.begin(), rig.view.calls.end(), "ShowWindow") > 0;
    };
    rig.ui.answers = {Answer::No};
    Start();
    EXPECT_FALSE(wasShown);
    EXPECT_EQ(rig.view.calls.back(), "ShowWindow");
}

TEST_F(StartUpTest, GoesOnWithoutAGameFolderWhenTheQuestionIsCancelled) {
    rig.ui.answers = {Answer::Yes};
    rig.ui.filePaths = {""};
    Start();
    EXPECT_EQ(rig.session.RailSimPath, "");
    EXPECT_EQ(rig.view.Caption(), kCaption);
    EXPECT_THAT(rig.view.calls, testing::Contains("ShowWindow"));
}

TEST_F(StartUpTest, ShowsARegistryValueOfAnUnsupportedTypeAndGoesOn) {
    rig.registry.values[{kRegistryKey, ""}] = {static_cast<platform::RegistryType>(11), {1, 2, 3, 4, 5, 6, 7, 8}};
    rig.ui.answers = {Answer::No};
    Start();
    EXPECT_THAT(rig.ui.MessageTexts(), ElementsAre("Unsupported value type", StartsWith("Use this option")));
    EXPECT_EQ(rig.ui.Messages()[0].icon, platform::Icon::Exclamation);
    EXPECT_EQ(rig.ui.Messages()[0].title, "Tamarind");
    EXPECT_EQ(rig.view.calls.back(), "ShowWindow");
}

TEST_F(StartUpTest, TakesNoNumberForAGameFolder) {
    rig.registry.values[{kRegistryKey, ""}] = {platform::RegistryType::DoubleWord, {1, 0, 0, 0}};
    rig.ui.answers = {Answer::No};
    Start();
    EXPECT_EQ(rig.session.RailSimPath, "");
}

TEST_F(StartUpTest, ShowsUnreadableSettingsAndGoesOnWithTheDefaults) {
    files.contents[kSettings] = "9000,6000,300,450,\"C:\\t.exe\"";
    rig.registry.SetText(kRegistryKey, "", "D:\\Rail");
    Start();
    ASSERT_EQ(rig.ui.Messages().size(), 1U);
    EXPECT_THAT(rig.ui.MessageTexts()[0], StartsWith("Input past end of file\r\n"));
    EXPECT_EQ(rig.ui.Messages()[0].icon, platform::Icon::Exclamation);
    EXPECT_EQ(rig.session.TextureEditorPath, "");
    EXPECT_THAT(rig.view.calls, testing::Not(testing::Contains("SetGeometry")));
    EXPECT_EQ(rig.session.RailSimPath, "D:\\Rail");
    EXPECT_EQ(rig.view.calls.back(), "ShowWindow");
}

TEST_F(StartUpTest, UnreadableSettingsAreKeptWhenTheyAreWrittenAgain) {
    files.contents[kSettings] = "garbled";
    rig.registry.SetText(kRegistryKey, "", "D:\\Rail");
    Start();
    EXPECT_TRUE(MayClose(rig.context));
    EXPECT_EQ(files.contents.at("C:\\Kit\\preferences.txt.bak"), "garbled");
    EXPECT_EQ(files.contents.at(kSettings), "0,0,0,0,\"\",\"\",\"D:\\Rail\",#FALSE#\r\n");
}

TEST_F(StartUpTest, ShowsWhyTempFilesCannotBeMadeAndGoesOn) {
    HaveSettings();
    files.contents["C:\\Kit\\TempFiles"] = "a file in the way";
    Start();
    ASSERT_EQ(rig.ui.Messages().size(), 1U);
    EXPECT_THAT(rig.ui.MessageTexts()[0], StartsWith("File already exists"));
    EXPECT_EQ(rig.view.calls.back(), "ShowWindow");
}

TEST_F(StartUpTest, LetsTheWindowProcessEventsTwice) {
    HaveSettings();
    Start();
    EXPECT_EQ(rig.ui.EventRounds(), 2);
}

TEST_F(StartUpTest, WithoutACommandLineOpensNothing) {
    HaveSettings();
    Start();
    EXPECT_EQ(rig.session.CommandFile, "");
    EXPECT_FALSE(rig.session.UseCommandFile);
    EXPECT_TRUE(rig.processes.starts.empty());
}

TEST_F(StartUpTest, OpensTheQuotedFileOfTheCommandLineWithoutADialog) {
    HaveSettings();
    HaveGameFile("C:\\Game\\My Track.XSec");
    Start("\"C:\\Game\\My Track.XSec\"");
    EXPECT_EQ(rig.session.CommandFile, "C:\\Game\\My Track.XSec");
    EXPECT_FALSE(rig.session.UseCommandFile);
    EXPECT_EQ(rig.session.RSFileExt, "XSec");
    EXPECT_EQ(rig.view.EditorText(), "<Top>text</Top>");
    EXPECT_EQ(OpenInTree(), "");
    EXPECT_TRUE(rig.ui.FileDialogs().empty());
}

TEST_F(StartUpTest, OpensTheSameFileInTheTreeWhenThatIsTheDefault) {
    HaveSettings(true);
    HaveGameFile("C:\\Game\\My Track.XSec");
    Start("\"C:\\Game\\My Track.XSec\"");
    EXPECT_EQ(OpenInTree(), "C:\\Kit\\TempFiles\\My Track.xml");
    EXPECT_EQ(rig.view.EditorText(), "<Top>text</Top>");
}

TEST_F(StartUpTest, OpensAShapeInTheTextEditorOnly) {
    HaveSettings();
    HaveGameFile("C:\\Game\\a.GeoPcDx");
    Start("C:\\Game\\a.GeoPcDx");
    EXPECT_EQ(rig.view.EditorText(), "<Top>text</Top>");
}

TEST_F(StartUpTest, DoesNotOpenAShapeWhenTheTreeIsTheDefault) {
    HaveSettings(true);
    HaveGameFile("C:\\Game\\a.GeoPcDx");
    Start("C:\\Game\\a.GeoPcDx");
    EXPECT_TRUE(rig.processes.starts.empty());
    EXPECT_EQ(rig.session.CommandFile, "C:\\Game\\a.GeoPcDx");
    EXPECT_TRUE(rig.session.UseCommandFile);
}

TEST_F(StartUpTest, ShowsTheTextPageForATextureWhenTheTreeIsTheDefault) {
    HaveSettings(true);
    HaveGameFile("C:\\Game\\a.TgPcDx");
    Start("C:\\Game\\a.TgPcDx");
    EXPECT_EQ(rig.view.page, session::Page::Text);
    EXPECT_EQ(rig.view.EditorText(), "<Top>text</Top>");
    EXPECT_EQ(rig.session.RSFileExt, "");
}

TEST_F(StartUpTest, OpensAnXmlFileWithoutTheConverter) {
    HaveSettings();
    files.contents["C:\\Game\\a.cost"] = "<Cost/>";
    Start("C:\\Game\\a.cost");
    EXPECT_EQ(rig.view.EditorText(), "<Cost/>");
    EXPECT_EQ(OpenInTree(), "C:\\Game\\a.cost");
    EXPECT_TRUE(rig.processes.starts.empty());
    EXPECT_FALSE(rig.session.UseCommandFile);
}

TEST_F(StartUpTest, OpensAnXmlFileWithTheTreesCommandWhenThatIsTheDefault) {
    HaveSettings(true);
    files.contents["C:\\Game\\a.tgt"] = "<Tgt/>";
    Start("C:\\Game\\a.tgt");
    EXPECT_EQ(OpenInTree(), "C:\\Game\\a.tgt");
    EXPECT_TRUE(rig.session.UseCommandFile); // this command leaves it
}

TEST_F(StartUpTest, KeepsAnyOtherFileForTheNextOpenCommand) {
    HaveSettings();
    Start("C:\\Game\\x.dds");
    EXPECT_EQ(rig.session.CommandFile, "C:\\Game\\x.dds");
    EXPECT_TRUE(rig.session.UseCommandFile);
    EXPECT_TRUE(rig.ui.Messages().empty());
}

TEST_F(StartUpTest, ShowsWhyTheFileOfTheCommandLineCannotBeOpened) {
    HaveSettings();
    Start("C:\\Game\\missing.bin");
    ASSERT_EQ(rig.ui.Messages().size(), 1U);
    EXPECT_THAT(rig.ui.MessageTexts()[0], StartsWith("File not found"));
    EXPECT_THAT(rig.view.calls, testing::Contains("ShowWindow"));
}

TEST(WithoutQuotes, TakesTheQuoteAtEachEndAway) {
    EXPECT_EQ(WithoutQuotes("\"C:\\a b.bin\""), "C:\\a b.bin");
    EXPECT_EQ(WithoutQuotes("C:\\a.bin"), "C:\\a.bin");
    EXPECT_EQ(WithoutQuotes("\"C:\\a.bin"), "C:\\a.bin");
    EXPECT_EQ(WithoutQuotes("C:\\a.bin\""), "C:\\a.bin");
    EXPECT_EQ(WithoutQuotes("\"\"a\"\""), "\"a\"");
    EXPECT_EQ(WithoutQuotes("\""), "");
    EXPECT_EQ(WithoutQuotes(""), "");
}

struct Dispatch {
    std::string file;
    OpenCommand inText;
    OpenCommand inTree;
};

TEST_F(StartUpTest, OpensAFileThatIsHandedOverInTheEditorInUse) {
    HaveSettings();
    HaveGameFile("C:\\Game\\a.bin");
    files.folders.insert("C:\\Kit\\TempFiles");
    OpenFile(rig.context, "C:\\Game\\a.bin");
    EXPECT_EQ(rig.view.EditorText(), "<Top>text</Top>");
    EXPECT_EQ(OpenInTree(), "");
    rig.session.SessionEditor = session::SessionEditor::Tree;
    OpenFile(rig.context, "C:\\Game\\a.bin");
    EXPECT_EQ(OpenInTree(), "C:\\Kit\\TempFiles\\a.xml");
    EXPECT_TRUE(rig.ui.FileDialogs().empty());
}

TEST_F(StartUpTest, TellsThatNoCommandOpensAFileThatIsHandedOver) {
    OpenFile(rig.context, "C:\\Game\\a.dds");
    EXPECT_EQ(rig.ui.MessageTexts(),
              std::vector<std::string>{"There is no command that opens " + platform::ForDisplay("C:\\Game\\a.dds")});
    EXPECT_FALSE(rig.session.UseCommandFile);
}

TEST(CommandForFile, IsChosenByTheEndingWhateverItsCase) {
    const Dispatch table[] = {
        {"a.bin", OpenCommand::RailSimFile, OpenCommand::RailSimFileInTree},
        {"a.BIN", OpenCommand::RailSimFile, OpenCommand::RailSimFileInTree},
        {"a.XSec", OpenCommand::RailSimFile, OpenCommand::RailSimFileInTree},
        {"a.xsec", OpenCommand::RailSimFile, OpenCommand::RailSimFileInTree},
        {"a.GeoPcDx", OpenCommand::RailSimFile, OpenCommand::None},
        {"a.geopcdx", OpenCommand::RailSimFile, OpenCommand::None},
        {"a.TgPcDx", OpenCommand::Texture, OpenCommand::TextureOnTextPage},
        {"a.tgpcdx", OpenCommand::Texture, OpenCommand::TextureOnTextPage},
        {"a.xml", OpenCommand::Xml, OpenCommand::XmlInTree},
        {"a.COST", OpenCommand::Xml, OpenCommand::XmlInTree},
        {"a.tgt", OpenCommand::Xml, OpenCommand::XmlInTree},
        {"a.dds", OpenCommand::None, OpenCommand::None},
        {"a.bin.txt", OpenCommand::None, OpenCommand::None},
        {"", OpenCommand::None, OpenCommand::None},
        // The ending is compared, not the extension.
        {"cabin", OpenCommand::RailSimFile, OpenCommand::RailSimFileInTree},
        {"axml", OpenCommand::Xml, OpenCommand::XmlInTree},
    };
    for (const Dispatch& row : table) {
        EXPECT_EQ(CommandForFile(row.file, false), row.inText) << row.file;
        EXPECT_EQ(CommandForFile(row.file, true), row.inTree) << row.file;
    }
}

} // namespace
} // namespace tamarind::shell

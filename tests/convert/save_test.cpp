#include "convert/game_file.h"

#include "convert/game_rig.h"
#include "editors/document_commands.h"
#include "platform/expect_error.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "support/tree_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::convert {
namespace {

using platform::Answer;
using platform::FileDialog;
using platform::ForDisplay;
using testing::ElementsAre;
using testing::EndsWith;

constexpr const char* kDeclaration = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n";

class SaveGameFile : public tests::GameRig {
protected:
    std::string OpenNext(std::string_view name, std::string_view xml) {
        const std::string path = NextFile(name, xml);
        OpenRailSimFile(rig.context);
        rig.processes.starts.clear();
        return path;
    }
    int ErrorOfSaving() {
        return tests::NumberOfError([&] { SaveRailSimFile(rig.context); });
    }
};

TEST_F(SaveGameFile, ConvertsBackAndKeepsABackup) {
    const std::string path = OpenNext("Track.XSec", "<Top>old</Top>");
    rig.view.TypeText("<Top>new</Top>");
    const Saved saved = SaveRailSimFile(rig.context);
    EXPECT_TRUE(saved.done);
    EXPECT_EQ(saved.backup, path + ".bak");
    EXPECT_EQ(Game("Track.XSec"), tests::GameFile("<Top>new</Top>"));
    EXPECT_EQ(Game("Track.XSec.bak"), tests::GameFile("<Top>old</Top>"));
    EXPECT_THAT(GameNames(), ElementsAre("Track.XSec", "Track.XSec.bak"));
    EXPECT_EQ(Temp("Track.xml"), "<Top>new</Top>");
    EXPECT_THAT(TempNames(), ElementsAre("Track.xml", "Track.XSec"));
    ASSERT_EQ(rig.processes.starts.size(), 1U);
    const std::string base = folder / "Kit\\TempFiles\\Track.";
    EXPECT_EQ(rig.processes.starts[0].commandLine, "serz.exe \"" + base + "xml\" bin:\"" + base + "bin\"");
    EXPECT_FALSE(rig.view.isTextModified);
    EXPECT_THAT(rig.ui.StatusLines(),
                ElementsAre("Saved " + ForDisplay(path) + ", old content in " + ForDisplay(path + ".bak")));
}

TEST_F(SaveGameFile, WithoutTempFilesTellsAndLeavesTheGameFile) {
    OpenNext("Track.XSec", "<Top>old</Top>");
    rig.view.TypeText("<Top>new</Top>");
    platform::DelAll(folder.Disk(), folder / "Kit\\TempFiles");
    EXPECT_FALSE(SaveRailSimFile(rig.context).done);
    EXPECT_EQ(rig.ui.Messages().size(), 1U);
    EXPECT_TRUE(rig.processes.starts.empty());
    EXPECT_EQ(Game("Track.XSec"), tests::GameFile("<Top>old</Top>"));
    EXPECT_THAT(GameNames(), ElementsAre("Track.XSec"));
    EXPECT_EQ(rig.view.EditorText(), "<Top>new</Top>");
    EXPECT_TRUE(rig.view.isTextModified);
}

TEST_F(SaveGameFile, NumbersFurtherBackups) {
    OpenNext("Track.XSec", "<Top>0</Top>");
    for (const char* text : {"<Top>1</Top>", "<Top>2</Top>", "<Top>3</Top>"}) {
        rig.view.TypeText(text);
        EXPECT_TRUE(SaveRailSimFile(rig.context).done);
    }
    EXPECT_EQ(Game("Track.XSec"), tests::GameFile("<Top>3</Top>"));
    EXPECT_EQ(Game("Track.XSec.bak"), tests::GameFile("<Top>0</Top>"));
    EXPECT_EQ(Game("Track.XSec.bak1"), tests::GameFile("<Top>1</Top>"));
    EXPECT_EQ(Game("Track.XSec.bak2"), tests::GameFile("<Top>2</Top>"));
}

TEST_F(SaveGameFile, TakesTheFirstFreeBackupName) {
    OpenNext("Track.bin", "<Top>old</Top>");
    folder.Write("Game\\Track.bin.bak", "backup");
    folder.Write("Game\\Track.bin.bak2", "backup 2");
    EXPECT_EQ(SaveRailSimFile(rig.context).backup, folder / "Game\\Track.bin.bak1");
    EXPECT_EQ(Game("Track.bin.bak"), "backup");
    EXPECT_EQ(Game("Track.bin.bak2"), "backup 2");
}

TEST_F(SaveGameFile, GoesUpToFiftyAndThenMakesNoBackup) {
    const std::string path = OpenNext("Track.bin", "<Top>old</Top>");
    folder.Write("Game\\Track.bin.bak", "backup 0");
    for (int number = 1; number <= 49; ++number) {
        folder.Write("Game\\Track.bin.bak" + std::to_string(number), "backup " + std::to_string(number));
    }
    rig.view.TypeText("<Top>new</Top>");
    EXPECT_EQ(SaveRailSimFile(rig.context).backup, path + ".bak50");
    rig.view.TypeText("<Top>newer</Top>");
    const Saved saved = SaveRailSimFile(rig.context);
    EXPECT_TRUE(saved.done);
    EXPECT_EQ(saved.backup, "");
    EXPECT_EQ(Game("Track.bin"), tests::GameFile("<Top>newer</Top>"));
    EXPECT_EQ(Game("Track.bin.bak50"), tests::GameFile("<Top>old</Top>"));
    for (int number = 1; number <= 49; ++number) {
        EXPECT_EQ(Game("Track.bin.bak" + std::to_string(number)), "backup " + std::to_string(number));
    }
    EXPECT_EQ(GameNames().size(), 52U);
    EXPECT_EQ(rig.ui.StatusLines().back(), "Saved " + ForDisplay(path));
}

TEST_F(SaveGameFile, KeepsAnyCaseOfBinAsTheConvertersName) {
    OpenNext("Track.BIN", "<Top/>");
    EXPECT_EQ(rig.session.RSFileExt, "BIN");
    EXPECT_TRUE(SaveRailSimFile(rig.context).done);
    EXPECT_THAT(TempNames(), ElementsAre("Track.bin", "Track.xml"));
    EXPECT_EQ(Game("Track.BIN"), tests::GameFile("<Top/>"));
}

TEST_F(SaveGameFile, ReplacesTheResultOfTheSaveBefore) {
    OpenNext("Track.XSec", "<Top/>");
    folder.Write("Kit\\TempFiles\\Track.XSec", "an earlier result");
    EXPECT_TRUE(SaveRailSimFile(rig.context).done);
    EXPECT_EQ(Temp("Track.XSec"), tests::GameFile("<Top/>"));
}

TEST_F(SaveGameFile, ATextureTakesTheExtensionRuleOfTheFileBefore) {
    OpenNext("Track.XSec", "<Top/>");
    NextFile("Wall.TgPcDx", "<Texture>old</Texture>");
    OpenTextureFile(rig.context);
    rig.view.TypeText("<Texture>new</Texture>");
    EXPECT_TRUE(SaveRailSimFile(rig.context).done);
    EXPECT_EQ(Game("Wall.TgPcDx"), tests::GameFile("<Texture>new</Texture>"));
    EXPECT_EQ(Game("Wall.TgPcDx.bak"), tests::GameFile("<Texture>old</Texture>"));
    EXPECT_EQ(Temp("Wall.XSec"), tests::GameFile("<Texture>new</Texture>"));
}

TEST_F(SaveGameFile, ATextureOpenedFirstIsRenamedToItsBaseName) {
    NextFile("Wall.TgPcDx", "<Texture>old</Texture>");
    OpenTextureFile(rig.context);
    rig.view.TypeText("<Texture>new</Texture>");
    EXPECT_TRUE(SaveRailSimFile(rig.context).done);
    EXPECT_EQ(Game("Wall.TgPcDx"), tests::GameFile("<Texture>new</Texture>"));
    EXPECT_EQ(folder.Disk().Stamp(folder / "Kit\\TempFiles\\Wall.bin"), std::nullopt);
    EXPECT_EQ(Temp("Wall."), tests::GameFile("<Texture>new</Texture>"));
    EXPECT_TRUE(SaveRailSimFile(rig.context).done); // over the name without an extension
}

TEST_F(SaveGameFile, AFailedConversionTouchesNothingOfTheGames) {
    for (const char* name : {"Track.bin", "Track.XSec"}) {
        OpenNext(name, "<Top>old</Top>");
        folder.Write("Game\\" + std::string(name) + ".bak", "an earlier backup");
        converter.isBroken = true;
        rig.view.TypeText("<Top>new</Top>");
        const auto error = tests::ErrorOf([&] { SaveRailSimFile(rig.context); });
        converter.isBroken = false;
        ASSERT_TRUE(error) << name;
        EXPECT_EQ(error->Number(), 53);
        EXPECT_THAT(error->Details(), EndsWith("The game file is unchanged."));
        EXPECT_EQ(Game(name), tests::GameFile("<Top>old</Top>"));
        EXPECT_EQ(Game(std::string(name) + ".bak"), "an earlier backup");
        EXPECT_EQ(rig.ui.StatusLines().back(), "The converter wrote nothing: the game file is unchanged.");
        EXPECT_TRUE(rig.view.isTextModified);
        EXPECT_EQ(Temp("Track.xml"), "<Top>new</Top>"); // the work is there
    }
    EXPECT_EQ(GameNames().size(), 4U);
}

TEST_F(SaveGameFile, AStaleResultIsNotTakenForTheNewOne) {
    OpenNext("Track.bin", "<Top>old</Top>"); // leaves Track.bin in TempFiles
    converter.isBroken = true;
    EXPECT_EQ(ErrorOfSaving(), 53);
    EXPECT_EQ(Game("Track.bin"), tests::GameFile("<Top>old</Top>"));
}

TEST_F(SaveGameFile, StopsWhenTheTextCannotBeWritten) {
    OpenNext("Track.bin", "<Top>old</Top>");
    folder.Disk().Remove(folder / "Kit\\TempFiles\\Track.xml");
    folder.MakeFolder("Kit\\TempFiles\\Track.xml"); // a folder in its place
    rig.view.TypeText("<Top>new</Top>");
    const Saved saved = SaveRailSimFile(rig.context);
    EXPECT_FALSE(saved.done);
    EXPECT_THAT(rig.ui.MessageTexts(),
                ElementsAre("Path/File access error occurred in WriteUniFile while processing\r\nfile " +
                            platform::ForDisplay(folder / "Kit\\TempFiles\\Track.xml")));
    EXPECT_TRUE(rig.processes.starts.empty());
    EXPECT_EQ(Game("Track.bin"), tests::GameFile("<Top>old</Top>"));
    EXPECT_THAT(GameNames(), ElementsAre("Track.bin"));
    EXPECT_TRUE(rig.view.isTextModified);
}

TEST_F(SaveGameFile, NeedsAnOpenGameFile) {
    EXPECT_FALSE(SaveRailSimFile(rig.context).done);
    EXPECT_EQ(rig.ui.Messages().size(), 1U);
    EXPECT_THAT(TempNames(), ElementsAre());
}

TEST_F(SaveGameFile, AMissingOriginalIsAnError) {
    OpenNext("Track.bin", "<Top/>");
    folder.Disk().Remove(folder / "Game\\Track.bin");
    EXPECT_EQ(ErrorOfSaving(), 53);
    EXPECT_THAT(GameNames(), ElementsAre());
}

TEST_F(SaveGameFile, WritesToThePathThatIsShown) {
    OpenNext("Track.bin", "<Top>old</Top>");
    rig.view.ShowFilePath(folder.Write("Game\\Copy.bin", "copy"));
    EXPECT_TRUE(SaveRailSimFile(rig.context).done);
    EXPECT_EQ(Game("Copy.bin"), tests::GameFile("<Top>old</Top>"));
    EXPECT_EQ(Game("Copy.bin.bak"), "copy");
    EXPECT_EQ(Game("Track.bin"), tests::GameFile("<Top>old</Top>"));
}

TEST_F(SaveGameFile, KeepsAllBytesThereAndBack) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    OpenNext("Track.XSec", bytes);
    EXPECT_TRUE(SaveRailSimFile(rig.context).done);
    EXPECT_EQ(Game("Track.XSec"), tests::GameFile(bytes));
}

TEST_F(SaveGameFile, TakesUnicodeNames) {
    OpenNext("Züge – Поезд 🚂.XSec", "<Top>old</Top>");
    rig.view.TypeText("<Top>new</Top>");
    EXPECT_TRUE(SaveRailSimFile(rig.context).done);
    EXPECT_EQ(Game("Züge – Поезд 🚂.XSec"), tests::GameFile("<Top>new</Top>"));
    EXPECT_EQ(Game("Züge – Поезд 🚂.XSec.bak"), tests::GameFile("<Top>old</Top>"));
}

TEST_F(SaveGameFile, TakesLongPaths) {
    std::string name;
    while (name.size() < 300)
        name += "a folder with a long name\\";
    OpenNext(name + "Track.XSec", "<Top>old</Top>");
    rig.view.TypeText("<Top>new</Top>");
    EXPECT_TRUE(SaveRailSimFile(rig.context).done);
    EXPECT_EQ(Game(name + "Track.XSec"), tests::GameFile("<Top>new</Top>"));
    EXPECT_EQ(Game(name + "Track.XSec.bak"), tests::GameFile("<Top>old</Top>"));
}

TEST_F(SaveGameFile, FromTheTreeWritesTheDocumentNotTheText) {
    NextFile("Track.XSec", "<Top>old</Top>");
    OpenRailSimFileInTree(rig.context);
    rig.document.document.SetCharacters(rig.document.document.Top(), "new");
    editors::SetModified(rig.context, true);
    rig.view.TypeText("text of the other page");
    const Saved saved = SaveRailSimFileFromTree(rig.context);
    EXPECT_TRUE(saved.done);
    EXPECT_EQ(saved.backup, folder / "Game\\Track.XSec.bak");
    EXPECT_EQ(Game("Track.XSec"), tests::GameFile(std::string(kDeclaration) + "<Top>new</Top>\r\n"));
    EXPECT_FALSE(rig.document.isModified);
    EXPECT_TRUE(rig.view.isTextModified);
}

TEST_F(SaveGameFile, FromTheTreeStopsWhenTheDocumentCannotBeWritten) {
    NextFile("Track.bin", "<Top>old</Top>");
    OpenRailSimFileInTree(rig.context);
    folder.Disk().Remove(folder / "Kit\\TempFiles\\Track.xml");
    folder.MakeFolder("Kit\\TempFiles\\Track.xml");
    rig.processes.starts.clear();
    EXPECT_FALSE(SaveRailSimFileFromTree(rig.context).done);
    EXPECT_THAT(rig.ui.MessageTexts(), ElementsAre("Unable to save the file: Path/File access error"));
    EXPECT_TRUE(rig.processes.starts.empty());
    EXPECT_THAT(GameNames(), ElementsAre("Track.bin"));
}

TEST_F(SaveGameFile, FromTheTreeAnXmlFileIsOnlyWritten) {
    NextPath(folder.Write("Game\\a.xml", "<A/>"));
    OpenXmlFileInTree(rig.context);
    const Saved saved = SaveRailSimFileFromTree(rig.context);
    EXPECT_TRUE(saved.done);
    EXPECT_EQ(Game("a.xml"), std::string(kDeclaration) + "<A></A>\r\n");
    EXPECT_TRUE(rig.processes.starts.empty());
}

class SaveXml : public tests::GameRig {
protected:
    FileDialog OnlyDialog() {
        EXPECT_EQ(rig.ui.FileDialogs().size(), 1U);
        return rig.ui.FileDialogs().empty() ? FileDialog() : rig.ui.FileDialogs()[0];
    }
};

TEST_F(SaveXml, WritesTheTextInTheCodePage) {
    rig.view.TypeText("<A>é€</A>");
    rig.ui.filePaths = {folder / "Game\\a.xml"};
    SaveXmlText(rig.context);
    EXPECT_EQ(Game("a.xml"), "<A>\xE9\x80</A>");
    EXPECT_FALSE(rig.view.isTextModified);
    const FileDialog dialog = OnlyDialog();
    EXPECT_TRUE(dialog.save);
    EXPECT_EQ(dialog.title, "Save .xml format files");
    EXPECT_EQ(dialog.filter, "xml Files (*.xml;*.cost;*.tgt)|*.xml;*.cost;*.tgt");
    EXPECT_EQ(dialog.startFolder, folder / "Kit\\TempFiles");
    EXPECT_THAT(GameNames(), ElementsAre("a.xml")); // no backup
}

TEST_F(SaveXml, AsWritesTheTextToo) {
    rig.view.TypeText("text");
    rig.ui.filePaths = {folder / "Game\\a.any"};
    SaveXmlTextAs(rig.context);
    EXPECT_EQ(Game("a.any"), "text");
    const FileDialog dialog = OnlyDialog();
    EXPECT_TRUE(dialog.save);
    EXPECT_EQ(dialog.title, "Save KRS format files");
    EXPECT_EQ(dialog.filter, "KRS Files (*.*)|*.*");
    EXPECT_EQ(dialog.startFolder, folder / "Kit\\TempFiles");
}

TEST_F(SaveXml, CancelWritesNothing) {
    rig.view.TypeText("text");
    rig.ui.filePaths = {"", "", ""};
    SaveXmlText(rig.context);
    SaveXmlTextAs(rig.context);
    SaveXmlFromTreeAs(rig.context);
    EXPECT_THAT(GameNames(), ElementsAre());
    EXPECT_TRUE(rig.view.isTextModified);
    EXPECT_TRUE(rig.ui.Messages().empty());
}

TEST_F(SaveXml, ThatFailsIsToldAndTheTextStaysUnsaved) {
    rig.view.TypeText("text");
    rig.ui.filePaths = {folder / "missing\\a.xml"};
    SaveXmlText(rig.context);
    EXPECT_THAT(rig.ui.MessageTexts(), ElementsAre("Path not found occurred in WriteUniFile while processing\r\nfile " +
                                                   platform::ForDisplay(folder / "missing\\a.xml")));
    EXPECT_TRUE(rig.view.isTextModified);
}

TEST_F(SaveXml, FromTheTreeWritesTheCurrentFileWithoutADialog) {
    NextPath(folder.Write("Game\\a.xml", "<A/>"));
    OpenXmlFile(rig.context);
    SaveXmlFromTree(rig.context);
    EXPECT_EQ(Game("a.xml"), std::string(kDeclaration) + "<A></A>\r\n");
    EXPECT_TRUE(rig.ui.FileDialogs().empty());
    EXPECT_THAT(GameNames(), ElementsAre("a.xml"));
}

class SaveXmlFromTreeAsTest : public SaveXml {
protected:
    SaveXmlFromTreeAsTest() {
        NextPath(folder.Write("Game\\a.xml", "<A/>"));
        OpenXmlFile(rig.context);
        rig.document.hasFileName = false;
    }
};

TEST_F(SaveXmlFromTreeAsTest, WritesToTheChosenFileFromThenOn) {
    rig.ui.filePaths = {folder / "Game\\b.xml"};
    SaveXmlFromTreeAs(rig.context);
    EXPECT_EQ(Game("b.xml"), std::string(kDeclaration) + "<A></A>\r\n");
    EXPECT_EQ(Game("a.xml"), "<A/>");
    EXPECT_EQ(rig.document.path, folder / "Game\\b.xml");
    EXPECT_TRUE(rig.document.hasFileName);
    EXPECT_TRUE(OnlyDialog().save);
    EXPECT_EQ(OnlyDialog().title, "Select Filename to Save As...");
    EXPECT_EQ(OnlyDialog().startFolder, "");
    EXPECT_FALSE(OnlyDialog().confirmsOverwriting); // it asks itself
}

TEST_F(SaveXmlFromTreeAsTest, AsksBeforeItOverwrites) {
    folder.Write("Game\\b.xml", "old");
    rig.ui.filePaths = {folder / "Game\\b.xml"};
    rig.ui.answers = {Answer::No};
    SaveXmlFromTreeAs(rig.context);
    ASSERT_EQ(rig.ui.Messages().size(), 1U);
    const platform::Message message = rig.ui.Messages()[0];
    EXPECT_EQ(message.text, "A file by that name already exists. Do you wish\r\nto overwrite the file?");
    EXPECT_EQ(message.title, "File Already Exists");
    EXPECT_EQ(message.icon, platform::Icon::Question);
    EXPECT_EQ(message.buttons, platform::Buttons::YesNo);
    EXPECT_EQ(Game("b.xml"), "old");
    EXPECT_EQ(rig.document.path, folder / "Game\\a.xml");
}

TEST_F(SaveXmlFromTreeAsTest, OverwritesOnYes) {
    folder.Write("Game\\b.xml", "old");
    rig.ui.filePaths = {folder / "Game\\b.xml"};
    rig.ui.answers = {Answer::Yes};
    SaveXmlFromTreeAs(rig.context);
    EXPECT_EQ(Game("b.xml"), std::string(kDeclaration) + "<A></A>\r\n");
}

} // namespace
} // namespace tamarind::convert

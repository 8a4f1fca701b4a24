#include "shell/closing.h"

#include "document/clsXMLParse.h"
#include "editors/document_commands.h"
#include "platform/expect_error.h"
#include "platform/paths.h"
#include "support/editor_rig.h"
#include "support/fake_converter.h"
#include "support/memory_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::shell {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::ForDisplay;
using platform::Icon;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kSettings = "C:\\Kit\\preferences.txt";
constexpr const char* kXml = "C:\\Kit\\TempFiles\\a.xml";

class Closing : public testing::Test {
protected:
    Closing() {
        files.folders = {"C:\\Kit", "C:\\Kit\\TempFiles", "C:\\Game"};
        files.contents[kXml] = "<Top>old</Top>";
        rig.processes.run = tests::FakeConverter(files);
    }
    /// A document with a change that is not saved.
    void HaveChangedDocument() {
        rig.document.path = kXml;
        editors::LoadXmlFile(rig.context);
        rig.document.document.SetCharacters(rig.document.document.Top(), "new");
        editors::SetModified(rig.context, true);
    }
    std::string Written() { return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<Top>new</Top>\r\n"; }

    tests::MemoryFiles files;
    tests::EditorRig rig{files, "C:\\Kit"};
};

TEST_F(Closing, WritesTheSettingsAndAsksNothingWhenNothingChanged) {
    rig.view.SetGeometry({9000, 6000, 300, 450});
    rig.session.RailSimPath = "C:\\Game";
    EXPECT_TRUE(MayClose(rig.context));
    EXPECT_EQ(files.contents.at(kSettings), "9000,6000,300,450,\"\",\"\",\"C:\\Game\",#FALSE#\r\n");
    EXPECT_TRUE(rig.ui.Everything().empty());
}

TEST_F(Closing, AsksAboutAChangedDocument) {
    HaveChangedDocument();
    rig.ui.answers = {Answer::No};
    EXPECT_TRUE(MayClose(rig.context));
    ASSERT_EQ(rig.ui.Messages().size(), 1U);
    const platform::Message message = rig.ui.Messages()[0];
    EXPECT_EQ(message.text, "The file has been modified, do you wish to save the changes?");
    EXPECT_EQ(message.title, "File Modified");
    EXPECT_EQ(message.icon, Icon::Question);
    EXPECT_EQ(message.buttons, Buttons::YesNoCancel);
    EXPECT_EQ(files.contents.at(kXml), "<Top>old</Top>");
}

TEST_F(Closing, WritesTheSettingsBeforeTheQuestion) {
    HaveChangedDocument();
    bool wereWritten = false;
    rig.ui.onMessage = [&](const platform::Message&) { wereWritten = files.contents.contains(kSettings); };
    rig.ui.answers = {Answer::Cancel};
    EXPECT_FALSE(MayClose(rig.context));
    EXPECT_TRUE(wereWritten);
}

TEST_F(Closing, CancelKeepsTheWindowAndTheChange) {
    HaveChangedDocument();
    rig.ui.answers = {Answer::Cancel};
    EXPECT_FALSE(MayClose(rig.context));
    EXPECT_TRUE(rig.document.isModified);
    EXPECT_EQ(files.contents.at(kXml), "<Top>old</Top>");
}

TEST_F(Closing, YesSavesADocumentThatHasAFileName) {
    HaveChangedDocument();
    rig.ui.answers = {Answer::Yes};
    EXPECT_TRUE(MayClose(rig.context));
    EXPECT_EQ(files.contents.at(kXml), Written());
}

TEST_F(Closing, YesSavesAGameFileWithABackup) {
    HaveChangedDocument();
    files.contents["C:\\Game\\a.bin"] = "old game file";
    rig.session.RSFileLoaded = true;
    rig.session.RSFileExt = "bin";
    rig.session.TempBase = "C:\\Kit\\TempFiles\\a.";
    rig.view.ShowFilePath("C:\\Game\\a.bin");
    rig.ui.answers = {Answer::Yes};
    EXPECT_TRUE(MayClose(rig.context));
    EXPECT_EQ(files.contents.at("C:\\Game\\a.bin"), tests::GameFile(Written()));
    EXPECT_EQ(files.contents.at("C:\\Game\\a.bin.bak"), "old game file");
}

TEST_F(Closing, YesAsksForAFileNameWhenThereIsNone) {
    HaveChangedDocument();
    rig.document.hasFileName = false;
    rig.ui.answers = {Answer::Yes};
    rig.ui.filePaths = {"C:\\Game\\new.xml"};
    EXPECT_TRUE(MayClose(rig.context));
    EXPECT_EQ(files.contents.at("C:\\Game\\new.xml"), Written());
    EXPECT_EQ(files.contents.at(kXml), "<Top>old</Top>");
}

TEST_F(Closing, StaysOpenWhenTheFileNameIsCancelled) {
    HaveChangedDocument();
    rig.document.hasFileName = false;
    rig.ui.answers = {Answer::Yes};
    rig.ui.filePaths = {""};
    EXPECT_FALSE(MayClose(rig.context));
    EXPECT_TRUE(rig.document.isModified);
}

TEST_F(Closing, StaysOpenWhenSavingFails) {
    HaveChangedDocument();
    files.readOnly = {kXml};
    rig.ui.answers = {Answer::Yes};
    EXPECT_FALSE(MayClose(rig.context));
    EXPECT_EQ(rig.ui.MessageTexts().back(), "Unable to save the file: Permission denied");
    EXPECT_TRUE(rig.document.isModified);
}

TEST_F(Closing, TellsWhenTheSettingsCannotBeWrittenAndGoesOn) {
    files.contents[kSettings] = "old";
    files.readOnly = {kSettings};
    EXPECT_TRUE(MayClose(rig.context));
    EXPECT_THAT(rig.ui.MessageTexts(), ElementsAre(HasSubstr("Permission denied")));
    EXPECT_EQ(files.contents.at(kSettings), "old");
}

TEST_F(Closing, KeepsUnsavedTextOfTheTextEditor) {
    rig.session.FileBaseName = "Track.";
    rig.view.TypeText("caf\u00E9");
    EXPECT_TRUE(MayClose(rig.context));
    EXPECT_EQ(files.contents.at("C:\\Kit\\TempFiles\\Recovered\\Track.xml"), "caf\xE9");
    EXPECT_THAT(rig.ui.StatusLines(), ElementsAre("The text that was not saved is kept in " +
                                                  ForDisplay("C:\\Kit\\TempFiles\\Recovered\\Track.xml")));
}

TEST_F(Closing, KeepsUnsavedTextsUnderDifferentNames) {
    rig.view.TypeText("one");
    EXPECT_TRUE(MayClose(rig.context));
    rig.view.TypeText("two");
    EXPECT_TRUE(MayClose(rig.context));
    EXPECT_EQ(files.contents.at("C:\\Kit\\TempFiles\\Recovered\\Untitled.xml"), "one");
    EXPECT_EQ(files.contents.at("C:\\Kit\\TempFiles\\Recovered\\Untitled.1.xml"), "two");
}

TEST_F(Closing, KeepsNoTextThatWasNotChanged) {
    rig.view.SetEditorText("unchanged");
    EXPECT_TRUE(MayClose(rig.context));
    EXPECT_FALSE(files.folders.contains("C:\\Kit\\TempFiles\\Recovered"));
}

TEST_F(Closing, MakesTheFoldersForUnsavedText) {
    files.folders = {"C:\\Kit"};
    files.contents.clear();
    rig.view.TypeText("text");
    EXPECT_TRUE(MayClose(rig.context));
    EXPECT_EQ(files.contents.at("C:\\Kit\\TempFiles\\Recovered\\Untitled.xml"), "text");
}

TEST_F(Closing, TellsWhenUnsavedTextCannotBeKept) {
    files.contents["C:\\Kit\\TempFiles\\Recovered"] = "a file in the way";
    rig.view.TypeText("text");
    EXPECT_TRUE(MayClose(rig.context));
    EXPECT_THAT(rig.ui.StatusLines(),
                ElementsAre("The text that was not saved could not be kept: File already exists"));
}

TEST_F(Closing, AFatalErrorShowsNumberAndDescription) {
    ReportFatalError(rig.context, text::RuntimeError(text::ErrorNumber::FileNotFound));
    ASSERT_EQ(rig.ui.Messages().size(), 1U);
    EXPECT_EQ(rig.ui.Messages()[0].text, "Run-time error '53':\r\n\r\nFile not found\r\n\r\nTamarind ends now.");
    EXPECT_EQ(rig.ui.Messages()[0].icon, Icon::Critical);
    EXPECT_EQ(rig.ui.Messages()[0].title, "Tamarind");
}

TEST_F(Closing, AFatalErrorKeepsUnsavedWorkAndSaysWhere) {
    HaveChangedDocument();
    rig.session.FileBaseName = "Track.";
    rig.view.TypeText("typed");
    ReportFatalError(rig.context, text::RuntimeError(text::ErrorNumber::DiskFull, "Which file."));
    const std::string text = rig.ui.Messages()[0].text;
    EXPECT_THAT(text, testing::StartsWith("Run-time error '61':\r\n\r\nDisk full\r\n\r\nWhich file.\r\n\r\n"));
    EXPECT_THAT(text, testing::EndsWith("\r\n\r\nTamarind ends now."));
    const std::string folder = ForDisplay("C:\\Kit\\TempFiles\\Recovered\\");
    EXPECT_THAT(text, HasSubstr("The text that was not saved is kept in " + folder + "Track.xml\r\n"));
    EXPECT_THAT(text, HasSubstr("The XML document that was not saved is kept in " + folder + "Track.1.xml\r\n"));
    EXPECT_EQ(files.contents.at("C:\\Kit\\TempFiles\\Recovered\\Track.xml"), "typed");
    EXPECT_EQ(files.contents.at("C:\\Kit\\TempFiles\\Recovered\\Track.1.xml"), Written());
}

TEST_F(Closing, AFatalErrorSaysWhenWorkCannotBeKept) {
    files.contents["C:\\Kit\\TempFiles\\Recovered"] = "a file in the way";
    rig.view.TypeText("typed");
    ReportFatalError(rig.context, text::RuntimeError(text::ErrorNumber::DiskFull));
    EXPECT_THAT(rig.ui.Messages()[0].text,
                HasSubstr("The text that was not saved could not be kept: File already exists"));
}

TEST_F(Closing, AFailedConversionBackLeavesAsARuntimeErrorWithTheGameFileUntouched) {
    HaveChangedDocument();
    files.contents["C:\\Game\\a.bin"] = "old game file";
    rig.session.RSFileLoaded = true;
    rig.session.RSFileExt = "bin";
    rig.session.TempBase = "C:\\Kit\\TempFiles\\a.";
    rig.view.ShowFilePath("C:\\Game\\a.bin");
    tests::FakeConverter broken(files);
    broken.isBroken = true;
    rig.processes.run = broken;
    rig.ui.answers = {Answer::Yes};
    EXPECT_EQ(tests::NumberOfError([&] { static_cast<void>(MayClose(rig.context)); }), 53);
    EXPECT_EQ(files.contents.at("C:\\Game\\a.bin"), "old game file");
    EXPECT_EQ(files.contents.at(kXml), Written()); // the work is there
}

} // namespace
} // namespace tamarind::shell

#include "editors/document_commands.h"

#include "document/clsXMLParse.h"
#include "platform/expect_error.h"
#include "support/editor_rig.h"
#include "support/faulty_files.h"
#include "support/memory_files.h"
#include "support/tree_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::editors {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;
using testing::Contains;
using testing::ElementsAre;

constexpr const char* kFile = "C:\\Kit\\a.xml";
constexpr const char* kXml = "<Top><Child d:id=\"1\">Text</Child><Other/></Top>";

class DocumentCommands : public testing::Test {
protected:
    DocumentCommands() {
        files.folders = {"C:\\Kit"};
        files.contents[kFile] = kXml;
        rig.document.path = kFile;
    }
    bool Load() { return LoadXmlFile(rig.context); }
    /// A loaded document with a change that is not saved.
    void LoadAndChange() {
        Load();
        rig.document.document.SetCharacters(rig.document.document.Top().ChildNodes.Item(1), "Changed");
        SetModified(rig.context, true);
        rig.view.calls.clear();
    }

    tests::MemoryFiles files;
    tests::EditorRig rig{files, "C:\\Kit"};
};

TEST_F(DocumentCommands, SetModifiedPutsOneStarBehindTheCaption) {
    rig.view.SetCaption("Name");
    SetModified(rig.context, true);
    EXPECT_EQ(rig.view.Caption(), "Name*");
    SetModified(rig.context, true);
    EXPECT_EQ(rig.view.Caption(), "Name*");
    EXPECT_TRUE(rig.document.isModified);
}

TEST_F(DocumentCommands, SetModifiedTakesTheStarAway) {
    rig.view.SetCaption("Name**");
    SetModified(rig.context, false);
    EXPECT_EQ(rig.view.Caption(), "Name*");
    rig.view.SetCaption("Name");
    SetModified(rig.context, false);
    EXPECT_EQ(rig.view.Caption(), "Name");
    EXPECT_FALSE(rig.document.isModified);
}

TEST_F(DocumentCommands, SetModifiedOffersSaveAs) {
    SetModified(rig.context, false);
    EXPECT_TRUE(rig.document.canSaveAs);
    EXPECT_FALSE(rig.document.isOpen);
    EXPECT_GT(rig.view.updates, 0);
}

TEST_F(DocumentCommands, NewDocumentResetsEverything) {
    Load();
    rig.view.EnableAttributeArea(true);
    rig.document.SelectedNode = &rig.document.document.Top();
    rig.document.canCopy = true;
    rig.view.SetCaption("Something");
    EXPECT_TRUE(NewDocument(rig.context, "C:\\Kit\\b.xml"));
    EXPECT_EQ(rig.view.Caption(), "XML File Editor - ");
    EXPECT_EQ(rig.document.path, "C:\\Kit\\b.xml");
    EXPECT_TRUE(rig.document.document.IsEmpty());
    EXPECT_EQ(rig.document.KeyCounter, 0U);
    EXPECT_EQ(rig.document.SelectedNode, nullptr);
    EXPECT_FALSE(rig.document.isOpen);
    EXPECT_FALSE(rig.document.isModified);
    EXPECT_FALSE(rig.document.hasFileName);
    EXPECT_FALSE(rig.document.canCopy);
    EXPECT_FALSE(rig.view.isAreaEnabled);
    EXPECT_EQ(rig.view.calls.back(), "ClearTree");
}

TEST_F(DocumentCommands, NewDocumentAsksAboutUnsavedChangesOnly) {
    Load();
    NewDocument(rig.context, "C:\\Kit\\b.xml");
    EXPECT_TRUE(rig.ui.Messages().empty());
}

TEST_F(DocumentCommands, NewDocumentAsksWithYesNoAndCancel) {
    LoadAndChange();
    rig.ui.answers = {Answer::No};
    NewDocument(rig.context, "C:\\Kit\\b.xml");
    const auto messages = rig.ui.Messages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].text, "The current file has been modified.\r\nDo you wish to saves these changes?");
    EXPECT_EQ(messages[0].title, "Modified File");
    EXPECT_EQ(messages[0].buttons, Buttons::YesNoCancel);
    EXPECT_EQ(messages[0].icon, Icon::Question);
}

TEST_F(DocumentCommands, NewDocumentSavesOnYesAndResets) {
    LoadAndChange();
    rig.ui.answers = {Answer::Yes};
    EXPECT_TRUE(NewDocument(rig.context, "C:\\Kit\\b.xml"));
    EXPECT_THAT(files.contents[kFile], testing::HasSubstr(">Changed</Child>"));
    EXPECT_TRUE(rig.document.document.IsEmpty());
    EXPECT_EQ(rig.document.path, "C:\\Kit\\b.xml");
}

TEST_F(DocumentCommands, NewDocumentDropsChangesOnNo) {
    LoadAndChange();
    rig.ui.answers = {Answer::No};
    EXPECT_TRUE(NewDocument(rig.context, "C:\\Kit\\b.xml"));
    EXPECT_EQ(files.contents[kFile], kXml);
    EXPECT_TRUE(rig.document.document.IsEmpty());
}

TEST_F(DocumentCommands, NewDocumentChangesNothingOnCancel) {
    LoadAndChange();
    const std::string caption = rig.view.Caption();
    rig.ui.answers = {Answer::Cancel};
    EXPECT_FALSE(NewDocument(rig.context, "C:\\Kit\\b.xml"));
    EXPECT_EQ(files.contents[kFile], kXml);
    EXPECT_EQ(tests::TreeText(rig.document.document.Top()), "1:Top(2:Child[d:id=1]{Changed}()3:Other())");
    EXPECT_TRUE(rig.document.isModified);
    EXPECT_TRUE(rig.document.isOpen);
    EXPECT_EQ(rig.document.path, kFile);
    EXPECT_EQ(rig.view.Caption(), caption);
    EXPECT_TRUE(rig.view.calls.empty());
}

TEST_F(DocumentCommands, NewDocumentKeepsTheDocumentWhenSavingItFails) {
    LoadAndChange();
    files.readOnly = {kFile};
    rig.ui.answers = {Answer::Yes};
    EXPECT_FALSE(NewDocument(rig.context, "C:\\Kit\\b.xml"));
    EXPECT_TRUE(rig.document.isModified);
    EXPECT_FALSE(rig.document.document.IsEmpty());
    EXPECT_EQ(rig.document.path, kFile);
}

TEST_F(DocumentCommands, LoadShowsTheTreeWithNothingSelected) {
    rig.view.calls.clear();
    EXPECT_TRUE(Load());
    EXPECT_THAT(rig.view.calls, ElementsAre("ClearTree", "ShowTree"));
    EXPECT_EQ(tests::TreeText(rig.document.document.Top()), "1:Top(2:Child[d:id=1]{Text}()3:Other())");
    EXPECT_EQ(rig.document.KeyCounter, 3U);
    EXPECT_EQ(rig.document.SelectedNode, nullptr);
    EXPECT_TRUE(rig.document.isOpen);
    EXPECT_TRUE(rig.document.hasFileName);
    EXPECT_TRUE(rig.document.canSaveAs);
}

TEST_F(DocumentCommands, LoadDoesNotTouchTheModifiedFlag) {
    SetModified(rig.context, true);
    Load();
    EXPECT_TRUE(rig.document.isModified);
}

TEST_F(DocumentCommands, LoadTellsLineAndColumnOfMalformedXmlAndEmptiesTheTree) {
    Load();
    files.contents[kFile] = "<Top>\n <Child></Other>\n</Top>";
    rig.view.calls.clear();
    EXPECT_FALSE(Load());
    EXPECT_THAT(rig.view.calls, ElementsAre("ClearTree"));
    EXPECT_TRUE(rig.document.document.IsEmpty());
    EXPECT_FALSE(rig.document.isOpen);
    EXPECT_EQ(rig.document.KeyCounter, 0U);
    ASSERT_EQ(rig.ui.Messages().size(), 1U);
    const platform::Message message = rig.ui.Messages()[0];
    EXPECT_EQ(message.icon, Icon::Exclamation);
    EXPECT_THAT(message.text, testing::StartsWith("C:"));
    EXPECT_THAT(message.text, testing::HasSubstr("a.xml\r\ncannot be read as XML: "));
    // The reader stops at the name of the end tag: " <Child></" are ten characters.
    EXPECT_THAT(message.text, testing::EndsWith("Line 2, column 11."));
}

TEST_F(DocumentCommands, LoadRefusesAFileWithoutAnyElement) {
    files.contents[kFile] = "";
    EXPECT_FALSE(Load());
    EXPECT_EQ(rig.ui.Messages().size(), 1U);
}

TEST_F(DocumentCommands, LoadThrowsForAMissingFileWithAnEmptyTree) {
    Load();
    files.contents.clear();
    EXPECT_EQ(tests::NumberOfError([&] { Load(); }), 53);
    EXPECT_TRUE(rig.document.document.IsEmpty());
    EXPECT_EQ(rig.view.calls.back(), "ClearTree");
}

TEST_F(DocumentCommands, LoadForgetsTheNodeSelectedBefore) {
    Load();
    rig.document.SelectedNode = &rig.document.document.Top();
    Load();
    EXPECT_EQ(rig.document.SelectedNode, nullptr);
}

TEST_F(DocumentCommands, SaveWritesTheFileAndClearsTheModifiedFlag) {
    LoadAndChange();
    rig.document.isOpen = false;
    EXPECT_TRUE(SaveXmlFile(rig.context));
    EXPECT_EQ(files.contents[kFile], "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n"
                                     "<Top>\r\n"
                                     " <Child d:id=\"1\">Changed</Child>\r\n"
                                     " <Other></Other>\r\n"
                                     "</Top>\r\n");
    EXPECT_FALSE(rig.document.isModified);
    EXPECT_TRUE(rig.document.isOpen);
    EXPECT_FALSE(rig.view.Caption().ends_with('*'));
}

TEST_F(DocumentCommands, SaveTellsWhyItFailedAndKeepsTheModifiedFlag) {
    LoadAndChange();
    files.readOnly = {kFile};
    EXPECT_FALSE(SaveXmlFile(rig.context));
    ASSERT_EQ(rig.ui.Messages().size(), 1U);
    EXPECT_EQ(rig.ui.Messages()[0].text, "Unable to save the file: Permission denied");
    EXPECT_EQ(rig.ui.Messages()[0].title, "Save Failed");
    EXPECT_TRUE(rig.document.isModified);
    EXPECT_EQ(files.contents[kFile], kXml);
}

TEST_F(DocumentCommands, SaveOfAnEmptyDocumentFailsWithTheFileUnchanged) {
    EXPECT_FALSE(SaveXmlFile(rig.context));
    EXPECT_THAT(rig.ui.MessageTexts(), ElementsAre("Unable to save the file: Invalid procedure call or argument"));
    EXPECT_EQ(files.contents[kFile], kXml);
    EXPECT_EQ(files.contents.size(), 1U);
}

} // namespace
} // namespace tamarind::editors

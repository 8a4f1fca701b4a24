#include "editors/tree_editor.h"

#include "document/clsXMLParse.h"
#include "editors/document_commands.h"
#include "support/editor_rig.h"
#include "support/memory_files.h"
#include "support/tree_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::editors {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;
using platform::Message;
using testing::ElementsAre;

class TreeEditor : public testing::Test {
protected:
    TreeEditor() {
        files.folders = {"C:\\Kit"};
        files.contents["C:\\Kit\\a.xml"] = "<Top a=\"1\" b=\"2\">"
                                           "<Leaf d:id=\"7\">Abc</Leaf>"
                                           "<Group><Inner>x</Inner></Group>"
                                           "</Top>";
        NewDocument(rig.context, "C:\\Kit\\a.xml");
        LoadXmlFile(rig.context);
        rig.view.SetCaption("Editor");
        rig.view.calls.clear();
    }
    void Click(document::NodeKey key) { ClickRow(rig.context, key); }
    void ClickAttributeAt(int index) {
        rig.view.selectedAttribute = index;
        ClickAttribute(rig.context);
    }
    std::string Tree() { return tests::TreeText(rig.document.document.Top()); }
    Message OnlyMessage() {
        EXPECT_EQ(rig.ui.Messages().size(), 1U);
        return rig.ui.Messages().empty() ? Message() : rig.ui.Messages()[0];
    }
    void ExpectUnmodified() {
        EXPECT_FALSE(rig.document.isModified);
        EXPECT_EQ(rig.view.Caption(), "Editor");
    }
    void ExpectModified() {
        EXPECT_TRUE(rig.document.isModified);
        EXPECT_EQ(rig.view.Caption(), "Editor*");
    }

    static constexpr const char* kTree = "1:Top[a=1,b=2](2:Leaf[d:id=7]{Abc}()3:Group(4:Inner{x}()))";
    tests::MemoryFiles files;
    tests::EditorRig rig{files, "C:\\Kit"};
};

TEST_F(TreeEditor, ARowClickShowsNamesAndTextOfItsElement) {
    Click(1);
    EXPECT_THAT(rig.view.attributeNames, ElementsAre("a", "b"));
    EXPECT_EQ(rig.view.attributeValue, "");
    EXPECT_EQ(rig.view.characters, "");
    Click(2);
    EXPECT_THAT(rig.view.attributeNames, ElementsAre("d:id"));
    EXPECT_EQ(rig.view.characters, "Abc");
    ExpectUnmodified();
}

TEST_F(TreeEditor, ARowClickEnablesTheAreaAndCopyButNotTheValueBox) {
    Click(2);
    EXPECT_TRUE(rig.view.isAreaEnabled);
    EXPECT_FALSE(rig.view.isEditingEnabled);
    EXPECT_TRUE(rig.document.canCopy);
    EXPECT_FALSE(rig.document.canPaste);
}

TEST_F(TreeEditor, ARowClickEmptiesTheValueOfTheRowBefore) {
    Click(1);
    ClickAttributeAt(1);
    EXPECT_EQ(rig.view.attributeValue, "2");
    Click(3);
    EXPECT_EQ(rig.view.attributeValue, "");
    EXPECT_TRUE(rig.view.attributeNames.empty());
}

TEST_F(TreeEditor, FindsNodesAnywhereByKey) {
    FindNodeByKey(rig.document, 4);
    ASSERT_NE(rig.document.SelectedNode, nullptr);
    EXPECT_EQ(rig.document.SelectedNode->NodeName, "Inner");
    FindNodeByKey(rig.document, 1);
    EXPECT_EQ(rig.document.SelectedNode->NodeName, "Top");
    FindNodeByKey(rig.document, 99);
    EXPECT_EQ(rig.document.SelectedNode, nullptr);
}

TEST_F(TreeEditor, AnAttributeClickShowsItsValueAndEnablesEditing) {
    Click(1);
    ClickAttributeAt(0);
    EXPECT_EQ(rig.view.attributeValue, "1");
    EXPECT_TRUE(rig.view.isEditingEnabled);
    ExpectUnmodified();
}

TEST_F(TreeEditor, AnAttributeClickOnNothingDoesNothing) {
    Click(1);
    ClickAttributeAt(-1);
    EXPECT_EQ(rig.view.attributeValue, "");
    EXPECT_FALSE(rig.view.isEditingEnabled);
}

TEST_F(TreeEditor, AValueEditReachesTheModelAtOnce) {
    Click(1);
    ClickAttributeAt(1);
    EditAttributeValue(rig.context, "new \"&<");
    EXPECT_EQ(Tree(), "1:Top[a=1,b=new \"&<](2:Leaf[d:id=7]{Abc}()3:Group(4:Inner{x}()))");
    ExpectModified();
}

TEST_F(TreeEditor, AValueEditWithNothingSelectedDoesNothing) {
    Click(1);
    EditAttributeValue(rig.context, "x");
    EXPECT_EQ(Tree(), kTree);
    ExpectUnmodified();
}

TEST_F(TreeEditor, ATextEditReachesTheModelAtOnce) {
    Click(2);
    EditCharacters(rig.context, "Xyz");
    EXPECT_EQ(Tree(), "1:Top[a=1,b=2](2:Leaf[d:id=7]{Xyz}()3:Group(4:Inner{x}()))");
    ExpectModified();
}

TEST_F(TreeEditor, ANewAttributeNeedsAName) {
    EXPECT_FALSE(CheckNewAttributeName(rig.ui, ""));
    const Message message = OnlyMessage();
    EXPECT_EQ(message.text,
              "Please enter a name. The value box may be left blank,\r\nhowever, the name must be supplied.");
    EXPECT_EQ(message.title, "Name missing");
    EXPECT_EQ(message.icon, Icon::Critical);
}

TEST_F(TreeEditor, ANewAttributesNameHoldsNoBlank) {
    EXPECT_FALSE(CheckNewAttributeName(rig.ui, "a b"));
    const Message message = OnlyMessage();
    EXPECT_EQ(message.text, "Attribute names are not allowed spaces in them.");
    EXPECT_EQ(message.title, "Invalid Character");
    EXPECT_EQ(message.icon, Icon::Exclamation);
}

TEST_F(TreeEditor, ANewAttributesNameIsOtherwiseFree) {
    EXPECT_TRUE(CheckNewAttributeName(rig.ui, "1<\""));
    EXPECT_TRUE(rig.ui.Messages().empty());
}

TEST_F(TreeEditor, AddingAnAttributeAppendsItWithoutMarkingTheDocument) {
    Click(2);
    rig.view.newAttribute = session::NewAttribute{"c", "3"};
    AddAttribute(rig.context);
    EXPECT_EQ(Tree(), "1:Top[a=1,b=2](2:Leaf[d:id=7,c=3]{Abc}()3:Group(4:Inner{x}()))");
    EXPECT_THAT(rig.view.attributeNames, ElementsAre("d:id", "c"));
    ExpectUnmodified();
}

TEST_F(TreeEditor, CancellingANewAttributeAddsNothing) {
    Click(2);
    AddAttribute(rig.context);
    EXPECT_EQ(Tree(), kTree);
}

TEST_F(TreeEditor, RemovingAnAttributeDoesNotMarkTheDocument) {
    Click(1);
    ClickAttributeAt(0);
    RemoveAttribute(rig.context);
    EXPECT_EQ(Tree(), "1:Top[b=2](2:Leaf[d:id=7]{Abc}()3:Group(4:Inner{x}()))");
    EXPECT_THAT(rig.view.attributeNames, ElementsAre("b"));
    EXPECT_EQ(rig.view.attributeValue, "");
    EXPECT_FALSE(rig.view.isEditingEnabled);
    ExpectUnmodified();
}

TEST_F(TreeEditor, RenamingAnAttributeAsksForTheNewName) {
    Click(1);
    ClickAttributeAt(1);
    rig.ui.texts = {"c"};
    RenameAttribute(rig.context);
    const auto& asked = rig.ui.Everything().back();
    EXPECT_EQ(asked.kind, tests::Shown::Kind::TextQuestion);
    EXPECT_EQ(asked.message.text, "Please enter the new name for the attribute:");
    EXPECT_EQ(asked.message.title, "Rename Attribute");
    EXPECT_EQ(asked.preset, "b");
    EXPECT_EQ(Tree(), "1:Top[a=1,c=2](2:Leaf[d:id=7]{Abc}()3:Group(4:Inner{x}()))");
    EXPECT_THAT(rig.view.attributeNames, ElementsAre("a", "c"));
    ExpectModified();
}

TEST_F(TreeEditor, RenamingAnAttributeToItsNameInOtherCaseDoesNothing) {
    Click(1);
    ClickAttributeAt(1);
    rig.ui.texts = {"B"};
    RenameAttribute(rig.context);
    EXPECT_EQ(Tree(), kTree);
    ExpectUnmodified();
}

TEST_F(TreeEditor, RenamingAnAttributeToNothingDoesNothing) {
    Click(1);
    ClickAttributeAt(1);
    rig.ui.texts = {""};
    RenameAttribute(rig.context);
    EXPECT_EQ(Tree(), kTree);
    ExpectUnmodified();
}

TEST_F(TreeEditor, RenamingAnAttributeRefusesABlank) {
    Click(1);
    ClickAttributeAt(1);
    rig.ui.texts = {"c d"};
    RenameAttribute(rig.context);
    const Message message = OnlyMessage();
    EXPECT_EQ(message.text, "No spaces are allowed to be used in the attribute's name");
    EXPECT_EQ(message.title, "Invalid Character");
    EXPECT_EQ(message.icon, Icon::Exclamation);
    EXPECT_EQ(Tree(), kTree);
    EXPECT_THAT(rig.view.attributeNames, ElementsAre("a", "b"));
    ExpectUnmodified();
}

TEST_F(TreeEditor, ThePopUpOffersAChildForASelectedNode) {
    Click(2);
    const NodePopUp popUp = PrepareNodePopUp(rig.document);
    EXPECT_TRUE(popUp.isShown);
    EXPECT_EQ(popUp.newCaption, "&New Child Node");
    EXPECT_TRUE(popUp.canRenameAndDelete);
}

TEST_F(TreeEditor, ThePopUpIsNotShownWithNothingSelectedInATree) {
    EXPECT_FALSE(PrepareNodePopUp(rig.document).isShown);
}

TEST_F(TreeEditor, ThePopUpOffersAPrimaryNodeForAnEmptyTree) {
    NewDocument(rig.context, "C:\\Kit\\b.xml");
    const NodePopUp popUp = PrepareNodePopUp(rig.document);
    EXPECT_TRUE(popUp.isShown);
    EXPECT_EQ(popUp.newCaption, "&New Primary Node");
    EXPECT_FALSE(popUp.canRenameAndDelete);
}

TEST_F(TreeEditor, ANewPrimaryNodeIsTheTopElementAndItsNameIsTyped) {
    NewDocument(rig.context, "C:\\Kit\\b.xml");
    rig.view.SetCaption("Editor");
    rig.view.calls.clear();
    NewNode(rig.context);
    EXPECT_EQ(Tree(), "1:PrimaryNode()");
    EXPECT_EQ(rig.document.KeyCounter, 1U);
    EXPECT_THAT(rig.view.calls, ElementsAre("AddRow nod1", "EditRowLabel nod1"));
    ExpectModified();
}

TEST_F(TreeEditor, ANewChildNodeIsTheLastChildAndItsNameIsTyped) {
    Click(3);
    NewNode(rig.context);
    EXPECT_EQ(Tree(), "1:Top[a=1,b=2](2:Leaf[d:id=7]{Abc}()3:Group(4:Inner{x}()5:ChildNode()))");
    EXPECT_EQ(rig.document.KeyCounter, 5U);
    EXPECT_THAT(rig.view.calls, ElementsAre("AddRow nod5", "EditRowLabel nod5"));
    ExpectModified();
}

TEST_F(TreeEditor, ANewNodeNeedsASelectedOneInATree) {
    NewNode(rig.context);
    EXPECT_EQ(Tree(), kTree);
    EXPECT_EQ(rig.document.KeyCounter, 4U);
    ExpectUnmodified();
}

TEST_F(TreeEditor, RenameStartsLabelEditing) {
    Click(2);
    RenameNode(rig.context);
    EXPECT_THAT(rig.view.calls, ElementsAre("EditRowLabel nod2"));
    ExpectUnmodified();
}

TEST_F(TreeEditor, ANodeTakesTheNameFromItsLabel) {
    Click(2);
    EXPECT_TRUE(FinishLabelEdit(rig.context, "New"));
    EXPECT_EQ(Tree(), "1:Top[a=1,b=2](2:New[d:id=7]{Abc}()3:Group(4:Inner{x}()))");
    ExpectModified();
}

TEST_F(TreeEditor, ANodeNameHoldsNoBlank) {
    Click(2);
    EXPECT_FALSE(FinishLabelEdit(rig.context, "New name"));
    const Message message = OnlyMessage();
    EXPECT_EQ(message.text, "Node names cannot have spaces!");
    EXPECT_EQ(message.title, "Invalid character");
    EXPECT_EQ(message.icon, Icon::Exclamation);
    EXPECT_EQ(Tree(), kTree);
    ExpectUnmodified();
}

TEST_F(TreeEditor, ANodeNameMayBeEmptyOrHoldASign) {
    Click(2);
    EXPECT_TRUE(FinishLabelEdit(rig.context, "a<b"));
    EXPECT_TRUE(FinishLabelEdit(rig.context, ""));
    EXPECT_EQ(Tree(), "1:Top[a=1,b=2](2:[d:id=7]{Abc}()3:Group(4:Inner{x}()))");
    EXPECT_TRUE(rig.ui.Messages().empty());
    // A selected node without a name counts as none.
    EXPECT_FALSE(PrepareNodePopUp(rig.document).isShown);
}

TEST_F(TreeEditor, ALeafIsDeletedWithoutAQuestion) {
    Click(2);
    DeleteNode(rig.context);
    EXPECT_EQ(Tree(), "1:Top[a=1,b=2](3:Group(4:Inner{x}()))");
    EXPECT_THAT(rig.view.calls, ElementsAre("RemoveRow nod2"));
    EXPECT_FALSE(rig.view.isAreaEnabled);
    EXPECT_EQ(rig.document.SelectedNode, nullptr);
    EXPECT_FALSE(rig.document.canCopy);
    ExpectModified();
}

TEST_F(TreeEditor, ANodeWithChildrenIsDeletedAfterAQuestion) {
    Click(3);
    rig.ui.answers = {Answer::Yes};
    DeleteNode(rig.context);
    const Message message = OnlyMessage();
    EXPECT_EQ(message.text, "Delete this node and all child nodes?");
    EXPECT_EQ(message.title, "Confirm Child Bearing Node");
    EXPECT_EQ(message.icon, Icon::Question);
    EXPECT_EQ(message.buttons, Buttons::YesNo);
    EXPECT_EQ(Tree(), "1:Top[a=1,b=2](2:Leaf[d:id=7]{Abc}())");
    ExpectModified();
}

TEST_F(TreeEditor, ANodeWithChildrenStaysOnNo) {
    Click(3);
    rig.ui.answers = {Answer::No};
    DeleteNode(rig.context);
    EXPECT_EQ(Tree(), kTree);
    EXPECT_TRUE(rig.view.calls.empty());
    ExpectUnmodified();
}

TEST_F(TreeEditor, DeletingTheTopElementEmptiesTheTree) {
    Click(1);
    rig.ui.answers = {Answer::Yes};
    DeleteNode(rig.context);
    const Message message = OnlyMessage();
    EXPECT_EQ(message.text, "Deleting this node will remove all entries. Are you \r\nsure you want to do this?");
    EXPECT_EQ(message.title, "Confirm Primary node deletion.");
    EXPECT_EQ(message.icon, Icon::Question);
    EXPECT_EQ(message.buttons, Buttons::YesNo);
    EXPECT_TRUE(rig.document.document.IsEmpty());
    EXPECT_THAT(rig.view.calls, ElementsAre("ClearTree"));
    EXPECT_FALSE(rig.view.isAreaEnabled);
    EXPECT_EQ(PrepareNodePopUp(rig.document).newCaption, "&New Primary Node");
    ExpectModified();
}

TEST_F(TreeEditor, TheTopElementStaysOnNo) {
    Click(1);
    rig.ui.answers = {Answer::No};
    DeleteNode(rig.context);
    EXPECT_EQ(Tree(), kTree);
    ExpectUnmodified();
}

TEST_F(TreeEditor, CopyEnablesPasteAndTakesFreshKeys) {
    Click(3);
    CopySelectedNode(rig.context);
    EXPECT_TRUE(rig.document.canPaste);
    EXPECT_EQ(rig.document.KeyCounter, 6U);
    EXPECT_EQ(Tree(), kTree);
}

TEST_F(TreeEditor, PasteAddsTheCopyAsTheLastChildWithoutMarkingTheDocument) {
    Click(3);
    CopySelectedNode(rig.context);
    Click(1);
    rig.view.calls.clear();
    PasteNode(rig.context);
    EXPECT_EQ(Tree(), "1:Top[a=1,b=2](2:Leaf[d:id=7]{Abc}()3:Group(4:Inner{x}())7:Group(8:Inner{x}()))");
    EXPECT_THAT(rig.view.calls, ElementsAre("AddRow nod7"));
    ExpectUnmodified();
}

TEST_F(TreeEditor, PastingTwiceGivesDifferentKeys) {
    Click(2);
    CopySelectedNode(rig.context);
    Click(3);
    PasteNode(rig.context);
    PasteNode(rig.context);
    EXPECT_EQ(Tree(), "1:Top[a=1,b=2](2:Leaf[d:id=7]{Abc}()"
                      "3:Group(4:Inner{x}()6:Leaf[d:id=7]{Abc}()7:Leaf[d:id=7]{Abc}()))");
}

TEST_F(TreeEditor, ANodeCanBePastedIntoItself) {
    Click(3);
    CopySelectedNode(rig.context);
    PasteNode(rig.context);
    EXPECT_EQ(Tree(), "1:Top[a=1,b=2](2:Leaf[d:id=7]{Abc}()3:Group(4:Inner{x}()7:Group(8:Inner{x}())))");
}

TEST_F(TreeEditor, TheCopyOutlivesItsOriginal) {
    Click(2);
    CopySelectedNode(rig.context);
    DeleteNode(rig.context);
    Click(3);
    PasteNode(rig.context);
    EXPECT_EQ(Tree(), "1:Top[a=1,b=2](3:Group(4:Inner{x}()6:Leaf[d:id=7]{Abc}()))");
}

TEST_F(TreeEditor, TheCopyCanBePastedIntoTheNextDocument) {
    Click(2);
    CopySelectedNode(rig.context);
    NewDocument(rig.context, "C:\\Kit\\b.xml");
    NewNode(rig.context);
    Click(1);
    PasteNode(rig.context);
    EXPECT_EQ(Tree(), "1:PrimaryNode(2:Leaf[d:id=7]{Abc}())");
}

TEST_F(TreeEditor, PasteWithNothingSelectedDoesNothing) {
    Click(2);
    CopySelectedNode(rig.context);
    FindNodeByKey(rig.document, 99);
    PasteNode(rig.context);
    EXPECT_EQ(Tree(), kTree);
}

} // namespace
} // namespace tamarind::editors

#include "editors/tree_undo.h"

#include "document/clsXMLParse.h"
#include "document/xml_writer.h"
#include "editors/document_commands.h"
#include "editors/tree_editor.h"
#include "support/editor_rig.h"
#include "support/memory_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::editors {
namespace {

using platform::Answer;
using testing::ElementsAre;

/// Rows: nod1 Line, nod2 Halt (Code "A", Open "yes"; text "Bend"), nod3 Stop, nod4 Post within Stop.
class TreeUndo : public testing::Test {
protected:
    TreeUndo() {
        rig.document.document =
            document::ParseXml("<Line><Halt Code=\"A\" Open=\"yes\">Bend</Halt><Stop><Post/></Stop></Line>");
        rig.document.KeyCounter = 4;
        rig.view.SetCaption("Caption");
        before_ = Xml();
    }
    std::string Xml() {
        std::string xml;
        if (!rig.document.document.IsEmpty()) {
            document::WriteXml(rig.document.document, [&xml](std::string_view piece) { xml += piece; });
        }
        return xml;
    }
    void Click(document::NodeKey key) { ClickRow(rig.context, key); }
    void ClickAttributeAt(int index) {
        rig.view.selectedAttribute = index;
        ClickAttribute(rig.context);
    }
    /// Takes the last edit back and repeats it.
    void ExpectThereAndBack() {
        const std::string after = Xml();
        EXPECT_NE(after, before_);
        UndoEdit(rig.context);
        EXPECT_EQ(Xml(), before_);
        EXPECT_FALSE(CanUndo(rig.context));
        RedoEdit(rig.context);
        EXPECT_EQ(Xml(), after);
        EXPECT_FALSE(CanRedo(rig.context));
        UndoEdit(rig.context);
        EXPECT_EQ(Xml(), before_);
    }
    bool IsMarked() { return rig.view.Caption().ends_with("*"); }
    std::vector<std::string> Calls() { return std::exchange(rig.view.calls, {}); }

    tests::MemoryFiles files;
    tests::EditorRig rig{files, "C:\\Kit"};
    std::string before_;
};

TEST_F(TreeUndo, HasNothingToTakeBackAtFirst) {
    EXPECT_FALSE(CanUndo(rig.context));
    EXPECT_FALSE(CanRedo(rig.context));
    UndoEdit(rig.context);
    RedoEdit(rig.context);
    EXPECT_EQ(Xml(), before_);
    EXPECT_TRUE(Calls().empty());
}

TEST_F(TreeUndo, TakesTypingInAnElementsTextBackInOneStep) {
    Click(2);
    for (const char* text : {"Bend1", "Bend12", "Bend123"})
        EditCharacters(rig.context, text);
    ExpectThereAndBack();
}

TEST_F(TreeUndo, TakesTypingInTwoTextsBackInTwoSteps) {
    Click(2);
    EditCharacters(rig.context, "X");
    Click(3);
    EditCharacters(rig.context, "Y");
    Click(2);
    EditCharacters(rig.context, "Z");
    UndoEdit(rig.context);
    EXPECT_NE(Xml().find(">X</Halt>"), std::string::npos);
    UndoEdit(rig.context);
    EXPECT_EQ(Xml().find("<Stop>Y"), std::string::npos);
    UndoEdit(rig.context);
    EXPECT_EQ(Xml(), before_);
}

TEST_F(TreeUndo, TakesTypingInAnAttributesValueBackAndShowsTheAttribute) {
    Click(2);
    ClickAttributeAt(1);
    EditAttributeValue(rig.context, "n");
    EditAttributeValue(rig.context, "no");
    ExpectThereAndBack();
    EXPECT_EQ(rig.view.selectedAttribute, 1);
    EXPECT_EQ(rig.view.attributeValue, "yes");
}

TEST_F(TreeUndo, TakesAnAttributesNewNameBack) {
    Click(2);
    ClickAttributeAt(0);
    rig.ui.texts = {"Sign"};
    RenameAttribute(rig.context);
    ExpectThereAndBack();
    EXPECT_THAT(rig.view.attributeNames, ElementsAre("Code", "Open"));
}

TEST_F(TreeUndo, TakesAnAddedAttributeBackWithoutMarkingTheDocument) {
    Click(2);
    rig.view.newAttribute = session::NewAttribute{"Lit", "no"};
    AddAttribute(rig.context);
    ExpectThereAndBack();
    EXPECT_FALSE(IsMarked());
    EXPECT_FALSE(rig.document.isModified);
}

TEST_F(TreeUndo, PutsARemovedAttributeBackInItsPlace) {
    Click(2);
    ClickAttributeAt(0);
    RemoveAttribute(rig.context);
    ExpectThereAndBack();
    EXPECT_THAT(rig.view.attributeNames, ElementsAre("Code", "Open"));
    EXPECT_FALSE(IsMarked());
}

TEST_F(TreeUndo, TakesANodesNewNameBack) {
    Click(2);
    FinishLabelEdit(rig.context, "Stop9");
    Calls();
    UndoEdit(rig.context);
    EXPECT_EQ(Xml(), before_);
    EXPECT_THAT(Calls(), ElementsAre("ShowRowName nod2", "SelectRow nod2"));
}

TEST_F(TreeUndo, TakesANewNodeBackAndShowsItsParent) {
    Click(3);
    NewNode(rig.context);
    Calls();
    const std::string after = Xml();
    UndoEdit(rig.context);
    EXPECT_EQ(Xml(), before_);
    EXPECT_THAT(Calls(), ElementsAre("RemoveRow nod5", "SelectRow nod3"));
    RedoEdit(rig.context);
    EXPECT_EQ(Xml(), after);
    EXPECT_THAT(Calls(), ElementsAre("AddRow nod5", "SelectRow nod5"));
}

TEST_F(TreeUndo, NeverGivesAKeyTwice) {
    Click(3);
    NewNode(rig.context);
    UndoEdit(rig.context);
    NewNode(rig.context);
    EXPECT_EQ(rig.document.KeyCounter, 6U);
}

TEST_F(TreeUndo, PutsADeletedNodeBackInItsPlaceWithAllBelowIt) {
    Click(2);
    DeleteNode(rig.context);
    ExpectThereAndBack();
    EXPECT_EQ(rig.document.SelectedNode->NodeKeyText(), "nod2");
    rig.ui.answers = {Answer::Yes};
    Click(3);
    DeleteNode(rig.context);
    ExpectThereAndBack();
    EXPECT_EQ(document::FindChildByKey(rig.document.document.Root(), 4)->NodeName, "Post");
}

TEST_F(TreeUndo, TakesAPastedNodeBackWithoutMarkingTheDocument) {
    Click(2);
    CopySelectedNode(rig.context);
    Click(3);
    PasteNode(rig.context);
    ExpectThereAndBack();
    EXPECT_FALSE(IsMarked());
}

TEST_F(TreeUndo, PutsTheWholeDocumentBack) {
    Click(1);
    rig.ui.answers = {Answer::Yes};
    DeleteNode(rig.context);
    EXPECT_TRUE(rig.document.document.IsEmpty());
    Calls();
    UndoEdit(rig.context);
    EXPECT_EQ(Xml(), before_);
    EXPECT_EQ(rig.document.KeyCounter, 4U);
    EXPECT_THAT(Calls(), ElementsAre("ClearTree", "ShowTree"));
    RedoEdit(rig.context);
    EXPECT_TRUE(rig.document.document.IsEmpty());
    EXPECT_EQ(rig.document.KeyCounter, 0U);
    EXPECT_TRUE(PrepareNodePopUp(rig.document).newCaption == "&New Primary Node");
}

TEST_F(TreeUndo, GoesBackThroughADocumentThatWasDeletedAndBegunAnew) {
    Click(2);
    EditCharacters(rig.context, "other");
    const std::string edited = Xml();
    Click(1);
    rig.ui.answers = {Answer::Yes};
    DeleteNode(rig.context);
    NewNode(rig.context);
    Click(1);
    FinishLabelEdit(rig.context, "Tram");
    const std::string anew = Xml();
    UndoEdit(rig.context); // the name
    UndoEdit(rig.context); // the primary node
    EXPECT_TRUE(rig.document.document.IsEmpty());
    EXPECT_EQ(rig.document.KeyCounter, 0U);
    UndoEdit(rig.context); // the deletion
    EXPECT_EQ(Xml(), edited);
    UndoEdit(rig.context);
    EXPECT_EQ(Xml(), before_);
    for (int step = 0; step < 4; ++step)
        RedoEdit(rig.context);
    EXPECT_EQ(Xml(), anew);
    EXPECT_EQ(rig.document.KeyCounter, 1U);
}

TEST_F(TreeUndo, MarksTheDocumentAgainWhenAnEditThatDidIsTakenBack) {
    Click(2);
    EditCharacters(rig.context, "X");
    SetModified(rig.context, false);
    UndoEdit(rig.context);
    EXPECT_TRUE(IsMarked());
    EXPECT_TRUE(rig.document.isModified);
}

TEST_F(TreeUndo, ForgetsWhatWasTakenBackAfterANewEdit) {
    Click(2);
    EditCharacters(rig.context, "X");
    UndoEdit(rig.context);
    EXPECT_TRUE(CanRedo(rig.context));
    EditCharacters(rig.context, "Y");
    EXPECT_FALSE(CanRedo(rig.context));
}

TEST_F(TreeUndo, ForgetsEverythingWithANewDocument) {
    Click(2);
    EditCharacters(rig.context, "X");
    UndoEdit(rig.context);
    EditCharacters(rig.context, "Y");
    rig.ui.answers = {Answer::No};
    NewDocument(rig.context, "C:\\new.xml");
    EXPECT_FALSE(CanUndo(rig.context));
    EXPECT_FALSE(CanRedo(rig.context));
}

} // namespace
} // namespace tamarind::editors

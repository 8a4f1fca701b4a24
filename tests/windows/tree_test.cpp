#include "windows/editor_window.h"

#include <wx/listbox.h>
#include <wx/textctrl.h>

#include <set>

namespace tamarind::tests {
namespace {

using platform::FromWx;

constexpr const char* kDocument =
    "<Line Name=\"North\"><Station Code=\"A\" Open=\"yes\">Alder<Platform/></Station><Halt>Bend</Halt></Line>";

class TreeEditor : public EditorWindow {
protected:
    void OpenDocument() { OpenWithTreeEditor(folder_.Write("Rail Simulator\\line.xml", kDocument)); }
    wxTreeItemId Top() { return Tree().GetRootItem(); }
    std::string Text(const wxTreeItemId& row) { return FromWx(Tree().GetItemText(row)); }
    std::vector<std::string> AttributeNames() {
        std::vector<std::string> names;
        for (const wxString& name : Find<wxListBox>("lstAttributes").GetStrings())
            names.push_back(FromWx(name));
        return names;
    }
    std::string Value() { return FromWx(Find<wxTextCtrl>("txtAttributeValue").GetValue()); }
    std::string Characters() { return FromWx(Find<wxTextCtrl>("txtCharacters").GetValue()); }
    bool IsMarked() { return Caption().ends_with("*"); }
    document::clsNode& Selected() { return *window_->Context().document.SelectedNode; }
    std::string Saved() {
        Choose("mnuSaveXCT");
        return ReadFile(game_ + "\\line.xml");
    }
};

TEST_F(TreeEditor, MakesARowsChildrenWhenItIsFirstExpanded) {
    OpenDocument();
    const wxTreeItemId station = Row(Top(), "Station");
    EXPECT_TRUE(Tree().IsExpanded(Top()));
    EXPECT_TRUE(Tree().ItemHasChildren(station));
    EXPECT_EQ(Tree().GetChildrenCount(station, false), 0U);
    Tree().Expand(station);
    EXPECT_EQ(RowTexts(station), std::vector<std::string>{"Platform"});
    EXPECT_FALSE(Tree().ItemHasChildren(Row(Top(), "Halt")));
}

TEST_F(TreeEditor, ShowsAttributesAndTextOfTheClickedRow) {
    OpenDocument();
    ClickRow(Row(Top(), "Station"));
    EXPECT_EQ(AttributeNames(), (std::vector<std::string>{"Code", "Open"}));
    EXPECT_EQ(Characters(), "Alder");
    EXPECT_EQ(Value(), "");
    for (const char* name : {"cmdAdd", "lstAttributes", "txtCharacters"})
        EXPECT_TRUE(Find(name).IsEnabled()) << name;
    for (const char* name : {"cmdDel", "cmdRename", "txtAttributeValue"})
        EXPECT_FALSE(Find(name).IsEnabled()) << name;
    ClickAttribute(1);
    EXPECT_EQ(Value(), "yes");
    for (const char* name : {"cmdDel", "cmdRename", "txtAttributeValue"})
        EXPECT_TRUE(Find(name).IsEnabled()) << name;
    EXPECT_FALSE(IsMarked());
}

TEST_F(TreeEditor, MarksTheCaptionWhenAValueIsTypedAndTakesTheMarkOffWhenItIsSaved) {
    OpenDocument();
    ClickRow(Top());
    ClickAttribute(0);
    EXPECT_FALSE(IsMarked());
    Find<wxTextCtrl>("txtAttributeValue").SetValue("South");
    EXPECT_TRUE(IsMarked());
    Find<wxTextCtrl>("txtAttributeValue").SetValue("West");
    EXPECT_FALSE(Caption().ends_with("**"));
    EXPECT_NE(Saved().find("<Line Name=\"West\">"), std::string::npos);
    EXPECT_FALSE(IsMarked());
}

TEST_F(TreeEditor, MarksTheCaptionWhenTextIsTyped) {
    OpenDocument();
    ClickRow(Row(Top(), "Halt"));
    Find<wxTextCtrl>("txtCharacters").SetValue("Bow");
    EXPECT_TRUE(IsMarked());
    EXPECT_NE(Saved().find("<Halt>Bow</Halt>"), std::string::npos);
}

TEST_F(TreeEditor, AddsAnAttributeWithoutMarkingTheCaption) {
    OpenDocument();
    ClickRow(Row(Top(), "Halt"));
    dialogs_.UseDialog("frmAddAttribute", [](wxDialog& dialog) {
        dynamic_cast<wxTextCtrl&>(*dialog.FindWindow("txtName")).SetValue("Code");
        dynamic_cast<wxTextCtrl&>(*dialog.FindWindow("txtValue")).SetValue("B");
        Press(*dialog.FindWindow(wxID_OK));
    });
    Press(Find("cmdAdd"));
    EXPECT_EQ(AttributeNames(), std::vector<std::string>{"Code"});
    EXPECT_FALSE(IsMarked());
    EXPECT_NE(Saved().find("<Halt Code=\"B\">Bend</Halt>"), std::string::npos);
}

TEST_F(TreeEditor, AsksAgainForANewAttributeWithoutANameOrWithABlankInIt) {
    OpenDocument();
    ClickRow(Row(Top(), "Halt"));
    dialogs_.UseDialog("frmAddAttribute", [](wxDialog& dialog) {
        auto& name = dynamic_cast<wxTextCtrl&>(*dialog.FindWindow("txtName"));
        wxWindow& ok = *dialog.FindWindow(wxID_OK);
        Press(ok);
        EXPECT_TRUE(dialog.IsModal());
        name.SetValue("Two words");
        Press(ok);
        EXPECT_TRUE(dialog.IsModal());
        name.SetValue("Code");
        Press(ok);
    });
    dialogs_.AnswerMessage({.text = "Please enter a name. The value box may be left blank,\n"
                                    "however, the name must be supplied.",
                            .title = "Name missing",
                            .style = wxICON_ERROR | wxOK});
    dialogs_.AnswerMessage({.text = "Attribute names are not allowed spaces in them.",
                            .title = "Invalid Character",
                            .style = wxICON_EXCLAMATION | wxOK});
    Press(Find("cmdAdd"));
    EXPECT_EQ(AttributeNames(), std::vector<std::string>{"Code"});
}

TEST_F(TreeEditor, AddsNothingWhenTheDialogIsCancelled) {
    OpenDocument();
    ClickRow(Row(Top(), "Halt"));
    dialogs_.UseDialog("frmAddAttribute", [](wxDialog& dialog) {
        dynamic_cast<wxTextCtrl&>(*dialog.FindWindow("txtName")).SetValue("Code");
        Press(*dialog.FindWindow(wxID_CANCEL));
    });
    Press(Find("cmdAdd"));
    EXPECT_EQ(AttributeNames(), std::vector<std::string>{});
    EXPECT_EQ(Selected().NodeAttributes.Count(), 0U);
}

TEST_F(TreeEditor, RemovesTheSelectedAttributeWithoutMarkingTheCaption) {
    OpenDocument();
    ClickRow(Row(Top(), "Station"));
    ClickAttribute(0);
    Press(Find("cmdDel"));
    EXPECT_EQ(AttributeNames(), std::vector<std::string>{"Open"});
    EXPECT_EQ(Value(), "");
    for (const char* name : {"cmdDel", "cmdRename", "txtAttributeValue"})
        EXPECT_FALSE(Find(name).IsEnabled()) << name;
    EXPECT_FALSE(IsMarked());
    EXPECT_NE(Saved().find("<Station Open=\"yes\">"), std::string::npos);
}

TEST_F(TreeEditor, RenamesTheSelectedAttribute) {
    OpenDocument();
    ClickRow(Row(Top(), "Station"));
    ClickAttribute(1);
    const ExpectedDialogs::TextBox question{"Please enter the new name for the attribute:", "Rename Attribute", "Open"};
    dialogs_.CancelText(question);
    Press(Find("cmdRename"));
    dialogs_.EnterText(question, "OPEN");
    Press(Find("cmdRename"));
    dialogs_.EnterText(question, "is open");
    dialogs_.AnswerMessage({.text = "No spaces are allowed to be used in the attribute's name",
                            .title = "Invalid Character",
                            .style = wxICON_EXCLAMATION | wxOK});
    Press(Find("cmdRename"));
    EXPECT_EQ(AttributeNames(), (std::vector<std::string>{"Code", "Open"}));
    EXPECT_FALSE(IsMarked());

    dialogs_.EnterText(question, "Staffed");
    Press(Find("cmdRename"));
    EXPECT_EQ(AttributeNames(), (std::vector<std::string>{"Code", "Staffed"}));
    EXPECT_TRUE(IsMarked());
    EXPECT_NE(Saved().find("<Station Code=\"A\" Staffed=\"yes\">"), std::string::npos);
}

TEST_F(TreeEditor, RenamesANodeByEditingItsRow) {
    OpenDocument();
    ClickRow(Row(Top(), "Halt"));
    ChooseNode("mnuNodePopupRename");
    FinishLabel("Stop");
    EXPECT_EQ(RowTexts(Top()), (std::vector<std::string>{"Station", "Stop"}));
    EXPECT_EQ(Selected().NodeName, "Stop");
    EXPECT_TRUE(IsMarked());
}

TEST_F(TreeEditor, RefusesANodeNameWithABlank) {
    OpenDocument();
    ClickRow(Row(Top(), "Halt"));
    ChooseNode("mnuNodePopupRename");
    dialogs_.AnswerMessage(
        {.text = "Node names cannot have spaces!", .title = "Invalid character", .style = wxICON_EXCLAMATION | wxOK});
    FinishLabel("Bus stop");
    EXPECT_EQ(RowTexts(Top()), (std::vector<std::string>{"Station", "Halt"}));
    EXPECT_EQ(Selected().NodeName, "Halt");
    EXPECT_FALSE(IsMarked());
}

TEST_F(TreeEditor, AcceptsAnyOtherNodeName) {
    OpenDocument();
    ClickRow(Row(Top(), "Halt"));
    ChooseNode("mnuNodePopupRename");
    FinishLabel("a<b");
    EXPECT_EQ(Selected().NodeName, "a<b");
}

TEST_F(TreeEditor, MakesANewChildNodeAndAsksForItsName) {
    OpenDocument();
    ClickRow(Row(Top(), "Station"));
    ChooseNode("mnuNodePopUpNew");
    FinishLabel("Clock");
    EXPECT_EQ(RowTexts(Row(Top(), "Station")), (std::vector<std::string>{"Platform", "Clock"}));
    EXPECT_TRUE(IsMarked());
    EXPECT_EQ(Selected().NodeName, "Clock");
    // Four elements were loaded.
    EXPECT_EQ(Selected().NodeKeyText(), "nod5");
    EXPECT_NE(Saved().find("<Clock></Clock>"), std::string::npos);
}

TEST_F(TreeEditor, MakesANewPrimaryNodeInAnEmptyTree) {
    OpenWithTreeEditor();
    ChooseNode("mnuNodePopUpNew");
    EXPECT_EQ(Text(Top()), "PrimaryNode");
    FinishLabel("Route");
    EXPECT_EQ(Text(Top()), "Route");
    EXPECT_TRUE(IsMarked());
    ASSERT_FALSE(window_->Context().document.document.IsEmpty());
    EXPECT_EQ(window_->Context().document.document.Top().NodeName, "Route");
    dialogs_.AnswerMessage({.text = "The file has been modified, do you wish to save the changes?",
                            .title = "File Modified",
                            .style = wxICON_QUESTION | wxYES_NO | wxCANCEL},
                           wxID_NO);
    Close();
}

TEST_F(TreeEditor, DeletesANodeWithoutChildrenAtOnce) {
    OpenDocument();
    ClickRow(Row(Top(), "Halt"));
    ChooseNode("mnuNodePopUpDelete");
    EXPECT_EQ(RowTexts(Top()), std::vector<std::string>{"Station"});
    EXPECT_FALSE(Find("fraAttribs").IsEnabled());
    EXPECT_EQ(Characters(), "");
    EXPECT_TRUE(IsMarked());
    EXPECT_EQ(Saved().find("Halt"), std::string::npos);
}

TEST_F(TreeEditor, DeletesANodeWithChildrenAfterAQuestion) {
    OpenDocument();
    ClickRow(Row(Top(), "Station"));
    const ExpectedDialogs::MessageBox question{.text = "Delete this node and all child nodes?",
                                               .title = "Confirm Child Bearing Node",
                                               .style = wxICON_QUESTION | wxYES_NO};
    dialogs_.AnswerMessage(question, wxID_NO);
    ChooseNode("mnuNodePopUpDelete");
    EXPECT_EQ(RowTexts(Top()), (std::vector<std::string>{"Station", "Halt"}));
    EXPECT_FALSE(IsMarked());
    dialogs_.AnswerMessage(question, wxID_YES);
    ChooseNode("mnuNodePopUpDelete");
    EXPECT_EQ(RowTexts(Top()), std::vector<std::string>{"Halt"});
    EXPECT_TRUE(IsMarked());
}

TEST_F(TreeEditor, EmptiesTheTreeWithTheTopNodeAfterAQuestion) {
    OpenDocument();
    ClickRow(Top());
    const ExpectedDialogs::MessageBox question{
        .text = "Deleting this node will remove all entries. Are you \nsure you want to do this?",
        .title = "Confirm Primary node deletion.",
        .style = wxICON_QUESTION | wxYES_NO};
    dialogs_.AnswerMessage(question, wxID_NO);
    ChooseNode("mnuNodePopUpDelete");
    EXPECT_EQ(RowTexts(Top()), (std::vector<std::string>{"Station", "Halt"}));
    dialogs_.AnswerMessage(question, wxID_YES);
    ChooseNode("mnuNodePopUpDelete");
    EXPECT_EQ(Tree().GetCount(), 0U);
    EXPECT_TRUE(IsMarked());
    EXPECT_FALSE(Find("fraAttribs").IsEnabled());
    ChooseNode("mnuNodePopUpNew");
    FinishLabel("Again");
    EXPECT_EQ(Text(Top()), "Again");
}

TEST_F(TreeEditor, PastesACopyTwiceWithKeysOfItsOwn) {
    OpenDocument();
    ClickRow(Row(Top(), "Station"));
    ChooseNode("mnuEditCopy");
    ClickRow(Row(Top(), "Halt"));
    ChooseNode("mnuEditPaste");
    ChooseNode("mnuEditPaste");
    const wxTreeItemId halt = Row(Top(), "Halt");
    Tree().Expand(halt);
    EXPECT_EQ(RowTexts(halt), (std::vector<std::string>{"Station", "Station"}));
    EXPECT_FALSE(IsMarked());
    std::set<std::string> keys;
    document::Walk walk(Selected());
    while (const document::clsNode* const node = walk.Next())
        keys.insert(node->NodeKeyText());
    // Halt itself and two elements of each copy.
    EXPECT_EQ(keys.size(), 5U);
    const std::string saved = Saved();
    const std::string copy = "<Station Code=\"A\" Open=\"yes\">Alder\r\n   <Platform></Platform>\r\n  </Station>\r\n";
    EXPECT_NE(saved.find(" <Halt>Bend\r\n  " + copy + "  " + copy + " </Halt>\r\n"), std::string::npos) << saved;
}

/// What the menu holds besides the "Nodes" menu.
ShownItems With(ShownItems nodes, bool hasRows, bool hasNode) {
    nodes.insert({{"", true}, // the lines between groups
                  {"Undo\tCtrl+Z", false},
                  {"Redo\tCtrl+Y", false},
                  {"Expand All\tCtrl+Shift+Right", hasRows},
                  {"Collapse All\tCtrl+Shift+Left", hasRows},
                  {"Copy Path\tCtrl+Shift+C", hasNode}});
    return nodes;
}

class NodesPopUp : public TreeEditor {
protected:
    ShownItems PopUp(const wxTreeItemId& row) {
        return PopUpAfter([&] { SendRightClick(row); });
    }

private:
    void SendRightClick(const wxTreeItemId& row) {
        if (row.IsOk()) {
            wxTreeEvent event(wxEVT_TREE_ITEM_MENU, &Tree(), row);
            Tree().GetEventHandler()->ProcessEvent(event);
        } else {
            wxMouseEvent event(wxEVT_RIGHT_UP);
            event.SetPosition(wxPoint(40, 40));
            Tree().GetEventHandler()->ProcessEvent(event);
        }
    }
};

TEST_F(NodesPopUp, OffersANewPrimaryNodeInAnEmptyTree) {
    OpenWithTreeEditor();
    const ShownItems nodes{
        {"&New Primary Node", true}, {"Rename Node", false}, {"Delete Node", false}, {"Copy", false}, {"Paste", false}};
    EXPECT_EQ(PopUp({}), With(nodes, false, false));
}

TEST_F(NodesPopUp, SelectsTheRowAndOffersWhatCanBeDoneWithIt) {
    OpenDocument();
    const ShownItems nodes{
        {"&New Child Node", true}, {"Rename Node", true}, {"Delete Node", true}, {"Copy", true}, {"Paste", false}};
    EXPECT_EQ(PopUp(Row(Top(), "Halt")), With(nodes, true, true));
    EXPECT_EQ(Selected().NodeName, "Halt");
    ChooseNode("mnuEditCopy");
    EXPECT_TRUE(PopUp(Top()).at("Paste"));
}

TEST_F(NodesPopUp, IsNotShownWhenNoRowIsSelectedInATreeWithRows) {
    OpenDocument();
    bool opened = false;
    window_->Bind(wxEVT_MENU_OPEN, [&opened](wxMenuEvent&) { opened = true; });
    wxMouseEvent event(wxEVT_RIGHT_UP);
    event.SetPosition(wxPoint(20, Tree().GetClientSize().y - 5));
    Tree().GetEventHandler()->ProcessEvent(event);
    EXPECT_FALSE(opened);
}

} // namespace
} // namespace tamarind::tests

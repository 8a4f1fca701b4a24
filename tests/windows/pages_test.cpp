#include "windows/editor_window.h"

#include <wx/notebook.h>
#include <wx/statbox.h>

namespace tamarind::tests {
namespace {

using platform::FromWx;

class Pages : public EditorWindow {
protected:
    std::string CaptionOf(const std::string& control) { return FromWx(Find(control).GetLabel()); }
    bool IsBoldRed(const std::string& frame) {
        return Find(frame).GetForegroundColour() == wxColour(255, 0, 0) &&
               Find(frame).GetFont().GetWeight() >= wxFONTWEIGHT_BOLD;
    }
    int ShownPage() { return Find<wxNotebook>("SSTab1").GetSelection(); }
    void TurnTo(std::size_t page) {
        Find<wxNotebook>("SSTab1").SetSelection(page);
        Pump();
    }
};

constexpr const char* kTextPageWarning =
    "Warning: You are using XML editor, any changes you make on this page will not be saved";
constexpr const char* kTreePageWarning =
    "Warning: You are using Tamarind editor, any changes you make on this page will not be saved";

TEST_F(Pages, AreTwoWithTheirCaptions) {
    Open();
    auto& tabs = Find<wxNotebook>("SSTab1");
    ASSERT_EQ(tabs.GetPageCount(), 2U);
    EXPECT_EQ(FromWx(tabs.GetPageText(0)), "Tamarind Editor");
    EXPECT_EQ(FromWx(tabs.GetPageText(1)), "XML Editor");
}

TEST_F(Pages, HoldTheControlsOfTheTextEditor) {
    Open();
    EXPECT_EQ(CaptionOf("Frame1"), "Tamarind Editor");
    EXPECT_EQ(CaptionOf("Command1"), "Highlight XML");
    EXPECT_EQ(CaptionOf("Label1"), "File Name:");
    for (const char* name : {"Command1", "Label1", "RichTextBox1", "Text1"}) {
        EXPECT_TRUE(Find("Frame1").IsDescendant(&Find(name))) << name;
    }
}

TEST_F(Pages, HoldTheControlsOfTheTreeEditor) {
    OpenWithTreeEditor();
    EXPECT_EQ(CaptionOf("Frame2"), "XML Editor");
    EXPECT_EQ(CaptionOf("Label3"), "File Name:");
    EXPECT_EQ(CaptionOf("Label2"), "");
    EXPECT_TRUE(Find("Frame2").IsDescendant(&Tree()));
    EXPECT_EQ(CaptionOf("fraAttribs"), "Attributes");
    EXPECT_EQ(CaptionOf("lblNames"), "Name:");
    EXPECT_EQ(CaptionOf("lblValue"), "Value:");
    EXPECT_EQ(CaptionOf("cmdAdd"), "&Add");
    EXPECT_EQ(CaptionOf("cmdDel"), "&Remove");
    EXPECT_EQ(CaptionOf("cmdRename"), "R&ename");
    EXPECT_EQ(CaptionOf("fraChars"), "Characters");
    EXPECT_EQ(CaptionOf("lblText"), "Text:");
    for (const char* name :
         {"lblNames", "lblValue", "lstAttributes", "txtAttributeValue", "cmdAdd", "cmdDel", "cmdRename"}) {
        EXPECT_EQ(Find(name).GetParent(), &Find("fraAttribs")) << name;
    }
    for (const char* name : {"lblText", "txtCharacters"})
        EXPECT_EQ(Find(name).GetParent(), &Find("fraChars")) << name;
}

TEST_F(Pages, HoldTheControlsOfTheSearch) {
    OpenWithTreeEditor();
    EXPECT_EQ(CaptionOf("Frame3"), "Search");
    EXPECT_EQ(CaptionOf("Command2"), "Find");
    EXPECT_EQ(CaptionOf("Command3"), "Find All");
    EXPECT_EQ(CaptionOf("Command4"), "Find in Text");
    EXPECT_EQ(CaptionOf("Command5"), "Replace");
    EXPECT_EQ(CaptionOf("Command6"), "Replace All");
    EXPECT_EQ(CaptionOf("Check1"), "Whole Word Only");
    for (const char* name : {"Command2", "Command3", "Command4", "Command5", "Command6", "Check1", "Text2", "Text3"}) {
        EXPECT_EQ(Find(name).GetParent(), &Find("Frame3")) << name;
    }
}

TEST_F(Pages, DisableTheAttributeAreaUntilARowIsClicked) {
    OpenWithTreeEditor();
    for (const char* name : {"fraAttribs", "lblNames", "lblValue", "txtAttributeValue", "fraChars", "txtCharacters",
                             "lblText", "cmdAdd", "cmdDel", "lstAttributes", "cmdRename"}) {
        EXPECT_FALSE(Find(name).IsEnabled()) << name;
    }
}

TEST_F(Pages, StartWithTheTextPageForTheTextEditor) {
    Open();
    EXPECT_EQ(ShownPage(), 0);
}

TEST_F(Pages, StartWithTheTreePageForTheTreeEditor) {
    OpenWithTreeEditor();
    EXPECT_EQ(ShownPage(), 1);
}

TEST_F(Pages, WarnInBoldRedOnTheTreePageWhileTheTextEditorIsInUse) {
    Open();
    TurnTo(1);
    EXPECT_EQ(CaptionOf("Frame2"), kTreePageWarning);
    EXPECT_TRUE(IsBoldRed("Frame2"));
    EXPECT_EQ(CaptionOf("Frame1"), "Tamarind Editor");
    EXPECT_FALSE(IsBoldRed("Frame1"));
}

TEST_F(Pages, WarnInBoldRedOnTheTextPageWhileTheTreeEditorIsInUse) {
    OpenWithTreeEditor();
    TurnTo(0);
    EXPECT_EQ(CaptionOf("Frame1"), kTextPageWarning);
    EXPECT_TRUE(IsBoldRed("Frame1"));
    EXPECT_EQ(CaptionOf("Frame2"), "XML Editor");
    EXPECT_FALSE(IsBoldRed("Frame2"));
}

TEST_F(Pages, ShowThePageOfTheEditorChosenForTheSessionAndTakeTheWarningOffIt) {
    Open();
    Choose("mnuUXML");
    EXPECT_EQ(ShownPage(), 1);
    EXPECT_EQ(CaptionOf("Frame2"), "XML Editor");
    EXPECT_FALSE(IsBoldRed("Frame2"));
    Choose("mnuURS");
    EXPECT_EQ(ShownPage(), 0);
    EXPECT_EQ(CaptionOf("Frame2"), kTreePageWarning);
    EXPECT_TRUE(IsBoldRed("Frame2"));
}

TEST_F(Pages, FollowTheDefaultEditorThatIsChosenInTheMenu) {
    Open();
    dialogs_.AnswerMessage(
        {.text = "Do you wish to use the .XML editor as your Default Editor?", .style = wxICON_EXCLAMATION | wxYES_NO},
        wxID_YES);
    Choose("mnuSelDefEdit");
    EXPECT_EQ(ShownPage(), 1);
    EXPECT_EQ(CaptionOf("Frame1"), kTextPageWarning);
    Close();
    EXPECT_TRUE(folder_.Read("Program\\preferences.txt").ends_with(",#TRUE#\r\n"));
}

} // namespace
} // namespace tamarind::tests

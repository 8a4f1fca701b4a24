#include "windows/placement.h"
#include "windows/routes_rig.h"

#include <wx/display.h>
#include <wx/uiaction.h>

namespace tamarind::tests {
namespace {

using platform::FromWx;

class RoutesLayout : public RoutesWindow {
protected:
    /// As small as it may be, as large as it opens, and larger.
    void ExpectWellPlacedAtEverySize(wxTopLevelWindow& window, int controls) {
        const wxSize opened = window.GetSize();
        const wxSize screen = wxDisplay(&window).GetClientArea().GetSize();
        for (wxSize size : {window.GetMinSize(), opened, opened + window.FromDIP(wxSize(200, 150))}) {
            size.DecTo(screen - window.FromDIP(wxSize(20, 60))); // with room for the frame
            window.SetSize(wxRect(wxPoint(0, 0), size));
            ASSERT_TRUE(PumpUntil([&] { return window.GetSize() == size; }));
            PumpFor(milliseconds(200));
            EXPECT_EQ(ExpectWellPlaced(window), controls) << size.x << "x" << size.y;
        }
    }

    void Type(int key) {
        wxUIActionSimulator().Char(key);
        PumpFor(milliseconds(200));
    }

    void FocusOn(wxWindow& control) {
        routes_->Raise();
        control.SetFocus();
        ASSERT_TRUE(PumpUntil([&] { return control.HasFocus() && routes_->IsActive(); }));
        PumpFor(milliseconds(100));
    }
};

TEST_F(RoutesLayout, ShowsEveryControlOfTheRoutesWhole) {
    OpenRoutes();
    // Four lists and the files with their labels, six buttons for routes and scenarios, the status line and Exit.
    ExpectWellPlacedAtEverySize(*routes_, 18);
}

TEST_F(RoutesLayout, ShowsEveryControlWholeWhileScenariosAreListed) {
    OpenRoutes();
    ListScenariosOf(0);
    ExpectWellPlacedAtEverySize(*routes_, 16);
}

TEST_F(RoutesLayout, ShowsEveryControlWholeWhileScenariosArePackaged) {
    OpenRoutesFor(0, session::kSet);
    // Buttons for listing, editing, adding and processing.
    ExpectWellPlacedAtEverySize(*routes_, 16);
}

TEST_F(RoutesLayout, ShowsEveryControlOfTheAssetPackagerWhole) {
    Choose("mnuPackAss");
    // Six labels, three text boxes, drive, folders in their border, files, package, four buttons and the status line.
    ExpectWellPlacedAtEverySize(TopLevel("frmFolder3"), 19);
}

TEST_F(RoutesLayout, ShowsWholeIdsWhenItOpens) {
    OpenRoutes();
    const int needed = 3 * List("List2").GetTextExtent(samples::kAlderRoute.data()).x;
    if (wxDisplay(routes_.get()).GetClientArea().width < needed) GTEST_SKIP() << "the screen is too small for that";
    ListScenariosOf(0);
    for (const char* const name : {"List2", "List4"}) {
        const wxListBox& list = List(name);
        EXPECT_GE(list.GetClientSize().x, list.GetTextExtent(list.GetString(0)).x) << name;
    }
}

TEST_F(RoutesLayout, ShowsEveryControlOfTheStockWhole) {
    OpenRoutes();
    ListScenariosOf(0);
    Select("List3", 0);
    Press(Button("Command3"));
    // Two labels, the list, the text, the status line and two buttons.
    ExpectWellPlacedAtEverySize(TopLevel("frmListRS"), 7);
}

TEST_F(RoutesLayout, ShowsEveryControlOfAReportWhole) {
    OpenRoutes();
    dialogs_.AnswerMessage(
        {.text = "Do you wish to view a list of Shapes used by this route?", .style = wxICON_QUESTION | wxYES_NO},
        wxID_NO);
    dialogs_.UseDialog("frmReport", [this](wxDialog& dialog) {
        // The text, the status line and two buttons.
        ExpectWellPlacedAtEverySize(dialog, 4);
        Press(In(dialog, "cmdClose"));
    });
    dialogs_.AnswerMessage(
        {.text = "Would you like to check for missing Textures ?", .style = wxICON_QUESTION | wxYES_NO}, wxID_NO);
    Select("List1", 1);
    Press(Button("Command4"));
}

TEST_F(RoutesLayout, TakesTheTabKeyFromListToListAndButtonToButton) {
    OpenRoutes();
    ListScenariosOf(0);
    FocusOn(List("List1"));
    for (const char* const name : {"List2", "Command1", "Command4", "OKButton", "List3", "List4", "Command3",
                                   "Command7", "Command2", "CancelButton", "List1"}) {
        Type(WXK_TAB);
        const wxWindow* const focused = wxWindow::FindFocus();
        ASSERT_NE(focused, nullptr) << name;
        EXPECT_EQ(FromWx(focused->GetName()), name);
    }
}

TEST_F(RoutesLayout, ListsScenariosWithTheEnterKeyOnARoute) {
    OpenRoutes();
    FocusOn(List("List1"));
    Select("List1", 0);
    Type(WXK_RETURN);
    EXPECT_TRUE(PumpUntil([this] { return List("List3").GetCount() == 3; }, milliseconds(5000)));
    PumpFor(milliseconds(300));
    EXPECT_EQ(List("List3").GetCount(), 3U);
}

TEST_F(RoutesLayout, ClosesWithTheEscapeKey) {
    OpenRoutes();
    FocusOn(List("List1"));
    Type(WXK_ESCAPE);
    EXPECT_TRUE(PumpUntil([this] { return !routes_; }, milliseconds(5000)));
}

} // namespace
} // namespace tamarind::tests

#include "windows/routes_rig.h"

#include <gmock/gmock.h>

#include <wx/font.h>
#include <wx/progdlg.h>
#include <wx/textctrl.h>

namespace tamarind::tests {
namespace {

using platform::FromWx;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

const ExpectedDialogs::MessageBox kShapes{.text = "Do you wish to view a list of Shapes used by this route?",
                                          .style = wxICON_QUESTION | wxYES_NO};
const ExpectedDialogs::MessageBox kTextures{.text = "Do you wish to view a list of Textures used by this route?",
                                            .style = wxICON_QUESTION | wxYES_NO};
const ExpectedDialogs::MessageBox kCheckTextures{.text = "Would you like to check for missing Textures ?",
                                                 .style = wxICON_QUESTION | wxYES_NO};

class RouteReports : public RoutesWindow {
protected:
    /// Expects the report window, notes its text and closes it, after having done something with it.
    void ReadReport(const std::function<void(wxDialog&)>& use = {}) {
        dialogs_.UseDialog("frmReport", [this, use](wxDialog& dialog) {
            reports_.push_back(FromWx(In<wxTextCtrl>(dialog, "RichTextBox1").GetValue()));
            if (use) use(dialog);
            Press(In(dialog, "cmdClose"));
        });
    }

    void Check(int route) {
        OpenRoutes();
        Select("List1", route);
        Press(Button("Command4"));
    }

    [[nodiscard]] std::string Asset(const std::string& name) const { return game_ + "\\Assets\\" + name; }

    std::vector<std::string> reports_;
};

TEST_F(RouteReports, OfACheckTellWhatIsMissing) {
    dialogs_.AnswerMessage(kShapes, wxID_YES);
    ReadReport();
    ReadReport();
    dialogs_.AnswerMessage(kCheckTextures, wxID_YES);
    dialogs_.AnswerMessage(kTextures, wxID_YES);
    ReadReport();
    ReadReport();
    Check(0);
    const std::string forge = Asset("Fernhollow\\AlderVale\\Scenery\\Buildings\\Smith & Son's Forge.bin");
    const std::vector<std::string> shapes{
        Asset("Fernhollow\\AlderVale\\Scenery\\Buildings\\Mill.bin"),
        forge,
        Asset("Fernhollow\\AlderVale\\Scenery\\Structures\\Signal Hut.bin"),
        Asset("Tansywick\\HarbourSet\\RailNetwork\\Lofts\\Fence.bin"),
        Asset("Tansywick\\HarbourSet\\RailNetwork\\Roads\\Lane.bin"),
        Asset("Tansywick\\HarbourSet\\Scenery\\Structures\\Crane.bin"),
    };
    std::string lines;
    for (const std::string& shape : shapes)
        lines += shape + "\n";
    EXPECT_THAT(reports_,
                ElementsAre(lines,
                            "Following item(s) were missing from this route:-\n\n" +
                                Asset("Fernhollow\\AlderVale\\Scenery\\Buildings\\Windmill.bin") + "\n" + forge + "\n",
                            Asset("Fernhollow\\AlderVale\\Scenery\\Textures\\Brick.TgPcDx") + "\n" +
                                Asset("Fernhollow\\AlderVale\\Scenery\\Textures\\Slate.TgPcDx") + "\n" +
                                Asset("Tansywick\\HarbourSet\\Textures\\Board.TgPcDx") + "\n",
                            "Texture Check:-\n\nShape file missing:-  " + forge +
                                "\nFernhollow\\AlderVale\\Scenery\\Structures\\SignalHut\n"));
    EXPECT_EQ(Items(List("List3")), shapes);
    EXPECT_FALSE(List("File1").IsShown());
    EXPECT_THAT(Selected(List("List1")), IsEmpty());
}

TEST_F(RouteReports, OfARouteInWhichNothingIsMissingSaysSo) {
    dialogs_.AnswerMessage(kShapes, wxID_NO);
    ReadReport();
    dialogs_.AnswerMessage(kCheckTextures, wxID_NO);
    Check(1);
    EXPECT_THAT(reports_, ElementsAre("Route Scenery checked out OK"));
}

TEST_F(RouteReports, AreInAFixedPitchFontAndCannotBeChangedByAccident) {
    dialogs_.AnswerMessage(kShapes, wxID_NO);
    ReadReport([](wxDialog& dialog) {
        const auto& box = In<wxTextCtrl>(dialog, "RichTextBox1");
        EXPECT_TRUE(box.GetFont().IsFixedWidth());
        EXPECT_FALSE(box.IsEditable());
    });
    dialogs_.AnswerMessage(kCheckTextures, wxID_NO);
    Check(1);
}

TEST_F(RouteReports, OfACancelledCheckAreMarkedAsIncomplete) {
    const Environment slow("TAMARIND_SERZ_DELAY_MS", "1500");
    ReadReport();
    Later(milliseconds(600), [] {
        for (wxWindow* const window : wxTopLevelWindows) {
            if (dynamic_cast<wxGenericProgressDialog*>(window) == nullptr) continue;
            EXPECT_EQ(FromWx(window->GetLabel()), "Checking the route");
            Press(*window->FindWindow(wxID_CANCEL));
            return;
        }
        ADD_FAILURE() << "no progress dialog";
    });
    const auto start = std::chrono::steady_clock::now();
    Check(0);
    // Four conversions of a second and a half would have followed.
    EXPECT_LT(std::chrono::steady_clock::now() - start, milliseconds(3000));
    ASSERT_EQ(reports_.size(), 1U);
    EXPECT_THAT(reports_.front(), StartsWith("INCOMPLETE: the check was cancelled after 0 of 4 files.\n"));
    EXPECT_TRUE(Button("Command4").IsEnabled());
}

TEST_F(RouteReports, AreSavedWhereThePersonSays) {
    const std::string path = folder_ / "My report.txt";
    dialogs_.AnswerMessage(kShapes, wxID_NO);
    dialogs_.UseDialog("frmReport", [this](wxDialog& dialog) {
        Press(In(dialog, "cmdSave"));
        EXPECT_EQ(FromWx(In<wxStaticText>(dialog, "StatusLine").GetLabelText()),
                  "Saved " + platform::ForDisplay(folder_ / "My report.txt"));
        Press(In(dialog, "cmdClose"));
    });
    dialogs_.ChooseFile({.title = "Save Object File",
                         .filter = "Text Files (*.txt)|*.txt",
                         .folder = program_ + "\\Reports",
                         .save = true},
                        path);
    dialogs_.AnswerMessage(kCheckTextures, wxID_NO);
    Check(0);
    EXPECT_EQ(ReadFile(path), "Following item(s) were missing from this route:-\r\n\r\n" +
                                  Asset("Fernhollow\\AlderVale\\Scenery\\Buildings\\Windmill.bin") + "\r\n" +
                                  Asset("Fernhollow\\AlderVale\\Scenery\\Buildings\\Smith & Son's Forge.bin") + "\r\n");
}

TEST_F(RouteReports, AreNotSavedWhenTheFileDialogIsCancelled) {
    dialogs_.AnswerMessage(kShapes, wxID_NO);
    dialogs_.UseDialog("frmReport", [](wxDialog& dialog) {
        Press(In(dialog, "cmdSave"));
        Press(In(dialog, "cmdClose"));
    });
    dialogs_.CancelFile({.title = "Save Object File", .filter = "Text Files (*.txt)|*.txt", .save = true});
    dialogs_.AnswerMessage(kCheckTextures, wxID_NO);
    Check(0);
    EXPECT_THAT(files_->List(program_ + "\\Reports"), IsEmpty());
}

class Stock : public RoutesWindow {
protected:
    void ListStockOf(int scenario) {
        OpenRoutes();
        ListScenariosOf(0);
        Select("List3", scenario);
        Press(Button("Command3"));
        list_ = &TopLevel("frmListRS");
    }

    wxWeakRef<wxTopLevelWindow> list_;
};

TEST_F(Stock, IsListedEntryByEntry) {
    ListStockOf(0);
    const std::string van = "Tansywick\\HarbourSet\\RailVehicles\\Freight\\SaltVan\\SaltVan.xml";
    EXPECT_THAT(Items(In<wxListBox>(*list_, "List1")),
                ElementsAre("Fernhollow\\AlderVale\\RailVehicles\\Steam\\Wren\\Wren.xml", van, van,
                            "Fernhollow\\AlderVale\\RailVehicles\\Diesel\\Otter\\Otter.xml",
                            "Tansywick\\HarbourSet\\RailVehicles\\Coaches\\Mail\\Mail.xml", van, van));
    EXPECT_EQ(FromWx(list_->GetTitle()), "Stock used by Morning Milk");
    EXPECT_EQ(FromWx(In<wxStaticText>(*list_, "StatusLine").GetLabelText()), "7 objects");
    EXPECT_TRUE(In(*list_, "List1").GetFont().IsFixedWidth());
}

TEST_F(Stock, IsCheckedForWhatIsMissing) {
    ListStockOf(0);
    EXPECT_EQ(FromWx(In<wxTextCtrl>(*list_, "Text1").GetValue()), "");
    Press(In(*list_, "Command1"));
    EXPECT_EQ(FromWx(In<wxTextCtrl>(*list_, "Text1").GetValue()),
              "Tansywick\\HarbourSet\\RailVehicles\\Coaches\\Mail\\Mail.xml is missing\n");
    EXPECT_EQ(FromWx(In<wxStaticText>(*list_, "StatusLine").GetLabelText()), "1 of 7 missing");
}

TEST_F(Stock, KeepsItsScenarioSelectedAndItsWindowBesideTheOther) {
    ListStockOf(2);
    EXPECT_THAT(Selected(List("List3")), ElementsAre(2));
    EXPECT_TRUE(routes_->IsEnabled());
    Press(In(*list_, "CancelButton"));
    EXPECT_TRUE(PumpUntil([this] { return !list_; }));
    EXPECT_TRUE(routes_);
}

TEST_F(Stock, ClosesWithTheRoutes) {
    ListStockOf(0);
    routes_->Close();
    EXPECT_TRUE(PumpUntil([this] { return !routes_; }));
    EXPECT_FALSE(list_);
}

TEST_F(Stock, ThatCannotBeConvertedIsToldAndOpensNoWindow) {
    OpenRoutes();
    ListScenariosOf(0);
    Select("List3", 0);
    const std::string scenario =
        RoutePath(samples::kAlderRoute) + "\\Scenarios\\5a1e0d20-0001-4c00-9a10-7a3a21d0b001\\Scenario.bin";
    dialogs_.AnswerMessage({.text = "This scenario could not be converted:\n" + platform::ForDisplay(scenario),
                            .style = wxICON_EXCLAMATION | wxOK});
    const Environment fails("TAMARIND_SERZ_FAIL", "1");
    Press(Button("Command3"));
    EXPECT_THROW(TopLevel("frmListRS"), std::runtime_error);
}

} // namespace
} // namespace tamarind::tests

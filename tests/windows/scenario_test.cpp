#include "windows/placement.h"
#include "windows/routes_rig.h"

#include <wx/choice.h>
#include <wx/datectrl.h>
#include <wx/dateevt.h>
#include <wx/display.h>
#include <wx/listctrl.h>
#include <wx/statbox.h>
#include <wx/textctrl.h>
#include <wx/timectrl.h>
#include <wx/uiaction.h>

#include <gmock/gmock.h>

namespace tamarind::tests {
namespace {

using platform::ForDisplay;
using platform::FromWx;
using platform::ToWx;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kMilk = "5a1e0d20-0001-4c00-9a10-7a3a21d0b001";
const ExpectedDialogs::MessageBox kUpdated{.text = "Your Scenario File has been updated.",
                                           .style = wxICON_INFORMATION | wxOK};
const ExpectedDialogs::MessageBox kDriverUpdated{.text = "Your Scenario Driver information has been updated.",
                                                 .style = wxICON_INFORMATION | wxOK};

/// The scenario editor, opened from the routes window over the sample game.
class Scenario : public RoutesWindow {
protected:
    /// Opens the editor on a scenario of the first route, and comes back when it is closed; `use` need not close it.
    void Edit(int scenario, const std::function<void()>& use) {
        if (!routes_) OpenRoutes();
        ListScenariosOf(0);
        Select("List3", scenario);
        bool isUsed = false;
        dialogs_.UseDialog("frmScenEdit", [&](wxDialog& dialog) {
            editor_ = &dialog;
            PumpUntil([&] { return dialog.IsShownOnScreen(); });
            PumpFor(milliseconds(100));
            use();
            isUsed = true;
            if (dialog.IsShown()) Press(In("Command2"));
        });
        Press(Button("Command7"));
        EXPECT_TRUE(isUsed);
    }

    template <class Control = wxWindow> Control& In(const std::string& name) {
        return RoutesWindow::In<Control>(*editor_, name);
    }
    wxTextCtrl& Text1(int index) { return In<wxTextCtrl>("Text1(" + std::to_string(index) + ")"); }
    std::string TextOf(int index) { return FromWx(Text1(index).GetValue()); }
    std::string LabelOf(const std::string& name) { return FromWx(In<wxControl>(name).GetLabelText()); }
    std::string Column(long row, int column) { return FromWx(In<wxListView>("List1").GetItemText(row, column)); }
    std::vector<std::string> ItemsOf(const std::string& name) { return Items(In<wxListBox>(name)); }

    void SelectConsist(long row) {
        In<wxListView>("List1").Select(row);
        Pump();
    }
    void SelectIn(const std::string& list, const std::string& item) {
        auto& box = In<wxListBox>(list);
        ASSERT_TRUE(box.SetStringSelection(ToWx(item)));
        Send(box, wxEVT_LISTBOX, box.GetSelection());
    }

    [[nodiscard]] std::string ScenarioFile() const {
        return RoutePath(samples::kAlderRoute) + "\\Scenarios\\" + kMilk + "\\Scenario.bin";
    }
    [[nodiscard]] std::string IndexFile() const { return RoutePath(samples::kAlderRoute) + "\\Scenarios.bin"; }

    wxDialog* editor_ = nullptr;
};

TEST_F(Scenario, OpensWithItsFieldsAndTrains) {
    Edit(0, [this] {
        EXPECT_EQ(FromWx(editor_->GetTitle()), "Scenario Editor");
        EXPECT_EQ(TextOf(0), "Morning Milk");
        EXPECT_EQ(TextOf(2), "Leave the dairy at half past five &amp; stop everywhere.");
        EXPECT_EQ(TextOf(3), "0630");
        EXPECT_EQ(TextOf(11), "Weather\\Clear.xml");
        EXPECT_EQ(In<wxListView>("List1").GetItemCount(), 4);
        EXPECT_EQ(Column(1, 0), "Posta di notte");
        EXPECT_EQ(Column(0, 1), "Player");
        EXPECT_EQ(Column(1, 1), "");
        EXPECT_THAT(ItemsOf("File1"), ElementsAre("Clear.bin", "Drizzle.bin"));
        EXPECT_EQ(LabelOf("Command1"), "Save Changes");
        EXPECT_EQ(LabelOf("Command2"), "Cancel");
        EXPECT_EQ(LabelOf("Command3"), "Set Weather");
    });
}

TEST_F(Scenario, NamesItsFieldsAndFrames) {
    Edit(0, [this] {
        std::vector<std::string> captions;
        const std::function<void(const wxWindow&)> collect = [&](const wxWindow& window) {
            for (const wxWindow* const child : window.GetChildren()) {
                if (dynamic_cast<const wxStaticBox*>(child) != nullptr ||
                    (dynamic_cast<const wxStaticText*>(child) != nullptr && child->GetName() == "staticText"))
                    captions.push_back(FromWx(dynamic_cast<const wxControl*>(child)->GetLabelText()));
                if (dynamic_cast<const wxStaticBox*>(child) != nullptr) collect(*child);
            }
        };
        collect(*editor_);
        EXPECT_THAT(captions,
                    testing::UnorderedElementsAre(
                        "Display Name:", "Description", "Briefing", "Start Time (24 hour)", "Duration (mins)",
                        "Start Day", "Start Month", "Start Year", "Season", "Select Weather Here if Required.",
                        "Weather Provider", "Weather Product", "Weather Blueprint", "Consists", "Contents of Consist"));
    });
}

TEST_F(Scenario, ShowsForeignLettersAsTheyAre) {
    Edit(1, [this] {
        EXPECT_EQ(TextOf(0), "Nachtpost nach Quillm\xC3\xBCnde");
        EXPECT_EQ(LabelOf("Warning(0)"), "");
    });
}

TEST_F(Scenario, IsSavedAndShownAgain) {
    Edit(0, [this] {
        Text1(0).SetValue("Evening Milk");
        Text1(1).SetValue("One\nTwo");
        Text1(3).SetValue("2015");
        dialogs_.AnswerMessage(kUpdated);
        Press(In("Command1"));
        EXPECT_EQ(LabelOf("Command2"), "Exit");
    });
    EXPECT_EQ(FromWx(List("List3").GetString(0)), "Evening Milk");
    EXPECT_THAT(XmlOf(IndexFile()), HasSubstr("<German d:type=\"text\">One\r\nTwo</German>"));
    Edit(0, [this] {
        EXPECT_EQ(TextOf(0), "Evening Milk");
        EXPECT_EQ(TextOf(1), "One\nTwo");
        EXPECT_EQ(TextOf(3), "2015");
        EXPECT_EQ(LabelOf("Command2"), "Cancel");
    });
}

TEST_F(Scenario, KeepsForeignLettersWhenSaved) {
    Edit(1, [this] {
        Text1(0).SetValue(ToWx("Nachtpost nach Quillm\xC3\xBCnde \xE2\x82\xAC"));
        dialogs_.AnswerMessage(kUpdated);
        Press(In("Command1"));
    });
    EXPECT_THAT(XmlOf(IndexFile()), HasSubstr(">Nachtpost nach Quillm\xC3\xBCnde \xE2\x82\xAC</German>"));
}

TEST_F(Scenario, TellsThatItHasBeenSavedAlready) {
    Edit(0, [this] {
        dialogs_.AnswerMessage(kUpdated);
        Press(In("Command1"));
        EXPECT_TRUE(In("Command1").IsEnabled());
        dialogs_.AnswerMessage({.text = "This scenario has been saved already. Close this window and open it again to "
                                        "change it further.",
                                .style = wxICON_EXCLAMATION | wxOK});
        Press(In("Command1"));
        EXPECT_FALSE(In("Command1").IsEnabled());
        EXPECT_TRUE(In("Command2").IsEnabled());
    });
}

TEST_F(Scenario, RefusesAMistake) {
    const std::string before = XmlOf(IndexFile());
    Edit(0, [this] {
        Text1(5).SetValue("32");
        dialogs_.AnswerMessage(
            {.text = "Invalid Start Day, must be between 1 and 31.", .style = wxICON_EXCLAMATION | wxOK});
        Press(In("Command1"));
        EXPECT_EQ(LabelOf("Command2"), "Cancel");
    });
    EXPECT_EQ(XmlOf(IndexFile()), before);
}

TEST_F(Scenario, ShowsTheVehiclesOfTheSelectedConsist) {
    Edit(0, [this] {
        EXPECT_THAT(ItemsOf("List2"), testing::IsEmpty());
        SelectConsist(0);
        EXPECT_THAT(ItemsOf("List2"), ElementsAre("Wren 12", "Salt Van 301", "Salt Van 302"));
        SelectConsist(2);
        EXPECT_THAT(ItemsOf("List2"), ElementsAre("Salt Van 310"));
        SelectConsist(3);
        EXPECT_THAT(ItemsOf("List2"), ElementsAre("Empty Consist"));
    });
}

TEST_F(Scenario, LetsThePlayerDriveTheSelectedConsist) {
    Edit(0, [this] {
        SelectConsist(1);
        EXPECT_THAT(LabelOf("Command4"), testing::StartsWith("Drive It: 2, Post"));
        dialogs_.AnswerMessage(kDriverUpdated);
        Press(In("Command4"));
        EXPECT_EQ(Column(0, 1), "");
        EXPECT_EQ(Column(1, 1), "Player");
        EXPECT_EQ(In<wxListView>("List1").GetFirstSelected(), 1);
        EXPECT_EQ(LabelOf("Command2"), "Exit");
    });
    EXPECT_THAT(XmlOf(ScenarioFile()), testing::Not(HasSubstr(">1</PlayerControlled>")));
    Edit(0, [this] { EXPECT_EQ(Column(1, 1), "Player"); });
}

TEST_F(Scenario, SaysWhichConsistItActsOnWithoutASelectedOne) {
    Edit(0, [this] {
        PumpFor(milliseconds(100));
        EXPECT_THAT(LabelOf("Command4"), testing::StartsWith("Drive It: 1, Milk"));
    });
}

TEST_F(Scenario, WarnsOfMarkupWhileItIsTyped) {
    Edit(0, [this] {
        EXPECT_EQ(LabelOf("Warning(2)"), "");
        Text1(2).SetValue("Milk & Mail");
        EXPECT_EQ(LabelOf("Warning(2)"), "\"&\" breaks the scenario: write \"&amp;\".");
        Text1(0).SetValue("a < b");
        EXPECT_EQ(LabelOf("Warning(0)"), "\"<\" breaks the scenario: write \"&lt;\".");
        Text1(0).SetValue("a &lt; b");
        EXPECT_EQ(LabelOf("Warning(0)"), "");
    });
}

TEST_F(Scenario, TellsHowTheStartReads) {
    Edit(0, [this] {
        EXPECT_EQ(LabelOf("StartInWords"), "Starts: Thursday, 1 May 1958, 06:30, for 45 minutes");
        Text1(3).SetValue("0590");
        EXPECT_EQ(LabelOf("StartInWords"), "Starts: Thursday, 1 May 1958, 06:30, for 45 minutes");
        Text1(5).SetValue("32");
        EXPECT_EQ(LabelOf("StartInWords"), "Starts: This date is not in the calendar.");
    });
}

TEST_F(Scenario, WritesTheDigitsOfAPickedTime) {
    Edit(0, [this] {
        auto& clock = In<wxTimePickerCtrl>("StartClock");
        int hour = 0;
        int minute = 0;
        int second = 0;
        ASSERT_TRUE(clock.GetTime(&hour, &minute, &second));
        EXPECT_EQ(std::pair(hour, minute), std::pair(6, 30));
        clock.SetTime(5, 7, 0);
        wxDateEvent event(&clock, clock.GetValue(), wxEVT_TIME_CHANGED);
        clock.GetEventHandler()->ProcessEvent(event);
        EXPECT_EQ(TextOf(3), "0507");
    });
}

TEST_F(Scenario, WritesTheNumbersOfAPickedDate) {
    Edit(0, [this] {
        auto& calendar = In<wxDatePickerCtrl>("StartCalendar");
        EXPECT_EQ(calendar.GetValue(), wxDateTime(1, wxDateTime::May, 1958));
        calendar.SetValue(wxDateTime(24, wxDateTime::Dec, 1961));
        wxDateEvent event(&calendar, calendar.GetValue(), wxEVT_DATE_CHANGED);
        calendar.GetEventHandler()->ProcessEvent(event);
        EXPECT_EQ(TextOf(5), "24");
        EXPECT_EQ(TextOf(6), "12");
        EXPECT_EQ(TextOf(7), "1961");
        EXPECT_THAT(LabelOf("StartInWords"), HasSubstr("Sunday, 24 December 1961"));
    });
}

TEST_F(Scenario, FollowsATypedDateInTheCalendar) {
    Edit(0, [this] {
        Text1(7).SetValue("2004");
        Text1(6).SetValue("2");
        Text1(5).SetValue("29");
        EXPECT_EQ(In<wxDatePickerCtrl>("StartCalendar").GetValue(), wxDateTime(29, wxDateTime::Feb, 2004));
    });
}

TEST_F(Scenario, CopiesTheChosenSeasonAndHidesTheChooser) {
    Edit(0, [this] {
        auto& chooser = In<wxChoice>("Combo1");
        EXPECT_TRUE(chooser.IsShown());
        EXPECT_EQ(FromWx(chooser.GetStringSelection()), "SEASON_SPRING");
        EXPECT_EQ(chooser.GetCount(), 4U);
        chooser.SetSelection(3);
        Send(chooser, wxEVT_CHOICE, 3);
        EXPECT_EQ(TextOf(8), "SEASON_WINTER");
        EXPECT_FALSE(chooser.IsShown());
        Text1(7).SetFocus();
        PumpFor(milliseconds(100));
        Text1(8).SetFocus();
        EXPECT_TRUE(PumpUntil([&] { return chooser.IsShown(); }, milliseconds(3000)));
    });
}

TEST_F(Scenario, TakesTheSelectedWeather) {
    Edit(0, [this] {
        EXPECT_FALSE(In("Command3").IsEnabled());
        SelectIn("File1", "Drizzle.bin");
        EXPECT_TRUE(In("Command3").IsEnabled());
        Press(In("Command3"));
        EXPECT_EQ(TextOf(11), "Weather\\Drizzle.xml");
        EXPECT_EQ(TextOf(9), "Fernhollow");
    });
}

TEST_F(Scenario, WalksThroughTheFoldersOfWeather) {
    Edit(0, [this] {
        auto& folders = In<wxListBox>("Dir1");
        const int product = folders.GetSelection() - 1;
        folders.SetSelection(product);
        Send(folders, wxEVT_LISTBOX, product);
        EXPECT_THAT(ItemsOf("File1"), testing::Not(testing::Contains("Clear.bin")));
        EXPECT_EQ(folders.GetSelection(), product);
    });
}

TEST_F(Scenario, ShowsEveryControlWhole) {
    Edit(0, [this] {
        const wxSize opened = editor_->GetSize();
        const wxSize screen = wxDisplay(editor_).GetClientArea().GetSize();
        for (wxSize size : {editor_->GetMinSize(), opened, opened + editor_->FromDIP(wxSize(200, 150))}) {
            size.DecTo(screen - editor_->FromDIP(wxSize(20, 60))); // with room for the frame
            editor_->SetSize(wxRect(wxPoint(0, 0), size));
            ASSERT_TRUE(PumpUntil([&] { return editor_->GetSize() == size; }))
                << editor_->GetSize().x << "x" << editor_->GetSize().y << " for " << size.x << "x" << size.y;
            PumpFor(milliseconds(200));
            // Twelve fields with their labels, three warnings, the start in words, clock, calendar and chooser; three
            // frames, four lists, four buttons, and the status line.
            EXPECT_EQ(ExpectWellPlaced(*editor_), 24 + 3 + 4 + 3 + 4 + 4 + 1) << size.x << "x" << size.y;
        }
    });
}

TEST_F(Scenario, TakesTheTabKeyThroughItsFieldsInOrder) {
    Edit(0, [this] {
        editor_->Raise();
        Text1(0).SetFocus();
        ASSERT_TRUE(PumpUntil([&] { return Text1(0).HasFocus() && editor_->IsActive(); }));
        PumpFor(milliseconds(100));
        for (const char* const name : {"Text1(1)", "Text1(2)", "Text1(3)"}) {
            wxUIActionSimulator().Char(WXK_TAB);
            PumpFor(milliseconds(200));
            const wxWindow* const focused = wxWindow::FindFocus();
            ASSERT_NE(focused, nullptr) << name;
            EXPECT_EQ(FromWx(focused->GetName()), name);
        }
        Text1(11).SetFocus();
        for (const char* const name : {"Dir1", "File1"}) {
            wxUIActionSimulator().Char(WXK_TAB);
            PumpFor(milliseconds(200));
            const wxWindow* const focused = wxWindow::FindFocus();
            ASSERT_NE(focused, nullptr) << name;
            EXPECT_EQ(FromWx(focused->GetName()), name);
        }
    });
}

TEST_F(Scenario, ClosesWithTheEscapeKey) {
    bool isClosed = false;
    Edit(0, [this, &isClosed] {
        editor_->Raise();
        Text1(0).SetFocus();
        ASSERT_TRUE(PumpUntil([&] { return Text1(0).HasFocus() && editor_->IsActive(); }));
        PumpFor(milliseconds(100));
        wxUIActionSimulator().Char(WXK_ESCAPE);
        isClosed = PumpUntil([&] { return !editor_->IsShown(); }, milliseconds(5000));
    });
    EXPECT_TRUE(isClosed);
}

TEST_F(Scenario, LetsNoOtherCommandBeginWhileTheConverterRuns) {
    Edit(0, [this] {
        const Environment slow("TAMARIND_SERZ_DELAY_MS", "600");
        bool wasSeen = false;
        Later(milliseconds(300), [&] {
            wasSeen = !In("Command1").IsEnabled() && !In("Command2").IsEnabled() && !In("Command4").IsEnabled();
            editor_->Close(); // has to wait
        });
        dialogs_.AnswerMessage(kDriverUpdated);
        Press(In("Command4"));
        EXPECT_TRUE(wasSeen);
        EXPECT_TRUE(PumpUntil([&] { return !editor_->IsShown(); }, milliseconds(5000)));
    });
}

TEST_F(Scenario, DoesNotOpenOnARecordThatIsNotWhole) {
    OpenRoutes();
    ListScenariosOf(0);
    Select("List3", 0);
    std::string xml = XmlOf(IndexFile());
    xml.replace(xml.find("<Season "), 8, "<Saison ");
    xml.replace(xml.find("</Season>"), 9, "</Saison>");
    files_->Create(program_ + "\\TempFiles\\Scenarios.xml", platform::CreateMode::Overwrite)
        ->Write(xml.substr(0, xml.find("</cScenarioProperties>") + 22));
    dialogs_.AnswerMessage({.text = "This scenario cannot be edited: its record holds no whole \"Season\".",
                            .style = wxICON_EXCLAMATION | wxOK});
    Press(Button("Command7"));
}

} // namespace
} // namespace tamarind::tests

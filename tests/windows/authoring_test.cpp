#include "windows/placement.h"
#include "windows/routes_rig.h"

#include <wx/display.h>
#include <wx/textctrl.h>
#include <wx/treectrl.h>
#include <wx/uiaction.h>

#include <gmock/gmock.h>

#include <cctype>
#include <set>

// The windows for authors over the sample game.
namespace tamarind::tests {
namespace {

using platform::ForDisplay;
using platform::FromWx;
using platform::ToWx;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kFern = "\\Source\\Fernhollow";

class Authoring : public RoutesWindow {
protected:
    Authoring() {
        for (const char* const name : {"Blue_Named.xml", "Blue_Series.xml", "Blue_Route.xml"}) {
            const std::string file = std::string("\\BluePrints\\") + name;
            folder_.Write("Program" + file, platform::ReadBytes(*files_, platform::ExecutableFolder() + file));
        }
    }

    /// Expects the window to open, uses it, and closes it if `use` did not.
    void Expect(const std::string& name, std::function<void()> use) {
        dialogs_.UseDialog(name, [this, use = std::move(use)](wxDialog& dialog) {
            dialog_ = &dialog;
            PumpUntil([&dialog] { return dialog.IsShownOnScreen(); });
            PumpFor(milliseconds(100));
            use();
            if (dialog_ != nullptr && dialog.IsShown()) Press(In("Command2"));
        });
    }
    void ExpectFolders(std::function<void()> use) { Expect("frmFolder", std::move(use)); }
    void ExpectBlueprint(std::function<void()> use) { Expect("frmBlue", std::move(use)); }
    /// Goes to a folder of the sample game and confirms it.
    void ExpectFolder(const std::vector<std::string>& rows) {
        ExpectFolders([this, rows] {
            for (const std::string& row : rows)
                OpenRow(row);
            Press(In("Command1"));
        });
    }

    template <class Control = wxWindow> Control& In(const std::string& name) {
        return RoutesWindow::In<Control>(*dialog_, name);
    }
    std::string TextOf(const std::string& name) { return FromWx(In<wxTextCtrl>(name).GetValue()); }
    std::string LabelOf(const std::string& name) { return FromWx(In<wxControl>(name).GetLabelText()); }
    void TypeInto(const std::string& name, const std::string& text) { In<wxTextCtrl>(name).SetValue(ToWx(text)); }

    /// Clicks a row of Dir1; of several with the text the one that is deepest.
    void OpenRow(const std::string& text) {
        auto& rows = In<wxTreeCtrl>("Dir1");
        const wxTreeItemId found = Deepest(rows, rows.GetRootItem(), text);
        ASSERT_TRUE(found.IsOk()) << text;
        rows.SelectItem(found);
        rows.SetFocus();
        wxKeyEvent key(wxEVT_CHAR_HOOK);
        key.m_keyCode = WXK_RETURN;
        rows.GetEventHandler()->ProcessEvent(key);
        Pump();
    }
    static wxTreeItemId Deepest(const wxTreeCtrl& tree, const wxTreeItemId& row, const std::string& text) {
        wxTreeItemIdValue cookie = nullptr;
        for (wxTreeItemId child = tree.GetFirstChild(row, cookie); child.IsOk();
             child = tree.GetNextChild(row, cookie)) {
            const wxTreeItemId found = Deepest(tree, child, text);
            if (found.IsOk()) return found;
        }
        return tree.GetItemText(row) == ToWx(text) ? row : wxTreeItemId();
    }

    /// As small as it may be, as large as it opens, and larger.
    void ExpectWellPlacedAtEverySize(int controls) {
        const wxSize opened = dialog_->GetSize();
        const wxSize screen = wxDisplay(dialog_).GetClientArea().GetSize();
        for (wxSize size : {dialog_->GetMinSize(), opened, opened + dialog_->FromDIP(wxSize(200, 150))}) {
            size.DecTo(screen - dialog_->FromDIP(wxSize(20, 60))); // with room for the frame
            dialog_->SetSize(wxRect(wxPoint(0, 0), size));
            ASSERT_TRUE(PumpUntil([&] { return dialog_->GetSize() == size; }));
            PumpFor(milliseconds(200));
            EXPECT_EQ(ExpectWellPlaced(*dialog_), controls) << size.x << "x" << size.y;
        }
    }
    void FocusOn(const std::string& name) {
        dialog_->Raise();
        In(name).SetFocus();
        ASSERT_TRUE(PumpUntil([&] { return In(name).HasFocus() && dialog_->IsActive(); }));
        PumpFor(milliseconds(100));
    }
    void ExpectTabOrder(const std::vector<std::string>& names) {
        FocusOn(names.front());
        for (std::size_t i = 1; i < names.size(); ++i) {
            wxUIActionSimulator().Char(WXK_TAB);
            PumpFor(milliseconds(200));
            const wxWindow* const focused = wxWindow::FindFocus();
            ASSERT_NE(focused, nullptr) << names[i];
            EXPECT_EQ(FromWx(focused->GetName()), names[i]);
        }
    }
    void AddLoco() {
        folder_.Write("Rail Simulator\\Assets\\Kuju\\RailSimulator\\RailVehicles\\Diesel\\Class55\\Class55.bin",
                      "loco");
        folder_.MakeFolder("Rail Simulator\\Source\\Fernhollow\\AlderVale\\RailVehicles");
    }

    wxDialog* dialog_ = nullptr;
};

TEST_F(Authoring, AsksForADeveloperAndMakesTheFolder) {
    dialogs_.EnterText({.prompt = "Enter your Developer name (Use alpha characters only, no spaces)",
                        .title = "Developer Name",
                        .preset = ""},
                       "Heron");
    Choose("mnuDeveloper");
    EXPECT_TRUE(Exists(game_ + "\\Source\\Heron"));
    EXPECT_EQ(Status(), "Made " + ForDisplay(game_ + "\\Source\\Heron"));
}

TEST_F(Authoring, MakesNoDeveloperWithoutAnAnswer) {
    const auto before = folder_.Names("Rail Simulator\\Source");
    dialogs_.CancelText({.prompt = "Enter your Developer name (Use alpha characters only, no spaces)",
                         .title = "Developer Name",
                         .preset = ""});
    Choose("mnuDeveloper");
    EXPECT_EQ(folder_.Names("Rail Simulator\\Source"), before);
}

TEST_F(Authoring, RefusesADeveloperWhoIsThere) {
    dialogs_.EnterText({.prompt = "Enter your Developer name (Use alpha characters only, no spaces)",
                        .title = "Developer Name",
                        .preset = ""},
                       "Fernhollow");
    dialogs_.AnswerMessage({.text = "A Developer Folder with that name already exists. Please try again.",
                            .style = wxICON_EXCLAMATION | wxOK});
    Choose("mnuDeveloper");
}

TEST_F(Authoring, MakesTheFoldersOfAnAddOn) {
    ExpectFolders([this] {
        EXPECT_EQ(FromWx(dialog_->GetTitle()), "Select your Developer Folder");
        EXPECT_EQ(LabelOf("Label1"), "Enter Folder Name for Add-ON");
        EXPECT_EQ(LabelOf("Command1"), "Confirm");
        EXPECT_EQ(TextOf("Text1"), ForDisplay(game_ + "\\Source"));
        OpenRow("Fernhollow");
        EXPECT_EQ(TextOf("Text1"), ForDisplay(game_ + kFern));
        TypeInto("Text2", "New Line");
        EXPECT_EQ(LabelOf("Hint"), "Makes this folder and 24 folders in it.");
        Press(In("Command1"));
        EXPECT_FALSE(dialog_->IsShown());
    });
    Choose("mnuDevFolders");
    EXPECT_TRUE(Exists(game_ + kFern + "\\New Line\\Scenery\\Wildlife"));
    EXPECT_EQ(Status(), "Made " + ForDisplay(game_ + kFern + "\\New Line"));
}

TEST_F(Authoring, ClosesWithoutAMessageForAnAddOnThatIsThere) {
    ExpectFolders([this] {
        OpenRow("Fernhollow");
        TypeInto("Text2", "AlderVale");
        EXPECT_EQ(LabelOf("Hint"), "This folder exists already: nothing will be made.");
        Press(In("Command1"));
        EXPECT_FALSE(dialog_->IsShown());
    });
    Choose("mnuDevFolders");
    EXPECT_FALSE(Exists(game_ + kFern + "\\AlderVale\\Audio"));
}

TEST_F(Authoring, ClosesWithAMessageForANameThatNoFolderCanBear) {
    ExpectFolders([this] {
        TypeInto("Text2", "con");
        EXPECT_EQ(LabelOf("Hint"), "\"con\" is the name of a device in Windows. Please take another name.");
        dialogs_.AnswerMessage({.text = "\"con\" is the name of a device in Windows. Please take another name.",
                                .style = wxICON_EXCLAMATION | wxOK});
        Press(In("Command1"));
        EXPECT_FALSE(dialog_->IsShown());
    });
    Choose("mnuDevFolders");
}

TEST_F(Authoring, GoesToTheTopOfADrive) {
    ExpectFolders([this] {
        auto& drives = In<wxControl>("Drive1");
        wxCommandEvent event(wxEVT_CHOICE, drives.GetId());
        event.SetEventObject(&drives);
        drives.GetEventHandler()->ProcessEvent(event);
        Pump();
        EXPECT_EQ(TextOf("Text1"), ForDisplay(install::RootOf(install::DriveOf(game_))));
    });
    Choose("mnuDevFolders");
}

TEST_F(Authoring, OpensTheFolderOfTheRowWithRealKeys) {
    ExpectFolders([this] {
        for (const int key : {static_cast<int>(WXK_RETURN), static_cast<int>(WXK_SPACE)}) {
            FocusOn("Dir1");
            wxUIActionSimulator().Char(WXK_DOWN);
            PumpFor(milliseconds(200));
            wxUIActionSimulator().Char(key);
            PumpFor(milliseconds(200));
            EXPECT_TRUE(dialog_->IsShown());
        }
        // From "Source" down to the first folder in it, and from there to the first in that one.
        EXPECT_EQ(TextOf("Text1"), ForDisplay(game_ + kFern + "\\AlderVale"));
    });
    Choose("mnuDevFolders");
}

TEST_F(Authoring, AsksForTheNameOfAnAddOnAlone) {
    for (const char* const item : {"mnuMarkN", "mnuMarkS", "mnuRoute", "mnuCloneLoco"}) {
        ExpectFolders([this, item] {
            EXPECT_FALSE(In("Label1").IsShown()) << item;
            EXPECT_FALSE(In("Text2").IsShown()) << item;
        });
        Choose(item);
    }
}

TEST_F(Authoring, MakesABlueprintInTheChosenFolder) {
    ExpectFolders([this] {
        EXPECT_EQ(FromWx(dialog_->GetTitle()), "Select your RouteMarkers folder");
        for (const char* const row : {"Fernhollow", "AlderVale", "RouteMarkers"})
            OpenRow(row);
        Press(In("Command1"));
    });
    const std::string folder = game_ + kFern + "\\AlderVale\\RouteMarkers";
    ExpectBlueprint([this, folder] {
        EXPECT_EQ(FromWx(dialog_->GetTitle()), "BluePrint Designer");
        EXPECT_EQ(LabelOf("Label2"), "Set up Blueprint for a Named Marker file");
        EXPECT_EQ(LabelOf("Label1(0)"), "Named Marker File Name:");
        EXPECT_EQ(LabelOf("Label1(1)"), ".csv File Name:");
        EXPECT_EQ(LabelOf("Command1"), "Make Blueprint");
        EXPECT_EQ(LabelOf("Command2"), "Exit");
        TypeInto("Text1(0)", "Stops");
        TypeInto("Text1(1)", "Halts");
        EXPECT_EQ(LabelOf("Output"), "Makes " + ForDisplay(folder + "\\Stops.xml"));
        Press(In("Command1"));
        EXPECT_TRUE(dialog_->IsShown());
        EXPECT_EQ(LabelOf("StatusLine"), "Made " + ForDisplay(folder + "\\Stops.xml"));
        EXPECT_EQ(LabelOf("Output"), "Replaces " + ForDisplay(folder + "\\Stops.xml"));
        TypeInto("Text1(1)", "Stations.CSV");
        EXPECT_EQ(LabelOf("StatusLine"), "");
        Press(In("Command1")); // without a question
    });
    Choose("mnuMarkN");
    EXPECT_THAT(ReadFile(folder + "\\Stops.xml"), HasSubstr(">Stations.CSV</MarkerFile>"));
}

TEST_F(Authoring, ShowsTheRowsOfEachMode) {
    struct Mode {
        const char* item;
        const char* caption;
        const char* heading;
        std::vector<std::string> labels;
    };
    const std::vector<Mode> modes{{"mnuMarkN",
                                   "Select your RouteMarkers folder",
                                   "Set up Blueprint for a Named Marker file",
                                   {"Named Marker File Name:", ".csv File Name:"}},
                                  {"mnuMarkS",
                                   "Select your RouteMarkers folder",
                                   "Set up Blueprint for a Series Marker file",
                                   {"Series Marker File Name:", ".csv File Name:"}},
                                  {"mnuRoute",
                                   "Select your TemplateRoutes folder",
                                   "Set up Blueprint for a Route Template",
                                   {"Route Template Name:", "Longitude:", "Latitude:"}}};
    for (const Mode& mode : modes) {
        ExpectFolders([this, &mode] {
            EXPECT_EQ(FromWx(dialog_->GetTitle()), mode.caption);
            Press(In("Command1"));
        });
        ExpectBlueprint([this, &mode] {
            EXPECT_EQ(LabelOf("Label2"), mode.heading);
            std::vector<std::string> labels;
            for (const char* const row : {"(0)", "(1)", "(2)", "(3)", "(4)"}) {
                EXPECT_EQ(In(std::string("Label1") + row).IsShown(), In(std::string("Text1") + row).IsShown());
                if (In(std::string("Text1") + row).IsShown()) labels.push_back(LabelOf(std::string("Label1") + row));
            }
            EXPECT_EQ(labels, mode.labels);
        });
        Choose(mode.item);
    }
}

TEST_F(Authoring, MakesTheBlueprintOfARoute) {
    ExpectFolder({"Fernhollow"});
    ExpectBlueprint([this] {
        TypeInto("Text1(0)", "New Vale");
        TypeInto("Text1(1)", "-1.75");
        TypeInto("Text1(2)", " 51,25");
        Press(In("Command1"));
    });
    Choose("mnuRoute");
    const std::string xml = ReadFile(game_ + kFern + "\\New Vale.xml");
    EXPECT_THAT(xml, HasSubstr(">-1.75</Longitude>"));
    EXPECT_THAT(xml, HasSubstr("> 51,25</Latitude>"));
}

TEST_F(Authoring, OpensNoBlueprintWithoutAFolder) {
    ExpectFolders([this] { Press(In("Command2")); });
    Choose("mnuMarkN");
}

TEST_F(Authoring, WarnsOfMarkupWhileItIsTyped) {
    ExpectFolder({});
    ExpectBlueprint([this] {
        TypeInto("Text1(0)", "R&B");
        EXPECT_EQ(LabelOf("Warning(0)"), "\"&\" breaks the blueprint: leave it out.");
        TypeInto("Text1(1)", "a<b");
        EXPECT_EQ(LabelOf("Warning(1)"), "\"<\" breaks the blueprint: write \"&lt;\".");
        TypeInto("Text1(0)", "RB");
        EXPECT_EQ(LabelOf("Warning(0)"), "");
    });
    Choose("mnuMarkS");
}

TEST_F(Authoring, RefusesABlueprintWithoutAName) {
    ExpectFolder({});
    ExpectBlueprint([this] {
        dialogs_.AnswerMessage({.text = "Please enter a name.", .style = wxICON_EXCLAMATION | wxOK});
        Press(In("Command1"));
    });
    Choose("mnuMarkS");
}

TEST_F(Authoring, CopiesALoco) {
    AddLoco();
    ExpectFolders([this] {
        EXPECT_EQ(FromWx(dialog_->GetTitle()), "Choose Loco Folder To Clone");
        OpenRow("Diesel");
        Press(In("Command1"));
        EXPECT_EQ(TextOf("Text1"), "");
        EXPECT_FALSE(In("Command1").IsEnabled());
        OpenRow("Class55");
        EXPECT_EQ(LabelOf("Hint"), "Makes a copy of Class55.");
        Press(In("Command1"));
        EXPECT_FALSE(dialog_->IsShown());
    });
    dialogs_.AnswerMessage({.text = "You must select a loco folder in the top level, e.g. Diesel\\Class55 etc",
                            .style = wxICON_EXCLAMATION | wxOK});
    dialogs_.EnterText(
        {.prompt = "Enter a name for the folder of the copy", .title = "Clone Loco", .preset = "Class55"}, "Heron");
    ExpectFolder({"Fernhollow", "AlderVale", "RailVehicles"});
    const std::string copy = game_ + kFern + "\\AlderVale\\RailVehicles\\Heron";
    dialogs_.AnswerMessage({.text = "The copy of the loco is now in \n" + ForDisplay(copy) +
                                    "\nThe texts inside its files are unchanged and still name the original.",
                            .style = wxICON_INFORMATION | wxOK | wxHELP});
    Choose("mnuCloneLoco");
    EXPECT_EQ(ReadFile(copy + "\\Class55.bin"), "loco");
}

TEST_F(Authoring, ShowsEveryControlOfTheFolderWindowWhole) {
    AddLoco();
    // Three labels, the chosen folder, drive, folders in their border, hint, status line and two buttons.
    for (const char* const item : {"mnuMarkN", "mnuRoute", "mnuCloneLoco"}) {
        ExpectFolders([this] { ExpectWellPlacedAtEverySize(11); });
        Choose(item);
    }
    // With the name and its label.
    ExpectFolders([this] { ExpectWellPlacedAtEverySize(13); });
    Choose("mnuDevFolders");
}

TEST_F(Authoring, ShowsEveryControlOfABlueprintWhole) {
    // The heading, a label, a warning and a field for each row, the output, the status line and two buttons.
    for (const auto& [item, controls] : {std::pair("mnuMarkN", 11), {"mnuMarkS", 11}, {"mnuRoute", 14}}) {
        ExpectFolder({});
        ExpectBlueprint([this, controls = controls] {
            TypeInto("Text1(0)", "R&B");
            TypeInto("Text1(1)", "a<b");
            ExpectWellPlacedAtEverySize(controls);
        });
        Choose(item);
    }
}

TEST_F(Authoring, GivesEachLetterToOneControl) {
    const auto expectLetters = [this](const std::multiset<char>& letters) {
        std::multiset<char> found;
        for (const wxWindow* const child : dialog_->GetChildren()) {
            const std::string label = FromWx(child->GetLabel());
            const std::size_t at = label.find('&');
            // The system's own Cancel has a letter on some systems.
            const bool isCancel = label == "&Cancel" && letters.count('c') == 0;
            const bool hasLetter = child->IsShown() && !isCancel && at != std::string::npos && at + 1 < label.size();
            if (hasLetter) found.insert(static_cast<char>(std::tolower(label[at + 1])));
        }
        EXPECT_EQ(found, letters);
    };
    ExpectFolders([&] { expectLetters({'d', 'o', 'n', 'f'}); });
    Choose("mnuDevFolders");
    for (const auto& [item, letters] : {std::pair<const char*, std::multiset<char>>("mnuMarkN", {'n', 'c', 'b', 'x'}),
                                        {"mnuMarkS", {'s', 'c', 'b', 'x'}},
                                        {"mnuRoute", {'r', 'l', 'a', 'b', 'x'}}}) {
        ExpectFolder({});
        ExpectBlueprint([&] { expectLetters(letters); });
        Choose(item);
    }
}

TEST_F(Authoring, TakesTheTabKeyThroughTheFolderWindow) {
    ExpectFolders([this] { ExpectTabOrder({"Dir1", "Text2", "Command1", "Command2"}); });
    Choose("mnuDevFolders");
}

TEST_F(Authoring, TakesTheTabKeyThroughABlueprint) {
    ExpectFolder({});
    ExpectBlueprint([this] { ExpectTabOrder({"Text1(0)", "Text1(1)", "Text1(2)", "Command1", "Command2"}); });
    Choose("mnuRoute");
}

TEST_F(Authoring, MakesABlueprintWithTheEnterKeyAndClosesWithEscape) {
    ExpectFolder({"Fernhollow"});
    ExpectBlueprint([this] {
        TypeInto("Text1(0)", "Stops");
        TypeInto("Text1(1)", "Halts");
        FocusOn("Text1(1)");
        wxUIActionSimulator().Char(WXK_RETURN);
        EXPECT_TRUE(PumpUntil([this] { return Exists(game_ + kFern + "\\Stops.xml"); }, milliseconds(5000)));
        PumpFor(milliseconds(200));
        wxUIActionSimulator().Char(WXK_ESCAPE);
        EXPECT_TRUE(PumpUntil([this] { return !dialog_->IsShown(); }, milliseconds(5000)));
    });
    Choose("mnuMarkN");
}

} // namespace
} // namespace tamarind::tests

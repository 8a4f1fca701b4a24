#include "windows/routes_rig.h"

#include <gmock/gmock.h>

namespace tamarind::tests {
namespace {

using platform::ForDisplay;
using platform::FromWx;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string kAlder(samples::kAlderRoute);
constexpr const char* kMilk = "5a1e0d20-0001-4c00-9a10-7a3a21d0b001";
constexpr const char* kShunt = "5a1e0d20-0003-4c00-9a10-7a3a21d0b003";

/// The routes window as the menu items of the packagers open it. The message at the end has a second button.
class Packaging : public RoutesWindow {
protected:
    Packaging() { folder_.Write("Program\\RouteSetup.exe", "setup"); }
    void OpenRoutesWith(const std::string& item) {
        Choose(item);
        AwaitRoutes();
    }
    void ExpectMessage(const std::string& text, int answer = wxID_OK) {
        dialogs_.AnswerMessage({.text = text, .style = wxICON_INFORMATION | wxOK | wxHELP}, answer);
    }
};

TEST_F(Packaging, OfARouteTakesItFromTheListsAndStaysOpen) {
    OpenRoutesWith("mnuPack");
    EXPECT_EQ(FromWx(routes_->GetTitle()), "Select Route to Package");
    const std::string package = program_ + "\\Ligne du Bois Perdu";
    ExpectMessage("You may now zip up the folder " + ForDisplay(package) + "\nready for distribution.");
    Select("List1", 1);
    Press(Button("OKButton"));
    ASSERT_TRUE(PumpUntil([this] { return dialogs_.AllCame(); }));
    ASSERT_TRUE(routes_);
    EXPECT_THAT(Items(List("List1")), ElementsAre("Alder Vale to Quillmouth", "Thornby &amp; Marrow Junction"));
    EXPECT_EQ(List("List2").GetCount(), 2U);
    EXPECT_EQ(ReadFile(package + "\\RouteSetup.exe"), "setup");
    EXPECT_THAT(ReadFile(package + "\\Route_Setup.xxx"), testing::StartsWith("<cRouteProperties"));
    EXPECT_TRUE(Exists(package + "\\Rail Simulator\\Content\\Routes\\" + std::string(samples::kBoisRoute) +
                       "\\RouteProperties.xml"));
}

TEST_F(Packaging, OfTwoSelectedRoutesTakesTheFirstAndKeepsTheOtherSelected) {
    OpenRoutesWith("mnuPack");
    ExpectMessage("You may now zip up the folder " + ForDisplay(program_ + "\\Ligne du Bois Perdu") +
                  "\nready for distribution.");
    Select("List1", 1);
    Select("List1", 2);
    Press(Button("OKButton"));
    ASSERT_TRUE(PumpUntil([this] { return dialogs_.AllCame(); }));
    EXPECT_THAT(Selected(List("List1")), ElementsAre(1));
    EXPECT_THAT(Selected(List("List2")), ElementsAre(1));
}

TEST_F(Packaging, OfNoRouteDoesNothing) {
    OpenRoutesWith("mnuPack");
    Press(Button("OKButton"));
    EXPECT_EQ(List("List1").GetCount(), 3U);
}

TEST_F(Packaging, WithoutTheSetupProgramSaysWhatWasMade) {
    files_->Remove(program_ + "\\RouteSetup.exe");
    OpenRoutesWith("mnuPack");
    dialogs_.AnswerMessage({.text = "The route could not be packaged: File not found\n" +
                                    ForDisplay(program_ + "\\RouteSetup.exe") + "\nAlready made, and kept:\n" +
                                    ForDisplay(program_ + "\\Ligne du Bois Perdu") + "\nRoute_Setup.xxx",
                            .style = wxICON_EXCLAMATION | wxOK});
    Select("List1", 1);
    Press(Button("OKButton"));
    ASSERT_TRUE(PumpUntil([this] { return dialogs_.AllCame(); }));
    EXPECT_FALSE(Exists(program_ + "\\Ligne du Bois Perdu\\RouteSetup.exe"));
}

TEST_F(Packaging, OfScenariosShowsWhatIsInThePackage) {
    OpenRoutesWith("mnuPackSce");
    ListScenariosOf(0);
    EXPECT_THAT(Items(List("List4")), IsEmpty());
    Select("List3", 2);
    Press(Button("Command5"));
    Select("List3", 0);
    Press(Button("Command5"));
    const std::string scenarios = "Rail Simulator\\content\\Routes\\" + kAlder + "\\Scenarios\\";
    EXPECT_THAT(Items(List("List1")), ElementsAre(scenarios + kShunt, scenarios + kMilk));
    EXPECT_THAT(Items(List("List2")), IsEmpty());
    EXPECT_THAT(Items(List("List4")),
                ElementsAre(RoutePath(kAlder) + "\\Scenarios\\" + kShunt, RoutePath(kAlder) + "\\Scenarios\\" + kMilk));
    EXPECT_EQ(StatusLine(), "2 scenarios in the package");
    EXPECT_FALSE(Button("Command1").IsEnabled());
}

TEST_F(Packaging, OfScenariosAddsTheFirstSelectedAndLeavesTheOthersSelected) {
    OpenRoutesWith("mnuPackSce");
    ListScenariosOf(0);
    Select("List3", 0);
    Select("List3", 2);
    Press(Button("Command5"));
    EXPECT_THAT(Selected(List("List3")), ElementsAre(2));
    Press(Button("Command5"));
    EXPECT_EQ(List("List4").GetCount(), 2U);
    EXPECT_THAT(Selected(List("List3")), IsEmpty());
}

TEST_F(Packaging, OfScenariosAppendsTheLastOneAgainWithoutASelection) {
    OpenRoutesWith("mnuPackSce");
    ListScenariosOf(0);
    Select("List3", 0);
    Press(Button("Command5"));
    Press(Button("Command5"));
    EXPECT_EQ(List("List1").GetCount(), 2U);
    EXPECT_EQ(List("List4").GetCount(), 1U);
}

TEST_F(Packaging, OfScenariosMakesThePackage) {
    OpenRoutesWith("mnuPackSce");
    UseOwnCopyProgram();
    ListScenariosOf(0);
    Select("List3", 2);
    Press(Button("Command5"));
    const std::string package = program_ + "\\" + kShunt;
    ExpectMessage("Your Scenarios are now saved in \n" + ForDisplay(package) +
                  "\nYou may now zip up this folder and distribute it.");
    Press(Button("Command6"));
    ASSERT_TRUE(PumpUntil([this] { return dialogs_.AllCame() && Button("Command6").IsEnabled(); }));
    EXPECT_EQ(ReadFile(package + "\\AssetSetup.exe"), "setup");
    EXPECT_EQ(ReadFile(package + "\\Scenario.yyy"), kAlder + "\r\n" + kShunt + "\r\n");
    EXPECT_TRUE(
        Exists(package + "\\Rail Simulator\\content\\Routes\\" + kAlder + "\\Scenarios\\" + kShunt + "\\Scenario.bin"));
}

TEST_F(Packaging, OfARouteClosesAWindowOfTheOtherJob) {
    OpenRoutes();
    const wxWeakRef<wxTopLevelWindow> before = routes_;
    Choose("mnuPack");
    ASSERT_TRUE(PumpUntil([&before] { return !before; }));
    AwaitRoutes();
    EXPECT_EQ(FromWx(routes_->GetTitle()), "Select Route to Package");
}

TEST_F(Packaging, OfScenariosIsNotLostToTheOtherJobs) {
    OpenRoutesWith("mnuPackSce");
    ListScenariosOf(0);
    Press(Button("Command5"));
    Choose("mnuDelRoute");
    ASSERT_TRUE(routes_);
    EXPECT_EQ(StatusLine(), "Please close this window first: it packages scenarios.");
    EXPECT_EQ(List("List1").GetCount(), 1U);
}

/// The asset packager's window.
class AssetPackaging : public RoutesWindow {
protected:
    AssetPackaging() { folder_.Write("Program\\RouteSetup.exe", "setup"); }
    void OpenAssets() {
        Choose("mnuPackAss");
        assets_ = &TopLevel("frmFolder3");
        ASSERT_TRUE(PumpUntil([this] { return assets_->IsShownOnScreen(); }));
        Pump();
    }
    template <class Control = wxControl> Control& Of(const std::string& name) { return In<Control>(*assets_, name); }
    std::string TextOf(const std::string& name) { return FromWx(Of<wxTextCtrl>(name).GetValue()); }
    std::vector<std::string> Folders() {
        std::vector<std::string> names;
        wxTreeCtrl& tree = Of<wxTreeCtrl>("Dir1");
        for (wxTreeItemId item = tree.GetRootItem(); item.IsOk(); item = tree.GetNextVisible(item))
            names.push_back(FromWx(tree.GetItemText(item)));
        return names;
    }
    wxTreeItemId Folder(const std::string& name) {
        wxTreeCtrl& tree = Of<wxTreeCtrl>("Dir1");
        for (wxTreeItemId item = tree.GetRootItem(); item.IsOk(); item = tree.GetNextVisible(item)) {
            if (FromWx(tree.GetItemText(item)) == name) return item;
        }
        throw std::runtime_error("no such folder: " + name);
    }
    void ClickFolder(const std::string& name) {
        wxTreeCtrl& tree = Of<wxTreeCtrl>("Dir1");
        wxRect place;
        ASSERT_TRUE(tree.GetBoundingRect(Folder(name), place, true));
        wxMouseEvent click(wxEVT_LEFT_DOWN);
        click.SetEventObject(&tree);
        click.SetPosition(place.GetPosition() + place.GetSize() / 2);
        tree.GetEventHandler()->ProcessEvent(click);
        Pump();
    }
    wxWeakRef<wxTopLevelWindow> assets_;
};

TEST_F(AssetPackaging, BeginsInTheGamesAssets) {
    OpenAssets();
    EXPECT_EQ(FromWx(assets_->GetTitle()), "Select Folder containing your Assets");
    EXPECT_EQ(TextOf("Text1"), ForDisplay(game_ + "\\Assets"));
    EXPECT_EQ(TextOf("Text2"), "*.*");
    const std::vector<std::string> folders = Folders();
    ASSERT_GE(folders.size(), 4U);
    EXPECT_THAT(std::vector<std::string>(folders.end() - 4, folders.end()),
                ElementsAre("Rail Simulator", "Assets", "Fernhollow", "Tansywick"));
    EXPECT_FALSE(Of("Command1").IsEnabled());
}

TEST_F(AssetPackaging, GoesIntoAClickedFolderAndListsItsFiles) {
    OpenAssets();
    ClickFolder("Tansywick");
    EXPECT_EQ(TextOf("Text1"), ForDisplay(game_ + "\\Assets\\Tansywick"));
    EXPECT_TRUE(Of("Command1").IsEnabled());
    EXPECT_EQ(Folders().back(), "HarbourSet");
}

TEST_F(AssetPackaging, SaysWhyAClickedFolderCannotBeAdded) {
    OpenAssets();
    ClickFolder(Folders().front());
    EXPECT_EQ(FromWx(In<wxStaticText>(*assets_, "StatusLine").GetLabelText()),
              "This folder cannot be added: its path does not contain \"Rail Simulator\".");
    EXPECT_FALSE(Of("Command1").IsEnabled());
}

TEST_F(AssetPackaging, OpensTheSelectedFolderWithTheKeyboard) {
    OpenAssets();
    wxTreeCtrl& tree = Of<wxTreeCtrl>("Dir1");
    tree.SelectItem(Folder("Fernhollow"));
    Pump();
    EXPECT_EQ(TextOf("Text1"), ForDisplay(game_ + "\\Assets")) << "the arrow keys open nothing";
    wxKeyEvent key(wxEVT_CHAR_HOOK);
    key.SetEventObject(&tree);
    key.m_keyCode = WXK_RETURN;
    tree.GetEventHandler()->ProcessEvent(key);
    Pump();
    EXPECT_EQ(TextOf("Text1"), ForDisplay(game_ + "\\Assets\\Fernhollow"));
}

TEST_F(AssetPackaging, FiltersTheFilesByThePattern) {
    folder_.Write("Rail Simulator\\Assets\\Mine\\one.txt", "1");
    folder_.Write("Rail Simulator\\Assets\\Mine\\two.bin", "22");
    OpenAssets();
    ClickFolder("Mine");
    EXPECT_THAT(Items(Of<wxListBox>("File1")), testing::UnorderedElementsAre("one.txt", "two.bin"));
    Of<wxTextCtrl>("Text2").SetValue("*.bin");
    Pump();
    EXPECT_THAT(Items(Of<wxListBox>("File1")), ElementsAre("two.bin"));
    Of<wxTextCtrl>("Text2").SetValue("");
    Pump();
    EXPECT_EQ(TextOf("Text2"), "*.*");
    EXPECT_EQ(Of<wxListBox>("File1").GetCount(), 2U);
}

TEST_F(AssetPackaging, ShowsPathFilesAndSizeOfASelectedEntry) {
    folder_.Write("Rail Simulator\\Assets\\Mine\\one.txt", "1");
    folder_.Write("Rail Simulator\\Assets\\Mine\\two.bin", "22");
    OpenAssets();
    ClickFolder("Mine");
    Press(Of("Command1"));
    EXPECT_THAT(Items(Of<wxListBox>("List1")), ElementsAre("Rail Simulator\\Assets\\Mine"));
    Of<wxListBox>("List1").SetSelection(0);
    Send(Of<wxListBox>("List1"), wxEVT_LISTBOX, 0);
    EXPECT_EQ(TextOf("Text3"), ForDisplay(game_ + "\\Assets\\Mine") + ": 2 files, 3 bytes");
}

TEST_F(AssetPackaging, CopiesARemovedFolderNevertheless) {
    folder_.Write("Rail Simulator\\Assets\\Mine\\one.txt", "1");
    OpenAssets();
    UseOwnCopyProgram();
    ClickFolder("Mine");
    Press(Of("Command1"));
    Of<wxListBox>("List1").SetSelection(0);
    Press(Of("Command4"));
    EXPECT_EQ(Of<wxListBox>("List1").GetCount(), 0U);
    dialogs_.AnswerMessage({.text = "Your assets are now saved in \n" + ForDisplay(program_ + "\\Mine") +
                                    "\nYou may now zip up this folder and distribute it.",
                            .style = wxICON_INFORMATION | wxOK | wxHELP});
    Press(Of("Command3"));
    ASSERT_TRUE(PumpUntil([this] { return dialogs_.AllCame() && Of("Command3").IsEnabled(); }));
    EXPECT_EQ(ReadFile(program_ + "\\Mine\\Rail Simulator\\Assets\\Mine\\one.txt"), "1");
    EXPECT_EQ(ReadFile(program_ + "\\Mine\\AssetSetup.exe"), "setup");
}

TEST_F(AssetPackaging, EndsWithTheExitButton) {
    OpenAssets();
    EXPECT_EQ(session_.Routes.AssetPackMode, session::kSet);
    Press(Of("Command2"));
    EXPECT_TRUE(PumpUntil([this] { return !assets_; }));
    EXPECT_EQ(session_.Routes.AssetPackMode, 0);
}

TEST_F(AssetPackaging, EndsWithTheMainWindow) {
    OpenAssets();
    Close();
    EXPECT_FALSE(assets_);
}

TEST_F(AssetPackaging, IsNotLostToThePackagingOfScenarios) {
    OpenAssets();
    ClickFolder("Tansywick");
    Press(Of("Command1"));
    Choose("mnuPackSce");
    EXPECT_EQ(FromWx(In<wxStaticText>(*assets_, "StatusLine").GetLabelText()),
              "Please close this window first: it packages assets.");
    EXPECT_EQ(Of<wxListBox>("List1").GetCount(), 1U);
}

} // namespace
} // namespace tamarind::tests

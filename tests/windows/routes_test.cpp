#include "windows/routes_rig.h"

#include <gmock/gmock.h>

namespace tamarind::tests {
namespace {

using platform::ForDisplay;
using platform::FromWx;
using session::kSet;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const std::string kAlder(samples::kAlderRoute);
const std::string kBois(samples::kBoisRoute);
const std::string kThornby(samples::kThornbyRoute);
constexpr const char* kMilk = "5a1e0d20-0001-4c00-9a10-7a3a21d0b001";
constexpr const char* kMail = "5a1e0d20-0002-4c00-9a10-7a3a21d0b002";
constexpr const char* kShunt = "5a1e0d20-0003-4c00-9a10-7a3a21d0b003";

const ExpectedDialogs::MessageBox kDeleteRoute{.text = "Do you really wish to delete the selected route(s)?",
                                               .style = wxICON_EXCLAMATION | wxYES_NO};
const ExpectedDialogs::MessageBox kDeleteScenario{.text = "Do you really wish to delete the selected scenario?",
                                                  .style = wxICON_EXCLAMATION | wxYES_NO};

using Routes = RoutesWindow;

TEST_F(Routes, AreListedWithTheirFolders) {
    OpenRoutes();
    EXPECT_THAT(Items(List("List1")),
                ElementsAre("Alder Vale to Quillmouth", "Ligne du Bois Perdu", "Thornby &amp; Marrow Junction"));
    EXPECT_THAT(Items(List("List2")), ElementsAre(kAlder, kBois, kThornby));
    EXPECT_EQ(StatusLine(), "3 routes");
}

TEST_F(Routes, AreListedInAFixedPitchFont) {
    OpenRoutes();
    for (const char* const name : {"List1", "List2", "List3", "List4", "File1"})
        EXPECT_TRUE(List(name).GetFont().IsFixedWidth()) << name;
}

TEST_F(Routes, ShowTheSelectedOnesPathAndFiles) {
    OpenRoutes();
    Select("List1", 1);
    EXPECT_EQ(StatusLine(), "3 routes   " + ForDisplay(RoutePath(kBois)));
    EXPECT_THAT(Items(List("File1")), testing::UnorderedElementsAre("RouteProperties.xml", "Scenarios.bin"));
}

TEST_F(Routes, AreSelectedInBothColumnsAtOnce) {
    OpenRoutes();
    Select("List1", 2);
    EXPECT_THAT(Selected(List("List2")), ElementsAre(2));
    List("List2").DeselectAll();
    Select("List2", 0);
    EXPECT_THAT(Selected(List("List1")), ElementsAre(0));
}

struct Mode {
    std::int16_t routeFormMode;
    std::int16_t scenarioPackMode;
    std::string title;
    std::string okCaption;
    std::vector<std::string> hidden;
};

class RouteModes : public RoutesWindow, public testing::WithParamInterface<Mode> {};

TEST_P(RouteModes, HaveTheirTitleCaptionsAndHiddenButtons) {
    OpenRoutesFor(GetParam().routeFormMode, GetParam().scenarioPackMode);
    EXPECT_EQ(FromWx(routes_->GetTitle()), GetParam().title);
    const std::vector<std::pair<std::string, std::string>> captions = {
        {"Command1", "List Scenarios in Selected Route"},
        {"Command2", "Delete Selected Scenario"},
        {"Command3", "List Stock used by selected Scenario"},
        {"Command4", "Check Selected Route"},
        {"Command5", "Add to Package"},
        {"Command6", "Process Package"},
        {"Command7", "Edit Selected Scenario"},
        {"OKButton", GetParam().okCaption},
        {"CancelButton", "Exit"},
    };
    for (const auto& [name, caption] : captions) {
        EXPECT_EQ(FromWx(Button(name).GetLabelText()), caption) << name;
        const bool isHidden =
            std::find(GetParam().hidden.begin(), GetParam().hidden.end(), name) != GetParam().hidden.end();
        EXPECT_EQ(Button(name).IsShown(), !isHidden) << name;
    }
    EXPECT_EQ(FromWx(Button("CancelButton").GetLabel()), "&Exit");
}

const std::vector<std::string> kPackaging{"Command5", "Command6"};
const std::vector<std::string> kDeletingAndChecking{"Command2", "Command3", "Command4", "OKButton"};

INSTANTIATE_TEST_SUITE_P(Of, RouteModes,
                         testing::Values(Mode{0, 0, "Select Route", "Delete Selected Route", kPackaging},
                                         Mode{kSet, 0, "Select Route to Package", "Package Selected Route", kPackaging},
                                         Mode{0, kSet, "Select Route", "Delete Selected Route", kDeletingAndChecking},
                                         Mode{kSet, kSet, "Select Route to Package", "Package Selected Route",
                                              kDeletingAndChecking}));

TEST_F(Routes, NameTheirColumns) {
    OpenRoutes();
    std::vector<std::string> labels;
    for (const wxWindow* const child : routes_->GetChildren()) {
        const auto* const label = dynamic_cast<const wxStaticText*>(child);
        if (label != nullptr && label->GetName() != "StatusLine") labels.push_back(FromWx(label->GetLabelText()));
    }
    EXPECT_THAT(labels,
                ElementsAre("Route Name", "Route Folder", "Scenario Name", "Scenario Folder", "Files in Route Folder"));
}

TEST_F(Routes, NeedScenariosListedForTheButtonsOfScenarios) {
    OpenRoutes();
    EXPECT_FALSE(Button("Command2").IsEnabled());
    EXPECT_FALSE(Button("Command3").IsEnabled());
    EXPECT_FALSE(Button("Command7").IsEnabled());
    ListScenariosOf(0);
    EXPECT_TRUE(Button("Command2").IsEnabled());
    EXPECT_TRUE(Button("Command3").IsEnabled());
    EXPECT_TRUE(Button("Command7").IsEnabled());
}

TEST_F(Routes, ComeToTheFrontWhenTheMenuItemIsChosenAgain) {
    OpenRoutes();
    Choose("mnuDelRoute");
    int open = 0;
    for (const wxWindow* const window : wxTopLevelWindows)
        open += window->GetName() == "frmDelRoute" ? 1 : 0;
    EXPECT_EQ(open, 1);
}

TEST_F(Routes, CloseWithTheExitButtonAndEndThePackagingOfScenarios) {
    OpenRoutesFor(0, kSet);
    Press(Button("CancelButton"));
    EXPECT_TRUE(PumpUntil([this] { return !routes_; }));
    EXPECT_EQ(session_.Routes.ScenarioPackMode, 0);
}

TEST_F(Routes, CloseWithTheMainWindow) {
    OpenRoutes();
    ListScenariosOf(0);
    Close();
    EXPECT_FALSE(routes_);
}

TEST_F(Routes, EndTheProgramWhenTheirIndexIsNotWhole) {
    folder_.Write("Rail Simulator\\Content\\Routes.xml", "<DevString>r1</DevString><English>Al");
    dialogs_.AnswerMessage({.text = "Run-time error '5':\n\nInvalid procedure call or argument\n\n" +
                                    ForDisplay(game_ + "\\Content\\Routes.xml") +
                                    "\nThe routes index is not whole.\n\nTamarind ends now.",
                            .style = wxICON_ERROR | wxOK});
    Choose("mnuDelRoute");
    EXPECT_TRUE(PumpUntil([this] { return !window_; }));
}

TEST_F(Routes, ListTheScenariosOfTheSelectedOne) {
    OpenRoutes();
    ListScenariosOf(0);
    EXPECT_THAT(Items(List("List3")),
                ElementsAre("Morning Milk", "Nachtpost nach Quillm\xC3\xBCnde", "Harbour Shunt &amp; Return"));
    EXPECT_THAT(Items(List("List4")), ElementsAre(kMilk, kMail, kShunt));
    EXPECT_FALSE(List("File1").IsShown());
    EXPECT_THAT(Selected(List("List1")), IsEmpty());
    EXPECT_THAT(Selected(List("List2")), IsEmpty());
    EXPECT_EQ(StatusLine(), "3 routes   Scenarios of " + ForDisplay(RoutePath(kAlder)));
}

TEST_F(Routes, ListTheScenariosOfTheLowerOneOfTwo) {
    OpenRoutes();
    ListScenariosOf(1);
    EXPECT_THAT(Items(List("List3")), IsEmpty());
    Select("List1", 0);
    Select("List1", 1);
    Press(Button("Command1"));
    EXPECT_THAT(Items(List("List3")), IsEmpty());
    EXPECT_EQ(StatusLine(), "3 routes   Scenarios of " + ForDisplay(RoutePath(kBois)));
}

TEST_F(Routes, ListTheirScenariosWithADoubleClick) {
    OpenRoutes();
    Select("List1", 0);
    Send(List("List1"), wxEVT_LISTBOX_DCLICK, 0);
    EXPECT_TRUE(PumpUntil([this] { return List("List4").GetCount() == 3; }));
}

TEST_F(Routes, KeepTheListedScenariosWhenNoneIsSelected) {
    OpenRoutes();
    ListScenariosOf(0);
    Press(Button("Command1"));
    EXPECT_EQ(List("List3").GetCount(), 3U);
}

TEST_F(Routes, AskForASelectionWhereNoneIs) {
    OpenRoutes();
    Press(Button("Command4"));
    EXPECT_EQ(StatusLine(), "Please select a route first.");
    ListScenariosOf(0);
    Press(Button("Command3"));
    EXPECT_EQ(StatusLine(), "Please select a scenario first.");
}

TEST_F(Routes, AreDeletedWithTheAnswerYesAndTheWindowCloses) {
    OpenRoutes();
    const std::string index = ReadFile(game_ + "\\Content\\Routes.xml");
    Select("List1", 1);
    dialogs_.AnswerMessage(kDeleteRoute, wxID_YES);
    Press(Button("OKButton"));
    EXPECT_TRUE(PumpUntil([this] { return !routes_; }));
    EXPECT_FALSE(Exists(RoutePath(kBois)));
    EXPECT_TRUE(Exists(RoutePath(kAlder)));
    EXPECT_THAT(ReadFile(game_ + "\\Content\\Routes.xml"), Not(HasSubstr(kBois)));
    EXPECT_EQ(ReadFile(program_ + "\\TempFiles\\Recovered\\Routes.xml"), index);
    EXPECT_EQ(Status(),
              "The routes index as it was is kept in " + ForDisplay(program_ + "\\TempFiles\\Recovered\\Routes.xml"));
}

TEST_F(Routes, StayWithTheAnswerNo) {
    OpenRoutes();
    Select("List1", 1);
    dialogs_.AnswerMessage(kDeleteRoute, wxID_NO);
    Press(Button("OKButton"));
    EXPECT_TRUE(Exists(RoutePath(kBois)));
    EXPECT_THAT(Selected(List("List1")), ElementsAre(1));
    EXPECT_TRUE(Button("OKButton").IsEnabled());
}

TEST_F(Routes, AreDeletedOneAtATime) {
    OpenRoutes();
    Select("List1", 1);
    Select("List1", 2);
    dialogs_.AnswerMessage(kDeleteRoute, wxID_YES);
    Press(Button("OKButton"));
    EXPECT_TRUE(PumpUntil([this] { return !routes_; }));
    EXPECT_FALSE(Exists(RoutePath(kBois)));
    EXPECT_TRUE(Exists(RoutePath(kThornby)));
}

TEST_F(Routes, DeleteAScenarioWithTheAnswerYes) {
    OpenRoutes();
    ListScenariosOf(0);
    Select("List3", 1);
    dialogs_.AnswerMessage(kDeleteScenario, wxID_YES);
    Press(Button("Command2"));
    EXPECT_THAT(Items(List("List3")), ElementsAre("Morning Milk", "Harbour Shunt &amp; Return"));
    EXPECT_THAT(Items(List("List4")), ElementsAre(kMilk, kShunt));
    EXPECT_FALSE(Exists(RoutePath(kAlder) + "\\Scenarios\\" + kMail));
    const std::string index = XmlOf(RoutePath(kAlder) + "\\Scenarios.bin");
    EXPECT_THAT(index, Not(HasSubstr(kMail)));
    EXPECT_THAT(index, HasSubstr(kShunt));
    EXPECT_THAT(XmlOf(RoutePath(kAlder) + "\\Scenarios.bin.bak"), HasSubstr(kMail));
}

TEST_F(Routes, KeepAScenarioWithTheAnswerNo) {
    OpenRoutes();
    ListScenariosOf(0);
    Select("List3", 1);
    dialogs_.AnswerMessage(kDeleteScenario, wxID_NO);
    Press(Button("Command2"));
    EXPECT_EQ(List("List3").GetCount(), 3U);
    EXPECT_TRUE(Exists(RoutePath(kAlder) + "\\Scenarios\\" + kMail));
}

TEST_F(Routes, RefuseToCloseWhileTheConverterRunsAndCloseAfterwards) {
    OpenRoutes();
    bool stoodAfterClose = false;
    Later(milliseconds(400), [&] {
        routes_->Close();
        stoodAfterClose = routes_ != nullptr;
        EXPECT_EQ(StatusLine(), "The window closes when the running command has ended.");
        EXPECT_FALSE(Button("Command4").IsEnabled());
    });
    const Environment slow("TAMARIND_SERZ_DELAY_MS", "1200");
    ListScenariosOf(0);
    EXPECT_TRUE(stoodAfterClose);
    EXPECT_TRUE(PumpUntil([this] { return !routes_; }));
    EXPECT_TRUE(window_);
}

TEST_F(Routes, OfferToStopAConverterThatHangs) {
    OpenRoutes();
    Later(milliseconds(400), [&] { routes_->Close(); });
    Later(milliseconds(700), [&] { routes_->Close(); });
    dialogs_.AnswerMessage(
        {.text = "The outside program is still running. Stop it?", .style = wxICON_QUESTION | wxYES_NO}, wxID_YES);
    dialogs_.AnswerMessage({.text = "An Error File not found occurred while\nchecking for Scenarios.",
                            .style = wxICON_EXCLAMATION | wxOK});
    const Environment hangs("TAMARIND_SERZ_HANG", "1");
    ListScenariosOf(0);
    EXPECT_TRUE(PumpUntil([this] { return !routes_; }));
}

TEST_F(Routes, CloseWithTheMainWindowOnceTheConverterHasEnded) {
    OpenRoutes();
    Later(milliseconds(400), [&] { window_->Close(); });
    {
        const Environment slow("TAMARIND_SERZ_DELAY_MS", "1200");
        ListScenariosOf(0);
    }
    EXPECT_TRUE(PumpUntil([this] { return !window_; }));
    EXPECT_FALSE(routes_);
}

} // namespace
} // namespace tamarind::tests

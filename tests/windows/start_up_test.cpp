#include "windows/editor_window.h"

#include <wx/display.h>
#include <wx/notebook.h>
#include <wx/textctrl.h>

namespace tamarind::tests {
namespace {

using platform::ForDisplay;
using platform::FromWx;

constexpr const char* kDesignCaption = "RS bin file editor and texture viewer";
constexpr const char* kVersionPart = "  Version " TAMARIND_VERSION "   Rail Simulator path in use is - ";

class StartUp : public EditorWindow {
protected:
    std::string Settings() { return folder_.Read("Program\\preferences.txt"); }
    std::string SettingsWith(const std::string& geometry) {
        return geometry + ",\"\",\"\",\"" + game_ + "\",#FALSE#\r\n";
    }
    std::string PathShown() { return FromWx(Find<wxTextCtrl>("Text1").GetValue()); }
};

TEST_F(StartUp, ShowsVersionAndGameFolderInTheCaption) {
    Open();
    EXPECT_EQ(Caption(), kDesignCaption + (kVersionPart + ForDisplay(game_)));
}

TEST_F(StartUp, GivesTheKeysToTheText) {
    Open();
    EXPECT_TRUE(PumpUntil([this] { return Find("RichTextBox1").HasFocus(); }));
}

TEST_F(StartUp, GivesTheKeysToTheTreeWhereThatIsTheDefaultEditor) {
    OpenWithTreeEditor();
    EXPECT_TRUE(PumpUntil([this] { return Tree().HasFocus(); }));
}

TEST_F(StartUp, MakesTheWorkingFolder) {
    Open();
    EXPECT_TRUE(files_->IsFolder(program_ + "\\TempFiles"));
}

TEST_F(StartUp, TakesPlaceAndSizeFromTheSettingsInTwips) {
    WriteSettings("13500,10200,1500,3000", false);
    Open();
    const auto reached = [this] {
        return window_->ToDIP(window_->GetSize()) == wxSize(900, 680) &&
               window_->ToDIP(window_->GetPosition()) == wxPoint(200, 100);
    };
    EXPECT_TRUE(PumpUntil(reached, milliseconds(5000))) << window_->GetSize().x << "x" << window_->GetSize().y << " at "
                                                        << window_->GetPosition().x << "," << window_->GetPosition().y;
}

TEST_F(StartUp, WritesTheSamePlaceAndSizeWhenTheWindowWasNotTouched) {
    WriteSettings("13500,10200,1500,3000", false);
    Open();
    PumpFor(milliseconds(500));
    Close();
    EXPECT_EQ(Settings(), SettingsWith("13500,10200,1500,3000"));
}

TEST_F(StartUp, WritesWhereTheWindowWasMovedTo) {
    Open();
    PumpFor(milliseconds(500));
    window_->SetSize(wxRect(window_->FromDIP(wxPoint(60, 80)), window_->FromDIP(wxSize(880, 680))));
    PumpFor(milliseconds(500));
    Close();
    // 15 twips a pixel.
    EXPECT_EQ(Settings(), SettingsWith("13200,10200,1200,900"));
}

TEST_F(StartUp, KeepsThePlaceOfAMaximisedWindowForItsNextRun) {
    Open();
    PumpFor(milliseconds(500));
    window_->Maximize();
    EXPECT_TRUE(PumpUntil([this] { return window_->IsMaximized(); }));
    PumpFor(milliseconds(300));
    Close();
    EXPECT_EQ(Settings(), SettingsWith("15000,10500,600,600"));
}

TEST_F(StartUp, BringsBackAWindowThatLiesOffEveryScreen) {
    WriteSettings("13500,10200,30000,-30000", false);
    Open();
    PumpFor(milliseconds(500));
    EXPECT_NE(wxDisplay::GetFromWindow(window_), wxNOT_FOUND);
    const wxRect screen = wxDisplay(window_.get()).GetGeometry();
    EXPECT_TRUE(screen.Contains(window_->GetPosition()));
}

TEST_F(StartUp, GivesAWindowThatIsTooSmallItsSmallestSize) {
    WriteSettings("1500,1500,1500,1500", false);
    Open();
    EXPECT_GE(window_->GetSize().x, window_->GetMinSize().x);
    EXPECT_GE(window_->GetSize().y, window_->GetMinSize().y);
}

TEST_F(StartUp, TakesTheGameFolderFromTheRegistryWhenTheSettingsHaveNone) {
    folder_.Write("Program\\preferences.txt", "15000,10500,600,600,\"\",\"\",\"\",#FALSE#\r\n");
    registry_.SetText("Software\\Rail Simulator\\Packager Manager\\Installation", "", "D:\\Games\\Rail");
    Open();
    EXPECT_EQ(Caption(), kDesignCaption + (kVersionPart + ForDisplay("D:\\Games\\Rail")));
}

TEST_F(StartUp, AsksForTheGameWhenNobodyKnowsWhereItIs) {
    folder_.Write("Program\\preferences.txt", "15000,10500,600,600,\"\",\"\",\"\",#FALSE#\r\n");
    folder_.Write("Rail Simulator\\RailSim.exe", "the game");
    dialogs_.AnswerMessage(
        {.text = "Use this option to select your Rail Simulator\npath.", .style = wxICON_EXCLAMATION | wxYES_NO},
        wxID_YES);
    dialogs_.ChooseFile({.title = "Select your RailSim.exe File", .filter = "RailSim Files (*.exe)|*.exe"},
                        game_ + "\\RailSim.exe");
    Open();
    EXPECT_EQ(session_.RailSimPath, game_);
    EXPECT_EQ(Caption(), kDesignCaption + (kVersionPart + ForDisplay(game_)));
}

TEST_F(StartUp, SaysWhenTheSettingsCannotBeUnderstoodAndGoesOn) {
    folder_.Write("Program\\preferences.txt", "15000,wide,600,600\r\n");
    registry_.SetText("Software\\Rail Simulator\\Packager Manager\\Installation", "", "D:\\Rail");
    dialogs_.AnswerMessage({.text = "Type mismatch\nThe settings in " + ForDisplay(program_ + "\\preferences.txt") +
                                    " are not used; the file is kept.",
                            .style = wxICON_EXCLAMATION | wxOK});
    Open();
    EXPECT_EQ(session_.RailSimPath, "D:\\Rail");
}

TEST_F(StartUp, OpensTheFileOfTheCommandLineInTheTextEditor) {
    const std::string track = WriteGameFile("Track.XSec", "<Track>Oak</Track>");
    Open("\"" + track + "\"");
    EXPECT_EQ(EditorText(), "<Track>Oak</Track>");
    EXPECT_EQ(PathShown(), platform::ToNative(track));
}

TEST_F(StartUp, OpensTheFileOfTheCommandLineInTheTreeEditor) {
    OpenWithTreeEditor("\"" + WriteGameFile("Track.XSec", "<Track>Oak</Track>") + "\"");
    EXPECT_EQ(FromWx(Tree().GetItemText(Tree().GetRootItem())), "Track");
    EXPECT_EQ(EditorText(), "<Track>Oak</Track>");
}

TEST_F(StartUp, ShowsATextureOnTheTextPageWhileTheTreeEditorIsTheDefault) {
    OpenWithTreeEditor(WriteGameFile("Brick.TgPcDx", "<Texture/>"));
    EXPECT_EQ(Find<wxNotebook>("SSTab1").GetSelection(), 0);
    EXPECT_EQ(EditorText(), "<Texture/>");
    EXPECT_FALSE(Tree().GetRootItem().IsOk());
}

} // namespace
} // namespace tamarind::tests

#include "install/frmRouteSetup.h"

#include "install/installer_rig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace tamarind::install {
namespace {

using platform::Answer;
using testing::HasSubstr;

/// A dialog that nobody sees.
class FakeDialog : public platform::Dialog {
public:
    explicit FakeDialog(tests::ScriptedUserInterface& ui) : ui_(ui) {
        for (const platform::DialogControl& control : frmRouteSetup::Design().controls)
            texts[control.id] = control.text;
    }
    void SetCaption(const std::string& text) override { caption = text; }
    void SetText(int id, const std::string& text) override { texts[id] = text; }
    [[nodiscard]] std::string Text(int id) const override { return texts.at(id); }
    void SetEnabled(int id, bool isOn) override { enabled[id] = isOn; }
    void SetVisible(int id, bool isOn) override { visible[id] = isOn; }
    void SetFill(int, std::size_t done, std::size_t total) override { fill = {done, total}; }
    std::string AskForFolder(const std::string&, const std::string& start) override {
        asked = start;
        return chosen;
    }
    platform::UserInterface& Ui() override { return ui_; }
    void Run() override {
        if (onRun) onRun();
    }
    void Hide() override { isHidden = true; }
    void Close() override { isClosed = true; }

    std::function<void()> onRun;
    std::string caption;
    std::map<int, std::string> texts;
    std::map<int, bool> enabled;
    std::map<int, bool> visible;
    std::pair<std::size_t, std::size_t> fill;
    std::string asked;
    std::string chosen;
    bool isHidden = false;
    bool isClosed = false;

private:
    tests::ScriptedUserInterface& ui_;
};

class RouteSetupWindow : public tests::InstallerRig {
protected:
    RouteSetupWindow() {
        MakeRoutePackage();
        registry.SetText("Software\\Rail Simulator\\Packager Manager\\Installation", "", "C:\\nowhere");
    }
    /// Shows the window and acts in it.
    void Use(const std::function<void()>& act) {
        frmRouteSetup window(installer.platform, dialog, folder / "P");
        dialog.onRun = act;
        window.Run();
    }
    FakeDialog dialog{ui};
};

TEST_F(RouteSetupWindow, ShowsFolderModeAndWhatWillHappen) {
    Use([&] {
        EXPECT_EQ(dialog.caption, "RouteSetup  Version " TAMARIND_VERSION);
        EXPECT_EQ(dialog.texts[frmRouteSetup::Text1], "C:\\nowhere");
        EXPECT_EQ(dialog.texts[frmRouteSetup::Command2], "Install Route");
        EXPECT_THAT(dialog.texts[frmRouteSetup::Description], HasSubstr("Route: New Line\r\nFiles: 1, 4 bytes\r\n"));
    });
}

TEST_F(RouteSetupWindow, NamesItsControlsAsTheyAre) {
    EXPECT_EQ(dialog.texts[frmRouteSetup::Label1], "&Rail Simulator Path");
    EXPECT_EQ(dialog.texts[frmRouteSetup::Command1], ".....");
}

TEST_F(RouteSetupWindow, TakesTheTypedFolderOnEnter) {
    Use([&] {
        dialog.texts[frmRouteSetup::Text1] = folder / "Game";
        dialog.onEnter(frmRouteSetup::Text1);
        EXPECT_THAT(dialog.texts[frmRouteSetup::Description], HasSubstr(platform::ForDisplay(folder / "Game")));
    });
}

TEST_F(RouteSetupWindow, TakesTheTypedFolderWhenItsBoxIsLeft) {
    Use([&] {
        dialog.texts[frmRouteSetup::Text1] = folder / "Game";
        dialog.onLeave(frmRouteSetup::Description);
        EXPECT_THAT(dialog.texts[frmRouteSetup::Description],
                    testing::Not(HasSubstr(platform::ForDisplay(folder / "Game"))));
        dialog.onLeave(frmRouteSetup::Text1);
        EXPECT_THAT(dialog.texts[frmRouteSetup::Description], HasSubstr(platform::ForDisplay(folder / "Game")));
    });
}

TEST_F(RouteSetupWindow, TakesTheChosenFolder) {
    dialog.chosen = folder / "Game";
    Use([&] {
        dialog.onPress(frmRouteSetup::Command1);
        EXPECT_EQ(dialog.asked, "C:\\nowhere");
        EXPECT_EQ(dialog.texts[frmRouteSetup::Text1], folder / "Game");
        EXPECT_THAT(dialog.texts[frmRouteSetup::Description], HasSubstr(platform::ForDisplay(folder / "Game")));
    });
}

TEST_F(RouteSetupWindow, KeepsTheFolderWhenNoneIsChosen) {
    Use([&] {
        dialog.onPress(frmRouteSetup::Command1);
        EXPECT_EQ(dialog.texts[frmRouteSetup::Text1], "C:\\nowhere");
    });
}

TEST_F(RouteSetupWindow, InstallsAndCloses) {
    ui.answers = {Answer::Yes};
    Use([&] {
        dialog.texts[frmRouteSetup::Text1] = folder / "Game";
        dialog.onPress(frmRouteSetup::Command2);
    });
    EXPECT_TRUE(dialog.isHidden && dialog.isClosed);
    EXPECT_EQ(folder.Read("Game\\Content\\Routes\\new-route\\tile.bin"), "tile");
}

TEST_F(RouteSetupWindow, StaysOpenAfterAStopSoThatThePathCanBeCorrected) {
    ui.answers = {Answer::Yes};
    Use([&] {
        dialog.onPress(frmRouteSetup::Command2); // no index of routes in C:\nowhere
        EXPECT_FALSE(dialog.isClosed);
        EXPECT_TRUE(dialog.enabled[frmRouteSetup::Command2]);
        dialog.texts[frmRouteSetup::Text1] = folder / "Game";
        dialog.onPress(frmRouteSetup::Command2);
        EXPECT_TRUE(dialog.isClosed);
    });
}

TEST_F(RouteSetupWindow, CannotBePressedTwiceAndCancelsWhileItInstalls) {
    ui.answers = {Answer::Yes};
    ui.onMessage = [&](const platform::Message&) {
        ui.onMessage = {};
        EXPECT_FALSE(dialog.enabled[frmRouteSetup::Command2]);
        EXPECT_EQ(dialog.texts[frmRouteSetup::Cancel], "Cancel");
        dialog.onPress(frmRouteSetup::Command2);
        dialog.onPress(frmRouteSetup::Cancel);
        EXPECT_FALSE(dialog.isClosed);
        EXPECT_TRUE(dialog.isStopRequested());
        EXPECT_FALSE(dialog.onProgress({.title = "t", .current = "c", .done = 1, .total = 4}));
        EXPECT_EQ(dialog.fill, (std::pair<std::size_t, std::size_t>(1, 4)));
        EXPECT_EQ(dialog.texts[frmRouteSetup::Status], "1 of 4: c");
    };
    ui.onProgress = [&](int) { return !dialog.isStopRequested(); };
    Use([&] {
        dialog.texts[frmRouteSetup::Text1] = folder / "Game";
        dialog.onPress(frmRouteSetup::Command2);
        EXPECT_FALSE(dialog.isClosed);
        EXPECT_EQ(dialog.texts[frmRouteSetup::Cancel], "Close");
        dialog.onPress(frmRouteSetup::Cancel);
        EXPECT_TRUE(dialog.isClosed);
    });
}

} // namespace
} // namespace tamarind::install

#include "install/frmRouteSetup.h"
#include "support/sample_package.h"
#include "system/program.h"

#include <gmock/gmock.h>

#include <windows.h>

namespace tamarind::tests {
namespace {

namespace fs = std::filesystem;
using install::frmRouteSetup;
using samples::ChildProgram;
using samples::ReadFile;
using samples::ReadTree;
using testing::HasSubstr;

std::string TextOf(HWND window) {
    std::wstring text(4096, L'\0');
    const auto length = SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    return {text.begin(), text.begin() + length};
}

/// Waits until `find` finds a visible window; none after a minute.
template <typename FindOne> HWND WaitForWindow(const FindOne& find) {
    constexpr int kLooks = 600;
    for (int look = 0; look < kLooks; ++look) {
        const HWND window = find();
        if (window != nullptr && IsWindowVisible(window) != FALSE) return window;
        Sleep(100);
    }
    return nullptr;
}

class RouteSetup : public samples::SampleTest {
protected:
    RouteSetup() : game_(samples::WriteSampleGame(folder_)), package_(Path("Pack")) {
        fs::create_directories(package_);
        fs::copy_file(samples::ProgramFolder() / SETUP_NAME, package_ / "AssetSetup.exe");
    }

    void Start() {
        program_ =
            std::make_unique<ChildProgram>(package_ / "AssetSetup.exe", samples::Arguments{}, samples::Environment{});
        window_ =
            WaitForWindow([] { return FindWindowW(L"TamarindDialog", L"RouteSetup  Version " TAMARIND_VERSION); });
        ASSERT_NE(window_, nullptr);
    }
    [[nodiscard]] std::string Text(int id) const { return TextOf(GetDlgItem(window_, id)); }
    void TypeGameFolder(const fs::path& folder) const {
        SendMessageW(GetDlgItem(window_, frmRouteSetup::Text1), WM_SETTEXT, 0,
                     reinterpret_cast<LPARAM>(folder.c_str()));
    }
    void Press(int id) const { PostMessageW(GetDlgItem(window_, id), BM_CLICK, 0, 0); }

    /// Waits for a message box, presses a button in it and returns its text.
    static std::string Answer(int button) {
        constexpr int kTextId = 0xFFFF;
        const HWND box = WaitForWindow([] { return FindWindowW(L"#32770", L"Tamarind"); });
        EXPECT_NE(box, nullptr);
        const std::string text = TextOf(GetDlgItem(box, kTextId));
        PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
        while (IsWindow(box) != FALSE)
            Sleep(20);
        return text;
    }
    int WaitForEnd() { return program_->WaitFor(samples::kLongTime).value_or(-1); }

    fs::path game_;
    fs::path package_;
    std::unique_ptr<ChildProgram> program_;
    HWND window_ = nullptr;
};

TEST_F(RouteSetup, InstallsARouteThroughItsWindow) {
    MakeRoutePackage(package_);
    const std::string index = ReadFile(game_ / "Content/Routes.xml");
    Start();
    EXPECT_EQ(Text(frmRouteSetup::Command2), "Install Route");
    EXPECT_THAT(Text(frmRouteSetup::Description), HasSubstr("Route: Moor & Fen\r\nFiles: 2, 19 bytes\r\n"));
    TypeGameFolder(game_);
    Press(frmRouteSetup::Command2);
    EXPECT_EQ(Answer(IDYES), "You are about to install Route - Moor & Fen\r\n"
                             "Into your Rail Simulator Routes folder - Please Confirm.");
    EXPECT_EQ(Answer(IDOK), "Your package has been installed.");
    EXPECT_EQ(WaitForEnd(), 0);
    EXPECT_EQ(ReadFile(game_ / "Content/Routes.xml"), WithRecordAtTheEnd(index, kPackedRouteRecord));
    EXPECT_EQ(ReadFile(game_ / "Content/Routes.xml.bak"), index);
    EXPECT_EQ(ReadTree(game_ / "Content/Routes" / kPackedRoute),
              ReadTree(package_ / "Rail Simulator/Content/Routes" / kPackedRoute));
}

TEST_F(RouteSetup, DescribesATypedFolderWhenItsBoxIsLeft) {
    MakeRoutePackage(package_);
    fs::create_directory(folder_ / "other");
    Start();
    TypeGameFolder(folder_ / "other");
    PostMessageW(GetDlgItem(window_, frmRouteSetup::Text1), WM_KEYDOWN, VK_TAB, 0);
    std::string text;
    for (int look = 0; look < 600 && text.find("does not look like") == std::string::npos; ++look) {
        Sleep(100);
        text = Text(frmRouteSetup::Description);
    }
    EXPECT_THAT(text, HasSubstr("does not look like the game's folder"));
    Press(frmRouteSetup::Cancel);
    EXPECT_EQ(WaitForEnd(), 0);
}

TEST_F(RouteSetup, StaysOpenForAnotherPathAfterAStop) {
    MakeRoutePackage(package_);
    Start();
    TypeGameFolder(folder_ / "nowhere");
    Press(frmRouteSetup::Command2);
    EXPECT_THAT(Answer(IDOK), HasSubstr("could not be found, please check your Content folder"));
    TypeGameFolder(game_);
    Press(frmRouteSetup::Command2);
    Answer(IDNO);
    Press(frmRouteSetup::Cancel);
    EXPECT_EQ(WaitForEnd(), 0);
    EXPECT_FALSE(fs::exists(game_ / "Content/Routes" / kPackedRoute));
}

TEST_F(RouteSetup, InstallsScenariosWithTheConverterOfTheGame) {
    MakeScenarioPackage(package_);
    fs::copy_file(samples::ProgramFolder() / SERZ_NAME, game_ / "serz.exe");
    const fs::path route = game_ / samples::RouteFolder(samples::kAlderRoute);
    const std::string old = ReadFile(route / "Scenarios.bin");
    Start();
    EXPECT_EQ(Text(frmRouteSetup::Command2), "Install Scenario");
    TypeGameFolder(game_);
    Press(frmRouteSetup::Command2);
    EXPECT_EQ(Answer(IDOK), "Your package has been installed.");
    EXPECT_EQ(WaitForEnd(), 0);
    const std::string index = samples::DecodeBinary(old).value_or("");
    EXPECT_EQ(samples::DecodeBinary(ReadFile(route / "Scenarios.bin")),
              WithRecordAtTheEnd(WithoutRecord(index, kPackedScenario), kPackedScenarioRecord));
    EXPECT_EQ(ReadFile(route / "Scenarios.bak"), old);
}

TEST_F(RouteSetup, RunsTheHookInTheGameFolderAndDeletesIt) {
    PutFile(package_ / "Rail Simulator/RS-Install.bat", "@echo done> hook.txt\r\n");
    Start();
    EXPECT_EQ(Text(frmRouteSetup::Command2), "Install Assets");
    EXPECT_THAT(Text(frmRouteSetup::Description), HasSubstr("RS-Install.bat"));
    TypeGameFolder(game_);
    Press(frmRouteSetup::Command2);
    EXPECT_EQ(Answer(IDOK), "Your package has been installed.");
    EXPECT_EQ(WaitForEnd(), 0);
    EXPECT_EQ(ReadFile(game_ / "hook.txt"), "done\r\n");
    EXPECT_FALSE(fs::exists(game_ / "RS-Install.bat"));
}

TEST_F(RouteSetup, TakesWriteProtectionOffWhenAskedTo) {
    PutFile(package_ / "Rail Simulator/Assets/a.bin", "new");
    PutFile(game_ / "Assets/a.bin", "old");
    SetFileAttributesW((game_ / "Assets/a.bin").c_str(), FILE_ATTRIBUTE_READONLY);
    Start();
    TypeGameFolder(game_);
    Press(frmRouteSetup::Command2);
    EXPECT_THAT(Answer(IDYES), HasSubstr("are Read Only and cannot be overwritten.\r\nDo you wish"));
    EXPECT_EQ(Answer(IDOK), "All files are now Read/Write");
    EXPECT_EQ(Answer(IDOK), "Your package has been installed.");
    EXPECT_EQ(WaitForEnd(), 0);
    EXPECT_EQ(GetFileAttributesW((game_ / "Assets/a.bin").c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
}

TEST_F(RouteSetup, GrowsWithItsWindow) {
    Start();
    const HWND button = GetDlgItem(window_, frmRouteSetup::Command2);
    const HWND text = GetDlgItem(window_, frmRouteSetup::Text1);
    RECT outer = {};
    RECT before = {};
    RECT wide = {};
    GetWindowRect(window_, &outer);
    GetWindowRect(button, &before);
    GetWindowRect(text, &wide);
    const int width = static_cast<int>(outer.right - outer.left);
    const int height = static_cast<int>(outer.bottom - outer.top);
    SetWindowPos(window_, nullptr, outer.left, outer.top, width + 100, height + 60, SWP_NOZORDER);
    RECT after = {};
    RECT wider = {};
    GetWindowRect(button, &after);
    GetWindowRect(text, &wider);
    EXPECT_EQ(after.left - before.left, 100);
    EXPECT_EQ(after.top - before.top, 60);
    EXPECT_EQ((wider.right - wider.left) - (wide.right - wide.left), 100);
    PostMessageW(window_, WM_CLOSE, 0, 0);
    EXPECT_EQ(WaitForEnd(), 0);
}

} // namespace
} // namespace tamarind::tests

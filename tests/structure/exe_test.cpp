#include "structure/pe_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

namespace tamarind::tests {
namespace {

using testing::HasSubstr;
using testing::SizeIs;

// What every Windows has had since Windows 7; the C library is the system's own.
const std::set<std::string> kSystemLibraries{
    "advapi32.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll",  "gdiplus.dll", "imm32.dll",
    "kernel32.dll", "msimg32.dll",  "msvcrt.dll",   "ole32.dll",  "oleacc.dll",  "oleaut32.dll",
    "rpcrt4.dll",   "shell32.dll",  "shlwapi.dll",  "user32.dll", "uxtheme.dll", "version.dll",
    "wininet.dll",  "winmm.dll",    "winspool.drv", "ws2_32.dll",
};

class Programs : public testing::TestWithParam<const char*> {
protected:
    PeFile program_{GetParam()};
};

TEST_P(Programs, NeedNoLibraryBesideThem) {
    const std::set<std::string> imports = program_.Imports();
    EXPECT_TRUE(imports.contains("kernel32.dll"));
    for (const std::string& name : imports)
        EXPECT_TRUE(kSystemLibraries.contains(name)) << name;
}

TEST_P(Programs, CarryTheirVersion) { EXPECT_EQ(program_.FileVersion(), TAMARIND_VERSION ".0"); }

TEST_P(Programs, CarryExactlyOneManifest) { EXPECT_THAT(program_.Resources(24), SizeIs(1)); }

TEST_P(Programs, AskForNothingButLongPathsAndPlainRights) {
    ASSERT_THAT(program_.Resources(24), SizeIs(1));
    const std::string manifest = program_.Resources(24).front();
    EXPECT_THAT(manifest, HasSubstr(">true</longPathAware>"));
    EXPECT_THAT(manifest, HasSubstr("<requestedExecutionLevel level=\"asInvoker\" uiAccess=\"false\"/>"));
    // Windows 7, 8, 8.1, and 10 with all later ones.
    EXPECT_THAT(manifest, HasSubstr("<supportedOS Id=\"{35138b9a-5d96-4fbd-8e2d-a2440225f93a}\"/>"));
    EXPECT_THAT(manifest, HasSubstr("<supportedOS Id=\"{4a2f28e3-53b9-4441-ba9c-d69d4a4a6e38}\"/>"));
    EXPECT_THAT(manifest, HasSubstr("<supportedOS Id=\"{1f676c76-80e1-4239-95bb-83d0f6d0da78}\"/>"));
    EXPECT_THAT(manifest, HasSubstr("<supportedOS Id=\"{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}\"/>"));
}

INSTANTIATE_TEST_SUITE_P(Of, Programs, testing::Values(WINDOW_PROGRAM, TERMINAL_PROGRAM, INSTALLER_PROGRAM));

class WindowPrograms : public testing::TestWithParam<const char*> {};

TEST_P(WindowPrograms, ScaleWithEveryScreenAndUseTheSystemsControls) {
    const std::vector<std::string> manifests = PeFile(GetParam()).Resources(24);
    ASSERT_THAT(manifests, SizeIs(1));
    EXPECT_THAT(manifests.front(), HasSubstr(">PerMonitorV2, PerMonitor</dpiAwareness>"));
    EXPECT_THAT(manifests.front(), HasSubstr("name=\"Microsoft.Windows.Common-Controls\" version=\"6.0.0.0\""));
}

/// Widths of the pictures in an icon group. A width byte of 0 stands for 256.
std::set<int> WidthsIn(const std::string& group) {
    constexpr std::size_t kHeader = 6;
    constexpr std::size_t kEntry = 14;
    const int count = static_cast<unsigned char>(group.at(4)) + 256 * static_cast<unsigned char>(group.at(5));
    std::set<int> widths;
    for (int i = 0; i < count; ++i) {
        const auto width = static_cast<unsigned char>(group.at(kHeader + kEntry * static_cast<std::size_t>(i)));
        widths.insert(width == 0 ? 256 : width);
    }
    return widths;
}

TEST_P(WindowPrograms, CarryTheirIconInEverySize) {
    const std::vector<std::string> groups = PeFile(GetParam()).Resources(14);
    const std::set<int> all{16, 20, 24, 32, 40, 48, 64, 256};
    EXPECT_THAT(groups, testing::Contains(testing::ResultOf(WidthsIn, all)));
}

INSTANTIATE_TEST_SUITE_P(Of, WindowPrograms, testing::Values(WINDOW_PROGRAM, INSTALLER_PROGRAM));

// It travels inside every package.
TEST(InstallerProgram, IsSmall) {
    constexpr std::uint64_t kMostBytes = 1'500'000;
    const std::uint64_t size = PeFile(INSTALLER_PROGRAM).Size();
    EXPECT_GT(size, 0U);
    EXPECT_LE(size, kMostBytes);
}

} // namespace
} // namespace tamarind::tests

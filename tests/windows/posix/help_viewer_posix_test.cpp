#include "windows/editor_window.h"

#include "platform/wx/help_viewer.h"

#include <wx/filename.h>
#include <wx/mimetype.h>

namespace tamarind::tests {
namespace {

using platform::ShowHelpFile;
using platform::ToNative;
using platform::ToWx;

/// A desktop of its own, which opens help files with `command`.
class HelpViewer : public testing::Test {
protected:
    HelpViewer() { wxTheMimeTypesManager->ClearData(); }
    ~HelpViewer() override { wxTheMimeTypesManager->ClearData(); }

    void OpenWith(const std::string& command) {
        folder_.MakeFolder("mime");
        folder_.Write("mime\\globs", "application/vnd.ms-htmlhelp:*.chm\n");
        folder_.MakeFolder("applications");
        folder_.Write("applications\\viewer.desktop",
                      "[Desktop Entry]\nType=Application\nName=Viewer\nMimeType=application/vnd.ms-htmlhelp;\nExec=" +
                          command + " %f\n");
    }

    /// A program that writes its arguments into the file "shown".
    std::string MakeViewer() {
        const std::string path =
            folder_.Write("viewer", "#!/bin/sh\nprintf %s \"$1\" >'" + ToNative(folder_ / "part") + "'\nmv '" +
                                        ToNative(folder_ / "part") + "' '" + ToNative(folder_ / "shown") + "'\n");
        wxFileName(ToWx(ToNative(path))).SetPermissions(wxS_DEFAULT | wxS_IXUSR);
        return ToNative(path);
    }

    TempFolder folder_;
    Environment home_{"XDG_DATA_HOME", ToNative(folder_.Path())};
    Environment folders_{"XDG_DATA_DIRS", ToNative(folder_.Path())};
    wxString help_ = ToWx(ToNative(folder_.Write("The help.chm", "pages")));
};

TEST_F(HelpViewer, IsTheProgramThatTheDesktopOpensHelpFilesWith) {
    OpenWith(MakeViewer());
    EXPECT_TRUE(ShowHelpFile(help_));
    EXPECT_TRUE(PumpUntil([this] { return folder_.Disk().EntryExists(folder_ / "shown"); }, milliseconds(5000)));
    EXPECT_EQ(folder_.Read("shown"), platform::FromWx(help_));
}

TEST_F(HelpViewer, IsNotThereWhereTheDesktopNamesNone) { EXPECT_FALSE(ShowHelpFile(help_)); }

TEST_F(HelpViewer, IsNotThereWhenItsProgramIsMissing) {
    OpenWith("/nowhere/viewer");
    EXPECT_FALSE(ShowHelpFile(help_));
}

TEST_F(HelpViewer, IsNotThereWhenItsProgramIsNotOnTheSearchPath) {
    OpenWith("tamarind-no-such-viewer");
    EXPECT_FALSE(ShowHelpFile(help_));
}

TEST_F(HelpViewer, IsNotThereWhenItsProgramIsNone) {
    OpenWith(ToNative(folder_.Write("text", "no program")));
    EXPECT_FALSE(ShowHelpFile(help_));
}

TEST_F(HelpViewer, IsNeverWines) {
    const std::string viewer = MakeViewer();
    OpenWith("env WINEPREFIX=/nowhere wine " + viewer);
    EXPECT_FALSE(ShowHelpFile(help_));
    EXPECT_FALSE(folder_.Disk().EntryExists(folder_ / "shown"));
}

} // namespace
} // namespace tamarind::tests

#include "windows/editor_window.h"

#include "platform/wx/help_viewer.h"

#include <wx/filename.h>

namespace tamarind::tests {
namespace {

using platform::ShowHelpFile;
using platform::ToNative;
using platform::ToWx;

/// With a folder that is all of the search path but for the system's own tools.
class HelpViewer : public testing::Test {
protected:
    HelpViewer() { wxGetEnv("PATH", &path_); }
    ~HelpViewer() override { wxSetEnv("PATH", path_); }

    void SetSearchPath() { wxSetEnv("PATH", ToWx(ToNative(folder_.Path()))); }

    /// A program that writes its arguments into the file "shown".
    void MakeViewer(const std::string& name, bool isProgram = true) {
        const std::string path =
            folder_.Write(name, "#!/bin/sh\nprintf %s \"$1\" >'" + ToNative(folder_ / "part") + "'\n/bin/mv '" +
                                    ToNative(folder_ / "part") + "' '" + ToNative(folder_ / "shown") + "'\n");
        if (isProgram) wxFileName(ToWx(ToNative(path))).SetPermissions(wxS_DEFAULT | wxS_IXUSR);
    }

    TempFolder folder_;
    wxString path_;
    wxString help_ = ToWx(ToNative(folder_.Write("The help's.chm", "pages")));
};

TEST_F(HelpViewer, IsAnyThatIsOnTheSearchPath) {
    for (const char* const name : {"kchmviewer", "uchmviewer", "xchm"}) {
        MakeViewer(name);
        SetSearchPath();
        EXPECT_TRUE(ShowHelpFile(help_)) << name;
        ASSERT_TRUE(PumpUntil([this] { return folder_.Disk().EntryExists(folder_ / "shown"); })) << name;
        EXPECT_EQ(folder_.Read("shown"), platform::FromWx(help_)) << name;
        folder_.Disk().Remove(folder_ / "shown");
        folder_.Disk().Remove(folder_ / name);
    }
}

TEST_F(HelpViewer, IsNoneWhereNoneIsInstalled) {
    SetSearchPath();
    EXPECT_FALSE(ShowHelpFile(help_));
}

TEST_F(HelpViewer, IsNoFileThatIsNoProgram) {
    MakeViewer("xchm", false);
    SetSearchPath();
    EXPECT_FALSE(ShowHelpFile(help_));
    EXPECT_FALSE(folder_.Disk().EntryExists(folder_ / "shown"));
}

} // namespace
} // namespace tamarind::tests

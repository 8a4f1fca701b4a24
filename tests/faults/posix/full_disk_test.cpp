#include "convert/game_file.h"
#include "platform/paths.h"
#include "shell/closing.h"
#include "support/editor_rig.h"
#include "support/fake_converter.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <sys/mount.h>

// A disk that is really full: a small one in memory, where mounting is allowed.
namespace tamarind::tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::size_t kFileSize = 48 * 1024; // two of them do not fit

class FullDisk : public testing::Test {
protected:
    FullDisk() : rig_(folder_.Disk(), folder_ / "Kit"), converter_(folder_.Disk()) {
        folder_.MakeFolder("Kit\\TempFiles");
        small_ = platform::ToNative(folder_.MakeFolder("Small"));
        rig_.processes.run = [this](const platform::ProcessStart& start) { converter_(start); };
    }
    ~FullDisk() override {
        if (isMounted_) {
            umount(small_.c_str());
        }
    }
    void SetUp() override {
        isMounted_ = mount("tmpfs", small_.c_str(), "tmpfs", 0, "size=64k") == 0;
        if (!isMounted_) {
            GTEST_SKIP() << "mounting a small disk is not allowed here: " << std::strerror(errno);
        }
    }
    void Save() {
        try {
            convert::SaveRailSimFile(rig_.context);
        } catch (const text::RuntimeError& error) {
            shell::ReportFatalError(rig_.context, error);
        }
    }
    void HaveOpenFile(const std::string& path, const std::string& tempBase) {
        rig_.view.ShowFilePath(path);
        rig_.session.TempBase = tempBase;
        rig_.session.RSFileExt = "XSec";
        rig_.session.RSFileLoaded = true;
        rig_.view.TypeText(std::string(kFileSize, 'n'));
    }

    TempFolder folder_;
    EditorRig rig_;
    FakeConverter converter_;
    std::string small_;
    bool isMounted_ = false;
};

TEST_F(FullDisk, LeavesTheGameFileWholeAndSaysSo) {
    const std::string old = GameFile(std::string(kFileSize, 'o'));
    HaveOpenFile(folder_.Write("Small\\Track.XSec", old), folder_ / "Kit\\TempFiles\\Track.");
    Save();
    EXPECT_EQ(folder_.Read("Small\\Track.XSec"), old);
    EXPECT_THAT(folder_.Names("Small"), ElementsAre("Track.XSec"));
    ASSERT_EQ(rig_.ui.Messages().size(), 1U);
    EXPECT_THAT(rig_.ui.MessageTexts()[0], HasSubstr("Disk full"));
    EXPECT_THAT(rig_.ui.MessageTexts()[0], HasSubstr("The game file is unchanged."));
}

TEST_F(FullDisk, OfTheProgramLeavesTheEarlierXmlWholeAndSaysSo) {
    const std::string original = folder_.Write("Game\\Track.XSec", GameFile("<Old/>"));
    folder_.Write("Small\\Track.xml", std::string(kFileSize, 'o'));
    HaveOpenFile(original, folder_ / "Small\\Track.");
    Save();
    EXPECT_EQ(folder_.Read("Small\\Track.xml"), std::string(kFileSize, 'o'));
    EXPECT_THAT(folder_.Names("Small"), ElementsAre("Track.xml"));
    EXPECT_EQ(folder_.Read("Game\\Track.XSec"), GameFile("<Old/>"));
    EXPECT_THAT(rig_.ui.MessageTexts(), ElementsAre("Disk full occurred in WriteUniFile while processing\r\nfile " +
                                                    platform::ForDisplay(folder_ / "Small\\Track.xml")));
    EXPECT_TRUE(rig_.view.isTextModified);
}

} // namespace
} // namespace tamarind::tests

#include "fixture.h"
#include "serz/binary_format.h"
#include "system/program.h"

#include <algorithm>

namespace tamarind::samples {
namespace {

class SerzPaths : public SampleTest {};

TEST_F(SerzPaths, MayHaveBackslashesBetweenFoldersWhenAbsolute) {
    WriteFile(Path("in.xml"), "<a/>");
    std::string input = Utf8(Path("in.xml"));
    std::string output = Utf8(Path("out.bin"));
    std::replace(input.begin(), input.end(), '/', '\\');
    std::replace(output.begin(), output.end(), '/', '\\');
    ASSERT_EQ(Serz(input, "bin:", output), 0);
    EXPECT_EQ(ReadFile(Path("out.bin")), EncodeBinary("<a/>"));
}

// A device that is always full stands for a full disk.
TEST_F(SerzPaths, FailOnAFullDisk) {
    WriteFile(Path("in.xml"), "<a/>");
    std::filesystem::create_symlink("/dev/full", Path("out.bin"));
    EXPECT_EQ(Serz(Path("in.xml"), "bin:", Path("out.bin")), 1);
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::symlink_status(Path("out.bin"))));
}

} // namespace
} // namespace tamarind::samples

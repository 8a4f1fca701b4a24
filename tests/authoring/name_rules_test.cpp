#include "authoring/name_rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using authoring::FileNameRefusal;
using authoring::FolderNameRefusal;
using testing::HasSubstr;

TEST(FolderNameRefusal, IsEmptyForNamesThatAFolderCanBear) {
    for (const char* const name : {"Fernhollow", "My Own Name", "a.b", ".hidden", " leading", "R&B", "50%", "Console",
                                   "Con Brio", "COM", "COM0", "COM10", "LPTX", "\xD0\x94\xD0\xB5\xD0\xBF\xD0\xBE"})
        EXPECT_EQ(FolderNameRefusal(name), "") << name;
}

TEST(FolderNameRefusal, AsksForAMissingName) { EXPECT_EQ(FolderNameRefusal(""), "Please enter a name."); }

TEST(FolderNameRefusal, NamesTheCharactersThatNoNameCanHold) {
    for (const char* const name : {"a/b", "a\\b", "C:", "a*", "Who?", "\"a\"", "a<b", "a>b", "a|b", "tab\there"})
        EXPECT_THAT(FolderNameRefusal(name), HasSubstr("please leave out \\ / : * ? \" < > | and control characters"))
            << name;
    EXPECT_THAT(FolderNameRefusal("a/b"), testing::StartsWith("\"a/b\" cannot be used as a name"));
}

TEST(FolderNameRefusal, KnowsTheNamesOfDevicesWithAnyEnding) {
    for (const char* const name : {"con", "CON", "Prn", "aux", "NUL", "com1", "COM9", "lpt3", "con.txt", "nul.a.b",
                                   "con .txt", "CONIN$", "conout$", "COM\xC2\xB9", "lpt\xC2\xB3"})
        EXPECT_EQ(FolderNameRefusal(name),
                  "\"" + std::string(name) + "\" is the name of a device in Windows. Please take another name.");
}

TEST(FolderNameRefusal, DoesNotTakeWhatWindowsWouldShorten) {
    for (const char* const name : {"Fern.", "Fern ", "..", ".", " ", "con. "})
        EXPECT_EQ(FolderNameRefusal(name), "\"" + std::string(name) +
                                               "\" cannot be the name of a folder: it ends in a dot or a blank, which "
                                               "Windows drops.");
}

TEST(FileNameRefusal, LooksAtTheNameWithItsEnding) {
    EXPECT_EQ(FileNameRefusal("Halts No.", ".xml"), "");
    EXPECT_EQ(FileNameRefusal("Halts ", ".xml"), "");
    EXPECT_THAT(FileNameRefusal("con", ".xml"), HasSubstr("\"con\" is the name of a device"));
    EXPECT_THAT(FileNameRefusal("nul ", ".xml"), HasSubstr("is the name of a device"));
    EXPECT_THAT(FileNameRefusal("a/b", ".xml"), HasSubstr("please leave out"));
    EXPECT_EQ(FileNameRefusal("", ".xml"), "Please enter a name.");
}

} // namespace
} // namespace tamarind::tests

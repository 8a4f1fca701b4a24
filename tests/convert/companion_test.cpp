#include "convert/companion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::convert {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kTwoBlobs =
    " 2\r\n\"<a b=#1#>\r\n\"\r\n\"</x>,\"\r\n\"\"\r\n32768\r\n0\r\n\"C:\\Game\\Track.TgPcDx\"\r\n";

CompanionFault Fault(std::string_view bytes) {
    const auto parsed = ParseCompanion(bytes);
    return std::holds_alternative<CompanionFault>(parsed) ? std::get<CompanionFault>(parsed) : CompanionFault{};
}

TEST(Companion, IsWrittenOneItemALine) {
    EXPECT_EQ(FormatCompanion({"<a b=\"1\">\r\n", "</x>,", ""}, {32768, 0}, "C:\\Game\\Track.TgPcDx"), kTwoBlobs);
}

TEST(Companion, IsReadBack) {
    const auto parsed = ParseCompanion(kTwoBlobs);
    ASSERT_TRUE(std::holds_alternative<Companion>(parsed));
    const auto& companion = std::get<Companion>(parsed);
    EXPECT_THAT(companion.pieces, ElementsAre("<a b=\"1\">\r\n", "</x>,", ""));
    EXPECT_THAT(companion.sizes, ElementsAre(32768, 0));
    EXPECT_EQ(companion.original, "C:\\Game\\Track.TgPcDx");
}

TEST(Companion, IsWindows1252OrMarkedUtf8) {
    EXPECT_THAT(FormatCompanion({"\xC3\xA9", ""}, {1}, "x"), HasSubstr("\"\xE9\""));
    const std::string foreign = FormatCompanion({"", ""}, {1}, "C:\\\xD0\x96");
    EXPECT_TRUE(foreign.starts_with("\xEF\xBB\xBF"));
    EXPECT_EQ(std::get<Companion>(ParseCompanion(foreign)).original, "C:\\\xD0\x96");
}

TEST(Companion, WithABadCountIsRefused) {
    for (const char* count : {"\"two\"", "", "0", "-1", "1.5", "17", "1e9"}) {
        const CompanionFault fault = Fault(std::string(count) + "\r\n\"a\"\r\n\"b\"\r\n1\r\n\"p\"\r\n");
        EXPECT_EQ(fault.line, 1U) << count;
        EXPECT_EQ(fault.expected, "the number of blobs, from 1 to 16") << count;
    }
}

TEST(Companion, WithFewerItemsThanAnnouncedIsRefused) {
    EXPECT_EQ(Fault("").expected, "the number of blobs, from 1 to 16");
    EXPECT_EQ(Fault(" 1\r\n\"a\"\r\n").expected, "a piece of XML");
    EXPECT_EQ(Fault(" 1\r\n\"a\"\r\n").line, 3U);
    EXPECT_EQ(Fault(" 1\r\n\"a\"\r\n\"b\"\r\n").expected, "the size of a blob, from 0 to 2147483647");
    EXPECT_EQ(Fault(" 1\r\n\"a\"\r\n\"b\"\r\n5\r\n").expected, "the path of the game file");
    EXPECT_EQ(Fault(" 1\r\n\"a\"\r\n\"b\"\r\n5\r\n").line, 5U);
    EXPECT_EQ(Fault(" 1\r\n\"a\"\r\n\"b\"\r\n5\r\n\"\"\r\n").expected, "the path of the game file");
}

TEST(Companion, WithABadSizeIsRefused) {
    for (const char* size : {"-1", "many", "2147483648", "0.5", "\"C:\\path\""}) {
        const CompanionFault fault = Fault(" 1\r\n\"a\r\n\"\r\n\"b\"\r\n" + std::string(size) + "\r\n\"p\"\r\n");
        EXPECT_EQ(fault.line, 5U) << size;
        EXPECT_EQ(fault.expected, "the size of a blob, from 0 to 2147483647") << size;
    }
}

} // namespace
} // namespace tamarind::convert

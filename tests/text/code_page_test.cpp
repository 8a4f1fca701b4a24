#include "text/code_page.h"

#include <gtest/gtest.h>

#include <string>

namespace tamarind::text {
namespace {

std::string AllBytes() {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    return bytes;
}

/// Code units as bytes, low byte first.
std::string LittleEndian(std::u16string_view units) {
    std::string bytes;
    for (const char16_t unit : units) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

std::string BigEndian(std::u16string_view units) {
    std::string bytes;
    for (const char16_t unit : units) {
        bytes += static_cast<char>(unit >> 8);
        bytes += static_cast<char>(unit & 0xFF);
    }
    return bytes;
}

TEST(CodePage, KeepsAllBytesThereAndBack) {
    const std::string text = FromCodePage(AllBytes());
    EXPECT_TRUE(FitsCodePage(text));
    EXPECT_EQ(ToCodePage(text), AllBytes());
}

TEST(CodePage, HasTheCharactersOfWindows1252) {
    EXPECT_EQ(FromCodePage("\x80"), "€");
    EXPECT_EQ(FromCodePage("\x93quoted\x94"), "“quoted”");
    EXPECT_EQ(FromCodePage("\x8A\x9A\x9F"), "ŠšŸ");
    EXPECT_EQ(FromCodePage("\xA3\xE9\xFF"), "£éÿ");
}

TEST(CodePage, GivesUndefinedBytesTheControlCharacterOfTheirNumber) {
    EXPECT_EQ(FromCodePage("\x81"), "\xC2\x81");
    EXPECT_EQ(FromCodePage("\x8D"), "\xC2\x8D");
    EXPECT_EQ(FromCodePage("\x8F"), "\xC2\x8F");
    EXPECT_EQ(FromCodePage("\x90"), "\xC2\x90");
    EXPECT_EQ(FromCodePage("\x9D"), "\xC2\x9D");
    EXPECT_EQ(ToCodePage("\xC2\x9D"), "\x9D");
}

TEST(CodePage, TurnsWhatItCannotHoldIntoAQuestionMark) {
    EXPECT_EQ(ToCodePage("aЖb"), "a?b");
    EXPECT_EQ(ToCodePage("😀"), "?");
    EXPECT_EQ(ToCodePage("\xC2\x80"), "?"); // the control character whose place the euro sign takes
    EXPECT_FALSE(FitsCodePage("aЖb"));
    EXPECT_TRUE(FitsCodePage("aé€b"));
    EXPECT_TRUE(FitsCodePage(""));
}

TEST(CodePage, CountsEachByteOfBrokenUtf8AsOneQuestionMark) {
    EXPECT_EQ(ToCodePage("a\xFF"), "a?");
    EXPECT_EQ(ToCodePage("\xC3"), "?");      // cut short
    EXPECT_EQ(ToCodePage("\x80x"), "?x");    // a continuation alone
    EXPECT_EQ(ToCodePage("\xC0\xAF"), "??"); // longer than needed
    EXPECT_EQ(ToCodePage("\xE0\x80\xAF"), "???");
    EXPECT_EQ(ToCodePage("\xED\xA0\x80"), "???"); // a surrogate
    EXPECT_FALSE(FitsCodePage("\xFF"));
}

TEST(Utf8, TakesOneCodePointAtATime) {
    std::string_view text = "é😀z";
    EXPECT_EQ(TakeCodePoint(text).value, U'é');
    EXPECT_EQ(TakeCodePoint(text).value, U'😀');
    EXPECT_EQ(TakeCodePoint(text).value, U'z');
    EXPECT_TRUE(text.empty());
}

TEST(Utf8, RefusesWhatLiesBeyondUnicode) {
    std::string_view text = "\xF4\x90\x80\x80";
    EXPECT_FALSE(TakeCodePoint(text).valid);
    EXPECT_EQ(text.size(), 3U);
}

TEST(Utf16, IsReadInTheOrderOfItsMark) {
    EXPECT_EQ(FromUtf16(LittleEndian(u"\uFEFFaéЖ")), "aéЖ");
    EXPECT_EQ(FromUtf16(BigEndian(u"\uFEFFaéЖ")), "aéЖ");
}

TEST(Utf16, IsLittleEndianWithoutAMark) { EXPECT_EQ(FromUtf16(LittleEndian(u"aЖ")), "aЖ"); }

TEST(Utf16, JoinsSurrogatePairs) {
    EXPECT_EQ(FromUtf16(LittleEndian(u"\uFEFF😀!")), "😀!");
    EXPECT_EQ(FromUtf16(BigEndian(u"\uFEFF😀!")), "😀!");
}

TEST(Utf16, ReplacesLoneSurrogates) {
    const char16_t lonelyHigh[] = {0xD83D, u'a', 0};
    const char16_t lonelyLow[] = {0xDE00, u'a', 0};
    const char16_t cutShort[] = {u'a', 0xD83D, 0};
    EXPECT_EQ(FromUtf16(LittleEndian(lonelyHigh)), "\uFFFDa");
    EXPECT_EQ(FromUtf16(LittleEndian(lonelyLow)), "\uFFFDa");
    EXPECT_EQ(FromUtf16(LittleEndian(cutShort)), "a\uFFFD");
}

TEST(Utf16, DropsATrailingOddByte) {
    EXPECT_EQ(FromUtf16(LittleEndian(u"ab") + "c"), "ab");
    EXPECT_EQ(FromUtf16("x"), "");
    EXPECT_EQ(FromUtf16(""), "");
}

} // namespace
} // namespace tamarind::text

#include "convert/hex.h"

#include "platform/expect_error.h"
#include "text/code_page.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace tamarind::convert {
namespace {

std::string Decoded(std::string_view text) {
    std::vector<std::uint8_t> bytes(text.size());
    bytes.resize(DecodeHex(text, bytes));
    return {bytes.begin(), bytes.end()};
}

TEST(Hex2Dec, ReadsDigitsOfBothCases) {
    EXPECT_EQ(Hex2Dec(""), 0);
    EXPECT_EQ(Hex2Dec("7C"), 124);
    EXPECT_EQ(Hex2Dec("7c"), 124);
    EXPECT_EQ(Hex2Dec("100"), 256);
    EXPECT_EQ(Hex2Dec("7FFFFFFF"), 2147483647);
}

TEST(Hex2Dec, CountsAnyOtherCharacterAsMinusOne) {
    EXPECT_EQ(Hex2Dec("G"), -1);
    EXPECT_EQ(Hex2Dec("1G"), 15);
    EXPECT_EQ(Hex2Dec("G1"), -15);
    EXPECT_EQ(Hex2Dec("GG"), -17);
    EXPECT_EQ(Hex2Dec(" 1"), -15);
    EXPECT_EQ(Hex2Dec("\xC3\xA9"), -1); // one character
}

TEST(Hex2Dec, OverflowsBeyondThirtyTwoBits) {
    EXPECT_EQ(tests::NumberOfError([] { static_cast<void>(Hex2Dec("80000000")); }), 6);
}

TEST(Dec2Hex, WritesNoLeadingZeros) {
    EXPECT_EQ(Dec2Hex(0), "");
    EXPECT_EQ(Dec2Hex(10), "A");
    EXPECT_EQ(Dec2Hex(256), "100");
    EXPECT_EQ(Dec2Hex(32767), "7FFF");
    EXPECT_EQ(Dec2Hex(-5), "FFFFFFFB");
}

TEST(DecodeHex, LeavesBlanksAndLineBreaksOut) { EXPECT_EQ(Decoded("4 1\r\n42 4\n3"), "ABC"); }

TEST(DecodeHex, TakesOtherCharactersAsMinusOneModulo256) {
    EXPECT_EQ(Decoded("4G"), "\x3F");  // 64 - 1
    EXPECT_EQ(Decoded("GG"), "\xEF");  // -17
    EXPECT_EQ(Decoded("\t1"), "\xF1"); // -15
    EXPECT_EQ(Decoded("\xC3\xA9"
                      "1"),
              "\xF1"); // one character, though two bytes
}

TEST(DecodeHex, LeavesAnOddLastDigitUnused) { EXPECT_EQ(Decoded("41424"), "AB"); }

TEST(DecodeHex, TakesSmallLetters) { EXPECT_EQ(Decoded("4a4B4c4D4e4F6a6B"), "JKLMNOjk"); }

TEST(DecodeHex, OfMoreThanThereIsRoomForIsAnError) {
    std::vector<std::uint8_t> bytes(1);
    EXPECT_EQ(DecodeHex("414", bytes), 1U);
    EXPECT_EQ(tests::NumberOfError([&] { DecodeHex("4142", bytes); }), 9);
    bytes.resize(8);
    EXPECT_EQ(tests::NumberOfError([&] { DecodeHex("0123456789ABCDEF 00", bytes); }), 9);
}

/// As the rule says it: characters left out, then pair by pair through Hex2Dec.
std::string DecodedByPairs(std::string_view text) {
    std::vector<std::string> characters;
    while (!text.empty()) {
        const std::string_view before = text;
        static_cast<void>(text::TakeCodePoint(text));
        const std::string character(before.substr(0, before.size() - text.size()));
        if (character != " " && character != "\r" && character != "\n") characters.push_back(character);
    }
    std::string bytes;
    for (std::size_t i = 0; i + 1 < characters.size(); i += 2)
        bytes += static_cast<char>(static_cast<unsigned char>(Hex2Dec(characters[i] + characters[i + 1]) & 0xFF));
    return bytes;
}

TEST(DecodeHex, GivesTheSameBytesAsPairByPairForCleanAndDirtyText) {
    std::mt19937 random(20240229);
    const auto below = [&random](std::size_t limit) { return static_cast<std::size_t>(random() % limit); };
    const std::string_view digits = "0123456789ABCDEFabcdef";
    const std::vector<std::string> dirt = {" ", "\n", "\r\n", "\t",       "G",    "g", "/",
                                           ":", "@",  "`",    "\xC3\xA9", "\x80", "x"};
    for (int round = 0; round < 3000; ++round) {
        const std::size_t dirtIn = std::vector<std::size_t>{0, 200, 20, 3}[below(4)];
        const bool grouped = below(2) == 0;
        std::string text;
        for (std::size_t i = 0, length = below(400); i < length; ++i) {
            if (grouped && i % 16 == 0 && i > 0) text += i % 64 == 0 ? "\n" : " ";
            text += digits[below(digits.size())];
            if (dirtIn != 0 && below(dirtIn) == 0) text += dirt[below(dirt.size())];
        }
        ASSERT_EQ(Decoded(text), DecodedByPairs(text)) << text;
    }
}

TEST(DecodeHex, KnowsEveryByteInEveryPlaceOfAGroup) {
    for (std::size_t place = 0; place < 16; ++place) {
        for (int byte = 0; byte < 128; ++byte) {
            std::string text = "0123456789abCDEF00112233445566778899";
            text[place] = static_cast<char>(byte);
            ASSERT_EQ(Decoded(text), DecodedByPairs(text)) << place << " " << byte;
        }
    }
}

TEST(HexLines, HaveFourGroupsOfEightBytes) {
    std::string bytes;
    for (int i = 0; i < 41; ++i)
        bytes += static_cast<char>(0xF0 + i);
    std::string text = "before:";
    AppendHexLines(text, bytes);
    EXPECT_EQ(text, "before:F0F1F2F3F4F5F6F7 F8F9FAFBFCFDFEFF 0001020304050607 08090A0B0C0D0E0F\n"
                    "1011121314151617 18\n");
}

TEST(HexLines, OfNoBytesAreNone) {
    std::string text;
    AppendHexLines(text, "");
    EXPECT_EQ(text, "");
}

TEST(HexLines, DecodeToTheSameBytesAtTheStatedLength) {
    std::string bytes;
    for (int i = 0; i < 300; ++i) {
        std::string text;
        AppendHexLines(text, bytes);
        ASSERT_EQ(text.size(), HexLinesLength(bytes.size()));
        ASSERT_EQ(Decoded(text), bytes);
        bytes += static_cast<char>(i * 37);
    }
}

} // namespace
} // namespace tamarind::convert

#include "convert/texture_picture.h"

#include "convert/png.h"
#include "convert/texture_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::convert {
namespace {

using tests::TextureText;
using Pixel = std::vector<int>;

Pixel At(const Picture& picture, int column, int row) {
    const auto first = picture.rgba.begin() + (row * picture.width + column) * 4;
    return {first, first + 4};
}

std::string Problem(const std::string& xml, std::size_t level = 0) {
    const DecodedTexture decoded = DecodeTexture(xml, level);
    EXPECT_FALSE(decoded.picture.has_value());
    return decoded.problem;
}

// Red F800 above blue 001F: between them 2/3 and 1/3. Bits 11 10 01 00 from the fourth pixel to the first.
TEST(DecodeTexture, MixesTwoColoursOfABlock) {
    const auto decoded = DecodeTexture(TextureText(tests::kDxt1, "4", "4", {{"8", "00F8 1F00 E4 00 55 FF"}}), 0);
    ASSERT_TRUE(decoded.picture) << decoded.problem;
    EXPECT_EQ(At(*decoded.picture, 0, 0), (Pixel{255, 0, 0, 255}));
    EXPECT_EQ(At(*decoded.picture, 1, 0), (Pixel{0, 0, 255, 255}));
    EXPECT_EQ(At(*decoded.picture, 2, 0), (Pixel{170, 0, 85, 255}));
    EXPECT_EQ(At(*decoded.picture, 3, 0), (Pixel{85, 0, 170, 255}));
    EXPECT_EQ(At(*decoded.picture, 3, 1), (Pixel{255, 0, 0, 255}));
    EXPECT_EQ(At(*decoded.picture, 0, 2), (Pixel{0, 0, 255, 255}));
    EXPECT_EQ(At(*decoded.picture, 3, 3), (Pixel{85, 0, 170, 255}));
    EXPECT_EQ(decoded.picture->label, "DXT1 ARGB");
    EXPECT_EQ(decoded.picture->levels, 1U);
}

// The other order: half of both, and a transparent one.
TEST(DecodeTexture, HasTransparentPixelsInDxt1) {
    const auto decoded = DecodeTexture(TextureText(tests::kDxt1, "4", "4", {{"8", "1F00 00F8 E4000000"}}), 0);
    ASSERT_TRUE(decoded.picture);
    EXPECT_EQ(At(*decoded.picture, 0, 0), (Pixel{0, 0, 255, 255}));
    EXPECT_EQ(At(*decoded.picture, 2, 0), (Pixel{127, 0, 127, 255}));
    EXPECT_EQ(At(*decoded.picture, 3, 0), (Pixel{0, 0, 0, 0}));
}

// Alpha digits 1 and F of the first byte: the left pixel has the lower one. No transparent colour whatever the order.
TEST(DecodeTexture, HasFourBitsOfAlphaInDxt3) {
    const auto decoded =
        DecodeTexture(TextureText(tests::kDxt3, "4", "4", {{"16", "F1000000000000 80 1F00 00F8 E4000000"}}), 0);
    ASSERT_TRUE(decoded.picture);
    EXPECT_EQ(At(*decoded.picture, 0, 0), (Pixel{0, 0, 255, 17}));
    EXPECT_EQ(At(*decoded.picture, 1, 0), (Pixel{255, 0, 0, 255}));
    EXPECT_EQ(At(*decoded.picture, 3, 0), (Pixel{170, 0, 85, 0}));
    EXPECT_EQ(At(*decoded.picture, 3, 3)[3], 0x88);
}

// Green 07E0 has six bits.
TEST(DecodeTexture, SpreadsTheBitsOfAColourOverItsByte) {
    const auto decoded = DecodeTexture(TextureText(tests::kDxt1, "1", "1", {{"8", "2108 0000 00000000"}}), 0);
    ASSERT_TRUE(decoded.picture);
    EXPECT_EQ(At(*decoded.picture, 0, 0), (Pixel{8, 4, 8, 255})); // 1 of 31, 1 of 63, 1 of 31
}

TEST(DecodeTexture, OrdersTheBytesOfBothUncompressedFormats) {
    const std::string hex = "03020104 07060508";
    const auto argb = DecodeTexture(TextureText(tests::kArgb, "2", "1", {{"8", hex}}), 0);
    ASSERT_TRUE(argb.picture);
    EXPECT_EQ(At(*argb.picture, 0, 0), (Pixel{1, 2, 3, 4}));
    EXPECT_EQ(At(*argb.picture, 1, 0), (Pixel{5, 6, 7, 8}));
    const auto rgb = DecodeTexture(TextureText(tests::kRgb, "2", "1", {{"8", hex}}), 0);
    ASSERT_TRUE(rgb.picture);
    EXPECT_EQ(At(*rgb.picture, 1, 0), (Pixel{5, 6, 7, 255}));
}

TEST(DecodeTexture, HalvesTheSidesFromLevelToLevelDownToOnePixel) {
    const std::string xml = TextureText(tests::kArgb, "4", "2",
                                        {{"32", std::string(64, '0')}, {"8", "0000000000000000"}, {"4", "0A0B0C0D"}});
    const auto second = DecodeTexture(xml, 1);
    ASSERT_TRUE(second.picture);
    EXPECT_EQ(second.picture->width, 2);
    EXPECT_EQ(second.picture->height, 1);
    const auto third = DecodeTexture(xml, 2);
    ASSERT_TRUE(third.picture);
    EXPECT_EQ(third.picture->width, 1);
    EXPECT_EQ(third.picture->height, 1);
    EXPECT_EQ(At(*third.picture, 0, 0), (Pixel{12, 11, 10, 13}));
    EXPECT_EQ(third.picture->level, 2U);
    EXPECT_EQ(third.picture->levels, 3U);
    EXPECT_EQ(Problem(xml, 3), "There is no level 3: this texture has 3.");
}

// 5 x 6 pixels are 2 x 2 blocks, of which the right and lower ones reach beyond the picture.
TEST(DecodeTexture, CutsBlocksAtTheEdges) {
    const std::string red = "00F8000000000000";
    const std::string blue = "1F00000000000000";
    const auto decoded = DecodeTexture(TextureText(tests::kDxt1, "5", "6", {{"32", red + blue + blue + red}}), 0);
    ASSERT_TRUE(decoded.picture);
    EXPECT_EQ(decoded.picture->rgba.size(), 120U);
    EXPECT_EQ(At(*decoded.picture, 3, 3), (Pixel{255, 0, 0, 255}));
    EXPECT_EQ(At(*decoded.picture, 4, 0), (Pixel{0, 0, 255, 255}));
    EXPECT_EQ(At(*decoded.picture, 0, 5), (Pixel{0, 0, 255, 255}));
    EXPECT_EQ(At(*decoded.picture, 4, 5), (Pixel{255, 0, 0, 255}));
}

TEST(DecodeTexture, SaysWhatIsWrong) {
    EXPECT_EQ(Problem(""), "This is no texture of a format that can be shown.");
    EXPECT_EQ(Problem(TextureText("OTHER", "4", "4", tests::Blobs(1))),
              "This is no texture of a format that can be shown.");
    EXPECT_EQ(Problem(TextureText(tests::kDxt1, "4", "4", {})), "There is no level 0: this texture has 0.");
    EXPECT_EQ(Problem(TextureText(tests::kDxt1, "4", "4", tests::Blobs(17))), "This is a multiple-texture file.");
    EXPECT_EQ(Problem(std::string("<Format>") + tests::kDxt1 + "</Format><d:blob d:size=\"8\">00"),
              "A \"<d:blob\" of this texture has no size or no end.");
    for (const char* width : {"0", "-4", "wide", "32768", ""}) {
        EXPECT_EQ(Problem(TextureText(tests::kDxt1, width, "4", tests::Blobs(1))),
                  "This texture has no width and height from 1 to 32767.");
    }
}

// 32767 x 32767 would take 4 GB: nothing is reserved for pixels that the blob does not hold.
TEST(DecodeTexture, RefusesBlobsThatAreTooShort) {
    EXPECT_EQ(Problem(TextureText(tests::kArgb, "32767", "32767", tests::Blobs(1))),
              "Level 0 of 32767 x 32767 pixels takes 4294705156 bytes of ARGB 8.8.8.8, but its blob holds 1.");
    EXPECT_EQ(Problem(TextureText(tests::kDxt1, "4", "4", {{"8", "0000000000000 0"}})),
              "Level 0 of 4 x 4 pixels takes 8 bytes of DXT1 ARGB, but its blob holds 7.");
}

TEST(DecodeTexture, LooksAtNoMoreOfABlobThanItNeeds) {
    const auto decoded = DecodeTexture(TextureText(tests::kArgb, "1", "1", {{"9", "030201040000000000"}}), 0);
    ASSERT_TRUE(decoded.picture);
    EXPECT_EQ(At(*decoded.picture, 0, 0), (Pixel{1, 2, 3, 4}));
}

// Signature, then the first chunk: width and height, 8 bits, colour with alpha.
TEST(EncodePng, WritesSizeAndKindOfThePicture) {
    const std::string png = EncodePng({.width = 2, .height = 3, .label = {}, .rgba = std::vector<std::uint8_t>(24)});
    EXPECT_EQ(png.substr(0, 26), std::string("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\0\x02\0\0\0\x03\x08\x06", 26));
}

} // namespace
} // namespace tamarind::convert

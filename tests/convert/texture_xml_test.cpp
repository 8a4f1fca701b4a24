#include "convert/texture_xml.h"

#include "convert/texture_sample.h"
#include "platform/expect_error.h"

#include <gtest/gtest.h>

namespace tamarind::convert {
namespace {

TEST(Formats, AreFourWithTheirLabels) {
    EXPECT_EQ(FindFormat("HC_IMAGE_FORMAT_COMPRESSED")->label, "DXT1 ARGB");
    EXPECT_EQ(FindFormat("HC_IMAGE_FORMAT_COMPRESSED_EXPL_ALPHA")->label, "DXT3 ARGB");
    EXPECT_EQ(FindFormat("HC_IMAGE_FORMAT_COL888")->label, "RGB 8.8.8");
    EXPECT_EQ(FindFormat("HC_IMAGE_FORMAT_COLA8888")->label, "ARGB 8.8.8.8");
    EXPECT_EQ(FindFormat("HC_IMAGE_FORMAT_COMPRESSED_INTERP_ALPHA"), nullptr);
    EXPECT_EQ(FindFormat(""), nullptr);
}

TEST(Formats, AreFoundWithoutRegardToLetterCase) {
    EXPECT_EQ(FindFormat("hc_image_format_Col888")->layout, PixelLayout::Rgb32);
    EXPECT_EQ(FindFormat(" HC_IMAGE_FORMAT_COL888"), nullptr);
}

TEST(FormatTexts, StandBetweenTheFirstTags) {
    EXPECT_EQ(FormatText("<a/><Format x=\"1\">one</Format><Format>two</Format>"), "one");
    EXPECT_EQ(FormatText("<Format></Format>"), "");
    EXPECT_EQ(FormatText("<a/>"), std::nullopt);
    EXPECT_EQ(FormatText("<Format"), std::nullopt);
    EXPECT_EQ(FormatText("<Format>one"), std::nullopt);
}

TEST(NumberTexts, EndAtTheNextTagOfAnyName) {
    EXPECT_EQ(NumberText("<Width d:type=\"n\">12<b>3</b></Width>", "<Width"), "12");
    EXPECT_EQ(NumberText("<Width>12", "<Width"), "");
    EXPECT_EQ(NumberText("", "<Width"), "");
}

TEST(FindBlobs, GivesSizesHexTextAndThePiecesAround) {
    const Blobs found =
        FindBlobs("<a><d:blob d:size=\"2\">0102</d:blob><b/><d:blob d:size=\"1\" x=\"y\"> 03\n</d:blob></a>");
    EXPECT_FALSE(found.isBroken);
    ASSERT_EQ(found.blobs.size(), 2U);
    EXPECT_EQ(found.blobs[0].size, "2");
    EXPECT_EQ(found.blobs[0].hex, "0102");
    // The hex text begins two characters behind the second quote, whatever follows there.
    EXPECT_EQ(found.blobs[1].hex, "x=\"y\"> 03\n");
    ASSERT_EQ(found.pieces.size(), 3U);
    EXPECT_EQ(found.pieces[0], "<a><d:blob d:size=\"2\">");
    EXPECT_EQ(found.pieces[1], "</d:blob><b/><d:blob d:size=\"1\" ");
    EXPECT_EQ(found.pieces[2], "</d:blob></a>");
}

TEST(FindBlobs, FindsNoneInOtherText) {
    EXPECT_TRUE(FindBlobs("<a>text</a>").blobs.empty());
    EXPECT_TRUE(FindBlobs("<a>text</a>").pieces.empty());
    EXPECT_FALSE(FindBlobs("").isBroken);
}

TEST(FindBlobs, TellsOfBlobsThatAreBroken) {
    EXPECT_TRUE(FindBlobs("<d:blob").isBroken);
    EXPECT_TRUE(FindBlobs("<d:blob d:size=\"1").isBroken);
    EXPECT_TRUE(FindBlobs("<d:blob d:size=\"1\">00").isBroken);
    EXPECT_TRUE(FindBlobs("<d:blob d:size=\"1\"").isBroken);
    EXPECT_TRUE(FindBlobs("<d:blob d:size=\"</d:blob>\"").isBroken);
    EXPECT_TRUE(FindBlobs("<d:blob d:size=\"1\"</d:blob>").isBroken);
}

TEST(FindBlobs, StopsAtTheSeventeenth) {
    EXPECT_EQ(FindBlobs(tests::TextureText(tests::kDxt1, "1", "1", tests::Blobs(16))).blobs.size(), 16U);
    EXPECT_EQ(FindBlobs(tests::TextureText(tests::kDxt1, "1", "1", tests::Blobs(40))).blobs.size(), 17U);
}

TEST(BlobSize, IsZeroForWhatIsNoNumber) {
    EXPECT_EQ(BlobSize({"32768", ""}), 32768);
    EXPECT_EQ(BlobSize({"many", ""}), 0);
    EXPECT_EQ(BlobSize({"", ""}), 0);
    EXPECT_EQ(BlobSize({"2147483647", ""}), 2147483647);
}

TEST(BlobSize, BeyondItsRangeIsAnError) {
    EXPECT_EQ(tests::NumberOfError([] { static_cast<void>(BlobSize({"2147483648", ""})); }), 6);
    EXPECT_EQ(tests::NumberOfError([] { static_cast<void>(BlobSize({"1e999", ""})); }), 6);
    EXPECT_EQ(tests::NumberOfError([] { static_cast<void>(BlobSize({"-1", ""})); }), 9);
}

TEST(Dimensions, OverflowAbove32767) {
    EXPECT_EQ(ReadDimension("32767"), 32767);
    EXPECT_EQ(tests::NumberOfError([] { static_cast<void>(ReadDimension("32768")); }), 6);
    EXPECT_EQ(tests::NumberOfError([] { static_cast<void>(ReadDimension("wide")); }), 13);
}

TEST(IsTexture, WantsABlobAndAKnownFormat) {
    EXPECT_TRUE(IsTexture(tests::TextureText(tests::kArgb, "1", "1", tests::Blobs(1))));
    EXPECT_FALSE(IsTexture(tests::TextureText(tests::kArgb, "1", "1", {})));
    EXPECT_FALSE(IsTexture(tests::TextureText("OTHER", "1", "1", tests::Blobs(1))));
    EXPECT_FALSE(IsTexture(""));
}

} // namespace
} // namespace tamarind::convert

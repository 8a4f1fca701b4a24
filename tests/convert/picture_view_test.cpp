#include "convert/picture_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::convert {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using Rgb = std::vector<std::uint8_t>;

Picture PictureOf(int width, int height, std::vector<std::uint8_t> rgba) {
    return {.width = width, .height = height, .level = 0, .levels = 1, .label = {}, .rgba = std::move(rgba)};
}

Picture Transparent(int width) {
    return PictureOf(width, 1, std::vector<std::uint8_t>(static_cast<std::size_t>(width) * 4, 0));
}

TEST(FitScale, ShrinksToTheTighterSide) {
    EXPECT_DOUBLE_EQ(FitScale({200, 100}, {100, 100}), 0.5);
    EXPECT_DOUBLE_EQ(FitScale({100, 400}, {100, 100}), 0.25);
}

TEST(FitScale, EnlargesASmallPictureByAWholeNumber) {
    EXPECT_DOUBLE_EQ(FitScale({64, 64}, {400, 300}), 4); // 300 / 64 is 4.7
    EXPECT_DOUBLE_EQ(FitScale({300, 300}, {400, 300}), 1);
}

TEST(FitScale, EnlargesByEightAtMost) { EXPECT_DOUBLE_EQ(FitScale({16, 16}, {400, 300}), 8); }

TEST(FitScale, FitsTheWidestPictureThereIs) { EXPECT_LE(32767 * FitScale({32767, 1}, {100, 100}), 100); }

TEST(NextScale, GoesUpAndDownTheUsualScales) {
    EXPECT_DOUBLE_EQ(NextScale(1, true), 1.5);
    EXPECT_DOUBLE_EQ(NextScale(1, false), 2.0 / 3);
    EXPECT_DOUBLE_EQ(NextScale(1.5, false), 1);
}

TEST(NextScale, GoesFromAnOddScaleToTheNextUsualOne) {
    EXPECT_DOUBLE_EQ(NextScale(0.7, true), 1);
    EXPECT_DOUBLE_EQ(NextScale(0.7, false), 2.0 / 3);
}

TEST(NextScale, StaysAtTheEnds) {
    EXPECT_DOUBLE_EQ(NextScale(32, true), 32);
    EXPECT_DOUBLE_EQ(NextScale(1.0 / 32, false), 1.0 / 32);
    EXPECT_DOUBLE_EQ(NextScale(0.001, false), 1.0 / 32);
}

TEST(ScaledSize, IsAtLeastOnePixel) { EXPECT_EQ(ScaledSize(Transparent(64), 0.125), (PixelSize{8, 1})); }

TEST(RenderRgb, ShowsEveryPixelAsASquareWhenEnlarged) {
    const Picture picture = PictureOf(2, 1, {255, 0, 0, 255, 0, 0, 255, 255});
    const Rgb row{255, 0, 0, 255, 0, 0, 0, 0, 255, 0, 0, 255};
    Rgb both = row;
    both.insert(both.end(), row.begin(), row.end());
    EXPECT_THAT(RenderRgb(picture, 2, {0, 0, 4, 2}), ElementsAreArray(both));
}

TEST(RenderRgb, ShowsTheMeanWhenReduced) {
    const Picture picture = PictureOf(2, 1, {255, 0, 0, 255, 0, 0, 255, 255});
    EXPECT_THAT(RenderRgb(picture, 0.5, {0, 0, 1, 1}), ElementsAre(128, 0, 128));
}

TEST(RenderRgb, TakesTheMeanOfRowsToo) {
    const Picture picture = PictureOf(1, 2, {200, 10, 0, 255, 100, 30, 0, 255});
    EXPECT_THAT(RenderRgb(picture, 0.5, {0, 0, 1, 1}), ElementsAre(150, 20, 0));
}

TEST(RenderRgb, ShowsAChequeredGroundOfEightPixelSquares) {
    const Rgb row = RenderRgb(Transparent(17), 1, {0, 0, 17, 1});
    EXPECT_EQ(row[0], 0xFF);
    EXPECT_EQ(row[7 * 3], 0xFF);
    EXPECT_EQ(row[8 * 3], 0xCC);
    EXPECT_EQ(row[15 * 3], 0xCC);
    EXPECT_EQ(row[16 * 3], 0xFF);
}

TEST(RenderRgb, LetsTheGroundThroughByTheAlpha) {
    // 128 of 255 parts black, 127 parts of the light square: 127 * 255 / 255.
    EXPECT_THAT(RenderRgb(PictureOf(1, 1, {0, 0, 0, 128}), 1, {0, 0, 1, 1}), ElementsAre(127, 127, 127));
}

TEST(RenderRgb, KeepsTheColourOfATransparentPixelOutOfTheMean) {
    // Red, and a green that nobody sees: half red, half light ground.
    const Picture picture = PictureOf(2, 1, {255, 0, 0, 255, 0, 255, 0, 0});
    EXPECT_THAT(RenderRgb(picture, 0.5, {0, 0, 1, 1}), ElementsAre(255, 128, 128));
}

TEST(RenderRgb, GivesThePartThatIsAskedFor) {
    std::vector<std::uint8_t> rgba;
    for (int i = 0; i < 16; ++i) {
        for (const int value : {i, 2 * i, 3 * i, 255})
            rgba.push_back(static_cast<std::uint8_t>(value));
    }
    const Picture picture = PictureOf(4, 4, std::move(rgba));
    EXPECT_THAT(RenderRgb(picture, 1, {2, 1, 2, 1}), ElementsAre(6, 12, 18, 7, 14, 21));
}

} // namespace
} // namespace tamarind::convert

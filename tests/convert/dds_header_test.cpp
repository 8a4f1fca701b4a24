#include "convert/dds_header.h"

#include <gtest/gtest.h>

#include <map>

namespace tamarind::convert {
namespace {

using Bytes = std::array<std::uint8_t, kDdsHeaderSize>;

/// All zero but for these.
Bytes Header(const std::map<std::size_t, int>& bytes) {
    Bytes header{};
    for (const auto& [offset, byte] : bytes)
        header[offset] = static_cast<std::uint8_t>(byte);
    return header;
}

// 256 x 256 in DXT1: 64 x 64 blocks of 8 bytes are 32768 = 0x8000.
TEST(DdsHeader, OfDxt1WithNineLevels) {
    EXPECT_EQ(MakeDdsHeader({PixelLayout::Dxt1, 256, 256, 32768, 9}),
              Header({{0, 'D'},   {1, 'D'},   {2, 'S'},   {3, ' '},   {4, 0x7C},   {8, 0x07},   {9, 0x10},
                      {10, 0x0A}, {13, 0x01}, {17, 0x01}, {21, 0x80}, {28, 9},     {76, 0x20},  {80, 0x04},
                      {84, 'D'},  {85, 'X'},  {86, 'T'},  {87, '1'},  {108, 0x08}, {109, 0x10}, {110, 0x40}}));
}

TEST(DdsHeader, OfOneLevelHasAnotherFlagAndNoCapabilities) {
    EXPECT_EQ(MakeDdsHeader({PixelLayout::Dxt1, 256, 256, 32768, 1}), Header({{0, 'D'},
                                                                              {1, 'D'},
                                                                              {2, 'S'},
                                                                              {3, ' '},
                                                                              {4, 0x7C},
                                                                              {8, 0x07},
                                                                              {9, 0x10},
                                                                              {10, 0x08},
                                                                              {13, 0x01},
                                                                              {17, 0x01},
                                                                              {21, 0x80},
                                                                              {28, 1},
                                                                              {76, 0x20},
                                                                              {80, 0x04},
                                                                              {84, 'D'},
                                                                              {85, 'X'},
                                                                              {86, 'T'},
                                                                              {87, '1'}}));
}

// 300 = 0x012C, 7 = 0x07; 0x12345678 bytes.
TEST(DdsHeader, OfDxt3HasWidthHeightAndSizeLowByteFirst) {
    EXPECT_EQ(MakeDdsHeader({PixelLayout::Dxt3, 300, 7, 0x12345678, 2}),
              Header({{0, 'D'},   {1, 'D'},    {2, 'S'},    {3, ' '},   {4, 0x7C},  {8, 0x07},  {9, 0x10},
                      {10, 0x0A}, {12, 0x07},  {16, 0x2C},  {17, 0x01}, {20, 0x78}, {21, 0x56}, {22, 0x34},
                      {23, 0x12}, {28, 2},     {76, 0x20},  {80, 0x04}, {84, 'D'},  {85, 'X'},  {86, 'T'},
                      {87, '3'},  {108, 0x08}, {109, 0x10}, {110, 0x40}}));
}

TEST(DdsHeader, OfThirtyTwoBitsWithAlpha) {
    EXPECT_EQ(MakeDdsHeader({PixelLayout::Argb32, 16, 16, 1024, 5}),
              Header({{0, 'D'},   {1, 'D'},   {2, 'S'},   {3, ' '},    {4, 0x7C},   {8, 0x07},  {9, 0x10},
                      {10, 0x0A}, {12, 0x10}, {16, 0x10}, {22, 0x04},  {28, 5},     {76, 0x20}, {80, 0x41},
                      {88, 0x20}, {94, 0xFF}, {97, 0xFF}, {100, 0xFF}, {107, 0xFF}, {110, 0xFF}}));
}

TEST(DdsHeader, OfThirtyTwoBitsWithoutAlphaDiffersInOneByte) {
    EXPECT_EQ(MakeDdsHeader({PixelLayout::Rgb32, 16, 16, 1024, 1}),
              Header({{0, 'D'},   {1, 'D'},   {2, 'S'},   {3, ' '},    {4, 0x7C},   {8, 0x07},  {9, 0x10},
                      {10, 0x08}, {12, 0x10}, {16, 0x10}, {22, 0x40},  {28, 1},     {76, 0x20}, {80, 0x41},
                      {88, 0x20}, {94, 0xFF}, {97, 0xFF}, {100, 0xFF}, {107, 0xFF}, {110, 0xFF}}));
}

TEST(DdsHeader, ReadsTheDecimalDigitsOfTheCountAsHexadecimal) {
    const auto count = [](std::size_t levels) { return int{MakeDdsHeader({PixelLayout::Dxt1, 4, 4, 8, levels})[28]}; };
    EXPECT_EQ(count(9), 9);
    EXPECT_EQ(count(10), 16);
    EXPECT_EQ(count(13), 19);
    EXPECT_EQ(count(16), 22);
}

TEST(DdsHeader, HasTheLargestWidthInTwoBytes) {
    const Bytes header = MakeDdsHeader({PixelLayout::Dxt1, 32767, 0, 8, 1});
    EXPECT_EQ(header[16], 0xFF);
    EXPECT_EQ(header[17], 0x7F);
    EXPECT_EQ(header[12] | header[13], 0);
}

} // namespace
} // namespace tamarind::convert

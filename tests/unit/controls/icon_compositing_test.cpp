#include "controls/icon_compositing.h"

#include <gtest/gtest.h>

namespace quillo {
namespace {

constexpr ColorWord kMagenta = ColorWord::FromRgb(0xFF, 0, 0xFF);
constexpr ColorWord kGround = ColorWord::FromRgb(10, 20, 30);
constexpr std::uint32_t kGroundPixel = 0x000A141EU;

TEST(CompositeIconsTest, TheMaskColorBecomesTheBackground) {
    const PixelPicture result =
        CompositeIcons(PixelPicture{2, 2, {0x00FF00FFU, 0x00123456U, 0x00FF00FEU, 0x00FF00FFU}}, kMagenta, kGround);
    EXPECT_EQ(result.width, 2);
    EXPECT_EQ(result.height, 2);
    EXPECT_EQ(result.pixels, (std::vector<std::uint32_t>{kGroundPixel, 0x00123456U, 0x00FF00FEU, kGroundPixel}));
}

TEST(CompositeIconsTest, AnyColorCanBeTheMask) {
    const PixelPicture result =
        CompositeIcons(PixelPicture{2, 1, {0x00FF00FFU, 0x00123456U}}, ColorWord::FromRgb(0x12, 0x34, 0x56), kGround);
    EXPECT_EQ(result.pixels, (std::vector<std::uint32_t>{0x00FF00FFU, kGroundPixel}));
}

TEST(CompositeIconsTest, AlphaBlendsAPixelOntoTheBackground) {
    const PixelPicture result =
        CompositeIcons(PixelPicture{4, 1, {0xFF646464U, 0x00646464U, 0x80646464U, 0xFFFF00FFU}}, kMagenta, kGround);
    // Half of 100 over 10, 20 and 30.
    EXPECT_EQ(result.pixels, (std::vector<std::uint32_t>{0x00646464U, kGroundPixel, 0x00373C41U, kGroundPixel}));
}

TEST(CompositeIconsTest, AnEmptyPictureStaysEmpty) {
    EXPECT_TRUE(CompositeIcons(PixelPicture{}, kMagenta, kGround).pixels.empty());
}

}  // namespace
}  // namespace quillo

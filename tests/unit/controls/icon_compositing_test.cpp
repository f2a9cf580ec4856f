#include "controls/icon_compositing.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quillo {
namespace {

using Pixels = std::vector<std::uint32_t>;

constexpr ColorWord kMagenta = ColorWord::FromRgb(0xFF, 0, 0xFF);
constexpr ColorWord kGround = ColorWord::FromRgb(10, 20, 30);
constexpr std::uint32_t kGroundPixel = 0x000A141EU;

/// A picture from pixels 0xAARRGGBB; with three planes it has no alpha.
CoveragePlanes Picture(Size size, const Pixels& pixels, std::size_t planes = kPicturePlanes) {
    CoveragePlanes picture{size, std::vector<CoveragePlane>(planes)};
    for (const std::uint32_t pixel : pixels) {
        const unsigned shifts[] = {16, 8, 0, 24};
        for (std::size_t i = 0; i < planes; ++i) {
            picture.planes[i].push_back(static_cast<std::uint8_t>(pixel >> shifts[i] & 0xFFU));
        }
    }
    return picture;
}

TEST(CompositeIconsTest, TheMaskColorBecomesTheBackground) {
    const CoveragePlanes picture = Picture(Size{2, 2}, {0x00FF00FFU, 0x00123456U, 0x00FF00FEU, 0x00FF00FFU});
    EXPECT_EQ(CompositeIcons(picture, 2, kMagenta, kGround),
              (Pixels{kGroundPixel, 0x00123456U, 0x00FF00FEU, kGroundPixel}));
}

TEST(CompositeIconsTest, AnyColorCanBeTheMask) {
    const CoveragePlanes picture = Picture(Size{2, 1}, {0x00FF00FFU, 0x00123456U});
    EXPECT_EQ(CompositeIcons(picture, 1, ColorWord::FromRgb(0x12, 0x34, 0x56), kGround),
              (Pixels{0x00FF00FFU, kGroundPixel}));
}

TEST(CompositeIconsTest, AlphaBlendsAPixelOntoTheBackground) {
    const CoveragePlanes picture = Picture(Size{4, 1}, {0xFF646464U, 0x00646464U, 0x80646464U, 0xFFFF00FFU});
    // Half of 100 over 10, 20 and 30.
    EXPECT_EQ(CompositeIcons(picture, 1, kMagenta, kGround),
              (Pixels{0x00646464U, kGroundPixel, 0x00373C41U, kGroundPixel}));
}

TEST(CompositeIconsTest, APictureWithoutAlphaIsOpaque) {
    const Pixels colors = {0x00646464U, 0x00010203U};
    EXPECT_EQ(CompositeIcons(Picture(Size{2, 1}, colors, 3), 1, kMagenta, kGround), colors);
    EXPECT_EQ(CompositeIcons(Picture(Size{2, 1}, colors), 1, kMagenta, kGround), colors) << "its alpha is 0 everywhere";
}

TEST(CompositeIconsTest, AnIconOfItsOwnSizeKeepsEveryPixel) {
    Pixels colors;
    for (std::uint32_t i = 0; i < 24 * 12; ++i) colors.push_back((i * 0x00010203U) & 0x00FFFFFFU);
    EXPECT_EQ(CompositeIcons(Picture(Size{24, 12}, colors, 3), 12, kMagenta, kGround), colors);
}

TEST(CompositeIconsTest, ASmallerIconHasTheMeansOfTheComposedColors) {
    // Two icons of two pixels each side: the mask color on the left half of the first, one color in the second.
    const std::uint32_t ink = 0x00646464U;
    const Pixels colors = {0x00FF00FFU, ink, ink, ink, 0x00FF00FFU, ink, ink, ink};
    const CoveragePlanes picture = Picture(Size{4, 2}, colors, 3);
    EXPECT_EQ(CompositeIcons(picture, 1, kMagenta, kGround), (Pixels{0x00373C41U, ink})) << "no magenta in the mean";
}

TEST(CompositeIconsTest, ALargerIconRepeatsThePixels) {
    const CoveragePlanes picture = Picture(Size{2, 1}, {0x00102030U, 0x00405060U}, 3);
    EXPECT_EQ(CompositeIcons(picture, 2, kMagenta, kGround),
              (Pixels{0x00102030U, 0x00102030U, 0x00405060U, 0x00405060U, 0x00102030U, 0x00102030U, 0x00405060U,
                      0x00405060U}));
}

TEST(CompositeIconsTest, AStripAtAnotherEdgeKeepsItsIconsSquare) {
    EXPECT_EQ(IconStripSize(Size{4 * 48, 48}, 42), (Size{4 * 42, 42}));
    const CoveragePlanes picture = Picture(Size{4 * 48, 48}, Pixels(4 * 48 * 48, 0x00102030U), 3);
    const Pixels smaller = CompositeIcons(picture, 42, kMagenta, kGround);
    EXPECT_EQ(smaller, Pixels(4 * 42 * 42, 0x00102030U));
}

TEST(CompositeIconsTest, OtherPlanesAreNoPicture) {
    EXPECT_TRUE(CompositeIcons({}, 16, kMagenta, kGround).empty());
    EXPECT_TRUE(CompositeIcons(Picture(Size{1, 1}, {0x00102030U}, 2), 1, kMagenta, kGround).empty());
}

}  // namespace
}  // namespace quillo

#include "controls/button_strip.h"

#include <gtest/gtest.h>

namespace quillo {
namespace {

constexpr ButtonTint kTint{ColorWord::FromRgb(200, 100, 50), ColorWord::FromRgb(100, 50, 0),
                           ColorWord::FromRgb(0, 0, 0)};

/// A strip with the same coverage everywhere.
CoveragePlanes Uniform(int frame, std::uint8_t glyph, std::uint8_t plate) {
    const Size size = ButtonStripSize(frame);
    const auto pixels = static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
    return CoveragePlanes{size, {CoveragePlane(pixels, glyph), CoveragePlane(pixels, plate)}};
}

TEST(ButtonStrip, TheBarRunsFromTopToBottomOfEachFrame) {
    const auto pixels = ComposeButtons(Uniform(3, 0, 0), kTint);
    ASSERT_EQ(pixels.size(), 9U * 15U);
    for (std::size_t y = 0; y < 15; ++y) {
        const std::uint32_t expected[] = {0xC86432, 0x964B19, 0x643200};
        for (std::size_t x = 0; x < 9; ++x) EXPECT_EQ(pixels[y * 9 + x], expected[y % 3]) << x << ", " << y;
    }
}

TEST(ButtonStrip, FaintGlyphsAreFaintAtRestOnly) {
    ButtonTint tint{kTint.top, kTint.top, kTint.glyph, true};
    const auto pixels = ComposeButtons(Uniform(1, 255, 0), tint);
    EXPECT_NE(pixels[0], 0U) << "at rest the bar shines through";
    EXPECT_EQ(pixels[1], 0U) << "hot";
    EXPECT_EQ(pixels[2], 0U) << "pressed";
    tint.faint = false;
    EXPECT_EQ(ComposeButtons(Uniform(1, 255, 0), tint)[0], 0U);
}

TEST(ButtonStrip, APlateIsUnderItsGlyph) {
    const ButtonTint tint{kTint.top, kTint.top, ColorWord::FromRgb(255, 255, 255)};
    const auto pixels = ComposeButtons(Uniform(1, 0, 51), tint);
    EXPECT_EQ(pixels[0], 0xD3835BU) << "a fifth of the way to the color of the glyph";
}

TEST(ButtonStrip, IsResizedToTheFrame) {
    const CoveragePlanes strip = ButtonStripAt(Uniform(30, 90, 60), 25);
    EXPECT_EQ(strip.size, ButtonStripSize(25));
    ASSERT_EQ(strip.planes.size(), kButtonPlanes);
    EXPECT_EQ(strip.planes[0], CoveragePlane(75U * 125U, 90));
    EXPECT_EQ(strip.planes[1], CoveragePlane(75U * 125U, 60));
}

TEST(ButtonStrip, WithoutItsDrawingThereIsOnlyTheBar) {
    const CoveragePlanes strip = ButtonStripAt({}, 2);
    EXPECT_EQ(ComposeButtons(strip, kTint), ComposeButtons(Uniform(2, 0, 0), kTint));
    CoveragePlanes incomplete = Uniform(2, 90, 60);
    incomplete.planes.pop_back();
    EXPECT_EQ(ButtonStripAt(incomplete, 2).planes, strip.planes) << "one of the planes is missing";
}

}  // namespace
}  // namespace quillo

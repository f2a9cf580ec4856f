#include "mainmenu/menu_artwork.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace quillo {
namespace {

DIBSECTION SectionOf(const BitmapHandle& bitmap) {
    DIBSECTION section{};
    GetObjectW(bitmap.Get(), sizeof section, &section);
    return section;
}

std::uint32_t PixelAt(const BitmapHandle& bitmap, int x, int y) {
    const DIBSECTION section = SectionOf(bitmap);
    return static_cast<const std::uint32_t*>(section.dsBm.bmBits)[y * section.dsBm.bmWidth + x];
}

TEST(MenuArtwork, HasEveryResolution) {
    MenuArtwork artwork;
    for (const int dpi : {96, 120, 132, 144, 168, 192, 240, 288}) {
        const Scale scale(dpi);
        const DIBSECTION main = SectionOf(artwork.MainPic(scale, {}));
        EXPECT_EQ(main.dsBm.bmWidth, scale.Px(300)) << dpi;
        EXPECT_EQ(std::abs(main.dsBmih.biHeight), 2 * scale.Px(180)) << dpi;
        const DIBSECTION disabled = SectionOf(artwork.ShowAllDisabledPic(scale));
        EXPECT_EQ(disabled.dsBm.bmWidth, scale.Px(200) - scale.Px(100)) << dpi;
        EXPECT_EQ(std::abs(disabled.dsBmih.biHeight), scale.Px(120) - scale.Px(40)) << dpi;
    }
}

TEST(MenuArtwork, EveryItemLightsUpInItsArea) {
    MenuArtwork artwork;
    const BitmapHandle pic = artwork.MainPic(Scale(96), {});
    // A corner of each item's tile, outside its drawing.
    const POINT inside[] = {{240, 8},   {274, 8},   {10, 60},   {110, 60}, {210, 60},
                            {110, 140}, {160, 140}, {210, 140}, {260, 140}};
    for (const POINT& point : inside) {
        EXPECT_NE(PixelAt(pic, point.x, point.y), PixelAt(pic, point.x, point.y + 180)) << point.x << ", " << point.y;
    }
    // Nothing is drawn under the word mark, and the lines between the areas stay.
    for (const POINT& point : {POINT{60, 35}, POINT{100, 100}, POINT{150, 40}, POINT{200, 120}, POINT{0, 0}}) {
        EXPECT_EQ(PixelAt(pic, point.x, point.y), PixelAt(pic, point.x, point.y + 180)) << point.x << ", " << point.y;
    }
}

TEST(MenuArtwork, TheDisabledItemHasTheBackgroundOfTheNormalOne) {
    MenuArtwork artwork;
    const BitmapHandle pic = artwork.MainPic(Scale(96), {});
    const BitmapHandle disabled = artwork.ShowAllDisabledPic(Scale(96));
    EXPECT_EQ(PixelAt(disabled, 5, 20), PixelAt(pic, 105, 60));
    EXPECT_EQ(PixelAt(disabled, 0, 40), PixelAt(pic, 100, 80));  // the line to its left
    int fainter = 0;
    for (int y = 0; y < kShowAllPlace.height; ++y) {
        for (int x = 0; x < kShowAllPlace.width; ++x) {
            const int shown = static_cast<int>(PixelAt(disabled, x, y) & 0xFFU);
            const int normal = static_cast<int>(PixelAt(pic, 100 + x, 40 + y) & 0xFFU);
            // Blue is low both in ink and in the yellow edge.
            EXPECT_GE(shown, normal) << x << ", " << y;
            if (shown > normal + 100) ++fainter;
        }
    }
    EXPECT_GT(fainter, 200);
}

}  // namespace
}  // namespace quillo

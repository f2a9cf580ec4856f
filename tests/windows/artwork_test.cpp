#include "platform/artwork.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <set>
#include <vector>

#include "controls/icon_compositing.h"
#include "platform/app_icons.h"
#include "platform/dib.h"
#include "platform/gdi_scope.h"
#include "platform/window.h"
#include "resources/resource_ids.h"

namespace quillo {
namespace {

constexpr std::uint32_t kGround = 0x00FF00FF;

/// An icon drawn at its own size on a background color that no picture has.
std::vector<std::uint32_t> Drawn(const IconHandle& icon, int edge) {
    std::uint32_t* pixels = nullptr;
    const BitmapHandle bitmap = MakeDib(Size{edge, edge}, &pixels);
    const std::size_t count = static_cast<std::size_t>(edge) * static_cast<std::size_t>(edge);
    std::fill_n(pixels, count, kGround);
    const MemoryDc dc(CreateCompatibleDC(nullptr));
    const SelectScope selected(dc.Get(), bitmap.Get());
    EXPECT_TRUE(DrawIconEx(dc.Get(), 0, 0, icon.Get(), edge, edge, 0, nullptr, DI_NORMAL));
    GdiFlush();
    std::vector<std::uint32_t> drawn;
    for (std::size_t i = 0; i < count; ++i) drawn.push_back(pixels[i] & 0xFFFFFFU);
    return drawn;
}

int EdgeOf(const IconHandle& icon) {
    ICONINFO info{};
    if (GetIconInfo(icon.Get(), &info) == FALSE) return 0;
    const BitmapHandle color(info.hbmColor);
    const BitmapHandle mask(info.hbmMask);
    BITMAP picture{};
    GetObjectW(color.Get(), sizeof picture, &picture);
    return picture.bmWidth;
}

TEST(Artwork, EverySizeOfTheIconsLoadsAndIsDrawn) {
    for (const int resource : {IDI_QUILLO, IDI_NOTE_FILE}) {
        for (const int edge : {16, 20, 24, 32, 40, 48, 64, 128, 256}) {
            const IconHandle icon = LoadIconOfSize(resource, edge);
            ASSERT_TRUE(icon) << resource << ", " << edge;
            EXPECT_EQ(EdgeOf(icon), edge) << resource;
            const auto drawn = Drawn(icon, edge);
            const auto ground = std::count(drawn.begin(), drawn.end(), kGround);
            EXPECT_EQ(drawn.front(), kGround) << resource << ", " << edge;  // a corner is empty
            EXPECT_LT(ground, edge * edge / 2) << resource << ", " << edge;
            EXPECT_GT(std::set<std::uint32_t>(drawn.begin(), drawn.end()).size(), 4U) << resource << ", " << edge;
        }
    }
}

TEST(Artwork, AGlyphHasTheColorThatIsAskedForAtEveryResolution) {
    constexpr ColorWord kColor = ColorWord::FromRgb(0x12, 0x34, 0x56);
    for (int number = 0; number < static_cast<int>(Glyph::Count); ++number) {
        for (const int edge : {20, 25, 28, 30, 35, 40, 60}) {
            const IconHandle icon = MakeGlyphIcon(static_cast<Glyph>(number), edge, kColor);
            ASSERT_TRUE(icon) << number << ", " << edge;
            EXPECT_EQ(EdgeOf(icon), edge);
            const auto drawn = Drawn(icon, edge);
            EXPECT_GT(std::count(drawn.begin(), drawn.end(), 0x123456U), 2) << number << ", " << edge;
            EXPECT_GT(std::count(drawn.begin(), drawn.end(), kGround), edge * edge / 2) << number << ", " << edge;
        }
    }
    EXPECT_FALSE(MakeGlyphIcon(Glyph::Bell, 0, kColor));
}

TEST(Artwork, APictureKeepsItsChannels) {
    const CoveragePlanes tabs = LoadPlanes(IDR_TAB_ICONS_16, kPicturePlanes);
    ASSERT_EQ(tabs.planes.size(), kPicturePlanes);
    EXPECT_EQ(tabs.size, (Size{4 * 16, 16}));
    const CoveragePlane& alpha = tabs.planes[3];
    EXPECT_GT(std::count(alpha.begin(), alpha.end(), 0), 0);
    EXPECT_GT(std::count(alpha.begin(), alpha.end(), 0xFF), 0);
    EXPECT_TRUE(LoadPlanes(IDR_NOTE_BUTTONS_100, kPicturePlanes).planes.empty()) << "two planes are no picture";
}

}  // namespace
}  // namespace quillo

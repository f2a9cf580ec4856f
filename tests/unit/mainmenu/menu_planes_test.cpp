#include "mainmenu/menu_planes.h"

#include <gtest/gtest.h>

namespace quillo {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kPlanes = static_cast<std::size_t>(MenuPlane::Count);

/// A drawing of 2 by 2 pixels, every plane packed as `packed`.
Bytes Drawing(const Bytes& packed, std::size_t planes = kPlanes) {
    Bytes bytes{2, 0, 2, 0, static_cast<std::uint8_t>(planes), 0};
    for (std::size_t i = 0; i < planes; ++i) {
        bytes.insert(bytes.end(), {static_cast<std::uint8_t>(packed.size()), 0, 0, 0});
        bytes.insert(bytes.end(), packed.begin(), packed.end());
    }
    return bytes;
}

MenuPlanes Blank(Size size) {
    MenuPlanes planes;
    planes.size = size;
    for (auto& plane : planes.planes) plane.assign(static_cast<std::size_t>(size.width * size.height), 0);
    return planes;
}

std::vector<std::uint8_t>& PlaneOf(MenuPlanes& planes, MenuPlane plane) {
    return planes.planes[static_cast<std::size_t>(plane)];
}

TEST(MenuPlanes, ReadsRunsAndPlainBytes) {
    const MenuPlanes planes = ReadMenuPlanes(Drawing({255, 9, 1, 7, 8}));  // twice 9, then two bytes as they are
    EXPECT_EQ(planes.size, (Size{2, 2}));
    const auto ink = planes[MenuPlane::Ink];
    EXPECT_EQ(Bytes(ink.begin(), ink.end()), (Bytes{9, 9, 7, 8}));
}

TEST(MenuPlanes, RefusesDamagedDrawings) {
    const Bytes good = Drawing({253, 5});
    ASSERT_EQ(ReadMenuPlanes(good).size, (Size{2, 2}));
    for (std::size_t length = 0; length < good.size(); ++length) {
        EXPECT_EQ(ReadMenuPlanes(std::span(good).first(length)).size, (Size{0, 0})) << length;
    }
    Bytes longer = good;
    longer.push_back(0);
    const Bytes bad[] = {
        longer,                       // something follows
        Drawing({253, 5}, 3),         // planes are missing
        Drawing({252, 5}),            // a pixel too many
        Drawing({254, 5}),            // a pixel too few
        Drawing({128, 5}),            // the count that means nothing
        Drawing({3, 5}),              // bytes are announced that do not follow
        Bytes{0, 0, 2, 0, 10, 0},     // no width
        Bytes{255, 255, 2, 0, 10, 0}  // wider than any screen
    };
    for (const Bytes& bytes : bad) EXPECT_EQ(ReadMenuPlanes(bytes).size, (Size{0, 0}));
}

TEST(MenuPlanes, ResizeKeepsMeans) {
    MenuPlanes planes = Blank(Size{4, 2});
    PlaneOf(planes, MenuPlane::Ink) = {0, 100, 200, 200, 100, 200, 200, 200};
    const MenuPlanes half = Resize(planes, Size{2, 1});
    EXPECT_EQ(half.size, (Size{2, 1}));
    EXPECT_EQ(half[MenuPlane::Ink][0], 100);
    EXPECT_EQ(half[MenuPlane::Ink][1], 200);
    const MenuPlanes twice = Resize(planes, Size{8, 4});
    EXPECT_EQ(twice[MenuPlane::Ink][0], 0);
    EXPECT_EQ(twice[MenuPlane::Ink][2 + 8], 100);
    EXPECT_EQ(Resize(MenuPlanes{}, Size{8, 4}).size, (Size{0, 0}));
}

TEST(MenuPlanes, EachFaceColorsWhatItShows) {
    MenuPlanes planes = Blank(Size{3, 1});
    PlaneOf(planes, MenuPlane::Tile) = {255, 255, 255};
    PlaneOf(planes, MenuPlane::Glyph) = {0, 255, 0};
    PlaneOf(planes, MenuPlane::Ink) = {0, 0, 255};
    using Pixels = std::vector<std::uint32_t>;
    EXPECT_EQ(ComposeMenu(planes, ColorsOf(MenuFace::Normal), {}), (Pixels{0xFBF9F1, 0x2B2A27, 0x2B2A27}));
    // The ground takes the hover tint and the glyph a dark accent; the words stay legible.
    EXPECT_EQ(ComposeMenu(planes, ColorsOf(MenuFace::Highlighted), {}), (Pixels{0xF6EAD0, 0xA86C02, 0x2B2A27}));
    EXPECT_EQ(ComposeMenu(planes, ColorsOf(MenuFace::Disabled), {}), (Pixels{0xFBF9F1, 0xACAAA4, 0xACAAA4}));
}

TEST(MenuPlanes, HighContrastUsesTheUsersColorsAlone) {
    MenuPlanes planes = Blank(Size{7, 1});
    PlaneOf(planes, MenuPlane::Panel) = {255, 0, 0, 0, 0, 0, 0};
    PlaneOf(planes, MenuPlane::Paper) = {0, 255, 0, 0, 0, 0, 0};
    PlaneOf(planes, MenuPlane::Line) = {0, 0, 255, 0, 0, 0, 0};
    PlaneOf(planes, MenuPlane::Well) = {0, 0, 0, 255, 0, 0, 0};
    PlaneOf(planes, MenuPlane::Tile) = {0, 0, 0, 0, 255, 255, 255};
    PlaneOf(planes, MenuPlane::Glyph) = {0, 0, 0, 0, 0, 255, 0};
    PlaneOf(planes, MenuPlane::Ink) = {0, 0, 0, 0, 0, 0, 255};
    const ContrastColors contrast{ColorWord::FromRgb(0, 0, 1), ColorWord::FromRgb(0, 0, 2), ColorWord::FromRgb(0, 0, 3),
                                  ColorWord::FromRgb(0, 0, 4), ColorWord::FromRgb(0, 0, 5)};
    using Pixels = std::vector<std::uint32_t>;
    EXPECT_EQ(ComposeMenu(planes, ColorsOf(MenuFace::Normal, contrast), {}), (Pixels{1, 1, 2, 3, 1, 2, 2}));
    EXPECT_EQ(ComposeMenu(planes, ColorsOf(MenuFace::Highlighted, contrast), {}), (Pixels{1, 1, 2, 3, 4, 5, 5}));
    EXPECT_EQ(ComposeMenu(planes, ColorsOf(MenuFace::Disabled, contrast), {}), (Pixels{1, 1, 2, 3, 1, 3, 3}));
}

TEST(MenuPlanes, AFilledSlotHasNoWell) {
    MenuPlanes planes = Blank(Size{600, 1});
    PlaneOf(planes, MenuPlane::Well).assign(600, 255);
    const auto pixels = ComposeMenu(planes, ColorsOf(MenuFace::Normal), FilledSlots{false, true, false, true});
    const std::uint32_t well = pixels[250];  // x 125 at 96 dpi
    EXPECT_NE(well, 0xFBF9F1U);
    EXPECT_EQ(pixels[299], well);
    EXPECT_EQ(pixels[300], 0xFBF9F1U);
    EXPECT_EQ(pixels[399], 0xFBF9F1U);
    EXPECT_EQ(pixels[400], well);
    EXPECT_EQ(pixels[500], 0xFBF9F1U);
    EXPECT_EQ(pixels[599], 0xFBF9F1U);
}

}  // namespace
}  // namespace quillo

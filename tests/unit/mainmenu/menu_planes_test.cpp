#include "mainmenu/menu_planes.h"

#include <gtest/gtest.h>

namespace quillo {
namespace {

constexpr std::size_t kPlanes = static_cast<std::size_t>(MenuPlane::Count);

MenuPlanes Blank(Size size) {
    MenuPlanes planes;
    planes.size = size;
    for (auto& plane : planes.planes) plane.assign(static_cast<std::size_t>(size.width * size.height), 0);
    return planes;
}

std::vector<std::uint8_t>& PlaneOf(MenuPlanes& planes, MenuPlane plane) {
    return planes.planes[static_cast<std::size_t>(plane)];
}

TEST(MenuPlanes, TakesTheDrawingsPlanesInTheirOrder) {
    CoveragePlanes drawing{Size{1, 1}, {}};
    for (std::size_t i = 0; i < kPlanes; ++i) drawing.planes.push_back({static_cast<std::uint8_t>(i)});
    const MenuPlanes menu = ToMenuPlanes(drawing);
    EXPECT_EQ(menu.size, (Size{1, 1}));
    EXPECT_EQ(menu[MenuPlane::Panel][0], 0);
    EXPECT_EQ(menu[MenuPlane::Ink][0], kPlanes - 1);
    drawing.planes.pop_back();
    EXPECT_EQ(ToMenuPlanes(drawing).size, (Size{0, 0}));
}

TEST(MenuPlanes, EachFaceHasItsColors) {
    MenuPlanes planes = Blank(Size{3, 1});
    PlaneOf(planes, MenuPlane::Tile) = {255, 255, 255};
    PlaneOf(planes, MenuPlane::Glyph) = {0, 255, 0};
    PlaneOf(planes, MenuPlane::Ink) = {0, 0, 255};
    using Pixels = std::vector<std::uint32_t>;
    EXPECT_EQ(ComposeMenu(planes, ColorsOf(MenuFace::Normal), {}), (Pixels{0xFBF9F1, 0x2B2A27, 0x2B2A27}));
    // The background takes the hover tint and the glyph a dark accent; the words stay legible.
    EXPECT_EQ(ComposeMenu(planes, ColorsOf(MenuFace::Highlighted), {}), (Pixels{0xF6EAD0, 0xA86C02, 0x2B2A27}));
    EXPECT_EQ(ComposeMenu(planes, ColorsOf(MenuFace::Disabled), {}), (Pixels{0xFBF9F1, 0xACAAA4, 0xACAAA4}));
}

TEST(MenuPlanes, HighContrastUsesOnlyTheUsersColors) {
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

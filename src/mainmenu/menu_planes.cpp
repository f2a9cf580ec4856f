#include "mainmenu/menu_planes.h"

#include <algorithm>
#include <utility>

#include "util/palette.h"

namespace quillo {
namespace {

constexpr std::size_t kPlaneCount = static_cast<std::size_t>(MenuPlane::Count);

/// The accent, darkened until a glyph in it has a contrast of 3 to 1 with the lit tile and with its own paper.
constexpr ColorWord kLitGlyph = ColorWord::FromRgb(0xA8, 0x6C, 0x02);
constexpr int kHoverPercent = 14;
constexpr int kDisabledPercent = 38;

std::size_t PixelCount(Size size) {
    return static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
}

MenuColors::Tint& TintOf(MenuColors& colors, MenuPlane plane) {
    return colors.tints[static_cast<std::size_t>(plane)];
}

/// Removes the wells of filled slots from a plane of wells.
std::vector<std::uint8_t> EmptyWells(const MenuPlanes& planes, const FilledSlots& filled) {
    const auto wells = planes[MenuPlane::Well];
    std::vector<std::uint8_t> shown(wells.begin(), wells.end());
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const int x = static_cast<int>(i % static_cast<std::size_t>(planes.size.width));
        const int slot = (x * kMenuSize.width / planes.size.width - kSlotsLeft) / kSlotWidth;
        if (slot >= 0 && slot < kMenuSlots && filled[static_cast<std::size_t>(slot)]) shown[i] = 0;
    }
    return shown;
}

}  // namespace

MenuPlanes ToMenuPlanes(CoveragePlanes drawing) {
    if (drawing.planes.size() != kPlaneCount) return {};
    MenuPlanes menu;
    menu.size = drawing.size;
    std::move(drawing.planes.begin(), drawing.planes.end(), menu.planes.begin());
    return menu;
}

MenuColors ColorsOf(MenuFace face) {
    MenuColors colors;
    colors.surface = palette::kSurface;
    TintOf(colors, MenuPlane::Panel) = {palette::kPaper};
    TintOf(colors, MenuPlane::Tile) = {palette::kAccent, 0};
    TintOf(colors, MenuPlane::Shade) = {palette::kInk};
    TintOf(colors, MenuPlane::Line) = {palette::kLine};
    TintOf(colors, MenuPlane::Well) = {palette::kLine};
    TintOf(colors, MenuPlane::Paper) = {palette::kPaper};
    TintOf(colors, MenuPlane::Edge) = {palette::kEdge};
    TintOf(colors, MenuPlane::Accent) = {palette::kAccent};
    TintOf(colors, MenuPlane::Glyph) = {palette::kInk};
    TintOf(colors, MenuPlane::Ink) = {palette::kInk};
    if (face == MenuFace::Highlighted) {
        TintOf(colors, MenuPlane::Tile).percent = kHoverPercent;
        TintOf(colors, MenuPlane::Glyph).color = kLitGlyph;
    }
    if (face == MenuFace::Disabled) {
        for (const MenuPlane plane : {MenuPlane::Paper, MenuPlane::Edge, MenuPlane::Glyph, MenuPlane::Ink}) {
            TintOf(colors, plane).percent = kDisabledPercent;
        }
    }
    return colors;
}

MenuColors ColorsOf(MenuFace face, const ContrastColors& contrast) {
    // Only the meaningful planes, at full strength, in the user's colors.
    MenuColors colors;
    colors.surface = contrast.window;
    for (MenuColors::Tint& tint : colors.tints) tint = {contrast.window, 0};
    const bool highlighted = face == MenuFace::Highlighted;
    const ColorWord words = highlighted                  ? contrast.highlightText
                            : face == MenuFace::Disabled ? contrast.grayText
                                                         : contrast.text;
    if (highlighted) TintOf(colors, MenuPlane::Tile) = {contrast.highlight};
    TintOf(colors, MenuPlane::Line) = {contrast.text};
    TintOf(colors, MenuPlane::Well) = {contrast.grayText};
    TintOf(colors, MenuPlane::Accent) = {contrast.text};
    TintOf(colors, MenuPlane::Glyph) = {words};
    TintOf(colors, MenuPlane::Ink) = {words};
    return colors;
}

std::vector<std::uint32_t> ComposeMenu(const MenuPlanes& planes, const MenuColors& colors, const FilledSlots& filled) {
    const std::vector<std::uint8_t> wells = EmptyWells(planes, filled);
    std::vector<std::uint32_t> pixels(PixelCount(planes.size), ToPixel(colors.surface));
    for (std::size_t plane = 0; plane < kPlaneCount; ++plane) {
        const MenuColors::Tint tint = colors.tints[plane];
        const std::vector<std::uint8_t>& coverage =
            plane == static_cast<std::size_t>(MenuPlane::Well) ? wells : planes.planes[plane];
        if (tint.percent == 0) continue;
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            if (coverage[i] == 0) continue;
            pixels[i] = PaintOver(pixels[i], tint.color, (coverage[i] * tint.percent + 50) / 100);
        }
    }
    return pixels;
}

}  // namespace quillo

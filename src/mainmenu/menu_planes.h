#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "mainmenu/menu_map.h"
#include "util/color_word.h"
#include "util/coverage_planes.h"
#include "util/geometry.h"

namespace quillo {

/// The parts of the menu's drawing, in the order in which they are painted over each other.
enum class MenuPlane : int {
    Panel,   ///< the background of "new note"
    Tile,    ///< under the item that the mouse is over
    Shade,   ///< along the border, and the background of the slots
    Line,    ///< the border, and the lines between the areas
    Well,    ///< the frames of empty slots
    Paper,   ///< the sheets of the glyphs
    Edge,    ///< their bars and corners
    Accent,  ///< the outline of the mark
    Glyph,   ///< the strokes of the glyphs
    Ink,     ///< the words
    Count
};

/// The drawing at one scale: how much of each pixel each part covers, 0 to 255, row by row from the top.
struct MenuPlanes {
    Size size;  ///< device pixels; width and height are 0 if there is no drawing
    std::array<CoveragePlane, static_cast<std::size_t>(MenuPlane::Count)> planes;

    [[nodiscard]] std::span<const std::uint8_t> operator[](MenuPlane plane) const {
        return planes[static_cast<std::size_t>(plane)];
    }
};

/// The planes of the rendered drawing by name. Empty if the number of planes differs.
[[nodiscard]] MenuPlanes ToMenuPlanes(CoveragePlanes drawing);

/// The colors of one face. Plain RGB.
struct MenuColors {
    ColorWord surface;
    /// By plane. A plane that the face does not show has a strength of 0.
    struct Tint {
        ColorWord color;
        int percent = 100;
    };
    std::array<Tint, static_cast<std::size_t>(MenuPlane::Count)> tints;
};

enum class MenuFace { Normal, Highlighted, Disabled };

/// The colors that the user has chosen for all programs, for high contrast. Plain RGB.
struct ContrastColors {
    ColorWord window;
    ColorWord text;
    ColorWord grayText;
    ColorWord highlight;
    ColorWord highlightText;
};

/// The menu's own colors.
[[nodiscard]] MenuColors ColorsOf(MenuFace face);
[[nodiscard]] MenuColors ColorsOf(MenuFace face, const ContrastColors& contrast);

/// The face as rows of 0x00RRGGBB from the top, as a device-independent bitmap holds them. Filled slots show no well.
[[nodiscard]] std::vector<std::uint32_t> ComposeMenu(const MenuPlanes& planes, const MenuColors& colors,
                                                     const FilledSlots& filled);

}  // namespace quillo

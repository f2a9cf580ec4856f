#pragma once

#include "util/color_word.h"

/// The colors of the program's own drawings: the menu, the about box, and the glyphs of notes and dialogs.
/// scripts/render_artwork.py reads them from this file.
namespace quillo::palette {

inline constexpr ColorWord kInk = ColorWord::FromRgb(0x2B, 0x2A, 0x27);
inline constexpr ColorWord kLightInk = ColorWord::FromRgb(0xF4, 0xF1, 0xE6);  ///< on dark backgrounds
inline constexpr ColorWord kSurface = ColorWord::FromRgb(0xFB, 0xF9, 0xF1);   ///< the background of the menu
inline constexpr ColorWord kLine = ColorWord::FromRgb(0x8C, 0x87, 0x75);
inline constexpr ColorWord kPaper = ColorWord::FromRgb(0xFF, 0xFD, 0xD0);
inline constexpr ColorWord kEdge = ColorWord::FromRgb(0xFE, 0xCF, 0x38);
inline constexpr ColorWord kAccent = ColorWord::FromRgb(0xD9, 0x8E, 0x04);

}  // namespace quillo::palette

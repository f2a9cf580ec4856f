#pragma once

#include "util/color_word.h"

namespace quillo {

/// The note's colors, in which its alert shows; resolved to plain RGB.
struct AlertColors {
    ColorWord paper;
    ColorWord edge;
    ColorWord text;
};

/// What the parts of an alert are drawn in.
struct AlertPaint {
    ColorWord paper;
    ColorWord strip;
    ColorWord edge;
    ColorWord ink;    ///< of the note's text: its own color where that can be read
    ColorWord quiet;  ///< of the hint below it
    ColorWord glyph;  ///< of the title and the glyphs on the strip
};

[[nodiscard]] AlertPaint AlertPaintOf(const AlertColors& colors);

}  // namespace quillo

#pragma once

#include "util/color_word.h"

namespace quillo {

/// The note's colors, which its alert uses; resolved to plain RGB.
struct AlertColors {
    ColorWord paper;
    ColorWord edge;
    ColorWord text;
};

/// The colors of the parts of an alert.
struct AlertPaint {
    ColorWord paper;
    ColorWord strip;
    ColorWord edge;
    ColorWord ink;    ///< of the note's text: its own color if that is readable
    ColorWord quiet;  ///< of the hint below it
    ColorWord glyph;  ///< of the title and the glyphs on the strip
};

[[nodiscard]] AlertPaint AlertPaintOf(const AlertColors& colors);

}  // namespace quillo

#pragma once

#include <cstddef>

#include "platform/unique_handle.h"
#include "util/color_word.h"
#include "util/coverage_planes.h"

namespace quillo {

/// The glyphs that the program colors, in the order of their planes.
enum class Glyph : int { Bell, Close, Browse, Play, Count };

/// The planes of an embedded drawing; empty if it cannot be read.
[[nodiscard]] CoveragePlanes LoadPlanes(int resource, std::size_t count);

/// A glyph in a plain RGB color, `edge` pixels wide and high; null on failure.
[[nodiscard]] IconHandle MakeGlyphIcon(Glyph glyph, int edge, ColorWord color);

}  // namespace quillo

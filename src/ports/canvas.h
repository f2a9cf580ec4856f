#pragma once

#include <string_view>

#include "util/color_word.h"
#include "util/geometry.h"

namespace quillo {

/// A surface to draw on: the screen, a printer page or a recording. Coordinates are device pixels.
class Canvas {
  public:
    virtual ~Canvas() = default;

    /// Fills the rectangle.
    virtual void Fill(const Rect& area, ColorWord color) = 0;
    /// Draws the outline of the rectangle, `thickness` pixels wide, inside its edges.
    virtual void Box(const Rect& area, int thickness, ColorWord color) = 0;
    /// Draws a line of `thickness` pixels, its last point included.
    virtual void Line(Point from, Point to, int thickness, ColorWord color) = 0;
    /// Writes one line of text with its top left corner at `at`, in the given size (points at the surface's dpi).
    virtual void Text(Point at, std::u16string_view text, int points, ColorWord color) = 0;
    /// Fills the rectangle with a vertical gradient.
    virtual void Gradient(const Rect& area, ColorWord top, ColorWord bottom) = 0;
};

}  // namespace quillo

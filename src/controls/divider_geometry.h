#pragma once

#include "util/geometry.h"
#include "util/units.h"

namespace quillo {

class Canvas;

/// The places of the parts of an etched separator, in pixels inside the control.
struct DividerGeometry {
    Rect shadow;
    Rect highlight;
    Point caption;  ///< top left corner of a horizontal divider's caption
    bool vertical = false;
};

/// A control that is taller than wide is vertical. `caption` is the size of its text; a width of 0 means no caption.
[[nodiscard]] DividerGeometry LayOutDivider(Size control, Size caption, const Scale& scale);

/// Draws the groove in the system's colors.
void PaintDivider(Canvas& canvas, const DividerGeometry& geometry);

}  // namespace quillo

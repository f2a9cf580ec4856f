#pragma once

#include "util/geometry.h"

namespace quillo {

/// Moves the window into `area` by the shortest way, size unchanged; a larger window gets the area's top left corner.
[[nodiscard]] Rect KeepInside(Rect window, const Rect& area);

/// Centered over `owner`, inside `area`.
[[nodiscard]] Rect PlaceOver(const Rect& owner, Size size, const Rect& area);

/// Beside `owner` without an overlap: to the right and level with its top if there is space, else to the left, below or
/// above; centered over it if nothing else fits. Always inside `area`. `gap` is the distance between the two.
[[nodiscard]] Rect PlaceBeside(const Rect& owner, Size size, const Rect& area, int gap);

/// A resolution lower than `dpi` at which a window of the size `window` at `dpi` comes closer to fitting in `area`.
[[nodiscard]] int FittingDpi(int dpi, Size window, Size area);

}  // namespace quillo

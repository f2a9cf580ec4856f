#pragma once

#include "util/geometry.h"

namespace quillo {

/// The shortest way into `area`, size unchanged; what is larger than the area has its top left corner there.
[[nodiscard]] Rect KeepInside(Rect window, const Rect& area);

/// Over the middle of `owner`, inside `area`.
[[nodiscard]] Rect PlaceOver(const Rect& owner, Size size, const Rect& area);

/// Beside `owner` so that neither covers the other: right of it, level with its top, where there is room, else left,
/// below or above, and over its middle where there is room nowhere. Inside `area`; `gap` is what lies between the two.
[[nodiscard]] Rect PlaceBeside(const Rect& owner, Size size, const Rect& area, int gap);

/// A resolution, lower than `dpi`, at which a window that is `window` large at `dpi` comes nearer to fitting `area`.
[[nodiscard]] int FittingDpi(int dpi, Size window, Size area);

}  // namespace quillo

#pragma once

#include <vector>

#include "util/geometry.h"

namespace quillo {

/// Where a note has to stand to lie on the screen, size unchanged. Fully inside any work area: where it is; else the
/// shortest way into the work area of the monitor that it overlaps most, or of the primary one (the first) when it
/// overlaps none; a note larger than the area has its top left corner there. With no work area: where it is.
[[nodiscard]] Point PlaceOnScreen(const Rect& note, const std::vector<Rect>& workAreas);

}  // namespace quillo

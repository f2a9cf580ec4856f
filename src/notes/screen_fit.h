#pragma once

#include <cstddef>
#include <vector>

#include "util/geometry.h"

namespace quillo {

/// A note's size cut to that of the whole desktop: a damaged file can ask for more than any screen shows.
[[nodiscard]] Size CutToDesktop(Size note, Size desktop);

/// The index of the work area that a note overlaps most; the first of equals, 0 (the primary one) when it overlaps
/// none.
[[nodiscard]] std::size_t MonitorForRect(const Rect& note, const std::vector<Rect>& workAreas);

/// Where a note has to stand to lie on the screen, size unchanged. Fully inside any work area: where it is; else the
/// shortest way into the work area of the monitor that it overlaps most, or of the primary one (the first) when it
/// overlaps none; a note larger than the area has its top left corner there. With no work area: where it is.
[[nodiscard]] Point PlaceOnScreen(const Rect& note, const std::vector<Rect>& workAreas);

}  // namespace quillo

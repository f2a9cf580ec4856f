#pragma once

#include <cstddef>
#include <vector>

#include "util/geometry.h"

namespace quillo {

/// Limits a note's size to that of the whole desktop: a damaged file can contain a size larger than any screen.
[[nodiscard]] Size CutToDesktop(Size note, Size desktop);

/// The index of the work area that a note overlaps most; the first of equals; 0 (the primary one) if it overlaps none.
[[nodiscard]] std::size_t MonitorForRect(const Rect& note, const std::vector<Rect>& workAreas);

/// The place at which a note lies on the screen, size unchanged. Fully inside a work area: its own place. Otherwise the
/// shortest way into the work area of the monitor that it overlaps most, or of the primary one (the first) if it
/// overlaps none; a note larger than the area gets its top left corner. Without a work area: its own place.
[[nodiscard]] Point PlaceOnScreen(const Rect& note, const std::vector<Rect>& workAreas);

}  // namespace quillo

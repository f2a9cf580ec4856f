#pragma once

#include <vector>

#include "util/geometry.h"

namespace quillo {

/// The work areas of all monitors in screen pixels, the primary one first.
[[nodiscard]] std::vector<Rect> WorkAreas();
/// The primary screen's whole size in pixels.
[[nodiscard]] Size ScreenSize();

}  // namespace quillo

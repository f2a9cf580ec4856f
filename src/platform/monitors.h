#pragma once

#include <vector>

#include "platform/win32.h"
#include "util/geometry.h"

namespace quillo {

/// The work areas of all monitors in screen pixels, the primary one first.
[[nodiscard]] std::vector<Rect> WorkAreas();
/// The work area of a window's monitor, or of the nearest one; the primary monitor's for null.
[[nodiscard]] Rect WorkAreaOf(HWND window);
/// The primary screen's whole size in pixels.
[[nodiscard]] Size ScreenSize();
/// The size in pixels of the rectangle around all monitors.
[[nodiscard]] Size DesktopSize();

}  // namespace quillo

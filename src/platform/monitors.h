#pragma once

#include <vector>

#include "platform/win32.h"
#include "util/geometry.h"

namespace quillo {

/// The work areas of all monitors in screen pixels, the primary one first.
[[nodiscard]] std::vector<Rect> WorkAreas();
/// That of the monitor on which a window stands, or which is nearest to it; the primary one's for null.
[[nodiscard]] Rect WorkAreaOf(HWND window);
/// The primary screen's whole size in pixels.
[[nodiscard]] Size ScreenSize();
/// The size in pixels of the rectangle around all monitors.
[[nodiscard]] Size DesktopSize();

}  // namespace quillo

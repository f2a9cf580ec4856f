#pragma once

#include "platform/win32.h"
#include "util/geometry.h"
#include "util/units.h"

namespace quillo {

/// The resolution at the start of the session, in which places on the screen are stored.
[[nodiscard]] Scale SystemScale();
/// The resolution of a window's monitor; the system's if it has only one.
[[nodiscard]] Scale WindowScale(HWND window);
/// The size on the screen of a top-level window with these styles around a client area of that size, with the frame of
/// a monitor of that resolution.
[[nodiscard]] Size WindowSizeFor(Size client, DWORD style, DWORD exStyle, const Scale& scale);
/// The resolution of a monitor.
[[nodiscard]] Scale MonitorScale(HMONITOR monitor);
/// That of the monitor nearest to a point.
[[nodiscard]] Scale PointScale(POINT point);

}  // namespace quillo

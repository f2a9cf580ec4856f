#pragma once

#include "platform/win32.h"
#include "util/geometry.h"
#include "util/units.h"

namespace quillo {

/// The resolution that the session started with: the one in which places on the screen are stored.
[[nodiscard]] Scale SystemScale();
/// The resolution of the monitor that a window stands on; the system's where the system has only one.
[[nodiscard]] Scale WindowScale(HWND window);
/// What a top-level window of these styles takes on the screen around a client area of that size, with the frame of a
/// monitor of that resolution.
[[nodiscard]] Size WindowSizeFor(Size client, DWORD style, DWORD exStyle, const Scale& scale);
/// The resolution of the monitor nearest to a point.
[[nodiscard]] Scale PointScale(POINT point);

}  // namespace quillo

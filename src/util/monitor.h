#pragma once

#include <cstddef>
#include <vector>

#include "util/geometry.h"
#include "util/units.h"

namespace quillo {

/// One monitor, in screen pixels.
struct Monitor {
    Rect place;
    Rect workArea;  ///< without the task bar and the like
    Scale scale;
};

/// The work areas of the monitors, in their order.
[[nodiscard]] std::vector<Rect> WorkAreasOf(const std::vector<Monitor>& monitors);

/// The index of the monitor that contains a point, or of the nearest one; 0 if there are no monitors.
[[nodiscard]] std::size_t NearestMonitor(const std::vector<Monitor>& monitors, Point point);

/// The size of the rectangle around all monitors.
[[nodiscard]] Size DesktopSizeOf(const std::vector<Monitor>& monitors);

}  // namespace quillo

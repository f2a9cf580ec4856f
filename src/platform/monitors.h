#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "platform/win32.h"
#include "util/geometry.h"
#include "util/monitor.h"

namespace quillo {

/// All monitors, the primary one first.
[[nodiscard]] std::vector<Monitor> AskForMonitors();

/// The monitors, read from the system once. Windows that receive a message about a change call Forget.
class MonitorCache {
  public:
    explicit MonitorCache(std::function<std::vector<Monitor>()> ask = &AskForMonitors) : ask_(std::move(ask)) {}

    /// The primary one first; empty only if the system reports none.
    [[nodiscard]] const std::vector<Monitor>& All();
    /// The resolution of the monitor nearest to a point.
    [[nodiscard]] Scale ScaleAt(Point point);
    void Forget() { monitors_.clear(); }

    /// True if a message reports that the monitors may have changed.
    [[nodiscard]] static bool IsChange(UINT message);

  private:
    std::function<std::vector<Monitor>()> ask_;
    std::vector<Monitor> monitors_;
};

/// The work areas of all monitors in screen pixels, the primary one first.
[[nodiscard]] std::vector<Rect> WorkAreas();
/// The work area of a window's monitor, or of the nearest one; the primary monitor's for null.
[[nodiscard]] Rect WorkAreaOf(HWND window);

}  // namespace quillo

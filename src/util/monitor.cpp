#include "util/monitor.h"

#include <algorithm>
#include <cstdint>

namespace quillo {
namespace {

/// How far a coordinate is from the span that begins at `start`, in pixels; 0 inside.
std::int64_t Distance(int at, int start, int length) {
    const std::int64_t last = static_cast<std::int64_t>(start) + length - 1;
    if (at < start) return static_cast<std::int64_t>(start) - at;
    return std::max<std::int64_t>(0, at - last);
}

double SquaredDistance(const Rect& place, Point point) {
    const auto across = static_cast<double>(Distance(point.x, place.left, place.width));
    const auto down = static_cast<double>(Distance(point.y, place.top, place.height));
    return across * across + down * down;
}

}  // namespace

std::vector<Rect> WorkAreasOf(const std::vector<Monitor>& monitors) {
    std::vector<Rect> areas;
    areas.reserve(monitors.size());
    for (const Monitor& monitor : monitors) areas.push_back(monitor.workArea);
    return areas;
}

std::size_t NearestMonitor(const std::vector<Monitor>& monitors, Point point) {
    std::size_t nearest = 0;
    for (std::size_t i = 1; i < monitors.size(); ++i) {
        if (SquaredDistance(monitors[i].place, point) < SquaredDistance(monitors[nearest].place, point)) nearest = i;
    }
    return nearest;
}

Size DesktopSizeOf(const std::vector<Monitor>& monitors) {
    if (monitors.empty()) return Size{};
    Rect around = monitors.front().place;
    for (const Monitor& monitor : monitors) {
        const Rect& place = monitor.place;
        const int right = std::max(around.Right(), place.Right());
        const int bottom = std::max(around.Bottom(), place.Bottom());
        around.left = std::min(around.left, place.left);
        around.top = std::min(around.top, place.top);
        around.width = right - around.left;
        around.height = bottom - around.top;
    }
    return Size{around.width, around.height};
}

}  // namespace quillo

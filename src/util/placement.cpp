#include "util/placement.h"

#include <algorithm>
#include <array>

namespace quillo {
namespace {

bool Touches(const Rect& a, const Rect& b) {
    return a.left < b.Right() && b.left < a.Right() && a.top < b.Bottom() && b.top < a.Bottom();
}

}  // namespace

Rect KeepInside(Rect window, const Rect& area) {
    window.left = std::max(area.left, std::min(window.left, area.Right() - window.width));
    window.top = std::max(area.top, std::min(window.top, area.Bottom() - window.height));
    return window;
}

int FittingDpi(int dpi, Size window, Size area) {
    const auto scaled = [dpi](int room, int needed) { return dpi * std::max(room, 1) / std::max(needed, 1); };
    return std::min({scaled(area.width, window.width), scaled(area.height, window.height), dpi - 1});
}

Rect PlaceOver(const Rect& owner, Size size, const Rect& area) {
    const int left = owner.left + (owner.width - size.width) / 2;
    const int top = owner.top + (owner.height - size.height) / 2;
    return KeepInside(Rect{left, top, size.width, size.height}, area);
}

Rect PlaceBeside(const Rect& owner, Size size, const Rect& area, int gap) {
    const std::array corners = {
        Point{owner.Right() + gap, owner.top},
        Point{owner.left - gap - size.width, owner.top},
        Point{owner.left, owner.Bottom() + gap},
        Point{owner.left, owner.top - gap - size.height},
    };
    for (const Point& corner : corners) {
        const Rect place = KeepInside(Rect{corner.x, corner.y, size.width, size.height}, area);
        if (!Touches(place, owner)) return place;
    }
    return PlaceOver(owner, size, area);
}

}  // namespace quillo

#include "notes/screen_fit.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace quillo {

namespace {

// Edges in 64 bits: a note file may place a note at the far end of the range.
struct Span {
    std::int64_t from;
    std::int64_t to;

    [[nodiscard]] bool Holds(const Span& inner) const { return inner.from >= from && inner.to <= to; }
    [[nodiscard]] std::int64_t Overlap(const Span& other) const {
        return std::max<std::int64_t>(0, std::min(to, other.to) - std::max(from, other.from));
    }
};

Span Across(const Rect& r) {
    return {r.left, static_cast<std::int64_t>(r.left) + r.width};
}
Span Down(const Rect& r) {
    return {r.top, static_cast<std::int64_t>(r.top) + r.height};
}

int FitAxis(int start, int length, int areaStart, int areaLength) {
    if (length >= areaLength || start < areaStart) return areaStart;
    const std::int64_t latest = static_cast<std::int64_t>(areaStart) + areaLength - length;
    return static_cast<int>(std::min<std::int64_t>(start, latest));
}

}  // namespace

Size CutToDesktop(Size note, Size desktop) {
    return Size{std::min(note.width, desktop.width), std::min(note.height, desktop.height)};
}

std::size_t MonitorForRect(const Rect& note, const std::vector<Rect>& workAreas) {
    std::size_t best = 0;
    std::int64_t bestOverlap = 0;
    for (std::size_t i = 0; i < workAreas.size(); ++i) {
        const std::int64_t overlap =
            Across(note).Overlap(Across(workAreas[i])) * Down(note).Overlap(Down(workAreas[i]));
        if (overlap > bestOverlap) {
            best = i;
            bestOverlap = overlap;
        }
    }
    return best;
}

Point PlaceOnScreen(const Rect& note, const std::vector<Rect>& workAreas) {
    const Point here{note.left, note.top};
    const bool inside = std::any_of(workAreas.begin(), workAreas.end(), [&note](const Rect& area) {
        return Across(area).Holds(Across(note)) && Down(area).Holds(Down(note));
    });
    if (inside || workAreas.empty()) return here;

    const Rect& area = workAreas[MonitorForRect(note, workAreas)];
    return Point{FitAxis(note.left, note.width, area.left, area.width),
                 FitAxis(note.top, note.height, area.top, area.height)};
}

}  // namespace quillo

#include "mainmenu/menu_map.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>

namespace quillo {
namespace {

constexpr int kHead = 40;        // the strip with about and close
constexpr int kFoot = 120;       // where the slots begin
constexpr int kAboutLeft = 230;  // this column belongs to no item
constexpr int kCloseLeft = 265;
constexpr int kPillar = kSlotsLeft;  // right end of "new note"
constexpr int kMiddleRight = 200;    // this column belongs to "show all notes"

/// Item 5 to 8 of a column. Halves round to the even number, so that the point between two pixels at a higher
/// resolution belongs to the right side of a slot's edge and to the left side of the menu's.
MenuItem SlotAt(double x) {
    const int column = static_cast<int>(std::nearbyint(x));
    const int item = column / kSlotWidth + 3;
    return static_cast<MenuItem>(std::min(item, static_cast<int>(MenuItem::Shortcut4)));
}

Point MiddleOf(MenuItem item) {
    const Rect area = HighlightRect(item);
    return Point{area.left + area.width / 2, area.top + area.height / 2};
}

/// Whether two areas are in one row, or in one column.
bool ShareALine(const Rect& a, const Rect& b, bool row) {
    return row ? a.top < b.Bottom() && b.top < a.Bottom() : a.left < b.Right() && b.left < a.Right();
}

/// The distance to `to` in the direction of the move: the gap between the two areas, and how far their middles are off
/// the straight line; nothing if it is not ahead. Items in the same row (or column) come before diagonal ones.
std::optional<int> Distance(MenuItem from, MenuItem to, MenuMove move) {
    const Point a = MiddleOf(from);
    const Point b = MiddleOf(to);
    const bool sideways = move == MenuMove::Left || move == MenuMove::Right;
    const bool backward = move == MenuMove::Left || move == MenuMove::Up;
    const int along = sideways ? b.x - a.x : b.y - a.y;
    const int ahead = backward ? -along : along;
    const int aside = std::abs(sideways ? b.y - a.y : b.x - a.x);
    if (ahead <= 0) return std::nullopt;
    const Rect start = HighlightRect(from);
    const Rect end = HighlightRect(to);
    const int reach = sideways ? (start.width + end.width) / 2 : (start.height + end.height) / 2;
    const int distance = std::max(ahead - reach, 0) + aside;
    constexpr int kAslant = 10'000;
    if (ShareALine(start, end, sideways)) return distance;
    return aside <= ahead ? std::optional<int>(kAslant + distance) : std::nullopt;
}

MenuItem Step(MenuItem from, int step, const MenuContents& contents) {
    const auto& order = MenuOrder();
    const int count = static_cast<int>(order.size());
    const auto found = std::find(order.begin(), order.end(), from);
    int at = found != order.end() ? static_cast<int>(found - order.begin()) : step > 0 ? -1 : count;
    do {
        at = (at + step + count) % count;
    } while (!IsEnabled(order[static_cast<std::size_t>(at)], contents));
    return order[static_cast<std::size_t>(at)];
}

}  // namespace

MenuItem MenuAreaAt(MenuPoint at) {
    const auto [x, y] = at;
    const bool inside = x >= 0 && x < kMenuSize.width && y >= 0 && y < kMenuSize.height;
    if (!inside) return MenuItem::None;
    if (y < kHead) {
        if (x >= kCloseLeft) return MenuItem::Close;
        // Intended: exactly 230 belongs to no item.
        return x > kAboutLeft ? MenuItem::About : MenuItem::None;
    }
    if (x < kPillar) return MenuItem::NewNote;
    if (y >= kFoot) return SlotAt(x);
    return x <= kMiddleRight ? MenuItem::ShowAllNotes : MenuItem::Options;
}

MenuItem MenuItemAt(MenuPoint at, const MenuContents& contents) {
    const MenuItem item = MenuAreaAt(at);
    return IsEnabled(item, contents) ? item : MenuItem::None;
}

bool IsEnabled(MenuItem item, const MenuContents& contents) {
    if (item == MenuItem::None) return false;
    if (item == MenuItem::ShowAllNotes) return contents.hasNotes;
    if (!IsShortcut(item)) return true;
    return contents.hasShortcut.at(static_cast<std::size_t>(ShortcutNumber(item)) - 1);
}

Rect HighlightRect(MenuItem item) {
    switch (item) {
        case MenuItem::None:
            return {};
        case MenuItem::Close:
            return {kCloseLeft, 0, kMenuSize.width - kCloseLeft, kHead};
        case MenuItem::About:
            return {kAboutLeft, 0, kCloseLeft - kAboutLeft, kHead};
        case MenuItem::NewNote:
            return {0, kHead, kPillar, kMenuSize.height - kHead};
        case MenuItem::ShowAllNotes:
            return {kPillar, kHead, kMiddleRight - kPillar, kFoot - kHead};
        case MenuItem::Options:
            return {kMiddleRight, kHead, kMenuSize.width - kMiddleRight, kFoot - kHead};
        default:
            return {kSlotsLeft + (ShortcutNumber(item) - 1) * kSlotWidth, kFoot, kSlotWidth, kMenuSize.height - kFoot};
    }
}

const std::vector<MenuItem>& MenuOrder() {
    static const std::vector<MenuItem> order{MenuItem::NewNote,   MenuItem::ShowAllNotes, MenuItem::Options,
                                             MenuItem::Shortcut1, MenuItem::Shortcut2,    MenuItem::Shortcut3,
                                             MenuItem::Shortcut4, MenuItem::About,        MenuItem::Close};
    return order;
}

MenuItem MoveInMenu(MenuItem from, MenuMove move, const MenuContents& contents) {
    if (move == MenuMove::Previous) return Step(from, -1, contents);
    if (move == MenuMove::Next || from == MenuItem::None) return Step(from, 1, contents);
    MenuItem nearest = from;
    std::optional<int> least;
    for (const MenuItem item : MenuOrder()) {
        const std::optional<int> distance = IsEnabled(item, contents) ? Distance(from, item, move) : std::nullopt;
        if (!distance || (least && *distance >= *least)) continue;
        least = distance;
        nearest = item;
    }
    return nearest;
}

}  // namespace quillo

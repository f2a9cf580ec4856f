#pragma once

#include <array>
#include <vector>

#include "util/geometry.h"

namespace quillo {

/// The main menu at 96 dpi.
inline constexpr Size kMenuSize{300, 180};
/// The area of "show all notes", at 96 dpi.
inline constexpr Rect kShowAllPlace{100, 40, 100, 80};
/// The slots for program shortcuts, side by side at the bottom: their number, the left edge of the first, and the width
/// of each in pixels at 96 dpi.
inline constexpr int kMenuSlots = 4;
inline constexpr int kSlotsLeft = 100;
inline constexpr int kSlotWidth = 50;

/// Which of the slots have a program.
using FilledSlots = std::array<bool, kMenuSlots>;

/// The items of the main menu; the numbers are those of the table of hit areas.
enum class MenuItem : int {
    None = -1,
    Close = 0,
    NewNote = 1,
    ShowAllNotes = 2,
    Options = 3,
    About = 4,
    Shortcut1 = 5,
    Shortcut2 = 6,
    Shortcut3 = 7,
    Shortcut4 = 8,
};

/// A point of the menu in pixels at 96 dpi, from its top left corner; at other resolutions it can be between pixels.
struct MenuPoint {
    double x = 0;
    double y = 0;
    friend bool operator==(const MenuPoint&, const MenuPoint&) = default;
};

/// What decides which items can be chosen now.
struct MenuContents {
    bool hasNotes = false;
    FilledSlots hasShortcut{};

    friend bool operator==(const MenuContents&, const MenuContents&) = default;
};

/// The item whose area contains the point, enabled or not.
[[nodiscard]] MenuItem MenuAreaAt(MenuPoint at);
/// The item at the point; None for one that cannot be chosen now.
[[nodiscard]] MenuItem MenuItemAt(MenuPoint at, const MenuContents& contents);
/// False for None, for "show all notes" while there is no note, and for an empty slot.
[[nodiscard]] bool IsEnabled(MenuItem item, const MenuContents& contents);

[[nodiscard]] constexpr bool IsShortcut(MenuItem item) {
    return item >= MenuItem::Shortcut1 && item <= MenuItem::Shortcut4;
}
/// The number of a slot, 1 to 4.
[[nodiscard]] constexpr int ShortcutNumber(MenuItem item) {
    return static_cast<int>(item) - 4;
}
[[nodiscard]] constexpr MenuItem ShortcutItem(int number) {
    return static_cast<MenuItem>(number + 4);
}

/// The rectangle that shows an item's highlighted face while it is hovered. Empty for None.
[[nodiscard]] Rect HighlightRect(MenuItem item);

/// All items, in the order in which Tab visits them and screen readers read them.
[[nodiscard]] const std::vector<MenuItem>& MenuOrder();

enum class MenuMove { Left, Right, Up, Down, Next, Previous };
/// The item that the keyboard reaches from another one; only items that can be chosen. From None it is the first of the
/// order (with Previous, the last). If nothing is in an arrow's direction, the item does not change.
[[nodiscard]] MenuItem MoveInMenu(MenuItem from, MenuMove move, const MenuContents& contents);

}  // namespace quillo

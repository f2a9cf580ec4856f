#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "mainmenu/menu_map.h"
#include "util/geometry.h"

namespace quillo {

class Shell;

/// The slot that a file dropped at `at` goes into, 1 to 4: exactly one file, and y from 110 on. A drop left of the four
/// slots does nothing.
[[nodiscard]] std::optional<int> SlotOfDrop(MenuPoint at, int fileCount);
/// Whether a drag at `at` is offered a copy. Intended: it begins at 120, ten pixels below where a drop is still taken,
/// so that a hand that trembles at the release loses nothing.
[[nodiscard]] bool OffersDrop(MenuPoint at, int fileCount);

/// The edge of a shell icon in pixels at 96 dpi where the user has not set another.
inline constexpr int kUsualShellIcon = 32;

/// The number in the user's "Shell Icon Size"; 32 when there is none.
[[nodiscard]] int ShellIconSize(std::u16string_view stored);
/// How far an icon of that size is moved up and left so that it stays in the middle: at most 8, below 0 for small ones.
[[nodiscard]] int IconOffset(int shellIconSize);
/// The top left corner of slot 1 to 4's icon on the menu's face.
[[nodiscard]] Point IconPlace(int slot, int shellIconSize);

/// A program shortcut in its parts.
struct ShortcutParts {
    std::u16string file;
    std::u16string arguments;
    friend bool operator==(const ShortcutParts&, const ShortcutParts&) = default;
};
/// A path, or a path in quotes with arguments behind it.
[[nodiscard]] ShortcutParts SplitShortcut(std::u16string_view shortcut);
/// What a person calls the program: the file's name without its folder and extension; "" for an empty slot.
[[nodiscard]] std::u16string ShortcutName(std::u16string_view shortcut);

/// What a screen reader says of an item, the slots' after their programs.
[[nodiscard]] std::u16string MenuItemName(MenuItem item, const std::array<std::u16string, kMenuSlots>& shortcuts);

/// Starts the program; what is none (a document, a folder, a link) or cannot be started is given to the shell to open.
/// When that fails too, nothing happens.
void RunShortcut(std::u16string_view shortcut, Shell& shell);

}  // namespace quillo

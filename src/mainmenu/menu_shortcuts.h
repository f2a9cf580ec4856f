#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/program_shortcut.h"
#include "mainmenu/menu_map.h"
#include "util/geometry.h"

namespace quillo {

class Shell;

/// Whether a drag at `at` is offered a copy: one file, and y from 120 on. Intended: that is ten pixels below where a
/// drop is still taken, so that a hand that trembles at the release loses nothing.
[[nodiscard]] bool OffersCopy(MenuPoint at, int fileCount);
/// Whether a drop at `at` is answered with a copy: one file, and y from 110 on.
[[nodiscard]] bool TakesDrop(MenuPoint at, int fileCount);
/// The slot, 1 to 4, that a file dropped at `at` goes into. Intended: a drop left of the four slots is answered with a
/// copy all the same, and stores nothing.
[[nodiscard]] std::optional<int> SlotOfDrop(MenuPoint at, int fileCount);
/// The same for the files themselves: also nothing when the system could not run the shortcut for its length.
[[nodiscard]] std::optional<int> SlotOfDroppedFiles(MenuPoint at, const std::vector<std::u16string>& files);

/// The edge of a shell icon in pixels at 96 dpi where the user has not set another.
inline constexpr int kUsualShellIcon = 32;

/// The number in the user's "Shell Icon Size"; 32 when there is none.
[[nodiscard]] int ShellIconSize(std::u16string_view stored);
/// How far an icon of that size is moved up and left so that it stays in the middle: at most 8, below 0 for small ones.
[[nodiscard]] int IconOffset(int shellIconSize);
/// The top left corner of slot 1 to 4's icon on the menu's face.
[[nodiscard]] Point IconPlace(int slot, int shellIconSize);

/// What a person calls the program: the file's name without its folder and extension; "" for an empty slot.
[[nodiscard]] std::u16string ShortcutName(std::u16string_view shortcut);

/// What a screen reader says of an item, the slots' after their programs.
[[nodiscard]] std::u16string MenuItemName(MenuItem item, const std::array<std::u16string, kMenuSlots>& shortcuts);

/// The tool tip over an item that has no words in the picture; "" for the others.
[[nodiscard]] std::u16string MenuItemTip(MenuItem item, const std::array<std::u16string, kMenuSlots>& shortcuts);

/// Starts the program; what is no program (a document, a folder, a link) or cannot be started is given to the shell to
/// open. When that fails too, or the shortcut is longer than the system takes, nothing happens.
void RunShortcut(std::u16string_view shortcut, Shell& shell);

}  // namespace quillo

#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/base/program_shortcut.h"
#include "mainmenu/menu_map.h"
#include "util/geometry.h"

namespace quillo {

class Shell;

/// Whether a drag at `at` is offered a copy: one file, and y from 120 on. Intended: a drop is accepted ten pixels above
/// that line too, in case the hand moves at the release.
[[nodiscard]] bool OffersCopy(MenuPoint at, int fileCount);
/// Whether a drop at `at` reports a copy: one file, and y from 110 on.
[[nodiscard]] bool TakesDrop(MenuPoint at, int fileCount);
/// The slot, 1 to 4, for a file dropped at `at`. Intended: a drop left of the four slots also reports a copy, and
/// stores nothing.
[[nodiscard]] std::optional<int> SlotOfDrop(MenuPoint at, int fileCount);
/// The same for the files themselves: also nothing if the shortcut is too long for the system to run.
[[nodiscard]] std::optional<int> SlotOfDroppedFiles(MenuPoint at, const std::vector<std::u16string>& files);

/// The edge of a shell icon in pixels at 96 dpi, unless the user has set another.
inline constexpr int kUsualShellIcon = 32;

/// The number in the user's "Shell Icon Size"; 32 if there is none.
[[nodiscard]] int ShellIconSize(std::u16string_view stored);
/// How far an icon of that size is moved up and left to stay centered: at most 8, negative for small ones.
[[nodiscard]] int IconOffset(int shellIconSize);
/// The top left corner of the icon of slot 1 to 4 on the menu's face.
[[nodiscard]] Point IconPlace(int slot, int shellIconSize);

/// The common name of the program: the file's name without its folder and extension; "" for an empty slot.
[[nodiscard]] std::u16string ShortcutName(std::u16string_view shortcut);

/// The name of an item for screen readers; slots are named after their programs.
[[nodiscard]] std::u16string MenuItemName(MenuItem item, const std::array<std::u16string, kMenuSlots>& shortcuts);

/// The tool tip of an item that has no words in the picture; "" for the others.
[[nodiscard]] std::u16string MenuItemTip(MenuItem item, const std::array<std::u16string, kMenuSlots>& shortcuts);

/// Starts the program. If it is not a program (a document, a folder, a link) or cannot be started, the shell opens it.
/// If that fails too, or the shortcut is too long for the system, nothing happens.
void RunShortcut(std::u16string_view shortcut, Shell& shell);

}  // namespace quillo

#include "mainmenu/menu_shortcuts.h"

#include <algorithm>
#include <cmath>

#include "ports/shell.h"
#include "util/ignore.h"
#include "util/numbers.h"
#include "util/path_text.h"
#include "util/text.h"

namespace quillo {
namespace {

constexpr double kDragTop = 120;
constexpr double kDropTop = 110;
constexpr Point kFirstIcon{109, 132};
constexpr int kLargestOffset = 8;

}  // namespace

std::optional<int> SlotOfDrop(MenuPoint at, int fileCount) {
    if (!TakesDrop(at, fileCount) || at.x < kSlotsLeft) return std::nullopt;
    const int slot = static_cast<int>(std::nearbyint(at.x)) / kSlotWidth - 1;
    return std::min(slot, kMenuSlots);
}

std::optional<int> SlotOfDroppedFiles(MenuPoint at, const std::vector<std::u16string>& files) {
    if (files.empty() || !ShortcutFits(files.front())) return std::nullopt;
    return SlotOfDrop(at, static_cast<int>(files.size()));
}

bool OffersCopy(MenuPoint at, int fileCount) {
    return fileCount == 1 && at.y >= kDragTop;
}

bool TakesDrop(MenuPoint at, int fileCount) {
    return fileCount == 1 && at.y >= kDropTop;
}

int ShellIconSize(std::u16string_view stored) {
    const double size = ParseLeadingNumber(stored);
    constexpr double kSmallest = 1;
    constexpr double kLargest = 256;  // no icon is larger
    return size >= kSmallest && size <= kLargest ? static_cast<int>(size) : kUsualShellIcon;
}

int IconOffset(int shellIconSize) {
    return std::min((shellIconSize - kUsualShellIcon) / 2, kLargestOffset);
}

Point IconPlace(int slot, int shellIconSize) {
    const int offset = IconOffset(shellIconSize);
    return Point{kFirstIcon.x + (slot - 1) * kSlotWidth - offset, kFirstIcon.y - offset};
}

std::u16string ShortcutName(std::u16string_view shortcut) {
    std::u16string file = SplitShortcut(shortcut).file;
    while (!file.empty() && file.back() == u'\\') file.pop_back();  // a folder
    return std::u16string(NameWithoutExtension(FileNameOfPath(file)));
}

std::u16string MenuItemName(MenuItem item, const std::array<std::u16string, kMenuSlots>& shortcuts) {
    switch (item) {
        case MenuItem::None:
            return {};
        case MenuItem::Close:
            return u"Close menu";
        case MenuItem::NewNote:
            return u"New note";
        case MenuItem::ShowAllNotes:
            return u"Show all notes";
        case MenuItem::Options:
            return u"Options";
        case MenuItem::About:
            return u"About Quillo";
        default:
            break;
    }
    const int number = ShortcutNumber(item);
    const std::u16string& shortcut = shortcuts.at(static_cast<std::size_t>(number) - 1);
    if (shortcut.empty()) return u"Program shortcut " + FormatInteger(number) + u", empty";
    return ShortcutName(shortcut);
}

std::u16string MenuItemTip(MenuItem item, const std::array<std::u16string, kMenuSlots>& shortcuts) {
    switch (item) {
        case MenuItem::Close:
            return u"Close the menu.  Right-click to quit Quillo.";
        case MenuItem::About:
            return u"About Quillo";
        case MenuItem::None:
        case MenuItem::NewNote:
        case MenuItem::ShowAllNotes:
        case MenuItem::Options:
            return {};
        default:
            break;
    }
    const std::u16string& shortcut = shortcuts.at(static_cast<std::size_t>(ShortcutNumber(item)) - 1);
    return shortcut.empty() ? u"Drop a program here to have it on the menu." : ShortcutName(shortcut);
}

void RunShortcut(std::u16string_view shortcut, Shell& shell) {
    if (!ShortcutFits(shortcut)) return;
    const ShortcutParts parts = SplitShortcut(shortcut);
    if (parts.file.empty() || shell.Start(parts.file, parts.arguments)) return;
    Ignore(shell.Open(parts.file, parts.arguments), "what nothing can open does nothing");
}

}  // namespace quillo

#include "mainmenu/menu_icons.h"

#include "mainmenu/menu_shortcuts.h"

namespace quillo {

void MenuIcons::LookUp(HWND window, UINT message, const std::array<std::u16string, kMenuSlots>& shortcuts, int size) {
    finder_.Ask(window, message, wanted_.ToLookUp(shortcuts, size));
}

bool MenuIcons::Collect() {
    bool isNew = false;
    for (FoundIcon& found : finder_.Take()) {
        if (!wanted_.IsWanted(found.request)) continue;  // the slot has another program now
        known_.at(static_cast<std::size_t>(found.request.slot) - 1) = std::move(found);
        isNew = true;
    }
    return isNew;
}

const ShortcutIcon* MenuIcons::Find(int slot, std::u16string_view shortcut, int size) const {
    const std::optional<FoundIcon>& known = known_.at(static_cast<std::size_t>(slot) - 1);
    if (!known || shortcut.empty()) return nullptr;
    const bool isOfIt = known->request.size == size && known->request.file == SplitShortcut(shortcut).file;
    return isOfIt ? &known->icon : nullptr;
}

}  // namespace quillo

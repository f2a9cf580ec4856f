#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "mainmenu/icon_finder.h"
#include "mainmenu/slot_icons.h"

namespace quillo {

/// The icons of the menu's program shortcuts. They arrive one by one, some time after they were requested.
class MenuIcons {
  public:
    /// The shell is asked if `lookUp` is empty.
    explicit MenuIcons(IconLookUp lookUp = {}) : finder_(std::move(lookUp)) {}

    /// Requests the missing icons. `message` is posted to the window when there is something to collect.
    void LookUp(HWND window, UINT message, const std::array<std::u16string, kMenuSlots>& shortcuts, int size);
    /// Takes the icons found so far. True if there is something new to draw.
    [[nodiscard]] bool Collect();
    /// The icon of a slot, 1 to 4, for that shortcut; null while it is unknown.
    [[nodiscard]] const ShortcutIcon* Find(int slot, std::u16string_view shortcut, int size) const;
    /// The files may have other icons now. The known icons are shown until the new ones arrive.
    void DropRequests() { wanted_.DropRequests(); }

  private:
    SlotIcons wanted_;
    IconFinder finder_;
    std::array<std::optional<FoundIcon>, kMenuSlots> known_;
};

}  // namespace quillo

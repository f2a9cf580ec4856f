#include "mainmenu/slot_icons.h"

#include "mainmenu/menu_shortcuts.h"

namespace quillo {

std::vector<IconRequest> SlotIcons::ToLookUp(const std::array<std::u16string, kMenuSlots>& shortcuts, int size) {
    std::vector<IconRequest> requests;
    for (std::size_t i = 0; i < asked_.size(); ++i) {
        IconRequest wanted;
        if (!shortcuts[i].empty()) wanted = {static_cast<int>(i) + 1, SplitShortcut(shortcuts[i]).file, size};
        if (wanted == asked_[i]) continue;
        asked_[i] = wanted;
        if (wanted.slot != 0) requests.push_back(wanted);
    }
    return requests;
}

bool SlotIcons::IsWanted(const IconRequest& request) const {
    return request.slot >= 1 && request.slot <= kMenuSlots &&
           asked_[static_cast<std::size_t>(request.slot) - 1] == request;
}

}  // namespace quillo

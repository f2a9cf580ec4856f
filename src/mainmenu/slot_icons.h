#pragma once

#include <array>
#include <string>
#include <vector>

#include "mainmenu/menu_map.h"

namespace quillo {

/// The request for the icon of a slot of the menu.
struct IconRequest {
    int slot = 0;  ///< 1 to 4; 0 for none
    std::u16string file;
    int size = 0;  ///< the edge in device pixels
    friend bool operator==(const IconRequest&, const IconRequest&) = default;
};

/// Which icons the menu's slots need, and which of the answers, which arrive later and in any order, are still useful.
class SlotIcons {
  public:
    /// The icons that have not been requested yet.
    [[nodiscard]] std::vector<IconRequest> ToLookUp(const std::array<std::u16string, kMenuSlots>& shortcuts, int size);
    /// Whether its slot waits for this icon or shows it.
    [[nodiscard]] bool IsWanted(const IconRequest& request) const;
    /// The files may have other icons now: all of them must be looked up again.
    void DropRequests() { asked_ = {}; }

  private:
    std::array<IconRequest, kMenuSlots> asked_;
};

}  // namespace quillo

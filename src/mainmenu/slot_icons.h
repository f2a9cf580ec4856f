#pragma once

#include <array>
#include <string>
#include <vector>

#include "mainmenu/menu_planes.h"

namespace quillo {

/// An icon that is to be looked up for a slot of the menu.
struct IconRequest {
    int slot = 0;  ///< 1 to 4; 0 for none
    std::u16string file;
    int size = 0;  ///< the edge in device pixels
    friend bool operator==(const IconRequest&, const IconRequest&) = default;
};

/// Which icons the menu's slots need, and which of the answers, that come later and in any order, are still of use.
class SlotIcons {
  public:
    /// The icons that nobody has been asked for yet.
    [[nodiscard]] std::vector<IconRequest> ToLookUp(const std::array<std::u16string, kMenuSlots>& shortcuts, int size);
    /// Whether this icon is what its slot waits for or shows.
    [[nodiscard]] bool IsWanted(const IconRequest& request) const;
    /// The files may have other icons by now: all are to be looked up again.
    void DropRequests() { asked_ = {}; }

  private:
    std::array<IconRequest, kMenuSlots> asked_;
};

}  // namespace quillo

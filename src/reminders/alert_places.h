#pragma once

#include <cstddef>
#include <vector>

namespace quillo {

/// The occupied places of the alerts' cascade (see PlaceAlert). A new alert gets the first free one, so that it never
/// covers another completely, whichever alerts were dismissed before.
class AlertPlaces {
  public:
    [[nodiscard]] std::size_t Take();
    void Free(std::size_t place);
    [[nodiscard]] bool AllFree() const;

  private:
    std::vector<bool> taken_;
};

}  // namespace quillo

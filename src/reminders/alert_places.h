#pragma once

#include <cstddef>
#include <vector>

namespace quillo {

/// Which places of the alerts' cascade are taken (see PlaceAlert). A new alert gets the first free one, so that it
/// never covers another wholly, whichever of them were dismissed before.
class AlertPlaces {
  public:
    [[nodiscard]] std::size_t Take();
    void Free(std::size_t place);
    [[nodiscard]] bool AllFree() const;

  private:
    std::vector<bool> taken_;
};

}  // namespace quillo

#include "reminders/alert_places.h"

#include <algorithm>

namespace quillo {

std::size_t AlertPlaces::Take() {
    const auto free = std::find(taken_.begin(), taken_.end(), false);
    const auto place = static_cast<std::size_t>(free - taken_.begin());
    if (free == taken_.end()) taken_.push_back(false);
    taken_[place] = true;
    return place;
}

void AlertPlaces::Free(std::size_t place) {
    if (place < taken_.size()) taken_[place] = false;
}

bool AlertPlaces::AllFree() const {
    return std::find(taken_.begin(), taken_.end(), true) == taken_.end();
}

}  // namespace quillo

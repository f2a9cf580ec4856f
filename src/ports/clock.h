#pragma once

#include "util/day_serial.h"

namespace quillo {

/// The local time of day in whole seconds, never rounded up to the next.
class Clock {
  public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual DaySerial Now() = 0;
};

}  // namespace quillo

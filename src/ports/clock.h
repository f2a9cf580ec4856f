#pragma once

#include "util/day_serial.h"

namespace quillo {

/// The local time of day, at the full resolution that the system gives.
class Clock {
  public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual DaySerial Now() = 0;
};

}  // namespace quillo

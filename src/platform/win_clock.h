#pragma once

#include "ports/clock.h"
#include "ports/random.h"

namespace quillo {

/// The system's local time.
class WinClock : public Clock {
  public:
    [[nodiscard]] DaySerial Now() override;
};

/// A generator seeded from the system's clock and process: good enough to scatter notes and choose colors, no more.
class WinRandom : public Random {
  public:
    WinRandom();
    [[nodiscard]] double Next() override;

  private:
    unsigned long long state_ = 0;
};

}  // namespace quillo

#pragma once

#include "ports/clock.h"

namespace quillo {

/// A clock that a test sets; it starts at 21 November 2026, 09:30, and does not run.
class FakeClock : public Clock {
  public:
    [[nodiscard]] DaySerial Now() override { return now; }

    DaySerial now = ToDaySerial({2026, 11, 21, 9, 30, 0});
};

}  // namespace quillo

#pragma once

#include "ports/timers.h"

namespace quillo {

class WinTimers : public Timers {
  public:
    [[nodiscard]] std::unique_ptr<Timer> Make(std::function<void()> tick) override;
    [[nodiscard]] std::uint64_t Milliseconds() override;
};

}  // namespace quillo

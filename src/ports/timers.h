#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace quillo {

/// One timer of the user-interface thread. It never fires after it was stopped or destroyed.
class Timer {
  public:
    virtual ~Timer() = default;
    /// Fires once, after so many milliseconds. A timer that runs is started over.
    virtual void Start(std::uint32_t milliseconds) = 0;
    virtual void Stop() = 0;
};

/// Makes timers, and tells the time by which they run.
class Timers {
  public:
    virtual ~Timers() = default;
    [[nodiscard]] virtual std::unique_ptr<Timer> Make(std::function<void()> tick) = 0;
    /// Milliseconds since some moment. This clock is never set and never goes back.
    [[nodiscard]] virtual std::uint64_t Milliseconds() = 0;
};

}  // namespace quillo

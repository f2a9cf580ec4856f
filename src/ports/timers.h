#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace quillo {

/// One timer of the user-interface thread. It never fires after it has been stopped or destroyed.
class Timer {
  public:
    virtual ~Timer() = default;
    /// Fires once, after that many milliseconds. A running timer starts over. False if the system has no timer.
    virtual bool Start(std::uint32_t milliseconds) = 0;
    virtual void Stop() = 0;
};

/// Creates timers and has the clock that they run by.
class Timers {
  public:
    virtual ~Timers() = default;
    [[nodiscard]] virtual std::unique_ptr<Timer> Make(std::function<void()> tick) = 0;
    /// Milliseconds since an arbitrary moment. This clock is never set and never runs backward.
    [[nodiscard]] virtual std::uint64_t Milliseconds() = 0;
};

}  // namespace quillo

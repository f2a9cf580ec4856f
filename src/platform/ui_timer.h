#pragma once

#include <functional>
#include <utility>

#include "platform/win32.h"
#include "util/lifetime.h"

namespace quillo {

/// A timer of the user-interface thread. It never fires after it has been stopped, nor while its own tick is running.
/// The tick may destroy the timer.
class UiTimer {
  public:
    explicit UiTimer(std::function<void()> tick) : tick_(std::move(tick)) {}
    UiTimer(const UiTimer&) = delete;
    UiTimer& operator=(const UiTimer&) = delete;
    ~UiTimer();

    /// Starts or restarts the timer. An interval of 0 leaves it inactive.
    void Start(UINT milliseconds);
    void Stop();
    [[nodiscard]] bool IsRunning() const { return id_ != 0; }

  private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR id, DWORD) noexcept;

    std::function<void()> tick_;
    UINT_PTR id_ = 0;
    Lifetime lifetime_;
};

}  // namespace quillo

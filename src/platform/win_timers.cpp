#include "platform/win_timers.h"

#include <utility>

#include "platform/ui_timer.h"

namespace quillo {
namespace {

class OneShotTimer : public Timer {
  public:
    explicit OneShotTimer(std::function<void()> tick)
        : timer_([this, tick = std::move(tick)] {
              timer_.Stop();
              tick();
          }) {}
    bool Start(std::uint32_t milliseconds) override {
        timer_.Start(milliseconds);
        return timer_.IsRunning();
    }
    void Stop() override { timer_.Stop(); }

  private:
    UiTimer timer_;
};

}  // namespace

std::unique_ptr<Timer> WinTimers::Make(std::function<void()> tick) {
    return std::make_unique<OneShotTimer>(std::move(tick));
}

std::uint64_t WinTimers::Milliseconds() {
    return GetTickCount64();
}

}  // namespace quillo

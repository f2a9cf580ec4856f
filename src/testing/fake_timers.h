#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "ports/timers.h"
#include "util/lifetime.h"

namespace quillo {

/// Timers that fire when a test advances the time.
class FakeTimers : public Timers {
  public:
    [[nodiscard]] std::unique_ptr<Timer> Make(std::function<void()> tick) override {
        return std::make_unique<FakeTimer>(*this, std::move(tick));
    }
    [[nodiscard]] std::uint64_t Milliseconds() override { return now_; }

    /// Fires the timers that are due, in the order of their times.
    void Pass(std::uint64_t milliseconds) {
        const std::uint64_t end = now_ + milliseconds;
        while (FakeTimer* next = NextBefore(end)) {
            now_ = *next->due;
            next->due.reset();
            ++ticks_;
            next->lifetime.RaiseLast(next->tick);
        }
        now_ = end;
    }
    /// Advances the time without firing a timer, as when the thread is busy.
    void PassWithoutTicks(std::uint64_t milliseconds) { now_ += milliseconds; }
    [[nodiscard]] std::size_t Running() const {
        return static_cast<std::size_t>(
            std::count_if(timers_.begin(), timers_.end(), [](const FakeTimer* t) { return t->due.has_value(); }));
    }

    bool refuse = false;  ///< true while the system has no more timers

    /// How often a timer was started, and how often one has fired.
    [[nodiscard]] int Starts() const { return starts_; }
    [[nodiscard]] int Ticks() const { return ticks_; }

  private:
    struct FakeTimer : Timer {
        FakeTimer(FakeTimers& timers, std::function<void()> action) : owner(timers), tick(std::move(action)) {
            owner.timers_.push_back(this);
        }
        FakeTimer(const FakeTimer&) = delete;
        FakeTimer& operator=(const FakeTimer&) = delete;
        ~FakeTimer() override { std::erase(owner.timers_, this); }
        bool Start(std::uint32_t milliseconds) override {
            due.reset();
            if (owner.refuse) return false;
            due = owner.now_ + milliseconds;
            ++owner.starts_;
            return true;
        }
        void Stop() override { due.reset(); }

        FakeTimers& owner;
        std::function<void()> tick;
        std::optional<std::uint64_t> due;
        Lifetime lifetime;
    };

    FakeTimer* NextBefore(std::uint64_t end) {
        FakeTimer* next = nullptr;
        for (FakeTimer* timer : timers_) {
            if (timer->due && *timer->due <= end && (next == nullptr || *timer->due < *next->due)) next = timer;
        }
        return next;
    }

    std::vector<FakeTimer*> timers_;
    std::uint64_t now_ = 1000;
    int starts_ = 0;
    int ticks_ = 0;
};

}  // namespace quillo

#include "platform/win_timers.h"

#include <gtest/gtest.h>

#include "support.h"

namespace quillo {
namespace {

using windows_tests::PumpUntil;
using windows_tests::PumpWaiting;

TEST(WinTimersTest, ATimerFiresOnce) {
    WinTimers timers;
    int ticks = 0;
    int others = 0;
    const auto timer = timers.Make([&] { ++ticks; });
    const auto other = timers.Make([&] { ++others; });
    timer->Start(1);
    ASSERT_TRUE(PumpUntil([&] { return ticks == 1; }));
    // Long enough for many ticks of the first one, if it were still running.
    for (int i = 1; i <= 5; ++i) {
        other->Start(20);
        ASSERT_TRUE(PumpUntil([&] { return others == i; }));
    }
    EXPECT_EQ(ticks, 1);
}

TEST(WinTimersTest, ATickMayStartItsTimerAgain) {
    WinTimers timers;
    int ticks = 0;
    std::unique_ptr<Timer> timer;
    timer = timers.Make([&] {
        if (++ticks < 3) timer->Start(1);
    });
    timer->Start(1);
    EXPECT_TRUE(PumpUntil([&] { return ticks == 3; }));
}

TEST(WinTimersTest, ATimerThatWasStoppedOrDestroyedDoesNotFire) {
    WinTimers timers;
    int ticks = 0;
    int others = 0;
    const auto stopped = timers.Make([&] { ++ticks; });
    auto destroyed = timers.Make([&] { ++ticks; });
    const auto other = timers.Make([&] { ++others; });
    stopped->Start(1);
    destroyed->Start(1);
    stopped->Stop();
    destroyed.reset();
    other->Start(50);
    ASSERT_TRUE(PumpUntil([&] { return others == 1; }));
    EXPECT_EQ(ticks, 0);
}

TEST(WinTimersTest, ATickMayDestroyItsTimer) {
    WinTimers timers;
    bool ticked = false;
    std::unique_ptr<Timer> timer;
    timer = timers.Make([&] {
        timer.reset();
        ticked = true;
    });
    timer->Start(1);
    EXPECT_TRUE(PumpUntil([&] { return ticked; }));
    PumpWaiting();
}

TEST(WinTimersTest, TheClockAdvances) {
    WinTimers timers;
    const std::uint64_t before = timers.Milliseconds();
    EXPECT_TRUE(PumpUntil([&] { return timers.Milliseconds() > before; }));
}

}  // namespace
}  // namespace quillo

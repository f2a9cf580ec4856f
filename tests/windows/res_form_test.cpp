#include "notes/res_form.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support.h"

namespace quillo {
namespace {

using windows_tests::PumpUntil;

constexpr UINT kSoon = 10;
static_assert(kMainTimerInterval == 10'000, "a reminder is at most ten seconds late");

TEST(ResForm, TicksOneAfterAnotherAndNeverInsideATick) {
    int ticks = 0;
    int depth = 0;
    int deepest = 0;
    ResForm form(
        [&] {
            ++ticks;
            deepest = std::max(deepest, ++depth);
            // Messages are pumped, as while an alert opens.
            (void)PumpUntil([] { return true; });
            --depth;
        },
        kSoon);
    form.Load();
    EXPECT_TRUE(PumpUntil([&] { return ticks == 2; }));
    EXPECT_EQ(deepest, 1);
}

TEST(ResForm, ATickThatPausesItIsTheLast) {
    int ticks = 0;
    int others = 0;
    ResForm form(
        [&] {
            ++ticks;
            form.Pause();
        },
        kSoon);
    ResForm other([&] { ++others; }, kSoon);
    form.Load();
    other.Load();
    EXPECT_TRUE(PumpUntil([&] { return others >= 3; }));
    EXPECT_EQ(ticks, 1);
    form.Resume();
    EXPECT_TRUE(PumpUntil([&] { return ticks == 2; }));
}

}  // namespace
}  // namespace quillo

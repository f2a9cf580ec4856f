#include "notes/wheel_turns.h"

#include <gtest/gtest.h>

namespace quillo {
namespace {

constexpr int kLinesPerNotch = 3;

TEST(WheelTurns, ANotchTowardsTheUserScrollsForward) {
    WheelTurns wheel;
    EXPECT_EQ(wheel.Turn(-120, kLinesPerNotch), 3);
    EXPECT_EQ(wheel.Turn(240, kLinesPerNotch), -6);
}

TEST(WheelTurns, FineTurnsAddUpToTheSameLines) {
    WheelTurns wheel;
    int lines = 0;
    for (int i = 0; i < 24; ++i) lines += wheel.Turn(-5, kLinesPerNotch);
    EXPECT_EQ(lines, 3);
    EXPECT_EQ(wheel.Turn(-39, kLinesPerNotch), 0);
    EXPECT_EQ(wheel.Turn(-1, kLinesPerNotch), 1);
}

TEST(WheelTurns, AChangeOfDirectionStartsFromRest) {
    WheelTurns wheel;
    EXPECT_EQ(wheel.Turn(-39, kLinesPerNotch), 0);
    EXPECT_EQ(wheel.Turn(39, kLinesPerNotch), 0);
    EXPECT_EQ(wheel.Turn(1, kLinesPerNotch), -1) << "the turn in the other direction is forgotten";
}

TEST(WheelTurns, WithNoLinesForANotchNothingScrolls) {
    WheelTurns wheel;
    EXPECT_EQ(wheel.Turn(-1200, 0), 0);
}

}  // namespace
}  // namespace quillo

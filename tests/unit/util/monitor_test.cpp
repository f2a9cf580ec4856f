#include "util/monitor.h"

#include <gtest/gtest.h>

namespace quillo {
namespace {

/// The primary one, a larger one to its right, a small one to its left and higher up.
const std::vector<Monitor> kThree = {{Rect{0, 0, 1920, 1080}, Rect{0, 0, 1920, 1040}, Scale(96)},
                                     {Rect{1920, 0, 3840, 2160}, Rect{1920, 0, 3840, 2160}, Scale(192)},
                                     {Rect{-800, -300, 800, 600}, Rect{-800, -300, 760, 600}, Scale(120)}};

TEST(Monitors, APointBelongsToTheMonitorThatHoldsIt) {
    EXPECT_EQ(NearestMonitor(kThree, Point{0, 0}), 0U);
    EXPECT_EQ(NearestMonitor(kThree, Point{1919, 1079}), 0U);
    EXPECT_EQ(NearestMonitor(kThree, Point{1920, 0}), 1U);
    EXPECT_EQ(NearestMonitor(kThree, Point{-1, 0}), 2U);
}

TEST(Monitors, APointOutsideBelongsToTheNearest) {
    EXPECT_EQ(NearestMonitor(kThree, Point{100, 1500}), 0U);
    EXPECT_EQ(NearestMonitor(kThree, Point{1900, 1200}), 1U) << "20 pixels from its edge, 121 from the other";
    EXPECT_EQ(NearestMonitor(kThree, Point{-1'000'000, -1'000'000}), 2U);
    EXPECT_EQ(NearestMonitor(kThree, Point{1'000'000, 1'000'000}), 1U);
    EXPECT_EQ(NearestMonitor({}, Point{1, 1}), 0U);
}

TEST(Monitors, TheDesktopIsAroundAllOfThem) {
    EXPECT_EQ(DesktopSizeOf(kThree), (Size{800 + 1920 + 3840, 300 + 2160}));
    EXPECT_EQ(DesktopSizeOf({}), (Size{0, 0}));
}

TEST(Monitors, WorkAreasKeepTheOrder) {
    EXPECT_EQ(WorkAreasOf(kThree),
              (std::vector{Rect{0, 0, 1920, 1040}, Rect{1920, 0, 3840, 2160}, Rect{-800, -300, 760, 600}}));
}

}  // namespace
}  // namespace quillo

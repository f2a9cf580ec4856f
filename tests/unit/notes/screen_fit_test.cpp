#include "notes/screen_fit.h"

#include <gtest/gtest.h>

#include <climits>

namespace quillo {
namespace {

// The primary monitor with a task bar below, one to its right, one to its left and a little higher.
const Rect kPrimary{0, 0, 1920, 1040};
const Rect kRight{1920, 0, 1280, 1024};
const Rect kLeft{-1600, -200, 1600, 1200};
const std::vector<Rect> kDesk{kPrimary, kRight, kLeft};

TEST(CutToDesktop, LimitsEachExtentSeparately) {
    const Size desktop{3200, 1200};
    const struct {
        Size note;
        Size expected;
    } cases[] = {
        {{188, 163}, {188, 163}},   {{3200, 1200}, {3200, 1200}}, {{3201, 100}, {3200, 100}},
        {{100, 1201}, {100, 1200}}, {{32'767, 32'767}, desktop},  {{INT_MAX, INT_MAX}, desktop},
        {{0, 0}, {0, 0}},           {{-5, 2000}, {-5, 1200}},
    };
    for (const auto& c : cases) EXPECT_EQ(CutToDesktop(c.note, desktop), c.expected) << c.note.width;
}

TEST(PlaceOnScreen, OneMonitor) {
    const struct {
        const char* name;
        Rect note;
        Point expected;
    } cases[] = {
        {"inside", {100, 200, 188, 163}, {100, 200}},
        {"filling it exactly", kPrimary, {0, 0}},
        {"flush with the far corner", {1920 - 188, 1040 - 163, 188, 163}, {1732, 877}},
        {"one pixel too far right", {1733, 100, 188, 163}, {1732, 100}},
        {"one pixel too low", {100, 878, 188, 163}, {100, 877}},
        {"over the left edge", {-20, 100, 188, 163}, {0, 100}},
        {"over the top edge", {100, -20, 188, 163}, {100, 0}},
        {"over a corner", {1900, 1030, 188, 163}, {1732, 877}},
        {"far away", {50'000, -50'000, 188, 163}, {1732, 0}},
        {"wider than the area", {300, 100, 3000, 163}, {0, 100}},
        {"higher than the area", {300, 100, 188, 3000}, {300, 0}},
        {"larger both ways", {300, 100, 3000, 3000}, {0, 0}},
        {"without a size, inside", {5, 5, 0, 0}, {5, 5}},
        {"without a size, outside", {-5, 5, 0, 0}, {0, 5}},
        {"at the ends of the range", {INT_MIN, INT_MAX, 188, 163}, {0, 877}},
        {"reaching past the range", {INT_MAX, INT_MAX, INT_MAX, 10}, {0, 1030}},
    };
    for (const auto& c : cases) EXPECT_EQ(PlaceOnScreen(c.note, {kPrimary}), c.expected) << c.name;
}

TEST(PlaceOnScreen, SeveralMonitors) {
    const struct {
        const char* name;
        Rect note;
        Point expected;
    } cases[] = {
        {"inside the one with negative coordinates", {-1500, -150, 188, 163}, {-1500, -150}},
        {"inside the one on the right", {3012, 861, 188, 163}, {3012, 861}},
        {"across two, more on the primary", {1820, 100, 188, 163}, {1732, 100}},
        {"across two, more on the right", {1840, 100, 188, 163}, {1920, 100}},
        {"across two, halves: the first of them", {1826, 100, 188, 163}, {1732, 100}},
        {"across two, more on the left", {-150, 100, 188, 163}, {-188, 100}},
        {"above the left one only partly", {-800, -250, 188, 163}, {-800, -200}},
        {"overlapping none: the primary one", {4000, 2000, 188, 163}, {1732, 877}},
        {"below the primary one's task bar", {500, 1040, 188, 40}, {500, 1000}},
        {"touching an edge is no overlap", {3200, 100, 188, 163}, {1732, 100}},
        {"larger than the one it overlaps most", {2000, 20, 1500, 900}, {1920, 20}},
    };
    for (const auto& c : cases) EXPECT_EQ(PlaceOnScreen(c.note, kDesk), c.expected) << c.name;
}

TEST(PlaceOnScreen, WithoutAnyWorkAreaItStays) {
    EXPECT_EQ(PlaceOnScreen({-7, 9, 188, 163}, {}), (Point{-7, 9}));
}

TEST(MonitorForRect, TakesTheLargestOverlap) {
    EXPECT_EQ(MonitorForRect({1840, 100, 188, 163}, kDesk), 1U);
    EXPECT_EQ(MonitorForRect({-100, 100, 188, 163}, kDesk), 2U);
    EXPECT_EQ(MonitorForRect({9000, 9000, 188, 163}, kDesk), 0U);
    EXPECT_EQ(MonitorForRect({0, 0, 1, 1}, {}), 0U);
}

}  // namespace
}  // namespace quillo

#include "reminders/date_add.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillo {
namespace {

TEST(AddToDate, WholeSecondsStayWholeToTheLastBit) {
    const DaySerial start = ToDaySerial({2026, 11, 15, 0, 0, 0});
    for (int second = 0; second < 200'000; ++second) {
        ASSERT_EQ(AddToDate(start, Interval::Seconds, second), ToDaySerial({2026, 11, 15, 0, 0, second}));
        ASSERT_EQ(AddToDate(start, Interval::Seconds, -second), ToDaySerial({2026, 11, 15, 0, 0, -second}));
    }
    DaySerial walked = start;
    for (int step = 1; step <= 100'000; ++step) {
        walked = AddToDate(walked, Interval::Seconds, 7).value();
        ASSERT_EQ(walked, ToDaySerial({2026, 11, 15, 0, 0, 7 * step}));
    }
}

TEST(AddToDate, EveryIntervalCountsItsSeconds) {
    const DaySerial start = ToDaySerial({2028, 2, 28, 22, 45, 17});
    for (int amount = -3000; amount <= 3000; ++amount) {
        ASSERT_EQ(AddToDate(start, Interval::Minutes, amount), ToDaySerial({2028, 2, 28, 22, 45 + amount, 17}));
        ASSERT_EQ(AddToDate(start, Interval::Hours, amount), ToDaySerial({2028, 2, 28, 22 + amount, 45, 17}));
        ASSERT_EQ(AddToDate(start, Interval::Days, amount), DaySerial{start.days + amount});
    }
}

TEST(AddToDate, AFractionOfASecondIsKept) {
    const double fraction = 0.4 / 86'400;
    const DaySerial start{ToDaySerial({2026, 11, 15, 14, 10, 0}).days + fraction};
    const double resolution = 1e-11;  // of a serial in this century
    EXPECT_NEAR(AddToDate(start, Interval::Minutes, 20)->days, ToDaySerial({2026, 11, 15, 14, 30, 0}).days + fraction,
                resolution);
    EXPECT_NEAR(AddToDate(start, Interval::Days, -1)->days, start.days - 1, resolution);
    const DaySerial beforeMidnight{ToDaySerial({2026, 11, 16, 0, 0, 0}).days - fraction};
    EXPECT_NEAR(AddToDate(beforeMidnight, Interval::Seconds, 1)->days, beforeMidnight.days + 1.0 / 86'400, resolution);
}

TEST(AddToDate, FractionsCountForwardBeforeTheFirstSerial) {
    const DaySerial start = ToDaySerial({1899, 12, 30, 6, 0, 0});
    EXPECT_EQ(AddToDate(start, Interval::Hours, -12), DaySerial{-1.75}) << "the 29th at 18:00";
    EXPECT_EQ(AddToDate(DaySerial{-1.75}, Interval::Hours, 12), start);
    EXPECT_EQ(AddToDate(DaySerial{-1.75}, Interval::Days, -1), DaySerial{-2.75});
}

TEST(AddToDate, NothingOutsideTheCalendar) {
    const DaySerial last = ToDaySerial({9999, 12, 31, 23, 59, 59});
    const DaySerial first = ToDaySerial({100, 1, 1, 0, 0, 0});
    EXPECT_EQ(AddToDate(last, Interval::Seconds, 0), last);
    EXPECT_EQ(AddToDate(last, Interval::Seconds, 1), std::nullopt);
    EXPECT_EQ(AddToDate(first, Interval::Seconds, 0), first);
    EXPECT_EQ(AddToDate(first, Interval::Seconds, -1), std::nullopt);
    for (const Interval interval : {Interval::Hours, Interval::Days}) {
        EXPECT_EQ(AddToDate(last, interval, std::numeric_limits<std::int32_t>::max()), std::nullopt);
        EXPECT_EQ(AddToDate(last, interval, std::numeric_limits<std::int32_t>::min()), std::nullopt);
    }
    EXPECT_EQ(AddToDate(DaySerial{std::numeric_limits<double>::quiet_NaN()}, Interval::Days, 1), std::nullopt);
    EXPECT_EQ(AddToDate(DaySerial{1e300}, Interval::Days, -1), std::nullopt);
}

TEST(DayOf, NeverRoundsUp) {
    const DaySerial day = ToDaySerial({2026, 11, 15, 0, 0, 0});
    EXPECT_EQ(DayOf(day), day);
    EXPECT_EQ(DayOf(ToDaySerial({2026, 11, 15, 23, 59, 59})), day);
    EXPECT_EQ(DayOf(DaySerial{day.days + 1 - 1e-9}), day);
}

}  // namespace
}  // namespace quillo

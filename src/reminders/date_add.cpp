#include "reminders/date_add.h"

#include <cmath>
#include <limits>

namespace quillo {
namespace {

constexpr std::int64_t kSecondsPerDay = 86'400;
constexpr std::int64_t kFirstDay = -657'434;  // 1 January 100
constexpr std::int64_t kLastDay = 2'958'465;  // 31 December 9999

std::int64_t SecondsOf(Interval interval) {
    switch (interval) {
        case Interval::Seconds:
            return 1;
        case Interval::Minutes:
            return 60;
        case Interval::Hours:
            return 3600;
        case Interval::Days:
            return kSecondsPerDay;
    }
    return 0;
}

// The seconds since midnight. A time too close to a whole second to be distinguished from it is that second.
double SecondOfDay(DaySerial when) {
    constexpr double kPerDay = static_cast<double>(kSecondsPerDay);
    const double seconds = std::fabs(when.days - std::trunc(when.days)) * kPerDay;
    const double nearest = std::nearbyint(seconds);
    const double resolution = std::fabs(when.days) * std::numeric_limits<double>::epsilon() * kPerDay;
    return std::fabs(seconds - nearest) <= resolution ? nearest : seconds;
}

}  // namespace

bool IsInDateRange(DaySerial when) {
    return when.days > static_cast<double>(kFirstDay - 1) && when.days < static_cast<double>(kLastDay + 1);
}

DaySerial DayOf(DaySerial when) {
    return DaySerial{std::trunc(when.days)};
}

std::optional<DaySerial> AddToDate(DaySerial when, Interval interval, std::int32_t amount) {
    if (!IsInDateRange(when)) return std::nullopt;
    const double start = SecondOfDay(when);
    const double wholeStart = std::floor(start);
    const std::int64_t seconds = static_cast<std::int64_t>(wholeStart) + SecondsOf(interval) * amount;
    const std::int64_t carry = seconds / kSecondsPerDay - (seconds % kSecondsPerDay < 0 ? 1 : 0);
    const std::int64_t day = static_cast<std::int64_t>(std::trunc(when.days)) + carry;
    if (day < kFirstDay || day > kLastDay) return std::nullopt;

    const double second = static_cast<double>(seconds - carry * kSecondsPerDay) + (start - wholeStart);
    const double fraction = second / static_cast<double>(kSecondsPerDay);
    const double whole = static_cast<double>(day);
    return DaySerial{day < 0 ? whole - fraction : whole + fraction};
}

}  // namespace quillo

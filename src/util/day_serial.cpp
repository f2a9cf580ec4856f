#include "util/day_serial.h"

#include <cmath>
#include <cstdint>

namespace quillo {
namespace {

constexpr std::int64_t kSecondsPerDay = 86'400;
constexpr double kFirstDay = -657'434;  // 1 January 100
constexpr double kLastDay = 2'958'465;  // 31 December 9999
constexpr std::int64_t kUnixEpoch = 25'569;

struct WholeTime {
    std::int64_t day = 0;
    std::int64_t second = 0;  // 0 to 86399
};

WholeTime Split(DaySerial serial) {
    if (!(serial.days > kFirstDay - 1)) return {static_cast<std::int64_t>(kFirstDay), 0};
    if (serial.days >= kLastDay + 1) return {static_cast<std::int64_t>(kLastDay), kSecondsPerDay - 1};
    const double whole = std::trunc(serial.days);
    WholeTime split{static_cast<std::int64_t>(whole),
                    std::llround(std::fabs(serial.days - whole) * static_cast<double>(kSecondsPerDay))};
    if (split.second == kSecondsPerDay) {
        if (split.day == static_cast<std::int64_t>(kLastDay)) return {split.day, kSecondsPerDay - 1};
        ++split.day;
        split.second = 0;
    }
    return split;
}

// The days from 1 January 1970 to a date whose month is 1 to 12; the year is counted from March.
std::int64_t DaysFromCivil(std::int64_t year, int month, std::int64_t day) {
    year -= month <= 2 ? 1 : 0;
    const std::int64_t era = (year >= 0 ? year : year - 399) / 400;
    const std::int64_t yearOfEra = year - era * 400;
    const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146'097 + dayOfEra - 719'468;
}

std::int64_t FloorDivide(std::int64_t value, std::int64_t divisor) {
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

}  // namespace

CivilTime ToCivilTime(DaySerial serial) {
    const WholeTime split = Split(serial);
    const std::int64_t shifted = split.day - kUnixEpoch + 719'468;
    const std::int64_t era = FloorDivide(shifted, 146'097);
    const std::int64_t dayOfEra = shifted - era * 146'097;
    const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36'524 - dayOfEra / 146'096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t monthFromMarch = (5 * dayOfYear + 2) / 153;

    CivilTime time;
    time.day = static_cast<int>(dayOfYear - (153 * monthFromMarch + 2) / 5 + 1);
    time.month = static_cast<int>(monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9);
    time.year = static_cast<int>(yearOfEra + era * 400 + (time.month <= 2 ? 1 : 0));
    time.hour = static_cast<int>(split.second / 3600);
    time.minute = static_cast<int>(split.second / 60 % 60);
    time.second = static_cast<int>(split.second % 60);
    return time;
}

DaySerial ToDaySerial(const CivilTime& time) {
    const std::int64_t months = std::int64_t{time.year} * 12 + time.month - 1;
    const std::int64_t year = FloorDivide(months, 12);
    const int month = static_cast<int>(months - year * 12) + 1;
    const std::int64_t seconds = std::int64_t{time.hour} * 3600 + std::int64_t{time.minute} * 60 + time.second;
    const std::int64_t carry = FloorDivide(seconds, kSecondsPerDay);
    const std::int64_t day = DaysFromCivil(year, month, time.day) + kUnixEpoch + carry;
    const double fraction = static_cast<double>(seconds - carry * kSecondsPerDay) / static_cast<double>(kSecondsPerDay);
    const double whole = static_cast<double>(day);
    return DaySerial{day < 0 ? whole - fraction : whole + fraction};
}

DaySerial FromFileTime(std::uint64_t ticks) {
    constexpr std::uint64_t kTicksPerSecond = 10'000'000;
    constexpr double kDaysFrom1601To1899 = 109'205;
    const std::uint64_t seconds = ticks / kTicksPerSecond;
    const std::uint64_t wholeDays = seconds / std::uint64_t{kSecondsPerDay};
    const double day = static_cast<double>(wholeDays) - kDaysFrom1601To1899;
    return DaySerial{day + static_cast<double>(seconds % std::uint64_t{kSecondsPerDay}) /
                               static_cast<double>(kSecondsPerDay)};
}

int Weekday(DaySerial serial) {
    const std::int64_t sinceSaturday = Split(serial).day % 7;  // day 0 is a Saturday
    return static_cast<int>((sinceSaturday + 7 + 6) % 7);
}

}  // namespace quillo

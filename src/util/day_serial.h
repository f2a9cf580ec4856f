#pragma once

#include <compare>
#include <cstdint>

namespace quillo {

/// A local date and time as days since 30 December 1899; the fraction is the time of day. Before that day the whole
/// part counts backward and the fraction still counts forward, as in automation dates (-1.25 is the 29th, 06:00).
struct DaySerial {
    double days = 0;
    friend constexpr auto operator<=>(DaySerial, DaySerial) = default;
};

/// The reminder dialog takes this value for a note without a reminder (6 December 1981, midnight).
inline constexpr DaySerial kNoReminder{29926};

/// A date and time of day in the proleptic Gregorian calendar. Seconds are whole.
struct CivilTime {
    int year = 1899;
    int month = 12;  ///< 1 to 12
    int day = 30;    ///< 1 to 31
    int hour = 0;    ///< 0 to 23
    int minute = 0;
    int second = 0;
    friend constexpr bool operator==(const CivilTime&, const CivilTime&) = default;
};

/// The calendar fields of a serial, rounded to the nearest second. Years 100 to 9999; a serial outside this range gives
/// its nearest end.
[[nodiscard]] CivilTime ToCivilTime(DaySerial serial);
/// The serial of a date and time. Days beyond the end of a month continue in the next one.
[[nodiscard]] DaySerial ToDaySerial(const CivilTime& time);
/// The serial of a file time (100 nanoseconds since 1 January 1601), without the part of a second.
[[nodiscard]] DaySerial FromFileTime(std::uint64_t ticks);
/// 0 is Sunday, 6 Saturday.
[[nodiscard]] int Weekday(DaySerial serial);

}  // namespace quillo

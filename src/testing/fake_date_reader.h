#pragma once

#include <optional>
#include <string_view>

#include "util/day_serial.h"

namespace quillo {

/// The order in which a locale writes a date of three numbers; a date that starts with the year is always understood.
enum class FakeDateOrder { MonthDayYear, DayMonthYear };

/// Reads a date, a time or both as the automation conversion does: numbers with "/", "-" or "." between them, English
/// month names, years of two digits (1950 to 2049), a date without a year in `currentYear`, 12 and 24 hours. It refuses
/// a suffix other than "am" or "pm" and a number alone. A time alone is on 30 December 1899.
[[nodiscard]] std::optional<DaySerial> ReadFakeDate(std::u16string_view text, FakeDateOrder order, int currentYear);

}  // namespace quillo

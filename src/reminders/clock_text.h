#pragma once

#include <optional>
#include <string_view>

#include "util/day_serial.h"

namespace quillo {

class LocaleText;

/// A time of day written in digits as every locale reads it: "9:30", "15:30", "07:05:30". It falls on
/// 30 December 1899. Hours 0 to 23, minutes and seconds 0 to 59, none with more than two digits.
[[nodiscard]] std::optional<DaySerial> ReadDigitTime(std::u16string_view text);

/// A lower-case phrase as a date, a time or both, as the user's locale has it; a time alone falls on 30 December 1899.
/// Beyond what the platform's conversion takes, the short suffixes "a" and "p" and, in every locale, "am" and "pm"
/// ("9a", "3:00 p", "12 pm") are understood, and blanks that do not break.
[[nodiscard]] std::optional<DaySerial> ReadDateOrTime(std::u16string_view phrase, LocaleText& locale);

}  // namespace quillo

#pragma once

#include <optional>
#include <string_view>

#include "util/day_serial.h"

namespace quillo {

class LocaleText;

/// A time of day in digits, which reads the same in every locale: "9:30", "15:30", "07:05:30", on 30 December 1899.
/// Hours 0 to 23, minutes and seconds 0 to 59, each with at most two digits.
[[nodiscard]] std::optional<DaySerial> ReadDigitTime(std::u16string_view text);

/// A lower-case phrase as a date, a time or both, in the user's locale; a time alone is on 30 December 1899. In
/// addition to what the platform's conversion accepts, it understands the short suffixes "a" and "p" and, in every
/// locale, "am" and "pm" ("9a", "3:00 p", "12 pm"), and no-break blanks.
[[nodiscard]] std::optional<DaySerial> ReadDateOrTime(std::u16string_view phrase, LocaleText& locale);

}  // namespace quillo

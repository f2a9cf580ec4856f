#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "util/day_serial.h"

namespace quillo::qln {

/// "2026-11-22T15:30:05"; `separator` is between date and time.
[[nodiscard]] std::string FormatIsoTime(DaySerial when, char separator);
/// "2026-11-22 15:30", without the seconds.
[[nodiscard]] std::string FormatIsoMinute(DaySerial when);
/// A date, or a date and a time with or without seconds, separated by a blank or "T". Nothing for a day that does not
/// exist.
[[nodiscard]] std::optional<DaySerial> ParseIsoTime(std::u16string_view text);

}  // namespace quillo::qln

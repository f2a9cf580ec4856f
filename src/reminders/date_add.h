#pragma once

#include <cstdint>
#include <optional>

#include "util/day_serial.h"

namespace quillo {

enum class Interval { Seconds, Minutes, Hours, Days };

/// Calendar arithmetic in local time (no zone, so every day has 24 hours). Whole seconds stay exact to the last bit; a
/// fraction of a second is kept. Nothing outside the years 100 to 9999.
[[nodiscard]] std::optional<DaySerial> AddToDate(DaySerial when, Interval interval, std::int32_t amount);

/// Midnight at the start of the day; a time late in the day is never rounded up to the next one.
[[nodiscard]] DaySerial DayOf(DaySerial when);

/// Whether a serial is in the years 100 to 9999.
[[nodiscard]] bool IsInDateRange(DaySerial when);

}  // namespace quillo

#pragma once

#include <string>

#include "util/day_serial.h"

namespace quillo {

class LocaleText;

/// The second example of the reminder dialog: the time in twenty minutes.
[[nodiscard]] std::u16string TwentyMinutesExample(DaySerial now, LocaleText& locale);
/// The third example: this time tomorrow, with its date.
[[nodiscard]] std::u16string TomorrowExample(DaySerial now, LocaleText& locale);
/// The interpretation of a phrase: weekday, date and time ("Sunday, 11/15/2026, 2:30:00 PM").
[[nodiscard]] std::u16string PreviewText(DaySerial when, LocaleText& locale);
/// What a note says of its reminder in words: "Reminder: Sunday, 11/15/2026, 2:30:00 PM".
[[nodiscard]] std::u16string ReminderDescription(DaySerial when, LocaleText& locale);

}  // namespace quillo

#pragma once

#include <optional>
#include <string_view>

#include "util/day_serial.h"

namespace quillo {

class LocaleText;

inline constexpr std::u16string_view kNoPhraseMessage = u"Type a time at which to be reminded in the area provided.";
inline constexpr std::u16string_view kPhraseFormatMessage =
    u"I don't understand what you mean.  Please enter a time in the following format:  \"in 20 minutes\" or "
    u"\"in an hour\" (without the quotes).";
inline constexpr std::u16string_view kPhraseAmountMessage =
    u"I don't understand the amount that you mean.  Please use only numbers in the amount, such as \"in 20 minutes\".";
inline constexpr std::u16string_view kPhrasePeriodMessage =
    u"I don't understand the period of time that you mean.  Please use only words such as \"hours\" or \"minutes\".";
inline constexpr std::u16string_view kPhraseUnknownMessage =
    u"I don't understand what you mean.  See the examples for suggestions on how to type a reminder time.";

/// The meaning of a phrase: either a time, which may be in the past, or a message for the user.
struct ReminderPhrase {
    std::optional<DaySerial> when;
    std::u16string_view message;  ///< one of the messages above; empty if the phrase was understood
};

/// Reads a phrase such as "in 20 minutes", "noon", "tomorrow", "3:00" or a date and time in the user's locale.
[[nodiscard]] ReminderPhrase ParseReminderPhrase(std::u16string_view text, DaySerial now, LocaleText& locale);

}  // namespace quillo

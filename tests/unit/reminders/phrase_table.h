#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <string_view>

#include "reminders/reminder_phrase.h"
#include "testing/fake_locale_text.h"

namespace quillo {

/// Sunday 15 November 2026, 14:10:00.
inline const DaySerial kPhraseNow = ToDaySerial({2026, 11, 15, 14, 10, 0});

/// "2026-11-15 14:10:00", or the message.
[[nodiscard]] inline std::string Describe(const ReminderPhrase& phrase) {
    if (!phrase.when) return std::string(phrase.message.begin(), phrase.message.end());
    const CivilTime time = ToCivilTime(*phrase.when);
    char text[40];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", time.year, time.month, time.day, time.hour,
                  time.minute, time.second);
    return text;
}

[[nodiscard]] inline std::string Read(std::u16string_view text, DaySerial now, LocaleText& locale) {
    return Describe(ParseReminderPhrase(text, now, locale));
}

[[nodiscard]] inline std::string Read(std::u16string_view text, DaySerial now = kPhraseNow) {
    FakeLocaleText locale;
    return Read(text, now, locale);
}

[[nodiscard]] inline std::string Plain(std::u16string_view text) {
    return std::string(text.begin(), text.end());
}

struct PhraseCase {
    std::u16string_view typed;
    const char* meant;
};

inline const std::string kNoPhrase = "Type a time at which to be reminded in the area provided.";
inline const std::string kFormat =
    "I don't understand what you mean.  Please enter a time in the following format:  \"in 20 minutes\" or \"in an "
    "hour\" (without the quotes).";
inline const std::string kAmount =
    "I don't understand the amount that you mean.  Please use only numbers in the amount, such as \"in 20 minutes\".";
inline const std::string kPeriod =
    "I don't understand the period of time that you mean.  Please use only words such as \"hours\" or \"minutes\".";
inline const std::string kUnknown =
    "I don't understand what you mean.  See the examples for suggestions on how to type a reminder time.";

}  // namespace quillo

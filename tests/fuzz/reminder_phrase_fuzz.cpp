// Any text may be typed into the reminder dialog: it is either understood as one time within the calendar or rejected
// with one message, regardless of letter case and surrounding blanks.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "reminders/clock_text.h"
#include "reminders/reminder_phrase.h"
#include "testing/fake_locale_text.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

std::u16string Raised(std::u16string text) {
    for (char16_t& c : text) c = c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - 32) : c;
    return text;
}

void ReadOne(std::u16string_view text, quillo::DaySerial now, quillo::LocaleText& locale) {
    const quillo::ReminderPhrase phrase = quillo::ParseReminderPhrase(text, now, locale);
    Require(phrase.when.has_value() == phrase.message.empty());
    if (phrase.when) Require(phrase.when->days > -657'435 && phrase.when->days < 2'958'466);

    const std::u16string padded = u"  " + Raised(std::u16string(text)) + u" ";
    const quillo::ReminderPhrase again = quillo::ParseReminderPhrase(padded, now, locale);
    Require(again.when == phrase.when && again.message == phrase.message);

    const auto digits = quillo::ReadDigitTime(text);
    if (digits) Require(digits == locale.ParseDate(text));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The first two bytes choose the moment of the day; the rest is what was typed.
    if (size < 2) return 0;
    const int minute = (data[0] * 256 + data[1]) % 1440;
    const quillo::DaySerial now = quillo::ToDaySerial({2026, 11, 15, 0, minute, 0});
    quillo::FakeLocaleText locale;
    const std::u16string text = locale.FromNarrow({reinterpret_cast<const char*>(data) + 2, size - 2});
    ReadOne(text, now, locale);

    locale.decimalSeparator = u",";
    locale.dateOrder = quillo::FakeDateOrder::DayMonthYear;
    ReadOne(text, now, locale);
    ReadOne(text, quillo::DaySerial{now.days + 0.4 / 86'400}, locale);
    return 0;
}

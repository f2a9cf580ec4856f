#include "reminders/reminder_text.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "ports/locale_text.h"
#include "reminders/date_add.h"
#include "reminders/reminder_controls.h"

namespace quillo {
namespace {

constexpr std::array<std::u16string_view, 7> kWeekdays = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                                          u"Thursday", u"Friday", u"Saturday"};

}  // namespace

std::u16string TwentyMinutesExample(DaySerial now, LocaleText& locale) {
    const DaySerial when = AddToDate(now, Interval::Minutes, 20).value_or(now);
    return std::u16string(TextOf(ReminderControl::TwentyMinutesLabel).caption) + locale.LongTime(when);
}

std::u16string TomorrowExample(DaySerial now, LocaleText& locale) {
    const DaySerial when = AddToDate(now, Interval::Days, 1).value_or(now);
    return std::u16string(TextOf(ReminderControl::TomorrowLabel).caption) + locale.ShortDate(when) + u" " +
           locale.LongTime(when);
}

std::u16string PreviewText(DaySerial when, LocaleText& locale) {
    std::u16string text(kWeekdays[static_cast<std::size_t>(Weekday(when))]);
    return text + u", " + locale.ShortDate(when) + u", " + locale.LongTime(when);
}

std::u16string ReminderDescription(DaySerial when, LocaleText& locale) {
    return u"Reminder: " + PreviewText(when, locale);
}

}  // namespace quillo

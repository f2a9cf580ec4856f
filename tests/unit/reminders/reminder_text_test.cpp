#include "reminders/reminder_text.h"

#include <gtest/gtest.h>

#include "testing/fake_locale_text.h"

namespace quillo {
namespace {

TEST(ReminderText, ExamplesShowFutureTimes) {
    FakeLocaleText locale;
    const DaySerial now = ToDaySerial({2026, 11, 15, 6, 3, 31});
    EXPECT_EQ(TwentyMinutesExample(now, locale), u"\u2022   6:23:31 AM");
    EXPECT_EQ(TomorrowExample(now, locale), u"\u2022   11/16/2026 6:03:31 AM");
}

TEST(ReminderText, ExamplesCrossMidnightAndTheYear) {
    FakeLocaleText locale;
    const DaySerial now = ToDaySerial({2026, 12, 31, 23, 50, 0});
    EXPECT_EQ(TwentyMinutesExample(now, locale), u"\u2022   12:10:00 AM");
    EXPECT_EQ(TomorrowExample(now, locale), u"\u2022   1/1/2027 11:50:00 PM");
    const DaySerial midnight = ToDaySerial({2026, 11, 15, 0, 0, 0});
    EXPECT_EQ(TomorrowExample(midnight, locale), u"\u2022   11/16/2026 12:00:00 AM") << "the time is always there";
}

TEST(ReminderText, ExamplesAtTheEndOfTheCalendarStayThere) {
    FakeLocaleText locale;
    const DaySerial last = ToDaySerial({9999, 12, 31, 23, 59, 59});
    EXPECT_EQ(TwentyMinutesExample(last, locale), u"\u2022   11:59:59 PM");
    EXPECT_EQ(TomorrowExample(last, locale), u"\u2022   12/31/9999 11:59:59 PM");
}

TEST(ReminderText, PreviewNamesTheWeekday) {
    FakeLocaleText locale;
    const char16_t* const days[] = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                    u"Thursday", u"Friday", u"Saturday"};
    for (int day = 0; day < 7; ++day) {
        const DaySerial when = ToDaySerial({2026, 11, 15 + day, 14, 30, 0});
        EXPECT_EQ(PreviewText(when, locale), days[day] + (u", " + locale.ShortDate(when)) + u", 2:30:00 PM");
    }
    EXPECT_EQ(PreviewText(ToDaySerial({2026, 11, 16, 0, 0, 0}), locale), u"Monday, 11/16/2026, 12:00:00 AM");
    EXPECT_EQ(ReminderDescription(ToDaySerial({2026, 11, 16, 0, 0, 0}), locale),
              u"Reminder: Monday, 11/16/2026, 12:00:00 AM");
}

}  // namespace
}  // namespace quillo

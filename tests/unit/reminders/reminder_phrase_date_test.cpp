#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <limits>
#include <string>

#include "phrase_table.h"
#include "reminders/clock_text.h"

namespace quillo {
namespace {

void ExpectAll(std::initializer_list<PhraseCase> cases, DaySerial now, LocaleText& locale) {
    for (const PhraseCase& c : cases) EXPECT_EQ(Read(c.typed, now, locale), c.meant) << Plain(c.typed);
}

void ExpectAll(std::initializer_list<PhraseCase> cases, DaySerial now = kPhraseNow) {
    FakeLocaleText locale;
    ExpectAll(cases, now, locale);
}

std::u16string Digits(int hour, int minute) {
    const auto two = [](int n) {
        return std::u16string{static_cast<char16_t>(u'0' + n / 10), static_cast<char16_t>(u'0' + n % 10)};
    };
    return two(hour) + u":" + two(minute);
}

// The meaning of a time of day alone, computed in minutes from today's midnight.
int MeantMinute(int minuteOfDay, bool morning, int nowMinute) {
    int meant = minuteOfDay;
    if (minuteOfDay < 720 && !morning && meant < nowMinute) meant += 720;
    if (meant < nowMinute) meant += 1440;
    return meant;
}

TEST(ReminderPhraseTime, EveryMinuteOfTheDay) {
    FakeLocaleText locale;
    for (const int nowMinute : {0, 1, 9 * 60, 719, 720, 721, 850, 1439}) {
        const DaySerial now = ToDaySerial({2026, 11, 15, nowMinute / 60, nowMinute % 60, 0});
        for (int minute = 0; minute < 1440; ++minute) {
            const std::u16string typed = Digits(minute / 60, minute % 60);
            const ReminderPhrase bare = ParseReminderPhrase(typed, now, locale);
            const ReminderPhrase am = ParseReminderPhrase(typed + u" am", now, locale);
            ASSERT_EQ(bare.when, ToDaySerial({2026, 11, 15, 0, MeantMinute(minute, false, nowMinute), 0}));
            if (minute < 720) {
                ASSERT_EQ(am.when, ToDaySerial({2026, 11, 15, 0, MeantMinute(minute, true, nowMinute), 0}));
            }
        }
    }
}

TEST(ReminderPhraseTime, DigitTimesAreReadAsTheConversionReadsThem) {
    FakeLocaleText locale;
    for (int hour = 0; hour < 30; ++hour) {
        for (int minute = 0; minute < 70; ++minute) {
            const std::u16string typed = Digits(hour, minute);
            ASSERT_EQ(ReadDigitTime(typed), locale.ParseDate(typed)) << Plain(typed);
            ASSERT_EQ(ReadDigitTime(typed + u":07"), locale.ParseDate(typed + u":07")) << Plain(typed);
        }
    }
    EXPECT_EQ(ReadDigitTime(u"3:5"), ToDaySerial({1899, 12, 30, 3, 5, 0}));
    EXPECT_EQ(ReadDigitTime(u"23:59:59"), ToDaySerial({1899, 12, 30, 23, 59, 59}));
    for (const std::u16string_view typed :
         {u"",      u"3",       u"15",     u"3:",     u":30",     u"3::30",    u"24:00",
          u"3:60",  u"3:00:60", u"003:00", u"3:000",  u"1:2:3:4", u"3:00 ",    u" 3:00",
          u"3 :00", u"-3:00",   u"3.00",   u"3:00pm", u"1:2:3:",  u"\u0663:00"}) {
        EXPECT_EQ(ReadDigitTime(typed), std::nullopt) << Plain(typed);
    }
}

// A conversion that must never be called.
class NoConversionLocale : public FakeLocaleText {
  public:
    std::optional<DaySerial> ParseDate(std::u16string_view text) override {
        ADD_FAILURE() << Plain(text);
        return std::nullopt;
    }
    std::optional<double> ParseNumber(std::u16string_view text) override {
        ADD_FAILURE() << Plain(text);
        return std::nullopt;
    }
    std::u16string ToLower(std::u16string_view text) override {
        ADD_FAILURE() << Plain(text);
        return std::u16string(text);
    }
};

TEST(ReminderPhraseTime, CommonPhrasesNeedNothingOfThePlatform) {
    NoConversionLocale locale;
    for (const std::u16string_view typed : {u"Noon", u"at MIDNIGHT", u"tomorrow", u"in 20 minutes", u"In An Hour",
                                            u"in 1000 s", u"3:00", u"15:30", u"23:59:59"}) {
        EXPECT_TRUE(ParseReminderPhrase(typed, kPhraseNow, locale).when.has_value()) << Plain(typed);
    }
}

TEST(ReminderPhraseTime, TwelveHours) {
    ExpectAll({
        {u"9am", "2026-11-16 09:00:00"},
        {u"9 am", "2026-11-16 09:00:00"},
        {u"9 AM", "2026-11-16 09:00:00"},
        {u"9  am", "2026-11-16 09:00:00"},
        {u"9:30am", "2026-11-16 09:30:00"},
        {u"11:59 am", "2026-11-16 11:59:00"},
        {u"12 am", "2026-11-16 00:00:00"},
        {u"12:30 am", "2026-11-16 00:30:00"},
        {u"12 pm", "2026-11-16 12:00:00"},
        {u"12:00 pm", "2026-11-16 12:00:00"},
        {u"1 pm", "2026-11-16 13:00:00"},
        {u"2pm", "2026-11-16 14:00:00"},
        {u"2:09 pm", "2026-11-16 14:09:00"},
        {u"2:10 pm", "2026-11-15 14:10:00"},
        {u"2:11pm", "2026-11-15 14:11:00"},
        {u"3 pm", "2026-11-15 15:00:00"},
        {u"3:00:30 PM", "2026-11-15 15:00:30"},
        {u"11:59 Pm", "2026-11-15 23:59:00"},
    });
}

TEST(ReminderPhraseTime, ShortSuffixesAreUnderstood) {
    ExpectAll({
        {u"9a", "2026-11-16 09:00:00"},
        {u"9 a", "2026-11-16 09:00:00"},
        {u"9A", "2026-11-16 09:00:00"},
        {u"9:30a", "2026-11-16 09:30:00"},
        {u"9:30:15 a", "2026-11-16 09:30:15"},
        {u"12a", "2026-11-16 00:00:00"},
        {u"12p", "2026-11-16 12:00:00"},
        {u"12:30 a", "2026-11-16 00:30:00"},
        {u"3p", "2026-11-15 15:00:00"},
        {u"3:00 p", "2026-11-15 15:00:00"},
        {u"3:00p", "2026-11-15 15:00:00"},
        {u"3:00  P", "2026-11-15 15:00:00"},
        {u"1p", "2026-11-16 13:00:00"},
        {u"15p", "2026-11-15 15:00:00"},
        {u"11/20/2026 9a", "2026-11-20 09:00:00"},
        {u"11/20 3:00 p", "2026-11-20 15:00:00"},
        {u"november 20 9a", "2026-11-20 09:00:00"},
        {u"nov 20 9:30 p", "2026-11-20 21:30:00"},
    });
    for (const std::u16string_view typed : {u"a", u"p", u"am", u"pm", u"9aa", u"9 aam", u"9ap", u"9xa", u"x 9a",
                                            u"9:60a", u"9:a", u"9m", u"9 m", u"99 p", u"9 a.m."}) {
        EXPECT_EQ(Read(typed), kUnknown) << Plain(typed);
    }
}

// A locale without halves of the day, which its conversion does not know.
class TwentyFourHourLocale : public FakeLocaleText {
  public:
    std::optional<DaySerial> ParseDate(std::u16string_view text) override {
        if (text.find(u'm') != std::u16string_view::npos) return std::nullopt;
        return FakeLocaleText::ParseDate(text);
    }
};

TEST(ReminderPhraseTime, HalvesOfTheDayInEveryLocale) {
    TwentyFourHourLocale locale;
    ExpectAll({{u"9 am", "2026-11-16 09:00:00"},
               {u"12 am", "2026-11-16 00:00:00"},
               {u"3:00 pm", "2026-11-15 15:00:00"},
               {u"3p", "2026-11-15 15:00:00"}},
              kPhraseNow, locale);
    for (const std::u16string_view typed : {u"13p", u"15:30 pm", u"0a", u"0:00 am", u"13 am"})
        EXPECT_EQ(Read(typed, kPhraseNow, locale), kUnknown) << Plain(typed);
}

// A conversion that reads everything before a half of the day as nine o'clock.
class CarelessLocale : public FakeLocaleText {
  public:
    std::optional<DaySerial> ParseDate(std::u16string_view text) override {
        const bool halfDay =
            text.size() > 3 && (text.substr(text.size() - 3) == u" am" || text.substr(text.size() - 3) == u" pm");
        return halfDay ? std::optional(ToDaySerial({1899, 12, 30, 9, 0, 0})) : std::nullopt;
    }
};

TEST(ReminderPhraseTime, WordsAreNotTakenApart) {
    CarelessLocale locale;
    EXPECT_EQ(Read(u"9 o'clock a", kPhraseNow, locale), "2026-11-16 09:00:00");
    for (const std::u16string_view typed : {u"pizza", u"a nap", u"9 o'clocka", u"spam"})
        EXPECT_EQ(Read(typed, kPhraseNow, locale), kUnknown) << Plain(typed);
}

TEST(ReminderPhraseTime, TheCurrentMomentIsNotInThePast) {
    EXPECT_EQ(Read(u"14:10"), "2026-11-15 14:10:00");
    EXPECT_EQ(Read(u"2:10"), "2026-11-15 14:10:00") << "twelve hours later is now";
    const DaySerial later{kPhraseNow.days + 0.3 / 86'400};
    EXPECT_EQ(Read(u"14:10", later), "2026-11-16 14:10:00") << "the clock counts in full";
    EXPECT_EQ(Read(u"2:10", later), "2026-11-16 14:10:00");
    EXPECT_EQ(Read(u"14:10:01", later), "2026-11-15 14:10:01");
}

TEST(ReminderPhraseTime, NightsWhenClocksAreChanged) {
    ExpectAll(
        {{u"2:30 am", "2027-03-28 02:30:00"}, {u"3:30 am", "2027-03-28 03:30:00"}, {u"0:30", "2027-03-28 12:30:00"}},
        ToDaySerial({2027, 3, 28, 1, 0, 0}));
    ExpectAll({{u"2:30", "2026-10-25 02:30:00"}, {u"1:30", "2026-10-25 13:30:00"}},
              ToDaySerial({2026, 10, 25, 2, 15, 0}));
}

TEST(ReminderPhraseTime, TheEveOfANewYear) {
    const DaySerial eve = ToDaySerial({2026, 12, 31, 23, 30, 0});
    ExpectAll({{u"11:45", "2026-12-31 23:45:00"},
               {u"0:15", "2027-01-01 12:15:00"},  // intended: plus 12 hours, then plus a day
               {u"12:15 am", "2027-01-01 00:15:00"},
               {u"9:00", "2027-01-01 21:00:00"},
               {u"9 am", "2027-01-01 09:00:00"},
               {u"noon", "2027-01-01 12:00:00"},
               {u"1/1 9 am", "2026-01-02 09:00:00"},  // a day of the year that is ending
               {u"1/1/2027 9 am", "2027-01-01 09:00:00"},
               {u"12/31/2026 23:45", "2026-12-31 23:45:00"},
               {u"12/31/2025 23:45", "2026-12-31 23:45:00"},
               {u"12/31/2025 23:15", "2027-01-01 23:15:00"}},
              eve);
}

// Dates.

TEST(ReminderPhraseDate, NumbersInTheOrderOfTheLocale) {
    ExpectAll({{u"11/20/2026 9:00 am", "2026-11-20 09:00:00"},
               {u"11/20/2026 9:00", "2026-11-20 09:00:00"},
               {u"11/20/2026 21:00", "2026-11-20 21:00:00"},
               {u"11/20/2026", "2026-11-20 00:00:00"},
               {u"11-20-2026 9am", "2026-11-20 09:00:00"},
               {u"2026-11-20 09:00", "2026-11-20 09:00:00"},
               {u"11/20", "2026-11-20 00:00:00"},
               {u"11/20 3pm", "2026-11-20 15:00:00"},
               {u"9am 11/20/2026", "2026-11-20 09:00:00"},
               {u"12/1/2026 00:00:01", "2026-12-01 00:00:01"},
               {u"3/4/2027", "2027-03-04 00:00:00"}});
    FakeLocaleText german;
    german.dateOrder = FakeDateOrder::DayMonthYear;
    ExpectAll({{u"20.11.2026 9:00", "2026-11-20 09:00:00"},
               {u"20.11.2026 21:00:05", "2026-11-20 21:00:05"},
               {u"3.4.2027", "2027-04-03 00:00:00"},
               {u"3/4/27 15:30", "2027-04-03 15:30:00"},
               {u"2026-11-20", "2026-11-20 00:00:00"}},
              kPhraseNow, german);
}

TEST(ReminderPhraseDate, EveryMonthByItsName) {
    const std::u16string_view months[] = {u"January", u"February", u"March",     u"April",   u"May",      u"June",
                                          u"July",    u"August",   u"September", u"October", u"November", u"December"};
    int number = 0;
    for (const std::u16string_view month : months) {
        ++number;
        char expected[40];
        std::snprintf(expected, sizeof expected, "2027-%02d-20 09:00:00", number);
        const std::u16string name(month);
        for (const std::u16string& typed :
             {name + u" 20 2027 9 am", name + u" 20, 2027 9:00 AM", u"20 " + name + u" 2027 9am",
              name.substr(0, 3) + u" 20 2027 9:00", u"20-" + name.substr(0, 3) + u"-27 9a",
              u"9am 20 " + name.substr(0, 3) + u" 27"}) {
            EXPECT_EQ(Read(typed), expected) << Plain(typed);
        }
    }
}

TEST(ReminderPhraseDate, WithoutAYearItIsThisOne) {
    ExpectAll({{u"november 20 9am", "2026-11-20 09:00:00"},
               {u"20 nov", "2026-11-20 00:00:00"},
               {u"Dec 31 23:59", "2026-12-31 23:59:00"},
               {u"november 15 3pm", "2026-11-15 15:00:00"},
               {u"nov 15 3:00", "2026-11-15 15:00:00"},
               {u"nov 15 1:00", "2026-11-16 13:00:00"}});
}

TEST(ReminderPhraseDate, YearsOfTwoDigits) {
    ExpectAll({{u"11/20/26 9am", "2026-11-20 09:00:00"},
               {u"11/20/27", "2027-11-20 00:00:00"},
               {u"1/1/49 9 am", "2049-01-01 09:00:00"},
               {u"1/1/50 9 am", "2026-11-16 09:00:00"},
               {u"1/1/99 3 pm", "2026-11-15 15:00:00"},
               {u"1/1/00 3 pm", "2026-11-15 15:00:00"}});
}

TEST(ReminderPhraseDate, AnEarlierYearLeavesOnlyTheTime) {
    ExpectAll({{u"1/1/2020 3:00 pm", "2026-11-15 15:00:00"},
               {u"1/1/2020 1:00 pm", "2026-11-16 13:00:00"},
               {u"1/1/2020 3:00", "2026-11-15 15:00:00"},
               {u"12/31/2025 23:59:59", "2026-11-15 23:59:59"},
               {u"12/31/2025", "2026-11-16 12:00:00"},  // intended: midnight, plus 12 hours, plus a day
               {u"1/1/1850 15:00", "2026-11-15 15:00:00"},
               {u"1/1/100 15:00", "2026-11-15 15:00:00"},
               {u"2/29/2024 5pm", "2026-11-15 17:00:00"}});
}

TEST(ReminderPhraseDate, AnEarlierDayOfThisYearStaysInThePast) {
    ExpectAll({{u"1/5/2026 10:00", "2026-01-06 22:00:00"},
               {u"1/5/2026 10:00 am", "2026-01-06 10:00:00"},
               {u"1/5/2026 13:00", "2026-01-06 13:00:00"},
               {u"1/5", "2026-01-06 12:00:00"},
               {u"11/14/2026 3:00 pm", "2026-11-15 15:00:00"},  // intended: one day is added to any time in the past
               {u"11/14/2026 1:00 pm", "2026-11-15 13:00:00"},
               {u"11/15/2026", "2026-11-16 12:00:00"},
               {u"2/28/2026 13:00", "2026-03-01 13:00:00"}});
}

TEST(ReminderPhraseDate, FutureDatesAreUsedUnchanged) {
    ExpectAll({{u"11/16/2026 1:00", "2026-11-16 01:00:00"},
               {u"2/29/2028 9 am", "2028-02-29 09:00:00"},
               {u"2/29/2028", "2028-02-29 00:00:00"},
               {u"12/31/2026 23:59:59", "2026-12-31 23:59:59"},
               {u"12/31/9999 23:59:59", "9999-12-31 23:59:59"},
               {u"1/1/2027", "2027-01-01 00:00:00"}});
}

TEST(ReminderPhraseDate, DatesThatDoNotExist) {
    for (const std::u16string_view typed :
         {u"2/29/2027 9am", u"2/30/2028", u"11/31/2026", u"13/13/2026", u"0/5/2026", u"5/0/2026", u"feb 29 2027",
          u"1/1/10000",     u"24:00",     u"12:60",      u"25:10",      u"3:00:61",  u"15",       u"1530",
          u"friday",        u"next week", u"20",         u"november",   u"11/",      u"/",        u":",
          u"9 pm am",       u"3:00 4:00", u"jan feb 3"}) {
        EXPECT_EQ(Read(typed), kUnknown) << Plain(typed);
    }
}

// A locale whose conversion fails in every way.
class BrokenLocale : public FakeLocaleText {
  public:
    explicit BrokenLocale(double days) : days_(days) {}
    std::optional<DaySerial> ParseDate(std::u16string_view) override { return DaySerial{days_}; }

  private:
    double days_;
};

TEST(ReminderPhraseDate, SerialsOutsideTheCalendarAreNotUnderstood) {
    for (const double days : {1e300, -1e300, 2'958'466.0, -657'435.0, std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::infinity()}) {
        BrokenLocale locale(days);
        EXPECT_EQ(Read(u"some day", kPhraseNow, locale), kUnknown) << days;
    }
}

// A locale whose conversion adds up hours, minutes and seconds, and so misses a whole second by the last bit.
class InexactLocale : public FakeLocaleText {
  public:
    std::optional<DaySerial> ParseDate(std::u16string_view text) override {
        const auto read = FakeLocaleText::ParseDate(text);
        if (!read) return read;
        return DaySerial{std::nextafter(read->days, 0)};
    }
};

TEST(ReminderPhraseDate, TheLastBitOfTheConversionDoesNotCount) {
    InexactLocale locale;
    EXPECT_EQ(ParseReminderPhrase(u"11/15/2026 2:10 pm", kPhraseNow, locale).when, kPhraseNow) << "not the past";
    EXPECT_EQ(ParseReminderPhrase(u"11/20/2026", kPhraseNow, locale).when, ToDaySerial({2026, 11, 20, 0, 0, 0}));
    EXPECT_EQ(ParseReminderPhrase(u"2:10 pm", kPhraseNow, locale).when, kPhraseNow);
}

// A locale whose conversion accepts only the keyboard's blank.
class StrictBlankLocale : public FakeLocaleText {
  public:
    std::u16string LongTime(DaySerial when) override {
        std::u16string text = FakeLocaleText::LongTime(when);
        for (char16_t& c : text) c = c == u' ' ? char16_t{0x202F} : c;
        return u"\u200E" + text;
    }
};

TEST(ReminderPhraseDate, ReadsTheLocalesOwnDates) {
    FakeLocaleText plain;
    StrictBlankLocale strict;
    for (LocaleText* locale : {static_cast<LocaleText*>(&plain), static_cast<LocaleText*>(&strict)}) {
        for (const int hour : {0, 3, 11, 12, 13, 23}) {
            const DaySerial when = ToDaySerial({2026, 12, 24, hour, 5, 30});
            const std::u16string typed = locale->ShortDate(when) + u" " + locale->LongTime(when);
            EXPECT_EQ(ParseReminderPhrase(typed, kPhraseNow, *locale).when, when) << hour;
        }
    }
}

}  // namespace
}  // namespace quillo

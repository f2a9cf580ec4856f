#include "reminders/reminder_phrase.h"

#include <gtest/gtest.h>

#include "phrase_table.h"

namespace quillo {
namespace {

TEST(ReminderPhrase, ReadsTypicalPhrases) {
    const struct {
        std::u16string_view typed;
        std::string meant;
    } cases[] = {
        {u"", kNoPhrase},
        {u"   ", kNoPhrase},
        {u"In 20 Minutes", "2026-11-15 14:30:00"},
        {u"in an hour", "2026-11-15 15:10:00"},
        {u"in a minute", "2026-11-15 14:11:00"},
        {u"in 2 h", "2026-11-15 16:10:00"},
        {u"in 1.5 hours", "2026-11-15 16:10:00"},
        {u"in 3 days", "2026-11-18 14:10:00"},
        {u"in 30 s", "2026-11-15 14:10:30"},
        {u"in 20minutes", kFormat},
        {u"in ten minutes", kFormat},
        {u"in 20 weeks", kPeriod},
        {u"in 20  minutes", kPeriod},
        {u"in 2x minutes", kAmount},
        {u"midnight", "2026-11-16 00:00:00"},
        {u"at midnight", "2026-11-16 00:00:00"},
        {u"tomorrow", "2026-11-16 00:00:00"},
        {u"noon", "2026-11-16 12:00:00"},
        {u"3:00", "2026-11-15 15:00:00"},
        {u"1:00", "2026-11-16 13:00:00"},
        {u"9 am", "2026-11-16 09:00:00"},
        {u"4:30 pm", "2026-11-15 16:30:00"},
        {u"12:05", "2026-11-16 12:05:00"},
        {u"1/1/2020 3:00 pm", "2026-11-15 15:00:00"},
        {u"1/5/2026 10:00", "2026-01-06 22:00:00"},
        {u"whenever", kUnknown},
    };
    for (const auto& c : cases) EXPECT_EQ(Read(c.typed), c.meant) << Plain(c.typed);
}

TEST(ReminderPhrase, MessagesAreExact) {
    EXPECT_EQ(Plain(kNoPhraseMessage), kNoPhrase);
    EXPECT_EQ(Plain(kPhraseFormatMessage), kFormat);
    EXPECT_EQ(Plain(kPhraseAmountMessage), kAmount);
    EXPECT_EQ(Plain(kPhrasePeriodMessage), kPeriod);
    EXPECT_EQ(Plain(kPhraseUnknownMessage), kUnknown);
}

TEST(ReminderPhrase, EitherATimeOrAMessage) {
    FakeLocaleText locale;
    for (const std::u16string_view typed : {u"noon", u"in 2 h", u"3:00", u"", u"in x", u"in x y", u"in 1 y", u"so"}) {
        const ReminderPhrase phrase = ParseReminderPhrase(typed, kPhraseNow, locale);
        EXPECT_NE(phrase.when.has_value(), !phrase.message.empty()) << Plain(typed);
    }
}

// Keywords.

TEST(ReminderPhrase, KeywordsFoldCaseAndBlanks) {
    for (const std::u16string_view typed : {u"Midnight", u" AT MIDNIGHT ", u"tomorrow", u"  ToMorrow", u"at midnight"})
        EXPECT_EQ(Read(typed), "2026-11-16 00:00:00") << Plain(typed);
    for (const std::u16string_view typed : {u"NOON", u"  at Noon   ", u"at noon", u"noon "})
        EXPECT_EQ(Read(typed), "2026-11-16 12:00:00") << Plain(typed);
}

TEST(ReminderPhrase, KeywordsAreWholePhrases) {
    for (const std::u16string_view typed :
         {u"at  noon", u"at  midnight", u"noonish", u"by noon", u"tomorrow 9am", u"at tomorrow", u"at 9 am", u"at 3:00",
          u"today", u"midday", u"at", u"in", u"in ", u"noon\t", u"\tnoon"}) {
        EXPECT_EQ(Read(typed), kUnknown) << Plain(typed);
    }
}

TEST(ReminderPhrase, NoonIsTodayUntilItHasPassed) {
    EXPECT_EQ(Read(u"noon", ToDaySerial({2026, 11, 15, 11, 59, 59})), "2026-11-15 12:00:00");
    EXPECT_EQ(Read(u"noon", ToDaySerial({2026, 11, 15, 12, 0, 0})), "2026-11-15 12:00:00") << "not earlier than now";
    EXPECT_EQ(Read(u"noon", ToDaySerial({2026, 11, 15, 12, 0, 1})), "2026-11-16 12:00:00");
    const DaySerial justPast{ToDaySerial({2026, 11, 15, 12, 0, 0}).days + 0.25 / 86'400};
    EXPECT_EQ(Read(u"noon", justPast), "2026-11-16 12:00:00") << "a quarter of a second counts";
}

TEST(ReminderPhrase, MidnightIsTheNextDaysHoweverLateItIs) {
    EXPECT_EQ(Read(u"midnight", ToDaySerial({2026, 11, 15, 0, 0, 0})), "2026-11-16 00:00:00");
    const DaySerial lastMoment{ToDaySerial({2026, 11, 16, 0, 0, 0}).days - 0.1 / 86'400};
    EXPECT_EQ(Read(u"midnight", lastMoment), "2026-11-16 00:00:00") << "not rounded into the next day";
    EXPECT_EQ(Read(u"noon", lastMoment), "2026-11-16 12:00:00");
    EXPECT_EQ(Read(u"15:30", lastMoment), "2026-11-16 15:30:00");
    EXPECT_EQ(Read(u"3:00", lastMoment), "2026-11-16 15:00:00") << "today is still the 15th";
    EXPECT_EQ(Read(u"midnight", ToDaySerial({2026, 12, 31, 14, 0, 0})), "2027-01-01 00:00:00");
    EXPECT_EQ(Read(u"tomorrow", ToDaySerial({2028, 2, 28, 9, 0, 0})), "2028-02-29 00:00:00");
    EXPECT_EQ(Read(u"tomorrow", ToDaySerial({2027, 2, 28, 9, 0, 0})), "2027-03-01 00:00:00");
}

// Relative phrases.

TEST(ReminderPhrase, EveryWordOfEveryUnit) {
    const struct {
        const char16_t* words[5];
        const char* five;
        const char* one;
    } cases[] = {
        {{u"m", u"min", u"mins", u"minute", u"minutes"}, "2026-11-15 14:15:00", "2026-11-15 14:11:00"},
        {{u"s", u"sec", u"secs", u"second", u"seconds"}, "2026-11-15 14:10:05", "2026-11-15 14:10:01"},
        {{u"h", u"hr", u"hrs", u"hour", u"hours"}, "2026-11-15 19:10:00", "2026-11-15 15:10:00"},
        {{u"d", u"D", u"day", u"days", u"Days"}, "2026-11-20 14:10:00", "2026-11-16 14:10:00"},
    };
    for (const auto& c : cases) {
        for (const std::u16string word : c.words) {
            EXPECT_EQ(Read(u"in 5 " + word), c.five) << Plain(word);
            EXPECT_EQ(Read(u"IN  1 " + word + u"  "), c.one) << Plain(word);
            EXPECT_EQ(Read(u"in a " + word), c.one) << Plain(word);
            EXPECT_EQ(Read(u"in an   " + word), c.one) << Plain(word);
            EXPECT_EQ(Read(u"in 0 " + word), "2026-11-15 14:10:00") << Plain(word);
            EXPECT_EQ(Read(u"in 5 " + word + u"."), kPeriod) << Plain(word);
            EXPECT_EQ(Read(u"in 5 " + word + u" from now"), kPeriod) << Plain(word);
            EXPECT_EQ(Read(u"in 5" + word), kFormat) << Plain(word);
        }
    }
}

TEST(ReminderPhrase, UnknownUnits) {
    for (const std::u16string_view typed :
         {u"in 5 weeks", u"in 5 months", u"in 5 years", u"in 5 hs", u"in 5 dd", u"in 5 minuten",
          u"in 1 hour and a half", u"in 2 2 hours", u"in 5 -", u"in 5   m", u"in 20 m inutes", u"in 20 \u043C"}) {
        EXPECT_EQ(Read(typed), kPeriod) << Plain(typed);
    }
}

TEST(ReminderPhrase, ArticlesMeanOne) {
    const struct {
        std::u16string_view typed;
        std::string meant;
    } cases[] = {
        {u"in a", kFormat},
        {u"in an", kFormat},
        {u"in   an   ", kFormat},
        {u"in abc", kPeriod},
        {u"in about 5 minutes", kPeriod},
        {u"in another hour", kPeriod},
        {u"in a couple of hours", kPeriod},
        {u"in a20 minutes", kPeriod},
        {u"in a 5 minutes", kPeriod},
        {u"in an5 minutes", kPeriod},
        {u"in ah", "2026-11-15 15:10:00"},  // intended: any leading "a" is an article
        {u"in and", "2026-11-16 14:10:00"},
        {u"in amin", "2026-11-15 14:11:00"},
        {u"in anhour", "2026-11-15 15:10:00"},
        {u"In An Hour", "2026-11-15 15:10:00"},
        {u"in a second", "2026-11-15 14:10:01"},
        {u"in a day", "2026-11-16 14:10:00"},
    };
    for (const auto& c : cases) EXPECT_EQ(Read(c.typed), c.meant) << Plain(c.typed);
}

TEST(ReminderPhrase, AmountsRoundHalvesToEven) {
    const struct {
        std::u16string_view amount;
        const char* meant;
    } cases[] = {
        {u"1.5", "2026-11-15 14:12:00"},
        {u"2.5", "2026-11-15 14:12:00"},
        {u"3.5", "2026-11-15 14:14:00"},
        {u"0.5", "2026-11-15 14:10:00"},
        {u"0.51", "2026-11-15 14:11:00"},
        {u"1.49", "2026-11-15 14:11:00"},
        {u"2.", "2026-11-15 14:12:00"},
        {u"1e1", "2026-11-15 14:20:00"},
        {u"1E+1", "2026-11-15 14:20:00"},
        {u"15e-1", "2026-11-15 14:12:00"},
        {u"007", "2026-11-15 14:17:00"},
        {u"1,440", "2026-11-16 14:10:00"},
        {u"000000000000000000010", "2026-11-15 14:20:00"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Read(u"in " + std::u16string(c.amount) + u" minutes"), c.meant) << Plain(c.amount);
    }
}

TEST(ReminderPhrase, AmountsThatDoNotStartWithADigit) {
    for (const std::u16string_view typed :
         {u"in -5 minutes", u"in +5 minutes", u"in .5 hours", u"in ten minutes", u"in $5 minutes", u"in (5) minutes",
          u"in one hour", u"in  x", u"in x y", u"in the morning", u"in in 5 minutes", u"in , minutes", u"in :5 m",
          u"in \u0665 minutes", u"in half an hour"}) {
        EXPECT_EQ(Read(typed), kFormat) << Plain(typed);
    }
}

TEST(ReminderPhrase, AmountsWithoutABlankAfterThem) {
    for (const std::u16string_view typed : {u"in 5", u"in 20minutes", u"in 5m", u"in 5\tminutes", u"in 2026-11-20"})
        EXPECT_EQ(Read(typed), kFormat) << Plain(typed);
}

TEST(ReminderPhrase, AmountsThatAreNotNumbers) {
    for (const std::u16string_view typed :
         {u"in 2x minutes", u"in 2-3 hours", u"in 1/2 hour", u"in 5min utes", u"in 1.2.3 hours", u"in 12:30 hours",
          u"in 5% minutes", u"in 2x weeks", u"in 1e minutes", u"in 20th november", u"in 2\u00BD hours"}) {
        EXPECT_EQ(Read(typed), kAmount) << Plain(typed);
    }
}

TEST(ReminderPhrase, AmountsAndSumsOutOfRange) {
    for (const std::u16string_view typed :
         {u"in 2147483648 minutes", u"in 4294967297 minutes", u"in 2147483647.5 seconds", u"in 99999999999 weeks",
          u"in 1e400 hours", u"in 1e10 s", u"in 9999999999999999999999999 days", u"in 2147483647 days",
          u"in 3000000 days", u"in 2147483647 hours", u"in 999999999 d"}) {
        EXPECT_EQ(Read(typed), kAmount) << Plain(typed);
    }
    EXPECT_EQ(Read(u"in 2147483647 seconds"), "2094-12-03 17:24:07");
    EXPECT_EQ(Read(u"in 2147483647.4 seconds"), "2094-12-03 17:24:07");
    EXPECT_EQ(Read(u"in 2147483647 minutes"), "6109-12-08 16:17:00");
}

TEST(ReminderPhrase, TheLastDayOfTheCalendar) {
    const DaySerial last = ToDaySerial({9999, 12, 31, 23, 59, 58});
    EXPECT_EQ(Read(u"in 1 second", last), "9999-12-31 23:59:59");
    EXPECT_EQ(Read(u"in 2 seconds", last), kAmount);
    EXPECT_EQ(Read(u"in a day", last), kAmount);
    EXPECT_EQ(Read(u"in 2912124 days"), "9999-12-31 14:10:00");
    EXPECT_EQ(Read(u"in 2912125 days"), kAmount);
    EXPECT_EQ(Read(u"midnight", last), kUnknown);
    EXPECT_EQ(Read(u"noon", last), kUnknown);
    EXPECT_EQ(Read(u"3:00", last), kUnknown);
}

// The platform also accepts a sign after the number.
class SignBehindLocale : public FakeLocaleText {
  public:
    std::optional<double> ParseNumber(std::u16string_view text) override {
        if (text.size() < 2 || text.back() != u'-') return FakeLocaleText::ParseNumber(text);
        const auto number = FakeLocaleText::ParseNumber(text.substr(0, text.size() - 1));
        return number ? std::optional(-*number) : std::nullopt;
    }
};

TEST(ReminderPhrase, NegativeAmountsAreInThePast) {
    SignBehindLocale locale;
    EXPECT_EQ(Read(u"in 5- minutes", kPhraseNow, locale), "2026-11-15 14:05:00");
    EXPECT_EQ(Read(u"in 15- hours", kPhraseNow, locale), "2026-11-14 23:10:00");
    EXPECT_EQ(Read(u"in 50000- days", kPhraseNow, locale), "1889-12-23 14:10:00") << "before the first serial";
    EXPECT_EQ(Read(u"in 800000- days", kPhraseNow, locale), kAmount);
    EXPECT_EQ(Read(u"in 99999999999- days", kPhraseNow, locale), kAmount);
}

TEST(ReminderPhrase, ADecimalCommaIsTheLocales) {
    FakeLocaleText german;
    german.decimalSeparator = u",";
    EXPECT_EQ(Read(u"in 1,5 hours", kPhraseNow, german), "2026-11-15 16:10:00");
    EXPECT_EQ(Read(u"in 1.5 hours", kPhraseNow, german), "2026-11-16 05:10:00") << "the dot groups digits there";
}

TEST(ReminderPhrase, RelativeTimesCrossEveryBorder) {
    const DaySerial eve = ToDaySerial({2026, 12, 31, 23, 59, 30});
    EXPECT_EQ(Read(u"in 30 seconds", eve), "2027-01-01 00:00:00");
    EXPECT_EQ(Read(u"in a minute", eve), "2027-01-01 00:00:30");
    EXPECT_EQ(Read(u"in 1 day", ToDaySerial({2028, 2, 28, 8, 0, 0})), "2028-02-29 08:00:00");
    EXPECT_EQ(Read(u"in 2 days", ToDaySerial({2028, 2, 28, 8, 0, 0})), "2028-03-01 08:00:00");
    EXPECT_EQ(Read(u"in 1 day", ToDaySerial({2027, 2, 28, 8, 0, 0})), "2027-03-01 08:00:00");
    EXPECT_EQ(Read(u"in 366 days", ToDaySerial({2028, 2, 29, 8, 0, 0})), "2029-03-01 08:00:00");
    EXPECT_EQ(Read(u"in 1 h", ToDaySerial({2027, 3, 28, 1, 30, 0})), "2027-03-28 02:30:00")
        << "where clocks go forward: local times have no zone";
    EXPECT_EQ(Read(u"in 24 h", ToDaySerial({2026, 10, 24, 12, 0, 0})), "2026-10-25 12:00:00") << "where they go back";
}

TEST(ReminderPhrase, RelativeTimesAreNeverAdjusted) {
    const DaySerial night = ToDaySerial({2026, 11, 15, 1, 0, 0});
    EXPECT_EQ(Read(u"in 0 hours", night), "2026-11-15 01:00:00");
    EXPECT_EQ(Read(u"in 2 hours", night), "2026-11-15 03:00:00");
}

// The characters of a phrase.

TEST(ReminderPhrase, LongAndForeignPhrasesFoldCaseToo) {
    const std::u16string blanks(200, u' ');
    EXPECT_EQ(Read(blanks), kNoPhrase);
    EXPECT_EQ(Read(blanks + u"NOON" + blanks), "2026-11-16 12:00:00");
    EXPECT_EQ(Read(u"IN" + blanks + u"20 MINUTES"), "2026-11-15 14:30:00");
    EXPECT_EQ(Read(u"IN " + std::u16string(100, u'0') + u"2 HOURS"), "2026-11-15 16:10:00");
    EXPECT_EQ(Read(u"\u041D\u041E\u0427\u042C"), kUnknown);
    EXPECT_EQ(Read(std::u16string(100'000, u'9')), kUnknown);
    EXPECT_EQ(Read(std::u16string_view(u"noon\0", 5)), kUnknown);
}

TEST(ReminderPhrase, InMustBeAWord) {
    for (const std::u16string_view typed :
         {u"in3 minutes", u"in20 minutes", u"inside", u"in\t5 minutes", u"within 5 minutes"})
        EXPECT_EQ(Read(typed), kUnknown) << Plain(typed);
}

}  // namespace
}  // namespace quillo

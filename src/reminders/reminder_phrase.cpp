#include "reminders/reminder_phrase.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "ports/locale_text.h"
#include "reminders/clock_text.h"
#include "reminders/date_add.h"
#include "util/numbers.h"
#include "util/text.h"

namespace quillo {
namespace {

struct UnitWord {
    std::u16string_view word;
    Interval interval;
};

constexpr std::array<UnitWord, 18> kUnitWords = {{
    {u"m", Interval::Minutes},
    {u"min", Interval::Minutes},
    {u"mins", Interval::Minutes},
    {u"minute", Interval::Minutes},
    {u"minutes", Interval::Minutes},
    {u"s", Interval::Seconds},
    {u"sec", Interval::Seconds},
    {u"secs", Interval::Seconds},
    {u"second", Interval::Seconds},
    {u"seconds", Interval::Seconds},
    {u"h", Interval::Hours},
    {u"hr", Interval::Hours},
    {u"hrs", Interval::Hours},
    {u"hour", Interval::Hours},
    {u"hours", Interval::Hours},
    {u"d", Interval::Days},
    {u"day", Interval::Days},
    {u"days", Interval::Days},
}};

/// A phrase in lower case. Phrases are short and mostly plain letters: those need neither the heap nor the locale,
/// because A to Z fold alike in all of them.
class LowerCase {
  public:
    LowerCase(std::u16string_view text, LocaleText& locale) {
        if (text.size() <= short_.size() &&
            std::all_of(text.begin(), text.end(), [](char16_t c) { return c < 0x80; })) {
            std::transform(text.begin(), text.end(), short_.begin(), [](char16_t c) { return AsciiLower(c); });
            text_ = std::u16string_view(short_.data(), text.size());
        } else {
            long_ = locale.ToLower(text);
            text_ = long_;
        }
    }
    LowerCase(const LowerCase&) = delete;
    LowerCase& operator=(const LowerCase&) = delete;

    [[nodiscard]] std::u16string_view Text() const { return text_; }

  private:
    std::array<char16_t, 64> short_;  // filled up to the length of text_
    std::u16string long_;
    std::u16string_view text_;
};

bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

ReminderPhrase Understood(std::optional<DaySerial> when, std::u16string_view messageOtherwise) {
    if (!when) return {std::nullopt, messageOtherwise};
    return {when, {}};
}

// The next midnight or noon.
std::optional<DaySerial> ReadKeyword(std::u16string_view phrase, DaySerial now) {
    // Intended: "tomorrow" is the coming midnight, when tomorrow begins.
    if (phrase == u"midnight" || phrase == u"at midnight" || phrase == u"tomorrow") {
        return AddToDate(DayOf(now), Interval::Days, 1);
    }
    if (phrase != u"noon" && phrase != u"at noon") return std::nullopt;
    const std::optional<DaySerial> noon = AddToDate(DayOf(now), Interval::Hours, 12);
    return noon && *noon < now ? AddToDate(*noon, Interval::Days, 1) : noon;
}

bool StartsNumeric(std::u16string_view text, LocaleText& locale) {
    if (text.empty()) return false;
    return IsDigit(text.front()) || locale.ParseNumber(text.substr(0, 1)).has_value();
}

std::optional<std::int32_t> ReadAmount(std::u16string_view amount, LocaleText& locale) {
    constexpr std::size_t kMostDigits = 9;
    if (amount.size() <= kMostDigits && std::all_of(amount.begin(), amount.end(), IsDigit)) {
        std::int32_t number = 0;
        for (const char16_t c : amount) number = number * 10 + (c - u'0');
        return number;
    }
    const std::optional<double> number = locale.ParseNumber(amount);
    if (!number) return std::nullopt;
    return RoundHalfEven(*number);
}

// The text after "in".
ReminderPhrase ReadRelative(std::u16string_view rest, DaySerial now, LocaleText& locale) {
    std::u16string_view amount = u"1";
    std::u16string_view unit;
    if (rest.starts_with(u"a")) {
        // Intended: an article is any leading "a" or "an", so "in a20 minutes" asks for a known period of time.
        unit = Trim(rest.substr(rest.starts_with(u"an") ? 2 : 1));
        if (unit.empty()) return {std::nullopt, kPhraseFormatMessage};
    } else {
        const std::size_t blank = rest.find(u' ');
        if (!StartsNumeric(rest, locale) || blank == std::u16string_view::npos) {
            return {std::nullopt, kPhraseFormatMessage};
        }
        amount = rest.substr(0, blank);
        unit = rest.substr(blank + 1);  // intended: a second blank makes the unit unknown
    }
    const std::optional<std::int32_t> number = ReadAmount(amount, locale);
    if (!number) return {std::nullopt, kPhraseAmountMessage};
    for (const UnitWord& entry : kUnitWords) {
        if (entry.word == unit) return Understood(AddToDate(now, entry.interval, *number), kPhraseAmountMessage);
    }
    return {std::nullopt, kPhrasePeriodMessage};
}

// Moves the time that was read to the one that a user means by it at this moment; it may still be in the past.
std::optional<DaySerial> Adjust(DaySerial read, std::u16string_view phrase, DaySerial now) {
    CivilTime fields = ToCivilTime(read);
    const CivilTime today = ToCivilTime(DayOf(now));
    if (fields.year < today.year) {
        // A time alone is in 1899. Intended: a whole date of an earlier year is read as its time today.
        fields.year = today.year;
        fields.month = today.month;
        fields.day = today.day;
    }
    // From whole seconds: the conversion may miss them by the last bit, which must not count as earlier than now.
    std::optional<DaySerial> when = ToDaySerial(fields);
    const bool morning = phrase.ends_with(u"am") || phrase.ends_with(u"a");
    if (fields.hour < 12 && !morning && *when < now) when = AddToDate(*when, Interval::Hours, 12);
    // Intended: one day only, so an earlier day of this year stays in the past and the reminder is due at once.
    if (when && *when < now) when = AddToDate(*when, Interval::Days, 1);
    return when;
}

std::optional<DaySerial> ReadAbsolute(std::u16string_view phrase, DaySerial now, LocaleText& locale) {
    const std::optional<DaySerial> read = ReadDateOrTime(phrase, locale);
    if (!read || !IsInDateRange(*read)) return std::nullopt;
    return Adjust(*read, phrase, now);
}

}  // namespace

ReminderPhrase ParseReminderPhrase(std::u16string_view text, DaySerial now, LocaleText& locale) {
    const LowerCase lower(Trim(text), locale);
    const std::u16string_view phrase = Trim(lower.Text());
    if (phrase.empty()) return {std::nullopt, kNoPhraseMessage};
    if (const auto when = ReadKeyword(phrase, now)) return {when, {}};
    if (phrase.starts_with(u"in ")) return ReadRelative(Trim(phrase.substr(2)), now, locale);
    return Understood(ReadAbsolute(phrase, now, locale), kPhraseUnknownMessage);
}

}  // namespace quillo

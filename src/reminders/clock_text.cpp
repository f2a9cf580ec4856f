#include "reminders/clock_text.h"

#include <array>
#include <cstddef>
#include <string>

#include "ports/locale_text.h"
#include "util/text.h"

namespace quillo {
namespace {

/// Hour, minute and second, as far as they are given.
struct ClockNumbers {
    std::array<int, 3> numbers{};
    std::size_t count = 0;
};

// One to three numbers of one or two digits with ":" between them.
std::optional<ClockNumbers> SplitClock(std::u16string_view text) {
    ClockNumbers clock;
    std::size_t digits = 0;
    for (const char16_t c : text) {
        if (c >= u'0' && c <= u'9' && digits < 2) {
            int& number = clock.numbers[clock.count];
            number = number * 10 + (c - u'0');
            ++digits;
        } else if (c == u':' && digits > 0 && clock.count < 2) {
            ++clock.count;
            digits = 0;
        } else {
            return std::nullopt;
        }
    }
    if (digits == 0) return std::nullopt;
    ++clock.count;
    if (clock.numbers[1] > 59 || clock.numbers[2] > 59) return std::nullopt;
    return clock;
}

DaySerial TimeAlone(int hour, const ClockNumbers& clock) {
    return ToDaySerial({1899, 12, 30, hour, clock.numbers[1], clock.numbers[2]});
}

/// A phrase that ends in "a", "am", "p" or "pm" after a digit or a blank.
struct HalfDayPhrase {
    std::u16string_view stem;  ///< the text before the suffix, without the blanks between
    bool afternoon = false;
};

std::optional<HalfDayPhrase> SplitHalfDay(std::u16string_view phrase) {
    if (!phrase.empty() && phrase.back() == u'm') phrase.remove_suffix(1);
    if (phrase.size() < 2 || (phrase.back() != u'a' && phrase.back() != u'p')) return std::nullopt;
    const bool afternoon = phrase.back() == u'p';
    phrase.remove_suffix(1);
    const char16_t before = phrase.back();
    if (before != u' ' && (before < u'0' || before > u'9')) return std::nullopt;
    return HalfDayPhrase{Trim(phrase), afternoon};
}

// "9", "3:00" or "12:05:30" with a known half of the day.
std::optional<DaySerial> ReadHalfDayTime(const HalfDayPhrase& phrase) {
    const std::optional<ClockNumbers> clock = SplitClock(phrase.stem);
    if (!clock || clock->numbers[0] < 1 || clock->numbers[0] > 12) return std::nullopt;
    return TimeAlone(clock->numbers[0] % 12 + (phrase.afternoon ? 12 : 0), *clock);
}

// Locales put no-break blanks and direction marks into the dates that they format, and such a date may be in the box
// and come back here. Empty if there are none.
std::u16string WithPlainBlanks(std::u16string_view phrase) {
    std::u16string plain;
    bool changed = false;
    for (const char16_t c : phrase) {
        const bool blank = c == 0x00A0 || c == 0x2009 || c == 0x202F;
        const bool mark = c == 0x200E || c == 0x200F;
        changed = changed || blank || mark;
        if (!mark) plain += blank ? u' ' : c;
    }
    return changed ? plain : std::u16string();
}

std::optional<DaySerial> ReadPlain(std::u16string_view phrase, LocaleText& locale) {
    if (const auto read = locale.ParseDate(phrase)) return read;
    const std::optional<HalfDayPhrase> halfDay = SplitHalfDay(phrase);
    if (!halfDay) return std::nullopt;
    if (const auto read = ReadHalfDayTime(*halfDay)) return read;
    return locale.ParseDate(std::u16string(halfDay->stem) + (halfDay->afternoon ? u" pm" : u" am"));
}

}  // namespace

std::optional<DaySerial> ReadDigitTime(std::u16string_view text) {
    const std::optional<ClockNumbers> clock = SplitClock(text);
    if (!clock || clock->count < 2 || clock->numbers[0] > 23) return std::nullopt;
    return TimeAlone(clock->numbers[0], *clock);
}

std::optional<DaySerial> ReadDateOrTime(std::u16string_view phrase, LocaleText& locale) {
    // A shortcut for the platform's conversion, which gives the same result but takes many times as long.
    if (const auto read = ReadDigitTime(phrase)) return read;
    if (const auto read = ReadPlain(phrase, locale)) return read;
    const std::u16string plain = WithPlainBlanks(phrase);
    if (plain.empty()) return std::nullopt;
    return ReadPlain(Trim(plain), locale);
}

}  // namespace quillo

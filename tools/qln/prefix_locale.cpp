#include "prefix_locale.h"

#include <algorithm>
#include <cmath>

#include "folding.h"
#include "iso_time.h"
#include "util/numbers.h"
#include "util/text.h"

namespace quillo::qln {
namespace {

std::u16string Digits(int number, std::size_t least) {
    std::u16string text = FormatInteger(number);
    if (text.size() < least) text.insert(0, least - text.size(), u'0');
    return text;
}

constexpr std::u16string_view kMonths[] = {u"January", u"February", u"March",     u"April",   u"May",      u"June",
                                           u"July",    u"August",   u"September", u"October", u"November", u"December"};
constexpr std::u16string_view kDays[] = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                         u"Thursday", u"Friday", u"Saturday"};

std::u16string NameOf(std::u16string_view name, std::size_t count) {
    return std::u16string(count == 3 ? name.substr(0, 3) : name);
}

struct Moment {
    CivilTime civil;
    int weekday;
};

/// The meaning of `count` times the letter in a pattern of the system; the letters themselves if it has none.
std::u16string Field(char16_t letter, std::size_t count, const Moment& when, const Regional& regional) {
    const CivilTime& civil = when.civil;
    const int hour12 = civil.hour % 12 == 0 ? 12 : civil.hour % 12;
    const std::u16string& half = civil.hour < 12 ? regional.morning : regional.afternoon;
    switch (letter) {
        case u'd':
            return count < 3 ? Digits(civil.day, count) : NameOf(kDays[static_cast<std::size_t>(when.weekday)], count);
        case u'M':
            return count < 3 ? Digits(civil.month, count)
                             : NameOf(kMonths[static_cast<std::size_t>(civil.month - 1)], count);
        case u'y':
            return count < 3 ? Digits(civil.year % 100, count) : Digits(civil.year, 4);
        case u'h':
            return Digits(hour12, count);
        case u'H':
            return Digits(civil.hour, count);
        case u'm':
            return Digits(civil.minute, count);
        case u's':
            return Digits(civil.second, count);
        case u't':
            return count == 1 ? half.substr(0, 1) : half;
        default:
            return std::u16string(count, letter);
    }
}

std::u16string Format(std::u16string_view pattern, DaySerial serial, const Regional& regional) {
    const Moment when{ToCivilTime(serial), Weekday(serial)};
    std::u16string text;
    for (std::size_t i = 0; i < pattern.size();) {
        if (pattern[i] == u'\'') {
            const std::size_t end = std::min(pattern.find(u'\'', i + 1), pattern.size());
            text += pattern.substr(i + 1, end - i - 1);
            i = end + 1;
            continue;
        }
        const std::size_t end = std::min(pattern.find_first_not_of(pattern[i], i), pattern.size());
        text += Field(pattern[i], end - i, when, regional);
        i = end;
    }
    return text;
}

}  // namespace

std::u16string PrefixLocale::ToLower(std::u16string_view text) {
    std::u16string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), LowerUnit);
    return lower;
}

std::optional<double> PrefixLocale::ParseNumber(std::u16string_view text) {
    std::u16string plain(Trim(text));
    if (plain.empty()) return std::nullopt;
    const std::size_t decimal = plain.find(regional_.decimal);
    if (!regional_.decimal.empty() && decimal != std::u16string::npos) {
        plain.replace(decimal, regional_.decimal.size(), u".");
    } else if (plain.find(u'.') != std::u16string::npos) {
        return std::nullopt;
    }
    const auto belongs = [](char16_t c) {
        return (c >= u'0' && c <= u'9') || c == u'.' || c == u'+' || c == u'-' || c == u'e' || c == u'E';
    };
    const bool hasDigit = std::any_of(plain.begin(), plain.end(), [](char16_t c) { return c >= u'0' && c <= u'9'; });
    if (!hasDigit || !std::all_of(plain.begin(), plain.end(), belongs)) return std::nullopt;
    const double value = ParseLeadingNumber(plain);
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<DaySerial> PrefixLocale::ParseDate(std::u16string_view text) {
    return ParseIsoTime(Trim(text));
}

std::u16string PrefixLocale::ShortDate(DaySerial when) {
    return Format(regional_.shortDate, when, regional_);
}

std::u16string PrefixLocale::LongTime(DaySerial when) {
    return Format(regional_.longTime, when, regional_);
}

std::u16string PrefixLocale::GeneralDate(DaySerial when) {
    const CivilTime civil = ToCivilTime(when);
    if (civil.year == 1899 && civil.month == 12 && civil.day == 30) return LongTime(when);
    if (civil.hour == 0 && civil.minute == 0 && civil.second == 0) return ShortDate(when);
    return ShortDate(when) + u' ' + LongTime(when);
}

}  // namespace quillo::qln

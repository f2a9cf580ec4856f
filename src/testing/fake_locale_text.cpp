#include "testing/fake_locale_text.h"

#include <array>
#include <cmath>
#include <cstddef>

#include "util/numbers.h"
#include "util/text.h"

namespace quillo {
namespace {

// Windows-1252 from 0x80 to 0x9F; unused code points map to the control characters of the same number.
constexpr std::array<char16_t, 32> kUpperControls = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                     0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                     0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                     0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char NarrowOf(char16_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
    for (std::size_t i = 0; i < kUpperControls.size(); ++i) {
        if (kUpperControls[i] == c) return static_cast<char>(0x80 + i);
    }
    return '?';
}

char16_t LowerOf(char16_t c) {
    if (c < 0x80) return AsciiLower(c);
    const bool latin = c >= 0xC0 && c <= 0xDE && c != 0xD7;
    const bool greek = c >= 0x391 && c <= 0x3A9 && c != 0x3A2;
    const bool cyrillic = c >= 0x410 && c <= 0x42F;
    if (latin || greek || cyrillic) return static_cast<char16_t>(c + 0x20);
    if (c >= 0x400 && c <= 0x40F) return static_cast<char16_t>(c + 0x50);
    if (c >= 0x100 && c <= 0x137 && c != 0x130) return static_cast<char16_t>(c | 1);
    if (c == 0x160 || c == 0x152) return static_cast<char16_t>(c + 1);
    return c;
}

std::u16string Padded(int number) {
    return (number < 10 ? u"0" : u"") + FormatInteger(number);
}

}  // namespace

std::optional<std::string> FakeLocaleText::ToNarrow(std::u16string_view text) {
    if (!narrowWorks) return std::nullopt;
    std::string bytes;
    for (const char16_t c : text) bytes += NarrowOf(c);
    return bytes;
}

std::u16string FakeLocaleText::FromNarrow(std::string_view bytes) {
    std::u16string text;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        text += code >= 0x80 && code < 0xA0 ? kUpperControls[code - 0x80U] : static_cast<char16_t>(code);
    }
    return text;
}

std::u16string FakeLocaleText::ToLower(std::u16string_view text) {
    std::u16string lower(text);
    for (char16_t& c : lower) c = LowerOf(c);
    return lower;
}

std::optional<double> FakeLocaleText::ParseNumber(std::u16string_view text) {
    const char16_t group = decimalSeparator == u"," ? u'.' : u',';
    std::u16string plain;
    for (std::u16string_view rest = Trim(text); !rest.empty(); rest.remove_prefix(1)) {
        const char16_t c = rest.front();
        if (rest.substr(0, decimalSeparator.size()) == decimalSeparator) {
            plain += u'.';
        } else if (c >= u'a' && c != u'e') {
            return std::nullopt;
        } else if (c != group) {
            plain += c;
        }
    }
    bool hasDigit = false;
    bool hasExponent = false;
    bool hasPoint = false;
    for (std::size_t i = 0; i < plain.size(); ++i) {
        const char16_t c = AsciiLower(plain[i]);
        const bool afterStart = i == 0 || AsciiLower(plain[i - 1]) == u'e';
        if (c >= u'0' && c <= u'9') {
            hasDigit = true;
        } else if (c == u'.' && !hasPoint && !hasExponent) {
            hasPoint = true;
        } else if (c == u'e' && hasDigit && !hasExponent && i + 1 < plain.size()) {
            hasExponent = true;
        } else if (!((c == u'+' || c == u'-') && afterStart && i + 1 < plain.size())) {
            return std::nullopt;
        }
    }
    const double value = ParseLeadingNumber(plain);
    if (!hasDigit || !std::isfinite(value)) return std::nullopt;
    return value;
}

std::optional<DaySerial> FakeLocaleText::ParseDate(std::u16string_view text) {
    return ReadFakeDate(text, dateOrder, currentYear);
}

std::u16string FakeLocaleText::ShortDate(DaySerial when) {
    const CivilTime time = ToCivilTime(when);
    return FormatInteger(time.month) + u"/" + FormatInteger(time.day) + u"/" + FormatInteger(time.year);
}

std::u16string FakeLocaleText::LongTime(DaySerial when) {
    const CivilTime time = ToCivilTime(when);
    const int hour = time.hour % 12 == 0 ? 12 : time.hour % 12;
    return FormatInteger(hour) + u":" + Padded(time.minute) + u":" + Padded(time.second) +
           (time.hour < 12 ? u" AM" : u" PM");
}

std::u16string FakeLocaleText::GeneralDate(DaySerial when) {
    const CivilTime time = ToCivilTime(when);
    if (time.hour == 0 && time.minute == 0 && time.second == 0) return ShortDate(when);
    if (time.year == 1899 && time.month == 12 && time.day == 30) return LongTime(when);
    return ShortDate(when) + u" " + LongTime(when);
}

}  // namespace quillo

#include "util/numbers.h"

#include <charconv>
#include <clocale>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>

// The conversions of the C library: those of <charconv> would add a quarter to the program's size. A shell extension or
// a printer driver in the process may change the C library's locale, and with it the decimal sign of these conversions.
namespace quillo {
namespace {

std::u16string Widen(const char* first, const char* last) {
    return std::u16string(first, last);
}

/// The digits with "." instead of the decimal sign of the C library's locale.
std::string WithPeriod(std::string_view digits) {
    const std::string_view sign = std::localeconv()->decimal_point;
    std::string text(digits);
    const std::size_t at = text.find(sign);
    if (at != std::string::npos) text.replace(at, sign.size(), ".");
    return text;
}

// How many characters at the start of the text, all of them ASCII, form a number without its sign.
std::size_t LengthOfNumber(std::u16string_view text) {
    const auto isDigit = [text](std::size_t i) { return i < text.size() && text[i] >= u'0' && text[i] <= u'9'; };
    std::size_t end = 0;
    while (isDigit(end)) ++end;
    std::size_t digits = end;
    if (end < text.size() && text[end] == u'.') {
        ++end;
        for (; isDigit(end); ++end) ++digits;
    }
    if (digits == 0) return 0;
    if (end < text.size() && (text[end] == u'e' || text[end] == u'E')) {
        std::size_t exponent = end + 1;
        if (exponent < text.size() && (text[exponent] == u'+' || text[exponent] == u'-')) ++exponent;
        if (isDigit(exponent)) {
            end = exponent;
            while (isDigit(end)) ++end;
        }
    }
    return end;
}

}  // namespace

std::u16string FormatSingle(float value, std::u16string_view decimalSeparator) {
    char digits[32];
    const float positiveZero = value == 0 ? 0.0F : value;
    const int length = std::snprintf(digits, sizeof digits, "%.7g", static_cast<double>(positiveZero));
    std::u16string text;
    for (const char c : WithPeriod({digits, static_cast<std::size_t>(length)})) {
        if (c == '.') {
            text += decimalSeparator;
        } else {
            text += static_cast<char16_t>(c == 'e' ? 'E' : c);
        }
    }
    return text;
}

std::u16string FormatSerial(double value) {
    int precision = 15;
    for (double whole = std::fabs(value); whole >= 1 && precision > 0; whole /= 10) --precision;
    char digits[400];  // the largest double has 309 digits before the point
    const int length = std::snprintf(digits, sizeof digits, "%.*f", precision, value);
    std::string plain = WithPeriod({digits, static_cast<std::size_t>(length)});
    if (precision > 0) {
        plain.resize(plain.find_last_not_of('0') + 1);
        if (plain.back() == '.') plain.pop_back();
    }
    return plain == "-0" ? u"0" : Widen(plain.data(), plain.data() + plain.size());
}

std::u16string FormatInteger(std::int64_t value) {
    char digits[24];
    const auto result = std::to_chars(digits, digits + sizeof digits, value);
    return Widen(digits, result.ptr);
}

double ParseLeadingNumber(std::u16string_view text) {
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == std::u16string_view::npos) return 0;
    text.remove_prefix(first);
    const bool negative = text.front() == u'-';
    if (negative || text.front() == u'+') text.remove_prefix(1);

    std::string number;
    for (const char16_t c : text.substr(0, LengthOfNumber(text))) {
        c == u'.' ? number.append(std::localeconv()->decimal_point) : number.append(1, static_cast<char>(c));
    }
    const double value = std::strtod(number.c_str(), nullptr);  // out of range: 0 or infinity
    return negative ? -value : value;
}

std::optional<std::int32_t> RoundHalfEven(double value) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() && rounded <= std::numeric_limits<std::int32_t>::max())) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(rounded);
}

}  // namespace quillo

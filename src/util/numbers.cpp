#include "util/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

#include "util/decimal.h"

namespace quillo {
namespace {

std::u16string Widen(std::string_view ascii) {
    return std::u16string(ascii.begin(), ascii.end());
}

/// The text of infinity or of a value that is not a number, with the sign of `value`.
std::u16string NoDigits(double value) {
    return (std::signbit(value) ? u"-" : u"") + std::u16string(std::isnan(value) ? u"nan" : u"inf");
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

/// The value of an exponent's digits; a number far beyond any double if there are too many.
int Exponent(std::u16string_view digits) {
    constexpr int kEnough = 1'000'000;
    const bool negative = digits.front() == u'-';
    int exponent = 0;
    for (const char16_t c : digits) {
        if (c >= u'0' && c <= u'9') exponent = std::min(exponent * 10 + (c - u'0'), kEnough);
    }
    return negative ? -exponent : exponent;
}

/// The value of a number whose length LengthOfNumber has returned.
double Number(std::u16string_view text) {
    const std::size_t end = std::min(text.find_first_of(u"eE"), text.size());
    std::string digits;
    digits.reserve(end);
    std::size_t point = end;
    for (std::size_t i = 0; i < end; ++i) {
        if (text[i] == u'.') {
            point = i;
        } else {
            digits.push_back(static_cast<char>(text[i]));
        }
    }
    const int exponent = end < text.size() ? Exponent(text.substr(end + 1)) : 0;
    constexpr std::size_t kFarthest = 100'000'000;
    return Decimal(digits, static_cast<int>(std::min(point, kFarthest)) + exponent).ToDouble();
}

}  // namespace

std::u16string FormatSingle(float value, std::u16string_view decimalSeparator) {
    constexpr int kDigits = 7;
    constexpr int kLowestExponent = -4;
    if (!std::isfinite(value)) return NoDigits(value);
    Decimal decimal(value);
    decimal.RoundToDigits(kDigits);
    const int exponent = decimal.Digits().empty() ? 0 : decimal.Point() - 1;
    const bool plain = exponent >= kLowestExponent && exponent < kDigits;
    const std::string digits = plain ? decimal.Plain() : Decimal(decimal.Digits(), 1).Plain();
    std::u16string text = value < 0 ? u"-" : u"";
    for (const char c : digits) c == '.' ? text.append(decimalSeparator) : text.append(1, static_cast<char16_t>(c));
    if (plain) return text;
    const int length = exponent < 0 ? -exponent : exponent;
    text += exponent < 0 ? u"E-" : u"E+";
    if (length < 10) text += u'0';
    return text + FormatInteger(length);
}

std::u16string FormatSerial(double value) {
    if (!std::isfinite(value)) return NoDigits(value);
    int precision = 15;
    for (double whole = std::fabs(value); whole >= 1 && precision > 0; whole /= 10) --precision;
    Decimal decimal(value);
    decimal.RoundToDecimals(precision);
    return (value < 0 && !decimal.Digits().empty() ? u"-" : u"") + Widen(decimal.Plain());
}

std::u16string FormatInteger(std::int64_t value) {
    char digits[24];
    const auto result = std::to_chars(digits, digits + sizeof digits, value);
    return Widen({digits, static_cast<std::size_t>(result.ptr - digits)});
}

double ParseLeadingNumber(std::u16string_view text) {
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == std::u16string_view::npos) return 0;
    text.remove_prefix(first);
    const bool negative = text.front() == u'-';
    if (negative || text.front() == u'+') text.remove_prefix(1);

    const double value = Number(text.substr(0, LengthOfNumber(text)));
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

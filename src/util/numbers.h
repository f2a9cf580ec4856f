#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillo {

/// The default text form of a single: at most 7 significant digits, no trailing zeros, no decimal sign in a whole
/// number, and an exponent ("1E+07", "1.5E-05") from ten million up and below 0.0001.
[[nodiscard]] std::u16string FormatSingle(float value, std::u16string_view decimalSeparator);

/// A day serial in plain digits with "." before the fraction, at most 15 significant digits, no exponent.
[[nodiscard]] std::u16string FormatSerial(double value);

[[nodiscard]] std::u16string FormatInteger(std::int64_t value);

/// The number at the start of the text, with "." before the fraction and perhaps an exponent; it ends at the first
/// character that cannot belong to it, a blank included. Leading blanks are passed over. No digits give 0; infinity
/// for a number too large.
[[nodiscard]] double ParseLeadingNumber(std::u16string_view text);

/// The nearest whole number, the even one of two; nothing outside 32 bits and for no number at all.
[[nodiscard]] std::optional<std::int32_t> RoundHalfEven(double value);

}  // namespace quillo

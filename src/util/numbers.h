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

/// The number at the start of the text, with "." before the fraction and an optional exponent; it ends at the first
/// character that cannot belong to it, a blank included. Leading blanks are skipped. 0 if there are no digits; infinity
/// if the number is too large.
[[nodiscard]] double ParseLeadingNumber(std::u16string_view text);

/// The nearest whole number, on a tie the even one; nothing if it does not fit in 32 bits or is not a number.
[[nodiscard]] std::optional<std::int32_t> RoundHalfEven(double value);

}  // namespace quillo

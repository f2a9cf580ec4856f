#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillo {

/// An exact nonnegative number in decimal digits, for converting between a double and its text. The C library's
/// conversions are 40 kB of code and use the decimal sign of a locale that other code in the process may change.
class Decimal {
  public:
    /// `value` must be finite; its sign is dropped.
    explicit Decimal(double value);
    /// Decimal digits, with the decimal sign before digit number `point`, which may be outside of them.
    Decimal(std::string_view digits, int point);

    /// The nearest double, the even one of two; infinity if the number is too large.
    [[nodiscard]] double ToDouble();

    /// Rounds to so many digits before (negative) or after the decimal sign, a half to the even digit.
    void RoundToDecimals(int decimals);
    /// Rounds to so many digits in all, at least one.
    void RoundToDigits(int digits) { RoundToDecimals(digits - point_); }

    /// Without zeros at either end; empty for 0.
    [[nodiscard]] const std::string& Digits() const { return digits_; }
    /// How many digits are before the decimal sign; negative for zeros after it.
    [[nodiscard]] int Point() const { return point_; }
    /// In plain digits: "0", "0.05", "1200".
    [[nodiscard]] std::string Plain() const;

  private:
    [[nodiscard]] int DigitAt(std::ptrdiff_t index) const;
    /// The part before the decimal sign, which must have at most 18 digits.
    [[nodiscard]] std::uint64_t Whole() const;
    [[nodiscard]] bool RoundsUp(std::ptrdiff_t kept) const;
    void MultiplyByTwo(int times);
    void DivideByTwo(int times);
    void Trim();

    std::string digits_;
    int point_ = 0;
};

}  // namespace quillo

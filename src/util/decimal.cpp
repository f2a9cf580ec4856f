#include "util/decimal.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quillo {
namespace {

/// The number of doublings in one step: a digit and its carry stay far below 64 bits.
constexpr int kStep = 28;
constexpr int kMantissaBits = std::numeric_limits<double>::digits;
constexpr std::uint64_t kMantissaEnd = std::uint64_t{1} << kMantissaBits;
/// The power of two of the last bit of the smallest doubles.
constexpr int kLowestPower = std::numeric_limits<double>::min_exponent - kMantissaBits;
/// No double and no middle between two has more digits than this.
constexpr std::size_t kMostDigits = 800;
/// Beyond these the result is infinity or 0 for all digits.
constexpr int kHighestPoint = 310;
constexpr int kLowestPoint = -330;

}  // namespace

Decimal::Decimal(double value) {
    int power = 0;
    const double fraction = std::frexp(std::fabs(value), &power);
    auto mantissa = static_cast<std::uint64_t>(std::ldexp(fraction, kMantissaBits));
    power -= kMantissaBits;
    for (; mantissa != 0 && mantissa % 2 == 0; mantissa /= 2) ++power;
    for (; mantissa != 0; mantissa /= 10) digits_.insert(digits_.begin(), static_cast<char>('0' + mantissa % 10));
    point_ = static_cast<int>(digits_.size());
    Trim();
    for (; power > 0; power -= std::min(power, kStep)) MultiplyByTwo(std::min(power, kStep));
    for (; power < 0; power += std::min(-power, kStep)) DivideByTwo(std::min(-power, kStep));
}

Decimal::Decimal(std::string_view digits, int point) : digits_(digits), point_(point) {
    Trim();
    if (digits_.size() <= kMostDigits) return;
    // The omitted digits matter only if the others are exactly in the middle between two doubles.
    digits_.resize(kMostDigits);
    digits_.back() = '1';
}

double Decimal::ToDouble() {
    if (digits_.empty() || point_ < kLowestPoint) return 0;
    if (point_ > kHighestPoint) return std::numeric_limits<double>::infinity();
    constexpr int kMantissaDigits = 16;
    int power = 0;
    for (; point_ > kMantissaDigits; power += kStep) DivideByTwo(kStep);
    for (; Whole() >= kMantissaEnd; ++power) DivideByTwo(1);
    while (Whole() < kMantissaEnd / 2 && power > kLowestPower) {
        const int wanted = Whole() < (kMantissaEnd >> (kStep + 1)) ? kStep : 1;
        const int step = std::min(wanted, power - kLowestPower);
        MultiplyByTwo(step);
        power -= step;
    }
    RoundToDecimals(0);
    return std::ldexp(static_cast<double>(Whole()), power);
}

void Decimal::RoundToDecimals(int decimals) {
    const std::ptrdiff_t kept = std::ptrdiff_t{point_} + decimals;
    if (kept >= static_cast<std::ptrdiff_t>(digits_.size())) return;
    const bool up = RoundsUp(kept);
    digits_.resize(static_cast<std::size_t>(std::max<std::ptrdiff_t>(kept, 0)));
    if (up) {
        if (kept <= 0) {
            digits_ = "1";
            point_ = 1 - decimals;
            return;
        }
        while (!digits_.empty() && digits_.back() == '9') digits_.pop_back();
        if (digits_.empty()) {
            digits_ = "1";
            ++point_;
        } else {
            ++digits_.back();
        }
    }
    Trim();
}

std::string Decimal::Plain() const {
    std::string text;
    for (int i = 0; i < point_; ++i) text += static_cast<char>('0' + DigitAt(i));
    if (text.empty()) text = "0";
    if (point_ < static_cast<int>(digits_.size())) text += '.';
    for (int i = point_; i < static_cast<int>(digits_.size()); ++i) text += static_cast<char>('0' + DigitAt(i));
    return text;
}

int Decimal::DigitAt(std::ptrdiff_t index) const {
    const bool outside = index < 0 || index >= static_cast<std::ptrdiff_t>(digits_.size());
    return outside ? 0 : digits_[static_cast<std::size_t>(index)] - '0';
}

std::uint64_t Decimal::Whole() const {
    std::uint64_t whole = 0;
    for (int i = 0; i < point_; ++i) whole = whole * 10 + static_cast<std::uint64_t>(DigitAt(i));
    return whole;
}

bool Decimal::RoundsUp(std::ptrdiff_t kept) const {
    const int next = DigitAt(kept);
    if (next != 5) return next > 5;
    const bool more = kept + 1 < static_cast<std::ptrdiff_t>(digits_.size());
    return more || DigitAt(kept - 1) % 2 != 0;
}

void Decimal::MultiplyByTwo(int times) {
    std::uint64_t carry = 0;
    for (std::size_t i = digits_.size(); i > 0; --i) {
        char& digit = digits_[i - 1];
        carry += static_cast<std::uint64_t>(digit - '0') << times;
        digit = static_cast<char>('0' + carry % 10);
        carry /= 10;
    }
    std::string front;
    for (; carry != 0; carry /= 10) front.insert(front.begin(), static_cast<char>('0' + carry % 10));
    digits_.insert(0, front);
    point_ += static_cast<int>(front.size());
    Trim();
}

void Decimal::DivideByTwo(int times) {
    const std::uint64_t mask = (std::uint64_t{1} << times) - 1;
    std::uint64_t rest = 0;
    for (char& digit : digits_) {
        rest = rest * 10 + static_cast<std::uint64_t>(digit - '0');
        digit = static_cast<char>('0' + (rest >> times));
        rest &= mask;
    }
    while (rest != 0) {
        rest *= 10;
        digits_ += static_cast<char>('0' + (rest >> times));
        rest &= mask;
    }
    Trim();
}

void Decimal::Trim() {
    const std::size_t first = std::min(digits_.find_first_not_of('0'), digits_.size());
    digits_.erase(0, first);
    point_ = digits_.empty() ? 0 : point_ - static_cast<int>(first);
    digits_.resize(digits_.find_last_not_of('0') + 1);
}

}  // namespace quillo

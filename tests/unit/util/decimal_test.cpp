#include "util/decimal.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <vector>

#include "util/numbers.h"

namespace quillo {
namespace {

using Limits = std::numeric_limits<double>;

/// Doubles of every magnitude: all bit patterns are equally likely.
std::vector<double> AnyDoubles() {
    std::mt19937_64 random(20'000);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same numbers in each run
    std::vector<double> values{0, Limits::min(), Limits::denorm_min(), Limits::max(), Limits::epsilon(), 1, 0.5, 2.5};
    while (values.size() < 200) {
        const double value = std::fabs(std::bit_cast<double>(random()));
        if (std::isfinite(value)) values.push_back(value);
    }
    return values;
}

std::string Printed(const char* format, int precision, double value) {
    char text[1500];
    const int length = std::snprintf(text, sizeof text, format, precision, value);
    return std::string(text, static_cast<std::size_t>(length));
}

std::string WithoutZerosAtTheEnd(std::string text) {
    if (text.find('.') == std::string::npos) return text;
    text.resize(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text;
}

TEST(Decimal, HoldsEveryDigitOfADouble) {
    for (const double value : AnyDoubles()) {
        EXPECT_EQ(Decimal(value).Plain(), WithoutZerosAtTheEnd(Printed("%.*f", 1080, value)));
    }
}

TEST(Decimal, RoundsAsTheCLibraryPrints) {
    for (const double value : AnyDoubles()) {
        for (const int decimals : {0, 3, 15}) {
            Decimal rounded(value);
            rounded.RoundToDecimals(decimals);
            EXPECT_EQ(rounded.Plain(), WithoutZerosAtTheEnd(Printed("%.*f", decimals, value))) << value;
        }
    }
}

TEST(Decimal, RoundsAHalfToTheEvenDigit) {
    for (const auto& [value, text] : {std::pair{0.5, "0"},
                                      {1.5, "2"},
                                      {2.5, "2"},
                                      {9.5, "10"},
                                      {99.5, "100"},
                                      {0.51, "1"},
                                      {0.49, "0"},
                                      {0.05, "0"}}) {
        Decimal rounded(value);
        rounded.RoundToDecimals(0);
        EXPECT_EQ(rounded.Plain(), text) << value;
    }
}

TEST(Decimal, GivesBackTheDoubleItWasMadeFrom) {
    for (const double value : AnyDoubles()) {
        EXPECT_EQ(Decimal(value).ToDouble(), value);
        const std::string shortest = Printed("%.*e", 16, value);
        EXPECT_EQ(ParseLeadingNumber(std::u16string(shortest.begin(), shortest.end())), value) << shortest;
    }
}

TEST(Decimal, FindsTheNearestDoubleOfAnyDigits) {
    std::mt19937_64 random(7);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same numbers in each run
    for (int i = 0; i < 300; ++i) {
        std::string text = std::to_string(random() % 10) + "." + std::to_string(random()) + std::to_string(random()) +
                           "e" + std::to_string(static_cast<int>(random() % 680) - 340);
        EXPECT_EQ(ParseLeadingNumber(std::u16string(text.begin(), text.end())), std::strtod(text.c_str(), nullptr))
            << text;
    }
}

TEST(Decimal, SeesADigitFarBehindTheMiddleOfTwoDoubles) {
    // 2^53 + 1 is in the middle of two doubles, of which the lower one is even.
    const std::u16string middle = u"9007199254740993";
    EXPECT_EQ(ParseLeadingNumber(middle), 9007199254740992.0);
    EXPECT_EQ(ParseLeadingNumber(middle + u"." + std::u16string(2000, u'0')), 9007199254740992.0);
    EXPECT_EQ(ParseLeadingNumber(middle + u"." + std::u16string(2000, u'0') + u"1"), 9007199254740994.0);
}

TEST(Decimal, TakesDigitsFarFromTheDecimalSign) {
    EXPECT_EQ(ParseLeadingNumber(std::u16string(400, u'0') + u"12"), 12);
    EXPECT_EQ(ParseLeadingNumber(u"0." + std::u16string(400, u'0') + u"1e401"), 1);
    EXPECT_EQ(ParseLeadingNumber(u"1" + std::u16string(400, u'0') + u"e-400"), 1);
    EXPECT_EQ(ParseLeadingNumber(u"1e-99999999999999999999"), 0);
    EXPECT_TRUE(std::isinf(ParseLeadingNumber(u"1e99999999999999999999")));
    EXPECT_EQ(ParseLeadingNumber(u"0e99999999999999999999"), 0);
}

TEST(Decimal, SinglesAreAsTheCLibraryPrintsThem) {
    std::mt19937 random(11);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same numbers in each run
    for (int i = 0; i < 1000; ++i) {
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        if (!std::isfinite(value)) continue;
        std::string expected = Printed("%.*g", 7, static_cast<double>(value));
        if (const std::size_t at = expected.find('e'); at != std::string::npos) expected[at] = 'E';
        const std::u16string text = FormatSingle(value, u".");
        EXPECT_EQ(std::string(text.begin(), text.end()), expected);
    }
}

}  // namespace
}  // namespace quillo

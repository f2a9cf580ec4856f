#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include "util/byte_search.h"
#include "util/day_serial.h"
#include "util/numbers.h"
#include "util/text.h"

namespace quillo {
namespace {

TEST(DaySerial, KnownDays) {
    const struct {
        double days;
        CivilTime time;
        int weekday;
    } cases[] = {
        {0, {1899, 12, 30, 0, 0, 0}, 6},       {1, {1899, 12, 31, 0, 0, 0}, 0},
        {2, {1900, 1, 1, 0, 0, 0}, 1},         {45123.75, {2023, 7, 16, 18, 0, 0}, 0},
        {29926, {1981, 12, 6, 0, 0, 0}, 0},    {36585, {2000, 2, 29, 0, 0, 0}, 2},
        {-1.25, {1899, 12, 29, 6, 0, 0}, 5},   {-657434, {100, 1, 1, 0, 0, 0}, 5},
        {2958465, {9999, 12, 31, 0, 0, 0}, 5}, {0.5, {1899, 12, 30, 12, 0, 0}, 6},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ToCivilTime({c.days}), c.time) << c.days;
        EXPECT_EQ(ToDaySerial(c.time).days, c.days);
        EXPECT_EQ(Weekday({c.days}), c.weekday) << c.days;
    }
}

TEST(DaySerial, EverySecondOfADayIsRestored) {
    for (int second = 0; second < 86'400; second += 7) {
        const CivilTime time{2026, 11, 21, second / 3600, second / 60 % 60, second % 60};
        ASSERT_EQ(ToCivilTime(ToDaySerial(time)), time);
    }
}

TEST(DaySerial, OfAFileTimeIsAWholeSecondAndNeverTheNext) {
    constexpr std::uint64_t kMidnight = 132'539'328'000'000'000;  // 1 January 2021
    const struct {
        std::uint64_t ticks;
        CivilTime expected;
    } cases[] = {{kMidnight, {2021, 1, 1, 0, 0, 0}},
                 {kMidnight + 9'999'999, {2021, 1, 1, 0, 0, 0}},
                 {kMidnight + 10'000'000, {2021, 1, 1, 0, 0, 1}},
                 {kMidnight - 1, {2020, 12, 31, 23, 59, 59}},
                 {kMidnight + 863'999'999'999, {2021, 1, 1, 23, 59, 59}}};
    for (const auto& c : cases) {
        EXPECT_EQ(ToCivilTime(FromFileTime(c.ticks)), c.expected) << c.ticks;
        EXPECT_EQ(FromFileTime(c.ticks), ToDaySerial(c.expected)) << c.ticks;
    }
}

TEST(DaySerial, RunsOnAndIsClamped) {
    EXPECT_EQ(ToCivilTime(ToDaySerial({2026, 2, 31, 0, 0, 0})), (CivilTime{2026, 3, 3, 0, 0, 0}));
    EXPECT_EQ(ToCivilTime(ToDaySerial({2026, 14, 1, 0, 0, 0})), (CivilTime{2027, 2, 1, 0, 0, 0}));
    EXPECT_EQ(ToCivilTime({1e9}), (CivilTime{9999, 12, 31, 23, 59, 59}));
    EXPECT_EQ(ToCivilTime({-1e9}), (CivilTime{100, 1, 1, 0, 0, 0}));
    EXPECT_EQ(ToCivilTime({std::nan("")}), (CivilTime{100, 1, 1, 0, 0, 0}));
    EXPECT_EQ(ToCivilTime({45123.9999999}), (CivilTime{2023, 7, 17, 0, 0, 0})) << "to the nearest second";
    EXPECT_EQ(ToCivilTime({2958465.9999999}), (CivilTime{9999, 12, 31, 23, 59, 59}));
}

TEST(Text, TrimsBlanksOnly) {
    EXPECT_EQ(Trim(u""), u"");
    EXPECT_EQ(Trim(u"   "), u"");
    EXPECT_EQ(Trim(u"  a b "), u"a b");
    EXPECT_EQ(Trim(u" \t\r\n "), u"\t\r\n");
    EXPECT_EQ(Trim(u"\u00A0a"), u"\u00A0a");
}

TEST(Text, FoldsAsciiOnly) {
    EXPECT_TRUE(EqualsIgnoringAsciiCase(u"/CLOSE", u"/close"));
    EXPECT_FALSE(EqualsIgnoringAsciiCase(u"/close", u"/closer"));
    EXPECT_FALSE(EqualsIgnoringAsciiCase(u"\u00C4", u"\u00E4"));
    EXPECT_FALSE(EqualsIgnoringAsciiCase("@", "`")) << "not letters";
    EXPECT_TRUE(StartsWithIgnoringAsciiCase(u"C:\\NOTES\\a", u"c:\\notes"));
    EXPECT_FALSE(StartsWithIgnoringAsciiCase(u"C:\\", u"c:\\notes"));
    EXPECT_TRUE(StartsWithIgnoringAsciiCase("x", ""));
    EXPECT_TRUE(EndsWithIgnoringAsciiCase(u"C:\\a.QLN", u".qln"));
    EXPECT_TRUE(EndsWithIgnoringAsciiCase(u".QLN", u".qln")) << "nothing before it";
    EXPECT_FALSE(EndsWithIgnoringAsciiCase(u"qln", u".qln"));
    EXPECT_FALSE(EndsWithIgnoringAsciiCase("a.qlnx", ".qln"));
    EXPECT_TRUE(EndsWithIgnoringAsciiCase("x", ""));
    EXPECT_EQ(FoldAscii(u"ABZ[\u00C4"), u"abz[\u00C4");
}

TEST(Numbers, Singles) {
    const struct {
        float value;
        const char16_t* text;
    } cases[] = {{0.0F, u"0"},
                 {-0.0F, u"0"},
                 {7200.0F, u"7200"},
                 {-15.0F, u"-15"},
                 {1.5F, u"1.5"},
                 {0.1F, u"0.1"},
                 {1.0F / 3, u"0.3333333"},
                 {9999999.0F, u"9999999"},
                 {10000000.0F, u"1E+07"},
                 {1.5e-5F, u"1.5E-05"},
                 {0.0001F, u"0.0001"},
                 {1e20F, u"1E+20"},
                 {1234567.8F, u"1234568"}};
    for (const auto& c : cases) EXPECT_EQ(FormatSingle(c.value, u"."), c.text);
    EXPECT_EQ(FormatSingle(2.5F, u","), u"2,5");
}

TEST(Numbers, Serials) {
    EXPECT_EQ(FormatSerial(45123.75), u"45123.75");
    EXPECT_EQ(FormatSerial(45123), u"45123");
    EXPECT_EQ(FormatSerial(0), u"0");
    EXPECT_EQ(FormatSerial(-0.0), u"0");
    EXPECT_EQ(FormatSerial(-1.25), u"-1.25");
    EXPECT_EQ(FormatSerial(1.0 / 3), u"0.333333333333333");
    EXPECT_EQ(FormatSerial(100000 + 1.0 / 3), u"100000.333333333");
    EXPECT_EQ(FormatSerial(0.00001), u"0.00001") << "no exponent";
    EXPECT_EQ(FormatSerial(1e15), u"1000000000000000");
    EXPECT_EQ(FormatSerial(100), u"100") << "the zeros of a whole number stay";
    EXPECT_EQ(FormatInteger(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
}

TEST(Numbers, LeadingNumber) {
    const struct {
        const char16_t* text;
        double value;
    } cases[] = {{u"", 0},         {u"abc", 0},     {u"45123.75", 45123.75},
                 {u"  12", 12},    {u"12 34", 12},  {u"1,5", 1},
                 {u"-3.5x", -3.5}, {u"+2", 2},      {u".5", 0.5},
                 {u"5.", 5},       {u".", 0},       {u"-", 0},
                 {u"1e3", 1000},   {u"1E-2", 0.01}, {u"1e", 1},
                 {u"1e+", 1},      {u"1.2.3", 1.2}, {u"&hff", 0},
                 {u"1e-9999", 0},  {u"\u0663", 0}};
    for (const auto& c : cases) EXPECT_EQ(ParseLeadingNumber(c.text), c.value) << FoldAscii(c.text).size();
    EXPECT_TRUE(std::isinf(ParseLeadingNumber(u"1e9999")));
    EXPECT_TRUE(std::isinf(ParseLeadingNumber(std::u16string(400, u'9'))));
    EXPECT_EQ(ParseLeadingNumber(u"0." + std::u16string(400, u'0') + u"1"), 0);
}

TEST(Numbers, RoundsHalvesToEven) {
    EXPECT_EQ(RoundHalfEven(0.5), 0);
    EXPECT_EQ(RoundHalfEven(1.5), 2);
    EXPECT_EQ(RoundHalfEven(2.5), 2);
    EXPECT_EQ(RoundHalfEven(-2.5), -2);
    EXPECT_EQ(RoundHalfEven(2147483647.4), 2147483647);
    EXPECT_EQ(RoundHalfEven(2147483647.5), std::nullopt);
    EXPECT_EQ(RoundHalfEven(-2147483648.0), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(RoundHalfEven(-2147483649.0), std::nullopt);
    EXPECT_EQ(RoundHalfEven(std::nan("")), std::nullopt);
}

TEST(ByteSearch, AgreesWithASlowSearch) {
    std::mt19937 random(20261121);
    for (int round = 0; round < 4000; ++round) {
        std::string bytes(random() % 300, 'a');
        for (unsigned hits = random() % 4; hits > 0 && !bytes.empty(); --hits) bytes[random() % bytes.size()] = '<';
        const std::size_t from = random() % 310;
        ASSERT_EQ(FindByte(bytes, '<', from), bytes.find('<', from));
    }
    EXPECT_EQ(FindByte("a\xBC\x80\xFF", '\xFF', 0), 3U);
    EXPECT_EQ(FindByte("<", '<', 5), std::string_view::npos);
}

TEST(ByteSearch, FindsTagsInAnyCase) {
    EXPECT_EQ(FindTag("ab<QuiLLo>", "<quillo>", 0), 2U);
    EXPECT_EQ(FindTag("<quillo>", "<quillo>", 1), std::string_view::npos);
    EXPECT_EQ(FindTag("<<<quillo>", "<quillo>", 0), 2U);
    EXPECT_EQ(FindTag("<quillo", "<quillo>", 0), std::string_view::npos) << "cut off at the end";
    EXPECT_EQ(FindTag("<quill\xCF>", "<quillo>", 0), std::string_view::npos);
}

}  // namespace
}  // namespace quillo

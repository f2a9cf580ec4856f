#include "platform/win_locale_text.h"

#include <gtest/gtest.h>

#include <array>

#include "platform/wide.h"
#include "platform/win32.h"

namespace quillo {
namespace {

class WinLocaleTextTest : public testing::Test {
  protected:
    [[nodiscard]] static std::u16string Info(LCTYPE type) {
        std::array<wchar_t, 80> text{};
        GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text.data(), static_cast<int>(text.size()));
        return std::u16string(FromWide(text.data()));
    }

    WinLocaleText locale_;
};

TEST_F(WinLocaleTextTest, ACharacterThatTheCodePageLacksBecomesAQuestionMark) {
    if (GetACP() != 1252) GTEST_SKIP() << "the texts are made for code page 1252";
    EXPECT_EQ(locale_.ToNarrow(u"A\u00E9\u20AC"), "A\xE9\x80");
    // Each of these has a look-alike that a plain conversion would use.
    for (const char16_t c : {u'\u0100', u'\u2212', u'\uFF21', u'\uFF11', u'\u2032', u'\u221E', u'\u03B1', u'\u2264'}) {
        EXPECT_EQ(locale_.ToNarrow(std::u16string(1, c)), "?") << std::hex << static_cast<int>(c);
    }
    EXPECT_EQ(locale_.ToNarrow(u"\u65E5\u672C"), "??");
    EXPECT_EQ(locale_.ToNarrow(std::u16string(u"a\0b", 3)), std::string("a\0b", 3));
    EXPECT_EQ(locale_.ToNarrow(u""), "");
}

TEST_F(WinLocaleTextTest, EveryByteOfTheCodePageIsRestored) {
    CPINFO info{};
    ASSERT_NE(GetCPInfo(CP_ACP, &info), 0);
    if (info.MaxCharSize != 1) GTEST_SKIP() << "a code page of several bytes a character";
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
    const std::u16string text = locale_.FromNarrow(bytes);
    ASSERT_EQ(text.size(), bytes.size());
    EXPECT_EQ(locale_.ToNarrow(text), bytes);
    if (GetACP() == 1252) {
        EXPECT_EQ(locale_.FromNarrow("\x80\x93\x94\x9F"), u"\u20AC\u201C\u201D\u0178");
    }
}

TEST_F(WinLocaleTextTest, LargeTextsConvertWhole) {
    const std::string bytes(3'000'000, 'q');
    EXPECT_TRUE(locale_.ToNarrow(locale_.FromNarrow(bytes)) == bytes);
}

TEST_F(WinLocaleTextTest, TheCodePageOfTheseTestsHasSingleBytes) {
    CPINFO page{};
    ASSERT_TRUE(GetCPInfo(CP_ACP, &page));
    EXPECT_EQ(locale_.HasSingleByteCodePage(), page.MaxCharSize == 1);
}

TEST_F(WinLocaleTextTest, LowerCaseKeepsTheLength) {
    EXPECT_EQ(locale_.ToLower(u"ABC xyz \u00C9\u0416\u0395 1"), u"abc xyz \u00E9\u0436\u03B5 1");
    EXPECT_EQ(locale_.ToLower(u""), u"");
    for (unsigned c = 1; c < 0x10000; ++c) {
        const std::u16string one(1, static_cast<char16_t>(c));
        ASSERT_EQ(locale_.ToLower(one).size(), 1U) << c;
    }
}

TEST_F(WinLocaleTextTest, WholeNumbersAreReadInEveryLocale) {
    EXPECT_EQ(locale_.ParseNumber(u"7200"), 7200);
    EXPECT_EQ(locale_.ParseNumber(u"-3"), -3);
    EXPECT_EQ(locale_.ParseNumber(u"0"), 0);
    EXPECT_EQ(locale_.ParseNumber(u" 12 "), 12);
    EXPECT_EQ(locale_.ParseNumber(u"14155262"), 14155262);
    const auto huge = locale_.ParseNumber(u"123456789012345678901234567890");
    ASSERT_TRUE(huge.has_value());
    EXPECT_DOUBLE_EQ(*huge, 123456789012345678901234567890.0);
}

TEST_F(WinLocaleTextTest, FractionsFollowTheLocale) {
    const std::u16string separator = locale_.DecimalSeparator();
    EXPECT_EQ(separator, Info(LOCALE_SDECIMAL));
    EXPECT_EQ(locale_.ParseNumber(u"1" + separator + u"5"), 1.5);
    EXPECT_EQ(locale_.ParseNumber(u"-0" + separator + u"25"), -0.25);
    EXPECT_EQ(locale_.ParseNumber(u"1e3"), 1000);
}

TEST_F(WinLocaleTextTest, ATextThatIsNotANumberFails) {
    for (const char16_t* text : {u"", u" ", u"abc", u"-", u"12x", u"1 2 x", u"true", u"1e999"}) {
        EXPECT_EQ(locale_.ParseNumber(text), std::nullopt) << testing::PrintToString(std::u16string(text));
    }
}

TEST_F(WinLocaleTextTest, DatesAndTimesAreReadInTheLocalesForm) {
    const DaySerial day = ToDaySerial(CivilTime{2026, 11, 21, 0, 0, 0});
    const auto date = locale_.ParseDate(locale_.ShortDate(day));
    ASSERT_TRUE(date.has_value());
    EXPECT_EQ(date->days, day.days);

    const auto time = locale_.ParseDate(u"17:05");
    ASSERT_TRUE(time.has_value());
    EXPECT_EQ(ToCivilTime(*time), (CivilTime{1899, 12, 30, 17, 5, 0}));

    const DaySerial both = ToDaySerial(CivilTime{2026, 11, 21, 17, 5, 9});
    const auto read = locale_.ParseDate(locale_.GeneralDate(both));
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(ToCivilTime(*read), ToCivilTime(both));

    for (const char16_t* text : {u"", u"abc", u"2026-13-45", u"25:61"}) {
        EXPECT_FALSE(locale_.ParseDate(text).has_value()) << testing::PrintToString(std::u16string(text));
    }
}

TEST_F(WinLocaleTextTest, GeneralDateOmitsMissingParts) {
    const DaySerial midnight = ToDaySerial(CivilTime{2026, 11, 21, 0, 0, 0});
    const DaySerial later = ToDaySerial(CivilTime{2026, 11, 21, 2, 22, 11});
    const DaySerial timeAlone = ToDaySerial(CivilTime{1899, 12, 30, 2, 22, 11});
    EXPECT_EQ(locale_.GeneralDate(midnight), locale_.ShortDate(midnight));
    EXPECT_EQ(locale_.GeneralDate(later), locale_.ShortDate(later) + u" " + locale_.LongTime(later));
    EXPECT_EQ(locale_.GeneralDate(timeAlone), locale_.LongTime(timeAlone));
    EXPECT_EQ(locale_.GeneralDate(DaySerial{0}), locale_.LongTime(DaySerial{0})) << "midnight of day 0 is a time";
    EXPECT_FALSE(locale_.LongTime(timeAlone).empty());
    if (GetUserDefaultLCID() == 0x409) {
        EXPECT_EQ(locale_.ShortDate(later), u"11/21/2026");
        EXPECT_EQ(locale_.LongTime(later), u"2:22:11 AM");
    }
}

}  // namespace
}  // namespace quillo

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ports/locale_text.h"
#include "testing/fake_date_reader.h"

namespace quillo {

/// The locale of a user in the United States whose code page is Windows-1252. A test can change the decimal sign and
/// the order in which dates are read.
class FakeLocaleText : public LocaleText {
  public:
    [[nodiscard]] std::optional<std::string> ToNarrow(std::u16string_view text) override;
    [[nodiscard]] std::u16string FromNarrow(std::string_view bytes) override;
    [[nodiscard]] bool HasSingleByteCodePage() override { return singleBytes; }
    /// Latin, Greek and Cyrillic letters.
    [[nodiscard]] std::u16string ToLower(std::u16string_view text) override;
    [[nodiscard]] std::u16string DecimalSeparator() override { return decimalSeparator; }
    /// Digits with group signs, a sign, a fraction, an exponent; blanks around them.
    [[nodiscard]] std::optional<double> ParseNumber(std::u16string_view text) override;
    /// See ReadFakeDate.
    [[nodiscard]] std::optional<DaySerial> ParseDate(std::u16string_view text) override;
    [[nodiscard]] std::u16string ShortDate(DaySerial when) override;
    [[nodiscard]] std::u16string LongTime(DaySerial when) override;
    [[nodiscard]] std::u16string GeneralDate(DaySerial when) override;

    bool singleBytes = true;
    bool narrowWorks = true;  ///< false: the system refuses every conversion to narrow text
    std::u16string decimalSeparator = u".";
    FakeDateOrder dateOrder = FakeDateOrder::MonthDayYear;
    int currentYear = 2026;  ///< for dates without a year
};

}  // namespace quillo

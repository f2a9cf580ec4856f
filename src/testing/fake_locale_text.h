#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ports/locale_text.h"

namespace quillo {

/// The text of a user in the United States whose code page is Windows-1252; only the decimal sign can be changed.
class FakeLocaleText : public LocaleText {
  public:
    [[nodiscard]] std::string ToNarrow(std::u16string_view text) override;
    [[nodiscard]] std::u16string FromNarrow(std::string_view bytes) override;
    [[nodiscard]] std::u16string FromUtf8(std::string_view bytes) override;
    /// Latin, Greek and Cyrillic letters.
    [[nodiscard]] std::u16string ToLower(std::u16string_view text) override;
    [[nodiscard]] std::u16string DecimalSeparator() override { return decimalSeparator; }
    /// Digits with group signs, a sign, a fraction, an exponent; blanks around them.
    [[nodiscard]] std::optional<double> ParseNumber(std::u16string_view text) override;
    /// "7/16/2023", "6:00 PM", "18:00:30", or a date, a blank and a time.
    [[nodiscard]] std::optional<DaySerial> ParseDate(std::u16string_view text) override;
    [[nodiscard]] std::u16string ShortDate(DaySerial when) override;
    [[nodiscard]] std::u16string LongTime(DaySerial when) override;
    [[nodiscard]] std::u16string GeneralDate(DaySerial when) override;

    std::u16string decimalSeparator = u".";
};

}  // namespace quillo

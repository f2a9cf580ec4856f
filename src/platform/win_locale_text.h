#pragma once

#include "ports/locale_text.h"

namespace quillo {

/// The user's locale and the system's ANSI code page.
class WinLocaleText : public LocaleText {
  public:
    [[nodiscard]] std::optional<std::string> ToNarrow(std::u16string_view text) override;
    [[nodiscard]] std::u16string FromNarrow(std::string_view bytes) override;
    [[nodiscard]] bool HasSingleByteCodePage() override;
    [[nodiscard]] std::u16string ToLower(std::u16string_view text) override;
    [[nodiscard]] std::u16string DecimalSeparator() override;
    [[nodiscard]] std::optional<double> ParseNumber(std::u16string_view text) override;
    [[nodiscard]] std::optional<DaySerial> ParseDate(std::u16string_view text) override;
    [[nodiscard]] std::u16string ShortDate(DaySerial when) override;
    [[nodiscard]] std::u16string LongTime(DaySerial when) override;
    [[nodiscard]] std::u16string GeneralDate(DaySerial when) override;
};

}  // namespace quillo

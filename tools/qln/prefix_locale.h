#pragma once

#include "code_page.h"
#include "ports/locale_text.h"

namespace quillo::qln {

/// The format of a user's dates and numbers, from a prefix's registry; the defaults are those of the United States.
struct Regional {
    std::u16string decimal = u".";
    std::u16string shortDate = u"M/d/yyyy";
    std::u16string longTime = u"h:mm:ss tt";
    std::u16string morning = u"AM";
    std::u16string afternoon = u"PM";
};

/// The locale of a user whose Windows is a Wine prefix, seen from outside.
class PrefixLocale : public LocaleText {
  public:
    PrefixLocale(CodePage page, Regional regional) : page_(std::move(page)), regional_(std::move(regional)) {}

    [[nodiscard]] std::optional<std::string> ToNarrow(std::u16string_view text) override { return page_.Encode(text); }
    [[nodiscard]] std::u16string FromNarrow(std::string_view bytes) override { return page_.Decode(bytes); }
    [[nodiscard]] bool HasSingleByteCodePage() override { return page_.HasSingleBytes(); }
    [[nodiscard]] std::u16string ToLower(std::u16string_view text) override;
    [[nodiscard]] std::u16string DecimalSeparator() override { return regional_.decimal; }
    /// Plain digits with a sign, a fraction and an exponent; no group signs.
    [[nodiscard]] std::optional<double> ParseNumber(std::u16string_view text) override;
    /// "2026-11-22 15:30", "2026-11-22T15:30:05" or "2026-11-22": the platform's own reader is not available here.
    [[nodiscard]] std::optional<DaySerial> ParseDate(std::u16string_view text) override;
    [[nodiscard]] std::u16string ShortDate(DaySerial when) override;
    [[nodiscard]] std::u16string LongTime(DaySerial when) override;
    [[nodiscard]] std::u16string GeneralDate(DaySerial when) override;

  private:
    CodePage page_;
    Regional regional_;
};

}  // namespace quillo::qln

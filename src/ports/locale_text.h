#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "util/day_serial.h"

namespace quillo {

/// Everything about text that depends on the user's locale or the system's code page.
class LocaleText {
  public:
    virtual ~LocaleText() = default;

    /// In the ANSI code page; a character that it lacks becomes "?", never a look-alike. Nothing if the system refuses.
    [[nodiscard]] virtual std::optional<std::string> ToNarrow(std::u16string_view text) = 0;
    [[nodiscard]] virtual std::u16string FromNarrow(std::string_view bytes) = 0;
    /// True if each character of the ANSI code page is one byte.
    [[nodiscard]] virtual bool HasSingleByteCodePage() = 0;
    /// Lower case, character by character: the length stays the same.
    [[nodiscard]] virtual std::u16string ToLower(std::u16string_view text) = 0;

    /// The sign before the fraction of a number, usually "." or ",".
    [[nodiscard]] virtual std::u16string DecimalSeparator() = 0;
    /// The platform's locale-aware conversion; nothing if it fails (an empty text fails).
    [[nodiscard]] virtual std::optional<double> ParseNumber(std::u16string_view text) = 0;
    /// The platform's locale-aware conversion of a date, a time or both; a time alone falls on 30 December 1899.
    [[nodiscard]] virtual std::optional<DaySerial> ParseDate(std::u16string_view text) = 0;

    [[nodiscard]] virtual std::u16string ShortDate(DaySerial when) = 0;
    [[nodiscard]] virtual std::u16string LongTime(DaySerial when) = 0;
    /// Short date, blank, long time; the date alone at midnight, the time alone on 30 December 1899.
    [[nodiscard]] virtual std::u16string GeneralDate(DaySerial when) = 0;
};

}  // namespace quillo

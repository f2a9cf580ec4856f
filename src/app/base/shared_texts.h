#pragma once

#include <string>

#include "util/day_serial.h"

namespace quillo {

class LocaleText;

/// The date and time in parentheses and an empty line, for the top of a note.
[[nodiscard]] std::u16string TimeStampText(DaySerial now, LocaleText& locale);

/// The name of a virtual key for the user: the character for 33 to 90, "Key # 112" for any other.
[[nodiscard]] std::u16string KeyName(int virtualKey);

}  // namespace quillo

#include "app/base/shared_texts.h"

#include "ports/locale_text.h"
#include "util/numbers.h"

namespace quillo {

std::u16string TimeStampText(DaySerial now, LocaleText& locale) {
    return u"(" + locale.GeneralDate(now) + u")\r\n\r\n";
}

std::u16string KeyName(int virtualKey) {
    constexpr int kFirstNamed = 33;
    constexpr int kLastNamed = 90;
    if (virtualKey < kFirstNamed || virtualKey > kLastNamed) return u"Key # " + FormatInteger(virtualKey);
    return std::u16string(1, static_cast<char16_t>(virtualKey));
}

}  // namespace quillo

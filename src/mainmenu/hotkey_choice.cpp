#include "mainmenu/hotkey_choice.h"

#include "util/numbers.h"

namespace quillo {

std::u16string KeyName(int virtualKey) {
    if (virtualKey < kFirstHotkey || virtualKey > kLastHotkey) return u"Key # " + FormatInteger(virtualKey);
    return std::u16string(1, static_cast<char16_t>(virtualKey));
}

}  // namespace quillo

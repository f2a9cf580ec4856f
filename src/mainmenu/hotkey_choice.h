#pragma once

#include <string>

namespace quillo {

/// The keys that can be chosen for the two global hotkeys, as virtual keys: letters and digits, and the navigation and
/// editing keys from Page Up on, whose names are punctuation characters. Intended: the range covers the keys that have
/// a name of one character (see KeyName).
inline constexpr int kFirstHotkey = 33;
inline constexpr int kLastHotkey = 90;

/// True if a key pressed in the box of one hotkey becomes that hotkey's key: it is in the range and not the key of the
/// other hotkey.
[[nodiscard]] constexpr bool IsHotkeyAllowed(int virtualKey, int otherHotkey) {
    return virtualKey >= kFirstHotkey && virtualKey <= kLastHotkey && virtualKey != otherHotkey;
}

/// The name of a virtual key for the user: the character for those of the range, "Key # 112" for any other.
[[nodiscard]] std::u16string KeyName(int virtualKey);

}  // namespace quillo

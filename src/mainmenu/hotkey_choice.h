#pragma once

namespace quillo {

/// The keys that can be chosen for the two global hotkeys, as virtual keys: letters and digits, and the navigation and
/// editing keys from Page Up on, which are named by punctuation. Intended: the range is that of the keys that have a
/// one-character name (see KeyName).
inline constexpr int kFirstHotkey = 33;
inline constexpr int kLastHotkey = 90;

/// True when a key that goes down in the box of one hotkey becomes that hotkey's key: it lies in the range and is not
/// the key of the other one.
[[nodiscard]] constexpr bool IsHotkeyAllowed(int virtualKey, int otherHotkey) {
    return virtualKey >= kFirstHotkey && virtualKey <= kLastHotkey && virtualKey != otherHotkey;
}

}  // namespace quillo

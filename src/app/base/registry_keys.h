#pragma once

#include <string_view>

namespace quillo {

/// Every option of the user.
inline constexpr std::u16string_view kUserKey = u"HKEY_CURRENT_USER\\Software\\Marrowind\\Quillo";
/// Only "Use roaming profile".
inline constexpr std::u16string_view kMachineKey = u"HKEY_LOCAL_MACHINE\\Software\\Marrowind\\Quillo";
/// Programs that start with Windows.
inline constexpr std::u16string_view kRunKey = u"HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run";
inline constexpr std::u16string_view kRunValue = u"Quillo";

/// The number written for a flag that is true; any number but 0 is read as true.
inline constexpr int kTrueNumber = -1;

}  // namespace quillo

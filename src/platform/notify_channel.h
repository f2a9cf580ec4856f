#pragma once

#include "platform/win32.h"

namespace quillo {

// The channel of the running program: a hidden window with a text box in it, which takes command lines. The names are a
// protocol. This file needs no C++ library, so that the smallest of programs can send.

inline constexpr wchar_t kNotifyTitle[] = L"Quillo Notify";
inline constexpr wchar_t kNotifyFormClass[] = L"ThunderRT6FormDC";
inline constexpr wchar_t kNotifyBoxClass[] = L"ThunderRT6TextBox";

/// The channel's text box; null when none is found before `patience` milliseconds have passed.
[[nodiscard]] HWND AwaitNotifyBox(DWORD patience);

/// Writes a command line into the box, and hands the right to come to the front over with it. Returns when the program
/// has dealt with it.
void SendToNotifyBox(HWND box, const wchar_t* commandLine);

}  // namespace quillo

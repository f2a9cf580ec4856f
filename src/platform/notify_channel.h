#pragma once

#include "platform/win32.h"

namespace quillo {

// The channel of the running program: a hidden window with a text box in it, which receives command lines. The names
// are a protocol. This file needs no C++ library, so that even the smallest program can send.

inline constexpr wchar_t kNotifyTitle[] = L"Quillo Notify";
inline constexpr wchar_t kNotifyFormClass[] = L"ThunderRT6FormDC";
inline constexpr wchar_t kNotifyBoxClass[] = L"ThunderRT6TextBox";

/// The channel's text box; null if none is found within `patience` milliseconds.
[[nodiscard]] HWND AwaitNotifyBox(DWORD patience);

/// Writes a command line into the box, and passes on the right to come to the front. Returns when the program has
/// handled the command.
void SendToNotifyBox(HWND box, const wchar_t* commandLine);

}  // namespace quillo

#pragma once

#include "platform/win32.h"

namespace quillo::e2e {

/// How long a window of another process may take for an answer.
inline constexpr UINT kAnswerMilliseconds = 20'000;

/// Sends the message and returns the answer; 0 if the window does not respond.
DWORD_PTR Ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

}  // namespace quillo::e2e

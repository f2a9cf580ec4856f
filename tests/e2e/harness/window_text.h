#pragma once

#include <string>

#include "platform/win32.h"

namespace quillo::e2e {

/// The complete text of a window of any process; "" if it does not respond.
[[nodiscard]] std::wstring WindowText(HWND window);

/// The window that receives typed text; null if none does.
[[nodiscard]] HWND KeyboardWindow();

}  // namespace quillo::e2e

#pragma once

#include <string>

#include "platform/win32.h"

namespace quillo::e2e {

/// The text of a window of any process, whole; "" when it does not answer.
[[nodiscard]] std::wstring WindowText(HWND window);

/// The window that gets what is typed now; null when none does.
[[nodiscard]] HWND KeyboardWindow();

}  // namespace quillo::e2e

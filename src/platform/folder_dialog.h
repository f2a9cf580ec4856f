#pragma once

#include <string>
#include <string_view>

#include "platform/win32.h"

namespace quillo {

/// Lets the user choose a folder in the system's folder browser, which starts at `folder`. "" if the user cancels.
/// Pumps messages.
[[nodiscard]] std::u16string AskForFolder(HWND owner, std::u16string_view prompt, std::u16string_view folder);

}  // namespace quillo

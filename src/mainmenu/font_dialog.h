#pragma once

#include <optional>

#include "app/base/settings.h"
#include "platform/win32.h"

namespace quillo {

/// Lets the user choose a note font in the system's font dialog, which starts with `font`. Nothing if the user cancels.
/// Pumps messages.
[[nodiscard]] std::optional<FontSetting> AskForFont(HWND owner, const FontSetting& font);

}  // namespace quillo

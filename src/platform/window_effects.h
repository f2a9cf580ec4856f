#pragma once

#include <optional>

#include "platform/win32.h"

namespace quillo {

/// Puts a window among the topmost ones or back among the others, in front either way, without moving, sizing or
/// activating it.
void SetTopmost(HWND window, bool topmost);
/// True when no visible window stands above this one but those that are topmost.
[[nodiscard]] bool IsInFront(HWND window);
/// Makes a window layered with a constant alpha (1 to 255), or not layered for none.
void SetTranslucency(HWND window, std::optional<int> alpha);
/// Gives the window's class a drop shadow where the user has shadows switched on. Shows at the next showing.
void AddDropShadow(HWND window);
/// Sets a text box's left and right inner margins, in pixels.
void SetTextMargins(HWND textBox, int margin);
/// True while the user has the system's high-contrast mode on.
[[nodiscard]] bool HighContrastIsOn();

}  // namespace quillo

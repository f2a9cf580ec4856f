#pragma once

#include <optional>

#include "platform/win32.h"
#include "util/geometry.h"

namespace quillo {

/// Puts a window among the topmost ones or back among the others, in front in either case, without moving, sizing or
/// activating it.
void SetTopmost(HWND window, bool topmost);
/// Starts the user's move of a window, as if its title bar had been pressed at `at`, a point of the window `pressed`.
/// Returns when the move has ended.
void StartWindowDrag(HWND window, HWND pressed, Point at);
/// True if no visible window is above this one except topmost windows.
[[nodiscard]] bool IsInFront(HWND window);
/// Makes a window layered with a constant alpha (1 to 255), or not layered without a value.
void SetTranslucency(HWND window, std::optional<int> alpha);
/// Whether the user has enabled the shadows of windows.
[[nodiscard]] bool DropShadowsAreOn();
/// Adds a drop shadow to the window's class, or removes it, as the user has set. Visible the next time it is shown.
void UpdateDropShadow(HWND window);
/// Sets a text box's left and right inner margins, in pixels.
void SetTextMargins(HWND textBox, int margin);
/// True while the user has the system's high-contrast mode on.
[[nodiscard]] bool HighContrastIsOn();

}  // namespace quillo

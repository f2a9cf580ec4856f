#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/win32.h"

namespace quillo::e2e {

/// The hidden windows that the program's icons beside the clock report to, one for each icon that was ever shown.
[[nodiscard]] std::vector<HWND> TrayIconWindows(DWORD process);
/// The text of the balloon that the program has asked for last, from whichever of its icons; "" when there was none.
[[nodiscard]] std::wstring LastBalloon(DWORD process);
/// Whether the program has asked for a balloon, even if its time is up.
[[nodiscard]] bool HasAskedForBalloon(DWORD process);
/// Whether the task bar is the plain one of a desktop without Windows' own shell, where a balloon is a tool tip.
[[nodiscard]] bool HasBareTaskBar();
/// Whether a tool tip with exactly that text stands on the screen, of whatever program.
[[nodiscard]] bool IsToolTipStanding(const std::wstring& text);
/// Whether the notification area holds the icon of that window now.
[[nodiscard]] bool IsTrayIconShowing(HWND iconWindow);

/// Rests the pointer on the process's icons beside the clock until a tool tip with exactly that text comes, and tells
/// where that was.
[[nodiscard]] std::optional<POINT> FindTrayIcon(DWORD process, const std::wstring& toolTip);

}  // namespace quillo::e2e

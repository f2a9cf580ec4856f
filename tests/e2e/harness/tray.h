#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/win32.h"

namespace quillo::e2e {

/// The hidden windows that the program's icons beside the clock report to, one for each icon that was ever shown.
[[nodiscard]] std::vector<HWND> TrayIconWindows(DWORD process);
/// The text of the balloon that the program requested last, for any of its icons; "" if there was none.
[[nodiscard]] std::wstring LastBalloon(DWORD process);
/// Whether the program has requested a balloon, even if it is hidden again.
[[nodiscard]] bool HasAskedForBalloon(DWORD process);
/// Whether the task bar is the plain one of a desktop without Windows' own shell, where a balloon is a tool tip.
[[nodiscard]] bool HasBareTaskBar();
/// Whether a tool tip with exactly that text is on the screen, of any program.
[[nodiscard]] bool IsToolTipShown(const std::wstring& text);
/// Whether the notification area holds the icon of that window now.
[[nodiscard]] bool IsTrayIconShowing(HWND iconWindow);

/// Moves the pointer over the process's icons beside the clock until a tool tip with exactly that text appears; returns
/// the place.
[[nodiscard]] std::optional<POINT> FindTrayIcon(DWORD process, const std::wstring& toolTip);

}  // namespace quillo::e2e

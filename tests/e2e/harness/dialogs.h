#pragma once

#include <optional>
#include <string>

#include "platform/win32.h"

namespace quillo::e2e {

/// A message box of the program.
class MessageBoxWindow {
  public:
    /// Waits for a visible message box of the process; nothing if none appears.
    [[nodiscard]] static std::optional<MessageBoxWindow> WaitFor(DWORD process);
    /// The message box that the process shows now, if any.
    [[nodiscard]] static std::optional<MessageBoxWindow> Find(DWORD process);

    [[nodiscard]] std::wstring Title() const;
    [[nodiscard]] std::wstring Text() const;
    /// True if the icon is more similar to the critical-stop icon than to any other of the system's.
    [[nodiscard]] bool ShowsStopIcon() const { return ShowsIcon(1); }
    /// The same for the exclamation icon.
    [[nodiscard]] bool ShowsWarningIcon() const { return ShowsIcon(3); }
    /// Presses the button with that id (IDOK, IDYES ...) and waits until the box is gone.
    [[nodiscard]] bool Answer(int button) const;

  private:
    explicit MessageBoxWindow(HWND window) : window_(window) {}
    /// `number` counts the system's icons: application, hand, question mark, exclamation mark, asterisk.
    [[nodiscard]] bool ShowsIcon(std::size_t number) const;

    HWND window_;
};

}  // namespace quillo::e2e

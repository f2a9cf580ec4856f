#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/win32.h"
#include "reminders/reminder_controls.h"

namespace quillo::e2e {

/// The dialog in which a reminder is set, seen from outside.
class ReminderDialogWindow {
  public:
    /// The dialogs that the process shows now.
    [[nodiscard]] static std::vector<ReminderDialogWindow> All(DWORD process);
    /// Waits for a dialog with the focus in its box; nothing if none appears.
    [[nodiscard]] static std::optional<ReminderDialogWindow> WaitFor(DWORD process);

    explicit ReminderDialogWindow(HWND window) : window_(window) {}

    [[nodiscard]] HWND Handle() const { return window_; }
    [[nodiscard]] bool Exists() const { return IsWindow(window_) != 0; }
    [[nodiscard]] HWND Control(ReminderControl control) const;
    [[nodiscard]] bool Shows(ReminderControl control) const { return IsWindowVisible(Control(control)) != 0; }
    [[nodiscard]] std::wstring Text(ReminderControl control) const;
    /// Whether the whole phrase is selected.
    [[nodiscard]] bool AllIsSelected() const;
    /// Types the phrase to replace the content of the box, and waits until it appears there.
    [[nodiscard]] bool Type(const std::wstring& phrase) const;
    /// The point at which to click a control.
    [[nodiscard]] POINT MiddleOf(ReminderControl control) const;

  private:
    HWND window_;
};

/// The alerts that the process shows now, the topmost first.
[[nodiscard]] std::vector<HWND> Alerts(DWORD process);
/// Waits until that many alerts are shown: a due reminder is noticed within about ten seconds.
[[nodiscard]] bool WaitForAlerts(DWORD process, std::size_t count);

}  // namespace quillo::e2e

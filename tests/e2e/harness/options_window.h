#pragma once

#include <optional>
#include <string>

#include "mainmenu/options_table.h"
#include "platform/win32.h"

namespace quillo::e2e {

/// The options dialog, seen from outside.
class OptionsWindow {
  public:
    /// The dialog that the process shows now, if any.
    [[nodiscard]] static std::optional<OptionsWindow> Find(DWORD process);
    /// Waits for the dialog to be there and to have the keyboard.
    [[nodiscard]] static std::optional<OptionsWindow> WaitFor(DWORD process);

    explicit OptionsWindow(HWND window) : window_(window) {}

    [[nodiscard]] HWND Handle() const { return window_; }
    [[nodiscard]] bool Exists() const { return IsWindow(window_) != 0; }
    [[nodiscard]] bool IsTopmost() const;
    [[nodiscard]] HWND TabStrip() const { return GetDlgItem(window_, kTabStripId); }
    [[nodiscard]] HWND CloseButton() const { return GetDlgItem(window_, IDOK); }
    [[nodiscard]] HWND Control(OptionControl control) const;
    [[nodiscard]] bool Shows(OptionsPage page) const;
    [[nodiscard]] bool IsChecked(OptionControl check) const;
    [[nodiscard]] std::wstring Text(OptionControl control) const;
    [[nodiscard]] RECT AreaOf(OptionControl control) const;
    [[nodiscard]] POINT MiddleOf(OptionControl control) const;

    /// Clicks tabs from left to right until that page shows.
    [[nodiscard]] bool ClickTab(OptionsPage page) const;
    /// Goes to that page with the Tab key and the arrows.
    [[nodiscard]] bool KeyToTab(OptionsPage page) const;
    /// Presses a check box or a button with the mouse, where its caption or picture stands.
    void Click(OptionControl control) const;
    /// Presses the Tab key until the control has the keyboard.
    [[nodiscard]] bool TabTo(HWND control) const;
    [[nodiscard]] bool TabTo(OptionControl control) const { return TabTo(Control(control)); }
    /// Puts a text into a text box behind the user's back.
    [[nodiscard]] bool SetText(OptionControl box, const std::wstring& text) const;
    /// Types in the place of what a text box holds.
    [[nodiscard]] bool Type(OptionControl box, const std::wstring& text) const;

  private:
    HWND window_;
};

}  // namespace quillo::e2e

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
    /// Waits until the dialog exists and has the focus.
    [[nodiscard]] static std::optional<OptionsWindow> WaitFor(DWORD process);

    /// Opens the dialog from the main menu, and waits for it.
    [[nodiscard]] static std::optional<OptionsWindow> OpenFromMenu(DWORD process);

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
    /// Moves to that page with the Tab key and the arrow keys.
    [[nodiscard]] bool KeyToTab(OptionsPage page) const;
    /// Presses a check box or a button with the mouse, on its caption or picture.
    void Click(OptionControl control) const;
    /// Presses the Tab key until the control has the focus.
    [[nodiscard]] bool TabTo(HWND control) const;
    [[nodiscard]] bool TabTo(OptionControl control) const { return TabTo(Control(control)); }
    /// Sets the text of a text box without user input.
    [[nodiscard]] bool SetText(OptionControl box, const std::wstring& text) const;
    /// Types and replaces the content of a text box.
    [[nodiscard]] bool Type(OptionControl box, const std::wstring& text) const;

  private:
    HWND window_;
};

}  // namespace quillo::e2e

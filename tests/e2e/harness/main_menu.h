#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "harness/screen.h"
#include "mainmenu/menu_map.h"
#include "platform/win32.h"

namespace quillo::e2e {

/// The main menu of a running program, seen from outside.
class MainMenu {
  public:
    explicit MainMenu(DWORD process) : process_(process) {}

    /// The main window, which becomes the menu; null while there is none.
    [[nodiscard]] HWND Handle() const;
    [[nodiscard]] bool IsShowing() const;
    /// Clicks the program's icon beside the clock until the menu is open; the pointer is then not over it, and no item
    /// is marked.
    [[nodiscard]] ::testing::AssertionResult Open() const;
    [[nodiscard]] bool WaitUntilGone() const;
    /// Sends one message of the shell about the icon, without the mouse: an open menu may cover the icon. Not allowed
    /// while a note has, or had, an icon of its own.
    void SendToIcon(UINT message) const;

    /// A point of the menu, given at 96 dpi, on the screen.
    [[nodiscard]] POINT OnScreen(int x, int y) const;
    [[nodiscard]] POINT MiddleOf(MenuItem item) const;
    /// Clicks an item until the menu has closed, which every choice does.
    [[nodiscard]] bool Choose(MenuItem item) const;
    /// The pixels on the screen of an area given at 96 dpi.
    [[nodiscard]] std::vector<COLORREF> Look(const Rect& area) const;
    [[nodiscard]] std::vector<COLORREF> Look(MenuItem item) const;
    /// Whether the menu has the keyboard focus.
    [[nodiscard]] bool HasKeyboard() const;
    /// The item that the pointer or a key has marked, as a screen reader finds it; None if there is none.
    [[nodiscard]] MenuItem Marked() const;
    /// What a failed test reports: whether the menu is showing, what has the keyboard focus, and which item is marked.
    [[nodiscard]] std::string State() const;

  private:
    [[nodiscard]] bool LeaveIt() const;

    DWORD process_;
};

/// Where an item is, at 96 dpi.
[[nodiscard]] Rect AreaOf(MenuItem item);

}  // namespace quillo::e2e

#pragma once

#include <optional>

#include "harness/quillo_process.h"

namespace quillo::e2e {

/// The lines of a note's menu, from top to bottom.
enum class NoteMenuLine : int {
    SetReminder,
    AddTimestamp,
    LargeText,
    ChangeColor,
    Email,
    SaveCopy,
    Print,
    Hide,
    Delete,
    Close
};
inline constexpr int kNoteMenuLines = 10;

/// The lines of the menu of a note's own icon.
enum class IconMenuLine : int { Show, Delete };
inline constexpr int kIconMenuLines = 2;

/// An open menu, seen from outside. Its lines have one height.
class PopupMenu {
  public:
    /// The menu that the process shows now, if any.
    [[nodiscard]] static std::optional<PopupMenu> Find(DWORD process);
    /// The same once the menu accepts input. A press between its first painting and that moment does not reach the
    /// menu.
    [[nodiscard]] static std::optional<PopupMenu> FindReady(DWORD process);
    /// Waits for a ready one; nothing if none appears.
    [[nodiscard]] static std::optional<PopupMenu> WaitFor(DWORD process);

    [[nodiscard]] bool IsOpen() const { return IsWindowVisible(window_) != 0; }
    [[nodiscard]] RECT Rectangle() const;
    /// The middle of a line, counted from 0.
    [[nodiscard]] POINT LinePoint(int line, int lines) const;
    /// Clicks a line, counted from 0, until the menu closes. False if it stays open.
    [[nodiscard]] bool Click(int line, int lines) const;
    /// Moves down to a line, counted from 0, with the arrow key and presses Enter. False if the menu stays open.
    [[nodiscard]] bool ChooseByKeys(int line, int lines) const;

  private:
    explicit PopupMenu(HWND window) : window_(window) {}
    /// Whether that line, and no other, is marked as the one that Enter would choose.
    [[nodiscard]] bool IsMarked(int line, int lines) const;

    HWND window_;
};

}  // namespace quillo::e2e

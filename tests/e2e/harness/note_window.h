#pragma once

#include <optional>
#include <string>
#include <vector>

#include "harness/quillo_process.h"

namespace quillo::e2e {

enum class NoteButtonId : int { Close = 2, Pushpin = 3, Menu = 4 };

/// A note's window, seen from outside.
class NoteWindow {
  public:
    NoteWindow() = default;
    explicit NoteWindow(HWND window) : window_(window) {}

    [[nodiscard]] HWND Handle() const { return window_; }
    [[nodiscard]] HWND TextBox() const;
    [[nodiscard]] HWND Button(NoteButtonId id) const;
    [[nodiscard]] bool Exists() const { return IsWindow(window_) != 0; }
    [[nodiscard]] bool IsVisible() const { return IsWindowVisible(window_) != 0; }
    [[nodiscard]] bool IsTopmost() const;
    /// The constant alpha of a layered window; nothing if the window is opaque.
    [[nodiscard]] std::optional<int> Alpha() const;
    [[nodiscard]] bool HasScrollBar() const;

    /// On the screen, in pixels.
    [[nodiscard]] RECT Rectangle() const;
    [[nodiscard]] int Width() const;
    [[nodiscard]] int Height() const;
    [[nodiscard]] POINT OnScreen(int x, int y) const;

    [[nodiscard]] std::wstring Text() const;
    /// Replaces a part of the note's text as typing does; setting the whole text would not count as an edit.
    void Edit(WPARAM from, LPARAM to, const std::wstring& text) const;
    [[nodiscard]] int LineCount() const;
    /// From one line of the text to the next, in pixels; the text must have two lines.
    [[nodiscard]] int LineHeight() const;

    /// The colors on the screen: the note's outline, the free face below the text, and the background of the text.
    [[nodiscard]] COLORREF OutlineColor() const;
    [[nodiscard]] COLORREF FaceColor() const;
    [[nodiscard]] COLORREF TextBackground() const;
    /// How many pixels of the text box have exactly that color.
    [[nodiscard]] int TextPixels(COLORREF color) const;

    /// Whether typed text arrives in the note.
    [[nodiscard]] bool HasKeyboard() const;
    /// Clicks into the text box until the note has the focus, with the caret at the end of the text.
    [[nodiscard]] bool TakeKeyboard() const;
    void ClickButton(NoteButtonId id) const;
    [[nodiscard]] POINT MiddleOfButton(NoteButtonId id) const;
    /// Waits until the system's loop that moves or resizes the note has ended: its place is then the final one.
    [[nodiscard]] bool WaitUntilReleased() const;
    /// Where the note can be dragged.
    [[nodiscard]] POINT DragBarPoint() const;
    /// In the corner that resizes the note.
    [[nodiscard]] POINT CornerPoint() const;

  private:
    HWND window_ = nullptr;
};

/// All notes of the program, shown or not.
[[nodiscard]] std::vector<NoteWindow> NotesOf(const QuilloProcess& quillo);
[[nodiscard]] std::size_t VisibleNotes(const QuilloProcess& quillo);
/// The note with exactly that text; fails the test if there is none.
[[nodiscard]] NoteWindow FindNote(const QuilloProcess& quillo, const std::wstring& text);
/// Like FindNote, but waits for it.
[[nodiscard]] NoteWindow WaitForNote(const QuilloProcess& quillo, const std::wstring& text);

}  // namespace quillo::e2e

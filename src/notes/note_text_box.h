#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "notes/note_commands.h"
#include "platform/win32.h"
#include "util/geometry.h"
#include "util/units.h"

namespace quillo {

/// The text box of a note: the system's own edit control, which never sees the note's shortcuts.
class NoteTextBox {
  public:
    NoteTextBox() = default;
    NoteTextBox(const NoteTextBox&) = delete;
    NoteTextBox& operator=(const NoteTextBox&) = delete;

    /// A shortcut, or what asks for a menu by the keyboard. It may end the note.
    std::function<void(NoteAction)> onAction;

    /// False on failure. `place` is where the box is to stay: it wraps its text anew for every new size.
    bool Create(HWND parent, int id, const Rect& place, bool scrollBar);
    /// The same control keeps its text, what can be undone, the caret and the line at its top.
    void ShowScrollBar(bool shown);
    /// The window has gone, or is going: what is asked from now on must not reach one that the system gave the same
    /// number.
    void DropHandles() { box_ = label_ = nullptr; }
    [[nodiscard]] HWND Handle() const { return box_; }

    [[nodiscard]] std::u16string Text() const;
    /// At most that many characters from the beginning.
    [[nodiscard]] std::u16string Beginning(std::size_t most) const;
    /// Replaces the whole text, the caret before it. False when the box does not hold exactly this text afterwards.
    [[nodiscard]] bool SetText(std::u16string_view text);
    // Both of these do nothing and answer false when the text would be longer than a note can be.
    /// Puts a text before all others; the caret keeps its place in the old text. The user can undo it.
    [[nodiscard]] bool InsertInFront(std::u16string_view text);
    /// Puts a text at the caret, replacing nothing: a selection shrinks to its start before. The user can undo it.
    [[nodiscard]] bool InsertAtCaret(std::u16string_view text);
    void SelectAll();
    /// The text is being changed by the program's hand.
    [[nodiscard]] bool IsChangingByProgram() const { return byProgram_; }

    /// Borrowed. Margins and the one tab stop follow the font.
    void SetFont(HFONT font, const Scale& scale);

  private:
    static LRESULT CALLBACK Procedure(HWND box, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    /// True when the message ends here.
    bool Swallow(UINT message, WPARAM wParam, LPARAM lParam);
    bool OnKey(int virtualKey, bool repeated);
    bool OnMenuKeys(bool repeated);
    void DeleteWordBefore();
    void KeepScrollBarHidden(HWND box);
    void NameForScreenReaders();
    [[nodiscard]] std::size_t TextLength() const;
    [[nodiscard]] bool InsertAt(DWORD position, std::u16string_view text);

    HWND box_ = nullptr;
    WNDPROC procedure_ = nullptr;  ///< the system's own
    HWND label_ = nullptr;         ///< names the box for screen readers; from their first question on
    bool scrollBar_ = false;
    bool hidingBar_ = false;
    bool byProgram_ = false;
    bool menuKeysHeld_ = false;  ///< F10 went down with Shift last
    bool keySwallowed_ = false;  ///< the character of the last key is not for the text
};

}  // namespace quillo

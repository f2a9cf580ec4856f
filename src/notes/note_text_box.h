#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "notes/note_commands.h"
#include "notes/wheel_turns.h"
#include "platform/subclass.h"
#include "util/geometry.h"
#include "util/units.h"

namespace quillo {

/// The text box of a note: the system's edit control, which never receives the note's shortcuts.
class NoteTextBox : public SubclassedControl {
  public:
    /// Raised for a shortcut or a keyboard request for a menu. It may close the note: the box then has no window, but
    /// the object exists until the handler has returned, as for every part of a note.
    std::function<void(NoteAction)> onAction;

    /// False on failure. `place` should be final: the box wraps its text again for every new size.
    bool Create(HWND parent, int id, const Rect& place, bool scrollBar);
    /// Keeps the control, and with it the text, the undo state, the caret and the top line. The bar follows the text.
    void ShowScrollBar(bool shown);

    [[nodiscard]] std::u16string Text() const;
    /// At most that many characters from the beginning.
    [[nodiscard]] std::u16string Beginning(std::size_t most) const;
    /// Replaces the whole text and puts the caret before it. False if the box does not hold exactly this text
    /// afterwards.
    [[nodiscard]] bool SetText(std::u16string_view text);
    // Both of these do nothing and return false if the text would exceed the limit of a note.
    /// Inserts a text at the beginning; the caret keeps its place in the old text. The user can undo it.
    [[nodiscard]] bool InsertInFront(std::u16string_view text);
    /// Inserts a text at the caret and replaces nothing: a selection first collapses to its start. The user can undo
    /// it.
    [[nodiscard]] bool InsertAtCaret(std::u16string_view text);
    void SelectAll();
    /// True while the program, not the user, changes the text.
    [[nodiscard]] bool IsChangingByProgram() const { return byProgram_; }

    /// `font` is borrowed. Margins and the one tab stop follow it.
    void SetFont(HFONT font, const Scale& scale);

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    /// True if the message needs no further handling.
    bool Swallow(UINT message, WPARAM wParam, LPARAM lParam);
    bool OnKey(int virtualKey, bool repeated);
    bool OnMenuKeys(bool repeated);
    void DeleteWordBefore();
    /// True if the bar's thumb was moved and the text has followed it.
    bool FollowThumb(int request);
    bool OnWheel(WPARAM turn);
    void UpdateScrollBar();
    [[nodiscard]] int LineHeight();
    void NameForScreenReaders();
    [[nodiscard]] std::size_t TextLength() const;
    [[nodiscard]] bool InsertAt(DWORD position, std::u16string_view text);

    /// What the bar shows, in lines.
    struct BarRange {
        int lines = 0;
        int page = 0;
        int top = 0;
        bool operator==(const BarRange&) const = default;
    };

    HWND label_ = nullptr;  ///< names the box for screen readers; created when they first ask
    bool scrollBar_ = false;
    BarRange barRange_;
    WheelTurns wheel_;
    int lineHeight_ = 0;  ///< in pixels; 0 until it is needed with this font
    bool byProgram_ = false;
    bool menuKeysHeld_ = false;  ///< the last F10 was pressed with Shift
    bool keySwallowed_ = false;  ///< the character of the last key must be discarded
};

}  // namespace quillo

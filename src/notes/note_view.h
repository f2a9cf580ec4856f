#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "app/base/settings.h"
#include "controls/swatch_palette.h"
#include "notes/note.h"
#include "notes/note_codec.h"
#include "ports/user_notice.h"
#include "util/day_serial.h"
#include "util/geometry.h"

// A note's window as the note sees it, in three parts that are always used together. NoteForm, NoteTrayIcon and
// NoteDialogForms implement them; tests have fakes.

namespace quillo {

class OpenNote;

/// The note's own icon in the notification area.
class NoteIcon {
  public:
    virtual ~NoteIcon() = default;
    /// Shows the icon as soon as the shell accepts it.
    virtual void Show(std::u16string_view caption) = 0;
    /// Also ends the attempts to show an icon that the shell refuses.
    virtual void Hide() = 0;
    /// Adds the icon again, because the task bar was created again.
    virtual void Recreate() = 0;
    virtual void ShowBalloon(std::u16string_view text, std::u16string_view title, BalloonIcon icon) = 0;
};

/// The dialogs of a note, and the alert of its reminder; all close with the note's window.
class NoteDialogs {
  public:
    virtual ~NoteDialogs() = default;
    /// Opens the dialog in which a reminder is set; `existing` is the note's reminder or kNoReminder. False on failure.
    [[nodiscard]] virtual bool OpenReminder(DaySerial existing) = 0;
    virtual void BringReminderForward() = 0;
    /// Opens the alert of a reminder and pumps waiting messages: on return the note may be closed and the alert
    /// dismissed. False on failure.
    [[nodiscard]] virtual bool OpenAlert(std::u16string_view text) = 0;
    /// Fills and shows the program's one color dialog for this note. False on failure.
    [[nodiscard]] virtual bool OpenColors(bool own, const ColorScheme& colors) = 0;
    /// Asks for the file of a copy: a full path, or "" if the user canceled. The note may be closed afterwards.
    [[nodiscard]] virtual std::u16string AskCopyPath() = 0;
};

/// The window itself, with the note's text.
class NoteWindow {
  public:
    virtual ~NoteWindow() = default;

    [[nodiscard]] virtual NoteIcon& Icon() = 0;
    [[nodiscard]] virtual NoteDialogs& Dialogs() = 0;

    [[nodiscard]] virtual std::u16string Text() const = 0;
    /// Replaces the whole text; does not count as the user's edit. False if the window does not hold exactly this text
    /// afterwards: it exceeds the limit of a note, or contains a NUL character.
    [[nodiscard]] virtual bool SetText(std::u16string_view text) = 0;
    /// Inserts a text at the beginning; the caret keeps its place in the old text. Does not count as the user's edit.
    /// False, with nothing inserted, if the text does not fit.
    [[nodiscard]] virtual bool InsertInFront(std::u16string_view text) = 0;

    /// The window's rectangle in whole twips: the place at the system's dpi, the size at the window's own.
    [[nodiscard]] virtual TwipsRect Rectangle() const = 0;
    virtual void MoveTo(const TwipsRect& rectangle) = 0;
    /// Moves the window, size unchanged, so that it lies on the screen (see PlaceOnScreen).
    virtual void MoveOntoScreen() = 0;

    [[nodiscard]] virtual bool IsVisible() const = 0;
    /// Shows the window without giving it the focus.
    virtual void Show() = 0;
    virtual void Hide() = 0;
    /// Brings the window in front of all others, permanently if `pinned`.
    virtual void BringToFront(bool pinned) = 0;
    /// Gives the note the keyboard focus, with the caret in its text box.
    virtual void Activate() = 0;
    virtual void ShowPinned(bool pinned) = 0;
    /// Layered with a constant alpha of 1 to 255; not layered without a value.
    virtual void SetOpacity(std::optional<int> alpha) = 0;

    /// Applies colors, drop target, font (with LargeText) and scroll bar, and repaints.
    virtual void ApplyAppearance(const Note& note, const Settings& settings) = 0;
    virtual void Repaint() = 0;
    /// Shows a sign on the note that it is not saved, with the reason in its tool tip and for screen readers. An empty
    /// reason removes the sign.
    virtual void ShowSaveProblem(std::u16string_view reason) = 0;
    /// Ends the window. The object itself lives until its note is destroyed.
    virtual void Close() = 0;
};

/// Creates the windows of notes.
class NoteWindowFactory {
  public:
    virtual ~NoteWindowFactory() = default;
    /// The window gets the place of a new note, or the one in `position`. Null if the system cannot create another
    /// window. `note` is still under construction: only its data may be used.
    [[nodiscard]] virtual std::unique_ptr<NoteWindow> MakeWindow(OpenNote& note,
                                                                 const std::optional<NotePosition>& position) = 0;
};

}  // namespace quillo

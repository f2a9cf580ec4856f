#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "app/settings.h"
#include "controls/swatch_palette.h"
#include "notes/note.h"
#include "ports/user_notice.h"
#include "util/day_serial.h"
#include "util/geometry.h"

namespace quillo {

/// What a note asks of its window. NoteForm implements it; tests have a fake that behaves.
class NoteView {
  public:
    virtual ~NoteView() = default;

    [[nodiscard]] virtual std::u16string Text() const = 0;
    /// Replaces the whole text; does not count as the user's edit. False when the window does not hold exactly this
    /// text afterwards: it is longer than a note can be, or has a NUL character in it.
    [[nodiscard]] virtual bool SetText(std::u16string_view text) = 0;
    /// Puts a text before all others, the caret where it was in these; does not count as the user's edit. False, and
    /// nothing is inserted, when there is no room for it.
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
    /// Puts the window above all others, for good when `pinned`.
    virtual void BringToFront(bool pinned) = 0;
    /// Gives the note the keyboard, the caret in its text box.
    virtual void Activate() = 0;
    virtual void ShowPinned(bool pinned) = 0;
    /// Layered with a constant alpha of 1 to 255; not layered for none.
    virtual void SetOpacity(std::optional<int> alpha) = 0;

    /// The note's own icon in the notification area.
    /// Shows it as soon as the shell takes it.
    virtual void ShowIcon(std::u16string_view caption) = 0;
    /// Also ends the attempts to show an icon that the shell refuses.
    virtual void HideIcon() = 0;
    /// Adds the icon once more, because the task bar was made again.
    virtual void RecreateIcon() = 0;
    /// A balloon on that icon.
    virtual void ShowIconBalloon(std::u16string_view text, std::u16string_view title, BalloonIcon icon) = 0;

    // Both of these windows go when the note's own one does.
    /// Opens the dialog in which a reminder is set; `existing` is the note's reminder or kNoReminder. False on failure.
    [[nodiscard]] virtual bool OpenReminderDialog(DaySerial existing) = 0;
    virtual void BringReminderDialogForward() = 0;
    /// Opens the alert of a reminder and lets waiting messages run: the note may be gone afterwards, the alert
    /// dismissed. False on failure.
    [[nodiscard]] virtual bool OpenReminderAlert(std::u16string_view text) = 0;

    /// Fills and shows the program's one color dialog for this note. False on failure.
    [[nodiscard]] virtual bool OpenColorDialog(bool own, const ColorScheme& colors) = 0;
    /// Asks where a copy of the note is to go: a full path, or "" when the user canceled. The note may be gone then.
    [[nodiscard]] virtual std::u16string AskCopyPath() = 0;

    /// Applies colors, drop target, font (with LargeText) and scroll bar, and repaints.
    virtual void ApplyAppearance(const Note& note, const Settings& settings) = 0;
    virtual void Repaint() = 0;
    /// A sign on the note that says that it is not saved, with the reason in its tool tip and for screen readers. An
    /// empty reason takes it away.
    virtual void ShowSaveProblem(std::u16string_view reason) = 0;
    /// Ends the window. The object itself lives on until its owner lets go of it.
    virtual void Close() = 0;
};

}  // namespace quillo

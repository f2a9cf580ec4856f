#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "notes/note.h"
#include "notes/note_color_target.h"
#include "notes/note_commands.h"
#include "notes/note_leaving.h"
#include "notes/note_reminder.h"
#include "notes/note_saver.h"
#include "notes/note_services.h"
#include "notes/note_view.h"
#include "reminders/reminder_owner.h"

namespace quillo {

/// One open note: its data and every operation on it. The window is reached through NoteWindow.
///
/// Which operations mark the note changed: an edit, a new size, a reminder, colors and large text always do. The place
/// of the note and whether it is on the screen are stored only if the user chose them, so these operations come in
/// pairs: the plain one is silent, the one "ByUser" marks the note, and the window marks it when the user has moved it.
class OpenNote : public ReminderOwner, public NoteColorTarget {
  public:
    /// Creates a note with its window, hidden at `position` or at the place of a new note. Null if the system cannot
    /// create another window.
    [[nodiscard]] static std::unique_ptr<OpenNote> Open(NoteOwner& owner, const NoteServices& services,
                                                        std::u16string noteKey, NoteWindowFactory& windows,
                                                        const std::optional<NotePosition>& position = std::nullopt);
    OpenNote(const OpenNote&) = delete;
    OpenNote& operator=(const OpenNote&) = delete;

    [[nodiscard]] const Note& Data() const { return note_; }
    [[nodiscard]] const std::u16string& NoteKey() const { return note_.NoteKey; }
    [[nodiscard]] std::u16string Text() const { return window_->Text(); }
    [[nodiscard]] bool IsVisible() const { return window_->IsVisible(); }
    /// False if the window does not take the whole text: such a note must not be kept.
    [[nodiscard]] bool SetText(std::u16string_view text) { return window_->SetText(text); }
    /// True if a note file with these bytes has the note's text.
    [[nodiscard]] bool IsTextOf(std::string_view bytes) const;
    /// Moves the note; an absent number keeps its value.
    void SetPosition(const NotePosition& position);
    /// Gives the note the keyboard focus.
    void Activate() override { window_->Activate(); }
    /// Carries out a command of the user, which may close the note: the object lives until its owner releases it. The
    /// window handles SelectAll and OpenMenu.
    void Perform(NoteAction action);

    // The note file.
    /// The note as its file stores it.
    [[nodiscard]] NoteFile Content() const;
    /// Applies the elements of a file to a new note; `openedPath` is its file, or empty. True if they determine whether
    /// the note is on the screen; otherwise the caller shows it.
    [[nodiscard]] bool SetupNoteFromTags(const NoteFile& file, std::u16string_view openedPath);
    [[nodiscard]] std::u16string AppearanceString() const;
    /// Applies the fields at once, which may show or hide the note. True if the window state was one of the three.
    bool SetAppearanceString(std::u16string_view text);
    [[nodiscard]] std::u16string ReminderString() const;
    void SetReminderString(std::u16string_view text);
    void SetFileName(std::u16string fileName) { note_.FileName = std::move(fileName); }
    /// The storage copy and the schedule of its saves.
    [[nodiscard]] NoteSaver& Saver() { return saver_; }

    /// The note differs from its storage copy, which is saved again soon.
    void MarkChanged() { saver_.MarkChanged(); }
    /// See NoteSaver::PersistNote.
    bool PersistNote() { return saver_.PersistNote(); }

    // Appearance.
    /// Gives a new note its colors; silent.
    void SetOwnColors(ColorWord noteColor, ColorWord borderColor, ColorWord textColor);
    void SetPinned(bool pinned);
    void UpdateColors();
    /// Applies the translucency of the settings.
    void SetNoteEffects();

    // Returning to the screen.
    /// Shows the note and brings it to the front; silent.
    void Popup() override;
    void PopupByUser();

    // Leaving the screen.
    void HideNote();
    /// Shows the note's own icon; the window does not change.
    void MinimizeToTray();
    /// Called when the task bar has been created again.
    void RecreateIcon() {
        if (iconWanted_) window_->Icon().Recreate();
    }
    /// Ends the note without saving it: the object lives until its owner releases it.
    void DestroyNote();
    /// Closes the window; the note's files do not change and are not written again.
    void Unload();

    // Reminders.
    void CancelReminder();
    /// A tick of the main timer: a due reminder opens its alert, and the note hides. The note may be closed afterwards.
    void TimerBroadcast();

  private:
    OpenNote(NoteOwner& owner, const NoteServices& services, std::u16string noteKey);

    // The user's commands; see Perform.
    /// Opens the dialog in which a reminder is set, or brings forward the one that is open.
    void AskReminder();
    /// Puts the date and time in front of the text. Marks the note changed.
    void AddTimestamp();
    /// Marks the note changed.
    void SetLargeText(bool large);
    /// Opens the program's color dialog for this note; does nothing if the note has it open already.
    void AskNoteColor();
    // Printing and mailing do not change the note. Messages are pumped meanwhile: it may be closed afterwards.
    /// Passes the note to the user's mail program, as the attachment of a new message.
    void MailNote();
    /// Prints the note on the default printer.
    void PrintNote();
    /// Asks for a file and writes a copy of the note to it; the note's own files stay unchanged.
    void SaveNoteAs();
    /// Explains, the first time, how to see the note again.
    void HideWithHint();
    void QueryDeleteNote();
    void DeleteNote();
    void CloseNote();
    void CloseButtonClick();
    void QuickDelete();
    void GoToNeighbor(NoteDirection direction) { owner_.ActivateNeighbor(note_.NoteKey, direction); }
    void ShowFromIcon();

    // The rest of ReminderOwner and NoteColorTarget.
    /// Marks the note changed.
    void SetReminder(DaySerial when) override;
    void CancelReminderByUser() override;
    /// Hides the note and shows its own icon.
    void MinimizeByUser() override;
    void HideByUser() override;
    void SetColor(bool own, ColorWord noteColor, ColorWord borderColor, ColorWord textColor) override;
    void ShowIconBalloon(std::u16string_view text, std::u16string_view title, BalloonIcon icon) override;
    void SetReminderClosing() override { reminder_.DialogClosed(); }
    void ReminderClosing() override;
    void ColorClosing() override { colorDialogOpen_ = false; }

    /// Applies the fields that are present. True if the window state was one of the three.
    bool Apply(const NoteAppearance& appearance);
    [[nodiscard]] NoteAppearance Appearance() const;
    /// The full path of the written file, "" if nothing could be written.
    std::u16string SaveNote(const SaveTarget& target);
    [[nodiscard]] bool IsOpen() const { return owner_.IsOpen(note_.NoteKey); }

    NoteOwner& owner_;
    NoteServices services_;
    Note note_;
    NoteSaver saver_;
    ReminderKeeper reminder_{note_};
    NoteLeaving leaving_{services_, owner_, note_, saver_};
    std::uint64_t hashBeforeAlert_ = 0;  ///< of the storage copy when the alert was opened
    bool iconWanted_ = false;       ///< the note should have its own icon, whether or not the shell has accepted it yet
    bool colorDialogOpen_ = false;  ///< from opening the dialog until it closes, even if it shows another note by then
    std::unique_ptr<NoteWindow> window_;  ///< last: its end calls the note
};

}  // namespace quillo

#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "notes/note.h"
#include "notes/note_color_dialog.h"
#include "notes/note_saver.h"
#include "notes/note_store.h"
#include "notes/note_view.h"
#include "reminders/reminder_owner.h"

namespace quillo {

class Clock;
class LocaleText;
class MailSystem;
class Printer;
class RegistryApi;
class UserNotice;
struct OsFacts;

/// Through the visible notes, in the order of their making and around at the ends.
enum class NoteDirection { Forward, Backward };

/// What an open note asks of the collection it stands in.
class NoteOwner {
  public:
    virtual ~NoteOwner() = default;
    /// Takes the note out of the open notes. The object lives on until its own handlers have returned.
    virtual void RemoveNote(const std::u16string& noteKey) = 0;
    /// False once the note was removed: to be asked after anything that pumps messages.
    [[nodiscard]] virtual bool IsOpen(const std::u16string& noteKey) const = 0;
    /// Saves every open note that has an unsaved change: before a call that may block the program for long.
    virtual void SaveUnsavedNotes() = 0;
    /// Gives the keyboard to the neighbor of a note; nothing without another visible note.
    virtual void ActivateNeighbor(const std::u16string& noteKey, NoteDirection direction) = 0;
};

/// The program-wide things that every note works with.
struct NoteWorld {
    const Settings& settings;
    const OsFacts& os;
    const std::u16string& notesFolder;
    NoteStore& store;
    Timers& timers;
    SaveFailureListener& failures;
    LocaleText& locale;
    Clock& clock;
    UserNotice& notice;
    NoteOwner& owner;
    Printer& printer;
    MailSystem& mail;
    RegistryApi& registry;
};

/// One open note: its data and every operation on it. The window is reached through NoteView.
///
/// Who marks the note changed: an edit, a new size, a reminder, colors and large text always do. Where the note stands
/// and whether it is on the screen is kept only when the user decided it, so these operations come in pairs: the plain
/// one is silent, the one "ByUser" marks the note, and the window marks it when the user has moved it.
class OpenNote : public ReminderOwner, public NoteColorTarget {
  public:
    OpenNote(NoteWorld world, std::u16string noteKey);
    OpenNote(const OpenNote&) = delete;
    OpenNote& operator=(const OpenNote&) = delete;

    /// Must be called once, right after construction, before anything else.
    void AttachView(NoteView& view) { view_ = &view; }

    [[nodiscard]] const Note& Data() const { return note_; }
    [[nodiscard]] const std::u16string& NoteKey() const { return note_.NoteKey; }
    [[nodiscard]] std::u16string Text() const { return view_->Text(); }
    [[nodiscard]] bool IsVisible() const { return view_->IsVisible(); }
    /// False when the window does not take the whole text: such a note must not be kept.
    [[nodiscard]] bool SetText(std::u16string_view text) { return view_->SetText(text); }
    /// True when a note file with these bytes holds the note's text.
    [[nodiscard]] bool IsTextOf(std::string_view bytes) const;
    /// In UTF-16 units.
    [[nodiscard]] std::size_t TextLength() const { return view_->Text().size(); }
    /// Moves the note; what is not present keeps its value.
    void SetPosition(const NotePosition& position);
    /// Gives the note the keyboard.
    void Activate() override { view_->Activate(); }
    void GoToNeighbor(NoteDirection direction) { world_.owner.ActivateNeighbor(note_.NoteKey, direction); }

    // The note file.
    /// The full path written, "" when nothing could be written.
    std::u16string SaveNote(const SaveTarget& target);
    /// The note as its file holds it.
    [[nodiscard]] NoteFile Content() const;
    /// Applies the elements of a file to a note just made; `openedPath` is the file it came from, or empty. True when
    /// they settled whether the note is on the screen; after false the caller shows it.
    [[nodiscard]] bool SetupNoteFromTags(const NoteFile& file, std::u16string_view openedPath);
    [[nodiscard]] std::u16string AppearanceString() const;
    /// Applies the fields at once, which may show or hide the note. True when the window state was one of the three.
    bool SetAppearanceString(std::u16string_view text);
    [[nodiscard]] std::u16string ReminderString() const;
    void SetReminderString(std::u16string_view text);
    void SetFileName(std::u16string fileName) { note_.FileName = std::move(fileName); }
    /// Its storage copy and the times at which it is written.
    [[nodiscard]] NoteSaver& Saver() { return saver_; }
    /// The note was opened from a file that has stayed: the same bytes are not opened a second time.
    void SetSource(FileVersion source) { source_ = std::move(source); }
    [[nodiscard]] const FileVersion& Source() const { return source_; }

    /// Asks for a file and writes a copy of the note to it; the note's own files stay as they are.
    void SaveNoteAs();
    /// The note differs from its storage copy, which is written again soon.
    void MarkChanged() { saver_.MarkChanged(); }
    /// See NoteSaver::PersistNote.
    bool PersistNote() { return saver_.PersistNote(); }

    // Appearance.
    /// Gives a new note its colors; silent.
    void SetOwnColors(ColorWord noteColor, ColorWord borderColor, ColorWord textColor);
    void SetColor(bool own, ColorWord noteColor, ColorWord borderColor, ColorWord textColor) override;
    /// Opens the program's color dialog for this note; nothing when the note has it already.
    void AskNoteColor();
    void ColorClosing() override { colorDialogOpen_ = false; }
    void SetPinned(bool pinned);
    void TogglePin() { SetPinned(!note_.Pinned); }
    /// Marks the note changed.
    void SetLargeText(bool large);
    void ToggleLargeText() { SetLargeText(!note_.LargeText); }
    /// Puts the date and time in front of the text. Marks the note changed.
    void AddTimestamp();
    void UpdateColors();
    /// Takes the translucency from the settings.
    void SetNoteEffects();

    // Coming back to the screen.
    /// Shows the note and brings it to the front; silent.
    void Popup() override;
    void PopupByUser();
    /// A click on the note's own icon, or "Show this note".
    void ShowFromIcon();

    // Leaving the screen.
    void HideNote();
    void HideByUser() override;
    /// The menu's command: says, the first time, how to see the note again.
    void HideWithHint();
    /// Shows the note's own icon; the window stays as it is.
    void MinimizeToTray();
    /// To its own icon and out of sight.
    void MinimizeByUser() override;
    /// For a task bar that was made anew.
    void RecreateIcon() {
        if (iconWanted_) view_->RecreateIcon();
    }
    void ShowIconBalloon(std::u16string_view text, std::u16string_view title, BalloonIcon icon) override;
    /// Any of these may leave the note destroyed: its object lives on until its owner lets go of it.
    void CloseNote();
    void CloseButtonClick();
    void DeleteNote();
    void QueryDeleteNote();
    void QuickDelete();
    void DestroyNote();

    // Leaving on paper or by mail; the note itself is not changed. Messages run meanwhile: it may be gone afterwards.
    /// Prints the note on the default printer.
    void PrintNote();
    /// Hands the note to the user's mail program, as the attachment of a new message.
    void MailNote();

    // Reminders.
    /// Opens the dialog in which a reminder is set, or brings forward the one that is open.
    void AskReminder();
    /// Marks the note changed.
    void SetReminder(DaySerial when) override;
    void CancelReminder();
    void CancelReminderByUser() override;
    /// A tick of the main timer: a reminder that has fallen due opens its alert, and the note hides. It may be gone
    /// afterwards.
    void TimerBroadcast();
    void SetReminderClosing() override { dialogOpen_ = false; }
    void ReminderClosing() override { alertOpen_ = false; }

  private:
    /// Applies the fields that are present. True when the window state was one of the three.
    bool Apply(const NoteAppearance& appearance);
    void Apply(const NoteReminder& reminder);
    [[nodiscard]] NoteAppearance Appearance() const;
    [[nodiscard]] std::optional<NoteReminder> Reminder() const;
    [[nodiscard]] SaveTarget OwnFileTarget() const;
    [[nodiscard]] SavedNote SaveLeaving(PendingStep::Kind kind);
    /// False when the user keeps a note that can be saved nowhere.
    [[nodiscard]] bool RescueDeleted();
    /// The same, for a note whose file the Recycle Bin has lost and that can be saved nowhere.
    [[nodiscard]] bool Recycle(const SavedNote& saved);
    /// Destroys a note that was saved elsewhere.
    void Leave(const SavedNote& saved);
    void Destroy(std::u16string record);
    [[nodiscard]] bool IsOpen() const { return world_.owner.IsOpen(note_.NoteKey); }

    NoteWorld world_;
    Note note_;
    NoteSaver saver_;
    FileVersion source_;
    bool iconWanted_ = false;  ///< the note is to have its own icon, whether or not the shell has taken it yet
    bool dialogOpen_ = false;
    bool alertOpen_ = false;
    bool colorDialogOpen_ =
        false;  ///< from the note's asking until the dialog, whichever note it shows by then, closes
    NoteView* view_ = nullptr;
};

}  // namespace quillo

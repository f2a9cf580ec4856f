#pragma once

#include <string>
#include <string_view>

#include "notes/note.h"
#include "notes/note_store.h"
#include "notes/note_view.h"

namespace quillo {

class Clock;
class LocaleText;
class UserNotice;
struct OsFacts;

/// What an open note asks of the collection it stands in.
class NoteOwner {
  public:
    virtual ~NoteOwner() = default;
    /// Takes the note out of the open notes. The object lives on until its own handlers have returned.
    virtual void RemoveNote(const std::u16string& noteKey) = 0;
};

/// The program-wide things that every note works with.
struct NoteWorld {
    const Settings& settings;
    const OsFacts& os;
    const std::u16string& notesFolder;
    NoteStore& store;
    LocaleText& locale;
    Clock& clock;
    UserNotice& notice;
    NoteOwner& owner;
};

/// One open note: its data and every operation on it. The window is reached through NoteView.
class OpenNote {
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
    void SetText(std::u16string_view text) { view_->SetText(text); }
    void MoveTo(const TwipsRect& rectangle) { view_->MoveTo(rectangle); }

    // The note file.
    std::u16string SaveNote(const SaveTarget& target);
    void SetupNoteFromTags(std::u16string_view tagText, std::u16string_view openedPath);
    [[nodiscard]] std::u16string AppearanceString() const;
    void SetAppearanceString(std::u16string_view text);
    [[nodiscard]] std::u16string ReminderString() const;
    void SetReminderString(std::u16string_view text);
    void SetFileName(std::u16string fileName) { note_.FileName = std::move(fileName); }
    void SetStoragePath(std::u16string path) { note_.StoragePath = std::move(path); }

    /// The note differs from its storage copy.
    void MarkChanged() { note_.Changed = true; }
    /// Writes the storage copy when the note is changed. True when the storage copy is whole on the disk afterwards.
    bool PersistNote();

    // Appearance.
    void SetOwnColors(ColorWord noteColor, ColorWord borderColor, ColorWord textColor);
    void SetPinned(bool pinned);
    void TogglePin() { SetPinned(!note_.Pinned); }
    void SetLargeText(bool large);
    void UpdateColors();
    void SetNoteEffects();
    void Popup();

    // Leaving the screen.
    void HideNote();
    void MinimizeToTray();
    void CloseNote();
    void CloseButtonClick();
    void DeleteNote();
    void QueryDeleteNote();
    void QuickDelete();
    void DestroyNote();

    // Reminders.
    void SetReminder(DaySerial when);
    void CancelReminder();

  private:
    [[nodiscard]] SaveTarget OwnFileTarget() const;
    [[nodiscard]] NoteFileContent Content() const;

    NoteWorld world_;
    Note note_;
    NoteView* view_ = nullptr;
};

}  // namespace quillo

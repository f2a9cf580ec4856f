#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "notes/note.h"
#include "notes/note_store.h"
#include "ports/timers.h"

namespace quillo {

/// Hears of every note that cannot be saved, and of the end of the trouble.
class SaveFailureListener {
  public:
    virtual ~SaveFailureListener() = default;
    virtual void NoteCannotBeSaved(const std::u16string& noteKey, FileError error) = 0;
    virtual void NoteIsSavedAgain(const std::u16string& noteKey) = 0;
};

struct SaverServices {
    NoteStore& store;
    Timers& timers;
    SaveFailureListener& failures;
};

/// Keeps the storage copy of one note current: two seconds after its last change, five seconds after its first unsaved
/// one at the latest, and every ten seconds while the disk refuses it.
class NoteSaver {
  public:
    /// `content` gives the note as it is now. `showFailure` shows on the note itself why it cannot be saved; it gets
    /// FileError::None when the note is saved again.
    NoteSaver(SaverServices services, Note& note, std::function<NoteFile()> content,
              std::function<void(FileError)> showFailure);
    NoteSaver(const NoteSaver&) = delete;
    NoteSaver& operator=(const NoteSaver&) = delete;

    /// The note differs from its storage copy. May write the copy at once: a busy thread has no turn for the timer.
    void MarkChanged();
    /// Writes the storage copy when the note is changed, or when its last change could not be written. True when the
    /// storage copy is whole on the disk afterwards.
    bool PersistNote();
    /// A storage copy that has disappeared counts as a change.
    void LookForStorageCopy();
    /// The note was opened from this file of the notes folder, which becomes its storage copy.
    void SetStorageCopy(FileVersion copy);
    /// Gives a note that has none the path of a storage copy.
    void ChooseStoragePath();
    /// The storage copy as it was last written or opened.
    [[nodiscard]] FileVersion StorageCopy() const { return {note_.StoragePath, hash_}; }
    /// True when the storage copy holds the note as it is.
    [[nodiscard]] bool IsStored() const { return stored_ && !HasUnsavedChange(); }
    /// True while a change is on no disk.
    [[nodiscard]] bool HasUnsavedChange() const { return note_.Changed || failure_ != FileError::None; }
    /// The note is closed: it must not write its storage copy again.
    void Stop();

  private:
    void Wait();
    void Report(FileError error);

    SaverServices services_;
    Note& note_;
    std::function<NoteFile()> content_;
    std::function<void(FileError)> showFailure_;
    std::unique_ptr<Timer> timer_;
    std::optional<std::uint64_t> firstChange_;  ///< when the oldest unsaved change was made, in milliseconds
    std::uint64_t hash_ = 0;                    ///< of the storage copy's bytes; 0 when there is none
    FileError failure_ = FileError::None;       ///< of the last write
    bool stored_ = false;                       ///< the last write of the storage copy succeeded
    bool stopped_ = false;
};

}  // namespace quillo

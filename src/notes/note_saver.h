#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "notes/note.h"
#include "notes/note_store.h"
#include "ports/timers.h"

namespace quillo {

/// Is notified of every note that cannot be saved, and when it has been saved after all.
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

/// Keeps the storage copy of one note current: it saves two seconds after the last change, at the latest five seconds
/// after the first unsaved one, and every ten seconds while the disk refuses it.
class NoteSaver {
  public:
    /// `content` returns the note as it is now. `showFailure` shows on the note itself why it cannot be saved; it gets
    /// FileError::None if the note has been saved again.
    NoteSaver(SaverServices services, Note& note, std::function<NoteFile()> content,
              std::function<void(FileError)> showFailure);
    NoteSaver(const NoteSaver&) = delete;
    NoteSaver& operator=(const NoteSaver&) = delete;

    /// The note differs from its storage copy. May save at once: a busy thread never gets to the timer.
    void MarkChanged();
    /// Writes the storage copy if the note has changed or its last change could not be written. True if the storage
    /// copy is complete on the disk afterwards.
    bool PersistNote();
    /// Treats a missing storage copy as a change.
    void LookForStorageCopy();
    /// The note was opened from this file of the notes folder, which becomes its storage copy.
    void SetStorageCopy(FileVersion copy);
    /// Gives the note a path for its storage copy, unless it has one.
    void ChooseStoragePath();
    /// Chooses the path of the storage copy of a note that has none yet.
    void SetStoragePath(std::u16string path) { note_.StoragePath = std::move(path); }
    /// The storage copy as it was last written or opened.
    [[nodiscard]] FileVersion StorageCopy() const { return {note_.StoragePath, hash_}; }
    /// The note was opened from a file that still exists: the same bytes are not opened a second time.
    void SetSource(FileVersion source) { source_ = std::move(source); }
    [[nodiscard]] const FileVersion& Source() const { return source_; }
    /// True if the storage copy has the note's current content.
    [[nodiscard]] bool IsStored() const { return stored_ && !HasUnsavedChange(); }
    /// True while a change is on no disk.
    [[nodiscard]] bool HasUnsavedChange() const { return note_.Changed || failure_ != FileError::None; }
    /// The note was closed: its storage copy must not be written again.
    void Stop();

  private:
    void Wait();
    void StartPause(std::uint64_t now);
    void OnTimer();
    void Report(FileError error);

    SaverServices services_;
    Note& note_;
    std::function<NoteFile()> content_;
    std::function<void(FileError)> showFailure_;
    FileVersion source_;
    std::unique_ptr<Timer> timer_;
    std::optional<std::uint64_t> firstChange_;  ///< when the oldest unsaved change was made, in milliseconds
    std::uint64_t due_ = 0;                     ///< when to save the last change, in milliseconds; set while pausing_
    bool pausing_ = false;                      ///< the timer runs because of a change, not after a failed write
    std::uint64_t hash_ = 0;                    ///< of the storage copy's bytes; 0 if there is none
    FileError failure_ = FileError::None;       ///< of the last write
    bool stored_ = false;                       ///< the last write of the storage copy succeeded
    bool stopped_ = false;
};

}  // namespace quillo

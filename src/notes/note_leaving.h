#pragma once

#include <string_view>

#include "notes/note.h"
#include "notes/note_services.h"
#include "notes/note_store.h"

namespace quillo {

/// What becomes of a note that is closed or deleted, with the questions and hints about it. Nothing is lost without the
/// user's consent. The note itself removes its window.
///
/// Each question may pump messages, and returns as if the user had kept the note if it was closed meanwhile.
class NoteLeaving {
  public:
    /// All are borrowed from the note.
    NoteLeaving(const NoteServices& services, const NoteOwner& owner, const Note& note, NoteSaver& saver)
        : services_(services), owner_(owner), note_(note), saver_(saver) {}

    /// Saves a note that is being closed to the user's file. False if the user keeps a note that cannot be saved.
    [[nodiscard]] bool Save(const NoteFile& content);
    /// The same for a note that is being deleted: its file is moved to the Recycle Bin, or kept if that fails.
    [[nodiscard]] bool Recycle(const NoteFile& content);
    /// Asks whether a note may be deleted for good. True without a question if it can be restored.
    [[nodiscard]] bool MayDelete() const;
    /// Explains that a note with a reminder is hidden instead of closed.
    [[nodiscard]] bool ExplainHiding() const;
    /// Deletes the storage copy of a note that leaves, unless it is the file to which the note was saved.
    void DeleteStorageCopy();

  private:
    [[nodiscard]] SavedNote SaveOutside(const NoteFile& content, PendingStep::Kind kind) const;
    // Each is false if the note cannot be saved anywhere and the user keeps it.
    [[nodiscard]] bool MoveToBin(const NoteFile& content, const SavedNote& saved) const;
    [[nodiscard]] bool ReportKept(std::u16string_view path) const;
    [[nodiscard]] bool IsStorageCopy(std::u16string_view path) const;
    [[nodiscard]] bool IsOpen() const { return owner_.IsOpen(note_.NoteKey); }

    const NoteServices& services_;
    const NoteOwner& owner_;
    const Note& note_;
    NoteSaver& saver_;
    SavedNote saved_;  ///< the file of a note that leaves for certain
};

}  // namespace quillo

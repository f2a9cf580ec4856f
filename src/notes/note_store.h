#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "notes/disk_reserve.h"
#include "notes/note_codec.h"
#include "notes/save_journal.h"
#include "ports/file_store.h"
#include "ports/shell.h"

namespace quillo {

class LocaleText;
class NoteNames;

/// The file that SaveNote has to write.
struct SaveTarget {
    std::u16string fileName;  ///< may be empty: the name is then made from the text
    bool isTempName = false;  ///< the program chose the name
    bool noDelete = false;    ///< the file is a storage copy or an attachment
    bool overwrite = false;   ///< false: an existing file of that name is never changed
};

/// A note that moves to the file being saved: its storage copy, and what the move is for.
struct LeavingNote {
    PendingStep::Kind kind = PendingStep::Kind::Move;  ///< Move or Recycle
    FileVersion storageCopy;                           ///< the path is empty if the note has none
};

struct SavedNote {
    std::u16string path;  ///< full; "" if nothing could be written
    FileError error = FileError::None;
    std::uint64_t hash = 0;   ///< of the bytes written
    std::u16string record;    ///< of a leaving note: ended once its storage copy has been deleted
    bool isTempName = false;  ///< the program chose the name
};

/// Writes notes to files and chooses their names. A file is complete under another name before it gets its own.
class NoteStore {
  public:
    NoteStore(FileStore& files, LocaleText& locale, Shell& shell, NoteNames& names, const std::u16string& notesFolder)
        : files_(files),
          locale_(locale),
          shell_(shell),
          names_(names),
          notesFolder_(notesFolder),
          journal_(files, shell, notesFolder),
          reserve_(files, notesFolder) {}

    /// Writes a file for the user. If the user's own name fails, tries once more under a name made from the text. With
    /// `leaving`, records the step before writing anything; DeleteStorageCopy ends the record.
    [[nodiscard]] SavedNote SaveNote(const NoteFile& content, const SaveTarget& target,
                                     const LeavingNote& leaving = {});
    /// In this form, all paths of one file are equal.
    [[nodiscard]] std::u16string Comparable(std::u16string_view path) const;
    /// Writes a note whose storage copy cannot be written to the first folder that accepts it: the "Note folder", the
    /// desktop, the temporary folder.
    [[nodiscard]] SavedNote Rescue(const NoteFile& content);
    /// Writes a file again where one that SaveNote had written has disappeared.
    [[nodiscard]] SavedNote WriteAgain(const NoteFile& content, const SavedNote& gone);
    /// Moves a file to the Recycle Bin.
    [[nodiscard]] RecycleResult Recycle(std::u16string_view path);
    /// Replaces a storage copy. Creates a missing notes folder again; on a full disk, deletes the reserve.
    [[nodiscard]] SavedNote SaveStorageCopy(const NoteFile& content, std::u16string_view path);
    /// The bytes that SaveStorageCopy writes; nothing if the text cannot be converted.
    [[nodiscard]] std::optional<std::string> FormatStorageCopy(const NoteFile& content);

    /// A path for a new storage copy in the notes folder; "" if the system supplies no identifier.
    [[nodiscard]] std::u16string NewStoragePath();
    [[nodiscard]] std::u16string StoragePathOf(std::u16string_view identifier) const;
    /// Deletes a storage copy and files prepared for it, and ends the record. If another program has the copy open,
    /// RetryDeletions or the next start deletes it, unless its bytes have changed by then.
    void DeleteStorageCopy(const FileVersion& copy, std::u16string record);
    /// Finishes the move of a note, unless its files have changed since. If they cannot be read or deleted yet, the
    /// record is kept.
    void FinishMove(const SaveJournal::Record& record);
    /// Keeps the record of a note that has left its storage copy for RetryDeletions or the next start.
    void Postpone(SaveJournal::Record record) { postponed_.push_back(std::move(record)); }
    void RetryDeletions();
    /// True for a storage copy that its note has left: a start does not open it.
    [[nodiscard]] bool IsBeingDeleted(std::u16string_view path) const;
    /// The user has opened the file as a note again: it is not deleted.
    void KeepStorageCopy(std::u16string_view path);
    /// A missing file is different.
    [[nodiscard]] FileState StateOf(const FileVersion& file) const;

    /// Writes the note to a free file in the temporary folder, marked as one that is kept when opened. Its full path,
    /// or "" if it could not be written.
    [[nodiscard]] std::u16string SaveTemporaryFile(const NoteFile& content);
    /// Ignores a failure.
    void DeleteTemporaryFile(std::u16string_view path);

    [[nodiscard]] SaveJournal& Journal() { return journal_; }
    [[nodiscard]] DiskReserve& Reserve() { return reserve_; }
    [[nodiscard]] FileStore& Files() { return files_; }

  private:
    /// Writes a file in that folder, under a name made from the text.
    [[nodiscard]] SavedNote SaveInFolder(const NoteFile& content, std::u16string_view folder);
    [[nodiscard]] SavedNote WriteOver(const std::u16string& path, std::string_view bytes);
    [[nodiscard]] SavedNote WriteNew(const std::u16string& path, std::string_view bytes, const LeavingNote& leaving);
    [[nodiscard]] FileError ReplaceStorageCopy(std::u16string_view path, std::string_view bytes);
    [[nodiscard]] std::u16string PreparedName(const std::u16string& path);

    FileStore& files_;
    LocaleText& locale_;
    Shell& shell_;
    NoteNames& names_;
    const std::u16string& notesFolder_;
    SaveJournal journal_;
    DiskReserve reserve_;
    std::vector<SaveJournal::Record> postponed_;
};

/// A file prepared for a storage copy has the copy's name and this ending.
inline constexpr std::u16string_view kPreparedExtension = u".new";

}  // namespace quillo

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "notes/disk_reserve.h"
#include "notes/note_codec.h"
#include "notes/save_journal.h"
#include "ports/file_store.h"
#include "ports/shell.h"

namespace quillo {

class LocaleText;
class NoteNames;

/// Which file SaveNote is to write.
struct SaveTarget {
    std::u16string fileName;  ///< may be empty: a name is made from the text
    bool isTempName = false;  ///< the program chose the name
    bool noDelete = false;    ///< the file is a storage copy or an attachment
    bool overwrite = false;   ///< false: an existing file of that name is never touched
};

/// Where a note leaves when it is saved: its storage copy, and what becomes of the file that is written.
struct LeavingNote {
    PendingStep::Kind kind = PendingStep::Kind::Move;  ///< Move or Recycle
    FileVersion storageCopy;                           ///< an empty path: the note has none
};

struct SavedNote {
    std::u16string path;  ///< full; "" when nothing could be written
    FileError error = FileError::None;
    std::uint64_t hash = 0;   ///< of the bytes written
    std::u16string record;    ///< of a leaving note: to be ended when its storage copy has gone
    bool isTempName = false;  ///< the program chose the name
};

/// Writes notes to files and chooses their names. A file is whole under another name before it takes its place.
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

    /// Writes a file of the user's. When the name was the user's and fails, it tries once more under a name made from
    /// the text. With `leaving`, the step is recorded before anything is written, for DeleteStorageCopy to end.
    [[nodiscard]] SavedNote SaveNote(const NoteFile& content, const SaveTarget& target,
                                     const LeavingNote& leaving = {});
    /// Two paths of one file differ in letter case at most when both are given in this form.
    [[nodiscard]] std::u16string FullLongPath(std::u16string_view path) const;
    /// Writes a note that its storage copy cannot hold to the first folder that takes it: the "Note folder", the
    /// desktop, the temporary folder.
    [[nodiscard]] SavedNote Rescue(const NoteFile& content);
    /// Puts a file where one that SaveNote had written has disappeared.
    [[nodiscard]] SavedNote WriteAgain(const NoteFile& content, const SavedNote& gone);
    /// Moves a file to the Recycle Bin.
    [[nodiscard]] RecycleResult Recycle(std::u16string_view path);
    /// Replaces a storage copy. A missing notes folder is made again; on a full disk the reserve is given up.
    [[nodiscard]] SavedNote SaveStorageCopy(const NoteFile& content, std::u16string_view path);
    /// The bytes that SaveStorageCopy writes; nothing when the text cannot be converted.
    [[nodiscard]] std::optional<std::string> FormatStorageCopy(const NoteFile& content);

    /// A path for a new storage copy in the notes folder; "" when the system gives no identifier.
    [[nodiscard]] std::u16string NewStoragePath();
    /// Deletes a storage copy and what was being prepared for it, and ends the record. A copy that another program has
    /// open is deleted by RetryDeletions, or by the next start.
    void DeleteStorageCopy(const FileVersion& copy, std::u16string record);
    void RetryDeletions();

    /// Writes the note to a free file of the temporary folder, as one that survives being opened. Its full path, or ""
    /// when it could not be written.
    [[nodiscard]] std::u16string SaveTemporaryFile(const NoteFile& content);
    /// A failure is passed over.
    void DeleteTemporaryFile(std::u16string_view path);

    [[nodiscard]] SaveJournal& Journal() { return journal_; }
    [[nodiscard]] DiskReserve& Reserve() { return reserve_; }
    [[nodiscard]] FileStore& Files() { return files_; }

  private:
    /// Writes a file of that folder, under a name made from the text.
    [[nodiscard]] SavedNote SaveInFolder(const NoteFile& content, std::u16string_view folder);
    struct Deletion {
        FileVersion copy;
        std::u16string record;
    };

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
    std::vector<Deletion> deletions_;  ///< storage copies that are still to be deleted
};

/// What is being prepared for a storage copy has its name and this ending.
inline constexpr std::u16string_view kPreparedExtension = u".new";

}  // namespace quillo

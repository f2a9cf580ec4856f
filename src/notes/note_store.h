#pragma once

#include <string>
#include <string_view>

#include "notes/note_codec.h"

namespace quillo {

class FileStore;
class LocaleText;
class NoteNames;
class Shell;

/// Which file SaveNote is to write.
struct SaveTarget {
    std::u16string fileName;  ///< may be empty: a name is made from the text
    bool isTempName = false;  ///< the program chose the name
    bool noDelete = false;    ///< the file is a storage copy or an attachment
    bool overwrite = false;   ///< false: an existing file of that name is never touched
    bool durable = false;     ///< through FileStore::Replace; the storage copies, which nothing else backs
};

/// Writes notes to files and chooses their names.
class NoteStore {
  public:
    NoteStore(FileStore& files, LocaleText& locale, Shell& shell, NoteNames& names)
        : files_(files), locale_(locale), shell_(shell), names_(names) {}

    /// The full path written, or "" when nothing could be written (after one retry under a name made from the text,
    /// when the given name was the user's).
    std::u16string SaveNote(const NoteFile& content, const SaveTarget& target);
    /// A path for a new storage copy in the notes folder.
    [[nodiscard]] std::u16string NewStoragePath(std::u16string_view notesFolder);
    /// Deletes a storage copy; a failure is passed over.
    void DeleteStorageCopy(std::u16string_view path);
    /// Writes the note to a free file of the temporary folder, as one that survives being opened. Its full path, or ""
    /// when it could not be written.
    [[nodiscard]] std::u16string SaveTemporaryFile(const NoteFile& content);
    /// A failure is passed over.
    void DeleteTemporaryFile(std::u16string_view path);
    /// Moves a file to the Recycle Bin.
    void Recycle(std::u16string_view path);

  private:
    FileStore& files_;
    LocaleText& locale_;
    Shell& shell_;
    NoteNames& names_;
};

}  // namespace quillo

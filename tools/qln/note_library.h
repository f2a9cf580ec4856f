#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host.h"
#include "notes/note_codec.h"

namespace quillo::qln {

/// A note on the disk, before its file is read.
struct NoteEntry {
    int number = 0;  ///< from 1, by the time of the file's last change
    std::string id;  ///< eight hexadecimal digits in lower case
    std::string path;
    std::string name;
    std::uint64_t size = 0;
    FileTime modified = 0;
    bool closed = false;  ///< a file in the folder for closed notes
};

/// A note with the content of its file.
struct StoredNote {
    NoteEntry entry;
    NoteFile file;
};

/// The first eight hexadecimal digits of a name such as "{3F2504E0-...}.qln"; for any other, derived from the whole
/// name.
[[nodiscard]] std::string IdOfName(std::string_view name);

/// The notes, oldest change first; with `closed`, those in the folder for closed notes come after them. Nothing if the
/// notes folder cannot be read.
[[nodiscard]] std::optional<std::vector<NoteEntry>> ListNotes(const Surroundings& place, bool closed);

/// The entry of a file anywhere; its number is 0.
[[nodiscard]] std::optional<NoteEntry> EntryOfFile(const std::string& path);

/// Reads the content of a note's file, its text to the last character, unlike the program, which drops an empty first
/// line when it opens a file.
[[nodiscard]] NoteFile ReadNote(std::string_view bytes, LocaleText& locale);

/// The notes of entries, without those that cannot be read; `unread` receives the paths of those.
[[nodiscard]] std::vector<StoredNote> LoadNotes(const std::vector<NoteEntry>& entries, LocaleText& locale,
                                                std::vector<std::string>& unread);

}  // namespace quillo::qln

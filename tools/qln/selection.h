#pragma once

#include <optional>
#include <string>
#include <vector>

#include "note_library.h"
#include "options.h"

namespace quillo::qln {

/// The one note that the words name: digits alone are a number, eight hexadecimal digits an id, an existing path a
/// file, everything else words. Nothing, with the exit code in `code` and the reason on the console, when it is not
/// one.
[[nodiscard]] std::optional<StoredNote> SelectNote(const Session& session, int& code);

/// The notes that the command is about, read; an exit code in `code` when the folder cannot be read.
[[nodiscard]] std::optional<std::vector<NoteEntry>> NotesOrComplaint(const Session& session, bool closed);

/// Complains about each file that could not be read; kFailed when there is one, else `code`.
[[nodiscard]] int ReportUnread(Console& console, const std::vector<std::string>& unread, int code);

/// The lines of "list".
[[nodiscard]] std::string ListLines(const std::vector<StoredNote>& notes);

}  // namespace quillo::qln

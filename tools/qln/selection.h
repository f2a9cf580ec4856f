#pragma once

#include <optional>
#include <string>
#include <vector>

#include "note_library.h"
#include "options.h"

namespace quillo::qln {

/// The one note that the words name: digits alone are a number, eight hexadecimal digits an id, an existing path a
/// file, everything else words. Nothing, with the exit code in `code` and the reason on the console, unless exactly one
/// note matches.
[[nodiscard]] std::optional<StoredNote> SelectNote(const Session& session, int& code);

/// The entries of the command's notes; an exit code in `code` if the folder cannot be read.
[[nodiscard]] std::optional<std::vector<NoteEntry>> NotesOrComplaint(const Session& session, bool closed);

/// Reports each file that could not be read; kFailed if there is one, else `code`.
[[nodiscard]] int ReportUnread(Console& console, const std::vector<std::string>& unread, int code);

/// The lines of "list".
[[nodiscard]] std::string ListLines(const std::vector<StoredNote>& notes);

}  // namespace quillo::qln

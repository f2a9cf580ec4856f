#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "note_library.h"

namespace quillo::qln {

/// The lines of "list" as a JSON array.
[[nodiscard]] std::string ListAsJson(const std::vector<StoredNote>& notes);

/// Whole notes, as docs/qln-notes.schema.json describes them.
[[nodiscard]] std::string NotesAsJson(const std::vector<StoredNote>& notes);

/// The notes in the output of NotesAsJson; nothing, with the reason in `error`, for anything else.
[[nodiscard]] std::optional<std::vector<NoteFile>> NotesFromJson(std::string_view json, std::string& error);

}  // namespace quillo::qln

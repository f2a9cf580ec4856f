#pragma once

#include <string>
#include <vector>

#include "app/settings.h"
#include "note_library.h"

namespace quillo::qln {

/// For readers: each text under a line with what the note is.
[[nodiscard]] std::string NotesAsText(const std::vector<StoredNote>& notes);
/// The text alone, with a line feed at its end.
[[nodiscard]] std::string NoteAsText(const StoredNote& note);

/// A heading, a list of what the note is and the text in a fence, so that it comes back as it was.
[[nodiscard]] std::string NotesAsMarkdown(const std::vector<StoredNote>& notes);
/// The texts of what NotesAsMarkdown wrote; nothing for any other Markdown.
[[nodiscard]] std::optional<std::vector<std::u16string>> TextsFromMarkdown(std::u16string_view markdown);

/// One page that needs no other file, the notes in their colors and sizes, from the top of the screen to its foot.
[[nodiscard]] std::string NotesAsHtml(const std::vector<StoredNote>& notes, const Settings& settings);

/// The reminders as entries of a calendar, in local time wherever it is read.
[[nodiscard]] std::string RemindersAsCalendar(const std::vector<StoredNote>& notes);

/// "shown, reminder 2026-11-22 15:30, yellow": what the note is, in words.
[[nodiscard]] std::string DescribeNote(const StoredNote& note);

}  // namespace quillo::qln

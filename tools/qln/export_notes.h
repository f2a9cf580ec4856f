#pragma once

#include <string>
#include <vector>

#include "app/base/settings.h"
#include "note_library.h"

namespace quillo::qln {

/// For people: each text below a line with the note's properties.
[[nodiscard]] std::string NotesAsText(const std::vector<StoredNote>& notes);
/// The text alone, with a line feed at its end.
[[nodiscard]] std::string NoteAsText(const StoredNote& note);

/// A heading, a list of the note's properties and the text in a fence, so that it can be imported unchanged.
[[nodiscard]] std::string NotesAsMarkdown(const std::vector<StoredNote>& notes);
/// The texts in the output of NotesAsMarkdown; nothing for any other Markdown.
[[nodiscard]] std::optional<std::vector<std::u16string>> TextsFromMarkdown(std::u16string_view markdown);

/// One self-contained page, the notes in their colors and sizes, from the top of the screen to the bottom.
[[nodiscard]] std::string NotesAsHtml(const std::vector<StoredNote>& notes, const Settings& settings);

/// The reminders as calendar entries, in the local time of the reader.
[[nodiscard]] std::string RemindersAsCalendar(const std::vector<StoredNote>& notes);

/// "shown, reminder 2026-11-22 15:30, yellow": the note's properties in words.
[[nodiscard]] std::string DescribeNote(const StoredNote& note);

}  // namespace quillo::qln

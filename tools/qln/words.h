#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "notes/note_codec.h"
#include "util/color_word.h"

namespace quillo::qln {

// How this program writes what a note holds.

/// Well-formed UTF-8: a lone surrogate becomes the replacement character.
[[nodiscard]] std::string ToUtf8(std::u16string_view text);

/// Without anything that acts on a terminal or is not allowed in a page: control characters, marks of direction and
/// code points that are no characters become the replacement character. Tabs and line feeds stay.
[[nodiscard]] std::u16string Harmless(std::u16string_view text);
/// The same for UTF-8 that may not be well-formed, such as the names of files.
[[nodiscard]] std::string HarmlessName(std::string_view name);

/// Line feeds for pairs of carriage return and line feed.
[[nodiscard]] std::u16string WithLineFeeds(std::u16string_view text);
/// The way back: pairs for line feeds that have no carriage return.
[[nodiscard]] std::u16string WithLineBreaks(std::u16string_view text);

/// The first line that is not blank, harmless and cut to `most` characters; "(empty)" when there is none.
[[nodiscard]] std::u16string FirstWords(std::u16string_view text, std::size_t most);
/// How many characters the text shows.
[[nodiscard]] std::size_t CharacterCount(std::u16string_view text);

[[nodiscard]] std::string_view StateName(std::optional<WindowState> state);
[[nodiscard]] std::optional<WindowState> StateNamed(std::string_view name);

/// "#fffdd0"; what is no plain color keeps its number: "word:-2147483643".
[[nodiscard]] std::string ColorText(ColorWord color);
[[nodiscard]] std::optional<ColorWord> ReadColorText(std::string_view text);

/// "yellow", "black-and-green": the names of the eleven schemes.
[[nodiscard]] std::string SchemeName(std::size_t scheme);
/// In any letter case, with blanks or hyphens.
[[nodiscard]] std::optional<std::size_t> SchemeNamed(std::string_view name);
/// The scheme's name, the note's color where it is none of them, "default" without colors of its own.
[[nodiscard]] std::string ColorName(const std::optional<NoteAppearance>& appearance);

}  // namespace quillo::qln

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "notes/note_codec.h"
#include "util/color_word.h"

namespace quillo::qln {

// The output form of a note's content.

/// Well-formed UTF-8: a lone surrogate becomes the replacement character.
[[nodiscard]] std::string ToUtf8(std::u16string_view text);

/// Replaces everything that acts on a terminal or is not allowed in a page: control characters, direction marks and
/// code points that are not characters become the replacement character. Tabs and line feeds stay.
[[nodiscard]] std::u16string Harmless(std::u16string_view text);
/// The same for UTF-8 that may not be well-formed, such as the names of files.
[[nodiscard]] std::string HarmlessName(std::string_view name);

/// Line feeds instead of pairs of carriage return and line feed.
[[nodiscard]] std::u16string WithLineFeeds(std::u16string_view text);
/// The reverse: pairs instead of line feeds without a carriage return.
[[nodiscard]] std::u16string WithLineBreaks(std::u16string_view text);

/// The first line that is not blank, made harmless and cut to `most` characters; "(empty)" if there is none.
[[nodiscard]] std::u16string FirstWords(std::u16string_view text, std::size_t most);
/// How many characters of the text are visible.
[[nodiscard]] std::size_t CharacterCount(std::u16string_view text);

[[nodiscard]] std::string_view StateName(std::optional<WindowState> state);
[[nodiscard]] std::optional<WindowState> StateNamed(std::string_view name);

/// "#fffdd0"; a color that is not plain keeps its number: "word:-2147483643".
[[nodiscard]] std::string ColorText(ColorWord color);
[[nodiscard]] std::optional<ColorWord> ReadColorText(std::string_view text);

/// "yellow", "black-and-green": the names of the eleven schemes.
[[nodiscard]] std::string SchemeName(std::size_t scheme);
/// Accepts any letter case, and blanks or hyphens.
[[nodiscard]] std::optional<std::size_t> SchemeNamed(std::string_view name);
/// The scheme's name, the note's color if it is none of them, "default" if the note has no colors of its own.
[[nodiscard]] std::string ColorName(const std::optional<NoteAppearance>& appearance);

}  // namespace quillo::qln

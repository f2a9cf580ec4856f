#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillo {

/// How much of a text NoteTitle reads.
inline constexpr std::size_t kTitleSource = 256;

/// The title of a note's window, which screen readers and lists of windows show: the first words of its first line with
/// words, and an ellipsis for the rest of that line. "Quillo" for a note without words.
[[nodiscard]] std::u16string NoteTitle(std::u16string_view text);

/// The caption of a note's own icon: the whole text in one line, cut to 60 characters and an ellipsis if it is longer.
[[nodiscard]] std::u16string NoteIconCaption(std::u16string_view text);

}  // namespace quillo

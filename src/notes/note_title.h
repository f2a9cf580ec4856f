#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillo {

/// How much of a text NoteTitle looks at.
inline constexpr std::size_t kTitleSource = 256;

/// The title of a note's window, by which screen readers and lists of windows name it: the first words of its text,
/// from one line, and an ellipsis for the rest of that line. "Quillo" for a note without words.
[[nodiscard]] std::u16string NoteTitle(std::u16string_view text);

}  // namespace quillo

#pragma once

#include <cstddef>
#include <string_view>

namespace quillo {

/// The start of the word before a place in a text, including the blanks between: what Ctrl+Backspace deletes. At the
/// beginning of a line it is the preceding line break, which is deleted alone.
[[nodiscard]] std::size_t WordStartBefore(std::u16string_view text, std::size_t place);

}  // namespace quillo

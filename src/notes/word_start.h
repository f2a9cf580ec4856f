#pragma once

#include <cstddef>
#include <string_view>

namespace quillo {

/// Where the word before a place in a text begins, the blanks between both included: what Ctrl+Backspace deletes. At
/// the beginning of a line it is the line break before it, which is deleted alone.
[[nodiscard]] std::size_t WordStartBefore(std::u16string_view text, std::size_t place);

}  // namespace quillo

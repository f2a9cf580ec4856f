#pragma once

#include <cstddef>
#include <string_view>

namespace quillo {

/// The index of the next such byte at or after `from`; npos if there is none.
[[nodiscard]] std::size_t FindByte(std::string_view bytes, char wanted, std::size_t from);

/// The index of the next `tag` in any letter case at or after `from`; npos if there is none. `tag` is in lower case and
/// does not begin with a letter. Neither text is copied.
[[nodiscard]] std::size_t FindTag(std::string_view bytes, std::string_view tag, std::size_t from);

}  // namespace quillo

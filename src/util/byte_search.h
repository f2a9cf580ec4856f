#pragma once

#include <cstddef>
#include <string_view>

namespace quillo {

/// Where the byte next stands, from `from` on; npos when nowhere.
[[nodiscard]] std::size_t FindByte(std::string_view bytes, char wanted, std::size_t from);

/// Where `tag` next stands in any letter case, from `from` on; npos when nowhere. `tag` is in lower case and its first
/// byte is not a letter. Neither text is copied.
[[nodiscard]] std::size_t FindTag(std::string_view bytes, std::string_view tag, std::size_t from);

}  // namespace quillo

#pragma once

#include <string>
#include <string_view>

namespace quillo::qln {

/// The value of PATH with `folder` at its end, unless it is in it already in any letter case, with or without quotes or
/// a backslash at its end. Everything else stays as it is, at any length.
[[nodiscard]] std::u16string WithPathEntry(std::u16string_view path, std::u16string_view folder);
/// The value without every entry that is `folder`.
[[nodiscard]] std::u16string WithoutPathEntry(std::u16string_view path, std::u16string_view folder);

}  // namespace quillo::qln

#pragma once

#include <string>
#include <string_view>

namespace quillo::qln {

/// The value of PATH with `folder` at its end, unless PATH already has it in any letter case, with or without quotes or
/// a trailing backslash. Everything else stays unchanged, at any length.
[[nodiscard]] std::u16string WithPathEntry(std::u16string_view path, std::u16string_view folder);
/// The value without any entry that equals `folder`.
[[nodiscard]] std::u16string WithoutPathEntry(std::u16string_view path, std::u16string_view folder);

}  // namespace quillo::qln

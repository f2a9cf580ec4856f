#pragma once

#include <string>
#include <string_view>

namespace quillo {

/// Without a leading and, independently, a trailing double-quote character.
[[nodiscard]] std::u16string_view StripQuotes(std::u16string_view path);
/// The part after the last backslash.
[[nodiscard]] std::u16string_view FileNameOfPath(std::u16string_view path);
/// The part before the last backslash; "" if there is none.
[[nodiscard]] std::u16string_view FolderOfPath(std::u16string_view path);
/// Joins the two with a backslash unless the folder ends with one.
[[nodiscard]] std::u16string JoinPath(std::u16string_view folder, std::u16string_view name);
/// Without quotes, up to the last "." if there is one.
[[nodiscard]] std::u16string_view NameWithoutExtension(std::u16string_view path);

}  // namespace quillo

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillo {

/// A note file whose whole text is in the last element of its tag block.
struct UnicodeNote {
    std::u16string text;
    std::string_view tags;  ///< the elements before it, a view into the file's bytes
};

/// "<unicode>length,hash,text</unicode>": the number of bytes and the hash of the narrow text before the block, then
/// the whole text. Used for texts that the narrow form would destroy.
[[nodiscard]] std::string FormatUnicodeElement(std::u16string_view text, std::string_view narrow);

/// Reads the element at the end of a file. Nothing if there is none, or if the number or the hash shows that another
/// program has changed the text since: the visible text is then the right one.
[[nodiscard]] std::optional<UnicodeNote> ReadUnicodeElement(std::string_view bytes);

/// True if the bytes end as a file with the element does, whether or not it can still be used.
[[nodiscard]] bool EndsWithUnicodeElement(std::string_view bytes);

}  // namespace quillo

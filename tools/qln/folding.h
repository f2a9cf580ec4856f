#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillo::qln {

/// The text without differences of case and accents, the same on every system. Texts that fold alike are equal.
[[nodiscard]] std::u16string Fold(std::u16string_view text);

/// A text with its folded form and a mapping from one to the other.
struct FoldedText {
    std::u16string folded;
    std::vector<std::size_t> origin;  ///< for each unit of `folded` and for its end: its position in the text
};
[[nodiscard]] FoldedText FoldWithOrigin(std::u16string_view text);

/// One unit in lower case; the same unit if it has no lower case of one unit.
[[nodiscard]] char16_t LowerUnit(char16_t unit);

}  // namespace quillo::qln

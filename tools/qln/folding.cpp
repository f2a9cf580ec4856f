#include "folding.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "util/text.h"
#include "util/unicode.h"

namespace quillo::qln {
namespace {

struct FoldedSpan {
    std::uint16_t at;
    std::uint16_t size;
};
struct LowerPair {
    char16_t upper;
    char16_t lower;
};

#include "folding_tables.inc"

constexpr std::size_t kBlock = std::size(kFoldBlocks[0]);
constexpr char32_t kLast = std::size(kFoldPages) * kBlock - 1;

/// Calls `add(units, from)` for each character, with its folded form and its position.
template <typename Add>
void ForEachFolded(std::u16string_view text, const Add& add) {
    for (std::size_t i = 0; i < text.size();) {
        const char16_t unit = text[i];
        if (unit < 0x80) {
            const char16_t lower = AsciiLower(unit);
            add(std::u16string_view(&lower, 1), i++);
            continue;
        }
        char32_t code = unit;
        std::size_t size = 1;
        if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            code = 0x10000U + ((static_cast<char32_t>(unit) & 0x3FFU) << 10U) + (text[i + 1] & 0x3FFU);
            size = 2;
        }
        const std::uint16_t index =
            code > kLast ? std::uint16_t{0} : kFoldBlocks[kFoldPages[code / kBlock]][code % kBlock];
        const FoldedSpan span = kFoldedSpans[index];
        add(index == 0 ? text.substr(i, size) : std::u16string_view(kFoldedUnits + span.at, span.size), i);
        i += size;
    }
}

}  // namespace

std::u16string Fold(std::u16string_view text) {
    std::u16string folded;
    folded.reserve(text.size());
    ForEachFolded(text, [&folded](std::u16string_view units, std::size_t) { folded.append(units); });
    return folded;
}

FoldedText FoldWithOrigin(std::u16string_view text) {
    FoldedText result;
    ForEachFolded(text, [&result](std::u16string_view units, std::size_t from) {
        result.folded.append(units);
        result.origin.insert(result.origin.end(), units.size(), from);
    });
    result.origin.push_back(text.size());
    return result;
}

char16_t LowerUnit(char16_t unit) {
    if (unit < 0x80) return AsciiLower(unit);
    const auto* found = std::lower_bound(std::begin(kLowerPairs), std::end(kLowerPairs), unit,
                                         [](const LowerPair& pair, char16_t wanted) { return pair.upper < wanted; });
    return found != std::end(kLowerPairs) && found->upper == unit ? found->lower : unit;
}

}  // namespace quillo::qln

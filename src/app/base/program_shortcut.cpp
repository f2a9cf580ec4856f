#include "app/base/program_shortcut.h"

#include <cstddef>

#include "util/text.h"

namespace quillo {

ShortcutParts SplitShortcut(std::u16string_view shortcut) {
    const std::u16string_view text = Trim(shortcut);
    constexpr char16_t kQuote = u'"';
    if (text.empty() || text.front() != kQuote) return {std::u16string(text), {}};
    const std::size_t end = text.find(kQuote, 1);
    if (end == std::u16string_view::npos) return {std::u16string(text.substr(1)), {}};
    return {std::u16string(text.substr(1, end - 1)), std::u16string(Trim(text.substr(end + 1)))};
}

bool ShortcutFits(std::u16string_view shortcut) {
    constexpr std::size_t kFileLimit = 260;
    constexpr std::size_t kCommandLimit = 32'767;
    constexpr std::size_t kQuotesAndBlank = 3;
    const ShortcutParts parts = SplitShortcut(shortcut);
    return parts.file.size() < kFileLimit &&
           parts.file.size() + parts.arguments.size() + kQuotesAndBlank < kCommandLimit;
}

}  // namespace quillo

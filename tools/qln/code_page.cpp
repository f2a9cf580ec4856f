#include "code_page.h"

#include <algorithm>

#include "util/unicode.h"

namespace quillo::qln {
namespace {

struct CodePageTable {
    int number;
    std::array<char16_t, 256> units;
};

#include "code_page_tables.inc"

}  // namespace

std::optional<CodePage> CodePage::Find(int number) {
    CodePage page;
    if (number == kUtf8) {
        page.utf8_ = true;
        return page;
    }
    const auto* found = std::find_if(std::begin(kCodePages), std::end(kCodePages),
                                     [number](const CodePageTable& table) { return table.number == number; });
    if (found == std::end(kCodePages)) return std::nullopt;
    page.units_ = found->units;
    for (std::size_t byte = 0; byte < page.units_.size(); ++byte) {
        page.reverse_.push_back({page.units_[byte], static_cast<char>(byte)});
    }
    std::stable_sort(page.reverse_.begin(), page.reverse_.end(),
                     [](const Reverse& a, const Reverse& b) { return a.unit < b.unit; });
    return page;
}

std::u16string CodePage::Decode(std::string_view bytes) const {
    if (utf8_) {
        if (auto text = DecodeUtf8(bytes, LoneSurrogates::Refuse)) return *std::move(text);
        // Not well-formed: each byte beyond ASCII becomes one replacement character.
        std::u16string text;
        for (const char byte : bytes)
            text += static_cast<unsigned char>(byte) < 0x80 ? static_cast<char16_t>(byte) : u'\uFFFD';
        return text;
    }
    std::u16string text(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [this](char byte) { return units_[static_cast<unsigned char>(byte)]; });
    return text;
}

std::string CodePage::Encode(std::u16string_view text) const {
    if (utf8_) return EncodeUtf8(text);
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (unit < 0x80) {
            bytes += static_cast<char>(unit);
            continue;
        }
        const auto found = std::lower_bound(reverse_.begin(), reverse_.end(), unit,
                                            [](const Reverse& entry, char16_t wanted) { return entry.unit < wanted; });
        const bool known = found != reverse_.end() && found->unit == unit;
        bytes += known ? found->byte : '?';
    }
    return bytes;
}

}  // namespace quillo::qln

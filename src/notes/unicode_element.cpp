#include "notes/unicode_element.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "util/base32.h"
#include "util/content_hash.h"
#include "util/text.h"
#include "util/unicode.h"

namespace quillo {
namespace {

constexpr std::string_view kOpen = "<unicode>";
constexpr std::string_view kEnd = "</unicode></quillo>";
constexpr std::string_view kOpenRoot = "<quillo>";
constexpr std::string_view kLineBreak = "\r\n";

constexpr std::size_t kHashDigits = 16;

std::string Hexadecimal(std::uint64_t number) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text(kHashDigits, '0');
    for (std::size_t i = kHashDigits; i > 0 && number != 0; number >>= 4) text[--i] = kDigits[number & 15U];
    return text;
}

std::string Decimal(std::size_t number) {
    std::string text;
    do {
        text.insert(text.begin(), static_cast<char>('0' + number % 10));
        number /= 10;
    } while (number != 0);
    return text;
}

/// The start of the last tag with that name, in any letter case; npos if there is none.
std::size_t FindLastTag(std::string_view bytes, std::string_view tag) {
    for (std::size_t at = bytes.rfind('<'); at != std::string_view::npos; at = bytes.rfind('<', at - 1)) {
        if (EqualsIgnoringAsciiCase(bytes.substr(at, tag.size()), tag)) return at;
        if (at == 0) break;
    }
    return std::string_view::npos;
}

/// Returns the text before the first comma and removes both from `rest`.
std::string_view TakeField(std::string_view& rest) {
    const std::size_t comma = rest.find(',');
    const std::string_view field = rest.substr(0, comma);
    rest.remove_prefix(comma == std::string_view::npos ? rest.size() : comma + 1);
    return field;
}

}  // namespace

std::string FormatUnicodeElement(std::u16string_view text, std::string_view narrow) {
    std::string element(kOpen);
    element.append(Decimal(narrow.size())).append(",").append(Hexadecimal(ContentHash(narrow))).append(",");
    return element.append(EncodeBase32(EncodeUtf8(text))).append("</unicode>");
}

bool EndsWithUnicodeElement(std::string_view bytes) {
    return bytes.size() >= kEnd.size() && EqualsIgnoringAsciiCase(bytes.substr(bytes.size() - kEnd.size()), kEnd);
}

std::optional<UnicodeNote> ReadUnicodeElement(std::string_view bytes) {
    if (!EndsWithUnicodeElement(bytes)) return std::nullopt;
    bytes.remove_suffix(kEnd.size());
    const std::size_t open = FindLastTag(bytes, kOpen);
    if (open == std::string_view::npos) return std::nullopt;
    const std::size_t root = FindLastTag(bytes.substr(0, open), kOpenRoot);
    if (root == std::string_view::npos || root < kLineBreak.size()) return std::nullopt;
    if (bytes.substr(root - kLineBreak.size(), kLineBreak.size()) != kLineBreak) return std::nullopt;

    const std::string_view narrow = bytes.substr(0, root - kLineBreak.size());
    std::string_view content = bytes.substr(open + kOpen.size());
    if (TakeField(content) != Decimal(narrow.size())) return std::nullopt;
    if (!EqualsIgnoringAsciiCase(TakeField(content), Hexadecimal(ContentHash(narrow)))) return std::nullopt;
    const std::optional<std::string> encoded = DecodeBase32(content);
    if (!encoded) return std::nullopt;
    std::optional<std::u16string> text = DecodeUtf8(*encoded, LoneSurrogates::Accept);
    if (!text) return std::nullopt;
    const std::size_t first = root + kOpenRoot.size();
    return UnicodeNote{*std::move(text), bytes.substr(first, open - first)};
}

}  // namespace quillo

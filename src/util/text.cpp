#include "util/text.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace quillo {
namespace {

template <typename Char>
bool Equal(std::basic_string_view<Char> a, std::basic_string_view<Char> b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (AsciiLower(a[i]) != AsciiLower(b[i])) return false;
    }
    return true;
}

}  // namespace

std::u16string_view Trim(std::u16string_view text) {
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == std::u16string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

bool IsAscii(std::string_view bytes) {
    // Eight bytes at a time: a note may have megabytes.
    std::uint64_t seen = 0;
    for (; bytes.size() >= sizeof seen; bytes.remove_prefix(sizeof seen)) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, bytes.data(), sizeof eight);
        seen |= eight;
    }
    for (const char byte : bytes) seen |= static_cast<unsigned char>(byte);
    return (seen & 0x8080808080808080U) == 0;
}

bool EqualsIgnoringAsciiCase(std::u16string_view a, std::u16string_view b) {
    return Equal(a, b);
}
bool EqualsIgnoringAsciiCase(std::string_view a, std::string_view b) {
    return Equal(a, b);
}

bool StartsWithIgnoringAsciiCase(std::u16string_view text, std::u16string_view prefix) {
    return Equal(text.substr(0, prefix.size()), prefix);
}
bool StartsWithIgnoringAsciiCase(std::string_view text, std::string_view prefix) {
    return Equal(text.substr(0, prefix.size()), prefix);
}

bool EndsWithIgnoringAsciiCase(std::u16string_view text, std::u16string_view ending) {
    return text.size() >= ending.size() && Equal(text.substr(text.size() - ending.size()), ending);
}
bool EndsWithIgnoringAsciiCase(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() && Equal(text.substr(text.size() - ending.size()), ending);
}

std::u16string FoldAscii(std::u16string_view text) {
    std::u16string folded(text);
    for (char16_t& c : folded) c = AsciiLower(c);
    return folded;
}

}  // namespace quillo

#pragma once

#include <string>
#include <string_view>

namespace quillo {

/// The text without leading and trailing blanks (U+0020 only: no tab, no line break).
[[nodiscard]] std::u16string_view Trim(std::u16string_view text);

[[nodiscard]] constexpr char AsciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}
[[nodiscard]] constexpr char16_t AsciiLower(char16_t c) {
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
}

/// True if no byte is above 127.
[[nodiscard]] bool IsAscii(std::string_view bytes);

// These treat A to Z and a to z as equal; every other character equals only itself.
[[nodiscard]] bool EqualsIgnoringAsciiCase(std::u16string_view a, std::u16string_view b);
[[nodiscard]] bool EqualsIgnoringAsciiCase(std::string_view a, std::string_view b);
[[nodiscard]] bool StartsWithIgnoringAsciiCase(std::u16string_view text, std::u16string_view prefix);
[[nodiscard]] bool StartsWithIgnoringAsciiCase(std::string_view text, std::string_view prefix);
[[nodiscard]] bool EndsWithIgnoringAsciiCase(std::u16string_view text, std::u16string_view ending);
[[nodiscard]] bool EndsWithIgnoringAsciiCase(std::string_view text, std::string_view ending);
[[nodiscard]] std::u16string FoldAscii(std::u16string_view text);

}  // namespace quillo

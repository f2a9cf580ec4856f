#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillo {

/// What DecodeUtf8 does with the three bytes of a lone surrogate, which strict UTF-8 does not allow.
enum class LoneSurrogates { Refuse, Accept };

/// The text as UTF-8. A lone surrogate becomes three bytes, so that DecodeUtf8 restores every text.
[[nodiscard]] std::string EncodeUtf8(std::u16string_view text);

/// Nothing if the bytes are not well-formed UTF-8: overlong forms, code points beyond U+10FFFF, cut sequences.
[[nodiscard]] std::optional<std::u16string> DecodeUtf8(std::string_view bytes, LoneSurrogates surrogates);

/// Reads pairs of bytes; `order` says which one is first. An odd byte at the end is dropped.
enum class ByteOrder { LittleEndian, BigEndian };
[[nodiscard]] std::u16string DecodeUtf16(std::string_view bytes, ByteOrder order);

[[nodiscard]] constexpr bool IsHighSurrogate(char16_t c) {
    return (c & 0xFC00) == 0xD800;
}
[[nodiscard]] constexpr bool IsLowSurrogate(char16_t c) {
    return (c & 0xFC00) == 0xDC00;
}

/// At most `length` UTF-16 units from the start of the text, one fewer if the cut would split a character.
[[nodiscard]] constexpr std::u16string_view CutText(std::u16string_view text, std::size_t length) {
    if (text.size() <= length) return text;
    const bool halves = length > 0 && IsHighSurrogate(text[length - 1]);
    return text.substr(0, halves ? length - 1 : length);
}

}  // namespace quillo

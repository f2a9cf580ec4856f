#include "util/unicode.h"

#include <cstddef>
#include <cstdint>

namespace quillo {
namespace {

constexpr char32_t kFirstBeyondBmp = 0x10000;
constexpr char32_t kLastCodePoint = 0x10FFFF;

void AppendUtf8(char32_t code, std::string& bytes) {
    const auto append = [&bytes](char32_t byte) { bytes.push_back(static_cast<char>(byte)); };
    if (code < 0x80) {
        append(code);
        return;
    }
    if (code < 0x800) {
        append(0xC0 | code >> 6);
    } else {
        if (code < kFirstBeyondBmp) {
            append(0xE0 | code >> 12);
        } else {
            append(0xF0 | code >> 18);
            append(0x80 | (code >> 12 & 0x3F));
        }
        append(0x80 | (code >> 6 & 0x3F));
    }
    append(0x80 | (code & 0x3F));
}

void AppendUtf16(char32_t code, std::u16string& text) {
    if (code < kFirstBeyondBmp) {
        text.push_back(static_cast<char16_t>(code));
        return;
    }
    text.push_back(static_cast<char16_t>(0xD800 + ((code - kFirstBeyondBmp) >> 10)));
    text.push_back(static_cast<char16_t>(0xDC00 + (code & 0x3FF)));
}

/// What a lead byte means: the length of its sequence in bytes (0 if it is not a lead byte), its bits of the code
/// point, and the smallest code point that needs that many bytes.
struct Lead {
    std::size_t length;
    char32_t bits;
    char32_t least;
};

Lead ReadLead(unsigned char byte) {
    if (byte < 0x80) return {1, byte, 0};
    if (byte >= 0xC2 && byte < 0xE0) return {2, byte & 0x1FU, 0x80};
    if (byte >= 0xE0 && byte < 0xF0) return {3, byte & 0x0FU, 0x800};
    if (byte >= 0xF0 && byte < 0xF5) return {4, byte & 0x07U, kFirstBeyondBmp};
    return {0, 0, 0};
}

/// The code point at the start of the bytes; nothing for a malformed sequence. `length` receives the sequence's length.
std::optional<char32_t> ReadCodePoint(std::string_view bytes, std::size_t& length) {
    const Lead lead = ReadLead(static_cast<unsigned char>(bytes.front()));
    if (lead.length == 0 || bytes.size() < lead.length) return std::nullopt;
    char32_t code = lead.bits;
    for (const char c : bytes.substr(1, lead.length - 1)) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte & 0xC0U) != 0x80U) return std::nullopt;
        code = code << 6 | (byte & 0x3FU);
    }
    if (code < lead.least || code > kLastCodePoint) return std::nullopt;
    length = lead.length;
    return code;
}

}  // namespace

std::string EncodeUtf8(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t code = text[i];
        if (IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            code = kFirstBeyondBmp + ((code & 0x3FF) << 10) + (text[i + 1] & 0x3FFU);
            ++i;
        }
        AppendUtf8(code, bytes);
    }
    return bytes;
}

std::optional<std::u16string> DecodeUtf8(std::string_view bytes, LoneSurrogates surrogates) {
    std::u16string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        std::size_t length = 0;
        const std::optional<char32_t> code = ReadCodePoint(bytes, length);
        if (!code) return std::nullopt;
        const bool surrogate = *code >= 0xD800 && *code < 0xE000;
        if (surrogate && surrogates == LoneSurrogates::Refuse) return std::nullopt;
        AppendUtf16(*code, text);
        bytes.remove_prefix(length);
    }
    return text;
}

std::u16string DecodeUtf16(std::string_view bytes, ByteOrder order) {
    const std::size_t high = order == ByteOrder::BigEndian ? 0 : 1;
    std::u16string text;
    text.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto upper = static_cast<unsigned char>(bytes[i + high]);
        const auto lower = static_cast<unsigned char>(bytes[i + 1 - high]);
        text.push_back(static_cast<char16_t>(upper << 8 | lower));
    }
    return text;
}

}  // namespace quillo

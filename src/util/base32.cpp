#include "util/base32.h"

#include <cstddef>
#include <cstdint>

namespace quillo {
namespace {

constexpr std::string_view kDigits = "abcdefghijklmnopqrstuvwxyz234567";
constexpr int kDigitBits = 5;
constexpr int kByteBits = 8;

/// The value of a digit, or -1.
int ValueOf(char c) {
    if (c >= 'a' && c <= 'z') return c - 'a';
    if (c >= 'A' && c <= 'Z') return c - 'A';
    if (c >= '2' && c <= '7') return c - '2' + 26;
    return -1;
}

}  // namespace

std::string EncodeBase32(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() * kByteBits / kDigitBits + 1);
    std::uint32_t bits = 0;
    int count = 0;
    for (const char byte : bytes) {
        bits = bits << kByteBits | static_cast<unsigned char>(byte);
        for (count += kByteBits; count >= kDigitBits; count -= kDigitBits) {
            text.push_back(kDigits[bits >> (count - kDigitBits) & 31U]);
        }
    }
    if (count > 0) text.push_back(kDigits[bits << (kDigitBits - count) & 31U]);
    return text;
}

std::optional<std::string> DecodeBase32(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size() * kDigitBits / kByteBits);
    std::uint32_t bits = 0;
    int count = 0;
    for (const char c : text) {
        const int value = ValueOf(c);
        if (value < 0) return std::nullopt;
        bits = bits << kDigitBits | static_cast<std::uint32_t>(value);
        count += kDigitBits;
        if (count >= kByteBits) {
            count -= kByteBits;
            bytes.push_back(static_cast<char>(bits >> count & 0xFFU));
        }
    }
    const std::uint32_t left = bits & ((1U << count) - 1U);
    if (count >= kDigitBits || left != 0) return std::nullopt;
    return bytes;
}

}  // namespace quillo

#pragma once

#include <cstdint>
#include <string_view>

namespace quillo {

/// The 64-bit FNV-1a hash. It detects bytes that were changed by accident; it does not protect against forgery.
[[nodiscard]] constexpr std::uint64_t ContentHash(std::string_view bytes) {
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char byte : bytes) {
        hash ^= static_cast<unsigned char>(byte);
        hash *= 0x100000001B3U;
    }
    return hash;
}

}  // namespace quillo

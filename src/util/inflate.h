#pragma once

#include <cstdint>
#include <span>

namespace quillo {

/// Unpacks a raw "deflate" stream (RFC 1951). True if `packed` is exactly one whole stream that yields exactly as many
/// bytes as `plain` has. Otherwise false, and the content of `plain` is undefined.
[[nodiscard]] bool Inflate(std::span<const std::uint8_t> packed, std::span<std::uint8_t> plain);

}  // namespace quillo

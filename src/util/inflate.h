#pragma once

#include <cstdint>
#include <span>

namespace quillo {

/// Unpacks a raw "deflate" stream (RFC 1951). False unless `packed` is one whole stream, with nothing behind it, that
/// gives exactly as many bytes as `plain` takes; what `plain` holds then is of no use.
[[nodiscard]] bool Inflate(std::span<const std::uint8_t> packed, std::span<std::uint8_t> plain);

}  // namespace quillo

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillo {

/// The bytes in the base 32 of RFC 4648 in lower case (a to z, 2 to 7), without padding: plain ASCII that survives a
/// conversion to lower case.
[[nodiscard]] std::string EncodeBase32(std::string_view bytes);

/// Accepts letters in any case. Nothing for other characters, an impossible length, or leftover bits that are not 0.
[[nodiscard]] std::optional<std::string> DecodeBase32(std::string_view text);

}  // namespace quillo

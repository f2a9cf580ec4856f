#pragma once

namespace quillo {

/// Ignores a result on purpose; `reason` is for the reader.
template <typename T>
constexpr void Ignore(const T& /*result*/, const char* /*reason*/) {}

}  // namespace quillo

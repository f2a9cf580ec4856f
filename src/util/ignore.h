#pragma once

namespace quillo {

/// Ignores a result on purpose; `reason` tells the reader why.
template <typename T>
constexpr void Ignore(const T& /*result*/, const char* /*reason*/) {}

}  // namespace quillo

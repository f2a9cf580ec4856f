#pragma once

namespace quillo {

/// Says at the call that a failure is passed over by design; `reason` is for the reader.
template <typename T>
constexpr void Ignore(const T& /*result*/, const char* /*reason*/) {}

}  // namespace quillo

#pragma once

#include <cstdint>

#include "platform/unique_handle.h"
#include "util/geometry.h"

namespace quillo {

/// Creates a bitmap of 32-bit pixels, 0xAARRGGBB, whose top row comes first, and returns its pixels in `pixels`; null
/// on failure.
[[nodiscard]] BitmapHandle MakeDib(Size size, std::uint32_t** pixels);
[[nodiscard]] BitmapHandle MakeDib(Size size);

}  // namespace quillo

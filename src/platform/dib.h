#pragma once

#include <cstdint>

#include "platform/unique_handle.h"
#include "util/geometry.h"

namespace quillo {

/// The header of a bitmap of 32-bit pixels, 0xAARRGGBB, whose top row comes first.
[[nodiscard]] BITMAPINFO TopDown32Bit(Size size);

/// Creates such a bitmap and returns its pixels in `pixels`; null on failure.
[[nodiscard]] BitmapHandle MakeDib(Size size, std::uint32_t** pixels);
[[nodiscard]] BitmapHandle MakeDib(Size size);

}  // namespace quillo

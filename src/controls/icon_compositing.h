#pragma once

#include <cstdint>
#include <vector>

#include "util/color_word.h"

namespace quillo {

/// A picture of 32-bit pixels, 0xAARRGGBB, from the top row down.
struct PixelPicture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

/// Composes the picture onto one color, so that it can be copied without transparency. Pixels of the mask color take
/// the background color. If any pixel has a high byte above 0, the high bytes also serve as alpha; otherwise the
/// picture is treated as opaque. Both colors are plain RGB.
[[nodiscard]] PixelPicture CompositeIcons(const PixelPicture& picture, ColorWord mask, ColorWord ground);

}  // namespace quillo

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

/// The picture on a ground of one color, for copying without any transparency. Pixels of the mask color become the
/// ground. A picture that has coverage in its high bytes is laid over the ground by it as well; one that has none at
/// all is meant to be opaque. Both colors are plain RGB.
[[nodiscard]] PixelPicture CompositeIcons(const PixelPicture& picture, ColorWord mask, ColorWord ground);

}  // namespace quillo

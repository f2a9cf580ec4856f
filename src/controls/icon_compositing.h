#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "util/color_word.h"
#include "util/coverage_planes.h"

namespace quillo {

/// The planes of a picture with colors of its own: red, green, blue, and alpha for soft edges.
inline constexpr std::size_t kPicturePlanes = 4;

/// The size of a strip of square icons whose edge is `edge`. The picture is not empty.
[[nodiscard]] constexpr Size IconStripSize(Size picture, int edge) {
    return Size{picture.width * edge / picture.height, edge};
}

/// Composes a strip of icons onto one color, so that it can be copied without transparency, and resizes it to that
/// edge. Pixels of the mask color take the background color. A picture without alpha, or with an alpha of 0 everywhere,
/// is treated as opaque. Both colors are plain RGB. Returns rows of 0x00RRGGBB from the top, as a device-independent
/// bitmap holds them; none if the picture has other planes.
[[nodiscard]] std::vector<std::uint32_t> CompositeIcons(CoveragePlanes picture, int edge, ColorWord mask,
                                                        ColorWord ground);

}  // namespace quillo

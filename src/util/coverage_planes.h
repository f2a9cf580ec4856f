#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "util/color_word.h"
#include "util/geometry.h"

namespace quillo {

/// How much of each pixel is covered, 0 to 255, row by row from the top.
using CoveragePlane = std::vector<std::uint8_t>;

/// Planes of one size.
struct CoveragePlanes {
    Size size;  ///< device pixels; width and height are 0 if there are none
    std::vector<CoveragePlane> planes;
};

/// Reads rendered planes: width, height and their number, 16 bits each with the low byte first, then the deflated bytes
/// of all planes. Returns no planes if the bytes are damaged or hold a number of planes other than `count`.
[[nodiscard]] CoveragePlanes ReadPlanes(std::span<const std::uint8_t> bytes, std::size_t count);

/// A plane at another size; each pixel is the mean of the area that it covers. Neither size is empty.
[[nodiscard]] CoveragePlane ResizePlane(std::span<const std::uint8_t> plane, Size from, Size to);
/// The same for every plane; unchanged if there is none, or if they have that size.
[[nodiscard]] CoveragePlanes ResizePlanes(CoveragePlanes drawn, Size size);

/// A color as a pixel, 0x00RRGGBB.
[[nodiscard]] constexpr std::uint32_t ToPixel(ColorWord color) {
    return static_cast<std::uint32_t>(color.Red()) << 16 | static_cast<std::uint32_t>(color.Green()) << 8 |
           static_cast<std::uint32_t>(color.Blue());
}
/// Paints a color over a pixel with that coverage, 0 to 255.
[[nodiscard]] std::uint32_t PaintOver(std::uint32_t under, ColorWord color, int coverage);

}  // namespace quillo

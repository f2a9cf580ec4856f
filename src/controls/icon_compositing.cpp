#include "controls/icon_compositing.h"

#include <algorithm>

namespace quillo {
namespace {

constexpr std::uint32_t kColorBits = 0x00FFFFFFU;
constexpr int kOpaque = 255;

constexpr std::uint32_t ToPixel(ColorWord color) {
    return static_cast<std::uint32_t>(color.Red()) << 16 | static_cast<std::uint32_t>(color.Green()) << 8 |
           static_cast<std::uint32_t>(color.Blue());
}

std::uint32_t LayOver(std::uint32_t over, std::uint32_t under, std::uint32_t coverage) {
    std::uint32_t result = 0;
    for (const int shift : {0, 8, 16}) {
        const std::uint32_t above = over >> shift & 0xFFU;
        const std::uint32_t below = under >> shift & 0xFFU;
        result |= (above * coverage + below * (kOpaque - coverage) + kOpaque / 2) / kOpaque << shift;
    }
    return result;
}

}  // namespace

PixelPicture CompositeIcons(const PixelPicture& picture, ColorWord mask, ColorWord ground) {
    const std::uint32_t maskPixel = ToPixel(mask);
    const std::uint32_t groundPixel = ToPixel(ground);
    const bool covers = std::any_of(picture.pixels.begin(), picture.pixels.end(),
                                    [](std::uint32_t pixel) { return (pixel & ~kColorBits) != 0; });
    PixelPicture result = picture;
    for (std::uint32_t& pixel : result.pixels) {
        const std::uint32_t color = pixel & kColorBits;
        const std::uint32_t coverage = covers ? pixel >> 24 : kOpaque;
        pixel = color == maskPixel ? groundPixel : LayOver(color, groundPixel, coverage);
    }
    return result;
}

}  // namespace quillo

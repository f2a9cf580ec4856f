#include "controls/icon_compositing.h"

#include <algorithm>
#include <utility>

namespace quillo {
namespace {

constexpr std::size_t kColorPlanes = 3;
constexpr int kOpaque = 255;

ColorWord ColorAt(const CoveragePlanes& picture, std::size_t index) {
    return ColorWord::FromRgb(picture.planes[0][index], picture.planes[1][index], picture.planes[2][index]);
}

/// Makes every pixel a plain color.
void Compose(CoveragePlanes& picture, ColorWord mask, ColorWord ground) {
    const CoveragePlane& alpha = picture.planes.back();
    const bool translucent =
        picture.planes.size() == kPicturePlanes &&
        std::any_of(alpha.begin(), alpha.end(), [](std::uint8_t coverage) { return coverage != 0; });
    for (std::size_t i = 0; i < alpha.size(); ++i) {
        const ColorWord color = ColorAt(picture, i);
        const int coverage = color == mask ? 0 : translucent ? alpha[i] : kOpaque;
        const std::uint32_t pixel = PaintOver(ToPixel(ground), color, coverage);
        for (std::size_t plane = 0; plane < kColorPlanes; ++plane) {
            picture.planes[plane][i] = static_cast<std::uint8_t>(pixel >> (16 - 8 * plane) & 0xFFU);
        }
    }
}

}  // namespace

std::vector<std::uint32_t> CompositeIcons(CoveragePlanes picture, int edge, ColorWord mask, ColorWord ground) {
    if (picture.planes.size() != kPicturePlanes && picture.planes.size() != kColorPlanes) return {};
    Compose(picture, mask, ground);
    // Resized only now: a mean with the mask color would no longer be the mask color.
    const Size size = IconStripSize(picture.size, edge);
    const CoveragePlanes strip = ResizePlanes(std::move(picture), size);
    std::vector<std::uint32_t> pixels;
    pixels.reserve(strip.planes[0].size());
    for (std::size_t i = 0; i < strip.planes[0].size(); ++i) pixels.push_back(ToPixel(ColorAt(strip, i)));
    return pixels;
}

}  // namespace quillo

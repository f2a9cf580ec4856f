#include "util/coverage_planes.h"

#include "util/inflate.h"

namespace quillo {
namespace {

/// Far larger than any screen; guards against the sizes in a damaged drawing.
constexpr int kLargestEdge = 8192;
constexpr std::size_t kHeadBytes = 6;

int NumberAt(std::span<const std::uint8_t> bytes, std::size_t at) {
    return bytes[at] | bytes[at + 1] << 8;
}

/// The mean of one pixel's area, in `kFine` samples a side.
std::uint8_t Sample(std::span<const std::uint8_t> plane, Size from, Size to, int x, int y) {
    constexpr int kFine = 4;
    int sum = 0;
    for (int sample = 0; sample < kFine * kFine; ++sample) {
        const int fromX = (2 * (x * kFine + sample % kFine) + 1) * from.width / (2 * to.width * kFine);
        const int fromY = (2 * (y * kFine + sample / kFine) + 1) * from.height / (2 * to.height * kFine);
        sum += plane[static_cast<std::size_t>(fromY * from.width + fromX)];
    }
    return static_cast<std::uint8_t>((sum + kFine * kFine / 2) / (kFine * kFine));
}

}  // namespace

CoveragePlanes ReadPlanes(std::span<const std::uint8_t> bytes, std::size_t count) {
    if (bytes.size() < kHeadBytes) return {};
    CoveragePlanes read;
    read.size = Size{NumberAt(bytes, 0), NumberAt(bytes, 2)};
    const bool sized = read.size.width > 0 && read.size.width <= kLargestEdge && read.size.height > 0 &&
                       read.size.height <= kLargestEdge;
    if (!sized || static_cast<std::size_t>(NumberAt(bytes, 4)) != count) return {};
    const std::size_t pixels = static_cast<std::size_t>(read.size.width) * static_cast<std::size_t>(read.size.height);
    CoveragePlane all(pixels * count);
    if (!Inflate(bytes.subspan(kHeadBytes), all)) return {};
    for (std::size_t i = 0; i < count; ++i) {
        const auto begin = all.begin() + static_cast<std::ptrdiff_t>(i * pixels);
        read.planes.emplace_back(begin, begin + static_cast<std::ptrdiff_t>(pixels));
    }
    return read;
}

CoveragePlane ResizePlane(std::span<const std::uint8_t> plane, Size from, Size to) {
    CoveragePlane resized;
    resized.reserve(static_cast<std::size_t>(to.width) * static_cast<std::size_t>(to.height));
    for (int y = 0; y < to.height; ++y) {
        for (int x = 0; x < to.width; ++x) resized.push_back(Sample(plane, from, to, x, y));
    }
    return resized;
}

CoveragePlanes ResizePlanes(CoveragePlanes drawn, Size size) {
    if (drawn.planes.empty() || drawn.size == size) return drawn;
    for (CoveragePlane& plane : drawn.planes) plane = ResizePlane(plane, drawn.size, size);
    drawn.size = size;
    return drawn;
}

std::uint32_t PaintOver(std::uint32_t under, ColorWord color, int coverage) {
    constexpr int kOpaque = 255;
    const auto channel = [coverage](int below, int above) {
        return static_cast<std::uint32_t>((below * (kOpaque - coverage) + above * coverage + kOpaque / 2) / kOpaque);
    };
    return channel(static_cast<int>(under >> 16 & 0xFFU), color.Red()) << 16 |
           channel(static_cast<int>(under >> 8 & 0xFFU), color.Green()) << 8 |
           channel(static_cast<int>(under & 0xFFU), color.Blue());
}

}  // namespace quillo

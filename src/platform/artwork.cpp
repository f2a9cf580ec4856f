#include "platform/artwork.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include "platform/dib.h"
#include "platform/window.h"
#include "resources/resource_ids.h"

namespace quillo {
namespace {

struct RenderedGlyphs {
    int edge;
    int resource;
};
constexpr std::array<RenderedGlyphs, 5> kRendered{
    {{20, IDR_GLYPHS_20}, {25, IDR_GLYPHS_25}, {30, IDR_GLYPHS_30}, {35, IDR_GLYPHS_35}, {40, IDR_GLYPHS_40}}};

std::span<const std::uint8_t> ResourceBytes(int id) {
    constexpr WORD kRawData = 10;  // RT_RCDATA is narrow text while UNICODE is off
    HRSRC found = FindResourceW(ThisModule(), MAKEINTRESOURCEW(id), MAKEINTRESOURCEW(kRawData));
    if (found == nullptr) return {};
    HGLOBAL loaded = LoadResource(ThisModule(), found);
    const void* bytes = loaded != nullptr ? LockResource(loaded) : nullptr;
    if (bytes == nullptr) return {};
    return {static_cast<const std::uint8_t*>(bytes), SizeofResource(ThisModule(), found)};
}

std::uint32_t Pixel(std::uint8_t red, std::uint8_t green, std::uint8_t blue, std::uint8_t alpha) {
    return static_cast<std::uint32_t>(alpha) << 24 | static_cast<std::uint32_t>(red) << 16 |
           static_cast<std::uint32_t>(green) << 8 | blue;
}

/// A glyph's coverage at that size, scaled down from the next larger drawing if it has none of that size.
CoveragePlane GlyphCoverage(Glyph glyph, int edge) {
    const auto fits = std::find_if(kRendered.begin(), kRendered.end(),
                                   [edge](const RenderedGlyphs& rendered) { return rendered.edge >= edge; });
    const int resource = fits != kRendered.end() ? fits->resource : kRendered.back().resource;
    CoveragePlanes drawn = LoadPlanes(resource, static_cast<std::size_t>(Glyph::Count));
    if (drawn.planes.empty()) return {};
    CoveragePlane& plane = drawn.planes[static_cast<std::size_t>(glyph)];
    const Size wanted{edge, edge};
    return drawn.size == wanted ? std::move(plane) : ResizePlane(plane, drawn.size, wanted);
}

}  // namespace

CoveragePlanes LoadPlanes(int resource, std::size_t count) {
    return ReadPlanes(ResourceBytes(resource), count);
}

IconHandle MakeGlyphIcon(Glyph glyph, int edge, ColorWord color) {
    if (edge <= 0) return {};
    const CoveragePlane coverage = GlyphCoverage(glyph, edge);
    std::uint32_t* pixels = nullptr;
    const BitmapHandle picture = MakeDib(Size{edge, edge}, &pixels);
    // The call requires a mask, but ignores it for pixels that have an alpha.
    const BitmapHandle mask(CreateBitmap(edge, edge, 1, 1, nullptr));
    if (coverage.empty() || pixels == nullptr || !mask) return {};
    const auto channel = [](int value) { return static_cast<std::uint8_t>(value); };
    for (const std::uint8_t alpha : coverage) {
        *pixels++ = Pixel(channel(color.Red()), channel(color.Green()), channel(color.Blue()), alpha);
    }
    ICONINFO icon{TRUE, 0, 0, mask.Get(), picture.Get()};
    return IconHandle(CreateIconIndirect(&icon));
}

}  // namespace quillo

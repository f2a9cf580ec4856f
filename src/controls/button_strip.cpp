#include "controls/button_strip.h"

#include <utility>

#include "controls/button_state.h"

namespace quillo {

CoveragePlanes ButtonStripAt(CoveragePlanes drawn, int frame) {
    const Size size = ButtonStripSize(frame);
    if (drawn.planes.size() == kButtonPlanes) return ResizePlanes(std::move(drawn), size);
    const CoveragePlane blank(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height));
    return CoveragePlanes{size, std::vector<CoveragePlane>(kButtonPlanes, blank)};
}

std::vector<std::uint32_t> ComposeButtons(const CoveragePlanes& strip, const ButtonTint& tint) {
    const CoveragePlane& glyphs = strip.planes[0];
    const CoveragePlane& plates = strip.planes[1];
    const int frame = strip.size.width / kButtonColumns;
    std::vector<std::uint32_t> pixels;
    pixels.reserve(glyphs.size());
    for (int y = 0; y < strip.size.height; ++y) {
        const int percent = frame > 1 ? y % frame * 100 / (frame - 1) : 0;
        const std::uint32_t bar = ToPixel(Mix(tint.bottom, tint.top, percent));
        for (int x = 0; x < strip.size.width; ++x) {
            const std::size_t index = pixels.size();
            const bool atRest = x < frame;
            const int glyph = glyphs[index] * (tint.faint && atRest ? kFaintGlyphPercent : 100) / 100;
            pixels.push_back(PaintOver(PaintOver(bar, tint.glyph, plates[index]), tint.glyph, glyph));
        }
    }
    return pixels;
}

}  // namespace quillo

#pragma once

#include <cstdint>
#include <vector>

#include "util/color_word.h"
#include "util/coverage_planes.h"

namespace quillo {

/// The rows of the button image strip.
enum class ButtonPicture : int { Close = 0, Pushpin = 1, PushpinPressed = 2, Menu = 3, Warning = 4 };

/// The columns of the strip are the faces of a button: normal, hot, pressed.
inline constexpr int kButtonRows = 5;
inline constexpr int kButtonColumns = 3;

/// The colors of a strip's images: the vertical gradient of the bar behind them and the glyphs' color. Plain RGB.
struct ButtonTint {
    ColorWord top;
    ColorWord bottom;
    ColorWord glyph;
    bool faint = false;  ///< glyphs at rest are drawn at kFaintGlyphPercent
    friend constexpr bool operator==(const ButtonTint&, const ButtonTint&) = default;
};

/// The size of a strip whose frames have that edge.
[[nodiscard]] constexpr Size ButtonStripSize(int frame) {
    return Size{frame * kButtonColumns, frame * kButtonRows};
}

/// The planes of the strip: of the glyphs, and of the plates behind them.
inline constexpr std::size_t kButtonPlanes = 2;

/// The rendered strip with frames of another edge. A strip without any coverage if the planes are missing.
[[nodiscard]] CoveragePlanes ButtonStripAt(CoveragePlanes drawn, int frame);

/// The tinted strip as rows of 0x00RRGGBB from the top, as a device-independent bitmap holds them.
[[nodiscard]] std::vector<std::uint32_t> ComposeButtons(const CoveragePlanes& strip, const ButtonTint& tint);

}  // namespace quillo

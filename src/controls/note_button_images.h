#pragma once

#include <list>
#include <vector>

#include "controls/button_state.h"
#include "platform/unique_handle.h"
#include "util/color_word.h"
#include "util/units.h"

namespace quillo {

/// The rows of the button image strip.
enum class ButtonPicture : int { Close = 0, Pushpin = 1, PushpinPressed = 2, Menu = 3, Warning = 4 };

/// The colors of a strip's images: the vertical gradient of the bar behind them and the glyphs' color. Plain RGB.
struct ButtonTint {
    ColorWord top;
    ColorWord bottom;
    ColorWord glyph;
    bool faint = false;  ///< glyphs at rest are drawn at kFaintGlyphPercent
    friend constexpr bool operator==(const ButtonTint&, const ButtonTint&) = default;
};

/// The edge of one frame of the strip at 96 dpi.
inline constexpr int kButtonFrame = 20;

/// The shared strip of button images, tinted for each kind of note: a row per picture, with one square frame per face
/// (normal, hot, pressed). The most recently used strips are cached.
class NoteButtonImages {
  public:
    /// A strip whose frames are `scale.Px(20)` pixels square; null if the artwork cannot be loaded. Borrowed, and valid
    /// until the next call.
    [[nodiscard]] HBITMAP Strip(const ButtonTint& tint, const Scale& scale);

  private:
    /// How much of each pixel the glyph and the plate behind it cover, 0 to 255.
    struct Coverage {
        int frame = 0;  ///< edge of a frame in pixels
        std::vector<unsigned char> glyph;
        std::vector<unsigned char> plate;
    };
    struct TintedStrip {
        ButtonTint tint;
        int frame = 0;
        BitmapHandle bitmap;
    };

    const Coverage& CoverageFor(int frame);
    static Coverage LoadCoverage(int frame);
    static Coverage Resample(const Coverage& source, int frame);
    static BitmapHandle Compose(const Coverage& coverage, const ButtonTint& tint);

    std::list<Coverage> coverages_;
    std::list<TintedStrip> strips_;
};

}  // namespace quillo

#pragma once

#include <list>

#include "controls/button_state.h"
#include "controls/button_strip.h"
#include "platform/unique_handle.h"
#include "util/units.h"

namespace quillo {

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
    struct TintedStrip {
        ButtonTint tint;
        int frame = 0;
        BitmapHandle bitmap;
    };

    const CoveragePlanes& StripFor(int frame);

    std::list<CoveragePlanes> drawn_;  ///< one for each edge of a frame that was needed
    std::list<TintedStrip> strips_;
};

}  // namespace quillo

#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "controls/swatch_palette.h"
#include "util/geometry.h"
#include "util/units.h"

namespace quillo {

class Canvas;

// The strip's figures in twips.
inline constexpr int kSwatchSide = 360;
/// Where the label "Aa" starts inside its swatch; it extends into the next swatch, or into the margin.
inline constexpr int kSwatchLabelInset = 120;
inline constexpr int kSwatchLabelWidth = 255;
/// Right of the last swatch, for the end of its label.
inline constexpr int kStripMargin = 60;
static_assert(kSwatchLabelInset + kSwatchLabelWidth <= kSwatchSide + kStripMargin, "the last label must fit the strip");
inline constexpr int kStripWidth = kSwatchSide * static_cast<int>(kSwatches.size()) + kStripMargin;
inline constexpr int kStripHeight = 415;

/// The swatch at a point of the strip, in twips. None outside the strip, nor in the margin right of the last swatch,
/// into which the last label extends: only the swatch under the pointer counts, not the label of another.
[[nodiscard]] std::optional<std::size_t> HitStrip(int x, int y);

/// The name of a swatch for screen readers.
[[nodiscard]] std::u16string_view SwatchName(std::size_t index);

/// Where a key moves the keyboard mark.
enum class StripKey { Back, Forward, First, Last };

/// The strip of swatches, independent of any window. No swatch is selected; the keyboard mark only shows which one a
/// key would pick. Coordinates are device pixels inside the strip.
class SwatchStrip {
  public:
    void SetScale(const Scale& scale) { scale_ = scale; }
    [[nodiscard]] Size StripSize() const;
    [[nodiscard]] Rect PlaceOf(std::size_t index) const;
    [[nodiscard]] std::optional<std::size_t> SwatchAt(Point at) const;

    [[nodiscard]] std::size_t Mark() const { return mark_; }
    void SetMark(std::size_t index) { mark_ = index; }
    /// The mark stops at both ends.
    void Press(StripKey key);

    /// Draws the swatches, and the mark if `focused`; the caller paints the background.
    void Paint(Canvas& canvas, bool focused) const;

  private:
    [[nodiscard]] int ToPixels(int twips) const;

    Scale scale_;
    std::size_t mark_ = 0;
};

}  // namespace quillo

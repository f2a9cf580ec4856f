#include "controls/swatch_strip.h"

#include <algorithm>

#include "controls/system_colors.h"
#include "ports/canvas.h"

namespace quillo {
namespace {

constexpr int kLabelPoints = 8;

// The keyboard mark in pixels at 96 dpi: a ring inside the swatch and a bar in the space below it.
constexpr int kRingInset = 2;
constexpr int kBarGap = 2;
constexpr int kBarHeight = 2;

}  // namespace

std::optional<std::size_t> HitStrip(int x, int y) {
    if (x < 0 || x >= kStripWidth || y < 0 || y >= kStripHeight) return std::nullopt;
    const auto index = static_cast<std::size_t>(x / kSwatchSide);
    if (index >= kSwatches.size()) return std::nullopt;
    return index;
}

std::u16string_view SwatchName(std::size_t index) {
    return kNamedSwatches[index].name;
}

int SwatchStrip::ToPixels(int twips) const {
    return scale_.ToPixels(Twips{static_cast<float>(twips)}).value;
}

Size SwatchStrip::StripSize() const {
    return Size{ToPixels(kStripWidth), ToPixels(kStripHeight)};
}

Rect SwatchStrip::PlaceOf(std::size_t index) const {
    const int side = ToPixels(kSwatchSide);
    return Rect{ToPixels(kSwatchSide * static_cast<int>(index)), 0, side, side};
}

std::optional<std::size_t> SwatchStrip::SwatchAt(Point at) const {
    const auto inTwips = [this](int pixels) { return static_cast<int>(scale_.ToTwips(Pixels{pixels}).value); };
    // The strip's own edge in pixels, so that a fraction of a twip does not move it.
    const Size size = StripSize();
    if (at.x < 0 || at.x >= size.width || at.y < 0 || at.y >= size.height) return std::nullopt;
    return HitStrip(inTwips(at.x), std::min(inTwips(at.y), kStripHeight - 1));
}

void SwatchStrip::Press(StripKey key) {
    switch (key) {
        case StripKey::Back:
            if (mark_ > 0) --mark_;
            return;
        case StripKey::Forward:
            if (mark_ + 1 < kSwatches.size()) ++mark_;
            return;
        case StripKey::First:
            mark_ = 0;
            return;
        case StripKey::Last:
            mark_ = kSwatches.size() - 1;
            return;
    }
}

void SwatchStrip::Paint(Canvas& canvas, bool focused) const {
    const int thickness = scale_.Px(1);
    const int label = ToPixels(kSwatchLabelInset);
    for (std::size_t i = 0; i < kSwatches.size(); ++i) {
        const Rect place = PlaceOf(i);
        canvas.Fill(place, kSwatches[i].note);
        canvas.Box(place, thickness, kSwatches[i].border);
        canvas.Text(Point{place.left + label, place.top + label}, u"Aa", kLabelPoints, kSwatches[i].text);
    }
    if (!focused) return;
    const Rect marked = PlaceOf(mark_);
    const int inset = scale_.Px(kRingInset);
    canvas.Box(Rect{marked.left + inset, marked.top + inset, marked.width - 2 * inset, marked.height - 2 * inset},
               thickness, kSwatches[mark_].text);
    canvas.Fill(Rect{marked.left, marked.Bottom() + scale_.Px(kBarGap), marked.width, scale_.Px(kBarHeight)},
                kSystemHighlight);
}

}  // namespace quillo

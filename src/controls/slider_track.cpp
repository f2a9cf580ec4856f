#include "controls/slider_track.h"

#include <algorithm>

#include "ports/canvas.h"
#include "util/numbers.h"

namespace quillo {
namespace {

constexpr int kOutline = 1;  // pixels at 96 dpi
constexpr int kPagesInRange = 10;
constexpr ColorWord kBlack{0};

}  // namespace

double SliderTrack::PixelsPerUnit() const {
    const int room = size_.width - 2 * scale_.Px(kOutline);
    if (room <= 0 || Max() <= Min()) return 0;
    return static_cast<double>(room) / (static_cast<double>(Max()) - static_cast<double>(Min()));
}

void SliderTrack::Apply(const SliderProperties& properties) {
    properties_ = properties;
    properties_.max = std::max(properties_.max, properties_.min);
    properties_.value = std::clamp(properties_.value, properties_.min, properties_.max);
    Repaint();
}

void SliderTrack::SetValue(std::int32_t value) {
    properties_.value = std::max(std::min(value, Max()), Min());
    Repaint();
    lifetime_.RaiseLast(onChange, Value());
}

void SliderTrack::SetMin(std::int32_t min) {
    properties_.min = min;
    properties_.value = std::max(Value(), min);
    properties_.max = std::max(Max(), min);
    Repaint();
}

void SliderTrack::SetMax(std::int32_t max) {
    properties_.max = max;
    properties_.value = std::min(Value(), max);
    properties_.min = std::min(Min(), max);
    Repaint();
}

void SliderTrack::SetForeColor(ColorWord color) {
    properties_.foreColor = color;
    Repaint();
}

void SliderTrack::SetBackColor(ColorWord color) {
    properties_.backColor = color;
    Repaint();
}

void SliderTrack::SetEnabled(bool enabled) {
    properties_.enabled = enabled;
    Repaint();
}

void SliderTrack::Resize(Size size, const Scale& scale) {
    size_ = size;
    scale_ = scale;
    Repaint();
}

std::int32_t SliderTrack::ValueAt(int x) const {
    if (x < 0) return Min();
    if (x >= size_.width - scale_.Px(kOutline)) return Max();
    const double exact = (x - scale_.Px(kOutline)) / PixelsPerUnit() + Min();
    return std::clamp(RoundHalfEven(exact).value_or(Min()), Min(), Max());
}

void SliderTrack::MouseAt(int x) {
    if (PixelsPerUnit() > 0) Pick(ValueAt(x));
}

void SliderTrack::Press(SliderKey key) {
    const std::int64_t page = std::max<std::int64_t>((std::int64_t{Max()} - Min()) / kPagesInRange, 1);
    std::int64_t value = Value();
    switch (key) {
        case SliderKey::Less:
            value -= 1;
            break;
        case SliderKey::More:
            value += 1;
            break;
        case SliderKey::PageLess:
            value -= page;
            break;
        case SliderKey::PageMore:
            value += page;
            break;
        case SliderKey::ToMin:
            value = Min();
            break;
        case SliderKey::ToMax:
            value = Max();
            break;
    }
    Pick(static_cast<std::int32_t>(std::clamp<std::int64_t>(value, Min(), Max())));
}

void SliderTrack::Pick(std::int32_t value) {
    if (!Enabled() || value == Value()) return;
    if (!lifetime_.Raise(onClick, value) || !lifetime_.Raise(onChange, value)) return;
    properties_.value = value;
    Repaint();
}

void SliderTrack::Repaint() const {
    if (onRepaint) onRepaint();
}

void SliderTrack::Paint(Canvas& canvas, bool focused) const {
    const int outline = scale_.Px(kOutline);
    const Rect inside{outline, outline, size_.width - 2 * outline, size_.height - 2 * outline};
    const double perUnit = PixelsPerUnit();
    if (inside.width > 0 && inside.height > 0) {
        const double level = (static_cast<double>(Value()) - static_cast<double>(Min())) * perUnit;
        // Every value above the minimum is visible, even if the range has more units than the bar has columns.
        const int least = Value() > Min() ? 1 : 0;
        const int filled = perUnit > 0 ? std::max(RoundHalfEven(level).value_or(0), least) : inside.width;
        const Rect rest{inside.left + filled, inside.top, inside.width - filled, inside.height};
        if (rest.width > 0) canvas.Fill(rest, BackColor());
        if (filled > 0) canvas.Fill(Rect{inside.left, inside.top, filled, inside.height}, ForeColor());
    }
    canvas.Box(Rect{0, 0, size_.width, size_.height}, outline, kBlack);
    if (!focused) return;
    // One of the two contrasts with any color that fills the bar.
    canvas.Box(inside, outline, kSystemWindow);
    canvas.Box(Rect{2 * outline, 2 * outline, inside.width - 2 * outline, inside.height - 2 * outline}, outline,
               kSystemWindowText);
}

}  // namespace quillo

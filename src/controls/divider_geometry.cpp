#include "controls/divider_geometry.h"

#include <algorithm>

#include "controls/system_colors.h"
#include "ports/canvas.h"

namespace quillo {
namespace {

// Pixels at 96 dpi.
constexpr int kLine = 1;
constexpr int kCaptionRise = 1;  // of the caption above the middle
constexpr int kCaptionGap = 6;   // between the caption and the groove

}  // namespace

DividerGeometry LayOutDivider(Size control, Size caption, const Scale& scale) {
    const int line = scale.Px(kLine);
    DividerGeometry geometry;
    geometry.vertical = control.height > control.width;
    if (geometry.vertical) {
        const int middle = control.width / 2;
        geometry.shadow = Rect{middle - line, 0, line, control.height};
        geometry.highlight = Rect{middle, 0, line, control.height};
        return geometry;
    }
    const int middle = control.height / 2;
    // The groove ends before the caption, so the caption needs no background of its own.
    const int left = caption.width > 0 ? caption.width + scale.Px(kCaptionGap) : 0;
    const int width = std::max(0, control.width - left);
    geometry.shadow = Rect{left, middle - line, width, line};
    geometry.highlight = Rect{left, middle, width, line};
    geometry.caption = Point{0, (control.height - caption.height) / 2 - scale.Px(kCaptionRise)};
    return geometry;
}

void PaintDivider(Canvas& canvas, const DividerGeometry& geometry) {
    if (geometry.shadow.width <= 0) return;
    canvas.Fill(geometry.shadow, kSystemButtonShadow);
    canvas.Fill(geometry.highlight, kSystemButtonHighlight);
}

}  // namespace quillo

#include "controls/tab_strip.h"

#include <algorithm>
#include <utility>

#include "ports/canvas.h"

namespace quillo {

TabProperties FreshTabProperties() {
    TabProperties properties;
    properties.tabs = u"Tab 1|Tab 2|Tab 3";
    properties.foreColor = kSystemWindowText;
    return properties;
}

void TabStrip::SetLayout(TabLayout layout) {
    layout_ = std::move(layout);
    if (hot_ > layout_.Count()) hot_ = 0;
    SetCurrent(current_);
}

void TabStrip::SetCurrent(int tab) {
    current_ = tab >= 1 && tab <= layout_.Count() ? tab : 0;
}

TabResponse TabStrip::MouseMove(Point at) {
    TabResponse response;
    const int hit = layout_.Hit(at);
    if (layout_.Count() == 0 || hit == hot_) return response;
    response.repaint = true;
    if (hit == 0) {
        response.capture = TabResponse::Capture::Release;
    } else if (hot_ == 0) {
        response.capture = TabResponse::Capture::Take;  // so that leaving is noticed
        response.repaint = hit != current_;
    }
    hot_ = hit;
    return response;
}

TabResponse TabStrip::MouseUp() {
    if (layout_.Count() == 0 || hot_ == 0) return {};
    current_ = std::exchange(hot_, 0);
    return {TabResponse::Capture::Release, true, current_};
}

TabResponse TabStrip::DragOver(Point at) {
    const int hit = layout_.Hit(at);
    return hit != 0 && hit != current_ ? Choose(hit) : TabResponse{};
}

TabResponse TabStrip::Press(TabKey key) {
    const int count = layout_.Count();
    if (count == 0) return {};
    int tab = current_;
    switch (key) {
        case TabKey::Previous:
            tab = std::max(1, current_ - 1);
            break;
        case TabKey::Next:
            tab = std::min(count, current_ + 1);
            break;
        case TabKey::First:
            tab = 1;
            break;
        case TabKey::Last:
            tab = count;
            break;
    }
    return tab != current_ ? Choose(tab) : TabResponse{};
}

TabResponse TabStrip::Choose(int tab) {
    if (tab < 1 || tab > layout_.Count()) return {};
    current_ = tab;
    return {TabResponse::Capture::Keep, true, tab};
}

TabResponse TabStrip::CaptureLost() {
    TabResponse response;
    response.repaint = std::exchange(hot_, 0) != 0;
    return response;
}

ColorWord TabStrip::CaptionColor(int tab, const TabProperties& properties) const {
    if (tab == current_) return properties.tabForeColor;
    return tab == hot_ ? properties.hotColor : properties.foreColor;
}

void TabStrip::PaintGround(Canvas& canvas, const TabProperties& properties, Size control, const Scale& scale) const {
    canvas.Fill(Rect{0, 0, control.width, control.height}, properties.backColor);
    canvas.Fill(layout_.PageLine(properties.alignTop), properties.dividerColor);
    if (current_ != 0) PaintFace(canvas, properties, scale);
}

void TabStrip::PaintFace(Canvas& canvas, const TabProperties& properties, const Scale& scale) const {
    const bool top = properties.alignTop;
    const Rect outer = layout_.Face(current_, top);
    if (outer.width <= 0) return;
    const int line = scale.Px(1);
    // The face opens toward the page: it covers the line between them.
    const Rect page = layout_.PageLine(top);
    Rect face{outer.left, top ? page.top : outer.top, outer.width, outer.height + page.height};
    canvas.Fill(face, properties.tabColor);
    const auto edge = [&](ColorWord lit, ColorWord shaded) {
        canvas.Fill(Rect{face.left, face.top, line, face.height}, lit);
        canvas.Fill(Rect{face.Right() - line, face.top, line, face.height}, shaded);
        canvas.Fill(Rect{face.left, top ? face.Bottom() - line : face.top, face.width, line}, top ? shaded : lit);
        face = Rect{face.left + line, top ? face.top : face.top + line, face.width - 2 * line, face.height - line};
    };
    if (properties.thickBorder) edge(kSystem3dLight, kSystemDarkShadow);
    edge(kSystemButtonHighlight, kSystemButtonShadow);
}

}  // namespace quillo

#include "controls/tab_layout.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace quillo {
namespace {

// Pixels at 96 dpi.
constexpr int kFirstLeft = 2;
constexpr int kDeadEdge = 3;          // at the left of a tab that does not count as part of it
constexpr int kCaptionInsetLeft = 2;  // added to half of the spacing
constexpr int kCaptionInsetRight = 1;
constexpr int kIconGap = 4;     // between an icon and the caption beside it
constexpr int kIconOffset = 1;  // of an inline icon from the start of the caption's box
constexpr int kIconDrop = 2;    // of an icon below the top of the caption's box
constexpr int kFaceMargin = 2;  // between the far edge of the strip and the faces
constexpr int kTextMargin = 4;  // between a caption below its icon and the end of its face
constexpr int kPageLine = 1;

}  // namespace

std::vector<std::u16string> SplitTabs(std::u16string_view tabs) {
    std::vector<std::u16string> captions;
    if (tabs.empty()) return captions;
    for (;;) {
        const std::size_t bar = tabs.find(u'|');
        captions.emplace_back(tabs.substr(0, bar));
        if (bar == std::u16string_view::npos) return captions;
        tabs.remove_prefix(bar + 1);
    }
}

TabLayout::TabLayout(TabMeasures measures, const Scale& scale) : measures_(std::move(measures)), scale_(scale) {
    const int count = static_cast<int>(measures_.captionWidths.size());
    if (count == 0) return;
    const int beside = IconsBeside() ? measures_.iconEdge + scale_.Px(kIconGap) : 0;
    const int spacing = measures_.spacing;
    const int total =
        std::accumulate(measures_.captionWidths.begin(), measures_.captionWidths.end(), count * (beside + 2 * spacing));
    const int excess = total - measures_.control.width;
    const int shrink = excess > 0 ? (excess + count - 1) / count : 0;
    int left = scale_.Px(kFirstLeft);
    for (const int caption : measures_.captionWidths) {
        lefts_.push_back(left);
        widths_.push_back(caption + beside - shrink + spacing);
        left += widths_.back() + spacing;
    }
}

int TabLayout::Hit(Point at) const {
    if (Count() == 0 || at.x > Right(Count())) return 0;
    if (!Rect{0, 0, measures_.control.width, measures_.control.height}.Contains(at)) return 0;
    for (int tab = 1; tab <= Count(); ++tab) {
        if (at.x >= Left(tab) + scale_.Px(kDeadEdge) && at.x <= Right(tab)) return tab;
    }
    return 0;
}

Rect TabLayout::PageLine(bool alignTop) const {
    const int height = scale_.Px(kPageLine);
    return Rect{0, alignTop ? 0 : measures_.control.height - height, measures_.control.width, height};
}

Rect TabLayout::Face(int tab, bool alignTop) const {
    const int line = scale_.Px(kPageLine);
    const int margin = scale_.Px(kFaceMargin);
    const int top = alignTop ? line : margin;
    const int right = std::min(Right(tab), measures_.control.width);
    return Rect{Left(tab), top, right - Left(tab), measures_.control.height - line - margin};
}

Rect TabLayout::CaptionBox(int tab, bool alignTop) const {
    const Rect face = Face(tab, alignTop);
    const int half = measures_.spacing / 2;
    int left = Left(tab) + half + scale_.Px(kCaptionInsetLeft);
    const int right = Left(tab) + Width(tab) + half - scale_.Px(kCaptionInsetRight);
    if (IconsBeside()) left += measures_.iconEdge + scale_.Px(kIconGap);
    const int bottom =
        IconsAbove() ? face.Bottom() - scale_.Px(kTextMargin) : face.top + (face.height + measures_.lineHeight) / 2;
    return Rect{left, face.top, right - left, bottom - face.top};
}

Point TabLayout::IconAt(int tab, bool alignTop) const {
    const Rect face = Face(tab, alignTop);
    const int edge = measures_.iconEdge;
    if (!measures_.inlineIcons) {
        return Point{Left(tab) + (Width(tab) + measures_.spacing) / 2 - edge / 2, face.top + scale_.Px(kIconDrop)};
    }
    const int textOffset = measures_.spacing / 2 + scale_.Px(kCaptionInsetLeft);
    return Point{Left(tab) + textOffset + scale_.Px(kIconOffset), face.top + (face.height - edge) / 2};
}

}  // namespace quillo

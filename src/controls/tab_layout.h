#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "util/geometry.h"
#include "util/units.h"

namespace quillo {

/// The captions in a tabs text, separated by vertical bars; an empty caption is a tab too. An empty text has no tabs.
[[nodiscard]] std::vector<std::u16string> SplitTabs(std::u16string_view tabs);

/// The measures from which the tabs are laid out, in device pixels.
struct TabMeasures {
    std::vector<int> captionWidths;  ///< of the text alone, one per tab
    int lineHeight = 0;              ///< of a line of text
    int iconEdge = 0;                ///< 0 without icons
    bool inlineIcons = false;        ///< icons are beside their captions instead of above
    int spacing = 0;                 ///< on each side of a caption and between tabs
    Size control;
};

/// The place of each tab, in device pixels; the first tab is 1.
class TabLayout {
  public:
    TabLayout() = default;
    TabLayout(TabMeasures measures, const Scale& scale);

    [[nodiscard]] int Count() const { return static_cast<int>(widths_.size()); }
    [[nodiscard]] int Left(int tab) const { return lefts_[Index(tab)]; }
    [[nodiscard]] int Width(int tab) const { return widths_[Index(tab)]; }
    /// One past the face of the tab, which is where the next face begins.
    [[nodiscard]] int Right(int tab) const { return Left(tab) + Width(tab) + measures_.spacing; }
    /// The tab at a point; 0 for none.
    [[nodiscard]] int Hit(Point at) const;
    /// The box for a tab's caption.
    [[nodiscard]] Rect CaptionBox(int tab, bool alignTop) const;
    /// The top left corner of a tab's icon.
    [[nodiscard]] Point IconAt(int tab, bool alignTop) const;
    /// The face of a tab without the line between the tabs and the page.
    [[nodiscard]] Rect Face(int tab, bool alignTop) const;
    /// The line between the tabs and the page.
    [[nodiscard]] Rect PageLine(bool alignTop) const;

  private:
    [[nodiscard]] static std::size_t Index(int tab) { return static_cast<std::size_t>(tab - 1); }
    [[nodiscard]] bool IconsAbove() const { return measures_.iconEdge > 0 && !measures_.inlineIcons; }
    [[nodiscard]] bool IconsBeside() const { return measures_.iconEdge > 0 && measures_.inlineIcons; }

    TabMeasures measures_;
    Scale scale_;
    std::vector<int> lefts_;
    std::vector<int> widths_;
};

}  // namespace quillo

#pragma once

#include <cstdint>
#include <string>

#include "controls/system_colors.h"
#include "controls/tab_layout.h"

namespace quillo {

class Canvas;

/// The properties that a form gives its tab strip. The defaults apply to everything that the form does not set.
struct TabProperties {
    std::u16string tabs;
    bool thickBorder = false;
    bool alignTop = false;                       ///< the tabs are at the top edge, the page is above them
    bool inlineIcons = false;                    ///< icons are beside their captions instead of above
    ColorWord foreColor = kSystemButtonText;     ///< of captions
    ColorWord tabForeColor = kSystemButtonText;  ///< of the current tab's caption
    ColorWord backColor = kSystem3dLight;
    ColorWord tabColor = kSystemButtonFace;  ///< of the current tab's face
    ColorWord hotColor = kSystemHighlight;   ///< of the caption under the pointer
    ColorWord dividerColor = kSystemButtonShadow;
    ColorWord maskColor = ColorWord::FromRgb(0xFF, 0, 0xFF);  ///< the transparent color of the icons
    std::int16_t tabSpacing = 10;  ///< pixels at 96 dpi, on each side of a caption and between tabs
};

/// The properties of a newly placed strip. Intended: it has tabs, so that it is visible, and another caption color.
[[nodiscard]] TabProperties FreshTabProperties();

/// What the owner of the strip has to do after an event, in this order.
struct TabResponse {
    enum class Capture { Keep, Take, Release } capture = Capture::Keep;
    bool repaint = false;
    int change = 0;  ///< the tab that became current and must be reported; 0 for none
    friend bool operator==(const TabResponse&, const TabResponse&) = default;
};

/// Where a key moves the current tab.
enum class TabKey { Previous, Next, First, Last };

/// The tab strip's behavior and picture, independent of any window. Tabs are numbered from 1; 0 is none.
class TabStrip {
  public:
    /// If the tabs differ, no tab is hot any more; the current one stays if its number still exists.
    void SetLayout(TabLayout layout);
    [[nodiscard]] const TabLayout& Layout() const { return layout_; }
    [[nodiscard]] int Current() const { return current_; }
    [[nodiscard]] int Hot() const { return hot_; }
    /// No event. A number without a tab means none.
    void SetCurrent(int tab);

    [[nodiscard]] TabResponse MouseMove(Point at);
    [[nodiscard]] TabResponse MouseUp();
    /// Data is dragged over the strip.
    [[nodiscard]] TabResponse DragOver(Point at);
    [[nodiscard]] TabResponse Press(TabKey key);
    /// Chooses a tab without a pointer.
    [[nodiscard]] TabResponse Choose(int tab);
    /// Another window has taken the capture.
    [[nodiscard]] TabResponse CaptureLost();

    [[nodiscard]] ColorWord CaptionColor(int tab, const TabProperties& properties) const;
    /// In addition to the font's own underline.
    [[nodiscard]] bool IsUnderlined(int tab) const { return tab == hot_ && tab != current_; }
    /// Paints everything but captions and icons.
    void PaintGround(Canvas& canvas, const TabProperties& properties, Size control, const Scale& scale) const;

  private:
    void PaintFace(Canvas& canvas, const TabProperties& properties, const Scale& scale) const;

    TabLayout layout_;
    int current_ = 0;
    int hot_ = 0;
};

}  // namespace quillo

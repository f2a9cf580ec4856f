#pragma once

#include <cstdint>
#include <string>

#include "controls/system_colors.h"
#include "controls/tab_layout.h"

namespace quillo {

class Canvas;

/// What a tab strip is given by the form that it stands on. The defaults are those of a strip of a form, for whatever
/// the form leaves unsaid.
struct TabProperties {
    std::u16string tabs;
    bool thickBorder = false;
    bool alignTop = false;                       ///< the tabs hang from the top edge, the page is above them
    bool inlineIcons = false;                    ///< icons stand beside their captions instead of above
    ColorWord foreColor = kSystemButtonText;     ///< of captions
    ColorWord tabForeColor = kSystemButtonText;  ///< of the current tab's caption
    ColorWord backColor = kSystem3dLight;
    ColorWord tabColor = kSystemButtonFace;  ///< of the current tab's face
    ColorWord hotColor = kSystemHighlight;   ///< of the caption under the pointer
    ColorWord dividerColor = kSystemButtonShadow;
    ColorWord maskColor = ColorWord::FromRgb(0xFF, 0, 0xFF);  ///< is transparent in the icons
    std::int16_t tabSpacing = 10;  ///< pixels at 96 dpi, on each side of a caption and between tabs
};

/// What a strip has that was placed anew. intended: it differs from a form's strip in its tabs, so that there is
/// something to see, and in the color of its captions.
[[nodiscard]] TabProperties FreshTabProperties();

/// What the owner of the strip is to do after an event, in this order.
struct TabResponse {
    enum class Capture { Keep, Take, Release } capture = Capture::Keep;
    bool repaint = false;
    int change = 0;  ///< the tab that became current and is to be reported; 0 for none
    friend bool operator==(const TabResponse&, const TabResponse&) = default;
};

/// Where a key moves the current tab.
enum class TabKey { Previous, Next, First, Last };

/// The tab strip's behavior and picture, free of any window. Tabs are numbered from 1; 0 is none.
class TabStrip {
  public:
    /// A layout of other tabs leaves no tab hot, and keeps the current one where there still is one of its number.
    void SetLayout(TabLayout layout);
    [[nodiscard]] const TabLayout& Layout() const { return layout_; }
    [[nodiscard]] int Current() const { return current_; }
    [[nodiscard]] int Hot() const { return hot_; }
    /// No event. A number that no tab has means none.
    void SetCurrent(int tab);

    [[nodiscard]] TabResponse MouseMove(Point at);
    [[nodiscard]] TabResponse MouseUp();
    /// Data is dragged over the strip.
    [[nodiscard]] TabResponse DragOver(Point at);
    [[nodiscard]] TabResponse Press(TabKey key);
    /// A tab is chosen without a pointer.
    [[nodiscard]] TabResponse Choose(int tab);
    /// The capture was taken away from outside.
    [[nodiscard]] TabResponse CaptureLost();

    [[nodiscard]] ColorWord CaptionColor(int tab, const TabProperties& properties) const;
    /// Besides what the font itself has.
    [[nodiscard]] bool IsUnderlined(int tab) const { return tab == hot_ && tab != current_; }
    /// Everything but captions and icons.
    void PaintGround(Canvas& canvas, const TabProperties& properties, Size control, const Scale& scale) const;

  private:
    void PaintFace(Canvas& canvas, const TabProperties& properties, const Scale& scale) const;

    TabLayout layout_;
    int current_ = 0;
    int hot_ = 0;
};

}  // namespace quillo

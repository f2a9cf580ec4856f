#pragma once

#include <initializer_list>

#include "mainmenu/options_table.h"
#include "platform/win32.h"

namespace quillo {

class ContentPanel;

/// Stacks the controls of a page below each other, each at the height that its text needs. Gaps are pixels at 96 dpi,
/// places and lengths device pixels.
class PageColumn {
  public:
    PageColumn(ContentPanel& panel, HDC dc, int left, int top, int width)
        : panel_(panel), dc_(dc), left_(left), width_(width), bottom_(top) {}

    void PutHeading(OptionControl heading);
    /// A label, wrapped at the column's width.
    void PutText(OptionControl label, int gapAfter);
    void PutCheck(OptionControl check);
    /// A captioned line; with air above unless it is the first of its column.
    void PutDivider(OptionControl divider);
    void PutFirstDivider(OptionControl divider);
    /// A text box as wide as the column less the small buttons at its right.
    void PutBox(OptionControl box, std::initializer_list<OptionControl> smallButtons, int gapAfter);
    /// The same with its label at its left; `labelWidth` is what the widest label of the group takes.
    void PutLabeledBox(OptionControl label, int labelWidth, OptionControl box,
                       std::initializer_list<OptionControl> smallButtons, int gapAfter);
    /// A push button at the right edge, and a box or a wrapped label in the room at its left.
    void PutBoxWithButton(OptionControl box, OptionControl button, int gapAfter);
    void PutTextWithButton(OptionControl label, OptionControl button, int gapAfter);
    /// A control of that size somewhere in the column.
    void PlaceAt(OptionControl control, int left, int top, int width, int height) const;
    /// A label at the height of a text box at `top`, its text on the line of the box's.
    void PlaceLabelAt(OptionControl label, int left, int top, int width) const;
    void Advance(int height, int gapAfter);

    [[nodiscard]] int TextWidth(OptionControl control) const;
    [[nodiscard]] int TextHeight(OptionControl control, int width) const;
    [[nodiscard]] int ButtonWidth(OptionControl button) const;
    [[nodiscard]] int BoxHeight() const;
    [[nodiscard]] int LineHeight() const;
    [[nodiscard]] int Px(int atDesignDpi) const;
    [[nodiscard]] HDC Dc() const { return dc_; }
    [[nodiscard]] int Left() const { return left_; }
    [[nodiscard]] int Width() const { return width_; }
    /// Below everything so far, the last gap included.
    [[nodiscard]] int Bottom() const { return bottom_; }

  private:
    ContentPanel& panel_;
    HDC dc_;
    int left_;
    int width_;
    int bottom_;
};

}  // namespace quillo

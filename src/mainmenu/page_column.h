#pragma once

#include <initializer_list>

#include "mainmenu/options_table.h"
#include "platform/control_column.h"

namespace quillo {

class ContentPanel;

/// Stacks the controls of a page, each as high as its text needs. Gaps are pixels at 96 dpi, places and lengths device
/// pixels.
class PageColumn : public ControlColumn {
  public:
    PageColumn(ContentPanel& panel, HDC dc, int left, int top, int width)
        : ControlColumn(dc, left, top, width), panel_(panel) {}

    void PutHeading(OptionControl heading);
    /// A label, wrapped at the column's width.
    void PutText(OptionControl label, int gapAfter);
    void PutCheck(OptionControl check);
    /// The check boxes that follow a control in the table.
    void PutChecksAfter(OptionControl control);
    /// A captioned line; with space above unless it is the first of its column.
    void PutDivider(OptionControl divider);
    void PutFirstDivider(OptionControl divider);
    /// A text box as wide as the column minus the small buttons to its right.
    void PutBox(OptionControl box, std::initializer_list<OptionControl> smallButtons, int gapAfter);
    /// The same with a label to its left; `labelWidth` is the width of the widest label of the group.
    void PutLabeledBox(OptionControl label, int labelWidth, OptionControl box,
                       std::initializer_list<OptionControl> smallButtons, int gapAfter);
    /// A push button at the right edge, and a box or a wrapped label in the space to its left.
    void PutBoxWithButton(OptionControl box, OptionControl button, int gapAfter);
    void PutTextWithButton(OptionControl label, OptionControl button, int gapAfter);
    /// A control of that size at a given place in the column.
    void PlaceAt(OptionControl control, int left, int top, int width, int height) const;
    /// A label for a text box at `top`, with both texts on one line.
    void PlaceLabelAt(OptionControl label, int left, int top, int width) const;
    void Advance(int height, int gapAfter);

    [[nodiscard]] int TextWidth(OptionControl control) const;
    [[nodiscard]] int TextHeight(OptionControl control, int width) const;
    [[nodiscard]] int ButtonWidth(OptionControl button) const;
    [[nodiscard]] int BoxHeight() const;
    [[nodiscard]] int LineHeight() const;
    [[nodiscard]] int Px(int atDesignDpi) const;

  private:
    ContentPanel& panel_;
};

}  // namespace quillo

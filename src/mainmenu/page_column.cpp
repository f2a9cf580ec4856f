#include "mainmenu/page_column.h"

#include <algorithm>

#include "mainmenu/content_panel.h"
#include "platform/dialog_parts.h"
#include "platform/gdi_scope.h"
#include "platform/text_tools.h"
#include "platform/wide.h"

namespace quillo {
namespace {

// Pixels at 96 dpi.
constexpr int kHeadingGap = 6;
constexpr int kCheckGap = 3;
constexpr int kAirAboveDivider = 8;
constexpr int kDividerGap = 6;
constexpr int kDividerAir = 4;  // how much higher a divider is than its caption
constexpr int kSmallButtonGap = 4;
constexpr int kSmallButtonWidth = 30;

constexpr std::u16string_view kSample = u"Wg";

}  // namespace

int PageColumn::Px(int atDesignDpi) const {
    return panel_.PageScale().Px(atDesignDpi);
}

int PageColumn::LineHeight() const {
    return MeasureText(Dc(), panel_.Fonts().body.Get(), kSample).height;
}

int PageColumn::BoxHeight() const {
    return LineHeight() + Px(kDialogBoxPadding);
}

int PageColumn::TextWidth(OptionControl control) const {
    return MeasureCaption(Dc(), panel_.FontOf(RowOf(control)), panel_.TextOf(control)).width;
}

int PageColumn::TextHeight(OptionControl control, int width) const {
    return MeasureText(Dc(), panel_.FontOf(RowOf(control)), panel_.TextOf(control), width).height;
}

int PageColumn::ButtonWidth(OptionControl button) const {
    return quillo::ButtonWidth(Dc(), panel_.Fonts().body.Get(), panel_.TextOf(button), panel_.PageScale());
}

void PageColumn::PlaceAt(OptionControl control, int left, int top, int width, int height) const {
    MoveWindow(panel_.Item(control), left, top, width, height, FALSE);
}

void PageColumn::PlaceLabelAt(OptionControl label, int left, int top, int width) const {
    const int height = LineHeight();
    PlaceAt(label, left, top + (BoxHeight() - height) / 2, width, height);
}

void PageColumn::Advance(int height, int gapAfter) {
    Skip(height + Px(gapAfter));
}

void PageColumn::PutText(OptionControl label, int gapAfter) {
    ControlColumn::PutText(panel_.Item(label), panel_.FontOf(RowOf(label)), panel_.TextOf(label), 0, Px(gapAfter));
}

void PageColumn::PutHeading(OptionControl heading) {
    PutText(heading, kHeadingGap);
}

void PageColumn::PutChecksAfter(OptionControl control) {
    for (const OptionControl check : ChecksAfter(control)) PutCheck(check);
}

void PageColumn::PutCheck(OptionControl check) {
    const int text = TextHeight(check, Width() - Px(kDialogCheckRoom));
    const int height = std::max(Px(kDialogCheckHeight), text + Px(2));
    Put(panel_.Item(check), 0, height, Px(kCheckGap));
}

void PageColumn::PutDivider(OptionControl divider) {
    Skip(Px(kAirAboveDivider));
    PutFirstDivider(divider);
}

void PageColumn::PutFirstDivider(OptionControl divider) {
    const int height = TextHeight(divider, Width()) + Px(kDividerAir);
    Put(panel_.Item(divider), 0, height, Px(kDividerGap));
}

void PageColumn::PutBox(OptionControl box, std::initializer_list<OptionControl> smallButtons, int gapAfter) {
    PutLabeledBox(box, 0, box, smallButtons, gapAfter);
}

void PageColumn::PutLabeledBox(OptionControl label, int labelWidth, OptionControl box,
                               std::initializer_list<OptionControl> smallButtons, int gapAfter) {
    const int height = BoxHeight();
    const int step = Px(kSmallButtonWidth) + Px(kSmallButtonGap);
    const int indent = labelWidth > 0 ? labelWidth + Px(kDialogGap) : 0;
    if (labelWidth > 0) PlaceLabelAt(label, Left(), Bottom(), labelWidth);
    const int boxWidth = Width() - indent - step * static_cast<int>(smallButtons.size());
    PlaceAt(box, Left() + indent, Bottom(), boxWidth, height);
    int left = Left() + indent + boxWidth + Px(kSmallButtonGap);
    for (const OptionControl button : smallButtons) {
        PlaceAt(button, left, Bottom(), Px(kSmallButtonWidth), height);
        left += step;
    }
    Advance(height, gapAfter);
}

void PageColumn::PutBoxWithButton(OptionControl box, OptionControl button, int gapAfter) {
    const int height = Px(kDialogButtonHeight);
    const int buttonWidth = ButtonWidth(button);
    const int boxWidth = Width() - buttonWidth - Px(kDialogGap);
    PlaceAt(box, Left(), Bottom() + (height - BoxHeight()) / 2, boxWidth, BoxHeight());
    PlaceAt(button, Left() + Width() - buttonWidth, Bottom(), buttonWidth, height);
    Advance(std::max(height, BoxHeight()), gapAfter);
}

void PageColumn::PutTextWithButton(OptionControl label, OptionControl button, int gapAfter) {
    const int buttonHeight = Px(kDialogButtonHeight);
    const int buttonWidth = ButtonWidth(button);
    const int textWidth = Width() - buttonWidth - 2 * Px(kDialogGap);
    const int textHeight = TextHeight(label, textWidth);
    const int height = std::max(buttonHeight, textHeight);
    PlaceAt(label, Left(), Bottom() + (height - textHeight) / 2, textWidth, textHeight);
    PlaceAt(button, Left() + Width() - buttonWidth, Bottom() + (height - buttonHeight) / 2, buttonWidth, buttonHeight);
    Advance(height, gapAfter);
}

}  // namespace quillo

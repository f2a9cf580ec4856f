#include "platform/control_column.h"

#include "platform/text_tools.h"

namespace quillo {

void ControlColumn::Put(HWND control, int indent, int height, int gapAfter) {
    MoveWindow(control, left_ + indent, bottom_, width_ - indent, height, FALSE);
    bottom_ += height + gapAfter;
}

void ControlColumn::PutText(HWND label, HFONT font, std::u16string_view text, int indent, int gapAfter) {
    Put(label, indent, MeasureText(dc_, font, text, width_ - indent).height, gapAfter);
}

}  // namespace quillo

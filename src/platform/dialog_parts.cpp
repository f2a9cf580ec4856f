#include "platform/dialog_parts.h"

#include <algorithm>
#include <string>

#include "platform/gdi_scope.h"
#include "platform/styled_controls.h"
#include "platform/text_tools.h"
#include "platform/wide.h"
#include "platform/window.h"

namespace quillo {
namespace {

constexpr int kTextPoints = 9;
constexpr int kHeadingPoints = 12;

// Pixels at 96 dpi.
constexpr int kLeastButtonWidth = 92;
constexpr int kButtonPadding = 24;  // left and right of the caption together

}  // namespace

DialogFonts MakeDialogFonts(Scale scale) {
    return DialogFonts{MakeFont(kDialogFont, kTextPoints, FW_NORMAL, scale),
                       MakeFont(kDialogFont, kHeadingPoints, FW_NORMAL, scale),
                       MakeFont(kDialogFont, kTextPoints, FW_BOLD, scale)};
}

HWND CreateControl(HWND dialog, int id, const ControlKind& kind, std::u16string_view caption, bool visible) {
    const StyledControls styled;
    const DWORD shown = visible ? WS_VISIBLE : 0;
    return CreateWindowExW(kind.exStyle, kind.windowClass, Wide(std::u16string(caption)), WS_CHILD | shown | kind.style,
                           0, 0, 0, 0, dialog, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), ThisModule(),
                           nullptr);
}

Size MeasureCaption(HDC dc, HFONT font, std::u16string_view caption) {
    const SelectScope selected(dc, font);
    RECT area{};
    DrawTextW(dc, WideData(caption), static_cast<int>(caption.size()), &area, DT_CALCRECT | DT_SINGLELINE);
    return Size{area.right, area.bottom};
}

int ButtonWidth(HDC dc, HFONT font, std::u16string_view caption, Scale scale) {
    return std::max(scale.Px(kLeastButtonWidth), MeasureCaption(dc, font, caption).width + scale.Px(kButtonPadding));
}

int CheckWidth(HDC dc, HFONT font, std::u16string_view caption, Scale scale) {
    return MeasureCaption(dc, font, caption).width + scale.Px(kDialogCheckRoom);
}

}  // namespace quillo

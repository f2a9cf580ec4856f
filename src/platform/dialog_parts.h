#pragma once

#include <string_view>

#include "platform/unique_handle.h"
#include "util/geometry.h"
#include "util/units.h"

namespace quillo {

// Measures that all dialogs share, in pixels at 96 dpi.
inline constexpr int kDialogMargin = 11;
inline constexpr int kDialogGap = 8;
inline constexpr int kDialogSmallGap = 4;
inline constexpr int kDialogButtonHeight = 25;
inline constexpr int kDialogCheckHeight = 18;  ///< of a check box or an option button on one line
inline constexpr int kDialogCheckRoom = 20;    ///< the space for its mark, left of the caption
inline constexpr int kDialogBoxPadding = 7;    ///< how much higher a text box is than its line

inline constexpr std::u16string_view kDialogFont = u"Tahoma";

/// The fonts of a dialog at one resolution.
struct DialogFonts {
    FontHandle body;
    FontHandle heading;
    FontHandle strong;
};
[[nodiscard]] DialogFonts MakeDialogFonts(Scale scale);

/// A kind of control: its class and styles.
struct ControlKind {
    const wchar_t* windowClass;
    DWORD style;
    DWORD exStyle = 0;
};
inline constexpr ControlKind kLabel{L"STATIC", SS_LEFT | SS_NOPREFIX};
/// A line between the contents of a dialog and its buttons.
inline constexpr ControlKind kRule{L"STATIC", SS_ETCHEDHORZ};
inline constexpr ControlKind kTextBox{L"EDIT", WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE};
inline constexpr ControlKind kCheckBox{L"BUTTON", WS_TABSTOP | BS_AUTOCHECKBOX};
/// One option of a group, whose first option also has WS_GROUP and WS_TABSTOP.
inline constexpr ControlKind kOption{L"BUTTON", BS_AUTORADIOBUTTON};
inline constexpr ControlKind kFirstOption{L"BUTTON", WS_GROUP | WS_TABSTOP | BS_AUTORADIOBUTTON};
/// The first of a row of buttons; the arrow keys move among those that follow.
inline constexpr ControlKind kDefaultButton{L"BUTTON", WS_GROUP | WS_TABSTOP | BS_DEFPUSHBUTTON};
inline constexpr ControlKind kButton{L"BUTTON", WS_TABSTOP | BS_PUSHBUTTON};

/// Creates a control with an empty size at the end of the Tab order; null on failure.
HWND CreateControl(HWND dialog, int id, const ControlKind& kind, std::u16string_view caption, bool visible = true);

/// The size of a caption in device pixels; an ampersand marks the access key and takes no space.
[[nodiscard]] Size MeasureCaption(HDC dc, HFONT font, std::u16string_view caption);
/// The width of a push button, check box or option button that shows the whole caption.
[[nodiscard]] int ButtonWidth(HDC dc, HFONT font, std::u16string_view caption, Scale scale);
[[nodiscard]] int CheckWidth(HDC dc, HFONT font, std::u16string_view caption, Scale scale);

}  // namespace quillo

#include "mainmenu/font_dialog.h"

#include "notes/note_fonts.h"
#include "platform/dpi.h"
#include "platform/late_library.h"
#include "platform/styled_controls.h"
#include "platform/wide.h"

// After windows.h.
#include <commdlg.h>

namespace quillo {
namespace {

// The sizes that can be stored; see Settings.
constexpr int kLeastPoints = 7;
constexpr int kMostPoints = 32;
constexpr double kTenthsOfAPoint = 10;

/// Another dialog chooses the colors of notes: the list of colors in the font dialog would have no effect.
UINT_PTR CALLBACK HideColors(HWND dialog, UINT message, WPARAM /*wParam*/, LPARAM /*lParam*/) noexcept {
    constexpr int kColorList = 0x473;
    constexpr int kColorLabel = 0x443;
    if (message == WM_INITDIALOG) {
        for (const int id : {kColorList, kColorLabel}) {
            if (HWND control = GetDlgItem(dialog, id); control != nullptr) ShowWindow(control, SW_HIDE);
        }
    }
    return 0;
}

FontSetting ToSetting(const LOGFONTW& logical, int tenths) {
    FontSetting font;
    font.name = FromWide(logical.lfFaceName);
    font.size = tenths / kTenthsOfAPoint;
    font.bold = logical.lfWeight > FW_MEDIUM;
    font.italic = logical.lfItalic != 0;
    font.underline = logical.lfUnderline != 0;
    font.strikeThrough = logical.lfStrikeOut != 0;
    font.charset = logical.lfCharSet;
    return font;
}

}  // namespace

std::optional<FontSetting> AskForFont(HWND owner, const FontSetting& font) {
    static LateFunction<BOOL WINAPI(CHOOSEFONTW*)> choose(L"comdlg32.dll", "ChooseFontW");
    const StyledControls styled;  // also for the library that has the dialog
    if (choose.Get() == nullptr) return std::nullopt;
    LOGFONTW logical = ToLogFont(font, false, SystemScale());
    CHOOSEFONTW choice{};
    choice.lStructSize = sizeof choice;
    choice.hwndOwner = owner;
    choice.lpLogFont = &logical;
    choice.Flags = CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT | CF_EFFECTS | CF_LIMITSIZE | CF_FORCEFONTEXIST |
                   CF_NOVERTFONTS | CF_ENABLEHOOK;
    choice.lpfnHook = &HideColors;
    choice.nSizeMin = kLeastPoints;
    choice.nSizeMax = kMostPoints;
    if (choose.Get()(&choice) == 0) return std::nullopt;
    return ToSetting(logical, choice.iPointSize);
}

}  // namespace quillo

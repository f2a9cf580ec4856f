#include "platform/text_tools.h"

#include "platform/gdi_scope.h"
#include "platform/wide.h"

namespace quillo {

FontHandle MakeFont(std::u16string_view name, int points, int weight, Scale scale, int charset) {
    constexpr int kPointsPerInch = 72;
    LOGFONTW font{};
    font.lfHeight = -MulDiv(points, scale.Dpi(), kPointsPerInch);
    font.lfWeight = weight;
    font.lfCharSet = charset > 0 ? static_cast<BYTE>(charset) : BYTE{DEFAULT_CHARSET};
    lstrcpynW(font.lfFaceName, Wide(std::u16string(name)), LF_FACESIZE);
    return FontHandle(CreateFontIndirectW(&font));
}

Size MeasureText(HDC dc, HFONT font, std::u16string_view text, int wrapWidth) {
    const SelectScope selected(dc, font);
    RECT area{0, 0, wrapWidth, 0};
    const UINT wrap = wrapWidth > 0 ? DT_WORDBREAK : DT_SINGLELINE;
    DrawTextW(dc, WideData(text), static_cast<int>(text.size()), &area, DT_CALCRECT | DT_NOPREFIX | wrap);
    return Size{area.right, area.bottom};
}

std::u16string WindowText(HWND window) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, u'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, WideBuffer(text), static_cast<int>(text.size()))));
    return text;
}

}  // namespace quillo

#include "platform/gdi_canvas.h"

#include "platform/gdi_scope.h"
#include "platform/wide.h"

namespace quillo {

ColorWord Resolve(ColorWord color) {
    if (color.IsSystemColor()) return ColorWord{GetSysColor(color.SystemColorIndex())};
    return ColorWord{color.value & 0x00FFFFFFU};
}

COLORREF ToColorRef(ColorWord color) {
    return Resolve(color).value;
}

void GdiCanvas::Fill(const Rect& area, ColorWord color) {
    // The stock brush takes a color without creating an object.
    SetDCBrushColor(dc_, ToColorRef(color));
    const RECT rect = ToWin32(area);
    FillRect(dc_, &rect, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void GdiCanvas::Box(const Rect& area, int thickness, ColorWord color) {
    Fill(Rect{area.left, area.top, area.width, thickness}, color);
    Fill(Rect{area.left, area.Bottom() - thickness, area.width, thickness}, color);
    Fill(Rect{area.left, area.top, thickness, area.height}, color);
    Fill(Rect{area.Right() - thickness, area.top, thickness, area.height}, color);
}

void GdiCanvas::Line(Point from, Point to, int thickness, ColorWord color) {
    const PenHandle pen(CreatePen(PS_SOLID, thickness, ToColorRef(color)));
    const SelectScope selected(dc_, pen.Get());
    MoveToEx(dc_, from.x, from.y, nullptr);
    LineTo(dc_, to.x, to.y);
    // LineTo omits its last point.
    if (thickness <= 1) SetPixelV(dc_, to.x, to.y, ToColorRef(color));
}

void GdiCanvas::Text(Point at, std::u16string_view text, int points, ColorWord color) {
    const FontHandle font(CreateFontW(-MulDiv(points, scale_.Dpi(), 72), 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET,
                                      OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                                      DEFAULT_PITCH | FF_SWISS, fontName_));
    const SelectScope selected(dc_, font.Get());
    SetBkMode(dc_, TRANSPARENT);
    SetTextColor(dc_, ToColorRef(color));
    TextOutW(dc_, at.x, at.y, WideData(text), static_cast<int>(text.size()));
}

void GdiCanvas::Gradient(const Rect& area, ColorWord top, ColorWord bottom) {
    for (int row = 0; row < area.height; ++row) {
        const int percent = area.height > 1 ? row * 100 / (area.height - 1) : 0;
        Fill(Rect{area.left, area.top + row, area.width, 1}, Mix(Resolve(bottom), Resolve(top), percent));
    }
}

}  // namespace quillo

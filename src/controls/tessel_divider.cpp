#include "controls/tessel_divider.h"

#include "platform/dpi.h"
#include "platform/gdi_canvas.h"
#include "platform/gdi_scope.h"
#include "platform/text_tools.h"
#include "platform/wide.h"

namespace quillo {

bool TesselDivider::Create(HWND parent, int id, std::u16string_view caption, const Rect& place) {
    scale_ = WindowScale(parent);
    const std::u16string title(caption);
    WindowPlan plan;
    plan.className = L"QuilloDivider";
    plan.title = Wide(title);
    plan.style = WS_CHILD | WS_VISIBLE;
    plan.place = place;
    plan.parent = parent;
    plan.childId = id;
    return Window::Create(plan);
}

std::u16string TesselDivider::Caption() const {
    return WindowText(Handle());
}

void TesselDivider::SetCaption(std::u16string_view caption) {
    SetWindowTextW(Handle(), Wide(std::u16string(caption)));
}

void TesselDivider::SetScale(const Scale& scale) {
    scale_ = scale;
    Invalidate();
}

LRESULT TesselDivider::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SETTEXT:
            return OnSetText(wParam, lParam);
        case WM_SETFONT:
            return OnSetFont(reinterpret_cast<HFONT>(wParam)), 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(font_);
        case WM_GETDLGCODE:
            return DLGC_STATIC;
        case WM_GETOBJECT:
            return accessible_.Answer(Handle(), wParam, lParam);
        case WM_NCHITTEST:
            return HTTRANSPARENT;  // the mouse has nothing to do here
        case WM_SIZE:
        case WM_SYSCOLORCHANGE:
            return Invalidate(), 0;
        default:
            return Default(message, wParam, lParam);
    }
}

LRESULT TesselDivider::OnSetText(WPARAM wParam, LPARAM lParam) {
    const LRESULT result = Default(WM_SETTEXT, wParam, lParam);
    Invalidate();
    return result;
}

void TesselDivider::OnSetFont(HFONT font) {
    font_ = font;
    Invalidate();
}

void TesselDivider::OnPaint() {
    const PaintScope paint(Handle());
    const Rect area = ClientRect();
    const BufferedPaint buffer(paint.Dc(), ToWin32(area));
    PaintGround(buffer.Dc(), ToWin32(area));

    const HFONT font = font_ != nullptr ? font_ : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    const std::u16string caption = Caption();
    const Size room = caption.empty() ? Size{} : MeasureText(buffer.Dc(), font, caption);
    const DividerGeometry geometry = LayOutDivider(Size{area.width, area.height}, room, scale_);
    GdiCanvas canvas(buffer.Dc(), scale_);
    PaintDivider(canvas, geometry);
    if (caption.empty() || geometry.vertical) return;
    const SelectScope selected(buffer.Dc(), font);
    SetBkMode(buffer.Dc(), TRANSPARENT);
    TextOutW(buffer.Dc(), geometry.caption.x, geometry.caption.y, Wide(caption), static_cast<int>(caption.size()));
}

void TesselDivider::PaintGround(HDC dc, const RECT& area) const {
    // The form supplies the background and the color of text on it.
    const LRESULT brush = SendMessageW(GetParent(Handle()), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc),
                                       reinterpret_cast<LPARAM>(Handle()));
    FillRect(dc, &area, brush != 0 ? reinterpret_cast<HBRUSH>(brush) : GetSysColorBrush(COLOR_BTNFACE));
}

AccessiblePart TesselDivider::Describe(int /*part*/) const {
    AccessiblePart self;
    self.role = Caption().empty() ? ROLE_SYSTEM_SEPARATOR : ROLE_SYSTEM_STATICTEXT;
    return self;
}

}  // namespace quillo

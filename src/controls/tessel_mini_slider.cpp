#include "controls/tessel_mini_slider.h"

#include <optional>

#include "platform/dpi.h"
#include "platform/gdi_canvas.h"
#include "platform/gdi_scope.h"
#include "platform/styled_controls.h"
#include "util/numbers.h"

namespace quillo {
namespace {

constexpr WPARAM kAnyButton = MK_LBUTTON | MK_RBUTTON | MK_MBUTTON | MK_XBUTTON1 | MK_XBUTTON2;

std::optional<SliderKey> SliderKeyOf(WPARAM key) {
    switch (key) {
        case VK_LEFT:
        case VK_DOWN:
            return SliderKey::Less;
        case VK_RIGHT:
        case VK_UP:
            return SliderKey::More;
        case VK_NEXT:
            return SliderKey::PageLess;
        case VK_PRIOR:
            return SliderKey::PageMore;
        case VK_HOME:
            return SliderKey::ToMin;
        case VK_END:
            return SliderKey::ToMax;
        default:
            return std::nullopt;
    }
}

}  // namespace

TesselMiniSlider::TesselMiniSlider() {
    track_.onRepaint = [this] { OnTrackChanged(); };
    track_.onClick = [this](std::int32_t value) { lifetime_.RaiseLast(onClick, value); };
    track_.onChange = [this](std::int32_t value) { lifetime_.RaiseLast(onChange, value); };
}

bool TesselMiniSlider::Create(HWND parent, int id, const wchar_t* name, const SliderProperties& properties,
                              const Rect& place) {
    track_.Apply(properties);
    announced_ = Value();
    scale_ = WindowScale(parent);
    WindowPlan plan;
    plan.className = L"QuilloMiniSlider";
    plan.title = name;
    plan.style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | (properties.enabled ? 0 : DWORD{WS_DISABLED});
    plan.place = place;
    plan.parent = parent;
    plan.childId = id;
    return Window::Create(plan);
}

void TesselMiniSlider::SetEnabled(bool enabled) {
    EnableWindow(Handle(), enabled ? TRUE : FALSE);
}

void TesselMiniSlider::SetScale(const Scale& scale) {
    scale_ = scale;
    const Rect client = ClientRect();
    track_.Resize(Size{client.width, client.height}, scale_);
}

void TesselMiniSlider::AboutBox() const {
    const StyledControls styled;
    MessageBoxW(GetAncestor(Handle(), GA_ROOT), L"A small slider: press or drag it, or use the arrow keys.", L"Quillo",
                MB_OK | MB_ICONINFORMATION);
}

LRESULT TesselMiniSlider::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_XBUTTONDOWN:
            return OnPress(PointFromLParam(lParam)), 0;
        case WM_MOUSEMOVE:
            return OnMouseMove(PointFromLParam(lParam), wParam), 0;
        case WM_LBUTTONUP:
        case WM_RBUTTONUP:
        case WM_MBUTTONUP:
        case WM_XBUTTONUP:
            return OnRelease(wParam), 0;
        case WM_KEYDOWN:
            return OnKey(wParam), 0;
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS;
        case WM_GETOBJECT:
            return accessible_.Answer(Handle(), wParam, lParam);
        case WM_ENABLE:
            return track_.SetEnabled(wParam != FALSE), 0;
        case WM_SIZE:
            return track_.Resize(Size{LOWORD(lParam), HIWORD(lParam)}, scale_), 0;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
        case WM_SYSCOLORCHANGE:
            return Invalidate(), 0;
        case WM_UPDATEUISTATE:
            Invalidate();
            return Default(message, wParam, lParam);
        default:
            return Default(message, wParam, lParam);
    }
}

void TesselMiniSlider::OnPress(Point at) {
    SetFocus(Handle());
    SetCapture(Handle());
    track_.MouseAt(at.x);
}

void TesselMiniSlider::OnMouseMove(Point at, WPARAM keys) {
    if ((keys & kAnyButton) != 0) track_.MouseAt(at.x);
}

void TesselMiniSlider::OnRelease(WPARAM keys) {
    if ((keys & kAnyButton) == 0 && GetCapture() == Handle()) ReleaseCapture();
}

void TesselMiniSlider::OnKey(WPARAM key) {
    const std::optional<SliderKey> move = SliderKeyOf(key);
    if (!move) return;
    ShowKeyboardCues();
    track_.Press(*move);
}

void TesselMiniSlider::OnPaint() {
    const PaintScope paint(Handle());
    const Rect bar = ClientRect();
    const BufferedPaint buffer(paint.Dc(), ToWin32(bar));
    GdiCanvas canvas(buffer.Dc(), scale_);
    track_.Paint(canvas, ShowsFocus());
}

AccessiblePart TesselMiniSlider::Describe(int /*part*/) const {
    AccessiblePart self;
    self.role = ROLE_SYSTEM_SLIDER;
    self.value = describeValue ? describeValue(Value()) : FormatInteger(Value());
    return self;
}

void TesselMiniSlider::OnTrackChanged() {
    Invalidate();
    if (announced_ == Value() || Handle() == nullptr) return;
    announced_ = Value();
    NotifyWinEvent(EVENT_OBJECT_VALUECHANGE, Handle(), OBJID_CLIENT, CHILDID_SELF);
}

}  // namespace quillo

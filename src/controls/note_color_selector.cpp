#include "controls/note_color_selector.h"

#include <optional>

#include "platform/dpi.h"
#include "platform/gdi_canvas.h"
#include "platform/gdi_scope.h"

namespace quillo {
namespace {

constexpr WPARAM kAnyButton = MK_LBUTTON | MK_RBUTTON | MK_MBUTTON | MK_XBUTTON1 | MK_XBUTTON2;

std::optional<StripKey> StripKeyOf(WPARAM key) {
    switch (key) {
        case VK_LEFT:
        case VK_UP:
            return StripKey::Back;
        case VK_RIGHT:
        case VK_DOWN:
            return StripKey::Forward;
        case VK_HOME:
            return StripKey::First;
        case VK_END:
            return StripKey::Last;
        default:
            return std::nullopt;
    }
}

/// The arrow keys move inside the strip, and Enter picks a swatch instead of pressing the dialog's default button.
LRESULT WantedKeys(const MSG* message) {
    const bool enter = message != nullptr && message->message == WM_KEYDOWN && message->wParam == VK_RETURN;
    return DLGC_WANTARROWS | (enter ? DLGC_WANTMESSAGE : 0);
}

}  // namespace

bool NoteColorSelector::Create(HWND parent, int id, const wchar_t* name, Point at) {
    scale_ = WindowScale(parent);
    strip_.SetScale(scale_);
    const Size size = strip_.StripSize();
    WindowPlan plan;
    plan.className = L"QuilloNoteColorSelector";
    plan.title = name;
    plan.style = WS_CHILD | WS_VISIBLE | WS_GROUP | WS_TABSTOP;  // arrow keys in the option buttons stop before it
    plan.place = Rect{at.x, at.y, size.width, size.height};
    plan.parent = parent;
    plan.childId = id;
    return Window::Create(plan);
}

void NoteColorSelector::SetScale(const Scale& scale) {
    scale_ = scale;
    strip_.SetScale(scale_);
    const Size size = strip_.StripSize();
    SetWindowPos(Handle(), nullptr, 0, 0, size.width, size.height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    Invalidate();
}

LRESULT NoteColorSelector::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_WINDOWPOSCHANGING:
            return OnSizing(*reinterpret_cast<WINDOWPOS*>(lParam)), 0;
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_XBUTTONDOWN:
            return OnPress(), 0;
        case WM_LBUTTONUP:
        case WM_RBUTTONUP:
        case WM_MBUTTONUP:
        case WM_XBUTTONUP:
            return OnRelease(PointFromLParam(lParam), wParam), 0;
        case WM_KEYDOWN:
            return OnKey(wParam, (HIWORD(lParam) & KF_REPEAT) != 0), 0;
        case WM_GETDLGCODE:
            return WantedKeys(reinterpret_cast<const MSG*>(lParam));
        case WM_GETOBJECT:
            return accessible_.Answer(Handle(), wParam, lParam);
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            return OnFocusChanged(message == WM_SETFOCUS), 0;
        case WM_UPDATEUISTATE:
            Invalidate();
            return Default(message, wParam, lParam);
        default:
            return Default(message, wParam, lParam);
    }
}

void NoteColorSelector::OnSizing(WINDOWPOS& place) const {
    const Size size = strip_.StripSize();
    place.cx = size.width;
    place.cy = size.height;
}

void NoteColorSelector::OnPress() {
    SetFocus(Handle());
    byMouse_ = true;
    Invalidate();
    SetCapture(Handle());  // the strip also receives a release outside, which picks nothing
}

void NoteColorSelector::OnRelease(Point at, WPARAM keys) {
    if ((keys & kAnyButton) == 0 && GetCapture() == Handle()) ReleaseCapture();
    const std::optional<std::size_t> swatch = strip_.SwatchAt(at);
    if (!swatch) return;
    MoveMark(*swatch);
    Pick(*swatch);
}

void NoteColorSelector::OnKey(WPARAM key, bool repeated) {
    byMouse_ = false;
    ShowKeyboardCues();
    Invalidate();
    if (const std::optional<StripKey> move = StripKeyOf(key)) {
        SwatchStrip moved = strip_;
        moved.Press(*move);
        return MoveMark(moved.Mark());
    }
    if ((key == VK_SPACE || key == VK_RETURN) && !repeated) Pick(strip_.Mark());
}

void NoteColorSelector::OnFocusChanged(bool focused) {
    byMouse_ = false;
    Invalidate();
    if (focused) MoveMark(strip_.Mark());
}

void NoteColorSelector::MoveMark(std::size_t index) {
    strip_.SetMark(index);
    Invalidate();
    if (GetFocus() != Handle()) return;
    NotifyWinEvent(EVENT_OBJECT_FOCUS, Handle(), OBJID_CLIENT, PartOf(index));
}

void NoteColorSelector::Pick(std::size_t index) const {
    lifetime_.RaiseLast(onColorPicked, kSwatches[index]);
}

AccessiblePart NoteColorSelector::Describe(int part) const {
    AccessiblePart described;
    if (part == CHILDID_SELF) {
        described.role = ROLE_SYSTEM_GROUPING;
        return described;
    }
    const auto swatch = static_cast<std::size_t>(part - 1);
    described.name = SwatchName(swatch);
    described.role = ROLE_SYSTEM_PUSHBUTTON;  // a swatch performs an action and does not stay selected
    described.action = u"Press";
    described.place = strip_.PlaceOf(swatch);
    return described;
}

void NoteColorSelector::Activate(int part) {
    const auto swatch = static_cast<std::size_t>(part - 1);
    if (part == CHILDID_SELF || swatch >= kSwatches.size()) return;
    MoveMark(swatch);
    Pick(swatch);
}

void NoteColorSelector::OnPaint() {
    const PaintScope paint(Handle());
    const RECT client = ToWin32(ClientRect());
    const BufferedPaint buffer(paint.Dc(), client);
    // The form supplies the background beside the swatches.
    const LRESULT ground = SendMessageW(GetParent(Handle()), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(buffer.Dc()),
                                        reinterpret_cast<LPARAM>(Handle()));
    FillRect(buffer.Dc(), &client, reinterpret_cast<HBRUSH>(ground));
    GdiCanvas canvas(buffer.Dc(), scale_);
    strip_.Paint(canvas, ShowsFocus() && !byMouse_);
}

}  // namespace quillo

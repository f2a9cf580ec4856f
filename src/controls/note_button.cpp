#include "controls/note_button.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "platform/gdi_canvas.h"
#include "platform/gdi_scope.h"

namespace quillo {
namespace {

constexpr wchar_t kClassName[] = L"QuilloNoteButton";

MouseButton HeldButton(WPARAM keys) {
    if ((keys & MK_LBUTTON) != 0) return MouseButton::Left;
    if ((keys & (MK_RBUTTON | MK_MBUTTON | MK_XBUTTON1 | MK_XBUTTON2)) != 0) return MouseButton::Other;
    return MouseButton::None;
}

}  // namespace

bool NoteButton::Create(HWND parent, int id, const wchar_t* name, const Rect& place) {
    WindowPlan plan;
    plan.className = kClassName;
    plan.title = name;
    plan.style = WS_CHILD | WS_VISIBLE;
    plan.place = place;
    plan.parent = parent;
    plan.childId = id;
    return Window::Create(plan);
}

void NoteButton::SetPicture(ButtonPicture picture) {
    if (picture == picture_) return;
    picture_ = picture;
    Invalidate();
    if (Handle() != nullptr) NotifyWinEvent(EVENT_OBJECT_STATECHANGE, Handle(), OBJID_CLIENT, CHILDID_SELF);
}

void NoteButton::SetEnabled(bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    EnableWindow(Handle(), enabled ? TRUE : FALSE);
    Answer(state_.CaptureLost());
    Invalidate();
}

void NoteButton::HoldDown(bool down) {
    heldDown_ = down;
    // The menu has received the release of the press that opened it; without this the press would never end.
    if (!down) Answer(state_.CaptureLost());
    Invalidate();
}

void NoteButton::SetTint(const ButtonTint& tint, const Scale& scale) {
    if (tint == tint_ && scale.Dpi() == scale_.Dpi()) return;
    tint_ = tint;
    scale_ = scale;
    Invalidate();
}

LRESULT NoteButton::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (onMouse && message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) onMouse(message, lParam);
    switch (message) {
        case WM_MOUSEMOVE:
            return OnMouseMove(PointFromLParam(lParam), wParam), 0;
        case WM_MOUSELEAVE:
            return OnMouseLeave(), 0;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            return OnMouseDown(PointFromLParam(lParam), MouseButton::Left), 0;
        case WM_RBUTTONDOWN:
            return OnMouseDown(PointFromLParam(lParam), MouseButton::Other), 0;
        case WM_LBUTTONUP:
            return OnMouseUp(PointFromLParam(lParam), MouseButton::Left, wParam), 0;
        case WM_RBUTTONUP:
            return OnMouseUp(PointFromLParam(lParam), MouseButton::Other, wParam), 0;
        case WM_CAPTURECHANGED:
            return OnCaptureChanged(reinterpret_cast<HWND>(lParam)), 0;
        case WM_SIZE:
            return state_.Resize(Size{LOWORD(lParam), HIWORD(lParam)}), 0;
        case BM_CLICK:
            return OnClickMessage(), 0;
        case WM_GETOBJECT:
            return accessible_.Answer(Handle(), wParam, lParam);
        case WM_NCPAINT:
            return 0;  // there is no frame
        default:
            return Default(message, wParam, lParam);
    }
}

void NoteButton::OnMouseMove(Point at, WPARAM keys) {
    if (!enabled_) return;
    Answer(state_.MouseMove(at, HeldButton(keys)));
    // The pointer can move to another program's window unnoticed, even with the capture. A pressed button needs no
    // tracking: the system reports every move until the release.
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, Handle(), 0};
    if (state_.Face() == ButtonFace::Hot && HeldButton(keys) == MouseButton::None) TrackMouseEvent(&track);
}

void NoteButton::OnMouseLeave() {
    // The message can arrive late, when a press already follows the pointer outside.
    if (!state_.IsPressed()) OnMouseMove(Point{-1, -1}, 0);
}

void NoteButton::OnMouseDown(Point at, MouseButton button) {
    if (enabled_) Answer(state_.MouseDown(at, button));
}

void NoteButton::OnMouseUp(Point at, MouseButton button, WPARAM keys) {
    if (enabled_) Answer(state_.MouseUp(at, button, (keys & MK_SHIFT) != 0));
}

void NoteButton::OnCaptureChanged(HWND receiver) {
    if (receiver != Handle() && state_.HasCapture()) Answer(state_.CaptureLost());
}

void NoteButton::OnClickMessage() {
    if (!enabled_) return;
    ButtonResponse click;
    click.event = MenuMode() ? ButtonResponse::Event::MouseDown : ButtonResponse::Event::Click;
    Answer(click);
}

AccessiblePart NoteButton::Describe(int /*part*/) const {
    AccessiblePart button;
    const bool pin = picture_ == ButtonPicture::Pushpin || picture_ == ButtonPicture::PushpinPressed;
    button.role = pin ? ROLE_SYSTEM_CHECKBUTTON : ROLE_SYSTEM_PUSHBUTTON;
    if (MenuMode()) button.role = ROLE_SYSTEM_BUTTONMENU;
    if (MenuMode()) button.state = STATE_SYSTEM_HASPOPUP;
    if (picture_ == ButtonPicture::PushpinPressed) button.state = STATE_SYSTEM_CHECKED;
    button.action = MenuMode() ? u"Open" : u"Press";
    return button;
}

void NoteButton::Activate(int /*part*/) {
    // Posted: the screen reader must not wait until a menu or a question ends.
    PostMessageW(Handle(), BM_CLICK, 0, 0);
}

void NoteButton::Answer(const ButtonResponse& response) {
    if (response.repaint) Invalidate();
    if (response.capture == ButtonResponse::Capture::Take) SetCapture(Handle());
    if (response.capture == ButtonResponse::Capture::Release && GetCapture() == Handle()) ReleaseCapture();
    switch (response.event) {
        case ButtonResponse::Event::Click:
            return lifetime_.RaiseLast(onClick);
        case ButtonResponse::Event::ShiftClick:
            return lifetime_.RaiseLast(onShiftClick);
        case ButtonResponse::Event::MouseDown:
            return lifetime_.RaiseLast(onMouseDown);
        case ButtonResponse::Event::None:
            return;
    }
}

void NoteButton::OnPaint() {
    const PaintScope paint(Handle());
    const Rect face = ClientRect();
    const BufferedPaint buffer(paint.Dc(), ToWin32(face));
    const ButtonFace shown = heldDown_ ? ButtonFace::Pressed : enabled_ ? state_.Face() : ButtonFace::Normal;
    PaintFace(buffer.Dc(), face, shown);
}

void NoteButton::EndHover() {
    const HWND holder = GetCapture();
    std::array<wchar_t, std::size(kClassName) + 1> name{};
    if (holder == nullptr || GetClassNameW(holder, name.data(), static_cast<int>(name.size())) == 0) return;
    if (lstrcmpW(name.data(), kClassName) != 0 || GetKeyState(VK_LBUTTON) < 0) return;
    ReleaseCapture();
}

void NoteButton::PaintAtRest(HDC dc, const Rect& place) {
    PaintFace(dc, place, ButtonFace::Normal);
}

void NoteButton::PaintFace(HDC dc, const Rect& place, ButtonFace face) {
    GdiCanvas(dc, scale_).Fill(place, Mix(tint_.top, tint_.bottom, 50));
    const HBITMAP strip = images_.Strip(tint_, scale_);
    if (strip == nullptr) return;
    const int frame = scale_.Px(kButtonFrame);
    const MemoryDc source(CreateCompatibleDC(dc));
    const SelectScope selected(source.Get(), strip);
    BitBlt(dc, place.left, place.top, std::min(frame, place.width), std::min(frame, place.height), source.Get(),
           static_cast<int>(face) * frame, static_cast<int>(picture_) * frame, SRCCOPY);
}

}  // namespace quillo

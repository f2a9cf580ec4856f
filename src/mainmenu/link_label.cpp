#include "mainmenu/link_label.h"

#include "controls/system_colors.h"
#include "platform/gdi_canvas.h"
#include "platform/gdi_scope.h"
#include "platform/text_tools.h"
#include "platform/wide.h"

namespace quillo {
namespace {

/// From a screen reader: its call must not wait for the program that the link opens.
constexpr UINT kFollowMessage = WM_APP;

HCURSOR HandCursor() {
    constexpr WORD kHand = 32649;
    return LoadCursorW(nullptr, MAKEINTRESOURCEW(kHand));
}

}  // namespace

bool LinkLabel::Create(HWND parent, int id, std::u16string_view text, std::u16string address) {
    address_ = std::move(address);
    const std::u16string title(text);
    WindowPlan plan;
    plan.className = L"QuilloLink";
    plan.cursor = HandCursor();
    plan.title = Wide(title);
    plan.style = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
    plan.parent = parent;
    plan.childId = id;
    return Window::Create(plan);
}

LRESULT LinkLabel::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_LBUTTONDOWN:
            return OnPress(), 0;
        case WM_LBUTTONUP:
            return OnRelease(PointFromLParam(lParam)), 0;
        case WM_CAPTURECHANGED:
            pressed_ = false;
            return 0;
        case WM_KEYDOWN:
            return OnKey(wParam), 0;
        case kFollowMessage:
            return Follow(), 0;
        case WM_GETDLGCODE: {
            const auto* key = reinterpret_cast<const MSG*>(lParam);
            const bool enter = key != nullptr && key->message == WM_KEYDOWN && key->wParam == VK_RETURN;
            return enter ? DLGC_WANTMESSAGE : 0;  // Enter follows the link instead of pressing the default button
        }
        case WM_SETFONT:
            return TakeFont(reinterpret_cast<HFONT>(wParam)), 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(font_);
        case WM_GETOBJECT:
            return accessible_.Answer(Handle(), wParam, lParam);
        case WM_UPDATEUISTATE:
            Invalidate();
            return Default(message, wParam, lParam);
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
        case WM_SYSCOLORCHANGE:
            return Invalidate(), 0;
        default:
            return Default(message, wParam, lParam);
    }
}

void LinkLabel::OnPress() {
    SetFocus(Handle());
    SetCapture(Handle());
    pressed_ = true;
}

void LinkLabel::OnRelease(Point at) {
    const bool clicked = pressed_ && ClientRect().Contains(at);
    ReleaseCapture();
    if (clicked) Follow();
}

void LinkLabel::OnKey(WPARAM key) const {
    if (key == VK_RETURN || key == VK_SPACE) Follow();
}

void LinkLabel::Follow() const {
    lifetime_.RaiseLast(onFollow);
}

void LinkLabel::TakeFont(HFONT font) {
    font_ = font;
    LOGFONTW plain{};
    if (GetObjectW(font, sizeof plain, &plain) == 0) return;
    plain.lfUnderline = TRUE;
    underlined_.Reset(CreateFontIndirectW(&plain));
    Invalidate();
}

void LinkLabel::OnPaint() {
    const PaintScope paint(Handle());
    RECT client = ToWin32(ClientRect());
    const BufferedPaint buffer(paint.Dc(), client);
    HDC dc = buffer.Dc();
    const LRESULT ground = SendMessageW(GetParent(Handle()), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc),
                                        reinterpret_cast<LPARAM>(Handle()));
    FillRect(dc, &client, reinterpret_cast<HBRUSH>(ground));
    const SelectScope selected(dc, underlined_.Get());
    SetBkMode(dc, TRANSPARENT);
    // Some themes have a color for links that is meant for another ground.
    const ColorWord color = ReadableOn(Resolve(kSystemWindow), Resolve(kSystemHotLight), Resolve(kSystemWindowText));
    SetTextColor(dc, ToColorRef(color));
    const std::u16string text = WindowText(Handle());
    DrawTextW(dc, WideData(text), static_cast<int>(text.size()), &client, DT_SINGLELINE | DT_NOPREFIX);
    if (ShowsFocus()) DrawFocusRect(dc, &client);
}

AccessiblePart LinkLabel::Describe(int /*part*/) const {
    AccessiblePart link;
    link.role = ROLE_SYSTEM_LINK;
    link.state = STATE_SYSTEM_LINKED;
    link.value = address_;
    link.action = u"Jump";
    return link;
}

void LinkLabel::Activate(int /*part*/) {
    PostMessageW(Handle(), kFollowMessage, 0, 0);
}

}  // namespace quillo

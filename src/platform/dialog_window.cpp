#include "platform/dialog_window.h"

#include <utility>

#include "platform/dpi.h"
#include "platform/gdi_scope.h"
#include "platform/message_loop.h"
#include "platform/monitors.h"
#include "platform/text_tools.h"
#include "platform/wide.h"
#include "util/placement.h"

namespace quillo {
namespace {

constexpr int kRuleHeight = 2;  // pixels at 96 dpi

Rect PlaceOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return FromWin32(place);
}

/// Sends a message to a child; `from` is the MSG.
BOOL CALLBACK PassOn(HWND child, LPARAM from) {
    const auto& what = *reinterpret_cast<const MSG*>(from);
    SendMessageW(child, what.message, what.wParam, what.lParam);
    return TRUE;
}

}  // namespace

bool DialogWindow::CreateHidden(const DialogPlan& dialog) {
    const std::u16string caption(dialog.caption);
    WindowPlan plan;
    plan.className = dialog.className;
    plan.extraBytes = DLGWINDOWEXTRA;  // the system's dialog procedure stores focus and default button there
    plan.title = Wide(caption);
    plan.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
    plan.exStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;
    plan.parent = dialog.owner;
    // Created where it will open, so that the system gives it that monitor's resolution.
    const Rect area = WorkAreaOf(dialog.owner);
    plan.place = Rect{area.left, area.top, 0, 0};
    return Window::Create(plan);
}

LRESULT DialogWindow::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            return OnCreate(), 0;
        case WM_DESTROY:
            return OnDestroy(), 0;
        case WM_CLOSE:
            return OnClose(), 0;
        case WM_COMMAND:
            if (LOWORD(wParam) == IDCANCEL) return OnClose(), 0;
            return OnCommand(LOWORD(wParam), HIWORD(wParam)), 0;
        case WM_ERASEBKGND:
            return PaintGround(reinterpret_cast<HDC>(wParam)), 1;
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN:
            return reinterpret_cast<LRESULT>(
                ColorControl(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam)));
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
        case WM_SETTINGCHANGE:
            return PassColorsOn(message, wParam, lParam), 0;
        case WM_GETOBJECT:
            return accessible_.Answer(Handle(), wParam, lParam);
        case WM_DPICHANGED:
            return OnDpiChanged(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam)), 0;
        default:
            return DefDlgProcW(Handle(), message, wParam, lParam);
    }
}

AccessiblePart DialogWindow::Describe(int /*part*/) const {
    AccessiblePart dialog;
    dialog.role = ROLE_SYSTEM_DIALOG;
    return dialog;
}

void DialogWindow::OnCreate() {
    monitor_ = WindowScale(Handle());
    scale_ = monitor_;
    icons_.GiveTo(Handle(), monitor_);  // for the task bar and the list of Alt+Tab
    CreateControls();
    LayOutOnMonitor();
    SendMessageW(Handle(), DM_SETDEFID, IDOK, 0);
    // Focus marks and underlined letters depend on what the user used last, the keyboard or the mouse.
    SendMessageW(Handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_INITIALIZE, 0), 0);
    loop_.AddDialog(Handle(), *this);
}

void DialogWindow::OnDestroy() {
    loop_.RemoveDialog(Handle());
    toolTips_.Destroy();
    OnGone();
}

void DialogWindow::OnDpiChanged(int dpi, const RECT& suggested) {
    monitor_ = Scale(dpi);
    icons_.GiveTo(Handle(), monitor_);
    SetWindowPos(Handle(), nullptr, suggested.left, suggested.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    LayOutOnMonitor();
    RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void DialogWindow::PassColorsOn(UINT message, WPARAM wParam, LPARAM lParam) {
    const MSG passed{nullptr, message, wParam, lParam, 0, {}};
    EnumChildWindows(Handle(), &PassOn, reinterpret_cast<LPARAM>(&passed));
    OnColorsChanged();
    RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void DialogWindow::ApplyFonts() {
    DialogFonts fonts = MakeDialogFonts(scale_);
    std::swap(fonts_, fonts);
    // The old fonts are deleted at the end of this scope, when no control uses them any more.
    for (HWND child = GetWindow(Handle(), GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(FontOf(GetDlgCtrlID(child))), FALSE);
    }
    toolTips_.SetScale(scale_);
    OnFontsChanged();
}

void DialogWindow::LayOutOnMonitor() {
    constexpr int kSmallestDpi = 48;
    scale_ = monitor_;
    for (;;) {
        ApplyFonts();
        const WindowDcScope screen(nullptr);
        LayOut(screen.Dc());
        const Rect area = WorkAreaOf(Handle());
        const Rect window = WindowRect();
        if ((window.width <= area.width && window.height <= area.height) || scale_.Dpi() <= kSmallestDpi) return;
        scale_ = Scale(FittingDpi(scale_.Dpi(), Size{window.width, window.height}, Size{area.width, area.height}));
    }
}

void DialogWindow::AddToolTip(HWND control, std::u16string_view text) {
    if (!toolTips_.IsCreated() && !toolTips_.CreateUnowned(Handle(), scale_)) return;
    toolTips_.AddText(control, std::u16string(text));
}

// Layout.

Rect DialogWindow::WindowRect() const {
    return PlaceOf(Handle());
}

int DialogWindow::WidthOfButton(HDC dc, int id) const {
    return ButtonWidth(dc, FontOf(id), WindowText(Item(id)), scale_);
}

int DialogWindow::FootWidth(HDC dc, std::initializer_list<int> buttons) const {
    int width = -Px(kDialogGap);
    for (const int id : buttons) width += Px(kDialogGap) + WidthOfButton(dc, id);
    return width;
}

int DialogWindow::LayOutFoot(HDC dc, int width, int top, int ruleId, std::initializer_list<int> buttons) {
    const int margin = Px(kDialogMargin);
    const int height = Px(kDialogButtonHeight);
    clientWidth_ = width + 2 * margin;
    footTop_ = top;
    footBottom_ = top + margin + height + margin;
    MoveWindow(Item(ruleId), 0, top, clientWidth_, kRuleHeight, FALSE);
    const int first = margin + width - FootWidth(dc, buttons);
    int left = first;
    for (const int id : buttons) {
        const int buttonWidth = WidthOfButton(dc, id);
        MoveWindow(Item(id), left, top + margin, buttonWidth, height, FALSE);
        left += buttonWidth + Px(kDialogGap);
    }
    return first;
}

void DialogWindow::FitClient(int height) const {
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(Handle(), GWL_STYLE));
    const auto exStyle = static_cast<DWORD>(GetWindowLongPtrW(Handle(), GWL_EXSTYLE));
    const Size size = WindowSizeFor(Size{clientWidth_, height}, style, exStyle, monitor_);
    Rect window = WindowRect();
    window.width = size.width;
    window.height = size.height;
    const Rect place = KeepInside(window, WorkAreaOf(Handle()));
    SetWindowPos(Handle(), nullptr, place.left, place.top, place.width, place.height, SWP_NOZORDER | SWP_NOACTIVATE);
}

// Appearance.

void DialogWindow::PaintGround(HDC dc) const {
    const Rect client = ClientRect();
    const RECT contents{0, 0, client.width, footTop_};
    const RECT foot{0, footTop_, client.width, client.height};
    FillRect(dc, &contents, GetSysColorBrush(COLOR_WINDOW));
    FillRect(dc, &foot, GetSysColorBrush(COLOR_3DFACE));
}

HBRUSH DialogWindow::ColorControl(HDC dc, HWND control) const {
    POINT place{PlaceOf(control).left, PlaceOf(control).top};
    ScreenToClient(Handle(), &place);
    const bool inFoot = place.y >= footTop_;
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(inFoot ? COLOR_BTNTEXT : COLOR_WINDOWTEXT));
    return GetSysColorBrush(inFoot ? COLOR_3DFACE : COLOR_WINDOW);
}

}  // namespace quillo

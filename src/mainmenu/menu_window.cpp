#include "mainmenu/menu_window.h"

#include <algorithm>

#include "app/base/program_shortcut.h"
#include "app/base/settings.h"
#include "app/open_notes.h"
#include "mainmenu/menu_drop_target.h"
#include "mainmenu/menu_shortcuts.h"
#include "mainmenu/menu_slide.h"
#include "platform/animation.h"
#include "platform/dpi.h"
#include "platform/gdi_scope.h"
#include "platform/monitors.h"
#include "platform/window_effects.h"
#include "ports/user_notice.h"
#include "util/ignore.h"

namespace quillo {
namespace {

constexpr BYTE kOpaque = 255;

/// The parts for screen readers are the items in their order, from 1.
MenuItem ItemOfPart(int part) {
    return MenuOrder().at(static_cast<std::size_t>(part) - 1);
}

/// The time on a clock with a resolution much finer than a frame.
long long FineMilliseconds() {
    LARGE_INTEGER count{};
    LARGE_INTEGER perSecond{};
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&perSecond);
    return count.QuadPart * 1000 / perSecond.QuadPart;
}

}  // namespace

bool MenuWindow::Create(bool translucent) {
    translucent_ = translucent;
    WindowPlan plan;
    plan.className = L"QuilloMenu";
    plan.title = L"Quillo menu";  // screen readers speak it
    plan.style = WS_POPUP;
    plan.exStyle = WS_EX_TOOLWINDOW | WS_EX_TOPMOST | (translucent ? DWORD{WS_EX_LAYERED} : 0);
    if (!Window::Create(plan)) return false;
    UpdateDropShadow(Handle());
    return true;
}

LRESULT MenuWindow::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (MonitorCache::IsChange(message)) services_.monitors.Forget();
    toolTips_.Relay(Handle(), message, lParam);
    const auto at = [&] { return ToDesign(PointFromLParam(lParam)); };
    switch (message) {
        case WM_DESTROY:
            return OnDestroy(), 0;
        case WM_CLOSE:
            return Ignore(OnQuit(), "if the program continues, so does the menu"), 0;
        case WM_MOUSEMOVE:
            return OnMouseMove(at()), 0;
        case WM_MOUSELEAVE:
            return Follow(state_.PointerLeft()), 0;
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_XBUTTONDOWN:
            return Follow(state_.ButtonPressed(at(), Contents())), 0;
        case WM_LBUTTONUP:
        case WM_MBUTTONUP:
            return Follow(state_.ButtonReleased(at(), false, Contents())), 0;
        case WM_RBUTTONUP:
            return Follow(state_.ButtonReleased(at(), true, Contents())), 0;
        case WM_XBUTTONUP:
            return Follow(state_.ButtonReleased(at(), false, Contents())), TRUE;
        case kChooseMessage:
            return Choose(ChoiceOf(static_cast<MenuItem>(wParam), false)), 0;
        case kIconsFoundMessage:
            return OnIconsFound(), 0;
        case WM_GETOBJECT:
            return accessible_.Answer(Handle(), wParam, lParam);
        case WM_KEYDOWN:
            return OnKeyDown(static_cast<int>(wParam)), 0;
        case WM_NOTIFY:
            return OnNotify(*reinterpret_cast<NMHDR*>(lParam));
        case WM_DPICHANGED:
            return OnScaleChanged(), 0;
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
        case WM_THEMECHANGED:
            return RedrawPicture(), 0;
        default:
            return Default(message, wParam, lParam);
    }
}

void MenuWindow::OnDestroy() {
    drops_.Release();
    toolTips_.DropHandle();
}

MenuContents MenuWindow::Contents() const {
    return MenuContents{services_.notes.Count() > 0, FilledSlotsOf(services_.settings)};
}

MenuPoint MenuWindow::ToDesign(Point at) const {
    const double factor = static_cast<double>(kDesignDpi) / scale_.Dpi();
    return MenuPoint{at.x * factor, at.y * factor};
}

MenuPoint MenuWindow::ScreenToDesign(Point at) const {
    return ToDesign(Point{at.x - place_.left, at.y - place_.top});
}

RECT MenuWindow::DevicePlace(MenuItem item) const {
    return ScaledArea(HighlightRect(item), scale_);
}

void MenuWindow::RepaintItem(MenuItem item) {
    const RECT place = DevicePlace(item);
    InvalidateRect(Handle(), &place, FALSE);
}

// Hovering and choosing.

void MenuWindow::Follow(const MenuResponse& response) {
    if (response.capture == MenuResponse::Capture::Take) SetCapture(Handle());
    if (response.capture == MenuResponse::Capture::Release && GetCapture() == Handle()) ReleaseCapture();
    if (shown_ != Contents()) Invalidate();
    if (response.left) {
        RepaintItem(*response.left);
        RepaintItem(state_.Hovered());
        if (state_.Hovered() != MenuItem::None) {
            NotifyWinEvent(EVENT_OBJECT_FOCUS, Handle(), OBJID_CLIENT, FocusedPart());
        }
    }
    if (response.choice) Choose(*response.choice);  // last, because it may end the menu
}

void MenuWindow::OnMouseMove(MenuPoint at) {
    Follow(state_.PointerMoved(at, Contents()));
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, Handle(), 0};
    TrackMouseEvent(&track);
}

void MenuWindow::OnKeyDown(int virtualKey) {
    const auto move = [this](MenuMove where) { Follow(state_.Move(where, Contents())); };
    switch (virtualKey) {
        case VK_ESCAPE:
            return SlideForm(false);
        case VK_RETURN:
        case VK_SPACE:
            return Follow(state_.ChooseHovered());
        case VK_LEFT:
            return move(MenuMove::Left);
        case VK_RIGHT:
            return move(MenuMove::Right);
        case VK_UP:
            return move(MenuMove::Up);
        case VK_DOWN:
            return move(MenuMove::Down);
        case VK_TAB:
            return move(GetKeyState(VK_SHIFT) < 0 ? MenuMove::Previous : MenuMove::Next);
        default:
            return;
    }
}

void MenuWindow::Choose(const MenuChoice& choice) {
    if (choice.quits && OnQuit()) return;
    if (choice.closesFirst) SlideForm(false);
    const bool acts = choice.item != MenuItem::None && choice.item != MenuItem::Close;
    if (acts && !OnItem(choice.item)) return;
    SlideForm(false);
}

// For screen readers.

AccessiblePart MenuWindow::Describe(int part) const {
    AccessiblePart described;
    described.role = part == CHILDID_SELF ? ROLE_SYSTEM_MENUPOPUP : ROLE_SYSTEM_MENUITEM;
    if (part == CHILDID_SELF) return described;
    const MenuItem item = ItemOfPart(part);
    described.name = MenuItemName(item, services_.settings.shortcuts);
    described.description = MenuItemTip(item, services_.settings.shortcuts);
    if (IsEnabled(item, Contents())) {
        described.state = STATE_SYSTEM_FOCUSABLE | (item == state_.Hovered() ? STATE_SYSTEM_HOTTRACKED : 0);
        described.action = u"Execute";
    } else {
        described.state = STATE_SYSTEM_UNAVAILABLE;
    }
    described.place = FromWin32(DevicePlace(item));
    return described;
}

int MenuWindow::PartCount() const {
    return static_cast<int>(MenuOrder().size());
}

int MenuWindow::FocusedPart() const {
    const auto& order = MenuOrder();
    const auto found = std::find(order.begin(), order.end(), state_.Hovered());
    return found != order.end() ? static_cast<int>(found - order.begin()) + 1 : CHILDID_SELF;
}

void MenuWindow::Activate(int part) {
    const MenuItem item = ItemOfPart(part);
    if (IsEnabled(item, Contents())) PostMessageW(Handle(), kChooseMessage, static_cast<WPARAM>(item), 0);
}

// Sliding in and out.

void MenuWindow::SlideForm(bool show) {
    if (Handle() == nullptr || show == IsShowing()) return;
    services_.notice.Play(show ? SystemSound::RestoreUp : SystemSound::RestoreDown);
    if (show) {
        state_.Open();
        OnOpen();
        TakeDrops();
    }
    Place();
    if (show) {
        LookUpIcons();
        CreateToolTips();
    }
    if (IsSlideAnimated(services_.settings.animation, SystemAnimates(), IsRemoteSession())) Animate(show);
    if (show) {
        ShowFrame(SlideFrame{kOpaque, place_.height});
        SetForegroundWindow(Handle());
        SetFocus(Handle());
    } else {
        toolTips_.Destroy();
        ShowWindow(Handle(), SW_HIDE);
    }
}

void MenuWindow::CreateToolTips() {
    toolTips_.Destroy();  // the scale or the shortcuts may have changed
    if (!toolTips_.Create(Handle(), scale_)) return;
    for (const MenuItem item : MenuOrder()) {
        if (!MenuItemTip(item, services_.settings.shortcuts).empty()) {
            toolTips_.AddArea(static_cast<UINT_PTR>(item), DevicePlace(item));
        }
    }
}

LRESULT MenuWindow::OnNotify(NMHDR& notice) {
    if (notice.code == TTN_GETDISPINFOW) {
        toolTips_.Answer(reinterpret_cast<NMTTDISPINFOW&>(notice),
                         MenuItemTip(static_cast<MenuItem>(notice.idFrom), services_.settings.shortcuts));
    }
    return 0;
}

void MenuWindow::Place() {
    const std::vector<Monitor>& monitors = services_.monitors.All();
    if (monitors.empty()) return;
    const Rect area = monitors.front().workArea;
    scale_ = services_.monitors.ScaleAt(Point{area.Right() - 1, area.Bottom() - 1});
    const Size size{scale_.Px(kMenuSize.width), scale_.Px(kMenuSize.height)};
    place_ = Rect{area.Right() - size.width, area.Bottom() - size.height, size.width, size.height};
    SetWindowPos(Handle(), HWND_TOPMOST, place_.left, place_.top, place_.width, place_.height, SWP_NOACTIVATE);
}

void MenuWindow::Animate(bool show) {
    const FineClockScope fine;
    for (const SlideFrame& frame : SlideFrames(show, place_.height)) {
        const long long begun = FineMilliseconds();
        ShowFrame(frame);
        const long long elapsed = FineMilliseconds() - begun;
        const int pause = FramePause(static_cast<int>(std::min<long long>(elapsed, kFrameMilliseconds)));
        if (pause > 0) Sleep(static_cast<DWORD>(pause));
    }
}

void MenuWindow::ShowFrame(const SlideFrame& frame) {
    if (translucent_) {
        SetLayeredWindowAttributes(Handle(), 0, static_cast<BYTE>(frame.opacity), LWA_ALPHA);
    } else {
        SetWindowPos(Handle(), nullptr, place_.left, place_.Bottom() - frame.rise, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    if (!IsShowing()) ShowWindow(Handle(), SW_SHOWNOACTIVATE);
    UpdateWindow(Handle());
}

void MenuWindow::OnScaleChanged() {
    if (!IsShowing()) return;
    Place();
    LookUpIcons();
    CreateToolTips();
    Invalidate();
}

void MenuWindow::OnPaint() {
    if (!picture_.IsDrawn(scale_)) picture_.Draw(scale_, services_.settings, shellIconSize_, icons_);
    const PaintScope paint(Handle());
    const BufferedPaint buffer(paint.Dc(), paint.Area());
    shown_ = Contents();
    picture_.Paint(buffer.Dc(), state_.Hovered(), shown_);
}

// Program shortcuts.

void MenuWindow::RedrawPicture() {
    icons_.DropRequests();
    RedrawShortcuts();
}

void MenuWindow::RedrawShortcuts() {
    picture_.DropPicture();
    if (IsShowing()) LookUpIcons();
    Invalidate();
}

void MenuWindow::LookUpIcons() {
    icons_.LookUp(Handle(), kIconsFoundMessage, services_.settings.shortcuts, scale_.Px(shellIconSize_));
}

void MenuWindow::OnIconsFound() {
    if (!icons_.Collect()) return;
    picture_.DropPicture();
    Invalidate();
}

void MenuWindow::TakeDrops() {
    if (drops_.IsRegistered()) return;
    auto* const menuTarget = new MenuDropTarget(
        Handle(), [this](Point at, int files) { return OffersCopy(ScreenToDesign(at), files); },
        [this](Point at, const std::vector<std::u16string>& files) { return TakeDropped(at, files); });
    menuTarget->onDragOver = [this](bool over) { state_.SetDragOver(over); };
    DropTargetPtr target(menuTarget);
    Ignore(drops_.Register(services_.ole, std::move(target)), "the next time that the menu is shown tries again");
}

bool MenuWindow::TakeDropped(Point at, const std::vector<std::u16string>& files) {
    const MenuPoint point = ScreenToDesign(at);
    if (!TakesDrop(point, static_cast<int>(files.size())) || !ShortcutFits(files.front())) return false;
    if (const auto slot = SlotOfDroppedFiles(point, files)) OnShortcutDropped(*slot, files.front());
    return true;
}

}  // namespace quillo

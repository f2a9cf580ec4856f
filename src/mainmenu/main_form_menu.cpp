#include <algorithm>
#include <utility>

#include "app/open_notes.h"
#include "app/program.h"
#include "mainmenu/main_form.h"
#include "mainmenu/menu_shortcuts.h"
#include "mainmenu/menu_slide.h"
#include "platform/animation.h"
#include "platform/dpi.h"
#include "platform/gdi_scope.h"
#include "platform/monitors.h"

// The main form as the menu that slides up: hovering, choosing, screen readers, sliding in and out.

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

MenuState MainForm::State() const {
    return MenuState{tools_.program.openNotes.Count() > 0, FilledSlotsOf(tools_.program.settings)};
}

MenuPoint MainForm::ToDesign(Point at) const {
    const double factor = static_cast<double>(kDesignDpi) / scale_.Dpi();
    return MenuPoint{at.x * factor, at.y * factor};
}

MenuPoint MainForm::ScreenToDesign(Point at) const {
    return ToDesign(Point{at.x - place_.left, at.y - place_.top});
}

void MainForm::Hover(MenuItem item) {
    if (shown_ != State()) InvalidateRect(Handle(), nullptr, FALSE);
    if (item == hovered_) return;
    RepaintItem(hovered_);
    hovered_ = item;
    RepaintItem(hovered_);
    if (item != MenuItem::None) NotifyWinEvent(EVENT_OBJECT_FOCUS, Handle(), OBJID_CLIENT, FocusedPart());
}

RECT MainForm::DevicePlace(MenuItem item) const {
    const Rect area = HighlightRect(item);
    return RECT{scale_.Px(area.left), scale_.Px(area.top), scale_.Px(area.Right()), scale_.Px(area.Bottom())};
}

void MainForm::RepaintItem(MenuItem item) {
    const RECT place = DevicePlace(item);
    InvalidateRect(Handle(), &place, FALSE);
}

void MainForm::OnMouseMove(Point at) {
    // The system repeats the last move when a window appears or disappears; that must not undo a keyboard move.
    if (at == pointer_) return;
    pointer_ = at;
    byKeyboard_ = false;
    Hover(MenuItemAt(ToDesign(at), State()));
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, Handle(), 0};
    TrackMouseEvent(&track);
}

void MainForm::OnMouseLeave() {
    pointer_ = Point{-1, -1};
    if (!byKeyboard_) Hover(MenuItem::None);
}

void MainForm::OnButtonDown(Point at) {
    dropped_ = false;
    SetCapture(Handle());
    Hover(MenuItemAt(ToDesign(at), State()));
}

void MainForm::OnButtonUp(Point at, bool right) {
    // The release that ends a drag belongs to the drag, whichever window the system sends it to.
    if (dragOver_ || std::exchange(dropped_, false)) return;
    // Any other release counts, also that of a button pressed elsewhere.
    if (GetCapture() == Handle()) ReleaseCapture();
    Hover(MenuItemAt(ToDesign(at), State()));
    Choose(hovered_, right);
}

void MainForm::OnKeyDown(int virtualKey) {
    const auto go = [this](MenuMove move) {
        byKeyboard_ = true;
        Hover(MoveInMenu(hovered_, move, State()));
    };
    switch (virtualKey) {
        case VK_ESCAPE:
            return SlideForm(false);
        case VK_RETURN:
        case VK_SPACE:
            if (hovered_ != MenuItem::None) Choose(hovered_, false);
            return;
        case VK_LEFT:
            return go(MenuMove::Left);
        case VK_RIGHT:
            return go(MenuMove::Right);
        case VK_UP:
            return go(MenuMove::Up);
        case VK_DOWN:
            return go(MenuMove::Down);
        case VK_TAB:
            return go(GetKeyState(VK_SHIFT) < 0 ? MenuMove::Previous : MenuMove::Next);
        default:
            return;
    }
}

void MainForm::Choose(MenuItem item, bool rightButton) {
    if (rightButton && (item == MenuItem::None || item == MenuItem::Close)) {
        if (onQuit) onQuit();
        return;
    }
    // These stay until the user closes them, so the menu must not stay open beside them.
    if (item == MenuItem::Options || item == MenuItem::About) SlideForm(false);
    Perform(item);
    SlideForm(false);
}

void MainForm::Perform(MenuItem item) {
    const auto raise = [](const std::function<void()>& handler) {
        if (handler) handler();
    };
    switch (item) {
        case MenuItem::None:
        case MenuItem::Close:
            return;
        case MenuItem::NewNote:
            return raise(onNewNote);
        case MenuItem::ShowAllNotes:
            return SurfaceAllNotes(tools_.program.openNotes);
        case MenuItem::Options:
            return raise(onOptions);
        case MenuItem::About:
            return raise(onAbout);
        default:
            raise(onGoingAway);  // a dead network path can block the shell for long
            RunShortcut(tools_.program.settings.shortcuts.at(static_cast<std::size_t>(ShortcutNumber(item)) - 1),
                        tools_.shell);
    }
}

// For screen readers.

AccessiblePart MainForm::Describe(int part) const {
    AccessiblePart described;
    described.role = part == CHILDID_SELF ? ROLE_SYSTEM_MENUPOPUP : ROLE_SYSTEM_MENUITEM;
    if (part == CHILDID_SELF) return described;
    const MenuItem item = ItemOfPart(part);
    described.name = MenuItemName(item, tools_.program.settings.shortcuts);
    described.description = MenuItemTip(item, tools_.program.settings.shortcuts);
    if (IsEnabled(item, State())) {
        described.state = STATE_SYSTEM_FOCUSABLE | (item == hovered_ ? STATE_SYSTEM_HOTTRACKED : 0);
        described.action = u"Execute";
    } else {
        described.state = STATE_SYSTEM_UNAVAILABLE;
    }
    described.place = FromWin32(DevicePlace(item));
    return described;
}

int MainForm::PartCount() const {
    return static_cast<int>(MenuOrder().size());
}

int MainForm::FocusedPart() const {
    const auto& order = MenuOrder();
    const auto found = std::find(order.begin(), order.end(), hovered_);
    return found != order.end() ? static_cast<int>(found - order.begin()) + 1 : CHILDID_SELF;
}

void MainForm::Activate(int part) {
    const MenuItem item = ItemOfPart(part);
    if (IsEnabled(item, State())) PostMessageW(Handle(), kChooseMessage, static_cast<WPARAM>(item), 0);
}

// Sliding in and out.

void MainForm::SlideForm(bool show) {
    if (Handle() == nullptr || show == IsShowing()) return;
    tools_.notice.Play(show ? SystemSound::RestoreUp : SystemSound::RestoreDown);
    if (show) {
        hovered_ = MenuItem::None;
        ShowTrayIcon();
        TakeDrops();
    }
    Place();
    if (show) {
        LookUpIcons();
        CreateToolTips();
    }
    if (IsSlideAnimated(tools_.program.settings.disableAnimation, SystemAnimates(), IsRemoteSession())) Animate(show);
    if (show) {
        ShowFrame(SlideFrame{kOpaque, place_.height});
        SetForegroundWindow(Handle());
        SetFocus(Handle());
    } else {
        toolTips_.Destroy();
        ShowWindow(Handle(), SW_HIDE);
    }
}

void MainForm::CreateToolTips() {
    toolTips_.Destroy();  // the scale and the shortcuts may have changed
    if (!toolTips_.Create(Handle(), scale_)) return;
    for (const MenuItem item : MenuOrder()) {
        if (!MenuItemTip(item, tools_.program.settings.shortcuts).empty()) {
            toolTips_.AddArea(static_cast<UINT_PTR>(item), DevicePlace(item));
        }
    }
}

LRESULT MainForm::OnNotify(NMHDR& notice) {
    if (notice.code == TTN_GETDISPINFOW) {
        toolTips_.Answer(reinterpret_cast<NMTTDISPINFOW&>(notice),
                         MenuItemTip(static_cast<MenuItem>(notice.idFrom), tools_.program.settings.shortcuts));
    }
    return 0;
}

void MainForm::Place() {
    const std::vector<Monitor>& monitors = tools_.monitors.All();
    if (monitors.empty()) return;
    const Rect area = monitors.front().workArea;
    scale_ = tools_.monitors.ScaleAt(Point{area.Right() - 1, area.Bottom() - 1});
    const Size size{scale_.Px(kMenuSize.width), scale_.Px(kMenuSize.height)};
    place_ = Rect{area.Right() - size.width, area.Bottom() - size.height, size.width, size.height};
    SetWindowPos(Handle(), HWND_TOPMOST, place_.left, place_.top, place_.width, place_.height, SWP_NOACTIVATE);
}

void MainForm::Animate(bool show) {
    const FineClockScope fine;
    for (const SlideFrame& frame : SlideFrames(show, place_.height)) {
        const long long begun = FineMilliseconds();
        ShowFrame(frame);
        const long long elapsed = FineMilliseconds() - begun;
        const int pause = FramePause(static_cast<int>(std::min<long long>(elapsed, kFrameMilliseconds)));
        if (pause > 0) Sleep(static_cast<DWORD>(pause));
    }
}

void MainForm::ShowFrame(const SlideFrame& frame) {
    if (layered_) {
        SetLayeredWindowAttributes(Handle(), 0, static_cast<BYTE>(frame.opacity), LWA_ALPHA);
    } else {
        SetWindowPos(Handle(), nullptr, place_.left, place_.Bottom() - frame.rise, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    ShowWindow(Handle(), SW_SHOWNOACTIVATE);
    UpdateWindow(Handle());
}

void MainForm::OnPaint() {
    if (!picture_.IsDrawn(scale_)) picture_.Draw(scale_, tools_.program.settings, shellIconSize_, icons_);
    const PaintScope paint(Handle());
    const BufferedPaint buffer(paint.Dc(), paint.Area());
    shown_ = State();
    picture_.Paint(buffer.Dc(), hovered_, shown_);
}

}  // namespace quillo

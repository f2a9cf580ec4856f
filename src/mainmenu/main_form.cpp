#include "mainmenu/main_form.h"

#include <algorithm>
#include <chrono>

#include "app/open_notes.h"
#include "app/program.h"
#include "app/registry_keys.h"
#include "app/settings_table.h"
#include "mainmenu/main_form_rules.h"
#include "mainmenu/menu_drop_target.h"
#include "mainmenu/menu_shortcuts.h"
#include "mainmenu/menu_slide.h"
#include "platform/animation.h"
#include "platform/dpi.h"
#include "platform/gdi_scope.h"
#include "platform/late_library.h"
#include "platform/monitors.h"
#include "platform/window_effects.h"
#include "registry/tessel_registry.h"
#include "resources/resource_ids.h"
#include "util/busy_flag.h"
#include "util/ignore.h"
#include "util/numbers.h"

namespace quillo {
namespace {

constexpr std::u16string_view kDesktopMetrics = u"HKEY_CURRENT_USER\\Control Panel\\Desktop\\WindowMetrics";
constexpr int kBalloonSeconds = 15;
constexpr BYTE kOpaque = 255;

enum HotKeyId : int { kNewNoteHotKey = 1, kShowNotesHotKey = 2 };
constexpr UINT kWindowsKey = 8;

/// From a screen reader, with the item: choosing it inside its call could keep it waiting for a dialog.
constexpr UINT kChooseMessage = WM_APP;
/// From the thread that looks the shortcuts' icons up.
constexpr UINT kIconsFoundMessage = WM_APP + 1;

/// The parts that a screen reader knows are the items in their order, from 1.
MenuItem ItemOfPart(int part) {
    return MenuOrder().at(static_cast<std::size_t>(part) - 1);
}

}  // namespace

MainForm::MainForm(const MainFormTools& tools, UINT backupInterval, IconLookUp lookUp)
    : tools_(tools),
      backupInterval_(backupInterval),
      trayIcon_(tools.locale),
      backupTimer_([this] { OnBackupTimer(); }),
      icons_(std::move(lookUp)) {}

bool MainForm::Load() {
    WNDCLASSEXW windowClass{};
    windowClass.lpszClassName = L"QuilloMenu";
    windowClass.hCursor = ArrowCursor();
    layered_ = tools_.program.os.windows2000OrLater;
    WindowPlan plan;
    plan.title = L"Quillo menu";  // what a screen reader speaks
    plan.style = WS_POPUP;
    plan.exStyle = WS_EX_TOOLWINDOW | WS_EX_TOPMOST | (layered_ ? DWORD{WS_EX_LAYERED} : 0);
    if (!Create(windowClass, plan)) return false;
    AddDropShadow(Handle());
    RegisterHotKeys();
    taskbarCreated_ = RegisterWindowMessageW(L"TaskbarCreated");
    const TesselRegistry metrics(tools_.registry, kDesktopMetrics);
    shellIconSize_ = ShellIconSize(metrics.Value(u"Shell Icon Size"));
    LoadTrayIcon();
    backupTimer_.Start(backupInterval_);
    return true;
}

void MainForm::LoadTrayIcon() {
    trayIcon_.onClick = [this] { OnTrayClick(); };
    trayIcon_.onRightClick = [this] { OnTrayRightClick(); };
    TrayProperties properties;
    properties.toolTipText = u"Quillo";
    properties.icon = ToTrayHandle(trayPicture_.Handle());
    trayIcon_.LoadProperties(properties);
}

void MainForm::WatchSession() {
    static LateFunction<BOOL WINAPI(HWND, DWORD)> watch(L"wtsapi32.dll", "WTSRegisterSessionNotification");
    constexpr DWORD kThisSession = 0;
    if (watch.Get() == nullptr || Handle() == nullptr || !tools_.program.os.windowsXpOrLater) return;
    watching_ = watch.Get()(Handle(), kThisSession) != 0;  // unwatched, notes are saved two seconds after a change
}

void MainForm::Unload() {
    Destroy();
}

LRESULT MainForm::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == taskbarCreated_ && message != 0) return OnTaskbarCreated(), 0;
    switch (message) {
        case WM_DESTROY:
            return OnDestroy(), 0;
        case WM_CLOSE:
            if (onQuit) onQuit();
            return 0;
        case WM_HOTKEY:
            return OnHotKey(static_cast<int>(wParam)), 0;
        case WM_QUERYENDSESSION:
            if (onSessionEnding) onSessionEnding();
            return TRUE;
        case WM_ENDSESSION:
            if (wParam != FALSE && onSessionEnd) onSessionEnd();
            return 0;
        case WM_WTSSESSION_CHANGE:
            return OnSessionChange(wParam), 0;
        case WM_POWERBROADCAST:
            if (wParam == PBT_APMSUSPEND && onGoingAway) onGoingAway();
            return TRUE;
        case WM_MOUSEMOVE:
            return OnMouseMove(PointFromLParam(lParam)), 0;
        case WM_MOUSELEAVE:
            return OnMouseLeave(), 0;
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_XBUTTONDOWN:
            return OnButtonDown(PointFromLParam(lParam)), 0;
        case WM_LBUTTONUP:
        case WM_MBUTTONUP:
            return OnButtonUp(PointFromLParam(lParam), false), 0;
        case WM_RBUTTONUP:
            return OnButtonUp(PointFromLParam(lParam), true), 0;
        case WM_XBUTTONUP:
            return OnButtonUp(PointFromLParam(lParam), false), TRUE;
        case kChooseMessage:
            return Choose(static_cast<MenuItem>(wParam), false), 0;
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
            return OnSystemChanged(), 0;
        case WM_ERASEBKGND:
            return 1;  // painted whole, off the screen
        case WM_PAINT:
            return OnPaint(), 0;
        default:
            return Default(message, wParam, lParam);
    }
}

void MainForm::StopWatchingSession() {
    static LateFunction<BOOL WINAPI(HWND)> unwatch(L"wtsapi32.dll", "WTSUnRegisterSessionNotification");
    if (watching_ && unwatch.Get() != nullptr) Ignore(unwatch.Get()(Handle()), "the window goes either way");
    watching_ = false;
}

void MainForm::OnDestroy() {
    StopWatchingSession();
    backupTimer_.Stop();
    UnregisterHotKeys();
    drops_.Release();
    toolTips_.Forget();
    trayIcon_.StopRetrying();
    trayIcon_.SetVisible(false);
}

// Hotkeys.

void MainForm::RegisterHotKeys() {
    UnregisterHotKeys();
    const Settings& settings = tools_.program.settings;
    const auto take = [this](HotKeyId id, int key) {
        return RegisterHotKey(Handle(), id, kWindowsKey, static_cast<UINT>(key)) != 0 ? 0 : key;
    };
    takenHotKeys_ = {take(kNewNoteHotKey, settings.newNoteHotkey), take(kShowNotesHotKey, settings.showNotesHotkey)};
}

void MainForm::UnregisterHotKeys() {
    UnregisterHotKey(Handle(), kNewNoteHotKey);
    UnregisterHotKey(Handle(), kShowNotesHotKey);
}

void MainForm::OnHotKey(int id) const {
    if (tools_.program.quitting) return;  // pressed just before the end
    if (id == kNewNoteHotKey && onNewNote) onNewNote();
    if (id == kShowNotesHotKey) SurfaceAllNotes(tools_.program.openNotes);
}

// The system's word.

void MainForm::OnSessionChange(WPARAM code) const {
    if (code == WTS_SESSION_LOCK && onGoingAway) onGoingAway();
    const SessionChange change = SessionChangeOf(static_cast<unsigned>(code));
    if (change != SessionChange::Nothing && onPresence) onPresence(change == SessionChange::Back);
}

void MainForm::OnTaskbarCreated() {
    trayIcon_.RecreateIcon();
    RecreateNoteIcons(tools_.program.openNotes);
}

void MainForm::OnScaleChanged() {
    if (IsShowing()) {
        Place();
        LookUpIcons();
    }
    ShowTrayPicture();
}

void MainForm::OnSystemChanged() {
    RedrawResources();
    ShowTrayPicture();
}

void MainForm::ShowTrayPicture() {
    if (trayPicture_.HasChanged()) trayIcon_.SetIcon(trayPicture_.Handle());
}

void MainForm::OnBackupTimer() {
    if (IsBackupTick(++backupTicks_) && onBackup) onBackup();
}

// The icon beside the clock.

bool MainForm::IsBusy() const {
    return tools_.program.startingUp || tools_.program.quitting || tools_.dialogs.IsSet();
}

void MainForm::OnTrayClick() {
    if (IsBusy()) return;
    const bool showing = IsShowing();
    if (showing && onNewNote) onNewNote();
    SlideForm(!showing);
}

void MainForm::OnTrayRightClick() {
    if (!IsBusy()) SurfaceAllNotes(tools_.program.openNotes);
}

void MainForm::ShowBalloon(std::u16string_view title, std::u16string_view text, BalloonIcon icon) {
    trayIcon_.ShowBalloon(text, title, static_cast<DWORD>(icon), kBalloonSeconds);
}

// Shortcuts.

void MainForm::RedrawResources() {
    icons_.Forget();
    RedrawShortcuts();
}

void MainForm::RedrawShortcuts() {
    picture_.Forget();
    if (IsShowing()) LookUpIcons();
    if (Handle() != nullptr) InvalidateRect(Handle(), nullptr, FALSE);
}

void MainForm::LookUpIcons() {
    icons_.LookUp(Handle(), kIconsFoundMessage, tools_.program.settings.shortcuts, scale_.Px(shellIconSize_));
}

void MainForm::OnIconsFound() {
    if (!icons_.Collect()) return;
    picture_.Forget();
    InvalidateRect(Handle(), nullptr, FALSE);
}

void MainForm::SetShortcut(int index, std::u16string_view path) {
    if (index < 1 || index > kMenuSlots) return;
    tools_.program.settings.shortcuts.at(static_cast<std::size_t>(index) - 1) = path;
    RedrawShortcuts();
    TesselRegistry registry(tools_.registry, kUserKey);
    Ignore(SaveSetting(registry, tools_.program.settings, u"Shortcut " + FormatInteger(index)),
           "every slot has its row in the table");
}

void MainForm::TakeDrops() {
    if (drops_.IsRegistered()) return;
    DropTargetPtr target(new MenuDropTarget(
        Handle(), [this](Point at, int files) { return OffersCopy(ScreenToDesign(at), files); },
        [this](Point at, const std::vector<std::u16string>& files) { return TakeDropped(at, files); }));
    Ignore(drops_.Register(tools_.ole, std::move(target)), "the next time that the menu is shown tries again");
}

bool MainForm::TakeDropped(Point at, const std::vector<std::u16string>& files) {
    const MenuPoint point = ScreenToDesign(at);
    const auto count = static_cast<int>(files.size());
    if (!TakesDrop(point, count)) return false;
    if (const auto slot = SlotOfDrop(point, count)) SetShortcut(*slot, files.front());
    return true;
}

// Hovering and choosing.

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
    // The system repeats the last move when a window comes or goes; it must not undo what the keyboard has reached.
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
    SetCapture(Handle());
    Hover(MenuItemAt(ToDesign(at), State()));
}

void MainForm::OnButtonUp(Point at, bool right) {
    // Any release counts, also of a button that went down elsewhere.
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
    // These stay until the user closes them: the menu must not wait beside them.
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
            raise(onGoingAway);  // a dead network path can hold the shell for long
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

// Coming and going.

void MainForm::SlideForm(bool show) {
    if (Handle() == nullptr || show == IsShowing()) return;
    tools_.notice.Play(show ? SystemSound::RestoreUp : SystemSound::RestoreDown);
    if (show) {
        hovered_ = MenuItem::None;
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
    toolTips_.Destroy();  // the scale and the shortcuts may be others
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
    const std::vector<Rect> areas = WorkAreas();
    if (areas.empty()) return;
    const Rect& area = areas.front();
    scale_ = PointScale(POINT{area.Right() - 1, area.Bottom() - 1});
    const Size size{scale_.Px(kMenuSize.width), scale_.Px(kMenuSize.height)};
    place_ = Rect{area.Right() - size.width, area.Bottom() - size.height, size.width, size.height};
    SetWindowPos(Handle(), HWND_TOPMOST, place_.left, place_.top, place_.width, place_.height, SWP_NOACTIVATE);
}

void MainForm::Animate(bool show) {
    using Ticks = std::chrono::steady_clock;
    const FineClockScope fine;
    for (const SlideFrame& frame : SlideFrames(show, place_.height)) {
        const Ticks::time_point begun = Ticks::now();
        ShowFrame(frame);
        const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(Ticks::now() - begun);
        const int pause = FramePause(static_cast<int>(std::min<long long>(elapsed.count(), kFrameMilliseconds)));
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

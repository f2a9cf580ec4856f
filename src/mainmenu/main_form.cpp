#include "mainmenu/main_form.h"

#include "app/base/registry_keys.h"
#include "app/base/settings_table.h"
#include "app/open_notes.h"
#include "app/program.h"
#include "mainmenu/main_form_rules.h"
#include "mainmenu/menu_drop_target.h"
#include "mainmenu/menu_shortcuts.h"
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
/// The system shows this text when the end of the session waits for the notes.
constexpr wchar_t kSavingReason[] = L"Quillo is saving your notes.";
constexpr int kBalloonSeconds = 15;

enum HotKeyId : int { kNewNoteHotKey = 1, kShowNotesHotKey = 2 };
constexpr UINT kWindowsKey = 8;

/// Posted by the thread that looks the shortcuts' icons up.
constexpr UINT kIconsFoundMessage = WM_APP + 1;

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
    plan.title = L"Quillo menu";  // screen readers speak it
    plan.style = WS_POPUP;
    plan.exStyle = WS_EX_TOOLWINDOW | WS_EX_TOPMOST | (layered_ ? DWORD{WS_EX_LAYERED} : 0);
    if (!Create(windowClass, plan)) return false;
    UpdateDropShadow(Handle());
    RegisterHotKeys();
    taskbarCreated_ = RegisterWindowMessageW(L"TaskbarCreated");
    const TesselRegistry metrics(tools_.registry, kDesktopMetrics);
    shellIconSize_ = ShellIconSize(metrics.Value(u"Shell Icon Size"));
    backupTimer_.Start(backupInterval_);
    return true;
}

void MainForm::ShowTrayIcon() {
    if (trayIconLoaded_ || Handle() == nullptr) return;
    trayIconLoaded_ = true;
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
    watching_ = watch.Get()(Handle(), kThisSession) != 0;  // without it, notes are saved two seconds after a change
}

void MainForm::Unload() {
    Destroy();
}

LRESULT MainForm::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (MonitorCache::IsChange(message)) tools_.monitors.Forget();
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
            return OnSessionEndAsked(), TRUE;
        case WM_ENDSESSION:
            if (wParam != FALSE) OnSessionEnd();
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
            return 1;  // the menu is painted as a whole, in a memory bitmap
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
    toolTips_.DropHandle();
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

// Messages of the system.

void MainForm::OnSessionEndAsked() const {
    const SessionEndBlock saving(tools_.sessionEnd, Handle(), kSavingReason);
    if (onSessionEnding) onSessionEnding();
}

void MainForm::OnSessionEnd() const {
    const SessionEndBlock saving(tools_.sessionEnd, Handle(), kSavingReason);
    if (onSessionEnd) onSessionEnd();
}

void MainForm::OnSessionChange(WPARAM code) const {
    if (code == WTS_SESSION_LOCK && onGoingAway) onGoingAway();
    const SessionChange change = SessionChangeOf(static_cast<unsigned>(code));
    if (change != SessionChange::Nothing && onPresence) onPresence(change == SessionChange::Back);
}

void MainForm::OnTaskbarCreated() {
    if (trayIconLoaded_) trayIcon_.RecreateIcon();
    ShowTrayIcon();
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
    if (trayIconLoaded_ && trayPicture_.HasChanged()) trayIcon_.SetIcon(trayPicture_.Handle());
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
    ShowTrayIcon();
    trayIcon_.ShowBalloon(text, title, static_cast<DWORD>(icon), kBalloonSeconds);
}

// Shortcuts.

void MainForm::RedrawResources() {
    icons_.DropRequests();
    RedrawShortcuts();
}

void MainForm::RedrawShortcuts() {
    picture_.DropPicture();
    if (IsShowing()) LookUpIcons();
    if (Handle() != nullptr) InvalidateRect(Handle(), nullptr, FALSE);
}

void MainForm::LookUpIcons() {
    icons_.LookUp(Handle(), kIconsFoundMessage, tools_.program.settings.shortcuts, scale_.Px(shellIconSize_));
}

void MainForm::OnIconsFound() {
    if (!icons_.Collect()) return;
    picture_.DropPicture();
    InvalidateRect(Handle(), nullptr, FALSE);
}

void MainForm::SetShortcut(int index, std::u16string_view path) {
    if (index < 1 || index > kMenuSlots || !ShortcutFits(path)) return;
    tools_.program.settings.shortcuts.at(static_cast<std::size_t>(index) - 1) = path;
    RedrawShortcuts();
    TesselRegistry registry(tools_.registry, kUserKey);
    Ignore(SaveSetting(registry, tools_.program.settings, u"Shortcut " + FormatInteger(index)),
           "every slot has its row in the table");
}

void MainForm::TakeDrops() {
    if (drops_.IsRegistered()) return;
    auto* const menuTarget = new MenuDropTarget(
        Handle(), [this](Point at, int files) { return OffersCopy(ScreenToDesign(at), files); },
        [this](Point at, const std::vector<std::u16string>& files) { return TakeDropped(at, files); });
    menuTarget->onDragOver = [this](bool over) {
        dragOver_ = over;
        dropped_ = !over;
    };
    DropTargetPtr target(menuTarget);
    Ignore(drops_.Register(tools_.ole, std::move(target)), "the next time that the menu is shown tries again");
}

bool MainForm::TakeDropped(Point at, const std::vector<std::u16string>& files) {
    const MenuPoint point = ScreenToDesign(at);
    if (!TakesDrop(point, static_cast<int>(files.size())) || !ShortcutFits(files.front())) return false;
    if (const auto slot = SlotOfDroppedFiles(point, files)) SetShortcut(*slot, files.front());
    return true;
}

}  // namespace quillo

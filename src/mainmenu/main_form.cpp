#include "mainmenu/main_form.h"

#include "app/base/registry_keys.h"
#include "app/base/settings_table.h"
#include "app/open_notes.h"
#include "app/program.h"
#include "mainmenu/main_form_rules.h"
#include "mainmenu/menu_shortcuts.h"
#include "platform/late_library.h"
#include "ports/shell.h"
#include "registry/tessel_registry.h"
#include "util/busy_flag.h"
#include "util/ignore.h"

namespace quillo {
namespace {

constexpr std::u16string_view kDesktopMetrics = u"HKEY_CURRENT_USER\\Control Panel\\Desktop\\WindowMetrics";
/// The system shows this text when the end of the session waits for the notes.
constexpr wchar_t kSavingReason[] = L"Quillo is saving your notes.";
constexpr int kBalloonSeconds = 15;

enum HotKeyId : int { kNewNoteHotKey = 1, kShowNotesHotKey = 2 };
constexpr UINT kWindowsKey = 8;

}  // namespace

MainForm::MainForm(const MainFormServices& services, const MenuServices& menu, UINT backupInterval, IconLookUp lookUp)
    : MenuWindow(menu, std::move(lookUp)),
      services_(services),
      backupInterval_(backupInterval),
      trayIcon_(services.locale),
      backupTimer_([this] { OnBackupTimer(); }) {}

bool MainForm::Load() {
    if (!Create(services_.program.os.windows2000OrLater)) return false;
    RegisterHotKeys();
    taskbarCreated_ = RegisterWindowMessageW(L"TaskbarCreated");
    const TesselRegistry metrics(services_.registry, kDesktopMetrics);
    SetShellIconSize(ShellIconSize(metrics.Value(u"Shell Icon Size")));
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
    if (watch.Get() == nullptr || Handle() == nullptr || !services_.program.os.windowsXpOrLater) return;
    watching_ = watch.Get()(Handle(), kThisSession) != 0;  // without it, notes are saved two seconds after a change
}

void MainForm::Unload() {
    Destroy();
}

LRESULT MainForm::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == taskbarCreated_ && message != 0) return OnTaskbarCreated(), 0;
    switch (message) {
        case WM_DESTROY:
            OnDestroy();
            break;
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
            if (wParam == PBT_APMSUSPEND) lifetime_.RaiseLast(onGoingAway);
            return TRUE;
        case WM_DPICHANGED:
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
        case WM_THEMECHANGED:
            MenuWindow::HandleMessage(message, wParam, lParam);
            return ShowTrayPicture(), 0;
        default:
            break;
    }
    return MenuWindow::HandleMessage(message, wParam, lParam);
}

void MainForm::StopWatchingSession() {
    static LateFunction<BOOL WINAPI(HWND)> unwatch(L"wtsapi32.dll", "WTSUnRegisterSessionNotification");
    if (watching_ && unwatch.Get() != nullptr) Ignore(unwatch.Get()(Handle()), "the window ends either way");
    watching_ = false;
}

void MainForm::OnDestroy() {
    StopWatchingSession();
    backupTimer_.Stop();
    UnregisterHotKeys();
    trayIcon_.StopRetrying();
    trayIcon_.SetVisible(false);
}

// Hotkeys.

void MainForm::RegisterHotKeys() {
    UnregisterHotKeys();
    const Settings& settings = services_.program.settings;
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
    if (services_.program.quitting) return;  // pressed just before the end
    if (id == kNewNoteHotKey) return lifetime_.RaiseLast(onNewNote);
    if (id == kShowNotesHotKey) SurfaceAllNotes(services_.program.openNotes);
}

// Messages of the system.

void MainForm::OnSessionEndAsked() const {
    const SessionEndBlock saving(services_.sessionEnd, Handle(), kSavingReason);
    lifetime_.RaiseLast(onSessionEnding);
}

void MainForm::OnSessionEnd() const {
    const SessionEndBlock saving(services_.sessionEnd, Handle(), kSavingReason);
    lifetime_.RaiseLast(onSessionEnd);
}

void MainForm::OnSessionChange(WPARAM code) const {
    if (code == WTS_SESSION_LOCK && !lifetime_.Raise(onGoingAway)) return;
    const SessionChange change = SessionChangeOf(static_cast<unsigned>(code));
    if (change != SessionChange::Nothing) lifetime_.RaiseLast(onPresence, change == SessionChange::Back);
}

void MainForm::OnTaskbarCreated() {
    if (trayIconLoaded_) trayIcon_.RecreateIcon();
    ShowTrayIcon();
    RecreateNoteIcons(services_.program.openNotes);
}

void MainForm::ShowTrayPicture() {
    if (trayIconLoaded_ && trayPicture_.HasChanged()) trayIcon_.SetIcon(trayPicture_.Handle());
}

void MainForm::OnBackupTimer() {
    if (IsBackupTick(++backupTicks_)) lifetime_.RaiseLast(onBackup);
}

// The icon beside the clock.

bool MainForm::IsBusy() const {
    return services_.program.startingUp || services_.program.quitting || services_.dialogs.IsSet();
}

void MainForm::OnTrayClick() {
    const IconClick click = IconClickOf(IsBusy(), IsShowing());
    if (click == IconClick::Ignored) return;
    if (click == IconClick::CreatesNote && !lifetime_.Raise(onNewNote)) return;
    SlideForm(click == IconClick::OpensMenu);
}

void MainForm::OnTrayRightClick() {
    if (!IsBusy()) SurfaceAllNotes(services_.program.openNotes);
}

void MainForm::ShowBalloon(std::u16string_view title, std::u16string_view text, BalloonIcon icon) {
    ShowTrayIcon();
    trayIcon_.ShowBalloon(text, title, static_cast<DWORD>(icon), kBalloonSeconds);
}

// The items of the menu.

bool MainForm::OnItem(MenuItem item) {
    switch (item) {
        case MenuItem::None:
        case MenuItem::Close:
            return true;
        case MenuItem::NewNote:
            return lifetime_.Raise(onNewNote);
        case MenuItem::ShowAllNotes:
            SurfaceAllNotes(services_.program.openNotes);
            return true;
        case MenuItem::Options:
            return lifetime_.Raise(onOptions);
        case MenuItem::About:
            return lifetime_.Raise(onAbout);
        default:
            if (!lifetime_.Raise(onGoingAway)) return false;  // a dead network path can block the shell for long
            RunShortcut(services_.program.settings.shortcuts.at(static_cast<std::size_t>(ShortcutNumber(item)) - 1),
                        services_.shell);
            return true;
    }
}

bool MainForm::OnQuit() {
    return onQuit && onQuit();
}

void MainForm::SetShortcut(int index, std::u16string_view path) {
    if (index < 1 || index > kMenuSlots || !ShortcutFits(path)) return;
    const auto slot = static_cast<std::size_t>(index) - 1;
    services_.program.settings.shortcuts.at(slot) = path;
    RedrawShortcuts();
    TesselRegistry registry(services_.registry, kUserKey);
    Ignore(SaveSetting(registry, services_.program.settings, setting::kShortcuts.at(slot)),
           "every slot has its row in the table");
}

}  // namespace quillo

#pragma once

#include <array>
#include <functional>
#include <string_view>

#include "controls/tessel_tray_lite.h"
#include "mainmenu/menu_window.h"
#include "mainmenu/options_controller.h"
#include "platform/app_icons.h"
#include "platform/session_end_block.h"
#include "platform/ui_timer.h"
#include "ports/user_notice.h"
#include "util/lifetime.h"

namespace quillo {

class BusyFlag;
class LocaleText;
class RegistryApi;
class Shell;
struct Program;

inline constexpr UINT kBackupInterval = 60'000;

/// What the main form uses in addition to its menu. `dialogs` is set while a modal dialog of the program is open.
struct MainFormServices {
    Program& program;
    RegistryApi& registry;
    Shell& shell;
    LocaleText& locale;
    const BusyFlag& dialogs;
    SessionEndCalls sessionEnd = SystemSessionEndCalls();
};

/// The program's hidden main window: the menu, the icon beside the clock from which it slides up, the hotkeys, the
/// backup timer, and the system's notifications about the session and the task bar.
class MainForm : public MenuWindow, public OptionsOwner {
  public:
    MainForm(const MainFormServices& services, const MenuServices& menu, UINT backupInterval = kBackupInterval,
             IconLookUp lookUp = {});
    ~MainForm() override { Unload(); }

    /// Registers the hotkeys. False on failure.
    bool Load();
    /// Shows the icon beside the clock; only the first call has an effect. Balloons and the menu call it, and
    /// so does a message box that opens during the start. The shell may be slow to answer.
    void ShowTrayIcon();
    /// Subscribes to notifications about the session; not needed before the notes are on the screen.
    void WatchSession();
    void Unload();

    /// Looks the icons up again and draws the menu again.
    void RedrawResources() override { RedrawPicture(); }
    /// Stores a program shortcut in the slot `index`, 1 to 4, and in the registry. A shortcut too long for the system
    /// to run leaves the slot unchanged.
    void SetShortcut(int index, std::u16string_view path) override;
    /// Registers the two hotkeys of the settings instead of the previous ones. A key that another program owns does not
    /// work, silently.
    void RegisterHotKeys() override;
    [[nodiscard]] std::array<int, 2> TakenHotKeys() const override { return takenHotKeys_; }
    void ShowBalloon(std::u16string_view title, std::u16string_view text, BalloonIcon icon);

    // A handler may end the form, other than onQuit, whose answer the form needs.
    std::function<void()> onNewNote;
    std::function<void()> onOptions;
    std::function<void()> onAbout;
    /// The user ends the program. False if it continues after all.
    std::function<bool()> onQuit;
    /// The session ends: no question can be asked any more.
    std::function<void()> onSessionEnd;
    /// Every five minutes: all notes must be saved.
    std::function<void()> onBackup;
    /// The session asks whether it may end: everything must be on the disk before the answer.
    std::function<void()> onSessionEnding;
    /// The session is locked or the machine is suspended: changes must be on the disk.
    std::function<void()> onGoingAway;
    /// True if the user returns to the session, false if another session gets the console.
    std::function<void(bool)> onPresence;

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    // MenuWindow
    void OnOpen() override { ShowTrayIcon(); }
    [[nodiscard]] bool OnItem(MenuItem item) override;
    [[nodiscard]] bool OnQuit() override;
    void OnShortcutDropped(int slot, std::u16string_view path) override { SetShortcut(slot, path); }

    void OnDestroy();
    void OnHotKey(int id) const;
    void OnSessionEndAsked() const;
    void OnSessionEnd() const;
    void OnSessionChange(WPARAM code) const;
    void OnTaskbarCreated();
    /// After a change of scaling, gives the icon beside the clock its picture in the new size.
    void ShowTrayPicture();
    void OnTrayClick();
    void OnTrayRightClick();
    void OnBackupTimer();
    void StopWatchingSession();
    void UnregisterHotKeys();
    /// True while the program must not be interrupted: it starts, quits, or shows a modal dialog.
    [[nodiscard]] bool IsBusy() const;

    MainFormServices services_;
    UINT backupInterval_;
    TrayPicture trayPicture_;
    TesselTrayLite trayIcon_;
    UiTimer backupTimer_;
    std::array<int, 2> takenHotKeys_{};  ///< by another program, since the last registration
    UINT taskbarCreated_ = 0;
    int backupTicks_ = 0;
    bool trayIconLoaded_ = false;
    Lifetime lifetime_;
    bool watching_ = false;  ///< the system notifies the program about the session
};

}  // namespace quillo

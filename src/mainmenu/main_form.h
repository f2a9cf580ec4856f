#pragma once

#include <array>
#include <functional>
#include <string_view>
#include <vector>

#include "controls/tessel_tray_lite.h"
#include "mainmenu/menu_map.h"
#include "mainmenu/menu_picture.h"
#include "mainmenu/options_controller.h"
#include "platform/accessible.h"
#include "platform/app_icons.h"
#include "platform/drop_registration.h"
#include "platform/session_end_block.h"
#include "platform/tool_tips.h"
#include "platform/ui_timer.h"
#include "platform/window.h"
#include "ports/user_notice.h"
#include "util/units.h"

namespace quillo {

class BusyFlag;
class LocaleText;
class MonitorCache;
class OleSession;
class RegistryApi;
class Shell;
struct Program;
struct SlideFrame;

inline constexpr UINT kBackupInterval = 60'000;

/// What the main form uses. `dialogs` is set while a modal dialog of the program is open.
struct MainFormTools {
    Program& program;
    RegistryApi& registry;
    Shell& shell;
    UserNotice& notice;
    LocaleText& locale;
    OleSession& ole;
    const BusyFlag& dialogs;
    MonitorCache& monitors;
    SessionEndCalls sessionEnd = SystemSessionEndCalls();
};

/// The program's hidden main window: its icon beside the clock, the menu that slides up from there, the hotkeys, the
/// backup timer, and the system's notifications about the session and the task bar.
class MainForm : public Window, public OptionsOwner, private AccessibleSource {
  public:
    explicit MainForm(const MainFormTools& tools, UINT backupInterval = kBackupInterval, IconLookUp lookUp = {});
    ~MainForm() override { Unload(); }

    /// Registers the hotkeys. False on failure.
    bool Load();
    /// Shows the icon beside the clock; only the first call has an effect. Balloons and the menu call it, and
    /// so does a message box that opens during the start. The shell may be slow to answer.
    void ShowTrayIcon();
    /// Subscribes to notifications about the session; not needed before the notes are on the screen.
    void WatchSession();
    void Unload();

    /// Shows or hides the menu, with its sound and animation.
    void SlideForm(bool show);
    [[nodiscard]] bool IsShowing() const { return Handle() != nullptr && IsWindowVisible(Handle()) != FALSE; }
    /// The shortcuts have changed: the menu is drawn again before it is next visible.
    void RedrawShortcuts();
    /// Looks the icons up again and draws the menu again.
    void RedrawResources() override;
    /// Stores a program shortcut in the slot `index`, 1 to 4, and in the registry. A shortcut too long for the system
    /// to run leaves the slot unchanged.
    void SetShortcut(int index, std::u16string_view path) override;
    /// Registers the two hotkeys of the settings instead of the previous ones. A key that another program owns does not
    /// work, silently.
    void RegisterHotKeys() override;
    [[nodiscard]] std::array<int, 2> TakenHotKeys() const override { return takenHotKeys_; }
    void ShowBalloon(std::u16string_view title, std::u16string_view text, BalloonIcon icon);

    std::function<void()> onNewNote;
    std::function<void()> onOptions;
    std::function<void()> onAbout;
    /// The user ends the program.
    std::function<void()> onQuit;
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
    /// Posted for a screen reader, with the item: choosing it inside the reader's call could block that call in a
    /// dialog.
    static constexpr UINT kChooseMessage = WM_APP;

    // AccessibleSource; the parts are the items.
    [[nodiscard]] AccessiblePart Describe(int part) const override;
    [[nodiscard]] int PartCount() const override;
    [[nodiscard]] int FocusedPart() const override;
    void Activate(int part) override;

    void OnDestroy();
    void OnHotKey(int id) const;
    void OnSessionEndAsked() const;
    void OnSessionEnd() const;
    void OnSessionChange(WPARAM code) const;
    void OnTaskbarCreated();
    void OnScaleChanged();
    void OnSystemChanged();
    /// After a change of scaling, gives the icon beside the clock its picture in the new size.
    void ShowTrayPicture();
    void OnTrayClick();
    void OnTrayRightClick();
    void OnBackupTimer();
    void OnPaint();
    void OnMouseMove(Point at);
    void OnMouseLeave();
    void OnButtonDown(Point at);
    void OnButtonUp(Point at, bool right);
    void OnKeyDown(int virtualKey);

    void StopWatchingSession();
    void UnregisterHotKeys();
    /// True while the program must not be interrupted: it starts, quits, or shows a modal dialog.
    [[nodiscard]] bool IsBusy() const;
    [[nodiscard]] MenuState State() const;
    /// A point of the window in pixels at 96 dpi.
    [[nodiscard]] MenuPoint ToDesign(Point at) const;
    [[nodiscard]] MenuPoint ScreenToDesign(Point at) const;
    void Hover(MenuItem item);
    /// The place of an item in the window, in device pixels.
    [[nodiscard]] RECT DevicePlace(MenuItem item) const;
    void RepaintItem(MenuItem item);
    void Choose(MenuItem item, bool rightButton);
    void Perform(MenuItem item);
    /// Moves the menu to the bottom right corner of the work area, above all windows.
    void Place();
    void Animate(bool show);
    void ShowFrame(const SlideFrame& frame);
    /// Creates tool tips for items without words in the picture: the round buttons and the slots.
    void CreateToolTips();
    LRESULT OnNotify(NMHDR& notice);
    void TakeDrops();
    /// Requests the icons of the shortcuts, outside painting: a file on an unreachable network must block nothing.
    void LookUpIcons();
    void OnIconsFound();
    [[nodiscard]] bool TakeDropped(Point at, const std::vector<std::u16string>& files);

    MainFormTools tools_;
    UINT backupInterval_;
    TrayPicture trayPicture_;
    TesselTrayLite trayIcon_;
    UiTimer backupTimer_;
    MenuPicture picture_;
    MenuIcons icons_;
    ToolTips toolTips_;
    AccessibleLink accessible_{*this};
    Scale scale_;
    Rect place_;  ///< where the completely visible menu is, in screen pixels
    MenuItem hovered_ = MenuItem::None;
    MenuState shown_;  ///< the state that the screen shows
    Point pointer_{-1, -1};
    DropRegistration drops_;
    std::array<int, 2> takenHotKeys_{};  ///< by another program, since the last registration
    UINT taskbarCreated_ = 0;
    int shellIconSize_ = 32;
    int backupTicks_ = 0;
    bool trayIconLoaded_ = false;
    bool watching_ = false;    ///< the system notifies the program about the session
    bool layered_ = false;     ///< the menu fades instead of sliding
    bool dragOver_ = false;    ///< another program drags something over the menu
    bool dropped_ = false;     ///< the drag has left or was dropped, and no button has been pressed since
    bool byKeyboard_ = false;  ///< the hovered item was reached by keyboard
};

}  // namespace quillo

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
class OleSession;
class RegistryApi;
class Shell;
struct Program;
struct SlideFrame;

inline constexpr UINT kBackupInterval = 60'000;

/// What the main form works with. `dialogs` is set while a modal dialog of the program stands.
struct MainFormTools {
    Program& program;
    RegistryApi& registry;
    Shell& shell;
    UserNotice& notice;
    LocaleText& locale;
    OleSession& ole;
    const BusyFlag& dialogs;
    SessionEndCalls sessionEnd = SystemSessionEndCalls();
};

/// The program's hidden main window: its icon beside the clock, the menu that slides up from there, the hotkeys, the
/// backup timer, and the system's word of the session and the task bar.
class MainForm : public Window, public OptionsOwner, private AccessibleSource {
  public:
    explicit MainForm(const MainFormTools& tools, UINT backupInterval = kBackupInterval, IconLookUp lookUp = {});
    ~MainForm() override { Unload(); }

    /// Registers the hotkeys and shows the icon. False on failure.
    bool Load();
    /// Asks the system for word of the session: of no use before the notes are on the screen.
    void WatchSession();
    void Unload();

    /// Shows or hides the menu, with its sound and animation.
    void SlideForm(bool show);
    [[nodiscard]] bool IsShowing() const { return Handle() != nullptr && IsWindowVisible(Handle()) != FALSE; }
    /// The shortcuts have changed: the menu is drawn again when it is seen next.
    void RedrawShortcuts();
    /// The artwork is drawn anew.
    void RedrawResources() override;
    /// Stores a program shortcut in the slot `index`, 1 to 4, and in the registry. One that the system could not run
    /// for its length leaves the slot as it is.
    void SetShortcut(int index, std::u16string_view path) override;
    /// Takes the two hotkeys of the settings in the place of those that were registered before. A key that another
    /// program has does not work, and nothing is said.
    void RegisterHotKeys() override;
    [[nodiscard]] std::array<int, 2> TakenHotKeys() const override { return takenHotKeys_; }
    void ShowBalloon(std::u16string_view title, std::u16string_view text, BalloonIcon icon);

    std::function<void()> onNewNote;
    std::function<void()> onOptions;
    std::function<void()> onAbout;
    /// The user ends the program.
    std::function<void()> onQuit;
    /// The session ends: nobody can be asked any more.
    std::function<void()> onSessionEnd;
    /// Every five minutes: all notes are to be saved.
    std::function<void()> onBackup;
    /// The session asks whether it may end: everything is to be on the disk before the answer.
    std::function<void()> onSessionEnding;
    /// The session is locked or the machine goes to sleep: what has changed is to be on the disk.
    std::function<void()> onGoingAway;
    /// True when the user is back at the session, false when the console has been taken from it.
    std::function<void(bool)> onPresence;

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    /// From a screen reader, with the item: choosing it inside its call could keep it waiting for a dialog.
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
    /// After a change of scaling the icon beside the clock gets the picture of its new size.
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

    void LoadTrayIcon();
    void StopWatchingSession();
    void UnregisterHotKeys();
    /// The program must not be interrupted: it starts, quits, or shows a modal dialog.
    [[nodiscard]] bool IsBusy() const;
    [[nodiscard]] MenuState State() const;
    /// A point of the window in pixels at 96 dpi.
    [[nodiscard]] MenuPoint ToDesign(Point at) const;
    [[nodiscard]] MenuPoint ScreenToDesign(Point at) const;
    void Hover(MenuItem item);
    /// Where an item is in the window, in its own pixels.
    [[nodiscard]] RECT DevicePlace(MenuItem item) const;
    void RepaintItem(MenuItem item);
    void Choose(MenuItem item, bool rightButton);
    void Perform(MenuItem item);
    /// To the bottom right corner of the work area, above all windows.
    void Place();
    void Animate(bool show);
    void ShowFrame(const SlideFrame& frame);
    /// Tool tips for what has no words in the picture: the round buttons and the slots.
    void CreateToolTips();
    LRESULT OnNotify(NMHDR& notice);
    void TakeDrops();
    /// Asks for the icons of the shortcuts, outside painting: a file on a dead network keeps nothing waiting.
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
    Rect place_;  ///< where the menu stands when it is all there, in screen pixels
    MenuItem hovered_ = MenuItem::None;
    MenuState shown_;  ///< what the screen shows of it
    Point pointer_{-1, -1};
    DropRegistration drops_;
    std::array<int, 2> takenHotKeys_{};  ///< by another program, since the last registration
    UINT taskbarCreated_ = 0;
    int shellIconSize_ = 32;
    int backupTicks_ = 0;
    bool watching_ = false;    ///< the system sends word of the session
    bool layered_ = false;     ///< the menu fades instead of sliding
    bool dragOver_ = false;    ///< another program drags something over the menu
    bool dropped_ = false;     ///< it has left or was dropped, and no button has gone down since
    bool byKeyboard_ = false;  ///< the hovered item was reached by keyboard
};

}  // namespace quillo

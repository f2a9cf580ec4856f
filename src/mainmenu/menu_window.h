#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "mainmenu/menu_icons.h"
#include "mainmenu/menu_picture.h"
#include "mainmenu/menu_shortcuts.h"
#include "mainmenu/menu_state.h"
#include "platform/accessible.h"
#include "platform/drawn_window.h"
#include "platform/drop_registration.h"
#include "platform/tool_tips.h"
#include "util/units.h"

namespace quillo {

class MonitorCache;
class OleSession;
class OpenNotes;
class UserNotice;
struct Settings;
struct SlideFrame;

/// What the menu uses.
struct MenuServices {
    const Settings& settings;
    const OpenNotes& notes;
    UserNotice& notice;
    OleSession& ole;
    MonitorCache& monitors;
};

/// The window of the main menu, which slides up in the bottom right corner of the work area: its picture, hovering and
/// choosing, dropped files, screen readers. A derived class performs what is chosen.
class MenuWindow : public DrawnWindow, private AccessibleSource {
  public:
    /// Shows or hides the menu, with its sound and animation.
    void SlideForm(bool show);
    [[nodiscard]] bool IsShowing() const { return Handle() != nullptr && IsWindowVisible(Handle()) != FALSE; }
    /// The shortcuts have changed: the menu is drawn again before it is next visible.
    void RedrawShortcuts();

  protected:
    /// The shell is asked for the icons of the shortcuts if `lookUp` is empty.
    MenuWindow(const MenuServices& services, IconLookUp lookUp) : services_(services), icons_(std::move(lookUp)) {}

    /// Creates the window, hidden. A translucent one fades instead of sliding. False on failure.
    bool Create(bool translucent);
    /// The edge of the shell's icons at 96 dpi.
    void SetShellIconSize(int size) { shellIconSize_ = size; }
    /// Looks the icons of the shortcuts up again and draws the menu again.
    void RedrawPicture();

    /// The menu is about to be shown.
    virtual void OnOpen() = 0;
    /// Performs an item that was chosen, other than None and Close. False if that has destroyed the menu.
    [[nodiscard]] virtual bool OnItem(MenuItem item) = 0;
    /// The user ends the program. False if it continues after all.
    [[nodiscard]] virtual bool OnQuit() = 0;
    /// A file was dropped on the slot, 1 to 4.
    virtual void OnShortcutDropped(int slot, std::u16string_view path) = 0;

    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    /// Posted for a screen reader, with the item: choosing it inside the reader's call could block that call in a
    /// dialog.
    static constexpr UINT kChooseMessage = WM_APP;
    /// Posted by the thread that looks the shortcuts' icons up.
    static constexpr UINT kIconsFoundMessage = WM_APP + 1;

    // AccessibleSource; the parts are the items.
    [[nodiscard]] AccessiblePart Describe(int part) const override;
    [[nodiscard]] int PartCount() const override;
    [[nodiscard]] int FocusedPart() const override;
    void Activate(int part) override;

    void OnDestroy();
    void OnMouseMove(MenuPoint at);
    void OnKeyDown(int virtualKey);
    LRESULT OnNotify(NMHDR& notice);
    void OnIconsFound();
    void OnScaleChanged();
    void OnPaint() override;

    [[nodiscard]] MenuContents Contents() const;
    /// A point of the window in pixels at 96 dpi.
    [[nodiscard]] MenuPoint ToDesign(Point at) const;
    [[nodiscard]] MenuPoint ScreenToDesign(Point at) const;
    /// The place of an item in the window, in device pixels.
    [[nodiscard]] RECT DevicePlace(MenuItem item) const;
    void Follow(const MenuResponse& response);
    void RepaintItem(MenuItem item);
    void Choose(const MenuChoice& choice);
    /// Moves the menu to the bottom right corner of the work area, above all windows.
    void Place();
    void Animate(bool show);
    void ShowFrame(const SlideFrame& frame);
    /// Creates tool tips for items without words in the picture: the round buttons and the slots.
    void CreateToolTips();
    /// Requests the icons of the shortcuts, outside painting: a file on an unreachable network must block nothing.
    void LookUpIcons();
    void TakeDrops();
    [[nodiscard]] bool TakeDropped(Point at, const std::vector<std::u16string>& files);

    MenuServices services_;
    MenuState state_;
    MenuContents shown_;  ///< the contents that the screen shows
    MenuPicture picture_;
    MenuIcons icons_;
    ToolTips toolTips_;
    DropRegistration drops_;
    AccessibleLink accessible_{*this};
    Scale scale_;
    Rect place_;  ///< where the completely visible menu is, in screen pixels
    int shellIconSize_ = kUsualShellIcon;
    bool translucent_ = false;
};

}  // namespace quillo

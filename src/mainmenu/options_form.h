#pragma once

#include <array>
#include <optional>

#include "controls/tessel_tab.h"
#include "mainmenu/options_appearance_page.h"
#include "mainmenu/options_behavior_page.h"
#include "mainmenu/options_controller.h"
#include "mainmenu/options_help_page.h"
#include "mainmenu/options_shortcuts_page.h"
#include "platform/dialog_window.h"
#include "platform/disabled_windows.h"
#include "util/busy_flag.h"

namespace quillo {

class UserNotice;

/// The options dialog: a strip of tabs, the page of the current tab, and a button that closes. While it is open, the
/// program's earlier windows accept no input; notes still show each change at once. Open returns as soon as the dialog
/// is on the screen, because hotkeys, later starts and reminders keep working. It can be opened again after it has
/// closed.
class OptionsForm : public DialogWindow {
  public:
    OptionsForm(const OptionsServices& services, UserNotice& notice, MessageLoop& loop, BusyFlag& dialogs);
    ~OptionsForm() override { Unload(); }

    /// Opens the dialog, or brings the open one to the front. False on failure.
    bool Open();
    /// Closes the dialog with the program: text typed in its boxes is not saved.
    void Unload();

    [[nodiscard]] OptionsPage CurrentPage() const { return current_; }
    void ShowPage(OptionsPage page);
    /// The window of one of its controls, on any page; null while the dialog is not open.
    [[nodiscard]] HWND ControlWindow(OptionControl control) const;
    [[nodiscard]] HWND TabStripWindow() const { return tabStrip_.Handle(); }
    [[nodiscard]] HWND CloseButton() const { return Item(IDOK); }

  protected:
    void CreateControls() override;
    void LayOut(HDC dc) override;
    void OnCommand(int id, int notification) override;
    /// Esc, the window's own close box and the button all save in the same way.
    void OnClose() override;
    void OnGone() override;
    /// Ctrl+Tab selects the next page, with Shift the previous one.
    bool OnKeyDown(WPARAM key) override;
    void OnFontsChanged() override;
    void OnColorsChanged() override { SetTabIcons(); }
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    [[nodiscard]] ContentPanel& Panel(OptionsPage page) const { return *panels_[static_cast<std::size_t>(page)]; }
    void CreateToolTips();
    void SetTabIcons();
    void MoveToMiddle() const;
    /// Moves the focus if its control is on a hidden page.
    void KeepFocusShown() const;
    /// Directs input to the dialog alone and makes the program busy.
    void TakeInput();
    /// Called before the window ends: the system then gives the focus to a window that accepts it.
    void GiveInputBack();

    BusyFlag& dialogs_;
    std::optional<BusyFlag::Scope> busy_;          ///< while the dialog is open
    std::optional<DisabledWindows> otherWindows_;  ///< while the dialog is open
    OptionsController controller_;
    OptionsAppearancePage appearance_;
    OptionsShortcutsPage shortcuts_;
    OptionsBehaviorPage behavior_;
    OptionsHelpPage help_;
    std::array<ContentPanel*, kOptionsPageCount> panels_;  ///< the pages in the order of their tabs
    TesselTab tabStrip_;
    OptionsPage current_ = OptionsPage::Appearance;
};

}  // namespace quillo

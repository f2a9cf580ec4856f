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
/// windows that the program had before take no input; notes show each change at once all the same. Open returns when
/// the dialog is on the screen, because hotkeys, later starts and reminders go on. It can be opened again after it has
/// closed.
class OptionsForm : public DialogWindow {
  public:
    OptionsForm(const OptionsWorld& world, UserNotice& notice, MessageLoop& loop, BusyFlag& dialogs);
    ~OptionsForm() override { Unload(); }

    /// Opens the dialog, or brings the open one forward. False on failure.
    bool Open();
    /// Takes the dialog away with the program: what is typed in its boxes is not saved.
    void Unload();

    [[nodiscard]] OptionsPage CurrentPage() const { return current_; }
    void ShowPage(OptionsPage page);
    /// The window of one of its controls, on whatever page; null while the dialog is not open.
    [[nodiscard]] HWND ControlWindow(OptionControl control) const;
    [[nodiscard]] HWND TabStripWindow() const { return tabStrip_.Handle(); }
    [[nodiscard]] HWND CloseButton() const { return Item(IDOK); }

  protected:
    void CreateControls() override;
    void LayOut(HDC dc) override;
    void OnCommand(int id, int notification) override;
    /// Esc, the window's own close box and the button all save alike.
    void OnClose() override;
    void OnGone() override;
    /// Ctrl+Tab goes to the next page, with Shift to the one before.
    bool OnKeyDown(WPARAM key) override;
    void OnFontsChanged() override;
    void OnColorsChanged() override { SetTabIcons(); }
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    [[nodiscard]] ContentPanel& Panel(OptionsPage page) const { return *panels_[static_cast<std::size_t>(page)]; }
    void CreateToolTips();
    void SetTabIcons();
    void MoveToMiddle() const;
    /// The keyboard never stays in a page that is hidden.
    void KeepFocusShown() const;
    void OnActivated();
    /// Input goes to the dialog alone, and the program counts as busy.
    void TakeInput();
    /// Before the window goes: the system gives the keyboard to a window that can take it.
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

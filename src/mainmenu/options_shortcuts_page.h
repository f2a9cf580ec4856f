#pragma once

#include <array>
#include <string>

#include "mainmenu/content_panel.h"
#include "mainmenu/key_box.h"

namespace quillo {

/// The page of the global hotkeys and of the four programs on the menu.
class OptionsShortcutsPage : public ContentPanel {
  public:
    OptionsShortcutsPage(OptionsController& controller, BusyFlag& dialogs)
        : ContentPanel(OptionsPage::Shortcuts, controller, dialogs) {}

    void Load() override;
    /// Shows the current settings in every box that the user has not changed: programs can be dropped on the menu while
    /// the dialog is open.
    void Refresh();
    [[nodiscard]] std::array<std::u16string, 4> Shortcuts() const;

  protected:
    bool CreateSpecial(const OptionRow& row) override;
    void Place(PageColumn& column) override;
    void OnCommand(OptionControl control, int notification) override;

  private:
    void OnKey(OptionControl keyBox, int virtualKey);
    void BrowseForProgram(OptionControl box);

    std::array<std::u16string, 4> loaded_;  ///< the initial content of the boxes
    KeyBox newNoteBox_;
    KeyBox surfaceBox_;
};

}  // namespace quillo

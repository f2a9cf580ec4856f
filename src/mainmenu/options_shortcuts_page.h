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

    [[nodiscard]] std::array<std::u16string, 4> Shortcuts() const;

  protected:
    bool CreateSpecial(const OptionRow& row) override;
    void Place(PageColumn& column) override;
    void OnCommand(OptionControl control, int notification) override;

  private:
    void OnKey(OptionControl keyBox, int virtualKey);
    void BrowseForProgram(OptionControl box);

    KeyBox newNoteBox_;
    KeyBox surfaceBox_;
};

}  // namespace quillo

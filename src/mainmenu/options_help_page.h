#pragma once

#include <array>

#include "mainmenu/content_panel.h"

namespace quillo {

/// The page that answers what most people ask: the keys, where notes are, how to have a deleted one back.
class OptionsHelpPage : public ContentPanel {
  public:
    OptionsHelpPage(OptionsController& controller, BusyFlag& dialogs)
        : ContentPanel(OptionsPage::Help, controller, dialogs) {}

    /// Also names the hotkeys as they are now.
    void Load() override;

  protected:
    bool CreateSpecial(const OptionRow& row) override;
    void Place(PageColumn& column) override;
    void OnCommand(OptionControl control, int notification) override;
    void OnScaleChanged() override;

  private:
    int PlaceKeys(PageColumn& column) const;

    struct KeyLine {
        HWND keys = nullptr;
        HWND meaning = nullptr;
    };
    std::array<KeyLine, 13> lines_{};
};

}  // namespace quillo

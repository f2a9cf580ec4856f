#pragma once

#include <array>

#include "mainmenu/content_panel.h"

namespace quillo {

/// The page with the most frequent questions: the keys, the place of the notes, how to restore a deleted one.
class OptionsHelpPage : public ContentPanel {
  public:
    OptionsHelpPage(OptionsController& controller, BusyFlag& dialogs)
        : ContentPanel(OptionsPage::Help, controller, dialogs) {}

    /// Also shows the current hotkeys.
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

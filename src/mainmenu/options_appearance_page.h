#pragma once

#include "controls/note_color_selector.h"
#include "controls/tessel_mini_slider.h"
#include "mainmenu/content_panel.h"
#include "notes/note_fonts.h"

namespace quillo {

/// The page of what notes look like: colours, font, translucency.
class OptionsAppearancePage : public ContentPanel {
  public:
    OptionsAppearancePage(OptionsController& controller, BusyFlag& dialogs);

    void Load() override;

  protected:
    bool CreateSpecial(const OptionRow& row) override;
    void Place(PageColumn& column) override;
    void OnCommand(OptionControl control, int notification) override;
    void OnScaleChanged() override;

  private:
    void BrowseForFont();
    /// The font's description, set in that font.
    void ShowFont();

    NoteColorSelector colorSelector_;
    TesselMiniSlider opacitySlider_;
    NoteFonts fonts_;
};

}  // namespace quillo

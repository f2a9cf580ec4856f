#pragma once

#include "controls/note_color_selector.h"
#include "controls/tessel_mini_slider.h"
#include "mainmenu/content_panel.h"
#include "mainmenu/note_preview.h"
#include "notes/note_fonts.h"

namespace quillo {

/// The page for the look of notes: colors, font, translucency.
class OptionsAppearancePage : public ContentPanel {
  public:
    OptionsAppearancePage(OptionsController& controller, BusyFlag& dialogs);

    void Load() override;

  protected:
    bool CreateSpecial(const OptionRow& row) override;
    void Place(PageColumn& column) override;
    void OnCommand(OptionControl control, int notification) override;
    void OnScaleChanged() override;
    void OnColorsChanged() override { ShowLook(); }

  private:
    void PlaceLook(PageColumn& column) const;
    void PlaceSlider(PageColumn& column) const;
    void BrowseForFont();
    /// Shows the font's description in that font, and a note with the look of new ones.
    void ShowLook();

    NotePreview preview_;
    NoteColorSelector colorSelector_;
    TesselMiniSlider opacitySlider_;
    NoteFonts fonts_;
};

}  // namespace quillo

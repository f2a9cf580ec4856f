#include "mainmenu/options_appearance_page.h"

#include <algorithm>
#include <optional>

#include "mainmenu/font_dialog.h"
#include "mainmenu/options_controller.h"
#include "mainmenu/page_column.h"
#include "platform/dialog_parts.h"
#include "platform/wide.h"
#include "platform/window_effects.h"
#include "util/busy_flag.h"

namespace quillo {
namespace {

using C = OptionControl;

// Pixels at 96 dpi.
constexpr int kSliderWidth = 200;
constexpr int kSliderHeight = 18;
constexpr int kSliderGap = 10;
constexpr int kPreviewWidth = 160;
constexpr int kPreviewHeight = 132;

constexpr double kLargestShown = 13;  // points; a larger font is shown smaller

}  // namespace

OptionsAppearancePage::OptionsAppearancePage(OptionsController& controller, BusyFlag& dialogs)
    : ContentPanel(OptionsPage::Appearance, controller, dialogs) {
    colorSelector_.onColorPicked = [this](const ColorScheme& scheme) {
        Controller().PickColors(scheme.note, scheme.border, scheme.text);
        ShowLook();
    };
    opacitySlider_.describeValue = [](std::int32_t value) { return OptionsController::OpacityText(value); };
    opacitySlider_.onChange = [this](std::int32_t value) {
        Controller().MoveSlider(value);
        ShowChecked(C::TranslucentCheck);
    };
}

bool OptionsAppearancePage::CreateSpecial(const OptionRow& row) {
    const std::u16string name(row.caption);
    if (row.kind == OptionKind::Colors) {
        colorSelector_.Create(Handle(), IdOf(row.control), Wide(name));
        return true;
    }
    if (row.kind == OptionKind::Preview) {
        preview_.Create(Handle(), IdOf(row.control), Wide(name));
        return true;
    }
    if (row.kind == OptionKind::Slider) {
        SliderProperties properties;
        properties.max = OptionsController::kSliderEnd;
        properties.value = Controller().SliderValue();
        opacitySlider_.Create(Handle(), IdOf(row.control), Wide(name), properties);
        return true;
    }
    return false;
}

void OptionsAppearancePage::OnScaleChanged() {
    colorSelector_.SetScale(PageScale());
    opacitySlider_.SetScale(PageScale());
    ShowLook();
}

void OptionsAppearancePage::Load() {
    ContentPanel::Load();
    opacitySlider_.SetValue(Controller().SliderValue());
    ShowLook();
}

void OptionsAppearancePage::ShowLook() {
    FontSetting font = Controller().Now().noteFont;
    font.size = std::min(font.size, kLargestShown);
    HWND label = Item(C::FontLabel);
    SetText(C::FontLabel, Controller().FontText());
    SendMessageW(label, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_.Get(font, false, PageScale())), TRUE);
    const Settings& now = Controller().Now();
    preview_.Show({now.noteColor, now.noteBorderColor, now.noteTextColor,
                   BarStyleFor(now.highContrastOff, HighContrastIsOn()), now.randomNoteColor,
                   fonts_.Get(now.noteFont, false, PageScale()), PageScale()});
}

void OptionsAppearancePage::Place(PageColumn& column) {
    const int previewWidth = column.Px(kPreviewWidth);
    column.PlaceAt(C::NotePreview, column.Left() + column.Width() - previewWidth, column.Bottom(), previewWidth,
                   column.Px(kPreviewHeight));
    PageColumn beside(*this, column.Dc(), column.Left(), column.Bottom(),
                      column.Width() - previewWidth - column.Px(kDialogMargin));
    PlaceLook(beside);
    column.Advance(std::max(beside.Bottom() - column.Bottom(), column.Px(kPreviewHeight)), kDialogMargin);

    column.PutChecksAfter(C::BrowseFontButton);
    column.PutDivider(C::EyeCandyDivider);
    column.PutText(C::EyeCandyLabel, kDialogGap);
    column.PutChecksAfter(C::EyeCandyLabel);
    PlaceSlider(column);
}

void OptionsAppearancePage::PlaceLook(PageColumn& column) const {
    column.PutHeading(C::AppearanceHeading);
    column.PutText(C::ColorsLabel, kDialogSmallGap);
    const Size strip = colorSelector_.StripSize();
    column.PlaceAt(C::ColorSelector, column.Left(), column.Bottom(), strip.width, strip.height);
    column.Advance(strip.height, kDialogGap);

    const int buttonHeight = column.Px(kDialogButtonHeight);
    column.PutText(C::FontTextLabel, kDialogSmallGap);
    const int buttonWidth = column.ButtonWidth(C::BrowseFontButton);
    const int labelLeft = column.Left() + buttonWidth + column.Px(kDialogMargin);
    column.PlaceAt(C::BrowseFontButton, column.Left(), column.Bottom(), buttonWidth, buttonHeight);
    column.PlaceAt(C::FontLabel, labelLeft, column.Bottom(), column.Left() + column.Width() - labelLeft, buttonHeight);
    column.Advance(buttonHeight, 0);
}

void OptionsAppearancePage::PlaceSlider(PageColumn& column) const {
    const int gap = column.Px(kSliderGap);
    const int line = column.LineHeight();
    const int height = std::max(line, column.Px(kSliderHeight));
    const int labelTop = column.Bottom() + (height - line) / 2;
    int left = column.Left() + column.Px(kDialogCheckRoom);
    const auto put = [&](C control, int top, int width, int controlHeight) {
        column.PlaceAt(control, left, top, width, controlHeight);
        left += width + gap;
    };
    put(C::OpaqueLabel, labelTop, column.TextWidth(C::OpaqueLabel), line);
    put(C::OpacitySlider, column.Bottom() + (height - column.Px(kSliderHeight)) / 2, column.Px(kSliderWidth),
        column.Px(kSliderHeight));
    put(C::FaintLabel, labelTop, column.TextWidth(C::FaintLabel), line);
    column.Advance(height, 0);
}

void OptionsAppearancePage::OnCommand(OptionControl control, int notification) {
    if (control == C::BrowseFontButton && notification == BN_CLICKED) return BrowseForFont();
    ContentPanel::OnCommand(control, notification);
    if (notification == BN_CLICKED) ShowLook();
}

void OptionsAppearancePage::BrowseForFont() {
    const BusyFlag::Scope busy(Dialogs());
    const std::optional<FontSetting> chosen = AskForFont(Dialog(), Controller().Now().noteFont);
    if (!chosen) return;
    Controller().ChooseFont(*chosen);
    if (Handle() != nullptr) ShowLook();
}

}  // namespace quillo

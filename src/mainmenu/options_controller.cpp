#include "mainmenu/options_controller.h"

#include <algorithm>

#include "app/base/registry_keys.h"
#include "app/base/settings_table.h"
#include "app/base/sound_choice.h"
#include "app/open_notes.h"
#include "app/startup.h"
#include "mainmenu/hotkey_choice.h"
#include "ports/locale_text.h"
#include "ports/shell.h"
#include "registry/tessel_registry.h"
#include "util/ignore.h"
#include "util/numbers.h"
#include "util/text.h"

namespace quillo {
namespace {

using C = OptionControl;

/// 0 for the first program shortcut.
std::size_t ShortcutIndex(C box) {
    constexpr auto kStep = static_cast<std::size_t>(C::ShortcutBox2) - static_cast<std::size_t>(C::ShortcutBox1);
    return (static_cast<std::size_t>(box) - static_cast<std::size_t>(C::ShortcutBox1)) / kStep;
}

std::u16string StyleWords(const FontSetting& font) {
    std::u16string words;
    if (font.bold) words += u" bold";
    if (font.italic) words += u" italic";
    if (font.underline) words += u" underlined";
    if (font.strikeThrough) words += u" struck through";
    return words;
}

}  // namespace

void OptionsController::FinishLoading() {
    SetStartupMode(settings_.startupMode);
    loading_ = false;
}

bool OptionsController::IsChecked(OptionControl check) const {
    if (check == C::SpecialStartupCheck) return settings_.startupMode >= 1;
    const OptionRow& row = RowOf(check);
    const FlagSetting* flag = FindFlag(row.settings.front());
    return flag != nullptr && flag->member(settings_);
}

void OptionsController::SetChecked(OptionControl check, bool checked) {
    if (loading_) return;
    if (check == C::SpecialStartupCheck) return SetStartupMode(checked ? 1 : 0);
    const OptionRow& row = RowOf(check);
    const FlagSetting* flag = FindFlag(row.settings.front());
    if (flag == nullptr) return;
    flag->member(settings_) = checked;
    Save(row);
    Apply(row.effect);
}

bool OptionsController::NeedsWarning(OptionControl check, bool checked) const {
    return check == C::SpecialStartupCheck && checked && !loading_;
}

void OptionsController::SetStartupMode(int mode) {
    // Only stored: the quit procedure sets or deletes the value that starts the program with Windows.
    settings_.startupMode = mode;
    TesselRegistry registry(services_.registry, kUserKey);
    registry.SetValueLong(RowOf(C::SpecialStartupCheck).settings.front(), mode);
}

void OptionsController::PickColors(ColorWord note, ColorWord border, ColorWord text) {
    if (loading_) return;
    settings_.noteColor = note;
    settings_.noteBorderColor = border;
    settings_.noteTextColor = text;
    Save(RowOf(C::ColorSelector));
    Apply(RowOf(C::ColorSelector).effect);
}

std::u16string OptionsController::FontText() const {
    const FontSetting& font = settings_.noteFont;
    const std::u16string size = FormatSingle(static_cast<float>(font.size), services_.locale.DecimalSeparator());
    return font.name + u", " + size + u" pt." + StyleWords(font);
}

void OptionsController::ChooseFont(const FontSetting& font) {
    if (loading_) return;
    settings_.noteFont = font;
    Save(RowOf(C::BrowseFontButton));
    Apply(RowOf(C::BrowseFontButton).effect);
}

int OptionsController::SliderValue() const {
    return std::clamp(kOpaque - settings_.noteOpacity, 0, kSliderEnd);
}

std::u16string OptionsController::OpacityText(int sliderValue) {
    constexpr int kWhole = 100;
    return FormatInteger(((kOpaque - sliderValue) * kWhole + kOpaque / 2) / kOpaque) + u"%";
}

void OptionsController::MoveSlider(int value) {
    if (loading_) return;
    settings_.noteOpacity = kOpaque - std::clamp(value, 0, kSliderEnd);
    settings_.noteTransparency = true;
    Save(RowOf(C::OpacitySlider));
    Apply(RowOf(C::OpacitySlider).effect);
}

std::u16string OptionsController::TextOf(OptionControl control) const {
    const Settings& settings = settings_;
    switch (control) {
        case C::ShortcutBox1:
        case C::ShortcutBox2:
        case C::ShortcutBox3:
        case C::ShortcutBox4:
            return settings.shortcuts.at(ShortcutIndex(control));
        case C::NewNoteKeyBox:
        case C::SurfaceKeyBox:
            return KeyName(HotkeyOf(control));
        case C::NoteFolderBox:
            return settings.noteFolder;
        case C::ReminderSoundBox:
            return settings.reminder;
        case C::FontLabel:
            return FontText();
        case C::NotesFolderPath:
            return services_.program.notesFolder;
        case C::HotkeysTakenLabel:
            return HotkeysTakenText();
        default:
            return std::u16string(RowOf(control).caption);
    }
}

int OptionsController::HotkeyOf(OptionControl keyBox) const {
    return keyBox == C::NewNoteKeyBox ? settings_.newNoteHotkey : settings_.showNotesHotkey;
}

bool OptionsController::PressKey(OptionControl keyBox, int virtualKey) {
    if (loading_) return false;
    const bool isNewNote = keyBox == C::NewNoteKeyBox;
    const int other = HotkeyOf(isNewNote ? C::SurfaceKeyBox : C::NewNoteKeyBox);
    if (!IsHotkeyAllowed(virtualKey, other)) return false;
    (isNewNote ? settings_.newNoteHotkey : settings_.showNotesHotkey) = virtualKey;
    return true;
}

std::u16string OptionsController::HelpKeys(const OptionsHelpKey& line) const {
    switch (line.source) {
        case HelpKeySource::NewNoteHotkey:
            return u"Windows+" + KeyName(settings_.newNoteHotkey);
        case HelpKeySource::SurfaceHotkey:
            return u"Windows+" + KeyName(settings_.showNotesHotkey);
        case HelpKeySource::Note:
            return KeyTextOf(line.action);
        case HelpKeySource::Edit:
            return std::u16string(line.keys);
    }
    return {};
}

std::u16string OptionsController::HotkeysTakenText() const {
    const std::array<int, 2> taken = services_.owner.TakenHotKeys();
    std::u16string keys;
    int count = 0;
    for (const int key : {settings_.newNoteHotkey, settings_.showNotesHotkey}) {
        // A key that was chosen since then is not registered yet.
        if (std::find(taken.begin(), taken.end(), key) == taken.end()) continue;
        keys += count++ == 0 ? u"Windows+" : u" and Windows+";
        keys += KeyName(key);
    }
    if (count == 0) return {};
    if (count == 1) {
        return keys + u" does not work: another program has it.  Choose another key on the page \"Shortcuts\".";
    }
    return keys + u" do not work: other programs have them.  Choose other keys on the page \"Shortcuts\".";
}

void OptionsController::PlaySound(std::u16string_view path) {
    soundTried_ = true;
    PlayReminderSound(path, services_.sound);
}

void OptionsController::StopSound() {
    if (!soundTried_) return;
    soundTried_ = false;
    StopReminderSound(services_.sound);
}

void OptionsController::OpenNotesFolder() {
    Ignore(services_.shell.Open(services_.program.notesFolder), "the folder's path is shown beside the button");
}

void OptionsController::OpenHelp() {
    quillo::OpenHelp(services_.shell);
}

void OptionsController::Close(const OptionsTexts& texts) {
    for (std::size_t i = 0; i < texts.shortcuts.size(); ++i) {
        services_.owner.SetShortcut(static_cast<int>(i) + 1, texts.shortcuts[i]);
    }
    Save(RowOf(C::NewNoteKeyBox));
    Save(RowOf(C::SurfaceKeyBox));
    services_.owner.RegisterHotKeys();

    // An emptied box means silence until the next start, which restores the default sound.
    settings_.reminder = texts.reminder;
    Save(RowOf(C::ReminderSoundBox));
    settings_.noteFolder = std::u16string(Trim(texts.noteFolder));
    Save(RowOf(C::NoteFolderBox));
    if (settings_.noteFolder.empty()) {
        // The next start would do the same; until then notes must not be saved to the root of a drive.
        settings_.noteFolder = services_.shell.FolderPath(SpecialFolder::DesktopDirectory);
    }
    StopSound();
    services_.owner.RedrawResources();
}

void OptionsController::Save(const OptionRow& row) {
    TesselRegistry registry(services_.registry);
    for (const std::u16string_view setting : row.settings) {
        if (!setting.empty()) SaveSetting(registry, settings_, setting);
    }
}

void OptionsController::Apply(OptionEffect effect) {
    switch (effect) {
        case OptionEffect::None:
            return;
        case OptionEffect::Translucency:
            return ApplyTranslucencyToAllNotes(services_.program.openNotes);
        case OptionEffect::Appearance:
            return ApplySettingsToAllNotes(services_.program.openNotes);
    }
}

}  // namespace quillo

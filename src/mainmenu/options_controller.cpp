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
    SetStartupMode(world_.settings.startupMode);
    loading_ = false;
}

bool OptionsController::IsChecked(OptionControl check) const {
    if (check == C::SpecialStartupCheck) return world_.settings.startupMode >= 1;
    const OptionRow& row = RowOf(check);
    const FlagSetting* flag = FindFlag(row.settings.front());
    return flag != nullptr && flag->member(world_.settings);
}

void OptionsController::SetChecked(OptionControl check, bool checked) {
    if (loading_) return;
    if (check == C::SpecialStartupCheck) return SetStartupMode(checked ? 1 : 0);
    const OptionRow& row = RowOf(check);
    const FlagSetting* flag = FindFlag(row.settings.front());
    if (flag == nullptr) return;
    flag->member(world_.settings) = checked;
    Save(row);
    Apply(row.effect);
}

bool OptionsController::NeedsWarning(OptionControl check, bool checked) const {
    return check == C::SpecialStartupCheck && checked && !loading_;
}

void OptionsController::SetStartupMode(int mode) {
    // Only stored: the quit procedure sets or deletes the value that starts the program with Windows.
    world_.settings.startupMode = mode;
    TesselRegistry registry(world_.registry, kUserKey);
    registry.SetValueLong(RowOf(C::SpecialStartupCheck).settings.front(), mode);
}

void OptionsController::PickColors(ColorWord note, ColorWord border, ColorWord text) {
    if (loading_) return;
    world_.settings.noteColor = note;
    world_.settings.noteBorderColor = border;
    world_.settings.noteTextColor = text;
    Save(RowOf(C::ColorSelector));
    Apply(RowOf(C::ColorSelector).effect);
}

std::u16string OptionsController::FontText() const {
    const FontSetting& font = world_.settings.noteFont;
    const std::u16string size = FormatSingle(static_cast<float>(font.size), world_.locale.DecimalSeparator());
    return font.name + u", " + size + u" pt." + StyleWords(font);
}

void OptionsController::ChooseFont(const FontSetting& font) {
    if (loading_) return;
    world_.settings.noteFont = font;
    Save(RowOf(C::BrowseFontButton));
    Apply(RowOf(C::BrowseFontButton).effect);
}

int OptionsController::SliderValue() const {
    return std::clamp(kOpaque - world_.settings.noteOpacity, 0, kSliderEnd);
}

std::u16string OptionsController::OpacityText(int sliderValue) {
    constexpr int kWhole = 100;
    return FormatInteger(((kOpaque - sliderValue) * kWhole + kOpaque / 2) / kOpaque) + u"%";
}

void OptionsController::MoveSlider(int value) {
    if (loading_) return;
    world_.settings.noteOpacity = kOpaque - std::clamp(value, 0, kSliderEnd);
    world_.settings.noteTransparency = true;
    Save(RowOf(C::OpacitySlider));
    Apply(RowOf(C::OpacitySlider).effect);
}

std::u16string OptionsController::TextOf(OptionControl control) const {
    const Settings& settings = world_.settings;
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
            return world_.notesFolder;
        case C::HotkeysTakenLabel:
            return HotkeysTakenText();
        default:
            return std::u16string(RowOf(control).caption);
    }
}

int OptionsController::HotkeyOf(OptionControl keyBox) const {
    return keyBox == C::NewNoteKeyBox ? world_.settings.newNoteHotkey : world_.settings.showNotesHotkey;
}

bool OptionsController::PressKey(OptionControl keyBox, int virtualKey) {
    if (loading_) return false;
    const bool isNewNote = keyBox == C::NewNoteKeyBox;
    const int other = HotkeyOf(isNewNote ? C::SurfaceKeyBox : C::NewNoteKeyBox);
    if (!IsHotkeyAllowed(virtualKey, other)) return false;
    (isNewNote ? world_.settings.newNoteHotkey : world_.settings.showNotesHotkey) = virtualKey;
    return true;
}

std::u16string OptionsController::HelpKeys(const OptionsHelpKey& line) const {
    switch (line.source) {
        case HelpKeySource::NewNoteHotkey:
            return u"Windows+" + KeyName(world_.settings.newNoteHotkey);
        case HelpKeySource::SurfaceHotkey:
            return u"Windows+" + KeyName(world_.settings.showNotesHotkey);
        case HelpKeySource::Note:
            return KeyTextOf(line.action);
        case HelpKeySource::Edit:
            return std::u16string(line.keys);
    }
    return {};
}

std::u16string OptionsController::HotkeysTakenText() const {
    const std::array<int, 2> taken = world_.owner.TakenHotKeys();
    std::u16string keys;
    int count = 0;
    for (const int key : {world_.settings.newNoteHotkey, world_.settings.showNotesHotkey}) {
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
    PlayReminderSound(path, world_.sound);
}

void OptionsController::StopSound() {
    if (!soundTried_) return;
    soundTried_ = false;
    StopReminderSound(world_.sound);
}

void OptionsController::OpenNotesFolder() {
    Ignore(world_.shell.Open(world_.notesFolder), "the folder's path stands beside the button");
}

void OptionsController::OpenHelp() {
    quillo::OpenHelp(world_.shell);
}

void OptionsController::Close(const OptionsTexts& texts) {
    for (std::size_t i = 0; i < texts.shortcuts.size(); ++i) {
        world_.owner.SetShortcut(static_cast<int>(i) + 1, texts.shortcuts[i]);
    }
    Save(RowOf(C::NewNoteKeyBox));
    Save(RowOf(C::SurfaceKeyBox));
    world_.owner.RegisterHotKeys();

    // An emptied box means silence until the next start, which restores the default sound.
    world_.settings.reminder = texts.reminder;
    Save(RowOf(C::ReminderSoundBox));
    world_.settings.noteFolder = std::u16string(Trim(texts.noteFolder));
    Save(RowOf(C::NoteFolderBox));
    if (world_.settings.noteFolder.empty()) {
        // The next start would do the same; until then notes must not be saved to the root of a drive.
        world_.settings.noteFolder = world_.shell.FolderPath(SpecialFolder::DesktopDirectory);
    }
    StopSound();
    world_.owner.RedrawResources();
}

void OptionsController::Save(const OptionRow& row) {
    TesselRegistry registry(world_.registry);
    for (const std::u16string_view setting : row.settings) {
        if (!setting.empty()) SaveSetting(registry, world_.settings, setting);
    }
}

void OptionsController::Apply(OptionEffect effect) {
    switch (effect) {
        case OptionEffect::None:
            return;
        case OptionEffect::Translucency:
            return ApplyTranslucencyToAllNotes(world_.notes);
        case OptionEffect::Appearance:
            return ApplySettingsToAllNotes(world_.notes);
    }
}

}  // namespace quillo

#pragma once

#include <array>
#include <string>
#include <string_view>

#include "app/program.h"
#include "mainmenu/options_table.h"
#include "util/color_word.h"

namespace quillo {

class LocaleText;
class RegistryApi;
class Shell;
class SoundDevice;

/// The main form as the options dialog sees it.
class OptionsOwner {
  public:
    virtual ~OptionsOwner() = default;
    /// Stores a program shortcut; `index` is 1 to 4.
    virtual void SetShortcut(int index, std::u16string_view path) = 0;
    virtual void RegisterHotKeys() = 0;
    /// The keys of the hotkeys for a new note and for all notes that could not be registered; 0 for one that works.
    [[nodiscard]] virtual std::array<int, 2> TakenHotKeys() const = 0;
    virtual void RedrawResources() = 0;
};

/// What the options dialog uses. Everything that it refers to outlives the dialog.
struct OptionsServices {
    Program& program;
    RegistryApi& registry;
    Shell& shell;
    SoundDevice& sound;
    LocaleText& locale;
    OptionsOwner& owner;
};

/// The text boxes as the dialog closes.
struct OptionsTexts {
    std::array<std::u16string, 4> shortcuts;
    std::u16string reminder;
    std::u16string noteFolder;
};

/// What the controls of the options dialog show, and what a change of one does: the setting, its registry value, the
/// open notes. While the dialog fills its controls, until FinishLoading, changes have no effect.
class OptionsController {
  public:
    /// The opacity at the slider's right end: faint, but visible.
    static constexpr int kFaintest = 32;
    static constexpr int kOpaque = 255;
    /// The slider runs from 0, which is opaque, to this.
    static constexpr int kSliderEnd = kOpaque - kFaintest;

    explicit OptionsController(const OptionsServices& services)
        : services_(services), settings_(services.program.settings) {}

    /// Called when the dialog opens again.
    void StartLoading() { loading_ = true; }
    /// Writes "Startup mode" as it was read, and nothing else; changes have effect from now on.
    void FinishLoading();

    [[nodiscard]] bool IsChecked(OptionControl check) const;
    void SetChecked(OptionControl check, bool checked);
    /// True if the user must be warned before SetChecked.
    [[nodiscard]] bool NeedsWarning(OptionControl check, bool checked) const;

    void PickColors(ColorWord note, ColorWord border, ColorWord text);

    /// The font's name, size and style: "Tahoma, 8 pt."
    [[nodiscard]] std::u16string FontText() const;
    [[nodiscard]] const Settings& Now() const { return settings_; }
    void ChooseFont(const FontSetting& font);

    [[nodiscard]] int SliderValue() const;
    /// That value for screen readers: the opacity of notes, in percent.
    [[nodiscard]] static std::u16string OpacityText(int sliderValue);
    /// Also makes the notes translucent.
    void MoveSlider(int value);

    /// The text of a text box, a key box or the label of a folder.
    [[nodiscard]] std::u16string TextOf(OptionControl control) const;
    /// A key pressed in a key box; true if it becomes that hotkey's key.
    bool PressKey(OptionControl keyBox, int virtualKey);
    /// The keys of a line on the Help page, with the current hotkeys.
    [[nodiscard]] std::u16string HelpKeys(const OptionsHelpKey& line) const;

    /// Names the hotkeys that do not work because another program owns them, and the remedy; "" if all work.
    [[nodiscard]] std::u16string HotkeysTakenText() const;

    void PlaySound(std::u16string_view path);
    void OpenNotesFolder();
    void OpenHelp();

    /// The close button: shortcuts, hotkeys, texts, the menu's artwork.
    void Close(const OptionsTexts& texts);
    /// Stops the sound that was tried out; also for a dialog that ends with the program.
    void StopSound();

  private:
    void Save(const OptionRow& row);
    void SetStartupMode(int mode);
    void Apply(OptionEffect effect);
    [[nodiscard]] int HotkeyOf(OptionControl keyBox) const;

    OptionsServices services_;
    Settings& settings_;
    bool loading_ = true;
    bool soundTried_ = false;
};

}  // namespace quillo

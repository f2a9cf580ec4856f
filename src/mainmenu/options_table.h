#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "notes/note_commands.h"

namespace quillo {

/// The pages of the options dialog, in the order of its tabs.
enum class OptionsPage { Appearance, Shortcuts, Behavior, Help };

inline constexpr std::size_t kOptionsPageCount = 4;
inline constexpr std::u16string_view kOptionsCaption = u"Quillo options";
inline constexpr std::u16string_view kOptionsTabs = u"Appearance|Shortcuts|Behavior|Help";
/// The caption of a page's tab.
[[nodiscard]] std::u16string_view NameOf(OptionsPage page);
inline constexpr std::u16string_view kCloseButtonCaption = u"&Close";

/// The question before Quillo no longer starts with Windows.
inline constexpr std::u16string_view kStartupWarning =
    u"Please note that this is an option intended mainly for advanced users.  While this is checked, Quillo will "
    u"always be unavailable unless you run it explicitly.  Be sure that this is what you want before you continue.";

/// Every control of the pages in reading order, which is the order of the Tab key.
enum class OptionControl {
    // Appearance
    AppearanceHeading,
    NotePreview,
    ColorsLabel,
    ColorSelector,
    FontTextLabel,
    FontLabel,  ///< completed with FontText
    BrowseFontButton,
    RandomNoteColorCheck,
    AutoAddTimestampCheck,
    NoHighContrastCheck,
    EyeCandyDivider,
    EyeCandyLabel,
    AnimationCheck,
    TranslucentCheck,
    OpaqueLabel,
    OpacitySlider,
    FaintLabel,
    // Shortcuts
    KeyboardHeading,
    KeyboardLabel,
    NewNoteWindowsKeyLabel,
    NewNoteKeyLabel,
    NewNoteKeyBox,  ///< KeyboardShortcutBox 0
    SurfaceWindowsKeyLabel,
    SurfaceKeyLabel,
    SurfaceKeyBox,  ///< KeyboardShortcutBox 1
    MoreShortcutsLabel,
    MenuShortcutsDivider,
    MenuShortcutsLabel,
    ShortcutLabel1,
    ShortcutBox1,
    BrowseButton1,
    ShortcutLabel2,
    ShortcutBox2,
    BrowseButton2,
    ShortcutLabel3,
    ShortcutBox3,
    BrowseButton3,
    ShortcutLabel4,
    ShortcutBox4,
    BrowseButton4,
    // Behavior
    BehaviorHeading,
    BehaviorLabel,
    ShowScrollBarsCheck,
    AutoPinCheck,
    DontRecycleCheck,
    MinimizeToTrayCheck,
    DragDropCheck,
    DontAdjustNotesCheck,
    BalloonDivider,
    DisableBalloonHelpCheck,
    ColumnDivider,
    NoteFilesDivider,
    NoteFolderLabel,
    NoteFolderBox,
    BrowseNoteFolderButton,
    DoNotRememberFilenamesCheck,
    RemindersDivider,
    ReminderSoundLabel,
    ReminderSoundBox,
    BrowseSoundButton,
    PlaySoundButton,
    StartupDivider,
    SpecialStartupCheck,
    // Help
    HelpHeading,
    HelpLabel,
    HelpKeys,           ///< the list of OptionsHelpKeys
    HotkeysTakenLabel,  ///< completed with HotkeysTakenText
    NotesFolderDivider,
    NotesFolderLabel,
    NotesFolderPath,  ///< completed with the folder of notes
    OpenNotesFolderButton,
    DeletedNotesDivider,
    DeletedNotesLabel,
    QuitDivider,
    QuitLabel,
    HelpDivider,
    HelpFileLabel,
    OpenHelpButton,
};

/// The ids of the windows: of a page's panel, and of a control on it.
inline constexpr int kFirstPanelId = 100;
inline constexpr int kFirstOptionId = 200;
[[nodiscard]] constexpr int PanelIdOf(OptionsPage page) {
    return kFirstPanelId + static_cast<int>(page);
}
[[nodiscard]] constexpr int IdOf(OptionControl control) {
    return kFirstOptionId + static_cast<int>(control);
}
inline constexpr int kTabStripId = 90;

enum class OptionKind {
    Heading,
    Text,
    Divider,
    Check,
    TextBox,
    KeyBox,
    Button,
    GlyphButton,
    Colors,
    Preview,
    Slider,
    KeyList
};

/// What a change applies to the open notes again.
enum class OptionEffect {
    None,
    Translucency,  ///< their translucency
    Appearance,    ///< their colors, font, scroll bars and drop targets
};

/// When the value of a control is saved.
enum class OptionSaving { Never, AtOnce, OnClose };

/// One control: its caption, and the settings that it changes.
struct OptionRow {
    OptionControl control;
    OptionsPage page;
    OptionKind kind;
    std::u16string_view caption;
    std::u16string_view toolTip{};
    OptionSaving saving = OptionSaving::Never;
    /// The registry values, from the first on; the remaining entries are empty.
    std::array<std::u16string_view, 4> settings{};
    OptionEffect effect = OptionEffect::None;
};

[[nodiscard]] const OptionRow& RowOf(OptionControl control);
/// The check boxes directly behind a control, in their order on the page: another row there is another option.
[[nodiscard]] std::vector<OptionControl> ChecksAfter(OptionControl control);

/// The rows of every page, in the order of OptionControl.
inline constexpr std::size_t kOptionControlCount = static_cast<std::size_t>(OptionControl::OpenHelpButton) + 1;
[[nodiscard]] const std::array<OptionRow, kOptionControlCount>& OptionsTable();

/// The source of the keys of a line on the Help page.
enum class HelpKeySource {
    NewNoteHotkey,  ///< the key that the user has chosen
    SurfaceHotkey,
    Note,  ///< the table of a note's keys
    Edit   ///< the system's keys in a text box
};
/// A line of the list of keys on the Help page.
struct OptionsHelpKey {
    HelpKeySource source;
    std::u16string_view meaning;
    NoteAction action = NoteAction::None;  ///< if the source is Note
    std::u16string_view keys{};            ///< if the source is Edit
};
[[nodiscard]] const std::array<OptionsHelpKey, 13>& OptionsHelpKeys();

}  // namespace quillo

#include "mainmenu/options_table.h"

#include "app/base/settings.h"

namespace quillo {
namespace {

using C = OptionControl;
using E = OptionEffect;
using K = OptionKind;

constexpr OptionsPage kAppearance = OptionsPage::Appearance;
constexpr OptionsPage kShortcuts = OptionsPage::Shortcuts;
constexpr OptionsPage kBehavior = OptionsPage::Behavior;
constexpr OptionsPage kHelp = OptionsPage::Help;
constexpr OptionSaving kAtOnce = OptionSaving::AtOnce;
constexpr OptionSaving kOnClose = OptionSaving::OnClose;

constexpr std::u16string_view kShortcutTip = u"Click the [...] button to browse for programs.";

/// A check box for one flag.
constexpr OptionRow Check(C control, OptionsPage page, std::u16string_view caption, std::u16string_view setting,
                          E effect = E::None) {
    return {control, page, K::Check, caption, u"", kAtOnce, {setting}, effect};
}
constexpr OptionRow TextBox(C control, OptionsPage page, std::u16string_view toolTip, std::u16string_view setting) {
    return {control, page, K::TextBox, u"", toolTip, kOnClose, {setting}};
}
constexpr OptionRow KeyBox(C control, std::u16string_view setting) {
    return {control, kShortcuts, K::KeyBox, u"", u"", kOnClose, {setting}};
}

constexpr std::array<OptionRow, kOptionControlCount> kTable = {{
    {C::AppearanceHeading, kAppearance, K::Heading, u"Sticky note appearance options"},
    {C::NotePreview, kAppearance, K::Preview, u"Preview of a new note"},
    {C::ColorsLabel, kAppearance, K::Text, u"Choose the default colors for new sticky notes."},
    {C::ColorSelector,
     kAppearance,
     K::Colors,
     u"Default colors",
     u"",
     kAtOnce,
     {setting::kNoteColor, setting::kNoteBorderColor, setting::kNoteTextColor},
     E::Appearance},
    {C::FontTextLabel, kAppearance, K::Text, u"You can choose a font for the text on your sticky notes."},
    {C::FontLabel, kAppearance, K::Text, u""},
    {C::BrowseFontButton,
     kAppearance,
     K::Button,
     u"&Browse...",
     u"Click here to browse for a new font.",
     kAtOnce,
     {setting::kNoteFont, setting::kNoteFontSize, setting::kNoteFontStyle, setting::kNoteFontCharset},
     E::Appearance},
    Check(C::RandomNoteColorCheck, kAppearance, u"Make every note a different color.", setting::kRandomNoteColor),
    Check(C::AutoAddTimestampCheck, kAppearance, u"Add the time and date to newly created notes.",
          setting::kTimestampNewNotes),
    Check(C::NoHighContrastCheck, kAppearance, u"Display the notes with more subtle title bars.",
          setting::kHighContrastOff, E::Appearance),
    {C::EyeCandyDivider, kAppearance, K::Divider, u"Eye candy"},
    {C::EyeCandyLabel, kAppearance, K::Text,
     u"These options may improve the appearance of Quillo, but will cause it to run more slowly."},
    Check(C::AnimationCheck, kAppearance, u"Animate the Quillo menu.", setting::kDisableAnimation),
    Check(C::TranslucentCheck, kAppearance, u"Make my notes translucent (see-through).", setting::kNoteTransparency,
          E::Translucency),
    {C::OpaqueLabel, kAppearance, K::Text, u"Opaque"},
    {C::OpacitySlider,
     kAppearance,
     K::Slider,
     u"Opacity",
     u"",
     kAtOnce,
     {setting::kNoteOpacity, setting::kNoteTransparency},
     E::Translucency},
    {C::FaintLabel, kAppearance, K::Text, u"Faint"},

    {C::KeyboardHeading, kShortcuts, K::Heading, u"Keyboard shortcuts"},
    {C::KeyboardLabel, kShortcuts, K::Text,
     u"You can create new notes and surface all of your notes from any program using these keyboard shortcuts.  You "
     u"can change them if they conflict with another program."},
    {C::NewNoteWindowsKeyLabel, kShortcuts, K::Text, u"Windows key +"},
    {C::NewNoteKeyLabel, kShortcuts, K::Text, u"New note:"},
    KeyBox(C::NewNoteKeyBox, setting::kNewNoteHotkey),
    {C::SurfaceWindowsKeyLabel, kShortcuts, K::Text, u"Windows key +"},
    {C::SurfaceKeyLabel, kShortcuts, K::Text, u"Surface all notes:"},
    KeyBox(C::SurfaceKeyBox, setting::kShowNotesHotkey),
    {C::MoreShortcutsLabel, kShortcuts, K::Text, u"See Quillo help for a listing of more handy shortcuts."},
    {C::MenuShortcutsDivider, kShortcuts, K::Divider, u"Quillo menu shortcuts"},
    {C::MenuShortcutsLabel, kShortcuts, K::Text,
     u"You can keep shortcuts to four frequently-used programs right on the Quillo menu.  You can search for the "
     u"programs here, or you can drag-and-drop programs to the Quillo menu."},
    {C::ShortcutLabel1, kShortcuts, K::Text, u"Program &1:"},
    TextBox(C::ShortcutBox1, kShortcuts, kShortcutTip, setting::kShortcuts[0]),
    {C::BrowseButton1, kShortcuts, K::GlyphButton, u"Browse for program 1", kShortcutTip},
    {C::ShortcutLabel2, kShortcuts, K::Text, u"Program &2:"},
    TextBox(C::ShortcutBox2, kShortcuts, kShortcutTip, setting::kShortcuts[1]),
    {C::BrowseButton2, kShortcuts, K::GlyphButton, u"Browse for program 2", kShortcutTip},
    {C::ShortcutLabel3, kShortcuts, K::Text, u"Program &3:"},
    TextBox(C::ShortcutBox3, kShortcuts, kShortcutTip, setting::kShortcuts[2]),
    {C::BrowseButton3, kShortcuts, K::GlyphButton, u"Browse for program 3", kShortcutTip},
    {C::ShortcutLabel4, kShortcuts, K::Text, u"Program &4:"},
    TextBox(C::ShortcutBox4, kShortcuts, kShortcutTip, setting::kShortcuts[3]),
    {C::BrowseButton4, kShortcuts, K::GlyphButton, u"Browse for program 4", kShortcutTip},

    {C::BehaviorHeading, kBehavior, K::Heading, u"Sticky note behavior"},
    {C::BehaviorLabel, kBehavior, K::Text,
     u"What your notes do when you make, move, close and delete them, and when they remind you."},
    Check(C::ShowScrollBarsCheck, kBehavior, u"Show scroll bars on my notes.", setting::kShowScrollBars, E::Appearance),
    Check(C::AutoPinCheck, kBehavior, u"Automatically pin new sticky notes.", setting::kAutoPinNewNotes),
    Check(C::DontRecycleCheck, kBehavior, u"Don't put deleted notes in the Recycle Bin.", setting::kDontRecycleNotes),
    Check(C::MinimizeToTrayCheck, kBehavior, u"Clicking the (X) puts the note next to the clock.",
          setting::kMinimizeToTray),
    Check(C::DragDropCheck, kBehavior, u"Allow me to drag-and-drop text on my notes.", setting::kNoDragAndDrop,
          E::Appearance),
    Check(C::DontAdjustNotesCheck, kBehavior, u"Don't adjust notes to fit on my screen (for multiple monitors)",
          setting::kDoNotAdjustNotes),
    {C::BalloonDivider, kBehavior, K::Divider, u"Balloon help"},
    Check(C::DisableBalloonHelpCheck, kBehavior, u"Do not show help balloons.", setting::kDisableBalloonHelp),
    {C::ColumnDivider, kBehavior, K::Divider, u""},
    {C::NoteFilesDivider, kBehavior, K::Divider, u"Note files"},
    {C::NoteFolderLabel, kBehavior, K::Text, u"When I close notes, save their files here instead of the desktop:"},
    TextBox(C::NoteFolderBox, kBehavior, u"Click [...] to search for a folder.", setting::kNoteFolder),
    {C::BrowseNoteFolderButton, kBehavior, K::GlyphButton, u"Browse for a folder",
     u"Click here to search for a folder."},
    Check(C::DoNotRememberFilenamesCheck, kBehavior, u"...even if I previously renamed or moved the file.",
          setting::kDoNotRememberFilenames),
    {C::RemindersDivider, kBehavior, K::Divider, u"Sticky reminders"},
    {C::ReminderSoundLabel, kBehavior, K::Text, u"Choose which sound file will be played for note reminders. "},
    TextBox(C::ReminderSoundBox, kBehavior, u"Click [...] to search for a sound.", setting::kReminder),
    {C::BrowseSoundButton, kBehavior, K::GlyphButton, u"Browse for a sound", u"Click here to search for a sound."},
    {C::PlaySoundButton, kBehavior, K::GlyphButton, u"Play this sound", u"Click here to play this sound."},
    {C::StartupDivider, kBehavior, K::Divider, u"Quillo startup behavior"},
    {C::SpecialStartupCheck,
     kBehavior,
     K::Check,
     u"Do not automatically start Quillo when I log in.",
     u"",
     kAtOnce,
     {setting::kStartupModeWritten}},

    {C::HelpHeading, kHelp, K::Heading, u"Quillo at a glance"},
    {C::HelpLabel, kHelp, K::Text, u"The keys that save the most time:"},
    {C::HelpKeys, kHelp, K::KeyList, u"Keys"},
    {C::HotkeysTakenLabel, kHelp, K::Text, u""},
    {C::NotesFolderDivider, kHelp, K::Divider, u"Where your notes live"},
    {C::NotesFolderLabel, kHelp, K::Text,
     u"Each note is a file of its own, saved for you while you type, in this folder:"},
    {C::NotesFolderPath, kHelp, K::TextBox, u""},
    {C::OpenNotesFolderButton, kHelp, K::Button, u"Open &folder", u"Click here to open the folder of your notes."},
    {C::DeletedNotesDivider, kHelp, K::Divider, u"Bringing back a deleted note"},
    {C::DeletedNotesLabel, kHelp, K::Text,
     u"A deleted note waits in the Recycle Bin: look there for a file that ends in .qln and is named after the first "
     u"words of the note, choose Restore, and open the file.  With \"Don't put deleted notes in the Recycle Bin.\" "
     u"checked it is gone for good."},
    {C::QuitDivider, kHelp, K::Divider, u"Quitting Quillo"},
    {C::QuitLabel, kHelp, K::Text,
     u"Right-click the cross of the Quillo menu.  Your notes are saved, and come back when Quillo starts again."},
    {C::HelpDivider, kHelp, K::Divider, u"Quillo help"},
    {C::HelpFileLabel, kHelp, K::Text,
     u"Everything else, from reminders in plain words to all the keys, is in the help."},
    {C::OpenHelpButton, kHelp, K::Button, u"Open &help", u"Click here to open the help."},
}};

constexpr bool IsInOrder() {
    for (std::size_t i = 0; i < kTable.size(); ++i) {
        if (static_cast<std::size_t>(kTable[i].control) != i) return false;
    }
    return true;
}
static_assert(IsInOrder(), "a row is found by the number of its control");

using S = HelpKeySource;
using A = NoteAction;
constexpr std::array<OptionsHelpKey, 13> kHelpKeys = {{
    {S::NewNoteHotkey, u"New note"},
    {S::SurfaceHotkey, u"Surface all notes"},
    {S::Note, u"Set a reminder", A::AskReminder},
    {S::Note, u"Add the time and date", A::AddTimestamp},
    {S::Note, u"Large text", A::ToggleLargeText},
    {S::Note, u"Pin on top", A::TogglePin},
    {S::Note, u"Select the whole text", A::SelectAll},
    {S::Edit, u"Take back the last change", A::None, u"Ctrl+Z"},
    {S::Note, u"Put next to the clock", A::Minimize},
    {S::Note, u"Close the note", A::ClickClose},
    {S::Note, u"Delete the note", A::QuickDelete},
    {S::Note, u"Go to the next note", A::NextNote},
    {S::Note, u"Open the note's menu", A::OpenMenu},
}};

}  // namespace

std::u16string_view NameOf(OptionsPage page) {
    std::u16string_view left = kOptionsTabs;
    for (int i = static_cast<int>(page); i > 0; --i) left.remove_prefix(left.find(u'|') + 1);
    return left.substr(0, left.find(u'|'));
}

const std::array<OptionRow, kOptionControlCount>& OptionsTable() {
    return kTable;
}

const OptionRow& RowOf(OptionControl control) {
    return kTable[static_cast<std::size_t>(control)];
}

std::vector<OptionControl> ChecksAfter(OptionControl control) {
    std::vector<OptionControl> checks;
    for (std::size_t i = static_cast<std::size_t>(control) + 1; i < kTable.size(); ++i) {
        if (kTable[i].kind != OptionKind::Check || kTable[i].page != RowOf(control).page) break;
        checks.push_back(kTable[i].control);
    }
    return checks;
}

const std::array<OptionsHelpKey, 13>& OptionsHelpKeys() {
    return kHelpKeys;
}

}  // namespace quillo

#include "mainmenu/options_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <variant>

#include "app/base/settings_table.h"
#include "util/text.h"

namespace quillo {
namespace {

using C = OptionControl;

const SettingRow* FindSetting(std::u16string_view name) {
    for (const SettingRow& row : SettingsTable()) {
        if (EqualsIgnoringAsciiCase(row.name, name)) return &row;
    }
    return nullptr;
}

std::set<std::u16string> SettingsOf(const OptionRow& row) {
    std::set<std::u16string> names;
    for (const std::u16string_view name : row.settings) {
        if (!name.empty()) names.emplace(name);
    }
    return names;
}

TEST(OptionsTableTest, EveryOptionCanBeReached) {
    for (const SettingRow& setting : SettingsTable()) {
        if (setting.name == setting::kShownHelp) continue;  // recorded by the program
        const auto& table = OptionsTable();
        EXPECT_TRUE(std::any_of(table.begin(), table.end(),
                                [&](const OptionRow& row) {
                                    return std::any_of(row.settings.begin(), row.settings.end(), [&](auto name) {
                                        return EqualsIgnoringAsciiCase(name, setting.name);
                                    });
                                }))
            << "no control for a setting of " << setting.name.size() << " letters, number "
            << (&setting - SettingsTable().data());
    }
}

TEST(OptionsTableTest, ControlsWriteOptionsOnly) {
    for (const OptionRow& row : OptionsTable()) {
        for (const std::u16string& name : SettingsOf(row)) {
            const SettingRow* setting = FindSetting(name);
            ASSERT_NE(setting, nullptr) << "control " << static_cast<int>(row.control);
            EXPECT_NE(setting->name, setting::kShownHelp) << "control " << static_cast<int>(row.control);
        }
    }
}

TEST(OptionsTableTest, OnlyTranslucencyHasTwoControls) {
    std::map<std::u16string, int> controls;
    for (const OptionRow& row : OptionsTable()) {
        for (const std::u16string& name : SettingsOf(row)) ++controls[FoldAscii(name)];
    }
    for (const auto& [name, count] : controls) {
        EXPECT_EQ(count, name == FoldAscii(u"Note transparency") ? 2 : 1);
    }
}

TEST(OptionsTableTest, EveryCheckBoxExceptStartupHasOneFlag) {
    for (const OptionRow& row : OptionsTable()) {
        if (row.kind != OptionKind::Check) continue;
        ASSERT_EQ(SettingsOf(row).size(), 1U);
        EXPECT_EQ(row.saving, OptionSaving::AtOnce);
        const SettingRow* setting = FindSetting(row.settings.front());
        ASSERT_NE(setting, nullptr);
        EXPECT_EQ(std::holds_alternative<FlagSetting>(setting->kind), row.control != C::SpecialStartupCheck);
    }
}

TEST(OptionsTableTest, OnlyAnimationAndDragAndDropAreStoredInverted) {
    for (const OptionRow& row : OptionsTable()) {
        const FlagSetting* flag = row.kind == OptionKind::Check ? FindFlag(row.settings.front()) : nullptr;
        if (flag == nullptr) continue;
        EXPECT_EQ(flag->inverted, row.control == C::AnimationCheck || row.control == C::DragDropCheck);
    }
}

TEST(OptionsTableTest, WritesAtOnceExceptForTextsAndKeys) {
    for (const OptionRow& row : OptionsTable()) {
        const bool onClose =
            row.kind == OptionKind::KeyBox || (row.kind == OptionKind::TextBox && row.control != C::NotesFolderPath);
        const bool any = !SettingsOf(row).empty();
        EXPECT_EQ(row.saving, onClose ? OptionSaving::OnClose
                              : any   ? OptionSaving::AtOnce
                                      : OptionSaving::Never)
            << "control " << static_cast<int>(row.control);
    }
}

TEST(OptionsTableTest, PagesFollowTheTabs) {
    EXPECT_EQ(std::count(kOptionsTabs.begin(), kOptionsTabs.end(), u'|') + 1,
              static_cast<std::ptrdiff_t>(kOptionsPageCount));
    OptionsPage last = OptionsPage::Appearance;
    for (const OptionRow& row : OptionsTable()) {
        EXPECT_GE(row.page, last);
        last = row.page;
    }
    EXPECT_EQ(last, OptionsPage::Help);
}

TEST(OptionsTableTest, AControlWithoutTextHasANameOrALabelBeforeIt) {
    const auto& table = OptionsTable();
    for (std::size_t i = 0; i < table.size(); ++i) {
        switch (table[i].kind) {
            case OptionKind::TextBox:
            case OptionKind::KeyBox:
                ASSERT_GT(i, 0U);
                EXPECT_EQ(table[i - 1].kind, OptionKind::Text);
                EXPECT_FALSE(table[i - 1].caption.empty());
                break;
            case OptionKind::Divider:
                EXPECT_EQ(table[i].caption.empty(), table[i].control == C::ColumnDivider);
                break;
            default:
                EXPECT_EQ(table[i].caption.empty(),
                          table[i].control == C::FontLabel || table[i].control == C::HotkeysTakenLabel);
        }
    }
}

TEST(OptionsTableTest, NoTwoControlsOfAPageShareAnAccessKey) {
    std::set<std::pair<OptionsPage, char16_t>> keys;
    const char16_t closeKey = AsciiLower(kCloseButtonCaption.at(kCloseButtonCaption.find(u'&') + 1));
    for (const OptionRow& row : OptionsTable()) {
        const std::size_t at = row.caption.find(u'&');
        if (at == std::u16string_view::npos) continue;
        const char16_t key = AsciiLower(row.caption.at(at + 1));
        EXPECT_NE(key, closeKey);
        EXPECT_TRUE(keys.emplace(row.page, key).second) << "control " << static_cast<int>(row.control);
    }
}

TEST(OptionsTableTest, EveryCheckBoxFollowsAControlThatItsPageNames) {
    using Checks = std::vector<OptionControl>;
    EXPECT_EQ(ChecksAfter(C::BrowseFontButton),
              (Checks{C::RandomNoteColorCheck, C::AutoAddTimestampCheck, C::NoHighContrastCheck}));
    EXPECT_EQ(ChecksAfter(C::EyeCandyLabel), (Checks{C::AnimationCheck, C::TranslucentCheck}));
    EXPECT_EQ(ChecksAfter(C::BalloonDivider), Checks{C::DisableBalloonHelpCheck});
    EXPECT_EQ(ChecksAfter(C::AppearanceHeading), Checks{});
    EXPECT_EQ(ChecksAfter(C::OpenHelpButton), Checks{}) << "the last of all";
    // The pages name these controls.
    std::size_t shown = 0;
    for (const C before : {C::BrowseFontButton, C::EyeCandyLabel, C::BehaviorLabel, C::BalloonDivider,
                           C::BrowseNoteFolderButton, C::StartupDivider}) {
        shown += ChecksAfter(before).size();
    }
    EXPECT_EQ(shown, static_cast<std::size_t>(
                         std::count_if(OptionsTable().begin(), OptionsTable().end(),
                                       [](const OptionRow& row) { return row.kind == OptionKind::Check; })));
}

TEST(OptionsTableTest, CaptionsAreExact) {
    EXPECT_EQ(kOptionsCaption, u"Quillo options");
    EXPECT_EQ(kOptionsTabs, u"Appearance|Shortcuts|Behavior|Help");
    const std::map<OptionControl, std::u16string_view> captions = {
        {C::AppearanceHeading, u"Sticky note appearance options"},
        {C::ColorsLabel, u"Choose the default colors for new sticky notes."},
        {C::FontTextLabel, u"You can choose a font for the text on your sticky notes."},
        {C::BrowseFontButton, u"&Browse..."},
        {C::RandomNoteColorCheck, u"Make every note a different color."},
        {C::AutoAddTimestampCheck, u"Add the time and date to newly created notes."},
        {C::NoHighContrastCheck, u"Display the notes with more subtle title bars."},
        {C::EyeCandyDivider, u"Eye candy"},
        {C::EyeCandyLabel,
         u"These options may improve the appearance of Quillo, but will cause it to run more slowly."},
        {C::AnimationCheck, u"Animate the Quillo menu."},
        {C::TranslucentCheck, u"Make my notes translucent (see-through)."},
        {C::OpaqueLabel, u"Opaque"},
        {C::FaintLabel, u"Faint"},
        {C::KeyboardHeading, u"Keyboard shortcuts"},
        {C::KeyboardLabel,
         u"You can create new notes and surface all of your notes from any program using these keyboard shortcuts.  "
         u"You can change them if they conflict with another program."},
        {C::NewNoteWindowsKeyLabel, u"Windows key +"},
        {C::NewNoteKeyLabel, u"New note:"},
        {C::SurfaceWindowsKeyLabel, u"Windows key +"},
        {C::SurfaceKeyLabel, u"Surface all notes:"},
        {C::MoreShortcutsLabel, u"See Quillo help for a listing of more handy shortcuts."},
        {C::MenuShortcutsDivider, u"Quillo menu shortcuts"},
        {C::MenuShortcutsLabel,
         u"You can keep shortcuts to four frequently-used programs right on the Quillo menu.  You can search for the "
         u"programs here, or you can drag-and-drop programs to the Quillo menu."},
        {C::BehaviorHeading, u"Sticky note behavior"},
        {C::ShowScrollBarsCheck, u"Show scroll bars on my notes."},
        {C::AutoPinCheck, u"Automatically pin new sticky notes."},
        {C::DontRecycleCheck, u"Don't put deleted notes in the Recycle Bin."},
        {C::MinimizeToTrayCheck, u"Clicking the (X) puts the note next to the clock."},
        {C::DragDropCheck, u"Allow me to drag-and-drop text on my notes."},
        {C::DontAdjustNotesCheck, u"Don't adjust notes to fit on my screen (for multiple monitors)"},
        {C::BalloonDivider, u"Balloon help"},
        {C::DisableBalloonHelpCheck, u"Do not show help balloons."},
        {C::NoteFilesDivider, u"Note files"},
        {C::NoteFolderLabel, u"When I close notes, save their files here instead of the desktop:"},
        {C::DoNotRememberFilenamesCheck, u"...even if I previously renamed or moved the file."},
        {C::RemindersDivider, u"Sticky reminders"},
        {C::ReminderSoundLabel, u"Choose which sound file will be played for note reminders. "},
        {C::StartupDivider, u"Quillo startup behavior"},
        {C::SpecialStartupCheck, u"Do not automatically start Quillo when I log in."},
    };
    for (const auto& [control, caption] : captions) {
        EXPECT_EQ(RowOf(control).caption, caption) << "control " << static_cast<int>(control);
    }
}

TEST(OptionsTableTest, ToolTipsAndTheWarningAreExact) {
    const std::map<OptionControl, std::u16string_view> toolTips = {
        {C::BrowseFontButton, u"Click here to browse for a new font."},
        {C::ShortcutBox1, u"Click the [...] button to browse for programs."},
        {C::BrowseButton4, u"Click the [...] button to browse for programs."},
        {C::NoteFolderBox, u"Click [...] to search for a folder."},
        {C::BrowseNoteFolderButton, u"Click here to search for a folder."},
        {C::ReminderSoundBox, u"Click [...] to search for a sound."},
        {C::BrowseSoundButton, u"Click here to search for a sound."},
    };
    for (const auto& [control, toolTip] : toolTips) {
        EXPECT_EQ(RowOf(control).toolTip, toolTip) << "control " << static_cast<int>(control);
    }
    EXPECT_EQ(kStartupWarning,
              u"Please note that this is an option intended mainly for advanced users.  While this is checked, Quillo "
              u"will always be unavailable unless you run it explicitly.  Be sure that this is what you want before "
              u"you continue.");
}

}  // namespace
}  // namespace quillo

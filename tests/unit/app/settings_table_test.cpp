#include "app/base/settings_table.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "app/base/registry_keys.h"
#include "registry/tessel_registry.h"
#include "testing/fake_file_store.h"
#include "testing/fake_registry_api.h"
#include "testing/fake_shell.h"

namespace quillo {
namespace {

constexpr std::int32_t kLargest = INT32_MAX;

class SettingsTableTest : public testing::Test {
  protected:
    Settings Load() {
        TesselRegistry registry(api_);
        Settings settings;
        LoadSettings(registry, shell_, files_, settings);
        return settings;
    }

    FakeRegistryApi api_;
    FakeShell shell_;
    FakeFileStore files_;
};

TEST_F(SettingsTableTest, EveryDefaultAppliesWithoutAKeyWhichIsCreated) {
    const Settings s = Load();
    EXPECT_EQ(s.shortcuts[0], u"C:\\Windows\\Explorer.exe");
    EXPECT_EQ(s.shortcuts[1], u"C:\\Program Files\\Windows Media Player\\wmplayer.exe");
    EXPECT_EQ(s.shortcuts[2], u"C:\\Windows\\Notepad.exe");
    EXPECT_EQ(s.shortcuts[3], u"C:\\Windows\\Calc.exe");
    EXPECT_EQ(s.noteFont, FontSetting{});
    EXPECT_EQ(s.noteFont.name, u"Tahoma");
    EXPECT_EQ(s.noteFont.size, 8);
    EXPECT_EQ(s.noteColor, ColorWord{0xD7FDFE});
    EXPECT_EQ(s.noteBorderColor, ColorWord{0x38CFFE});
    EXPECT_EQ(s.noteTextColor, ColorWord{0});
    EXPECT_FALSE(s.noteTransparency);
    EXPECT_EQ(s.noteOpacity, 192);
    EXPECT_FALSE(s.minimizeToTray);
    EXPECT_TRUE(s.dragAndDrop);
    EXPECT_FALSE(s.showScrollBars);
    EXPECT_TRUE(s.randomNoteColor);
    EXPECT_FALSE(s.timestampNewNotes);
    EXPECT_FALSE(s.highContrastOff);
    EXPECT_FALSE(s.dontRecycleNotes);
    EXPECT_FALSE(s.disableBalloonHelp);
    EXPECT_TRUE(s.animation);
    EXPECT_EQ(s.reminder, u"C:\\Program Files\\Quillo\\Reminder.wma");
    EXPECT_EQ(s.noteFolder, u"C:\\Users\\ann\\Desktop");
    EXPECT_FALSE(s.doNotRememberFilenames);
    EXPECT_FALSE(s.autoPinNewNotes);
    EXPECT_FALSE(s.doNotAdjustNotes);
    EXPECT_EQ(s.newNoteHotkey, 78);
    EXPECT_EQ(s.showNotesHotkey, 83);
    EXPECT_FALSE(s.shownHelp);
    EXPECT_EQ(s.startupMode, 0);
    EXPECT_FALSE(s.useRoamingProfile);

    EXPECT_TRUE(api_.HasKey(kUserKey));
    EXPECT_EQ(api_.ValueCount(kUserKey), 0U) << "loading writes no value";
}

TEST_F(SettingsTableTest, RowsAreInTheOrderOfLoading) {
    const std::u16string_view expected[] = {u"Shortcut 1",
                                            u"Shortcut 2",
                                            u"Shortcut 3",
                                            u"Shortcut 4",
                                            u"Note font",
                                            u"Note font size",
                                            u"Note font style",
                                            u"Note font charset",
                                            u"Note color",
                                            u"Note border color",
                                            u"Note text color",
                                            u"Note transparency",
                                            u"Note opacity",
                                            u"Minimize to tray",
                                            u"No drag and drop",
                                            u"Show scroll bars",
                                            u"Random note color",
                                            u"Timestamp new notes",
                                            u"High contrast off",
                                            u"Don't recycle notes",
                                            u"Disable balloon help",
                                            u"Disable animation",
                                            u"Reminder",
                                            u"Note folder",
                                            u"Do not remember filenames",
                                            u"Auto-pin new notes",
                                            u"Do not adjust notes",
                                            u"New note hotkey",
                                            u"Show notes hotkey",
                                            u"Shown Help",
                                            u"Startup Mode"};
    ASSERT_EQ(SettingsTable().size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) EXPECT_EQ(SettingsTable()[i].name, expected[i]);
}

TEST_F(SettingsTableTest, AShortcutThatTheSystemCouldNotRunGivesTheDefault) {
    const std::u16string before = Load().shortcuts[1];
    api_.Put(kUserKey, u"Shortcut 2", std::u16string(259, u'x'));
    EXPECT_EQ(Load().shortcuts[1], std::u16string(259, u'x'));
    api_.Put(kUserKey, u"Shortcut 2", std::u16string(260, u'x'));
    EXPECT_EQ(Load().shortcuts[1], before);
}

TEST_F(SettingsTableTest, ShortcutsFallBackToTheSystemFolderOnlyForProgramsInIt) {
    struct Case {
        std::vector<std::u16string> present;
        std::u16string_view calculator;
    };
    const Case cases[] = {
        {{}, u"C:\\Windows\\Calc.exe"},
        {{u"C:\\Windows\\Calc.exe"}, u"C:\\Windows\\Calc.exe"},
        {{u"C:\\Windows\\System32\\Calc.exe"}, u"C:\\Windows\\System32\\Calc.exe"},
        {{u"C:\\Windows\\Calc.exe", u"C:\\Windows\\System32\\Calc.exe"}, u"C:\\Windows\\Calc.exe"},
    };
    for (const Case& c : cases) {
        files_ = FakeFileStore();
        for (const std::u16string& path : c.present) files_.Put(path, "program");
        EXPECT_EQ(Load().shortcuts[3], c.calculator);
    }
    files_.Put(u"C:\\Windows\\System32\\Explorer.exe", "program");
    files_.Put(u"C:\\Windows\\System32\\Notepad.exe", "program");
    files_.Put(u"C:\\Windows\\System32\\Windows Media Player\\wmplayer.exe", "program");
    const Settings s = Load();
    EXPECT_EQ(s.shortcuts[0], u"C:\\Windows\\System32\\Explorer.exe");
    EXPECT_EQ(s.shortcuts[1], u"C:\\Program Files\\Windows Media Player\\wmplayer.exe");
    EXPECT_EQ(s.shortcuts[2], u"C:\\Windows\\System32\\Notepad.exe");
}

TEST_F(SettingsTableTest, TextsAreReadUnchangedOrTrimmed) {
    api_.Put(kUserKey, u"Shortcut 2", u" C:\\a.exe ");
    api_.Put(kUserKey, u"Note font", u"  Arial ");
    api_.Put(kUserKey, u"Reminder", u" C:\\ring.wav ");
    api_.Put(kUserKey, u"Note folder", u"   ");
    const Settings s = Load();
    EXPECT_EQ(s.shortcuts[1], u" C:\\a.exe ");
    EXPECT_EQ(s.noteFont.name, u"Arial");
    EXPECT_EQ(s.reminder, u"C:\\ring.wav");
    EXPECT_EQ(s.noteFolder, u"C:\\Users\\ann\\Desktop");
}

TEST_F(SettingsTableTest, FontSize) {
    struct Case {
        std::u16string_view stored;
        double size;
    };
    const Case cases[] = {{u"6", 8},  {u"7", 7},       {u"32", 32},  {u"33", 8},      {u"", 8},    {u"abc", 8},
                          {u"-9", 8}, {u"8.25", 8.25}, {u"8,25", 8}, {u" 12 pt", 12}, {u"6.9", 8}, {u"32.5", 8}};
    for (const Case& c : cases) {
        api_.Put(kUserKey, u"Note font size", c.stored);
        EXPECT_EQ(Load().noteFont.size, c.size) << testing::PrintToString(std::u16string(c.stored));
    }
}

TEST_F(SettingsTableTest, FontStyleBits) {
    for (int style = 0; style < 32; ++style) {
        api_.Put(kUserKey, u"Note font style", style);
        const FontSetting font = Load().noteFont;
        EXPECT_EQ(font.bold, (style & 1) != 0);
        EXPECT_EQ(font.italic, (style & 2) != 0);
        EXPECT_EQ(font.underline, (style & 4) != 0);
        EXPECT_EQ(font.strikeThrough, (style & 8) != 0);
    }
}

TEST_F(SettingsTableTest, NumbersOutOfRangeCountAsTheDefault) {
    struct Case {
        std::u16string_view name;
        std::int32_t stored;
        int Settings::*member;
        int expected;
    };
    const Case cases[] = {
        {u"Note opacity", 0, &Settings::noteOpacity, 192},
        {u"Note opacity", -5, &Settings::noteOpacity, 192},
        {u"Note opacity", 1, &Settings::noteOpacity, 1},
        {u"Note opacity", 255, &Settings::noteOpacity, 255},
        {u"Note opacity", 256, &Settings::noteOpacity, 192},
        {u"New note hotkey", 0, &Settings::newNoteHotkey, 78},
        {u"New note hotkey", -1, &Settings::newNoteHotkey, 78},
        {u"New note hotkey", 1, &Settings::newNoteHotkey, 1},
        {u"New note hotkey", 90, &Settings::newNoteHotkey, 90},
        {u"Show notes hotkey", 0, &Settings::showNotesHotkey, 83},
        {u"Show notes hotkey", 65, &Settings::showNotesHotkey, 65},
        {u"Startup Mode", 1, &Settings::startupMode, 1},
        {u"Startup Mode", -3, &Settings::startupMode, -3},
        {u"Startup Mode", kLargest, &Settings::startupMode, kLargest},
    };
    for (const Case& c : cases) {
        api_.Put(kUserKey, c.name, c.stored);
        EXPECT_EQ(Load().*c.member, c.expected) << testing::PrintToString(std::u16string(c.name)) << " " << c.stored;
    }
}

TEST_F(SettingsTableTest, CharsetAppliesAboveZeroOnly) {
    for (const std::int32_t stored : {0, -1, 1, 204}) {
        api_.Put(kUserKey, u"Note font charset", stored);
        EXPECT_EQ(Load().noteFont.charset, stored > 0 ? stored : 0);
    }
}

TEST_F(SettingsTableTest, StoredZeroIsBlackAndAMissingColorIsTheDefault) {
    api_.Put(kUserKey, u"Note color", 0);
    api_.Put(kUserKey, u"Note border color", std::int32_t{-2147483643});
    const Settings s = Load();
    EXPECT_EQ(s.noteColor, ColorWord{0});
    EXPECT_EQ(s.noteBorderColor, ColorWord{0x80000005U});
    EXPECT_EQ(s.noteTextColor, ColorWord{0});
}

TEST_F(SettingsTableTest, AnEmptyTextInsteadOfAColorCountsAsAbsent) {
    api_.Put(kUserKey, u"Note color", u"");
    EXPECT_EQ(Load().noteColor, ColorWord{14155262});
}

struct FlagCase {
    std::u16string_view name;
    bool Settings::*member;
    bool inverted;
};
constexpr FlagCase kFlags[] = {
    {u"Note transparency", &Settings::noteTransparency, false},
    {u"Minimize to tray", &Settings::minimizeToTray, false},
    {u"No drag and drop", &Settings::dragAndDrop, true},
    {u"Show scroll bars", &Settings::showScrollBars, false},
    {u"Random note color", &Settings::randomNoteColor, false},
    {u"Timestamp new notes", &Settings::timestampNewNotes, false},
    {u"High contrast off", &Settings::highContrastOff, false},
    {u"Don't recycle notes", &Settings::dontRecycleNotes, false},
    {u"Disable balloon help", &Settings::disableBalloonHelp, false},
    {u"Disable animation", &Settings::animation, true},
    {u"Do not remember filenames", &Settings::doNotRememberFilenames, false},
    {u"Auto-pin new notes", &Settings::autoPinNewNotes, false},
    {u"Do not adjust notes", &Settings::doNotAdjustNotes, false},
    {u"Shown Help", &Settings::shownHelp, false},
};

TEST_F(SettingsTableTest, AnyNumberButZeroIsTrue) {
    for (const FlagCase& flag : kFlags) {
        for (const std::int32_t stored : {0, -1, 1, 2, kLargest}) {
            api_.Put(kUserKey, flag.name, stored);
            EXPECT_EQ(Load().*flag.member, (stored != 0) != flag.inverted)
                << testing::PrintToString(std::u16string(flag.name)) << " " << stored;
        }
    }
}

TEST_F(SettingsTableTest, FlagsAreWrittenAsMinusOneAndZero) {
    TesselRegistry registry(api_);
    for (const FlagCase& flag : kFlags) {
        for (const bool value : {true, false}) {
            Settings settings;
            settings.*flag.member = value;
            EXPECT_TRUE(SaveSetting(registry, settings, flag.name));
            EXPECT_EQ(api_.Number(kUserKey, flag.name), value != flag.inverted ? -1 : 0);
        }
    }
}

Settings UnlikeTheDefaults() {
    Settings s;
    s.shortcuts = {u"C:\\1.exe", u"C:\\2.exe", u"C:\\3.exe", u"C:\\4.exe"};
    s.noteFont = FontSetting{u"Arial", 10.5, true, false, true, true, 161};
    s.noteColor = ColorWord{0x80000018U};
    s.noteBorderColor = ColorWord{0x010203};
    s.noteTextColor = ColorWord{0xFFFFFF};
    s.noteTransparency = true;
    s.noteOpacity = 33;
    s.dragAndDrop = false;
    s.randomNoteColor = false;
    s.reminder = u"C:\\ring.wav";
    s.noteFolder = u"D:\\Notes";
    s.newNoteHotkey = 65;
    s.showNotesHotkey = 66;
    s.startupMode = 1;
    return s;
}

TEST_F(SettingsTableTest, SavedSettingsAreRestoredInEveryRow) {
    TesselRegistry registry(api_);
    const Settings saved = UnlikeTheDefaults();
    for (const SettingRow& row : SettingsTable()) EXPECT_TRUE(SaveSetting(registry, saved, row.name));
    const Settings loaded = Load();
    EXPECT_EQ(loaded.shortcuts, saved.shortcuts);
    EXPECT_EQ(loaded.noteFont, saved.noteFont);
    EXPECT_EQ(loaded.noteColor, saved.noteColor);
    EXPECT_EQ(loaded.noteBorderColor, saved.noteBorderColor);
    EXPECT_EQ(loaded.noteTextColor, saved.noteTextColor);
    EXPECT_EQ(loaded.noteTransparency, saved.noteTransparency);
    EXPECT_EQ(loaded.noteOpacity, saved.noteOpacity);
    EXPECT_EQ(loaded.dragAndDrop, saved.dragAndDrop);
    EXPECT_EQ(loaded.randomNoteColor, saved.randomNoteColor);
    EXPECT_EQ(loaded.reminder, saved.reminder);
    EXPECT_EQ(loaded.noteFolder, saved.noteFolder);
    EXPECT_EQ(loaded.newNoteHotkey, saved.newNoteHotkey);
    EXPECT_EQ(loaded.showNotesHotkey, saved.showNotesHotkey);
    EXPECT_EQ(loaded.startupMode, saved.startupMode);
}

TEST_F(SettingsTableTest, OneSettingIsSavedByItsNameInAnyCase) {
    TesselRegistry registry(api_);
    EXPECT_TRUE(SaveSetting(registry, UnlikeTheDefaults(), u"Startup mode"));
    EXPECT_EQ(api_.Number(kUserKey, u"Startup Mode"), 1);
    EXPECT_EQ(api_.ValueCount(kUserKey), 1U);
    EXPECT_FALSE(SaveSetting(registry, UnlikeTheDefaults(), u"No such setting"));
    EXPECT_EQ(api_.ValueCount(kUserKey), 1U);
}

TEST_F(SettingsTableTest, FontSizeIsWrittenAsText) {
    TesselRegistry registry(api_);
    Settings settings;
    settings.noteFont.size = 12;
    EXPECT_TRUE(SaveSetting(registry, settings, u"Note font size"));
    EXPECT_EQ(api_.Text(kUserKey, u"Note font size"), u"12");
}

TEST_F(SettingsTableTest, RoamingIsTheMachinesSetting) {
    TesselRegistry registry(api_);
    EXPECT_FALSE(LoadUseRoamingProfile(registry));
    api_.Put(kUserKey, u"Use roaming profile", 1);
    EXPECT_FALSE(LoadUseRoamingProfile(registry));
    api_.Put(kMachineKey, u"Use roaming profile", 1);
    EXPECT_TRUE(LoadUseRoamingProfile(registry));
    api_.Refuse(FakeRegistryApi::kLocalMachine);
    EXPECT_FALSE(LoadUseRoamingProfile(registry));
}

}  // namespace
}  // namespace quillo

#include "mainmenu/options_controller.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include <string>
#include <utility>
#include <vector>

#include "../app/test_program.h"
#include "../app/written_names.h"
#include "app/base/registry_keys.h"
#include "app/base/settings_table.h"
#include "registry/tessel_registry.h"
#include "testing/fake_options_owner.h"
#include "testing/fake_sound_device.h"

namespace quillo {
namespace {

using C = OptionControl;

class OptionsControllerTest : public testing::Test {
  protected:
    OptionsControllerTest() { program_.registry.PutKey(kUserKey); }

    Settings& Now() { return program_.program.settings; }
    OptionsController Loaded() {
        OptionsController controller(services_);
        controller.FinishLoading();
        program_.registry.ClearLog();
        return controller;
    }
    [[nodiscard]] std::optional<std::int32_t> Number(std::u16string_view name) const {
        return program_.registry.Number(kUserKey, name);
    }
    [[nodiscard]] std::optional<std::u16string> Text(std::u16string_view name) const {
        return program_.registry.Text(kUserKey, name);
    }
    /// The values written since the log was cleared.
    [[nodiscard]] std::vector<std::u16string> Written() const { return WrittenNames(program_.registry); }
    /// The settings that the next start would load.
    Settings Reloaded() {
        TesselRegistry registry(program_.registry);
        Settings settings;
        LoadSettings(registry, program_.shell, program_.files, settings);
        return settings;
    }
    FakeNoteWindow& OpenNote() {
        EXPECT_NE(program_.program.openNotes.Add(program_.services, u"note"), nullptr);
        FakeNoteWindow& view = program_.views.View(program_.views.Count() - 1);
        (void)view.TakeCalls();
        return view;
    }
    [[nodiscard]] static bool Holds(const std::vector<std::string>& calls, const std::string& call) {
        return std::find(calls.begin(), calls.end(), call) != calls.end();
    }

    TestProgram program_;
    FakeSoundDevice sound_;
    FakeOptionsOwner owner_{program_.program.settings};
    OptionsServices services_{program_.program, program_.registry, program_.shell, sound_, program_.locale, owner_};
};

using Names = std::vector<std::u16string>;

TEST_F(OptionsControllerTest, OpeningWritesNothingButTheStartupModeAsItWasRead) {
    Now().startupMode = 5;
    program_.registry.Put(kUserKey, u"Startup Mode", 5);
    program_.registry.ClearLog();
    OptionsController controller(services_);
    controller.SetChecked(C::AutoPinCheck, true);
    controller.PickColors(ColorWord{1}, ColorWord{2}, ColorWord{3});
    controller.ChooseFont({u"Courier New", 12});
    controller.MoveSlider(100);
    EXPECT_FALSE(controller.PressKey(C::NewNoteKeyBox, 'Q'));
    EXPECT_FALSE(controller.NeedsWarning(C::SpecialStartupCheck, true));
    EXPECT_EQ(Written(), Names{}) << "what fills the controls is no change";
    EXPECT_FALSE(Now().autoPinNewNotes);
    controller.FinishLoading();
    EXPECT_EQ(Written(), Names{u"Startup mode"});
    EXPECT_EQ(Number(u"Startup Mode"), 5) << "names are compared without regard to case";
}

TEST_F(OptionsControllerTest, EveryFlagIsWrittenAtOnceAndReadAtTheNextStart) {
    OptionsController controller = Loaded();
    for (const OptionRow& row : OptionsTable()) {
        if (row.kind != OptionKind::Check || row.control == C::SpecialStartupCheck) continue;
        for (const bool checked : {!controller.IsChecked(row.control), controller.IsChecked(row.control)}) {
            program_.registry.ClearLog();
            controller.SetChecked(row.control, checked);
            EXPECT_EQ(Written(), Names{std::u16string(row.settings.front())});
            EXPECT_EQ(Number(row.settings.front()),
                      checked != FindFlag(row.settings.front())->inverted ? kTrueNumber : 0)
                << "control " << static_cast<int>(row.control);
            EXPECT_EQ(controller.IsChecked(row.control), checked);
            const Settings later = std::exchange(Now(), Reloaded());
            EXPECT_EQ(controller.IsChecked(row.control), checked) << "control " << static_cast<int>(row.control);
            Now() = later;
        }
    }
}

TEST_F(OptionsControllerTest, AnimationAndDragAndDropAreStoredInverted) {
    OptionsController controller = Loaded();
    EXPECT_TRUE(controller.IsChecked(C::AnimationCheck));
    controller.SetChecked(C::AnimationCheck, false);
    EXPECT_FALSE(Now().animation);
    EXPECT_EQ(Number(u"Disable animation"), -1);
    EXPECT_TRUE(controller.IsChecked(C::DragDropCheck));
    controller.SetChecked(C::DragDropCheck, false);
    EXPECT_FALSE(Now().dragAndDrop);
    EXPECT_EQ(Number(u"No drag and drop"), -1);
}

TEST_F(OptionsControllerTest, TranslucencyReachesOpenNotesAtOnce) {
    FakeNoteWindow& note = OpenNote();
    OptionsController controller = Loaded();
    controller.SetChecked(C::TranslucentCheck, true);
    EXPECT_EQ(note.Opacity(), 192);
    controller.SetChecked(C::TranslucentCheck, false);
    EXPECT_EQ(note.Opacity(), std::nullopt);
}

TEST_F(OptionsControllerTest, TheSliderForcesTranslucencyOn) {
    FakeNoteWindow& note = OpenNote();
    OptionsController controller = Loaded();
    ASSERT_FALSE(controller.IsChecked(C::TranslucentCheck));
    EXPECT_EQ(controller.SliderValue(), 255 - 192);
    controller.MoveSlider(100);
    EXPECT_EQ(Written(), (Names{u"Note opacity", u"Note transparency"}));
    EXPECT_EQ(Number(u"Note opacity"), 155);
    EXPECT_EQ(Number(u"Note transparency"), -1);
    EXPECT_TRUE(controller.IsChecked(C::TranslucentCheck));
    EXPECT_EQ(note.Opacity(), 155);
}

TEST_F(OptionsControllerTest, TheSliderRangesFromOpaqueToFaintWithinTheLimitsOfLoading) {
    OptionsController controller = Loaded();
    controller.MoveSlider(0);
    EXPECT_EQ(Number(u"Note opacity"), 255);
    controller.MoveSlider(OptionsController::kSliderEnd);
    EXPECT_EQ(Number(u"Note opacity"), OptionsController::kFaintest);
    EXPECT_EQ(Reloaded().noteOpacity, OptionsController::kFaintest);
    controller.MoveSlider(1000);
    EXPECT_EQ(Number(u"Note opacity"), OptionsController::kFaintest);
    controller.MoveSlider(-1);
    EXPECT_EQ(Number(u"Note opacity"), 255);
    Now().noteOpacity = 1;
    EXPECT_EQ(controller.SliderValue(), OptionsController::kSliderEnd) << "fainter than the slider's end";
}

TEST_F(OptionsControllerTest, ColorsAreWrittenTogetherAndReachOpenNotes) {
    FakeNoteWindow& note = OpenNote();
    OptionsController controller = Loaded();
    controller.PickColors(ColorWord{0x112233}, ColorWord{0x445566}, ColorWord{0x778899});
    EXPECT_EQ(Written(), (Names{u"Note color", u"Note border color", u"Note text color"}));
    EXPECT_EQ(Number(u"Note color"), 0x112233);
    EXPECT_EQ(Number(u"Note border color"), 0x445566);
    EXPECT_EQ(Number(u"Note text color"), 0x778899);
    EXPECT_EQ(note.Applied().NoteColor, ColorWord{0x112233});
    EXPECT_EQ(note.Applied().BorderColor, ColorWord{0x445566});
    EXPECT_EQ(note.Applied().TextColor, ColorWord{0x778899});
}

TEST_F(OptionsControllerTest, TheFontIsWrittenInFourValuesAndReachesOpenNotes) {
    FakeNoteWindow& note = OpenNote();
    OptionsController controller = Loaded();
    EXPECT_EQ(controller.FontText(), u"Tahoma, 8 pt.");
    FontSetting font{u"Courier New", 12};
    font.bold = true;
    font.strikeThrough = true;
    font.charset = 238;
    controller.ChooseFont(font);
    EXPECT_EQ(Written(), (Names{u"Note font", u"Note font size", u"Note font style", u"Note font charset"}));
    EXPECT_EQ(Text(u"Note font"), u"Courier New");
    EXPECT_EQ(Text(u"Note font size"), u"12");
    EXPECT_EQ(Number(u"Note font style"), 1 + 8);
    EXPECT_EQ(Number(u"Note font charset"), 238);
    EXPECT_EQ(Reloaded().noteFont, font);
    EXPECT_EQ(controller.FontText(), u"Courier New, 12 pt. bold struck through");
    EXPECT_EQ(note.TakeCalls(), std::vector<std::string>{"ApplyAppearance"});
}

TEST_F(OptionsControllerTest, ChangesThatShowOnNotesReachThem) {
    FakeNoteWindow& note = OpenNote();
    OptionsController controller = Loaded();
    for (const C check : {C::ShowScrollBarsCheck, C::DragDropCheck, C::NoHighContrastCheck}) {
        controller.SetChecked(check, !controller.IsChecked(check));
        EXPECT_EQ(note.TakeCalls(), std::vector<std::string>{"ApplyAppearance"})
            << "control " << static_cast<int>(check);
    }
    controller.SetChecked(C::AutoPinCheck, true);
    EXPECT_EQ(note.TakeCalls(), std::vector<std::string>{});
}

TEST_F(OptionsControllerTest, TheStartupWarningComesOnlyWhenTheBoxBecomesChecked) {
    OptionsController controller = Loaded();
    EXPECT_TRUE(controller.NeedsWarning(C::SpecialStartupCheck, true));
    EXPECT_FALSE(controller.NeedsWarning(C::SpecialStartupCheck, false));
    EXPECT_FALSE(controller.NeedsWarning(C::AutoPinCheck, true));
    controller.SetChecked(C::SpecialStartupCheck, true);
    EXPECT_EQ(Number(u"Startup mode"), 1) << "1, not -1: this is no flag";
    EXPECT_EQ(Now().startupMode, 1);
    EXPECT_TRUE(controller.IsChecked(C::SpecialStartupCheck));
    controller.SetChecked(C::SpecialStartupCheck, false);
    EXPECT_EQ(Number(u"Startup mode"), 0);
    EXPECT_FALSE(program_.registry.HasValue(kRunKey, kRunValue)) << "the Run value is the quit procedure's";
}

TEST_F(OptionsControllerTest, HotkeysChangeInMemoryAtOnceAndAreWrittenAtTheEnd) {
    OptionsController controller = Loaded();
    EXPECT_EQ(controller.TextOf(C::NewNoteKeyBox), u"N");
    EXPECT_EQ(controller.TextOf(C::SurfaceKeyBox), u"S");
    EXPECT_TRUE(controller.PressKey(C::NewNoteKeyBox, 'Q'));
    EXPECT_EQ(Now().newNoteHotkey, 'Q');
    EXPECT_EQ(controller.TextOf(C::NewNoteKeyBox), u"Q");
    EXPECT_EQ(Written(), Names{});
    EXPECT_EQ(owner_.calls, Names{});
    EXPECT_EQ(controller.HelpKeys(OptionsHelpKeys()[0]), u"Windows+Q");
    EXPECT_EQ(controller.HelpKeys(OptionsHelpKeys()[1]), u"Windows+S");
    controller.Close({});
    EXPECT_EQ(Number(u"New note hotkey"), 'Q');
    EXPECT_EQ(Number(u"Show notes hotkey"), 'S');
}

TEST_F(OptionsControllerTest, AHotkeyThatAnotherProgramOwnsIsReported) {
    OptionsController controller = Loaded();
    EXPECT_EQ(controller.TextOf(C::HotkeysTakenLabel), u"");
    owner_.takenHotKeys = {0, 'S'};
    EXPECT_EQ(controller.TextOf(C::HotkeysTakenLabel),
              u"Windows+S does not work: another program has it.  Choose another key on the page \"Shortcuts\".");
    owner_.takenHotKeys = {'N', 'S'};
    EXPECT_EQ(controller.HotkeysTakenText(),
              u"Windows+N and Windows+S do not work: other programs have them.  Choose other keys on the page "
              u"\"Shortcuts\".");
    ASSERT_TRUE(controller.PressKey(C::NewNoteKeyBox, 'Q'));
    EXPECT_TRUE(controller.HotkeysTakenText().starts_with(u"Windows+S does"))
        << "nobody knows of the new key before it is registered";
}

TEST_F(OptionsControllerTest, TheSliderReportsAPercentageOfOpacity) {
    EXPECT_EQ(OptionsController::OpacityText(0), u"100%");
    EXPECT_EQ(OptionsController::OpacityText(63), u"75%");
    EXPECT_EQ(OptionsController::OpacityText(OptionsController::kSliderEnd), u"13%") << "32 of 255";
}

TEST_F(OptionsControllerTest, TheOtherHotkeyAndKeysOutsideTheRangeAreRefused) {
    OptionsController controller = Loaded();
    for (const int key : {int{'S'}, 32, 91, 112, 9, 27, 0}) {
        EXPECT_FALSE(controller.PressKey(C::NewNoteKeyBox, key)) << key;
        EXPECT_EQ(Now().newNoteHotkey, 'N');
    }
    EXPECT_FALSE(controller.PressKey(C::SurfaceKeyBox, 'N'));
    EXPECT_EQ(Now().showNotesHotkey, 'S');
    EXPECT_TRUE(controller.PressKey(C::SurfaceKeyBox, 33)) << "intended: Page Up, which shows as an exclamation mark";
    EXPECT_EQ(controller.TextOf(C::SurfaceKeyBox), u"!");
    EXPECT_TRUE(controller.PressKey(C::NewNoteKeyBox, 90));
}

TEST_F(OptionsControllerTest, ClosingStoresShortcutsThenHotkeysThenTexts) {
    OptionsController controller = Loaded();
    OptionsTexts texts;
    texts.shortcuts = {u"C:\\a.exe", u"", u"C:\\c.exe", u"C:\\d.exe"};
    texts.reminder = u" C:\\ding.wav";
    texts.noteFolder = u"  C:\\Closed notes ";
    owner_.onHotKeys = [&] {
        EXPECT_EQ(owner_.calls.size(), 5U);
        EXPECT_EQ(Written(), (Names{u"New note hotkey", u"Show notes hotkey"}));
    };
    owner_.onRedraw = [&] { EXPECT_EQ(Written().size(), 4U); };
    controller.Close(texts);
    EXPECT_EQ(owner_.calls, (Names{u"shortcut 1 C:\\a.exe", u"shortcut 2 ", u"shortcut 3 C:\\c.exe",
                                   u"shortcut 4 C:\\d.exe", u"hotkeys", u"redraw"}));
    EXPECT_EQ(Written(), (Names{u"New note hotkey", u"Show notes hotkey", u"Reminder", u"Note folder"}))
        << "the shortcuts are the main form's to write";
    EXPECT_EQ(Text(u"Reminder"), u" C:\\ding.wav");
    EXPECT_EQ(Text(u"Note folder"), u"C:\\Closed notes");
    EXPECT_EQ(Now().reminder, u" C:\\ding.wav");
    EXPECT_EQ(Now().noteFolder, u"C:\\Closed notes");
}

TEST_F(OptionsControllerTest, AnEmptiedSoundIsSilenceUntilTheNextStart) {
    Now().reminder = u"C:\\ding.wav";
    OptionsController controller = Loaded();
    controller.Close({});
    EXPECT_EQ(Now().reminder, u"");
    EXPECT_EQ(Text(u"Reminder"), u"");
    EXPECT_EQ(Reloaded().reminder, u"C:\\Program Files\\Quillo\\Reminder.wma");
}

TEST_F(OptionsControllerTest, AnEmptiedFolderIsTheDesktopAtOnce) {
    Now().noteFolder = u"C:\\Closed notes";
    OptionsController controller = Loaded();
    OptionsTexts texts;
    texts.noteFolder = u"  ";
    controller.Close(texts);
    EXPECT_EQ(Text(u"Note folder"), u"");
    EXPECT_EQ(Now().noteFolder, kTestDesktop) << "not the root of a drive";
    EXPECT_EQ(Reloaded().noteFolder, kTestDesktop);
}

TEST_F(OptionsControllerTest, ASoundThatWasTriedOutEndsWithTheDialog) {
    OptionsController controller = Loaded();
    controller.Close({});
    EXPECT_TRUE(sound_.commands.empty()) << "the sound of a reminder that is due continues";
    controller.PlaySound(u"C:\\ding.mp3");
    EXPECT_EQ(sound_.commands.back(), u"play quillo from 0");
    controller.Close({});
    EXPECT_EQ(sound_.commands.back(), u"close quillo");
    controller.PlaySound(u"C:\\ding.wav");
    EXPECT_EQ(sound_.waves.back(), u"C:\\ding.wav");
    controller.StopSound();
    EXPECT_EQ(sound_.waves.back(), u"");
}

TEST_F(OptionsControllerTest, TheHelpPageOpensTheFolderOfNotesAndTheHelp) {
    OptionsController controller = Loaded();
    controller.OpenNotesFolder();
    controller.OpenHelp();
    EXPECT_EQ(program_.shell.opened,
              (Names{std::u16string(kTestNotesFolder), u"C:\\Program Files\\Quillo\\Quillo.chm"}));
    EXPECT_EQ(controller.TextOf(C::NotesFolderPath), kTestNotesFolder);
}

}  // namespace
}  // namespace quillo

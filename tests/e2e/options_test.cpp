#include <set>

#include "app/base/settings_table.h"
#include "harness/choice_dialog.h"
#include "harness/e2e_test.h"
#include "harness/main_menu.h"
#include "harness/options_window.h"
#include "harness/shell_recorder.h"
#include "harness/window_text.h"

namespace quillo::e2e {
namespace {

using C = OptionControl;

constexpr int kFontSizeList = 0x472;  // of the system's font dialog
constexpr std::uint32_t kTrue = 0xFFFFFFFF;

std::wstring Wide(std::u16string_view text) {
    return {text.begin(), text.end()};
}

/// The options dialog, opened from the main menu over one ordinary note.
class OptionsTest : public OrdinaryTest {
  protected:
    void SetUp() override {
        OrdinaryTest::SetUp();
        Profile().AddNote(L"note.qln", NoteFile{"Call Bob"}.Bytes());
    }
    OptionsWindow Open() {
        Start();
        const auto options = OptionsWindow::OpenFromMenu(Quillo().Pid());
        EXPECT_TRUE(options);
        return options.value_or(OptionsWindow(nullptr));
    }
    static bool Goes(const OptionsWindow& options) {
        return Eventually([&] { return !options.Exists(); });
    }
    bool Holds(const wchar_t* name, std::uint32_t value) {
        return Eventually([&] { return Profile().Number(name) == value; });
    }
    /// The registry value of a check box in that state.
    static std::uint32_t StoredFor(const OptionRow& row, bool checked) {
        if (row.control == C::SpecialStartupCheck) return checked ? 1 : 0;
        return checked != FindFlag(row.settings.front())->inverted ? kTrue : 0;
    }
    /// Presses a check box twice, and checks both values; answers the warning.
    void ExpectSwitches(const OptionsWindow& options, const OptionRow& row, const std::function<void()>& press) {
        const std::wstring name = Wide(row.settings.front());
        for (int i = 0; i < 2; ++i) {
            const bool wanted = !options.IsChecked(row.control);
            EXPECT_TRUE(Until([&] { return options.IsChecked(row.control) == wanted; }, press));
            if (row.control == C::SpecialStartupCheck && wanted) {
                const auto warning = MessageBoxWindow::WaitFor(Quillo().Pid());
                ASSERT_TRUE(warning);
                ASSERT_TRUE(warning->Answer(IDOK));
            }
            EXPECT_TRUE(Holds(name.c_str(), StoredFor(row, wanted))) << "control " << static_cast<int>(row.control);
        }
    }
    /// Clicks a button until the dialog that it opens has the focus.
    static ChoiceDialog ClickFor(const OptionsWindow& options, OptionControl button) {
        std::optional<ChoiceDialog> dialog;
        EXPECT_TRUE(Until([&] { return (dialog = ChoiceDialog::Find(options.Handle())).has_value(); },
                          [&] { options.Click(button); }));
        return dialog.value_or(ChoiceDialog(nullptr));
    }
};

TEST_F(OptionsTest, TheFirstClickOnATabCounts) {
    const OptionsWindow options = Open();
    ASSERT_TRUE(options.Shows(OptionsPage::Appearance));
    RECT strip{};
    GetWindowRect(options.TabStrip(), &strip);
    // Behind the first tab, and before the end of the last.
    ClickMouse(POINT{strip.left + Px(120), (strip.top + strip.bottom) / 2});
    EXPECT_TRUE(Eventually([&] { return !options.Shows(OptionsPage::Appearance); }));
}

TEST_F(OptionsTest, TheFirstClickOnACheckBoxCounts) {
    const OptionsWindow options = Open();
    const bool before = options.IsChecked(C::AnimationCheck);
    options.Click(C::AnimationCheck);
    EXPECT_TRUE(Eventually([&] { return options.IsChecked(C::AnimationCheck) != before; }));
}

TEST_F(OptionsTest, OpeningAndClosingSavesOnlyWhatItMust) {
    const OptionsWindow options = Open();
    EXPECT_EQ(WindowText(options.Handle()), L"Quillo options");
    EXPECT_TRUE(Eventually([&] { return options.IsTopmost(); }));
    const auto before = Profile().AllSettings();
    EXPECT_EQ(Profile().Number(L"Startup mode"), 0U);
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(Goes(options));
    std::set<std::wstring> added;
    for (const auto& [name, data] : Profile().AllSettings()) {
        const auto old = before.find(name);
        if (old == before.end()) {
            added.insert(name);
        } else {
            EXPECT_EQ(data, old->second) << Narrow(name);
        }
    }
    EXPECT_EQ(added, (std::set<std::wstring>{L"Shortcut 1", L"Shortcut 2", L"Shortcut 3", L"Shortcut 4",
                                             L"New note hotkey", L"Show notes hotkey", L"Reminder", L"Note folder"}));
    EXPECT_EQ(Profile().Number(L"New note hotkey"), 78U);
    EXPECT_EQ(Profile().Number(L"Show notes hotkey"), 83U);
    Quit();
}

TEST_F(OptionsTest, IsModalButHotkeysLaterStartsAndTheEndActAsAlways) {
    Profile().SetNumber(L"New note hotkey", VK_F23);
    const OptionsWindow options = Open();
    const NoteWindow before = FindNote(Quillo(), L"Call Bob");
    EXPECT_TRUE(Eventually([&] { return IsWindowEnabled(before.Handle()) == 0; }));
    const MainMenu menu(Quillo().Pid());
    constexpr UINT kLeftUp = 514;
    menu.SendToIcon(kLeftUp);
    EXPECT_EQ(RunToEnd(L"/new"), 0U) << "dealt with after the click on the icon";
    ASSERT_TRUE(Eventually([&] { return NotesOf(Quillo()).size() == 2; }));
    EXPECT_FALSE(menu.IsShowing()) << "the icon is busy";
    const NoteWindow second = FindNote(Quillo(), L"");
    EXPECT_TRUE(IsWindowEnabled(second.Handle()));
    // Not by a click: the dialog may cover the note.
    ASSERT_TRUE(Eventually([&] { return second.HasKeyboard(); }));
    TypeText(L"Bread");
    EXPECT_TRUE(Eventually([&] { return second.Text() == L"Bread"; }));
    EXPECT_TRUE(Until([&] { return NotesOf(Quillo()).size() == 3; }, [] { PressKey(VK_F23, {VK_LWIN}); }));
    EXPECT_TRUE(IsWindowEnabled(FindNote(Quillo(), L"").Handle()));
    EXPECT_FALSE(IsWindowEnabled(before.Handle()));
    EXPECT_TRUE(options.Exists());
    Quit();
}

TEST_F(OptionsTest, NotesTakeInputAgainAfterItHasClosed) {
    const OptionsWindow options = Open();
    const NoteWindow note = FindNote(Quillo(), L"Call Bob");
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(Goes(options));
    EXPECT_TRUE(Eventually([&] { return IsWindowEnabled(note.Handle()) != 0; }));
    ASSERT_TRUE(note.TakeKeyboard());
    TypeText(L" now");
    EXPECT_TRUE(Eventually([&] { return note.Text().ends_with(L" now"); }));
    Quit();
}

TEST_F(OptionsTest, EveryCheckBoxByMouse) {
    const OptionsWindow options = Open();
    for (const OptionsPage page : {OptionsPage::Appearance, OptionsPage::Behavior}) {
        ASSERT_TRUE(options.ClickTab(page));
        for (const OptionRow& row : OptionsTable()) {
            if (row.page != page || row.kind != OptionKind::Check) continue;
            ExpectSwitches(options, row, [&] { options.Click(row.control); });
        }
    }
    Quit();
}

TEST_F(OptionsTest, EveryCheckBoxByKeyboard) {
    const OptionsWindow options = Open();
    for (const OptionsPage page : {OptionsPage::Appearance, OptionsPage::Behavior}) {
        ASSERT_TRUE(options.KeyToTab(page));
        for (const OptionRow& row : OptionsTable()) {
            if (row.page != page || row.kind != OptionKind::Check) continue;
            ASSERT_TRUE(options.TabTo(row.control)) << "control " << static_cast<int>(row.control);
            ExpectSwitches(options, row, [] { PressKey(VK_SPACE); });
        }
    }
    Quit();
}

TEST_F(OptionsTest, AppearanceReachesTheOpenNoteAtOnce) {
    const OptionsWindow options = Open();
    const NoteWindow note = FindNote(Quillo(), L"Call Bob");
    // The third swatch of 24 by 24 pixels on a strip of 28; see the palette.
    const RECT strip = options.AreaOf(C::ColorSelector);
    const LONG swatch = (strip.bottom - strip.top) * 24 / 28;
    const POINT third{strip.left + 2 * swatch + swatch / 2, strip.top + swatch / 2};
    EXPECT_TRUE(
        Until([&] { return Profile().Number(L"Note color") == RGB(0xE9, 0xFD, 0xEC); }, [&] { ClickMouse(third); }));
    EXPECT_TRUE(Holds(L"Note border color", RGB(0x72, 0xAE, 0x7F)));
    EXPECT_TRUE(Holds(L"Note text color", RGB(0, 0, 0)));
    EXPECT_TRUE(Eventually([&] { return note.TextBackground() == RGB(0xE9, 0xFD, 0xEC); }));

    const auto click = [&] { options.Click(C::TranslucentCheck); };
    EXPECT_TRUE(Until([&] { return note.Alpha() == 192; }, click));
    EXPECT_TRUE(Until([&] { return !note.Alpha(); }, click));

    const RECT slider = options.AreaOf(C::OpacitySlider);
    const LONG y = (slider.top + slider.bottom) / 2;
    EXPECT_TRUE(Until([&] { return note.Alpha() == 32; },
                      [&] {
                          ClickMouse(POINT{slider.right - 1, y});
                      }))
        << "faint at the right end, and translucent at once";
    EXPECT_TRUE(Holds(L"Note opacity", 32));
    EXPECT_TRUE(Holds(L"Note transparency", kTrue));
    EXPECT_TRUE(Eventually([&] { return options.IsChecked(C::TranslucentCheck); }));
    EXPECT_TRUE(Until([&] { return Profile().Number(L"Note opacity") == 255U; },
                      [&] {
                          DragMouse(POINT{slider.right - 1, y}, POINT{slider.left, y});
                      }));
    ASSERT_TRUE(options.TabTo(C::OpacitySlider));
    PressKey(VK_RIGHT);
    EXPECT_TRUE(Eventually([&] { return note.Alpha().value_or(255) < 255; })) << "by keyboard too";

    ASSERT_TRUE(options.ClickTab(OptionsPage::Behavior));
    EXPECT_TRUE(Until([&] { return note.HasScrollBar(); }, [&] { options.Click(C::ShowScrollBarsCheck); }));
    Quit();
}

TEST_F(OptionsTest, HotkeysAreChosenByPressingThem) {
    const OptionsWindow options = Open();
    ASSERT_TRUE(options.ClickTab(OptionsPage::Shortcuts));
    ASSERT_TRUE(options.TabTo(C::NewNoteKeyBox));
    EXPECT_EQ(options.Text(C::NewNoteKeyBox), L"N");
    EXPECT_EQ(options.Text(C::SurfaceKeyBox), L"S");
    PressKey('S');
    PressKey(VK_F5);
    PressKey('J');
    EXPECT_TRUE(Eventually([&] { return options.Text(C::NewNoteKeyBox) == L"J"; }));
    ASSERT_TRUE(options.TabTo(C::SurfaceKeyBox));
    PressKey('J');
    PressKey('Y');
    EXPECT_TRUE(Eventually([&] { return options.Text(C::SurfaceKeyBox) == L"Y"; }));
    EXPECT_FALSE(Profile().Number(L"New note hotkey")) << "written when the dialog closes";
    PressKey(VK_RETURN);
    ASSERT_TRUE(Goes(options));
    EXPECT_EQ(Profile().Number(L"New note hotkey"), std::uint32_t{'J'});
    EXPECT_EQ(Profile().Number(L"Show notes hotkey"), std::uint32_t{'Y'});
    PressKey('J', {VK_LWIN});
    EXPECT_TRUE(Eventually([&] { return NotesOf(Quillo()).size() == 2; })) << "the new key works at once";
    Quit();
}

TEST_F(OptionsTest, FilesAndFoldersAreChosenInDialogs) {
    const std::wstring program = Outside() / L"tool.exe";
    const std::wstring sound = Outside() / L"ding.wav";
    WriteBytes(program, "MZ");
    WriteBytes(sound, "RIFF");
    Profile().SetText(L"Note folder", Outside().Path());
    const OptionsWindow options = Open();

    ASSERT_TRUE(options.ClickTab(OptionsPage::Shortcuts));
    const std::wstring before = options.Text(C::ShortcutBox2);
    const ChoiceDialog canceled = ClickFor(options, C::BrowseButton2);
    EXPECT_EQ(canceled.Title(), L"Browse for program");
    ASSERT_TRUE(canceled.Cancel());
    EXPECT_EQ(options.Text(C::ShortcutBox2), before);
    ASSERT_TRUE(options.TabTo(C::BrowseButton2));
    PressKey(VK_SPACE);
    const auto programs = ChoiceDialog::WaitFor(options.Handle());
    ASSERT_TRUE(programs);
    ASSERT_TRUE(programs->Type(program));
    ASSERT_TRUE(programs->Accept());
    EXPECT_TRUE(Eventually([&] { return options.Text(C::ShortcutBox2) == program; }));

    ASSERT_TRUE(options.ClickTab(OptionsPage::Behavior));
    const ChoiceDialog sounds = ClickFor(options, C::BrowseSoundButton);
    EXPECT_EQ(sounds.Title(), L"Browse for sound");
    ASSERT_TRUE(sounds.Type(sound));
    ASSERT_TRUE(sounds.Accept());
    EXPECT_TRUE(Eventually([&] { return options.Text(C::ReminderSoundBox) == sound; }));

    ASSERT_TRUE(options.Type(C::NoteFolderBox, L"nowhere"));
    const ChoiceDialog folders = ClickFor(options, C::BrowseNoteFolderButton);
    EXPECT_TRUE(Eventually(
        [&] { return folders.Says(L"Choose a folder to save closed notes to.  Normally, this is the Desktop."); }));
    ASSERT_TRUE(folders.Cancel());
    EXPECT_EQ(options.Text(C::NoteFolderBox), L"nowhere");
    ASSERT_TRUE(options.Type(C::NoteFolderBox, Outside().Path()));
    const ChoiceDialog again = ClickFor(options, C::BrowseNoteFolderButton);
    ASSERT_TRUE(options.SetText(C::NoteFolderBox, L"changed meanwhile"));
    ASSERT_TRUE(again.Accept());
    EXPECT_TRUE(Eventually([&] { return options.Text(C::NoteFolderBox) == Outside().Path(); }))
        << "the browser starts at the folder in the box";

    // The window's own close box, as if pressed with the mouse.
    PostMessageW(options.Handle(), WM_SYSCOMMAND, SC_CLOSE, 0);
    ASSERT_TRUE(Goes(options));
    EXPECT_EQ(Profile().Text(L"Shortcut 2"), program);
    EXPECT_EQ(Profile().Text(L"Reminder"), sound);
    EXPECT_EQ(Profile().Text(L"Note folder"), Outside().Path());
    Quit();
}

TEST_F(OptionsTest, AFontIsChosenInTheSystemsDialog) {
    const OptionsWindow options = Open();
    EXPECT_EQ(options.Text(C::FontLabel), L"Tahoma, 8 pt.");
    ASSERT_TRUE(options.TabTo(C::BrowseFontButton));
    PressKey('B', {VK_MENU});
    const auto dialog = ChoiceDialog::WaitFor(options.Handle());
    ASSERT_TRUE(dialog);
    ASSERT_TRUE(dialog->Cancel());
    EXPECT_FALSE(Profile().Text(L"Note font"));
    const ChoiceDialog fonts = ClickFor(options, C::BrowseFontButton);
    ASSERT_TRUE(fonts.TypeInto(kFontSizeList, L"14"));
    ASSERT_TRUE(fonts.Accept());
    EXPECT_TRUE(Eventually([&] { return options.Text(C::FontLabel) == L"Tahoma, 14 pt."; }));
    EXPECT_EQ(Profile().Text(L"Note font"), L"Tahoma");
    EXPECT_EQ(Profile().Text(L"Note font size"), L"14");
    EXPECT_EQ(Profile().Number(L"Note font style"), 0U);
    Quit();
}

TEST_F(OptionsTest, TheHelpPageNamesTheFolderOfNotesAndOpensTheHelp) {
    const ShellRecorder reader(L".chm", Outside().Path());
    if (!reader.IsInCharge()) GTEST_SKIP() << "another program is chosen for help files";
    const OptionsWindow options = Open();
    ASSERT_TRUE(options.ClickTab(OptionsPage::Help));
    EXPECT_EQ(options.Text(C::NotesFolderPath), Profile().NotesFolder());
    const auto isOpened = [&] { return reader.Opened().ends_with("Quillo.chm"); };
    PressKey('H', {VK_MENU});
    EXPECT_TRUE(Eventually(isOpened)) << "by its access key";
    reader.DropRecord();
    EXPECT_TRUE(Until(isOpened, [&] { options.Click(C::OpenHelpButton); }));
    Quit();
}

TEST_F(OptionsTest, TheProgramCanEndDuringAnyQuestionOfTheDialog) {
    struct Question {
        OptionsPage page;
        OptionControl button;
    };
    for (const Question& question :
         {Question{OptionsPage::Appearance, C::BrowseFontButton}, Question{OptionsPage::Behavior, C::BrowseSoundButton},
          Question{OptionsPage::Behavior, C::BrowseNoteFolderButton}}) {
        const OptionsWindow options = Open();
        ASSERT_TRUE(options.ClickTab(question.page));
        (void)ClickFor(options, question.button);
        EXPECT_EQ(RunToEnd(L"/close"), 0U);
        EXPECT_EQ(Quillo().WaitForExit(), 0U) << "control " << static_cast<int>(question.button);
        EXPECT_EQ(Quillo().Crash(), "");
    }
}

TEST_F(OptionsTest, TheStartupWarningAppearsAboveTheDialog) {
    const OptionsWindow options = Open();
    ASSERT_TRUE(options.ClickTab(OptionsPage::Behavior));
    ASSERT_TRUE(Eventually([&] { return options.IsTopmost(); }));
    std::optional<MessageBoxWindow> warning;
    ASSERT_TRUE(Until([&] { return (warning = MessageBoxWindow::Find(Quillo().Pid())).has_value(); },
                      [&] { options.Click(C::SpecialStartupCheck); }));
    EXPECT_EQ(warning->Title(), L"Warning");
    EXPECT_EQ(warning->Text(), Wide(kStartupWarning));
    EXPECT_FALSE(options.IsTopmost());
    EXPECT_EQ(Profile().Number(L"Startup mode"), 0U);
    ASSERT_TRUE(warning->Answer(IDOK));
    EXPECT_TRUE(Eventually([&] { return options.IsTopmost(); }));
    EXPECT_TRUE(Holds(L"Startup mode", 1));
    EXPECT_TRUE(Profile().RunValue()) << "the Run value is deleted when the program ends with no note open";
    Quit();
    EXPECT_TRUE(Profile().RunValue()) << "a note was open";
}

}  // namespace
}  // namespace quillo::e2e

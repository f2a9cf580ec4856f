#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "accessible_reader.h"
#include "app/base/settings_table.h"
#include "mainmenu/note_preview.h"
#include "options_form_fixture.h"

namespace quillo {
namespace {

using C = OptionControl;
using Names = std::vector<std::u16string>;
using windows_tests::OptionsFormTest;

TEST_F(OptionsFormTest, ShowsTheCurrentSettings) {
    Now().autoPinNewNotes = true;
    Now().animation = false;
    Now().startupMode = 1;
    Now().shortcuts = {u"C:\\1.exe", u"C:\\2.exe", u"", u"C:\\4.exe"};
    Now().noteFolder = u"C:\\Closed";
    Now().reminder = u"C:\\ding.wav";
    Now().newNoteHotkey = 112;
    Now().noteFont = FontSetting{u"Courier New", 10.5};
    Open();
    EXPECT_TRUE(IsChecked(C::AutoPinCheck));
    EXPECT_FALSE(IsChecked(C::AnimationCheck));
    EXPECT_TRUE(IsChecked(C::SpecialStartupCheck));
    EXPECT_TRUE(program_.notice.choiceWarnings.empty());
    EXPECT_EQ(Text(C::ShortcutBox1), u"C:\\1.exe");
    EXPECT_EQ(Text(C::ShortcutBox3), u"");
    EXPECT_EQ(Text(C::ShortcutBox4), u"C:\\4.exe");
    EXPECT_EQ(Text(C::NoteFolderBox), u"C:\\Closed");
    EXPECT_EQ(Text(C::ReminderSoundBox), u"C:\\ding.wav");
    EXPECT_EQ(Text(C::NewNoteKeyBox), u"Key # 112");
    EXPECT_EQ(Text(C::SurfaceKeyBox), u"S");
    EXPECT_EQ(Text(C::FontLabel), u"Courier New, 10.5 pt.");
    EXPECT_EQ(Text(C::NotesFolderPath), kTestNotesFolder);
}

TEST_F(OptionsFormTest, EveryCheckBoxWritesWhenItIsPressed) {
    Open();
    for (const OptionRow& row : OptionsTable()) {
        if (row.kind != OptionKind::Check) continue;
        for (int i = 0; i < 2; ++i) {
            const bool wanted = !IsChecked(row.control);
            program_.registry.ClearLog();
            Press(row.control);
            EXPECT_EQ(IsChecked(row.control), wanted);
            EXPECT_EQ(Written(), Names{std::u16string(row.settings.front())});
            const int on = row.control == C::SpecialStartupCheck ? 1 : kTrueNumber;
            const FlagSetting* flag = FindFlag(row.settings.front());
            const bool stored = wanted != (flag != nullptr && flag->inverted);
            EXPECT_EQ(Number(row.settings.front()), stored ? on : 0) << static_cast<int>(row.control);
        }
    }
}

TEST_F(OptionsFormTest, TheSliderTurnsTranslucencyOn) {
    Open();
    SetFocus(Of(C::OpacitySlider));
    Key(Of(C::OpacitySlider), VK_HOME);
    EXPECT_EQ(Number(u"Note opacity"), 255) << "opaque at its left end";
    EXPECT_EQ(Number(u"Note transparency"), -1);
    EXPECT_TRUE(IsChecked(C::TranslucentCheck));
    Key(Of(C::OpacitySlider), VK_END);
    EXPECT_EQ(Number(u"Note opacity"), OptionsController::kFaintest);
}

TEST_F(OptionsFormTest, AColorSchemeIsWrittenWhole) {
    Open();
    SetFocus(Of(C::ColorSelector));
    Key(Of(C::ColorSelector), VK_RIGHT);
    Key(Of(C::ColorSelector), VK_SPACE);
    EXPECT_EQ(Number(u"Note color"), kSwatches[1].note.Number());
    EXPECT_EQ(Number(u"Note border color"), kSwatches[1].border.Number());
    EXPECT_EQ(Number(u"Note text color"), kSwatches[1].text.Number());
    windows_tests::PaintNow(Of(C::NotePreview));
    RECT preview{};
    GetClientRect(Of(C::NotePreview), &preview);
    const Point belowTheText{preview.right / 2, preview.bottom - 20};
    EXPECT_EQ(windows_tests::PixelOf(Of(C::NotePreview), belowTheText), RGB(0xE0, 0xEE, 0xF4));
}

TEST_F(OptionsFormTest, AnExampleNoteWithoutAWindowRepaintsNoOtherWindow) {
    Open();
    windows_tests::PaintNow(form_.Handle());
    ASSERT_FALSE(GetUpdateRect(form_.CloseButton(), nullptr, FALSE));
    NotePreview preview;
    preview.Show({});
    EXPECT_FALSE(GetUpdateRect(form_.CloseButton(), nullptr, FALSE));
}

TEST_F(OptionsFormTest, AKeyBoxAcceptsKeysAndNoText) {
    Open();
    form_.ShowPage(OptionsPage::Shortcuts);
    HWND box = Of(C::NewNoteKeyBox);
    SetFocus(box);
    Key(box, 'Q');
    EXPECT_EQ(WindowText(box), u"Q");
    EXPECT_EQ(Now().newNoteHotkey, 'Q');
    for (const int refused : {int{'S'}, VK_F1, VK_BACK, VK_LWIN}) {
        Key(box, refused);
        EXPECT_EQ(WindowText(box), u"Q") << refused;
    }
    SendMessageW(box, WM_CHAR, 'x', 1);
    EXPECT_EQ(WindowText(box), u"Q");
    Key(box, VK_PRIOR);
    EXPECT_EQ(WindowText(box), u"!") << "intended: named by its number";
    Key(box, '5');
    EXPECT_EQ(WindowText(box), u"5");
    EXPECT_FALSE(Number(u"New note hotkey")) << "written at the end";
    EXPECT_EQ(owner_.calls, Names{});
}

TEST_F(OptionsFormTest, PlaysTheSoundInTheBox) {
    Open();
    SetWindowTextW(Of(C::ReminderSoundBox), L"C:\\ding.wav");
    EXPECT_TRUE(IsWindowEnabled(Of(C::PlaySoundButton)));
    Press(C::PlaySoundButton);
    EXPECT_EQ(sound_.waves.back(), u"C:\\ding.wav");
    SetWindowTextW(Of(C::ReminderSoundBox), L"  ");
    EXPECT_FALSE(IsWindowEnabled(Of(C::PlaySoundButton))) << "silence needs no trying out";
    form_.Unload();
    EXPECT_EQ(sound_.waves.back(), u"") << "the sound ends with the dialog";
}

TEST_F(OptionsFormTest, TheHelpPageOpensTheFolderAndTheHelp) {
    Open();
    form_.ShowPage(OptionsPage::Help);
    Press(C::OpenNotesFolderButton);
    Press(C::OpenHelpButton);
    EXPECT_EQ(program_.shell.opened,
              (Names{std::u16string(kTestNotesFolder), u"C:\\Program Files\\Quillo\\Quillo.chm"}));
}

TEST_F(OptionsFormTest, TheHelpPageSaysHowToQuitAndWhichHotkeyIsTaken) {
    owner_.takenHotKeys = {0, 'S'};
    Open();
    form_.ShowPage(OptionsPage::Help);
    EXPECT_TRUE(Text(C::QuitLabel).starts_with(u"Right-click the cross"));
    EXPECT_TRUE(Text(C::HotkeysTakenLabel).starts_with(u"Windows+S does not work"));
    const RECT label = PlaceOf(Of(C::HotkeysTakenLabel));
    EXPECT_GT(label.bottom, label.top);
}

TEST_F(OptionsFormTest, AScreenReaderGetsTheOpacityInPercent) {
    Now().noteOpacity = 192;
    Open();
    const windows_tests::Reader slider(Of(C::OpacitySlider));
    EXPECT_EQ(slider.Name(), u"Opacity");
    EXPECT_EQ(slider.Value(), u"75%");
}

TEST_F(OptionsFormTest, NothingIsCutAndNothingOverlapsAtAnyResolution) {
    Open();
    for (const int dpi : {96, 120, 144, 192}) {
        SetDpi(dpi);
        for (const OptionRow& row : OptionsTable()) {
            HWND control = Of(row.control);
            if (control == nullptr || row.control == C::HotkeysTakenLabel) continue;  // nothing is changed here
            const bool showsText = row.kind == OptionKind::Heading || row.kind == OptionKind::Text ||
                                   row.kind == OptionKind::Check || row.kind == OptionKind::Button ||
                                   row.kind == OptionKind::Divider;
            if (showsText && row.control != C::FontLabel) ExpectUncut(row, form_.DialogScale().Dpi());
            const RECT place = PlaceOf(control);
            EXPECT_GT(place.right - place.left, 0) << static_cast<int>(row.control);
            EXPECT_GT(place.bottom - place.top, 0) << static_cast<int>(row.control);
            const RECT page = PlaceOf(GetParent(control));
            RECT both{};
            IntersectRect(&both, &place, &page);
            EXPECT_TRUE(EqualRect(&both, &place)) << "control " << static_cast<int>(row.control) << " at " << dpi;
            for (const OptionRow& other : OptionsTable()) {
                HWND second = Of(other.control);
                if (second == nullptr || other.control <= row.control || other.page != row.page) continue;
                const RECT secondPlace = PlaceOf(second);
                EXPECT_FALSE(IntersectRect(&both, &place, &secondPlace))
                    << static_cast<int>(row.control) << " covers " << static_cast<int>(other.control) << " at " << dpi;
            }
        }
    }
}

TEST_F(OptionsFormTest, TheTabKeyReachesEveryControlOfAPage) {
    Open();
    for (std::size_t i = 0; i < kOptionsPageCount; ++i) {
        const auto page = static_cast<OptionsPage>(i);
        form_.ShowPage(page);
        std::vector<HWND> reached;
        for (HWND at = GetNextDlgTabItem(form_.Handle(), form_.TabStripWindow(), FALSE);
             at != form_.TabStripWindow() && reached.size() < 100; at = GetNextDlgTabItem(form_.Handle(), at, FALSE)) {
            reached.push_back(at);
        }
        std::vector<HWND> expected;
        for (const OptionRow& row : OptionsTable()) {
            const bool takesKeys = row.kind != OptionKind::Heading && row.kind != OptionKind::Text &&
                                   row.kind != OptionKind::Divider && row.kind != OptionKind::KeyList &&
                                   row.kind != OptionKind::Preview;
            if (row.page == page && takesKeys && IsWindowEnabled(Of(row.control)) != 0) {
                expected.push_back(Of(row.control));
            }
        }
        expected.push_back(form_.CloseButton());
        EXPECT_EQ(reached, expected) << "page " << i;
    }
}

}  // namespace
}  // namespace quillo

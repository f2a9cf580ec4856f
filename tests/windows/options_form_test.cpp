#include "mainmenu/options_form.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "../unit/app/test_program.h"
#include "accessible_reader.h"
#include "app/base/registry_keys.h"
#include "mainmenu/content_panel.h"
#include "platform/gdi_scope.h"
#include "platform/message_loop.h"
#include "platform/monitors.h"
#include "platform/text_tools.h"
#include "platform/ui_timer.h"
#include "platform/unique_handle.h"
#include "platform/wide.h"
#include "reminder_fixture.h"
#include "support.h"
#include "testing/fake_options_owner.h"
#include "testing/fake_sound_device.h"
#include "util/busy_flag.h"

// After windows.h.
#include <commctrl.h>

namespace quillo {
namespace {

using C = OptionControl;
using Names = std::vector<std::u16string>;

class OptionsFormTest : public testing::Test {
  protected:
    void Open() {
        ASSERT_TRUE(form_.Open());
        loop_.RunPending();
    }
    Settings& Now() { return program_.program.settings; }
    [[nodiscard]] HWND Of(OptionControl control) const { return form_.ControlWindow(control); }
    [[nodiscard]] std::u16string Text(OptionControl control) const { return WindowText(Of(control)); }
    [[nodiscard]] bool IsChecked(OptionControl check) const {
        return SendMessageW(Of(check), BM_GETCHECK, 0, 0) == BST_CHECKED;
    }
    void Press(OptionControl control) const { SendMessageW(Of(control), BM_CLICK, 0, 0); }
    /// Delivered as the message loop does, to the control that has the focus.
    void Key(HWND to, int key) {
        PostMessageW(to, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
        loop_.RunPending();
    }
    [[nodiscard]] bool IsTopmost() const {
        return (GetWindowLongPtrW(form_.Handle(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
    }
    void SetDpi(int dpi) const {
        const RECT place{20, 20, 500, 400};
        SendMessageW(form_.Handle(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&place));
    }
    [[nodiscard]] std::optional<std::int32_t> Number(std::u16string_view name) const {
        return program_.registry.Number(kUserKey, name);
    }
    [[nodiscard]] std::optional<std::u16string> Stored(std::u16string_view name) const {
        return program_.registry.Text(kUserKey, name);
    }
    [[nodiscard]] Names Written() const {
        Names names;
        for (const std::u16string& line : program_.registry.Log()) {
            if (line.starts_with(u"set ")) names.push_back(line.substr(4));
        }
        return names;
    }
    [[nodiscard]] static RECT PlaceOf(HWND window) {
        RECT place{};
        GetWindowRect(window, &place);
        return place;
    }
    /// No part of the control's text is outside it.
    void ExpectUncut(const OptionRow& row, int dpi) const {
        HWND control = Of(row.control);
        RECT place{};
        GetClientRect(control, &place);
        const WindowDcScope dc(control);
        const SelectScope font(dc.Dc(), reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
        // The space of a check box's mark and a button's edge.
        const int room = row.kind == OptionKind::Check ? Scale(dpi).Px(20) : row.kind == OptionKind::Button ? 8 : 0;
        RECT needed{0, 0, place.right - room, 0};
        const std::u16string text = Text(row.control);
        const UINT wrap = row.kind == OptionKind::Text || row.kind == OptionKind::Check ? DT_WORDBREAK : DT_SINGLELINE;
        DrawTextW(dc.Dc(), WideData(text), static_cast<int>(text.size()), &needed, DT_CALCRECT | wrap);
        EXPECT_LE(needed.right + room, place.right) << "control " << static_cast<int>(row.control) << " at " << dpi;
        EXPECT_LE(needed.bottom, place.bottom) << "control " << static_cast<int>(row.control) << " at " << dpi;
    }

    TestProgram program_;
    FakeSoundDevice sound_;
    FakeOptionsOwner owner_{program_.program.settings};
    MessageLoop loop_;
    BusyFlag dialogs_;
    OptionsForm form_{OptionsWorld{program_.program.settings, program_.program.notesFolder, program_.program.openNotes,
                                   program_.registry, program_.shell, sound_, program_.locale, owner_},
                      program_.notice, loop_, dialogs_};
};

TEST_F(OptionsFormTest, OpensOnItsFirstPageAboveAllOthers) {
    Open();
    EXPECT_EQ(WindowText(form_.Handle()), kOptionsCaption);
    EXPECT_TRUE(IsWindowVisible(form_.Handle()));
    EXPECT_TRUE(IsTopmost());
    EXPECT_EQ(form_.CurrentPage(), OptionsPage::Appearance);
    EXPECT_EQ(Written(), Names{u"Startup mode"});
    for (const OptionRow& row : OptionsTable()) {
        if (row.kind == OptionKind::KeyList) continue;
        ASSERT_NE(Of(row.control), nullptr) << static_cast<int>(row.control);
        EXPECT_EQ(IsWindowVisible(Of(row.control)) != 0, row.page == OptionsPage::Appearance);
        if (!row.caption.empty()) {
            EXPECT_EQ(Text(row.control), row.caption) << static_cast<int>(row.control);
        }
    }
}

TEST_F(OptionsFormTest, ShowsExactlyThePageOfTheCurrentTab) {
    Open();
    SetFocus(form_.TabStripWindow());
    for (const OptionsPage page : {OptionsPage::Shortcuts, OptionsPage::Behavior, OptionsPage::Help}) {
        Key(form_.TabStripWindow(), VK_RIGHT);
        EXPECT_EQ(form_.CurrentPage(), page);
        for (const OptionRow& row : OptionsTable()) {
            if (row.kind != OptionKind::KeyList) {
                EXPECT_EQ(IsWindowVisible(Of(row.control)) != 0, row.page == page) << static_cast<int>(row.control);
            }
        }
    }
}

TEST_F(OptionsFormTest, ControlTabCyclesThroughThePages) {
    Open();
    SetFocus(Of(C::BrowseFontButton));
    const windows_tests::KeysDown control({VK_CONTROL});
    Key(Of(C::BrowseFontButton), VK_TAB);
    EXPECT_EQ(form_.CurrentPage(), OptionsPage::Shortcuts);
    EXPECT_EQ(GetFocus(), form_.TabStripWindow());
    const windows_tests::KeysDown shift({VK_SHIFT});
    Key(form_.TabStripWindow(), VK_TAB);
    Key(form_.TabStripWindow(), VK_TAB);
    EXPECT_EQ(form_.CurrentPage(), OptionsPage::Help);
}

/// Counts a message sent to a window.
class MessageWatch {
  public:
    MessageWatch(HWND window, UINT message) : window_(window), message_(message) {
        SetWindowSubclass(window_, &MessageWatch::Procedure, kId, reinterpret_cast<DWORD_PTR>(this));
    }
    MessageWatch(const MessageWatch&) = delete;
    MessageWatch& operator=(const MessageWatch&) = delete;
    ~MessageWatch() { RemoveWindowSubclass(window_, &MessageWatch::Procedure, kId); }
    [[nodiscard]] HWND Window() const { return window_; }
    [[nodiscard]] int Count() const { return count_; }

  private:
    static constexpr UINT_PTR kId = 77;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR object) {
        auto& self = *reinterpret_cast<MessageWatch*>(object);
        if (message == self.message_) ++self.count_;
        return DefSubclassProc(window, message, wParam, lParam);
    }

    HWND window_;
    UINT message_;
    int count_ = 0;
};

/// A window of the program beside the dialog.
class Neighbor {
  public:
    Neighbor()
        : window_(CreateWindowExW(0, L"EDIT", L"", WS_POPUP | WS_VISIBLE, 10, 10, 60, 40, nullptr, nullptr,
                                  GetModuleHandleW(nullptr), nullptr)) {}
    [[nodiscard]] bool TakesInput() const { return IsWindowEnabled(window_.Get()) != 0; }
    [[nodiscard]] HWND Handle() const { return window_.Get(); }

  private:
    WindowHandle window_;
};

TEST_F(OptionsFormTest, EarlierWindowsTakeNoInputUntilTheDialogCloses) {
    const Neighbor before;
    const Neighbor disabledBefore;
    EnableWindow(disabledBefore.Handle(), FALSE);
    for (const bool saving : {true, false}) {
        Open();
        EXPECT_TRUE(dialogs_.IsSet()) << "the icon and the menu are busy";
        EXPECT_FALSE(before.TakesInput());
        EXPECT_TRUE(IsWindowEnabled(form_.Handle()));
        const Neighbor after;
        EXPECT_TRUE(after.TakesInput()) << "what a hotkey or a reminder makes meanwhile";
        Open();
        EXPECT_TRUE(after.TakesInput()) << "nor does a second request take its input";
        if (saving) {
            SendMessageW(form_.Handle(), WM_CLOSE, 0, 0);
        } else {
            form_.Unload();
        }
        EXPECT_TRUE(before.TakesInput());
        EXPECT_TRUE(after.TakesInput());
        EXPECT_FALSE(disabledBefore.TakesInput());
        EXPECT_FALSE(dialogs_.IsSet());
    }
}

TEST_F(OptionsFormTest, ASecondRequestFindsTheSameDialog) {
    Open();
    form_.ShowPage(OptionsPage::Behavior);
    HWND dialog = form_.Handle();
    Open();
    EXPECT_EQ(form_.Handle(), dialog);
    EXPECT_EQ(form_.CurrentPage(), OptionsPage::Behavior);
}

TEST_F(OptionsFormTest, ShowsTheCurrentSettings) {
    Now().autoPinNewNotes = true;
    Now().disableAnimation = true;
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
            EXPECT_EQ(Number(row.settings.front()), wanted != row.inverted ? on : 0) << static_cast<int>(row.control);
        }
    }
}

TEST_F(OptionsFormTest, TheWarningAppearsAboveTheDialog) {
    Open();
    bool gaveWay = false;
    bool waits = false;
    program_.notice.onWarnOfChoice = [&] {
        gaveWay = !IsTopmost();
        waits = Number(u"Startup mode") == 0;
    };
    Press(C::SpecialStartupCheck);
    EXPECT_EQ(program_.notice.choiceWarnings, Names{std::u16string(kStartupWarning)});
    EXPECT_TRUE(gaveWay);
    EXPECT_TRUE(waits);
    EXPECT_TRUE(IsTopmost());
    EXPECT_EQ(Number(u"Startup mode"), 1);
    Press(C::SpecialStartupCheck);
    EXPECT_EQ(program_.notice.choiceWarnings.size(), 1U);
    EXPECT_EQ(Number(u"Startup mode"), 0);
}

TEST_F(OptionsFormTest, ADialogClosedDuringItsWarningIsNotUsedAgain) {
    Open();
    program_.notice.onWarnOfChoice = [&] { form_.Unload(); };
    Press(C::SpecialStartupCheck);
    EXPECT_EQ(form_.Handle(), nullptr);
    EXPECT_EQ(Number(u"Startup mode"), 1);
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

TEST_F(OptionsFormTest, TheButtonTheCloseBoxAndEscAllSave) {
    const Names expected{u"shortcut 1 C:\\a.exe", u"shortcut 2 ", u"shortcut 3 ",
                         u"shortcut 4 ",          u"hotkeys",     u"redraw"};
    Now().shortcuts = {};
    const auto closeWith = [&](const std::function<void()>& close) {
        owner_.calls.clear();
        Now().shortcuts = {};
        Open();
        program_.registry.ClearLog();
        SetWindowTextW(Of(C::ShortcutBox1), L"C:\\a.exe");
        SetWindowTextW(Of(C::NoteFolderBox), L" C:\\Closed ");
        SetWindowTextW(Of(C::ReminderSoundBox), L"");
        close();
        EXPECT_EQ(form_.Handle(), nullptr);
        EXPECT_EQ(owner_.calls, expected);
        EXPECT_EQ(Written(), (Names{u"New note hotkey", u"Show notes hotkey", u"Reminder", u"Note folder"}));
        EXPECT_EQ(Stored(u"Note folder"), u"C:\\Closed");
        EXPECT_EQ(Stored(u"Reminder"), u"");
    };
    closeWith([&] { SendMessageW(form_.CloseButton(), BM_CLICK, 0, 0); });
    closeWith([&] { SendMessageW(form_.Handle(), WM_CLOSE, 0, 0); });
    closeWith([&] { Key(form_.TabStripWindow(), VK_ESCAPE); });
    closeWith([&] { Key(form_.TabStripWindow(), VK_RETURN); });
}

TEST_F(OptionsFormTest, ClosingWithTheProgramSavesNoTexts) {
    Open();
    program_.registry.ClearLog();
    SetWindowTextW(Of(C::NoteFolderBox), L"C:\\Closed");
    form_.Unload();
    EXPECT_EQ(form_.Handle(), nullptr);
    EXPECT_EQ(Written(), Names{});
    EXPECT_EQ(owner_.calls, Names{});
}

TEST_F(OptionsFormTest, SystemDialogsCloseWithItHoweverItCloses) {
    for (const bool saving : {true, false}) {
        Open();
        bool came = false;
        bool went = false;
        // The dialog's own loop dispatches this timer.
        UiTimer closer([&] {
            HWND asked = GetLastActivePopup(form_.Handle());
            if (asked == form_.Handle() || IsWindowVisible(asked) == 0) return;
            closer.Stop();
            came = true;
            if (saving) {
                SendMessageW(form_.Handle(), WM_CLOSE, 0, 0);
            } else {
                form_.Unload();
            }
            went = IsWindow(asked) == 0 || IsWindowVisible(asked) == 0;
        });
        closer.Start(50);
        Press(C::BrowseFontButton);
        EXPECT_TRUE(came);
        EXPECT_TRUE(went);
        EXPECT_EQ(form_.Handle(), nullptr);
        EXPECT_FALSE(dialogs_.IsSet());
    }
}

TEST_F(OptionsFormTest, AProgramDroppedOnTheMenuMeanwhileIsKept) {
    Now().shortcuts = {u"C:\\1.exe", u"C:\\2.exe", u"C:\\3.exe", u"C:\\4.exe"};
    Open();
    SetWindowTextW(Of(C::ShortcutBox1), L"C:\\typed.exe");
    Now().shortcuts[0] = u"C:\\dropped 1.exe";
    Now().shortcuts[1] = u"C:\\dropped 2.exe";
    SendMessageW(form_.Handle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(Now().shortcuts[0], u"C:\\typed.exe") << "what was typed wins";
    EXPECT_EQ(Now().shortcuts[1], u"C:\\dropped 2.exe");
    EXPECT_EQ(Now().shortcuts[2], u"C:\\3.exe");
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

TEST_F(OptionsFormTest, IsNeverLargerThanTheWorkArea) {
    Open();
    for (const int dpi : {96, 144, 192, 288}) {
        SetDpi(dpi);
        const RECT place = PlaceOf(form_.Handle());
        const Rect area = WorkAreaOf(form_.Handle());
        EXPECT_LE(place.bottom - place.top, area.height) << dpi;
        EXPECT_LE(place.right - place.left, area.width) << dpi;
        const RECT button = PlaceOf(form_.CloseButton());
        EXPECT_LE(button.bottom, place.bottom) << dpi;
        EXPECT_LE(form_.DialogScale().Dpi(), dpi);
    }
    SetDpi(96);
    EXPECT_EQ(form_.DialogScale().Dpi(), 96) << "where there is room again";
}

TEST_F(OptionsFormTest, NewSystemColorsReachEveryControl) {
    Open();
    std::vector<std::unique_ptr<MessageWatch>> watches;
    for (const OptionRow& row : OptionsTable()) {
        if (Of(row.control) == nullptr) continue;
        watches.push_back(std::make_unique<MessageWatch>(Of(row.control), WM_SYSCOLORCHANGE));
    }
    watches.push_back(std::make_unique<MessageWatch>(form_.TabStripWindow(), WM_SYSCOLORCHANGE));
    watches.push_back(std::make_unique<MessageWatch>(form_.CloseButton(), WM_SYSCOLORCHANGE));
    const auto glyph = SendMessageW(Of(C::BrowseButton1), BM_GETIMAGE, IMAGE_ICON, 0);
    SendMessageW(form_.Handle(), WM_SYSCOLORCHANGE, 0, 0);
    for (const auto& watch : watches) EXPECT_EQ(watch->Count(), 1) << GetDlgCtrlID(watch->Window());
    EXPECT_NE(SendMessageW(Of(C::BrowseButton1), BM_GETIMAGE, IMAGE_ICON, 0), glyph) << "drawn in the new colors";
}

TEST_F(OptionsFormTest, AHiddenPageNeverKeepsTheKeyboard) {
    Open();
    form_.ShowPage(OptionsPage::Behavior);
    SetFocus(Of(C::AutoPinCheck));
    form_.ShowPage(OptionsPage::Help);  // as dragging over its tab does
    EXPECT_EQ(GetFocus(), form_.TabStripWindow());

    form_.ShowPage(OptionsPage::Behavior);
    SetFocus(Of(C::AutoPinCheck));
    const Neighbor other;
    EnableWindow(other.Handle(), TRUE);
    SetForegroundWindow(other.Handle());
    SetFocus(other.Handle());
    form_.ShowPage(OptionsPage::Help);
    SetForegroundWindow(form_.Handle());
    loop_.RunPending();
    EXPECT_EQ(GetFocus(), form_.TabStripWindow()) << "the system remembers the check box of the hidden page";
    program_.registry.ClearLog();
    Key(GetFocus(), VK_SPACE);
    EXPECT_EQ(Written(), Names{});
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

}  // namespace
}  // namespace quillo

#include "mainmenu/options_form.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "options_form_fixture.h"
#include "platform/monitors.h"
#include "platform/text_tools.h"
#include "platform/ui_timer.h"
#include "platform/unique_handle.h"

// After windows.h.
#include <commctrl.h>

namespace quillo {
namespace {

using C = OptionControl;
using windows_tests::OptionsFormTest;
using Names = std::vector<std::u16string>;

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
    EXPECT_EQ(form_.DialogScale().Dpi(), 96) << "where there is enough space again";
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

}  // namespace
}  // namespace quillo

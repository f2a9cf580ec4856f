#include <gtest/gtest.h>

#include "note_menu_fixture.h"
#include "platform/dpi.h"
#include "platform/wide.h"
#include "testing/note_interfaces.h"

// After windows.h.
#include <commctrl.h>

namespace quillo {
namespace {

using windows_tests::ChildId;
using windows_tests::Meanwhile;
using windows_tests::NoteMenuTest;
using windows_tests::OpenMenuWindow;
using windows_tests::PumpUntil;

/// The tool tip control of a window; null if it has none.
HWND TipsOf(HWND window) {
    HWND tips = nullptr;
    while ((tips = FindWindowExW(nullptr, tips, TOOLTIPS_CLASSW, nullptr)) != nullptr) {
        if (GetWindow(tips, GW_OWNER) == window) return tips;
    }
    return nullptr;
}

std::u16string TipOf(HWND tips, HWND window, UINT_PTR tool) {
    std::u16string text(256, u'\0');
    TTTOOLINFOW info{};
    info.cbSize = TTTOOLINFOW_V2_SIZE;
    info.hwnd = window;
    info.uId = tool;
    info.lpszText = WideBuffer(text);
    SendMessageW(tips, TTM_GETTEXTW, text.size(), reinterpret_cast<LPARAM>(&info));
    text.resize(text.find(u'\0'));
    return text;
}

std::u16string TipOf(HWND tips, HWND window, HWND child) {
    return TipOf(tips, window, reinterpret_cast<UINT_PTR>(child));
}

TEST_F(NoteMenuTest, TheButtonsHaveToolTipsOnceThePointerHovers) {
    ASSERT_TRUE(one_.Settle());
    Show();
    ASSERT_TRUE(form_.SetText(u"Milk"));
    EXPECT_EQ(TipsOf(one_.Window()), nullptr) << "start-up does not pay for them";
    SendMessageW(one_.Window(), WM_SETCURSOR, reinterpret_cast<WPARAM>(Box()), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(TipsOf(one_.Window()), nullptr) << "the text has none";
    const HWND pin = one_.Child(ChildId::kPushpin);
    SendMessageW(pin, WM_SETCURSOR, reinterpret_cast<WPARAM>(pin), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    const HWND tips = TipsOf(one_.Window());
    ASSERT_NE(tips, nullptr);
    EXPECT_NE(GetWindowLongPtrW(tips, GWL_EXSTYLE) & WS_EX_TOPMOST, 0) << "above notes that are always on top";
    EXPECT_EQ(SendMessageW(tips, TTM_GETTOOLCOUNT, 0, 0), 4) << "the buttons and the reminder's label";
    const auto tip = [&](ChildId id) { return TipOf(tips, one_.Window(), one_.Child(id)); };
    EXPECT_EQ(tip(ChildId::kMenuButton), u"Note menu (Shift+F10)");
    EXPECT_EQ(tip(ChildId::kPushpin), u"Always on top (Ctrl+P)");
    EXPECT_EQ(tip(ChildId::kCloseButton),
              u"Save as a file and close (Ctrl+W)\r\nRight click: move to the Recycle Bin (Ctrl+Shift+W)");
    note_.SetPinned(true);
    EXPECT_EQ(tip(ChildId::kPushpin), u"No longer always on top (Ctrl+P)");
    form_.Close();
    EXPECT_EQ(IsWindow(tips), FALSE);
}

TEST_F(NoteMenuTest, TheToolTipOfAButtonAppearsUnderThePointerAndAPressHidesIt) {
    ASSERT_TRUE(one_.Settle());
    form_.MoveTo(TwipsRect{3000, 3000, 2820, 2445});
    Show();
    const HWND pin = one_.Child(ChildId::kPushpin);
    const auto procedureOf = [](HWND window) { return GetWindowLongPtrW(window, GWLP_WNDPROC); };
    const LONG_PTR ofNote = procedureOf(one_.Window());
    const LONG_PTR ofPin = procedureOf(pin);
    RECT place{};
    GetWindowRect(pin, &place);
    SetCursorPos(place.left + 5, place.top + 5);
    SendMessageW(pin, WM_SETCURSOR, reinterpret_cast<WPARAM>(pin), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    const HWND tips = TipsOf(one_.Window());
    ASSERT_NE(tips, nullptr);
    SendMessageW(tips, TTM_SETDELAYTIME, TTDT_INITIAL, 0);
    ASSERT_TRUE(PumpUntil([&] {
        SendMessageW(pin, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
        return IsWindowVisible(tips) != 0;
    }));
    SendMessageW(pin, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(5, 5));
    EXPECT_EQ(IsWindowVisible(tips), FALSE);
    SendMessageW(pin, WM_RBUTTONUP, 0, MAKELPARAM(-5, 5));
    EXPECT_EQ(procedureOf(one_.Window()), ofNote) << "the tips do not examine the note's other messages";
    EXPECT_EQ(procedureOf(pin), ofPin);
}

TEST_F(NoteMenuTest, TheSignOfANoteThatIsNotSavedHasItsReasonInItsToolTip) {
    ASSERT_TRUE(one_.Settle());
    form_.MoveTo(TwipsRect{3000, 3000, 2820, 2445});
    Show();
    form_.ShowSaveProblem(u"The disk is full.");
    const HWND sign = one_.Child(ChildId::kSaveSign);
    RECT place{};
    GetWindowRect(sign, &place);
    SetCursorPos(place.left + 5, place.top + 5);
    SendMessageW(one_.Window(), WM_SETCURSOR, reinterpret_cast<WPARAM>(sign), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    const HWND tips = TipsOf(one_.Window());
    ASSERT_NE(tips, nullptr);
    EXPECT_EQ(TipOf(tips, one_.Window(), sign), u"The disk is full.");
    EXPECT_NE(TipOf(tips, one_.Window(), one_.Child(ChildId::kPushpin)), u"The disk is full.");

    SendMessageW(tips, TTM_SETDELAYTIME, TTDT_INITIAL, 0);
    EXPECT_TRUE(PumpUntil([&] {
        SendMessageW(sign, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
        return IsWindowVisible(tips) != 0;
    }));
    SendMessageW(sign, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(5, 5));
    EXPECT_EQ(IsWindowVisible(tips), FALSE) << "a press hides it";
    SendMessageW(sign, WM_RBUTTONUP, 0, MAKELPARAM(-5, 5));
}

TEST_F(NoteMenuTest, TheReminderLabelHasAToolTipWithTheDate) {
    ASSERT_TRUE(one_.Settle());
    form_.MoveTo(TwipsRect{3000, 3000, 2820, 2445});
    Show();
    RECT window{};
    GetWindowRect(one_.Window(), &window);
    const Scale scale = WindowScale(one_.Window());
    const POINT label{window.left + scale.Px(20), window.bottom - scale.Px(6)};
    SetCursorPos(label.x, label.y);
    const auto move = [&] { SendMessageW(one_.Window(), WM_NCMOUSEMOVE, HTBOTTOM, MAKELPARAM(label.x, label.y)); };
    move();
    const HWND tips = TipsOf(one_.Window());
    ASSERT_NE(tips, nullptr);
    const auto words = [&] { return TipOf(tips, one_.Window(), static_cast<UINT_PTR>(ChildId::kReminderLabel)); };
    EXPECT_EQ(words(), u"") << "no reminder, and no tip";
    AsReminderOwner(note_).SetReminder(ToDaySerial({2031, 5, 14, 14, 30, 0}));
    EXPECT_EQ(words(), u"Reminder: Wednesday, 5/14/2031, 2:30:00 PM");

    SendMessageW(tips, TTM_SETDELAYTIME, TTDT_INITIAL, 0);
    SendMessageW(tips, TTM_POP, 0, 0);
    EXPECT_TRUE(PumpUntil([&] {
        move();
        return IsWindowVisible(tips) != 0;
    })) << "moves over the edge that resizes the note reach the tip, too";
    SendMessageW(one_.Window(), WM_ENTERSIZEMOVE, 0, 0);
    EXPECT_EQ(IsWindowVisible(tips), FALSE) << "it does not cover a note that is resized";
    SendMessageW(one_.Window(), WM_EXITSIZEMOVE, 0, 0);
}

TEST_F(NoteMenuTest, ASignCreatedAfterTheToolTipsHasOneToo) {
    ASSERT_TRUE(one_.Settle());
    Show();
    SendMessageW(one_.Window(), WM_SETCURSOR, reinterpret_cast<WPARAM>(one_.Child(ChildId::kPushpin)),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    const HWND tips = TipsOf(one_.Window());
    ASSERT_NE(tips, nullptr);
    form_.ShowSaveProblem(u"The disk is full.");
    EXPECT_EQ(TipOf(tips, one_.Window(), one_.Child(ChildId::kSaveSign)), u"The disk is full.");
}

TEST_F(NoteMenuTest, NoToolTipCoversAnOpenMenu) {
    ASSERT_TRUE(one_.Settle());
    Show();
    const HWND button = one_.Child(ChildId::kMenuButton);
    SendMessageW(button, WM_SETCURSOR, reinterpret_cast<WPARAM>(button), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    const HWND tips = TipsOf(one_.Window());
    ASSERT_NE(tips, nullptr);
    SendMessageW(tips, TTM_SETDELAYTIME, TTDT_INITIAL, 0);
    SendMessageW(tips, TTM_SETDELAYTIME, TTDT_RESHOW, 0);
    RECT place{};
    GetWindowRect(button, &place);
    SetCursorPos(place.left + 6, place.top + 6);
    bool appeared = false;
    int looks = 0;
    const Meanwhile user([&] {
        if (OpenMenuWindow() == nullptr) return false;
        SendMessageW(button, WM_MOUSEMOVE, 0, MAKELPARAM(looks % 2 + 5, 5));
        appeared = appeared || IsWindowVisible(tips) != 0;
        constexpr int kEnough = 10;
        if (++looks < kEnough) return false;
        EndMenu();
        return true;
    });
    PressMenuButton();
    EXPECT_TRUE(user.IsDone());
    EXPECT_FALSE(appeared);
}

TEST_F(NoteMenuTest, TheToolTipsAreCreatedAgainForAnotherResolution) {
    ASSERT_TRUE(one_.Settle());
    Show();
    const HWND pin = one_.Child(ChildId::kPushpin);
    const auto hover = [&] {
        SendMessageW(pin, WM_SETCURSOR, reinterpret_cast<WPARAM>(pin), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return SendMessageW(TipsOf(one_.Window()), TTM_GETMAXTIPWIDTH, 0, 0);
    };
    const LRESULT before = hover();
    RECT suggested{100, 100, 382, 345};
    SendMessageW(one_.Window(), WM_DPICHANGED, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&suggested));
    EXPECT_EQ(TipsOf(one_.Window()), nullptr);
    EXPECT_EQ(hover(), before * 192 / SystemScale().Dpi());
}

}  // namespace
}  // namespace quillo

#include <gtest/gtest.h>

#include <functional>

#include "note_fixture.h"
#include "platform/dpi.h"
#include "platform/file_dialogs.h"
#include "platform/text_tools.h"
#include "platform/ui_timer.h"
#include "platform/wide.h"

// After windows.h.
#include <commctrl.h>

namespace quillo {
namespace {

using windows_tests::ChildId;
using windows_tests::NoteWorldForTests;
using windows_tests::PaintNow;
using windows_tests::PixelOf;
using windows_tests::PumpUntil;
using windows_tests::PumpWaiting;
using windows_tests::TestNote;

/// The shell's message to the window of an icon.
constexpr UINT kTrayCallback = 512;

/// The window of the menu that is open on this thread; null if none is.
HWND OpenMenuWindow() {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    if (GetGUIThreadInfo(GetCurrentThreadId(), &info) == 0 || (info.flags & GUI_INMENUMODE) == 0) return nullptr;
    const HWND menu = FindWindowW(L"#32768", nullptr);
    return menu != nullptr && IsWindowVisible(menu) != 0 ? menu : nullptr;
}

HMENU MenuOf(HWND window) {
    constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU
    return reinterpret_cast<HMENU>(SendMessageW(window, kGetMenu, 0, 0));
}

/// Calls a function repeatedly, inside modal loops too, until told to stop.
class Meanwhile {
  public:
    explicit Meanwhile(std::function<bool()> done) : done_(std::move(done)) { timer_.Start(20); }
    [[nodiscard]] bool IsDone() const { return finished_; }

  private:
    void Tick() {
        if (!finished_) finished_ = done_();
        if (finished_) timer_.Stop();
    }

    std::function<bool()> done_;
    UiTimer timer_{[this] { Tick(); }};
    bool finished_ = false;
};

class NoteMenuTest : public testing::Test {
  protected:
    NoteMenuTest() {
        EXPECT_TRUE(one_.Create());
        form_.MoveTo(TwipsRect{3000, 3000, 2820, 2445});
    }
    void Show() {
        form_.Show();
        form_.BringToFront(true);
        form_.Activate();
        PaintNow(one_.Window());
    }
    [[nodiscard]] HWND Box() const { return one_.Child(ChildId::kMessageBox); }
    void PressMenuButton() const {
        SendMessageW(one_.Child(ChildId::kMenuButton), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    }
    /// Calls `act` with the window of a menu as soon as one is open.
    [[nodiscard]] static Meanwhile WhenAMenuIsOpen(std::function<void(HWND)> act) {
        return Meanwhile([act = std::move(act)] {
            const HWND menu = OpenMenuWindow();
            if (menu == nullptr) return false;
            act(menu);
            return true;
        });
    }
    static void Key(HWND window, WPARAM key) {
        PostMessageW(window, WM_KEYDOWN, key, 1);
        PostMessageW(window, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    }

    NoteWorldForTests world_;
    TestNote one_{world_, u"one"};
    NoteForm& form_{one_.form};
    OpenNote& note_{one_.note};
};

TEST_F(NoteMenuTest, TheButtonDropsTheMenuBelowItself) {
    ASSERT_TRUE(one_.Settle());
    Show();
    note_.SetLargeText(true);
    int items = 0;
    UINT large = 0;
    RECT menuPlace{};
    COLORREF held = 0;
    const HWND button = one_.Child(ChildId::kMenuButton);
    const COLORREF atRest = PixelOf(button, Point{3, 3});
    const auto menu = WhenAMenuIsOpen([&](HWND window) {
        items = GetMenuItemCount(MenuOf(window));
        large = GetMenuState(MenuOf(window), 2, MF_BYPOSITION);
        GetWindowRect(window, &menuPlace);
        PaintNow(button);
        held = PixelOf(button, Point{3, 3});
        EndMenu();
    });
    PressMenuButton();
    EXPECT_TRUE(menu.IsDone());
    EXPECT_EQ(items, 10);
    EXPECT_NE(large & MF_CHECKED, 0U);
    RECT place{};
    GetWindowRect(button, &place);
    EXPECT_EQ(menuPlace.left, place.left);
    EXPECT_EQ(menuPlace.top, place.bottom);
    EXPECT_NE(held, atRest) << "the button looks pressed while its menu is open";
    PaintNow(button);
    EXPECT_EQ(PixelOf(button, Point{3, 3}), atRest);
}

TEST_F(NoteMenuTest, TheMenuButtonDoesNotStayLitAfterItsMenuWasClosed) {
    ASSERT_TRUE(one_.Settle());
    Show();
    const HWND button = one_.Child(ChildId::kMenuButton);
    const COLORREF atRest = PixelOf(button, Point{3, 3});
    const auto menu = WhenAMenuIsOpen([](HWND) { EndMenu(); });
    PressMenuButton();
    EXPECT_TRUE(menu.IsDone());
    SendMessageW(button, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    PaintNow(button);
    EXPECT_NE(PixelOf(button, Point{3, 3}), atRest) << "the pointer passes over it";
    SendMessageW(button, WM_MOUSELEAVE, 0, 0);
    PaintNow(button);
    EXPECT_EQ(PixelOf(button, Point{3, 3}), atRest);
    EXPECT_NE(GetCapture(), button);
}

TEST_F(NoteMenuTest, ThePressThatClosesTheMenuDoesNotOpenItAgain) {
    ASSERT_TRUE(one_.Settle());
    Show();
    const HWND button = one_.Child(ChildId::kMenuButton);
    const auto press = [button] {
        PostMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
        PostMessageW(button, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    };
    int opened = 0;
    const auto first = WhenAMenuIsOpen([&](HWND) {
        press();
        EndMenu();
        ++opened;
    });
    PressMenuButton();
    EXPECT_TRUE(first.IsDone());
    const auto second = WhenAMenuIsOpen([&](HWND) {
        EndMenu();
        ++opened;
    });
    PumpWaiting();
    EXPECT_EQ(opened, 1);
    // The next press opens it.
    const DWORD closedAt = GetTickCount();
    EXPECT_TRUE(PumpUntil([closedAt] { return GetTickCount() != closedAt; }));
    press();
    EXPECT_TRUE(PumpUntil([&] { return second.IsDone(); }));
    EXPECT_EQ(opened, 2);
}

TEST_F(NoteMenuTest, TheKeyboardOpensTheMenuAndChooses) {
    ASSERT_TRUE(one_.Settle());
    Show();
    ASSERT_TRUE(form_.SetText(u"abc"));
    const auto menu = WhenAMenuIsOpen([](HWND) {
        Key(GetFocus(), VK_DOWN);
        Key(GetFocus(), VK_DOWN);
        Key(GetFocus(), VK_RETURN);
    });
    SendMessageW(Box(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Box()), -1);
    EXPECT_TRUE(menu.IsDone());
    EXPECT_EQ(form_.Text(), u"(" + world_.locale.GeneralDate(world_.clock.now) + u")\r\n\r\nabc");
}

TEST_F(NoteMenuTest, TheContextMenuKeyOpensTheMenuBeforeTheButtonsHaveWindows) {
    Show();
    ASSERT_EQ(one_.Child(ChildId::kMenuButton), nullptr);
    const auto menu = WhenAMenuIsOpen([](HWND) { EndMenu(); });
    SendMessageW(Box(), WM_KEYDOWN, VK_APPS, 1);
    EXPECT_TRUE(menu.IsDone());
    EXPECT_NE(one_.Child(ChildId::kMenuButton), nullptr);
}

TEST_F(NoteMenuTest, AfterEscInTheMenuOfItsIconTheKeyboardIsWhereItWas) {
    ASSERT_TRUE(form_.SetText(u"abc"));
    TestNote other(world_, u"other");
    ASSERT_TRUE(other.Create());
    Show();
    note_.MinimizeByUser();
    other.form.Show();
    other.form.Activate();
    const HWND keyboard = GetFocus();
    ASSERT_EQ(keyboard, other.Child(ChildId::kMessageBox));
    const HWND icon = FindWindowExW(HWND_MESSAGE, nullptr, L"QuilloTrayIcon", nullptr);
    ASSERT_NE(icon, nullptr);
    bool hiddenHadIt = false;
    const auto menu = WhenAMenuIsOpen([&](HWND) {
        hiddenHadIt = GetFocus() == Box();
        Key(GetFocus(), VK_ESCAPE);
    });
    SendMessageW(icon, kTrayCallback, 1, WM_RBUTTONUP);
    EXPECT_TRUE(menu.IsDone());
    EXPECT_FALSE(hiddenHadIt) << "not even while the menu is open";
    EXPECT_EQ(GetForegroundWindow(), other.Window());
    EXPECT_EQ(GetFocus(), keyboard);
}

TEST_F(NoteMenuTest, TheEndOfANoteClosesItsOpenMenu) {
    ASSERT_TRUE(one_.Settle());
    Show();
    ASSERT_TRUE(form_.SetText(u"abc"));
    const auto menu = WhenAMenuIsOpen([this](HWND) { note_.DestroyNote(); });
    PressMenuButton();
    EXPECT_TRUE(menu.IsDone());
    EXPECT_EQ(OpenMenuWindow(), nullptr);
    EXPECT_EQ(form_.Handle(), nullptr);
}

TEST_F(NoteMenuTest, TheEndOfAnotherNoteKeepsTheMenuOpen) {
    ASSERT_TRUE(one_.Settle());
    Show();
    TestNote other(world_, u"other");
    ASSERT_TRUE(other.Create());
    bool stayed = false;
    const auto menu = WhenAMenuIsOpen([&](HWND window) {
        other.form.Close();
        stayed = IsWindowVisible(window) != 0;
        EndMenu();
    });
    PressMenuButton();
    EXPECT_TRUE(stayed);
}

TEST_F(NoteMenuTest, APressBeforeTheButtonsHaveWindowsStillCounts) {
    Show();
    ASSERT_EQ(one_.Child(ChildId::kCloseButton), nullptr);
    RECT client{};
    GetClientRect(one_.Window(), &client);
    const Rect close = LayOutNote(Size{client.right, client.bottom}, SystemScale()).closeButton;
    SendMessageW(one_.Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(close.left + 5, close.top + 5));
    ASSERT_NE(one_.Child(ChildId::kCloseButton), nullptr);
    EXPECT_EQ(GetCapture(), one_.Child(ChildId::kCloseButton)) << "pressed, and no drag of the note";
    SendMessageW(one_.Child(ChildId::kCloseButton), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(world_.removed, u"one");
}

// The text box.

TEST_F(NoteMenuTest, ATimeStampKeepsTheCaretAndCanBeUndone) {
    Show();
    ASSERT_TRUE(form_.SetText(u"abc"));
    SendMessageW(Box(), EM_SETSEL, 1, 2);
    note_.AddTimestamp();
    const auto length = static_cast<DWORD>(form_.Text().size());
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(Box(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    EXPECT_EQ(length - start, 2U);
    EXPECT_EQ(length - end, 1U);
    SendMessageW(Box(), WM_UNDO, 0, 0);
    EXPECT_EQ(form_.Text(), u"abc");
}

TEST_F(NoteMenuTest, ARightClickInTheTextKeepsTheTextBoxesOwnMenu) {
    ASSERT_TRUE(one_.Settle());
    Show();
    int items = 0;
    const auto menu = WhenAMenuIsOpen([&](HWND window) {
        items = GetMenuItemCount(MenuOf(window));
        EndMenu();
    });
    RECT place{};
    GetWindowRect(Box(), &place);
    SendMessageW(Box(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(Box()), MAKELPARAM(place.left + 10, place.top + 10));
    EXPECT_TRUE(menu.IsDone());
    EXPECT_NE(items, 10);
}

// Tool tips.

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
    note_.TogglePin();
    EXPECT_EQ(tip(ChildId::kPushpin), u"No longer always on top (Ctrl+P)");
    form_.Close();
    EXPECT_EQ(IsWindow(tips), FALSE);
}

TEST_F(NoteMenuTest, TheSignOfANoteThatIsNotSavedHasItsReasonInItsToolTip) {
    ASSERT_TRUE(one_.Settle());
    Show();
    form_.ShowSaveProblem(u"The disk is full.");
    const HWND sign = one_.Child(ChildId::kSaveSign);
    SendMessageW(one_.Window(), WM_SETCURSOR, reinterpret_cast<WPARAM>(sign), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    const HWND tips = TipsOf(one_.Window());
    ASSERT_NE(tips, nullptr);
    EXPECT_EQ(TipOf(tips, one_.Window(), sign), u"The disk is full.");
    EXPECT_NE(TipOf(tips, one_.Window(), one_.Child(ChildId::kPushpin)), u"The disk is full.");
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
    note_.SetReminder(ToDaySerial({2031, 5, 14, 14, 30, 0}));
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
    bool stood = false;
    int looks = 0;
    const Meanwhile user([&] {
        if (OpenMenuWindow() == nullptr) return false;
        SendMessageW(button, WM_MOUSEMOVE, 0, MAKELPARAM(looks % 2 + 5, 5));
        stood = stood || IsWindowVisible(tips) != 0;
        constexpr int kEnough = 10;
        if (++looks < kEnough) return false;
        EndMenu();
        return true;
    });
    PressMenuButton();
    EXPECT_TRUE(user.IsDone());
    EXPECT_FALSE(stood);
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

// The dialog for a copy.

/// The visible system dialog that belongs to a window; null if there is none.
HWND DialogOf(HWND owner) {
    HWND dialog = nullptr;
    while ((dialog = FindWindowExW(nullptr, dialog, L"#32770", nullptr)) != nullptr) {
        if (GetWindow(dialog, GW_OWNER) == owner && IsWindowVisible(dialog) != 0) return dialog;
    }
    return nullptr;
}

TEST(FileDialogs, AFilterAsTheSystemWantsIt) {
    EXPECT_EQ(SystemFilter(u"Sticky notes|*.qln|All files|*.*"),
              std::u16string(u"Sticky notes\0*.qln\0All files\0*.*\0\0", 34));
}

TEST_F(NoteMenuTest, ACopyIsAskedForByTheSystemsDialog) {
    ASSERT_TRUE(one_.Settle());
    Show();
    ASSERT_TRUE(form_.SetText(u"Milk"));
    const std::u16string path = world_.folder.Of(u"copy");
    std::u16string title;
    const Meanwhile user([&] {
        const HWND dialog = DialogOf(one_.Window());
        if (dialog == nullptr) return false;
        constexpr int kFileName = 0x47C;
        if (GetDlgItem(dialog, kFileName) == nullptr) return false;
        title = WindowText(dialog);
        SendDlgItemMessageW(dialog, kFileName, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Wide(path)));
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        return true;
    });
    note_.SaveNoteAs();
    EXPECT_TRUE(user.IsDone());
    EXPECT_EQ(title, u"Save sticky note...");
    EXPECT_TRUE(world_.files.FileExists(path + u".qln")) << "the extension comes by itself";
    EXPECT_EQ(note_.Data().FileName, u"");
}

TEST_F(NoteMenuTest, TheEndOfANoteClosesItsDialog) {
    ASSERT_TRUE(one_.Settle());
    Show();
    ASSERT_TRUE(form_.SetText(u"Milk"));
    const Meanwhile user([&] {
        if (DialogOf(one_.Window()) == nullptr) return false;
        note_.DestroyNote();
        return true;
    });
    note_.SaveNoteAs();
    EXPECT_TRUE(user.IsDone());
    EXPECT_EQ(form_.Handle(), nullptr);
    EXPECT_TRUE(world_.files.List(world_.folder.Path(), u".qln").empty());
}

}  // namespace
}  // namespace quillo

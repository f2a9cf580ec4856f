#include <gtest/gtest.h>

#include "note_menu_fixture.h"
#include "platform/dpi.h"
#include "platform/file_dialogs.h"
#include "platform/text_tools.h"
#include "platform/wide.h"

namespace quillo {
namespace {

using windows_tests::ChildId;
using windows_tests::Meanwhile;
using windows_tests::NoteMenuTest;
using windows_tests::OpenMenuWindow;
using windows_tests::PaintNow;
using windows_tests::PixelOf;
using windows_tests::PumpUntil;
using windows_tests::PumpWaiting;
using windows_tests::TestNote;

/// The shell's message to the window of an icon.
constexpr UINT kTrayCallback = 512;

HMENU MenuOf(HWND window) {
    constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU
    return reinterpret_cast<HMENU>(SendMessageW(window, kGetMenu, 0, 0));
}

TEST_F(NoteMenuTest, TheButtonDropsTheMenuBelowItself) {
    ASSERT_TRUE(one_.Settle());
    Show();
    note_.Perform(NoteAction::ToggleLargeText);
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
    note_.Perform(NoteAction::Minimize);
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
    note_.Perform(NoteAction::AddTimestamp);
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
    note_.Perform(NoteAction::SaveCopy);
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
    note_.Perform(NoteAction::SaveCopy);
    EXPECT_TRUE(user.IsDone());
    EXPECT_EQ(form_.Handle(), nullptr);
    EXPECT_TRUE(world_.files.List(world_.folder.Path(), u".qln").empty());
}

}  // namespace
}  // namespace quillo

#include <atomic>
#include <memory>

#include "accessible_reader.h"
#include "app/base/registry_keys.h"
#include "main_form_fixture.h"
#include "platform/unique_handle.h"
#include "platform/wide.h"

// After windows.h.
#include <commctrl.h>

namespace quillo::windows_tests {
namespace {

using Sounds = std::vector<SystemSound>;

// Choosing.

TEST_F(MainFormWindow, EveryItemActsAndTheMenuCloses) {
    AddNote(u"A");
    test_.program.settings.shortcuts = {u"C:\\one.exe", u"C:\\two.exe", u"", u"\"C:\\four.exe\" /x"};
    struct Case {
        Point at;
        std::string heard;
        std::vector<std::u16string> started;
    };
    const Case cases[] = {
        {{50, 100}, "new ", {}},
        {{250, 80}, "options ", {}},
        {{248, 20}, "about ", {}},
        {{280, 20}, "", {}},  // closes the menu
        {{100, 20}, "", {}},
        {{125, 150}, "away ", {u"C:\\one.exe"}},  // changes are saved before the shell is called
        {{175, 150}, "away ", {u"C:\\two.exe"}},
        {{225, 150}, "", {}},  // an empty slot
        {{275, 150}, "away ", {u"C:\\four.exe /x"}},
    };
    for (const Case& c : cases) {
        Show();
        test_.shell.started.clear();
        Click(c.at.x, c.at.y);
        EXPECT_EQ(Heard(), c.heard) << c.at.x << ", " << c.at.y;
        EXPECT_EQ(test_.shell.started, c.started) << c.at.x << ", " << c.at.y;
        EXPECT_FALSE(form_.IsShowing());
        EXPECT_EQ(test_.notice.sounds, Sounds{SystemSound::RestoreDown});
    }
    Show();
    Click(150, 80);
    EXPECT_TRUE(test_.views.View(0).IsVisible()) << "the notes are surfaced";
    EXPECT_FALSE(form_.IsShowing());
}

TEST_F(MainFormWindow, WithNothingBoundAnItemOnlyClosesIt) {
    form_.onOptions = nullptr;
    form_.onAbout = nullptr;
    form_.onNewNote = nullptr;
    for (const Point at : {Point{50, 100}, Point{250, 80}, Point{248, 20}}) {
        Show();
        Click(at.x, at.y);
        EXPECT_FALSE(form_.IsShowing());
    }
}

TEST_F(MainFormTest, AHandlerMayEndTheMenu) {
    auto form = std::make_unique<MainForm>(
        MainFormServices{test_.program, test_.registry, test_.shell, test_.locale, dialogs_}, ServicesOfMenu(), kTick);
    ASSERT_TRUE(form->Load());
    const std::string captured = "a text that is too long to be stored in the string itself";
    std::string seen;
    form->onNewNote = [&form, &seen, captured] {
        form.reset();
        seen = captured;
    };
    form->SlideForm(true);
    HWND menu = form->Handle();
    for (const WPARAM key : {VK_DOWN, VK_RETURN}) SendMessageW(menu, WM_KEYDOWN, key, 0);
    EXPECT_EQ(form, nullptr);
    EXPECT_EQ(seen, captured);
    EXPECT_EQ(IsWindow(menu), FALSE);
}

TEST_F(MainFormWindow, WithoutNotesShowAllNotesOnlyClosesIt) {
    Show();
    const COLORREF atRest = Pixel(110, 50);
    Mouse(WM_MOUSEMOVE, 150, 80);
    EXPECT_EQ(Pixel(110, 50), atRest) << "it lights up for nobody";
    Click(150, 80);
    EXPECT_FALSE(form_.IsShowing());
    EXPECT_EQ(Heard(), "");
}

TEST_F(MainFormWindow, TheRightButtonEndsTheProgramWhereNothingIsOrOnTheCross) {
    for (const Point at : {Point{100, 20}, Point{280, 20}, Point{150, 80}}) {
        Show();
        Mouse(WM_MOUSEMOVE, at.x, at.y);
        Mouse(WM_RBUTTONDOWN, at.x, at.y);
        Mouse(WM_RBUTTONUP, at.x, at.y);
        EXPECT_EQ(Heard(), "quit ") << at.x << ", " << at.y;
        EXPECT_TRUE(form_.IsShowing()) << "it ends with the program";
        EXPECT_EQ(test_.notice.sounds, Sounds{}) << at.x << ", " << at.y;
        form_.SlideForm(false);
    }
    Show();
    Mouse(WM_RBUTTONDOWN, 50, 100);
    Mouse(WM_RBUTTONUP, 50, 100);
    EXPECT_EQ(Heard(), "new ") << "an item takes any button";
}

TEST_F(MainFormWindow, IfTheProgramDoesNotEndAfterAllTheMenuCloses) {
    refusesToEnd_ = true;
    Show();
    Mouse(WM_RBUTTONUP, 280, 20);
    EXPECT_EQ(Heard(), "quit ");
    EXPECT_FALSE(form_.IsShowing());
    EXPECT_EQ(test_.notice.sounds, Sounds{SystemSound::RestoreDown});
}

TEST_F(MainFormWindow, AnyReleaseOfAnyButtonChoosesWhereverItsPressWas) {
    for (const UINT release : {WM_LBUTTONUP, WM_RBUTTONUP, WM_MBUTTONUP, WM_XBUTTONUP}) {
        Show();
        Mouse(release, 50, 100);
        EXPECT_EQ(Heard(), "new ") << release;
        EXPECT_FALSE(form_.IsShowing()) << release;
    }
    Show();
    Mouse(WM_RBUTTONUP, 280, 20);
    EXPECT_EQ(Heard(), "quit ") << "the right button over the cross";
    form_.SlideForm(false);
    Show();
    Mouse(WM_XBUTTONUP, 280, 20);
    EXPECT_EQ(Heard(), "") << "only the right button quits";
    EXPECT_FALSE(form_.IsShowing());
}

TEST_F(MainFormWindow, AReleaseOutsideOnlyCloses) {
    Show();
    Mouse(WM_LBUTTONDOWN, 50, 100);
    Mouse(WM_LBUTTONUP, -10, -10);
    EXPECT_EQ(Heard(), "");
    EXPECT_FALSE(form_.IsShowing()) << "let go outside, it only closes";
}

TEST_F(MainFormWindow, ClosingTheWindowEndsTheProgram) {
    Show();
    Send(WM_CLOSE);
    EXPECT_EQ(Heard(), "quit ");
    EXPECT_TRUE(IsWindow(form_.Handle())) << "the quit procedure unloads it";
}

// Hovering.

TEST_F(MainFormWindow, TheItemUnderThePointerShowsItsHighlightedFace) {
    AddNote(u"A");
    Show();
    const COLORREF atRest = Pixel(208, 50);
    Mouse(WM_MOUSEMOVE, 250, 80);
    const COLORREF lit = Pixel(208, 50);
    EXPECT_NE(lit, atRest);
    Mouse(WM_MOUSEMOVE, 150, 80);
    EXPECT_EQ(Pixel(208, 50), atRest);
    EXPECT_EQ(Pixel(108, 50), lit);
    Send(WM_MOUSELEAVE);
    EXPECT_EQ(Pixel(108, 50), atRest);
}

TEST_F(MainFormWindow, TheKeyboardMovesWithArrowsAndTabAndChoosesWithEnter) {
    test_.program.settings.shortcuts[1] = u"C:\\two.exe";
    Show();
    Key(VK_RETURN);
    EXPECT_TRUE(form_.IsShowing()) << "nothing is chosen yet";
    Key(VK_DOWN);
    Key(VK_RETURN);
    EXPECT_EQ(Heard(), "new ");
    EXPECT_FALSE(form_.IsShowing());
    Show();
    for (const WPARAM key : {VK_TAB, VK_TAB, VK_SPACE}) Key(key);
    EXPECT_EQ(Heard(), "options ") << "there is no note to show";
    Show();
    for (const WPARAM key : {VK_RIGHT, VK_RIGHT, VK_UP, VK_RETURN}) Key(key);
    EXPECT_EQ(Heard(), "about ") << "from the slot to the item above it, with no note to show";
    Show();
    Key(VK_ESCAPE);
    EXPECT_FALSE(form_.IsShowing());
    EXPECT_EQ(Heard(), "");
}

TEST_F(MainFormWindow, ThePointerAtRestDoesNotChangeTheKeyboardsItem) {
    Show();
    Mouse(WM_MOUSEMOVE, 250, 80);
    Key(VK_LEFT);
    Mouse(WM_MOUSEMOVE, 250, 80);  // the system repeats it
    Send(WM_MOUSELEAVE);
    Key(VK_RETURN);
    EXPECT_EQ(Heard(), "new ");
}

TEST_F(MainFormWindow, AScreenReaderKnowsEveryItem) {
    test_.program.settings.shortcuts = {u"C:\\Windows\\Notepad.exe", u"", u"", u""};
    Show();
    const Reader reader(form_.Handle());
    EXPECT_EQ(reader.Role(), ROLE_SYSTEM_MENUPOPUP);
    EXPECT_EQ(reader.Name(), u"Quillo menu");
    std::vector<std::u16string> names;
    for (LONG part = 1; part <= 9; ++part) {
        names.push_back(reader.Name(part));
        EXPECT_EQ(reader.Role(part), ROLE_SYSTEM_MENUITEM);
    }
    EXPECT_EQ(names, (std::vector<std::u16string>{u"New note", u"Show all notes", u"Options", u"Notepad",
                                                  u"Program shortcut 2, empty", u"Program shortcut 3, empty",
                                                  u"Program shortcut 4, empty", u"About Quillo", u"Close menu"}));
    EXPECT_NE(reader.State(2) & STATE_SYSTEM_UNAVAILABLE, 0) << "there is no note";
    EXPECT_EQ(reader.State(3) & STATE_SYSTEM_UNAVAILABLE, 0);
    EXPECT_EQ(reader->accDoDefaultAction(Reader::Part(3)), S_OK);
    PumpWaiting();
    EXPECT_EQ(Heard(), "options ");
    EXPECT_FALSE(form_.IsShowing());
}

/// The text that a tool tip control shows for one of the window's areas.
std::u16string ToolTipOf(HWND menu, MenuItem item) {
    NMTTDISPINFOW question{};
    question.hdr.hwndFrom = menu;
    question.hdr.idFrom = static_cast<UINT_PTR>(item);
    question.hdr.code = TTN_GETDISPINFOW;
    SendMessageW(menu, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&question));
    return question.lpszText != nullptr ? std::u16string(FromWide(question.lpszText)) : std::u16string();
}

/// The tool tip control that belongs to a window; null if there is none.
HWND ToolTipsOf(HWND owner) {
    for (HWND tips = nullptr; (tips = FindWindowExW(nullptr, tips, TOOLTIPS_CLASSW, nullptr)) != nullptr;) {
        if (GetWindow(tips, GW_OWNER) == owner) return tips;
    }
    return nullptr;
}

/// The area of the window in which an item's tool tip appears.
RECT AreaOfToolTip(HWND menu, MenuItem item) {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.hwnd = menu;
    tool.uId = static_cast<UINT_PTR>(item);
    EXPECT_TRUE(SendMessageW(ToolTipsOf(menu), TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool)));
    return tool.rect;
}

TEST_F(MainFormWindow, TheSlotsAndTheRoundButtonsHaveToolTips) {
    test_.program.settings.shortcuts = {u"C:\\Windows\\Notepad.exe", u"", u"", u""};
    Show();
    HWND tips = ToolTipsOf(form_.Handle());
    ASSERT_NE(tips, nullptr);
    EXPECT_EQ(SendMessageW(tips, TTM_GETTOOLCOUNT, 0, 0), 6);
    EXPECT_EQ(ToolTipOf(form_.Handle(), MenuItem::Shortcut1), u"Notepad");
    EXPECT_EQ(ToolTipOf(form_.Handle(), MenuItem::Close), u"Close the menu.  Right-click to quit Quillo.");
    const RECT cross = AreaOfToolTip(form_.Handle(), MenuItem::Close);
    RECT client{};
    GetClientRect(form_.Handle(), &client);
    EXPECT_EQ(cross.right, client.right);
    EXPECT_EQ(cross.top, 0);

    SendMessageW(tips, TTM_SETDELAYTIME, TTDT_INITIAL, 0);
    POINT middle{(cross.left + cross.right) / 2, (cross.top + cross.bottom) / 2};
    const LPARAM at = MAKELPARAM(middle.x, middle.y);
    ClientToScreen(form_.Handle(), &middle);
    POINT pointer{};
    GetCursorPos(&pointer);
    SetCursorPos(middle.x, middle.y);
    EXPECT_TRUE(PumpUntil([&] {
        Send(WM_MOUSEMOVE, 0, at);
        return IsWindowVisible(tips) != 0;
    }));
    Send(WM_LBUTTONDOWN, MK_LBUTTON, at);
    EXPECT_FALSE(IsWindowVisible(tips)) << "a press hides it";
    Send(WM_LBUTTONUP, 0, at);
    EXPECT_EQ(ToolTipsOf(form_.Handle()), nullptr) << "the menu has closed";
    SetCursorPos(pointer.x, pointer.y);  // other tests do not expect it over the menu
}

TEST_F(MainFormWindow, AnOpenMenuFollowsAnotherScaling) {
    const int dpi = AskForMonitors().front().scale.Dpi();
    scale_ = Scale(2 * dpi);
    monitors_.Forget();
    Show();
    (void)Pixel(0, 0);
    RECT large{};
    GetClientRect(form_.Handle(), &large);
    const auto widestTip = [this] { return SendMessageW(ToolTipsOf(form_.Handle()), TTM_GETMAXTIPWIDTH, 0, 0); };
    const LRESULT widestLarge = widestTip();
    // A smaller window: the system keeps the pixels of a smaller area.
    scale_ = Scale(dpi);
    RECT suggested{};
    Send(WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&suggested));
    RECT client{};
    GetClientRect(form_.Handle(), &client);
    EXPECT_EQ(client.right, large.right / 2);
    EXPECT_EQ(AreaOfToolTip(form_.Handle(), MenuItem::Close).right, client.right);
    EXPECT_EQ(widestTip(), widestLarge / 2);
    RECT update{};
    GetUpdateRect(form_.Handle(), &update, FALSE);
    EXPECT_TRUE(EqualRect(&update, &client)) << "the whole picture is drawn again";
}

// Shortcuts.

TEST_F(MainFormWindow, AShortcutIsStoredInItsSlotAndInTheRegistry) {
    form_.SetShortcut(3, u"C:\\three.exe");
    EXPECT_EQ(test_.program.settings.shortcuts[2], u"C:\\three.exe");
    EXPECT_EQ(test_.registry.Text(kUserKey, u"Shortcut 3"), u"C:\\three.exe");
    for (const int none : {-1, 0, 5}) form_.SetShortcut(none, u"C:\\none.exe");
    EXPECT_EQ(test_.registry.ValueCount(kUserKey), 1U);
}

TEST_F(MainFormWindow, AShortcutThatTheSystemCouldNotRunIsNotStored) {
    form_.SetShortcut(2, u"C:\\kept.exe");
    form_.SetShortcut(2, std::u16string(1000, u'x'));
    EXPECT_EQ(test_.program.settings.shortcuts[1], u"C:\\kept.exe");
}

TEST_F(MainFormWindow, AShortcutsIconIsInItsColumnOfBothFaces) {
    const auto look = [this] {
        std::vector<COLORREF> pixels;
        for (int x = 105; x < 300; x += 5) {
            for (int y = 135; y < 165; y += 5) pixels.push_back(Pixel(x, y));
        }
        return pixels;
    };
    const auto columns = [](const std::vector<COLORREF>& before, const std::vector<COLORREF>& after) {
        std::string changed = "----";
        constexpr std::size_t kRows = 6;
        for (std::size_t i = 0; i < before.size(); ++i) {
            if (before[i] != after[i]) changed.at((i / kRows * 5 + 5) / 50) = 'X';
        }
        return changed;
    };
    Show();
    const auto empty = look();
    form_.SetShortcut(2, u"C:\\windows\\explorer.exe");
    const auto well = look();
    ASSERT_TRUE(PumpUntil([&] { return look() != well; })) << "the icon comes a little later";
    const auto filled = look();
    EXPECT_EQ(columns(empty, filled), "-X--");
    form_.SetShortcut(2, u"C:\\");
    ASSERT_TRUE(PumpUntil([&] { return look() != filled && look() != well; })) << "a drive has a picture of its own";
    EXPECT_EQ(columns(filled, look()), "-X--");
    form_.SetShortcut(2, u"C:\\windows\\explorer.exe");
    ASSERT_TRUE(PumpUntil([&] { return look() == filled; }));
    Mouse(WM_MOUSEMOVE, 175, 150);
    EXPECT_NE(Pixel(157, 130), Pixel(107, 130)) << "the tile is lit";
    Mouse(WM_MOUSEMOVE, 100, 20);
    EXPECT_EQ(look(), filled);
}

/// A shell that answers only when told to, like one that waits for a dead network.
class SlowShell {
  public:
    IconLookUp LookUp() {
        return [gate = gate_, asked = asked_](const IconRequest&) {
            ++*asked;
            WaitForSingleObject(gate->Get(), 30'000);
            return ShortcutIcon(u"C:\\windows\\explorer.exe", 32);
        };
    }
    [[nodiscard]] int TimesAsked() const { return *asked_; }
    void Answer() const { SetEvent(gate_->Get()); }

  private:
    std::shared_ptr<KernelHandle> gate_ = std::make_shared<KernelHandle>(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    std::shared_ptr<std::atomic<int>> asked_ = std::make_shared<std::atomic<int>>(0);
};

TEST_F(MainFormWindow, AFileOnADeadNetworkBlocksNeitherTheMenuNorTheEnd) {
    SlowShell shell;
    {
        test_.program.settings.shortcuts[0] = u"\\\\server\\tool.exe";
        MainForm form(MainFormServices{test_.program, test_.registry, test_.shell, test_.locale, dialogs_},
                      ServicesOfMenu(), kTick, shell.LookUp());
        ASSERT_TRUE(form.Load());
        EXPECT_EQ(shell.TimesAsked(), 0) << "the start does not look";
        form.SlideForm(true);
        windows_tests::PaintNow(form.Handle());
        EXPECT_TRUE(form.IsShowing());
        ASSERT_TRUE(PumpUntil([&] { return shell.TimesAsked() == 1; }));
        form.SlideForm(false);
        form.SlideForm(true);
        windows_tests::PaintNow(form.Handle());
        EXPECT_TRUE(form.IsShowing()) << "while the shell still waits";
        EXPECT_EQ(shell.TimesAsked(), 1);
    }  // the program ends without waiting
    shell.Answer();
}

TEST_F(MainFormWindow, ThePictureIsDrawnAgainWithoutLeakingHandles) {
    Show();
    (void)Pixel(0, 0);
    const DWORD before = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    for (int i = 0; i < 20; ++i) {
        form_.SetShortcut(1 + i % 4, u"C:\\windows\\explorer.exe");
        form_.RedrawResources();
        (void)Pixel(0, 0);
    }
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), before + 8);
}

}  // namespace
}  // namespace quillo::windows_tests

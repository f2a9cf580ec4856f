#include <algorithm>
#include <functional>

#include "harness/drag_source.h"
#include "harness/e2e_test.h"
#include "harness/main_menu.h"
#include "harness/screen.h"
#include "harness/tray.h"

// After windows.h.
#include <shellapi.h>

namespace quillo::e2e {
namespace {

constexpr UINT kLeftUp = 514;

/// The icon beside the clock and its menu. Effects of the forms behind "options" and "about" are tested with them; the
/// backup timer's five minutes are not tested here.
class MainMenuTest : public OrdinaryTest {
  protected:
    [[nodiscard]] MainMenu Menu() { return MainMenu(Quillo().Pid()); }
    /// The area of the menu with the icon of slot 1 to 4.
    [[nodiscard]] std::vector<COLORREF> IconOf(int slot) { return Menu().Look(Rect{59 + 50 * slot, 132, 32, 32}); }
    [[nodiscard]] static bool IsEmpty(const std::vector<COLORREF>& pixels) {
        return std::adjacent_find(pixels.begin(), pixels.end(), std::not_equal_to<>()) == pixels.end();
    }
    [[nodiscard]] bool NotesBecome(std::size_t count) {
        return Eventually([&] { return VisibleNotes(Quillo()) == count; });
    }
};

TEST_F(MainMenuTest, TheFirstClickOnTheIconOpensIt) {
    Start();
    const std::optional<POINT> icon = FindTrayIcon(Quillo().Pid(), L"Quillo");
    ASSERT_TRUE(icon);
    ClickMouse(*icon);
    EXPECT_TRUE(Eventually([&] { return Menu().IsShowing(); }));
}

TEST_F(MainMenuTest, TheFirstClickOnAnItemCounts) {
    Start();
    Menu().SendToIcon(kLeftUp);
    ASSERT_TRUE(Eventually([&] { return Menu().IsShowing() && Menu().HasKeyboard(); }));
    ClickMouse(Menu().MiddleOf(MenuItem::NewNote));
    EXPECT_TRUE(NotesBecome(1));
    EXPECT_TRUE(Menu().WaitUntilGone());
}

TEST_F(MainMenuTest, AClickOnTheIconOpensItInTheCornerHoveringHighlightsAndEscClosesIt) {
    Profile().AddNote(L"note.qln", NoteFile{"Milk"}.Bytes());
    Start();
    EXPECT_FALSE(Menu().IsShowing());
    ASSERT_TRUE(Menu().Open());
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    const POINT corner = Menu().OnScreen(300, 180);
    EXPECT_EQ(corner.x, area.right);
    EXPECT_EQ(corner.y, area.bottom);

    for (const MenuItem item : {MenuItem::NewNote, MenuItem::ShowAllNotes, MenuItem::Options, MenuItem::About,
                                MenuItem::Close, MenuItem::Shortcut1}) {
        MoveMouse(Menu().MiddleOf(MenuItem::None));
        const auto itemAtRest = Menu().Look(item);
        EXPECT_TRUE(Until([&] { return Menu().Marked() == item && Menu().Look(item) != itemAtRest; },
                          [&] { MoveMouse(Menu().MiddleOf(item)); }))
            << static_cast<int>(item) << ": " << Menu().State();
        EXPECT_TRUE(Until([&] { return Menu().Marked() == MenuItem::None && Menu().Look(item) == itemAtRest; },
                          [&] { MoveMouse(Menu().MiddleOf(MenuItem::None)); }))
            << static_cast<int>(item) << ": " << Menu().State();
    }
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(Menu().WaitUntilGone());
}

TEST_F(MainMenuTest, NewNoteAndShowAllNotesActAndTheCrossOnlyCloses) {
    NoteFile hidden{"Hidden"};
    hidden.appearance = "False,False,14155262,3723262,0,1";
    Profile().AddNote(L"hidden.qln", hidden.Bytes());
    Start();
    EXPECT_EQ(VisibleNotes(Quillo()), 0U);
    ASSERT_TRUE(Menu().Open());
    EXPECT_TRUE(Menu().Choose(MenuItem::Close));
    EXPECT_EQ(VisibleNotes(Quillo()), 0U);

    ASSERT_TRUE(Menu().Open());
    EXPECT_TRUE(Menu().Choose(MenuItem::ShowAllNotes));
    EXPECT_TRUE(NotesBecome(1));
    EXPECT_TRUE(FindNote(Quillo(), L"Hidden").IsVisible());

    ASSERT_TRUE(Menu().Open());
    EXPECT_TRUE(Menu().Choose(MenuItem::NewNote));
    EXPECT_TRUE(NotesBecome(2));
    const NoteWindow fresh = FindNote(Quillo(), L"");
    EXPECT_TRUE(Eventually([&] { return fresh.HasKeyboard(); }));
    TypeText(L"Bread");
    EXPECT_TRUE(Eventually([&] { return fresh.Text() == L"Bread"; }));
}

TEST_F(MainMenuTest, WithoutNotesShowAllNotesLooksDisabledAndOnlyCloses) {
    Start();
    ASSERT_TRUE(Menu().Open());
    const auto disabled = Menu().Look(MenuItem::ShowAllNotes);
    const auto movingTo = [&](MenuItem item) { return [this, item] { MoveMouse(Menu().MiddleOf(item)); }; };
    EXPECT_TRUE(Until([&] { return Menu().Marked() == MenuItem::Options; }, movingTo(MenuItem::Options)));
    EXPECT_TRUE(Until([&] { return Menu().Marked() == MenuItem::None; }, movingTo(MenuItem::ShowAllNotes)));
    EXPECT_EQ(Menu().Look(MenuItem::ShowAllNotes), disabled);
    EXPECT_TRUE(Menu().Choose(MenuItem::ShowAllNotes));
    EXPECT_EQ(RunToEnd(L"/new"), 0U);
    ASSERT_TRUE(NotesBecome(1));
    ASSERT_TRUE(Menu().Open());
    EXPECT_TRUE(Eventually([&] { return Menu().Look(MenuItem::ShowAllNotes) != disabled; }));
}

TEST_F(MainMenuTest, ASecondClickOnTheIconMakesANoteAndTheMenuWorksWithTheKeyboard) {
    Start();
    ASSERT_TRUE(Menu().Open());
    Menu().SendToIcon(kLeftUp);  // the menu may cover the icon
    EXPECT_TRUE(NotesBecome(1));
    EXPECT_TRUE(Menu().WaitUntilGone());

    ASSERT_TRUE(Menu().Open());
    const auto atRest = Menu().Look(MenuItem::NewNote);
    PressKey(VK_DOWN);
    EXPECT_TRUE(Eventually([&] { return Menu().Marked() == MenuItem::NewNote; })) << Menu().State();
    EXPECT_TRUE(Eventually([&] { return Menu().Look(MenuItem::NewNote) != atRest; })) << "the mark is visible";
    PressKey(VK_RETURN);
    EXPECT_TRUE(NotesBecome(2));
    EXPECT_TRUE(Menu().WaitUntilGone());
}

TEST_F(MainMenuTest, ARightClickOnTheIconSurfacesTheNotes) {
    NoteFile hidden{"Hidden"};
    hidden.appearance = "False,False,14155262,3723262,0,1";
    Profile().AddNote(L"hidden.qln", hidden.Bytes());
    Start();
    const auto icon = FindTrayIcon(Quillo().Pid(), L"Quillo");
    ASSERT_TRUE(icon);
    EXPECT_TRUE(Until([&] { return VisibleNotes(Quillo()) == 1; }, [&] { RightClickMouse(*icon); }));
    EXPECT_FALSE(Menu().IsShowing());
}

TEST_F(MainMenuTest, TheRightButtonOnTheCrossSavesEverythingAndEndsTheProgram) {
    Profile().SetNumber(L"Startup mode", 1);
    const std::wstring path = Profile().AddNote(L"note.qln", NoteFile{"Milk"}.Bytes());
    Start();
    const NoteWindow note = FindNote(Quillo(), L"Milk");
    ASSERT_TRUE(note.TakeKeyboard());
    TypeText(L"!");
    ASSERT_TRUE(Eventually([&] { return note.Text() == L"Milk!"; }));
    ASSERT_TRUE(Menu().Open());
    EXPECT_TRUE(
        Until([&] { return !Quillo().IsRunning(); }, [&] { RightClickMouse(Menu().MiddleOf(MenuItem::Close)); }));
    EXPECT_EQ(Quillo().WaitForExit(), 0U);
    EXPECT_EQ(ReadBytes(path), NoteFile{"Milk!"}.Bytes());
    EXPECT_TRUE(Profile().RunValue()) << "a note is open: it comes back with the session";
}

TEST_F(MainMenuTest, AltAndF4InTheMenuEndTheProgram) {
    Start();
    ASSERT_TRUE(Menu().Open());
    ASSERT_TRUE(Menu().HasKeyboard());
    PressKey(VK_F4, {VK_MENU});
    EXPECT_EQ(Quillo().WaitForExit(), 0U);
}

TEST_F(MainMenuTest, AFileDroppedOnEachSlotIsStoredAndItsIconAppearsInThatColumn) {
    for (const wchar_t* name : {L"Shortcut 1", L"Shortcut 2", L"Shortcut 3", L"Shortcut 4"}) {
        // A drive's icon first: a text's differs from it on every system.
        Profile().SetText(name, L"C:\\");
    }
    const std::wstring path = Outside() / L"some text.txt";
    WriteBytes(path, "");
    Start();
    ASSERT_TRUE(Menu().Open());
    ASSERT_TRUE(Eventually([&] { return IconOf(2) == IconOf(3) && !IsEmpty(IconOf(2)); })) << "drives";
    const auto drive = IconOf(2);
    for (int slot = 1; slot <= 4; ++slot) {
        const std::wstring value = L"Shortcut " + std::to_wstring(slot);
        bool copied = false;
        const auto drag = [&] {
            if (Menu().IsShowing() || Menu().Open()) {
                copied = DragTo({{CF_HDROP, FileListBytes({path})}}, Menu().MiddleOf(ShortcutItem(slot)));
            }
        };
        // Repeated: the press that begins a drag can get lost.
        ASSERT_TRUE(Until([&] { return Profile().Text(value.c_str()) == path; }, drag)) << slot;
        EXPECT_TRUE(copied) << "nothing is moved, and no link made";
        const auto standsWhereDropped = [&] {
            for (int any = 1; any <= 4; ++any) {
                if ((IconOf(any) == drive) == (any <= slot) || (any <= slot && IconOf(any) != IconOf(1))) return false;
            }
            return true;
        };
        EXPECT_TRUE(Until(standsWhereDropped, [&] {
            MoveMouse(Menu().MiddleOf(MenuItem::About));  // which lights no slot
            MoveMouse(Menu().MiddleOf(MenuItem::None));
        })) << slot;
    }
}

TEST_F(MainMenuTest, ADropElsewhereOrOfSeveralFilesIsRefused) {
    const std::wstring one = Outside() / L"one.exe";
    const std::wstring two = Outside() / L"two.exe";
    Start();
    ASSERT_TRUE(Menu().Open());
    const auto before = Profile().Text(L"Shortcut 2");
    // Wine also sends the release that ends a drag to the window below, where it can choose an item and close the menu.
    const auto drag = [&](const DragData& data, POINT to) {
        EXPECT_TRUE(Menu().IsShowing() || Menu().Open()) << Menu().State();
        return DragTo(data, to);
    };
    EXPECT_FALSE(drag({{CF_HDROP, FileListBytes({one, two})}}, Menu().MiddleOf(MenuItem::Shortcut2)));
    EXPECT_FALSE(drag({{CF_HDROP, FileListBytes({one})}}, Menu().OnScreen(175, 80)));
    EXPECT_FALSE(drag({{CF_UNICODETEXT, WideTextBytes(one)}}, Menu().MiddleOf(MenuItem::Shortcut2)));
    EXPECT_EQ(Profile().Text(L"Shortcut 2"), before);
    EXPECT_FALSE(Profile().Text(L"Shortcut 1"));
    EXPECT_FALSE(Profile().Text(L"Shortcut 0"));
}

TEST_F(MainMenuTest, ASlotStartsItsProgramWithItsArguments) {
    // The program that confirms it is this one: started again, it asks the first instance for a note.
    Profile().SetText(L"Shortcut 4", L"\"" + QuilloExe() + L"\" /new");
    Start();
    ASSERT_TRUE(Menu().Open());
    EXPECT_TRUE(Menu().Choose(MenuItem::Shortcut4));
    EXPECT_TRUE(NotesBecome(1));
}

TEST_F(MainMenuTest, ANewTaskBarGetsTheIcons) {
    NoteFile small{"Small"};
    small.appearance = "False,False,14155262,3723262,0,2";
    Profile().AddNote(L"small.qln", small.Bytes());
    Start();
    const auto icons = [this] { return TrayIconWindows(Quillo().Pid()); };
    const auto showing = [&] {
        const auto all = icons();
        return std::count_if(all.begin(), all.end(), &IsTrayIconShowing);
    };
    ASSERT_TRUE(Eventually([&] { return showing() == 2; }));
    for (HWND window : icons()) {
        NOTIFYICONDATAW icon{};
        icon.cbSize = sizeof icon;
        icon.hWnd = window;
        icon.uID = 1;
        Shell_NotifyIconW(NIM_DELETE, &icon);
    }
    ASSERT_EQ(showing(), 0);
    PostMessageW(Menu().Handle(), RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
    EXPECT_TRUE(Eventually([&] { return showing() == 2; }));
    EXPECT_TRUE(FindTrayIcon(Quillo().Pid(), L"Quillo"));
}

}  // namespace
}  // namespace quillo::e2e

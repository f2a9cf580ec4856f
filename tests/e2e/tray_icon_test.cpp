#include "harness/e2e_test.h"
#include "harness/tray.h"

namespace quillo::e2e {
namespace {

/// A note minimized to an icon of its own beside the clock, and restored.
class TrayIcon : public OrdinaryTest {
  protected:
    NoteWindow Open(const NoteFile& file) {
        path_ = Profile().AddNote(L"note.qln", file.Bytes());
        Start();
        return FindNote(Quillo(), Widen(file.text));
    }
    static bool MinimizeByKeys(const NoteWindow& note) {
        if (!note.TakeKeyboard()) return false;
        PressKey('M', {VK_CONTROL});
        return Eventually([&] { return !note.IsVisible(); });
    }
    bool ComesBackByAClick(const NoteWindow& note, const std::wstring& toolTip) {
        const std::optional<POINT> icon = FindTrayIcon(Quillo().Pid(), toolTip);
        EXPECT_TRUE(icon) << "no icon has that tool tip";
        return icon && Until([&] { return note.IsVisible(); }, [&] { ClickMouse(*icon); });
    }
    std::size_t IconsShowing() {
        std::size_t count = 0;
        for (HWND window : TrayIconWindows(Quillo().Pid())) count += IsTrayIconShowing(window) ? 1U : 0U;
        return count;
    }

    std::wstring path_;
};

TEST_F(TrayIcon, AClickOnItsIconShowsAMinimizedNote) {
    const NoteFile file{"  Milk and\r\nbread "};
    const NoteWindow note = Open(file);
    const RECT before = note.Rectangle();
    constexpr std::size_t others = 1;  // the program's own icon, which it adds after the note has painted
    ASSERT_TRUE(Eventually([&] { return IconsShowing() == others; }));
    ASSERT_TRUE(MinimizeByKeys(note));
    EXPECT_TRUE(note.Exists());
    EXPECT_EQ(IconsShowing(), others + 1);

    ASSERT_TRUE(ComesBackByAClick(note, L"Milk and bread"));
    EXPECT_TRUE(Eventually([&] { return IconsShowing() == others; })) << "its icon disappears";
    const RECT after = note.Rectangle();
    EXPECT_TRUE(EqualRect(&before, &after));
    ASSERT_TRUE(note.TakeKeyboard());
    TypeText(L"!");
    EXPECT_TRUE(Eventually([&] { return note.Text() == L"  Milk and\r\nbread !"; })) << "no letter of the keys came in";
    Quit();
    EXPECT_EQ(ReadBytes(path_), NoteFile{"  Milk and\r\nbread !"}.Bytes()) << "shown again";
}

TEST_F(TrayIcon, TheFirstClickOnItCounts) {
    const NoteWindow note = Open(NoteFile{"Milk"});
    ASSERT_TRUE(MinimizeByKeys(note));
    const std::optional<POINT> icon = FindTrayIcon(Quillo().Pid(), L"Milk");
    ASSERT_TRUE(icon);
    ClickMouse(*icon);
    EXPECT_TRUE(Eventually([&] { return note.IsVisible(); }));
}

TEST_F(TrayIcon, ALongTextIsCutAtSixtyCharacters) {
    const std::string sixty = "Sixty characters, every one of them counted, and not more---";
    ASSERT_EQ(sixty.size(), 60U);
    NoteFile longer{sixty + "X"};
    longer.position = "9000,3000,3000,2400";  // beside it
    Profile().AddNote(L"longer.qln", longer.Bytes());
    const NoteWindow fits = Open(NoteFile{sixty});
    const NoteWindow cut = FindNote(Quillo(), Widen(longer.text));
    ASSERT_TRUE(MinimizeByKeys(fits));
    EXPECT_TRUE(ComesBackByAClick(fits, Widen(sixty)));
    ASSERT_TRUE(MinimizeByKeys(cut));
    EXPECT_TRUE(ComesBackByAClick(cut, Widen(sixty) + L"..."));
}

TEST_F(TrayIcon, WithMinimizeToTrayEvenANoteWithAReminderIsMinimized) {
    Profile().SetNumber(L"Minimize to tray", 1);
    NoteFile file{"Later"};
    file.reminder = "#402133.25";
    const NoteWindow note = Open(file);
    EXPECT_TRUE(Until([&] { return !note.IsVisible(); }, [&] { note.ClickButton(NoteButtonId::Close); }));
    EXPECT_TRUE(note.Exists());
    EXPECT_FALSE(Quillo().HasShownBalloon());
    EXPECT_TRUE(ComesBackByAClick(note, L"Later"));
}

TEST_F(TrayIcon, AMinimizedNoteIsStillMinimizedAfterARestart) {
    NoteFile file{"Small"};
    const NoteWindow note = Open(file);
    ASSERT_TRUE(MinimizeByKeys(note));
    Quit();
    file.appearance = "False,False,14155262,3723262,0,2";
    EXPECT_EQ(ReadBytes(path_), file.Bytes());
    Start();
    const NoteWindow again = FindNote(Quillo(), L"Small");
    EXPECT_FALSE(again.IsVisible());
    EXPECT_TRUE(ComesBackByAClick(again, L"Small"));
}

TEST_F(TrayIcon, AKilledProgramHasKeptThePlacesOfItsNotes) {
    NoteFile file{"Small"};
    const NoteWindow note = Open(file);
    const std::uint64_t before = WriteTimeOf(path_);
    ASSERT_TRUE(MinimizeByKeys(note));
    EXPECT_TRUE(Eventually([&] { return WriteTimeOf(path_) != before; }));
    Quillo().Kill();
    file.appearance = "False,False,14155262,3723262,0,2";
    EXPECT_EQ(ReadBytes(path_), file.Bytes());
}

}  // namespace
}  // namespace quillo::e2e

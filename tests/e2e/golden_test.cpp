#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <utility>

#include "harness/desktop_facts.h"
#include "harness/e2e_test.h"
#include "harness/main_menu.h"
#include "harness/options_window.h"
#include "harness/picture.h"
#include "harness/reminder_windows.h"
#include "util/day_serial.h"

namespace quillo::e2e {
namespace {

// The comparison itself must be able to find differences.

constexpr COLORREF kPaper = RGB(0xFF, 0xFD, 0xD0);
constexpr COLORREF kInk = RGB(0x2B, 0x2A, 0x27);

Picture Sheet() {
    Picture sheet{120, 90, std::vector<COLORREF>(120 * 90, kPaper)};
    sheet.Fill(RECT{10, 10, 110, 11}, RGB(0xE4, 0xDF, 0xC8));                            // a pale line
    for (const int left : {30, 36, 42}) sheet.Fill(RECT{left, 30, left + 3, 42}, kInk);  // a glyph
    return sheet;
}

TEST(PictureComparison, EqualPicturesDoNotDiffer) {
    EXPECT_EQ(DifferenceOf(Sheet(), Sheet()), "");
}

TEST(PictureComparison, ANotableColorIsFound) {
    Picture shown = Sheet();
    shown.Fill(RECT{60, 50, 100, 80}, RGB(0xFF, 0xFD, 0xD6));
    EXPECT_THAT(DifferenceOf(shown, Sheet()), ::testing::StartsWith("another color"));
}

TEST(PictureComparison, AGlyphThatMovedByOnePixelIsFound) {
    Picture shown = Sheet();
    shown.Fill(RECT{30, 30, 45, 42}, kPaper);
    for (const int left : {31, 37, 43}) shown.Fill(RECT{left, 30, left + 3, 42}, kInk);
    EXPECT_NE(DifferenceOf(shown, Sheet()), "");
}

TEST(PictureComparison, APaleFrameThatMovedByOnePixelIsFound) {
    Picture shown = Sheet();
    shown.Fill(RECT{10, 10, 110, 11}, kPaper);
    shown.Fill(RECT{10, 11, 110, 12}, RGB(0xE4, 0xDF, 0xC8));
    EXPECT_THAT(DifferenceOf(shown, Sheet()), ::testing::StartsWith("another line"));
}

TEST(PictureComparison, AnotherSizeIsFound) {
    const Picture narrow{10, 10, std::vector<COLORREF>(100, kPaper)};
    EXPECT_THAT(DifferenceOf(narrow, Sheet()), ::testing::StartsWith("another size"));
}

TEST(PictureComparison, OtherGraysAlongTheEdgesOfLettersAreNoDifference) {
    Picture shown = Sheet();
    for (const int left : {30, 36, 42}) {
        shown.Fill(RECT{left - 1, 31, left, 41}, RGB(0xD6, 0xD4, 0xB0));
        shown.Fill(RECT{left + 2, 31, left + 3, 41}, RGB(0x56, 0x55, 0x49));
    }
    EXPECT_EQ(DifferenceOf(shown, Sheet()), "");
}

/// Compares the windows of the program with pictures of them, to detect accidental changes of drawing. The pictures
/// match only the desktop on which they were recorded: with other fonts or another theme the tests are skipped, unless
/// QUILLO_GOLDEN_REQUIRED is set, as on the desktop of the test scripts. If QUILLO_GOLDEN_OUT names a folder, the
/// pictures and the facts about the desktop are written there instead (scripts/golden_pictures.sh).
class GoldenPictures : public OrdinaryTest {
  protected:
    void SetUp() override {
        OrdinaryTest::SetUp();
        const std::string facts = DesktopFacts();
        if (!OutFolder().empty()) return WriteBytes(OutFolder() + L"\\desktop.txt", facts);
        const std::string other = FirstOtherFact(facts, ReadBytes(GoldenFolder() + L"\\desktop.txt"));
        if (other.empty()) return;
        ASSERT_EQ(Environment(L"QUILLO_GOLDEN_REQUIRED"), L"") << "another desktop than the recorded one: " << other;
        GTEST_SKIP() << "the pictures were recorded on another desktop: " << other;
    }

    /// Compares a part of the screen, once it no longer changes, with the picture of that name. `blank` are areas that
    /// no picture can contain. `point` moves the pointer to its place; it is called repeatedly, because moves can get
    /// lost.
    void Expect(const std::wstring& name, const RECT& area, const std::vector<RECT>& blank = {},
                const std::function<void()>& point = RestMouse) {
        EXPECT_TRUE(Quillo().WaitUntilReady());
        const auto look = [&] {
            point();
            Picture picture = PictureOfScreen(area);
            for (const RECT& part : blank) picture.Fill(part, RGB(0x80, 0x80, 0x80));
            return picture;
        };
        Picture shown;
        EXPECT_TRUE(Eventually([&] {
            const Picture before = std::exchange(shown, look());
            const auto isOther = [&](COLORREF pixel) { return pixel != shown.pixels.front(); };
            return before == shown && std::any_of(shown.pixels.begin(), shown.pixels.end(), isOther);
        })) << "never painted or never at rest";
        if (!OutFolder().empty()) {
            EXPECT_TRUE(WritePicture(OutFolder() + L"\\" + name + L".png", shown)) << Narrow(name);
            return;
        }
        const auto golden = ReadPicture(GoldenFolder() + L"\\" + name + L".png");
        ASSERT_TRUE(golden) << Narrow(name) << " is missing; run scripts/golden_pictures.sh --renew";
        std::string difference;
        constexpr std::chrono::seconds kUntilItIsDrawn{5};
        EXPECT_TRUE(Eventually(
            [&] {
                difference = DifferenceOf(look(), *golden);
                return difference.empty();
            },
            kUntilItIsDrawn))
            << Narrow(name) << ": " << difference << "\nscripts/golden_pictures.sh shows it.";
    }
    static RECT WindowArea(HWND window) {
        RECT area{};
        GetWindowRect(window, &area);
        return area;
    }
    /// The area without the system's frame.
    static RECT ClientArea(HWND window) {
        RECT area{};
        GetClientRect(window, &area);
        MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
        return area;
    }
    static RECT Within(const RECT& area, const RECT& part) {
        return RECT{part.left - area.left, part.top - area.top, part.right - area.left, part.bottom - area.top};
    }
    static void PointAt(const MainMenu& menu, MenuItem item) {
        POINT at = menu.MiddleOf(item);
        MoveMouse(at);
        // If the pointer is already there, the system reports no move.
        ScreenToClient(menu.Handle(), &at);
        SendMessageW(menu.Handle(), WM_MOUSEMOVE, 0, MAKELPARAM(at.x, at.y));
    }
    /// A reminder in the distant future on today's day of the month: its label is only the time, on every day.
    static std::string HalfPastOne() {
        SYSTEMTIME now{};
        GetLocalTime(&now);
        return "#" + std::to_string(ToDaySerial(CivilTime{2100, 1, now.wDay, 13, 30, 0}).days);
    }
    /// A place outside the program's windows.
    static void RestMouse() { MoveMouse(POINT{Px(20), Px(760)}); }

  private:
    static std::wstring GoldenFolder() {
        std::array<wchar_t, 1024> file{};
        GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size()));
        const std::filesystem::path tests = std::filesystem::path(file.data()).parent_path();
        return (tests / QUILLO_RELATIVE_GOLDEN).lexically_normal().make_preferred().wstring();
    }
    static std::wstring OutFolder() { return Environment(L"QUILLO_GOLDEN_OUT"); }
    static std::wstring Environment(const wchar_t* name) {
        std::array<wchar_t, 1024> value{};
        const DWORD length = GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
        return length < value.size() ? std::wstring(value.data(), length) : L"";
    }
};

TEST_F(GoldenPictures, NotesInThreeSchemes) {
    NoteFile lemon{"Groceries\r\n\r\n- oat milk\r\n- lemons (4)\r\n- basil, flat parsley"};
    lemon.position = PositionOfPixels(100, 100, 188, 163);
    lemon.appearance = "False,True,13696511,3723262,0,0";
    lemon.reminder = HalfPastOne();
    Profile().AddNote(L"lemon.qln", lemon.Bytes());
    NoteFile wine{"Rent is due on Friday"};
    wine.position = PositionOfPixels(400, 100, 212, 140);
    wine.appearance = "True,True,2301351,16777215,16777215,0";
    Profile().AddNote(L"wine.qln", wine.Bytes());
    NoteFile night{"Before the release\r\n\r\n[x] changelog\r\n[ ] tag it"};
    night.position = PositionOfPixels(700, 100, 240, 150);
    night.appearance = "False,True,0,2948788,2948788,0";
    Profile().AddNote(L"night.qln", night.Bytes());
    Start();
    ASSERT_TRUE(Eventually([&] { return VisibleNotes(Quillo()) == 3; }));
    for (const NoteWindow& note : NotesOf(Quillo())) {
        const std::wstring text = note.Text();
        const std::wstring name = text.starts_with(L"Groceries") ? L"note-lemon"
                                  : text.starts_with(L"Rent")    ? L"note-wine-large"
                                                                 : L"note-night";
        Expect(name, WindowArea(note.Handle()));
    }
}

TEST_F(GoldenPictures, TheMenuAtRestAndUnderThePointer) {
    Profile().AddNote(L"note.qln", NoteFile{"Call Bob"}.Bytes());
    Start();
    const MainMenu menu(Quillo().Pid());
    ASSERT_TRUE(menu.Open());
    const RECT area = WindowArea(menu.Handle());
    Expect(L"menu", area, {}, [&] { PointAt(menu, MenuItem::None); });
    Expect(L"menu-new-note", area, {}, [&] { PointAt(menu, MenuItem::NewNote); });
}

TEST_F(GoldenPictures, TheAlert) {
    NoteFile file{"Call Ann about the boat, and bring the key back to the harbor master before noon."};
    file.reminder = "#40000.5";
    Profile().AddNote(L"note.qln", file.Bytes());
    Profile().SetText(L"Reminder", L"");
    Start();
    ASSERT_TRUE(WaitForAlerts(Quillo().Pid(), 1));
    Expect(L"alert", WindowArea(Alerts(Quillo().Pid()).front()));
}

TEST_F(GoldenPictures, ThePagesOfTheOptions) {
    Profile().SetText(L"Reminder", L"C:\\Sounds\\bell.wav");
    Profile().SetText(L"Note folder", L"C:\\Notes");
    for (const wchar_t* slot : {L"Shortcut 1", L"Shortcut 2", L"Shortcut 3", L"Shortcut 4"}) {
        Profile().SetText(slot, L"C:\\Programs\\tool.exe");
    }
    Start();
    const MainMenu menu(Quillo().Pid());
    ASSERT_TRUE(menu.Open() && menu.Choose(MenuItem::Options));
    const auto options = OptionsWindow::WaitFor(Quillo().Pid());
    ASSERT_TRUE(options);
    const RECT area = ClientArea(options->Handle());
    for (const auto& [page, name] : {std::pair{OptionsPage::Appearance, L"options-appearance"},
                                     {OptionsPage::Shortcuts, L"options-shortcuts"},
                                     {OptionsPage::Behavior, L"options-behavior"},
                                     {OptionsPage::Help, L"options-help"}}) {
        ASSERT_TRUE(options->ClickTab(page));
        std::vector<RECT> blank;
        // The path of the notes folder contains the user's name.
        if (page == OptionsPage::Help) blank.push_back(Within(area, options->AreaOf(OptionControl::NotesFolderPath)));
        Expect(name, area, blank);
    }
}

}  // namespace
}  // namespace quillo::e2e

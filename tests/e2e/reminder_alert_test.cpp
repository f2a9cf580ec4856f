#include "harness/e2e_test.h"
#include "harness/reminder_windows.h"
#include "harness/screen.h"
#include "harness/tray.h"
#include "harness/window_text.h"

namespace quillo::e2e {
namespace {

constexpr char kLongAgo[] = "#40000.5";
constexpr char kShown[] = "False,False,14155262,3723262,0,0";
constexpr char kHidden[] = "False,False,14155262,3723262,0,1";
constexpr char kMinimized[] = "False,False,14155262,3723262,0,2";

/// A reminder that is due, and the user's reactions to its alert.
class ReminderAlert : public OrdinaryTest {
  protected:
    void SetUp() override {
        OrdinaryTest::SetUp();
        if (Profile().IsReady()) Profile().SetText(L"Note folder", Outside().Path());
    }
    std::wstring AddDue(const std::string& text, const char* appearance = kShown, const char* position = nullptr) {
        NoteFile file{text};
        file.reminder = kLongAgo;
        file.appearance = appearance;
        if (position != nullptr) file.position = position;
        return Profile().AddNote(Widen(text) + L".qln", file.Bytes());
    }
    /// Starts the program with one note that is due, and returns its alert; null if none appears.
    HWND StartDue(const char* appearance = kShown) {
        AddDue("Call Bob", appearance);
        Start();
        return WaitForAlerts(Quillo().Pid(), 1) ? Alerts(Quillo().Pid()).front() : nullptr;
    }
    static bool HasKeyboard(HWND alert) {
        return Eventually([alert] { return KeyboardWindow() == alert; });
    }
    static bool Goes(HWND alert) {
        return Eventually([alert] { return IsWindow(alert) == 0; });
    }
    static RECT PlaceOf(HWND window) {
        RECT place{};
        GetWindowRect(window, &place);
        return place;
    }
    static bool ClickAway(HWND alert, POINT inside) {
        const RECT place = PlaceOf(alert);
        return Until([alert] { return IsWindow(alert) == 0; },
                     [&] {
                         ClickMouse(POINT{place.left + inside.x, place.top + inside.y});
                     });
    }
};

TEST_F(ReminderAlert, AReminderInThePastShowsItsAlertAndEscShowsTheNote) {
    const std::wstring path = AddDue("Call Bob");
    const FileMark before = MarkOf(path);
    Start();
    const NoteWindow note = FindNote(Quillo(), L"Call Bob");
    ASSERT_TRUE(WaitForAlerts(Quillo().Pid(), 1));
    HWND alert = Alerts(Quillo().Pid()).front();
    EXPECT_EQ(WindowText(alert), L"Call Bob");
    EXPECT_NE(GetWindowLongPtrW(alert, GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    EXPECT_EQ(GetWindow(alert, GW_OWNER), nullptr);
    EXPECT_TRUE(Eventually([&] { return !note.IsVisible(); })) << "the note is hidden while its alert is open";
    ASSERT_TRUE(HasKeyboard(alert));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(Goes(alert));
    EXPECT_TRUE(Eventually([&] { return note.IsVisible(); }));
    EXPECT_TRUE(Eventually([&] { return note.HasKeyboard(); }));
    Quit();
    EXPECT_TRUE(MarkOf(path) == before) << "a reminder that has come is no change of the note: " << ReadBytes(path);
}

TEST_F(ReminderAlert, AppearsAlsoWhileStartUpWaitsForAnAnswer) {
    AddDue("Call Bob");
    Start(L"/unheard");
    const auto box = MessageBoxWindow::WaitFor(Quillo().Pid());
    ASSERT_TRUE(box);
    EXPECT_TRUE(WaitForAlerts(Quillo().Pid(), 1)) << "the main timer runs from the start on";
    ASSERT_TRUE(box->Answer(IDOK));
}

TEST_F(ReminderAlert, AnAlertUnansweredAtACrashAppearsAgain) {
    ASSERT_NE(StartDue(), nullptr);
    Quillo().Kill();
    Start();
    EXPECT_TRUE(WaitForAlerts(Quillo().Pid(), 1));
}

TEST_F(ReminderAlert, CtrlWDismissesAndPlainWDoesNot) {
    HWND alert = StartDue(kHidden);
    ASSERT_NE(alert, nullptr);
    const NoteWindow note = FindNote(Quillo(), L"Call Bob");
    ASSERT_TRUE(HasKeyboard(alert));
    PressKey('W');
    PressKey(VK_RETURN);
    PressKey(VK_SPACE);
    PressKey('W', {VK_LCONTROL, VK_RMENU});
    EXPECT_TRUE(Quillo().WaitUntilReady());
    EXPECT_TRUE(IsWindow(alert));
    EXPECT_FALSE(note.IsVisible());
    PressKey('W', {VK_CONTROL});
    EXPECT_TRUE(Goes(alert));
    EXPECT_TRUE(Eventually([&] { return note.IsVisible(); })) << "also a note that was hidden";
    EXPECT_TRUE(Quillo().WaitUntilReady());
    EXPECT_TRUE(note.Exists()) << "the key does not go on to the note";
    EXPECT_EQ(note.Text(), L"Call Bob");
}

TEST_F(ReminderAlert, AMinimizedNoteIsShownWithoutItsIcon) {
    AddDue("Call Bob", kMinimized);
    Start();
    const NoteWindow note = FindNote(Quillo(), L"Call Bob");
    const std::vector<HWND> icons = TrayIconWindows(Quillo().Pid());
    ASSERT_FALSE(icons.empty());
    EXPECT_TRUE(IsTrayIconShowing(icons.front()));
    ASSERT_TRUE(WaitForAlerts(Quillo().Pid(), 1));
    EXPECT_TRUE(ClickAway(Alerts(Quillo().Pid()).front(), POINT{Px(100), Px(100)}));
    EXPECT_TRUE(Eventually([&] { return note.IsVisible(); }));
    EXPECT_FALSE(IsTrayIconShowing(icons.front()));
}

TEST_F(ReminderAlert, TwoNotesDueInTheSameTickHaveTwoAlerts) {
    AddDue("Call Ann");
    AddDue("Call Bob", kShown, "9000,3000,3000,2400");
    Profile().AddNote(L"other.qln", NoteFile{"not due"}.Bytes());
    Start();
    ASSERT_TRUE(WaitForAlerts(Quillo().Pid(), 2));
    const std::vector<HWND> alerts = Alerts(Quillo().Pid());
    const RECT lower = PlaceOf(alerts[1]);
    const RECT upper = PlaceOf(alerts[0]);
    EXPECT_GT(upper.top, lower.top) << "the strip of the one beneath is in sight";
    EXPECT_GT(upper.left, lower.left);
    EXPECT_THAT((std::vector<std::wstring>{WindowText(alerts[0]), WindowText(alerts[1])}),
                ::testing::UnorderedElementsAre(L"Call Ann", L"Call Bob"));
    EXPECT_TRUE(Eventually([&] { return VisibleNotes(Quillo()) == 1; }));

    const std::wstring first = WindowText(alerts[0]);
    ASSERT_TRUE(HasKeyboard(alerts[0])) << "the last one has the keyboard";
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(Goes(alerts[0]));
    EXPECT_TRUE(Eventually([&] { return FindNote(Quillo(), first).IsVisible(); }));
    EXPECT_EQ(VisibleNotes(Quillo()), 2U) << "the other one waits for its own answer";
    EXPECT_TRUE(ClickAway(alerts[1], POINT{Px(5), Px(5) + Px(100)}));
    EXPECT_EQ(VisibleNotes(Quillo()), 3U);
}

TEST_F(ReminderAlert, TheFirstClickOnItCounts) {
    HWND alert = StartDue();
    ASSERT_NE(alert, nullptr);
    const RECT place = PlaceOf(alert);
    ClickMouse(POINT{place.left + Px(20), place.bottom - Px(20)});
    EXPECT_TRUE(Goes(alert));
    EXPECT_TRUE(Eventually([&] { return FindNote(Quillo(), L"Call Bob").IsVisible(); }));
}

TEST_F(ReminderAlert, ItIsDraggedByItsStripAndAClickBesideTheStripDismisses) {
    HWND alert = StartDue();
    ASSERT_NE(alert, nullptr);
    const RECT before = PlaceOf(alert);
    EXPECT_TRUE(Until(
        [&] {
            const RECT now = PlaceOf(alert);
            return now.left != before.left && now.top != before.top;
        },
        [&] {
            const RECT now = PlaceOf(alert);
            const POINT from{now.left + Px(60), now.top + Px(20)};
            DragMouse(from, POINT{from.x - 80, from.y + 50});
        }));
    EXPECT_TRUE(Quillo().WaitUntilReady());
    ASSERT_TRUE(IsWindow(alert)) << "dragging does not dismiss it";
    const RECT after = PlaceOf(alert);
    EXPECT_EQ(after.right - after.left, before.right - before.left);
    EXPECT_TRUE(Eventually([&] { return !FindNote(Quillo(), L"Call Bob").IsVisible(); }));
    EXPECT_TRUE(ClickAway(alert, POINT{after.right - after.left - Px(20), Px(20)})) << "the strip's right end";
    EXPECT_TRUE(Eventually([&] { return FindNote(Quillo(), L"Call Bob").IsVisible(); }));
}

TEST_F(ReminderAlert, APressThatLeavesTheAlertDoesNotDismissIt) {
    HWND alert = StartDue();
    ASSERT_NE(alert, nullptr);
    const RECT place = PlaceOf(alert);
    DragMouse(POINT{place.left + Px(60), place.top + Px(100)}, POINT{place.left - Px(60), place.top + Px(100)});
    EXPECT_TRUE(Quillo().WaitUntilReady());
    EXPECT_TRUE(IsWindow(alert));
    EXPECT_TRUE(ClickAway(alert, POINT{Px(60), Px(100)}));
}

TEST_F(ReminderAlert, ANextReminderShowsAnotherAlert) {
    HWND alert = StartDue();
    ASSERT_NE(alert, nullptr);
    ASSERT_TRUE(HasKeyboard(alert));
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(Goes(alert));
    const NoteWindow note = FindNote(Quillo(), L"Call Bob");
    ASSERT_TRUE(note.TakeKeyboard());
    PressKey('R', {VK_CONTROL});
    const auto dialog = ReminderDialogWindow::WaitFor(Quillo().Pid());
    ASSERT_TRUE(dialog);
    ASSERT_TRUE(dialog->Type(L"in 1 second"));
    PressKey(VK_RETURN);
    ASSERT_TRUE(WaitForAlerts(Quillo().Pid(), 1));
    EXPECT_TRUE(Eventually([&] { return !note.IsVisible(); }));
}

TEST_F(ReminderAlert, WithoutASoundItIsSilentAndStays) {
    for (const std::wstring& sound : {std::wstring(L"C:\\no such folder\\none.mp3"), Outside() / L"none.wav"}) {
        Profile().SetText(L"Reminder", sound);
        HWND alert = StartDue();
        ASSERT_NE(alert, nullptr);
        EXPECT_FALSE(MessageBoxWindow::Find(Quillo().Pid()));
        EXPECT_TRUE(HasKeyboard(alert));
        EXPECT_TRUE(Quillo().Answers());
        Quit();
    }
}

}  // namespace
}  // namespace quillo::e2e

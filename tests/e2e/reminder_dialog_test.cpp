#include <cstdlib>

#include "harness/e2e_test.h"
#include "harness/reminder_windows.h"
#include "harness/tray.h"
#include "harness/window_text.h"

// After windows.h.
#include <oleauto.h>

namespace quillo::e2e {
namespace {

constexpr char kInTheYear3000[] = "#402133.25";
constexpr double kMinute = 1.0 / (24 * 60);

/// Now, in days since 30 December 1899, local time.
double NowSerial() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    double serial = 0;
    SystemTimeToVariantTime(&now, &serial);
    return serial;
}

/// The dialog of a note, driven with the keyboard.
class ReminderDialogTest : public OrdinaryTest {
  protected:
    using Control = ReminderControl;

    NoteWindow Open(const char* reminder = "") {
        NoteFile file{"Call Bob"};
        file.reminder = reminder;
        path_ = Profile().AddNote(L"note.qln", file.Bytes());
        Start();
        return FindNote(Quillo(), L"Call Bob");
    }
    /// Presses Ctrl+R in the note; fails the test if no dialog appears.
    ReminderDialogWindow AskReminder(const NoteWindow& note) {
        EXPECT_TRUE(note.TakeKeyboard());
        PressKey('R', {VK_CONTROL});
        const auto dialog = ReminderDialogWindow::WaitFor(Quillo().Pid());
        EXPECT_TRUE(dialog);
        return dialog.value_or(ReminderDialogWindow(nullptr));
    }
    static bool Goes(const ReminderDialogWindow& dialog) {
        return Eventually([&] { return !dialog.Exists(); });
    }
    /// The reminder in the note's file; 0 for none.
    [[nodiscard]] double StoredReminder() const {
        const std::string bytes = ReadBytes(path_);
        const std::string opening = "<reminder>";
        const std::size_t begin = bytes.find(opening);
        if (begin == std::string::npos || bytes[begin + opening.size()] != '#') return 0;
        return std::strtod(bytes.c_str() + begin + opening.size() + 1, nullptr);
    }

    std::wstring path_;
};

TEST_F(ReminderDialogTest, APhraseTypedIsInTheNotesFile) {
    const NoteWindow note = Open();
    const ReminderDialogWindow dialog = AskReminder(note);
    EXPECT_EQ(WindowText(dialog.Handle()), L"Set a reminder");
    EXPECT_EQ(GetWindow(dialog.Handle(), GW_OWNER), note.Handle());
    EXPECT_TRUE(Eventually([&] { return (GetWindowLongPtrW(dialog.Handle(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; }));
    EXPECT_EQ(dialog.Text(Control::ReminderBox), L"in 15 minutes");
    EXPECT_TRUE(Eventually([&] { return dialog.AllIsSelected(); }));
    EXPECT_EQ(dialog.Text(Control::OKButton), L"Set reminder");
    EXPECT_EQ(dialog.Text(Control::CancelButton), L"Cancel reminder");
    EXPECT_FALSE(dialog.Shows(Control::MessageLabel));
    EXPECT_FALSE(dialog.Text(Control::PreviewLabel).empty());

    ASSERT_TRUE(dialog.Type(L"in 20 minutes"));
    const double before = NowSerial();
    PressKey(VK_RETURN);
    ASSERT_TRUE(Goes(dialog));
    const double after = NowSerial();
    EXPECT_TRUE(Eventually([&] { return note.HasKeyboard(); }));
    Quit();
    constexpr double kSecond = kMinute / 60;
    EXPECT_GE(StoredReminder(), before + 20 * kMinute - kSecond);
    EXPECT_LE(StoredReminder(), after + 20 * kMinute + kSecond);
    EXPECT_THAT(ReadBytes(path_), ::testing::StartsWith("Call Bob\r\n<quillo>")) << "no key of these is in the text";
}

TEST_F(ReminderDialogTest, APhraseThatIsNotUnderstoodIsReportedInAGrownWindow) {
    const NoteWindow note = Open();
    const FileMark before = MarkOf(path_);
    const ReminderDialogWindow dialog = AskReminder(note);
    RECT place{};
    GetWindowRect(dialog.Handle(), &place);
    const LONG height = place.bottom - place.top;
    LONG grown = 0;
    const std::vector<std::pair<std::wstring, std::wstring>> answers = {
        {L"whenever",
         L"I don't understand what you mean.  See the examples for suggestions on how to type a reminder time."},
        {L"", L"Type a time at which to be reminded in the area provided."},
        {L"in ten minutes",
         L"I don't understand what you mean.  Please enter a time in the following format:  \"in 20 minutes\" or \"in "
         L"an hour\" (without the quotes)."},
        {L"in 2x minutes",
         L"I don't understand the amount that you mean.  Please use only numbers in the amount, such as \"in 20 "
         L"minutes\"."},
        {L"in 20 weeks",
         L"I don't understand the period of time that you mean.  Please use only words such as \"hours\" or "
         L"\"minutes\"."},
    };
    for (const auto& [phrase, message] : answers) {
        ASSERT_TRUE(dialog.Type(phrase));
        EXPECT_EQ(dialog.Text(Control::PreviewLabel), L"");
        PressKey(VK_RETURN);
        EXPECT_TRUE(Eventually([&, &text = message] { return dialog.Text(Control::MessageLabel) == text; }))
            << Narrow(dialog.Text(Control::MessageLabel));
        EXPECT_TRUE(Eventually([&] { return dialog.Shows(Control::MessageLabel); }));
        EXPECT_TRUE(Eventually([&] { return dialog.AllIsSelected(); })) << "to type it again at once";
        EXPECT_TRUE(Quillo().WaitUntilReady());
        GetWindowRect(dialog.Handle(), &place);
        if (grown == 0) grown = place.bottom - place.top;
        EXPECT_EQ(place.bottom - place.top, grown) << "it grows once";
    }
    EXPECT_GT(grown, height);
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(Goes(dialog));
    EXPECT_TRUE(note.IsVisible());
    Quit();
    EXPECT_TRUE(MarkOf(path_) == before) << "nothing was set: " << ReadBytes(path_);
}

TEST_F(ReminderDialogTest, AskedTwiceThereIsOneDialogInFront) {
    NoteFile large{"Call Bob"};  // larger than the dialog that opens over its middle
    large.position = PositionOfPixels(Px(100), Px(50), Px(700), Px(600));
    Profile().AddNote(L"note.qln", large.Bytes());
    Start();
    const NoteWindow note = FindNote(Quillo(), L"Call Bob");
    const ReminderDialogWindow dialog = AskReminder(note);
    ASSERT_TRUE(dialog.Type(L"in 3 hours"));
    ASSERT_TRUE(
        Until([&] { return note.HasKeyboard(); }, [&] { ClickMouse(note.OnScreen(Px(20), note.Height() - Px(40))); }));
    // The key is pressed again if a late word of the click has taken the keyboard back.
    EXPECT_TRUE(Until([&] { return KeyboardWindow() == dialog.Control(Control::ReminderBox); },
                      [] { PressKey('R', {VK_CONTROL}); }));
    EXPECT_EQ(ReminderDialogWindow::All(Quillo().Pid()).size(), 1U);
    EXPECT_EQ(dialog.Text(Control::ReminderBox), L"in 3 hours") << "with what was typed";
}

TEST_F(ReminderDialogTest, KeepingAReminderChangesNothing) {
    const NoteWindow note = Open(kInTheYear3000);
    const FileMark before = MarkOf(path_);
    const ReminderDialogWindow dialog = AskReminder(note);
    const std::wstring existing = dialog.Text(Control::ReminderBox);
    EXPECT_THAT(Narrow(existing), ::testing::HasSubstr("3000"));
    PressKey(VK_TAB);
    PressKey(VK_TAB);
    PressKey(VK_TAB);
    EXPECT_TRUE(Eventually([&] { return KeyboardWindow() == dialog.Control(Control::CancelButton); }));
    PressKey(VK_SPACE);
    EXPECT_TRUE(Eventually([&] { return dialog.Shows(Control::ActiveReminderLabel); }));
    EXPECT_TRUE(Eventually([&] { return !dialog.Shows(Control::ReminderBox); }));
    EXPECT_EQ(dialog.Text(Control::ActiveReminderLabel), existing);
    EXPECT_TRUE(Eventually([&] { return dialog.Text(Control::OKButton) == L"Keep reminder"; }));
    EXPECT_TRUE(Until([&] { return !dialog.Exists(); }, [&] { ClickMouse(dialog.MiddleOf(Control::OKButton)); }));
    Quit();
    EXPECT_TRUE(MarkOf(path_) == before) << ReadBytes(path_);
}

TEST_F(ReminderDialogTest, TheFirstClickOnAButtonCounts) {
    const ReminderDialogWindow dialog = AskReminder(Open(kInTheYear3000));
    ClickMouse(dialog.MiddleOf(Control::CancelButton));
    EXPECT_TRUE(Eventually([&] { return dialog.Text(Control::OKButton) == L"Keep reminder"; }));
    EXPECT_TRUE(dialog.Exists()) << "a second click would have closed it";
}

TEST_F(ReminderDialogTest, ACanceledReminderStaysCanceled) {
    const NoteWindow note = Open(kInTheYear3000);
    const std::uint64_t before = WriteTimeOf(path_);
    const ReminderDialogWindow dialog = AskReminder(note);
    ASSERT_TRUE(Until([&] { return dialog.Text(Control::OKButton) == L"Keep reminder"; },
                      [&] { ClickMouse(dialog.MiddleOf(Control::CancelButton)); }));
    ASSERT_TRUE(Until([&] { return !dialog.Exists(); }, [&] { ClickMouse(dialog.MiddleOf(Control::CancelButton)); }));
    EXPECT_TRUE(Eventually([&] { return WriteTimeOf(path_) != before; })) << "it is stored soon";
    Quillo().Kill();
    EXPECT_EQ(ReadBytes(path_), NoteFile{"Call Bob"}.Bytes());
    Start();
    const NoteWindow again = FindNote(Quillo(), L"Call Bob");
    EXPECT_EQ(AskReminder(again).Text(Control::ReminderBox), L"in 15 minutes");
}

TEST_F(ReminderDialogTest, EscChangesNothing) {
    const NoteWindow note = Open(kInTheYear3000);
    const FileMark before = MarkOf(path_);
    const ReminderDialogWindow dialog = AskReminder(note);
    ASSERT_TRUE(dialog.Type(L"in 3 hours"));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(Goes(dialog));
    EXPECT_EQ(AskReminder(note).Text(Control::ReminderBox).find(L"in "), std::wstring::npos) << "the old one is kept";
    Quit();
    EXPECT_TRUE(MarkOf(path_) == before) << ReadBytes(path_);
}

TEST_F(ReminderDialogTest, TheNoteHidesUntilThen) {
    const NoteWindow note = Open();
    const ReminderDialogWindow dialog = AskReminder(note);
    PressKey(VK_TAB);
    PressKey(VK_SPACE);
    PressKey(VK_RETURN);
    ASSERT_TRUE(Goes(dialog));
    EXPECT_TRUE(Eventually([&] { return !note.IsVisible(); }));
    Quit();
    EXPECT_GT(StoredReminder(), 0);
    EXPECT_THAT(ReadBytes(path_), ::testing::HasSubstr("<appearance>False,False,14155262,3723262,0,1</appearance>"));
}

TEST_F(ReminderDialogTest, WithMinimizeToTrayTheNoteIsMinimizedWithABalloon) {
    if (!HasBareTaskBar()) GTEST_SKIP() << "balloons are no windows of their own here";
    Profile().SetNumber(L"Minimize to tray", 1);
    const NoteWindow note = Open();
    const ReminderDialogWindow dialog = AskReminder(note);
    ASSERT_TRUE(dialog.Type(L"in 3 hours"));
    PressKey(VK_TAB);
    PressKey(VK_SPACE);
    PressKey(VK_RETURN);
    ASSERT_TRUE(Goes(dialog));
    EXPECT_TRUE(Eventually([&] { return !note.IsVisible(); }));
    EXPECT_TRUE(Eventually([] {
        return IsToolTipShown(
            L"Your note has been minimized to this icon.  You can click this icon at any time to display it again.");
    }));
    Quit();
    EXPECT_THAT(ReadBytes(path_), ::testing::HasSubstr("<appearance>False,False,14155262,3723262,0,2</appearance>"));
}

TEST_F(ReminderDialogTest, ClosingANoteClosesItsDialog) {
    const NoteWindow note = Open();
    const ReminderDialogWindow dialog = AskReminder(note);
    PostMessageW(note.Handle(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(Eventually([&] { return !note.Exists(); }));
    EXPECT_TRUE(Goes(dialog));
    EXPECT_TRUE(Quillo().Answers());
}

}  // namespace
}  // namespace quillo::e2e

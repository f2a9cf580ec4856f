#include "harness/e2e_test.h"
#include "harness/options_window.h"
#include "harness/reminder_windows.h"
#include "harness/window_text.h"
#include "util/day_serial.h"

namespace quillo::e2e {
namespace {

/// What reminders, hotkeys and the end of the program do while the options dialog is open over a note.
class OptionsMeanwhile : public OrdinaryTest {
  protected:
    void SetUp() override {
        OrdinaryTest::SetUp();
        Profile().SetText(L"Reminder", L"");
        Profile().SetNumber(L"New note hotkey", VK_F23);
    }
    /// Starts the program on a note with a reminder that falls due after the dialog has opened.
    OptionsWindow OpenOverANoteThatIsDueSoon() {
        NoteFile file{"Call Bob"};
        file.reminder = DueSoon();
        Profile().AddNote(L"note.qln", file.Bytes());
        Start();
        const auto options = OptionsWindow::OpenFromMenu(Quillo().Pid());
        EXPECT_TRUE(options);
        EXPECT_TRUE(Alerts(Quillo().Pid()).empty()) << "the alert was to come after the dialog";
        return options.value_or(OptionsWindow(nullptr));
    }
    /// The one alert, once it is there and has the keyboard; null when it does not come.
    HWND WaitForAlert() {
        if (!WaitForAlerts(Quillo().Pid(), 1)) return nullptr;
        HWND alert = Alerts(Quillo().Pid()).front();
        return Eventually([alert] { return KeyboardWindow() == alert; }) ? alert : nullptr;
    }
    static bool IsEnabled(const NoteWindow& note) { return IsWindowEnabled(note.Handle()) != 0; }

  private:
    static std::string DueSoon() {
        constexpr double kAhead = 20.0 / (24 * 60 * 60);  // in days; a start and a few clicks take less
        SYSTEMTIME now{};
        GetLocalTime(&now);
        const CivilTime time{now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
        return "#" + std::to_string(ToDaySerial(time).days + kAhead);
    }
};

TEST_F(OptionsMeanwhile, AnAlertTakesInputAndItsNoteOnlyOnceTheDialogHasClosed) {
    const OptionsWindow options = OpenOverANoteThatIsDueSoon();
    const NoteWindow note = FindNote(Quillo(), L"Call Bob");
    EXPECT_TRUE(Eventually([&] { return !IsEnabled(note); }));
    HWND alert = WaitForAlert();
    ASSERT_NE(alert, nullptr);
    EXPECT_TRUE(IsWindowEnabled(alert)) << "made after the dialog";
    EXPECT_TRUE(Eventually([&] { return !note.IsVisible(); }));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(Eventually([&] { return IsWindow(alert) == 0; }));
    EXPECT_TRUE(Eventually([&] { return note.IsVisible(); }));
    EXPECT_TRUE(Quillo().WaitUntilReady());
    EXPECT_TRUE(options.Exists()) << "the key does not reach the dialog, too";
    EXPECT_FALSE(IsEnabled(note)) << "it was open before the dialog";
    EXPECT_FALSE(note.HasKeyboard());
    SendMessageW(options.Handle(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(Eventually([&] { return IsEnabled(note); }));
    ASSERT_TRUE(note.TakeKeyboard());
    TypeText(L" now");
    EXPECT_TRUE(Eventually([&] { return note.Text().ends_with(L" now"); }));
    Quit();
}

TEST_F(OptionsMeanwhile, TheEndClosesTheDialogTheAlertAndEveryNoteInOrder) {
    const OptionsWindow options = OpenOverANoteThatIsDueSoon();
    ASSERT_TRUE(Until([&] { return NotesOf(Quillo()).size() == 2; }, [] { PressKey(VK_F23, {VK_LWIN}); }));
    const NoteWindow made = FindNote(Quillo(), L"");
    EXPECT_TRUE(IsEnabled(made)) << "made by the hotkey, after the dialog";
    ASSERT_TRUE(Eventually([&] { return made.HasKeyboard(); }));
    TypeText(L"Bread");
    ASSERT_TRUE(Eventually([&] { return made.Text() == L"Bread"; }));
    ASSERT_NE(WaitForAlert(), nullptr);
    EXPECT_TRUE(options.Exists());
    EXPECT_EQ(RunToEnd(L"/close"), 0U);
    EXPECT_EQ(Quillo().WaitForExit(), 0U);
    EXPECT_EQ(Quillo().Crash(), "");
    std::vector<std::wstring> texts;
    for (const std::wstring& path : StorageCopies()) texts.push_back(TextOfFile(ReadBytes(path)));
    EXPECT_THAT(texts, ::testing::UnorderedElementsAre(L"Call Bob", L"Bread")) << "what was typed is saved";
    Start();
    EXPECT_TRUE(WaitForAlerts(Quillo().Pid(), 1)) << "nobody has answered it";
    EXPECT_TRUE(IsEnabled(FindNote(Quillo(), L"Bread")));
}

}  // namespace
}  // namespace quillo::e2e

#include <array>

#include "harness/choice_dialog.h"
#include "harness/e2e_test.h"
#include "harness/popup_menu.h"
#include "harness/recycle_bin.h"
#include "harness/reminder_windows.h"
#include "harness/screen.h"
#include "harness/tray.h"

namespace quillo::e2e {
namespace {

/// A note's two menus, and their commands.
class NoteMenu : public OrdinaryTest {
  protected:
    void SetUp() override {
        OrdinaryTest::SetUp();
        if (Profile().IsReady()) Profile().SetText(L"Note folder", Outside().Path());
    }
    /// Adds notes below each other, so that none covers another. They are wider than their menu: a pointer that is over
    /// a menu, or leaves it, would affect the choice by keys.
    void AddNotes(const std::vector<std::string>& texts) const {
        for (std::size_t i = 0; i < texts.size(); ++i) {
            NoteFile file{texts[i]};
            file.position = "600," + std::to_string(600 + 2100 * i) + ",9000,1800";
            Profile().AddNote(L"note" + std::to_wstring(i) + L".qln", file.Bytes());
        }
    }
    NoteWindow Open(const std::string& text) {
        AddNotes({text});
        Start();
        return FindNote(Quillo(), Widen(text));
    }
    std::optional<PopupMenu> OpenMenuByMouse(const NoteWindow& note) {
        std::optional<PopupMenu> menu;
        (void)Until(
            [&] {
                menu = PopupMenu::FindReady(Quillo().Pid());
                return menu.has_value();
            },
            [&] { note.ClickButton(NoteButtonId::Menu); });
        return menu;
    }
    std::optional<PopupMenu> OpenMenuByKeys(const NoteWindow& note) {
        if (!note.TakeKeyboard()) return std::nullopt;
        PressKey(VK_F10, {VK_SHIFT});
        return PopupMenu::WaitFor(Quillo().Pid());
    }
    /// Chooses from the note's menu; false if the menu does not open or does not close.
    bool Choose(const NoteWindow& note, NoteMenuLine line, bool byKeys = true) {
        const std::optional<PopupMenu> menu = byKeys ? OpenMenuByKeys(note) : OpenMenuByMouse(note);
        if (!menu) return false;
        const int index = static_cast<int>(line);
        return byKeys ? menu->ChooseByKeys(index, kNoteMenuLines) : menu->Click(index, kNoteMenuLines);
    }
    /// Chooses until it has had its effect: a click can get lost between the desktop and the system.
    template <typename Effect>
    bool Does(const NoteWindow& note, NoteMenuLine line, bool byKeys, Effect effect) {
        return Until(effect, [&] { (void)Choose(note, line, byKeys); });
    }
    /// The first visible window of that class in the program.
    HWND Shown(const wchar_t* className) {
        for (HWND window : WindowsOf(Quillo().Pid())) {
            if (IsWindowVisible(window) != 0 && ClassOf(window) == className) return window;
        }
        return nullptr;
    }
};

/// With the mouse, and with the keyboard alone.
class NoteMenuBothWays : public NoteMenu, public ::testing::WithParamInterface<bool> {};

INSTANTIATE_TEST_SUITE_P(By, NoteMenuBothWays, ::testing::Bool(),
                         [](const auto& how) { return how.param ? "Keys" : "Mouse"; });

TEST_P(NoteMenuBothWays, EveryLineCarriesOutItsCommand) {
    const bool byKeys = GetParam();
    AddNotes({"main\r\nnote", "hide", "delete", "close"});
    Start();
    const NoteWindow main = FindNote(Quillo(), L"main\r\nnote");
    const NoteWindow hidden = FindNote(Quillo(), L"hide");
    const NoteWindow deleted = FindNote(Quillo(), L"delete");
    const NoteWindow closed = FindNote(Quillo(), L"close");

    const int before = main.LineHeight();
    EXPECT_TRUE(Does(main, NoteMenuLine::LargeText, byKeys, [&] { return main.LineHeight() > before; }));
    EXPECT_TRUE(Does(main, NoteMenuLine::LargeText, byKeys, [&] { return main.LineHeight() == before; }));

    EXPECT_TRUE(Does(main, NoteMenuLine::AddTimestamp, byKeys, [&] { return main.Text().front() == L'('; }));
    EXPECT_THAT(main.Text(), ::testing::EndsWith(L")\r\n\r\nmain\r\nnote"));

    const auto reminders = [&] { return ReminderDialogWindow::All(Quillo().Pid()); };
    EXPECT_TRUE(Does(main, NoteMenuLine::SetReminder, byKeys, [&] { return !reminders().empty(); }));
    ASSERT_TRUE(ReminderDialogWindow::WaitFor(Quillo().Pid()));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(Eventually([&] { return reminders().empty(); }));

    std::optional<ChoiceDialog> dialog;
    EXPECT_TRUE(Does(main, NoteMenuLine::SaveCopy, byKeys, [&] {
        dialog = ChoiceDialog::Find(main.Handle());
        return dialog.has_value();
    }));
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->Title(), L"Save sticky note...");
    EXPECT_TRUE(dialog->Cancel());
    EXPECT_TRUE(FilesIn(Outside().Path()).empty());

    const auto colors = [&] { return Shown(L"QuilloNoteColor"); };
    EXPECT_TRUE(Does(main, NoteMenuLine::ChangeColor, byKeys, [&] { return colors() != nullptr; }));
    PostMessageW(colors(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(Eventually([&] { return colors() == nullptr; }));

    EXPECT_TRUE(Does(hidden, NoteMenuLine::Hide, byKeys, [&] { return !hidden.IsVisible(); }));
    EXPECT_TRUE(hidden.Exists());

    EXPECT_TRUE(Does(deleted, NoteMenuLine::Delete, byKeys, [&] { return !deleted.Exists(); }));
    EXPECT_TRUE(Eventually([&] { return IsInRecycleBin(Outside() / L"delete.qln"); }));
    EXPECT_TRUE(RestoreFromRecycleBin(Outside() / L"delete.qln")) << "and out of the bin again";

    EXPECT_TRUE(Does(closed, NoteMenuLine::Close, byKeys, [&] { return !closed.Exists(); }));
    EXPECT_TRUE(FileExists(Outside() / L"close.qln"));
}

TEST_F(NoteMenu, OpensAtItsButtonAndASecondPressClosesIt) {
    const NoteWindow note = Open("Milk");
    const std::optional<PopupMenu> menu = OpenMenuByMouse(note);
    ASSERT_TRUE(menu);
    RECT button{};
    GetWindowRect(note.Button(NoteButtonId::Menu), &button);
    EXPECT_EQ(menu->Rectangle().left, button.left);
    EXPECT_EQ(menu->Rectangle().top, button.bottom);
    ClickMouse(note.MiddleOfButton(NoteButtonId::Menu));
    EXPECT_TRUE(Eventually([&] { return !PopupMenu::Find(Quillo().Pid()); }));
    EXPECT_TRUE(note.TakeKeyboard()) << "and it does not open again";
    EXPECT_FALSE(PopupMenu::Find(Quillo().Pid()));
    EXPECT_EQ(note.Text(), L"Milk");
}

TEST_F(NoteMenu, TheContextMenuKeyOpensItAndEscChangesNothing) {
    const NoteWindow note = Open("Milk");
    ASSERT_TRUE(note.TakeKeyboard());
    PressKey(VK_APPS);
    const std::optional<PopupMenu> menu = PopupMenu::WaitFor(Quillo().Pid());
    ASSERT_TRUE(menu);
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(Eventually([&] { return !PopupMenu::Find(Quillo().Pid()); }));
    TypeText(L"!");
    EXPECT_TRUE(Eventually([&] { return note.Text() == L"Milk!"; })) << "the note has the keyboard again";
}

TEST_F(NoteMenu, CloseNoteClosesAlsoWithAReminderSet) {
    NoteFile file{"Later"};
    file.position = "600,600,9000,1800";
    file.reminder = "#402133.25";
    Profile().AddNote(L"note.qln", file.Bytes());
    Start();
    const NoteWindow note = FindNote(Quillo(), L"Later");
    ASSERT_TRUE(Choose(note, NoteMenuLine::Close));
    EXPECT_TRUE(Eventually([&] { return !note.Exists(); }));
    EXPECT_THAT(ReadBytes(Outside() / L"Later.qln"), ::testing::HasSubstr("<reminder>#402133.25</reminder>"));
}

/// The user's short date, a blank and the user's time.
std::wstring GeneralDate(const SYSTEMTIME& when) {
    std::array<wchar_t, 80> date{};
    std::array<wchar_t, 80> time{};
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &when, nullptr, date.data(), static_cast<int>(date.size()));
    GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &when, nullptr, time.data(), static_cast<int>(time.size()));
    return std::wstring(date.data()) + L" " + time.data();
}

TEST_F(NoteMenu, TheTimeStampIsInTheUsersOwnFormat) {
    const NoteWindow note = Open("Milk");
    SYSTEMTIME before{};
    GetLocalTime(&before);
    ASSERT_TRUE(note.TakeKeyboard());
    PressKey('T', {VK_CONTROL});
    ASSERT_TRUE(Eventually([&] { return note.Text() != L"Milk"; }));
    SYSTEMTIME after{};
    GetLocalTime(&after);
    // Tries every second in the interval.
    FILETIME from{};
    FILETIME to{};
    SystemTimeToFileTime(&before, &from);
    SystemTimeToFileTime(&after, &to);
    constexpr ULONGLONG kSecond = 10'000'000;
    std::vector<std::wstring> possible;
    ULONGLONG tick = ULARGE_INTEGER{{from.dwLowDateTime, from.dwHighDateTime}}.QuadPart;
    const ULONGLONG last = ULARGE_INTEGER{{to.dwLowDateTime, to.dwHighDateTime}}.QuadPart;
    for (; tick <= last + kSecond; tick += kSecond) {
        const FILETIME file{static_cast<DWORD>(tick), static_cast<DWORD>(tick >> 32)};
        SYSTEMTIME when{};
        FileTimeToSystemTime(&file, &when);
        possible.push_back(L"(" + GeneralDate(when) + L")\r\n\r\nMilk");
    }
    EXPECT_THAT(possible, ::testing::Contains(note.Text()));
}

TEST_F(NoteMenu, ASavedCopyIsANoteFileThatOpensAgain) {
    const NoteWindow note = Open("Milk and bread");
    ASSERT_TRUE(Choose(note, NoteMenuLine::SaveCopy));
    std::optional<ChoiceDialog> dialog = ChoiceDialog::WaitFor(note.Handle());
    ASSERT_TRUE(dialog);
    const std::wstring path = Outside() / L"copy of the list";
    ASSERT_TRUE(dialog->Type(path));
    PressKey(VK_RETURN);
    ASSERT_TRUE(Eventually([&] { return FileExists(path + L".qln"); }));
    EXPECT_EQ(StorageCopies().size(), 1U) << "the note itself stays where it was";
    NoteFile copy{"Milk and bread"};
    copy.position = "600,600,9000,1800";
    copy.last = "<filename>" + Narrow(path) + ".qln</filename>";
    EXPECT_EQ(ReadBytes(path + L".qln"), copy.Bytes());

    EXPECT_EQ(RunToEnd(L"\"" + path + L".qln\""), 0U);
    EXPECT_TRUE(Eventually([&] { return Quillo().Notes().size() == 2; }));
    for (const NoteWindow& open : NotesOf(Quillo())) EXPECT_EQ(open.Text(), L"Milk and bread");
    EXPECT_FALSE(FileExists(path + L".qln")) << "an opened note moves in";
}

TEST_F(NoteMenu, ACopyReplacesNoFileWithoutAQuestion) {
    const std::wstring path = Outside() / L"taken.qln";
    WriteBytes(path, "mine");
    const NoteWindow note = Open("Milk");
    ASSERT_TRUE(Choose(note, NoteMenuLine::SaveCopy));
    const std::optional<ChoiceDialog> dialog = ChoiceDialog::WaitFor(note.Handle());
    ASSERT_TRUE(dialog);
    ASSERT_TRUE(dialog->Type(path));
    PressKey(VK_RETURN);
    std::optional<ChoiceDialog> question;
    EXPECT_TRUE(Eventually([&] {
        question = ChoiceDialog::Find(dialog->Handle());
        return question.has_value() || ReadBytes(path) != "mine";
    }));
    EXPECT_EQ(ReadBytes(path), "mine");
    ASSERT_TRUE(question);
    // "No", in a message box or in the dialog of newer systems.
    constexpr UINT kClickButton = WM_USER + 102;
    PostMessageW(question->Handle(), WM_COMMAND, IDNO, 0);
    PostMessageW(question->Handle(), kClickButton, IDNO, 0);
    EXPECT_TRUE(Eventually([&] { return !ChoiceDialog::Find(dialog->Handle()) && dialog->HasKeyboard(); }));
    EXPECT_TRUE(dialog->Cancel());
    EXPECT_EQ(ReadBytes(path), "mine");
}

TEST_F(NoteMenu, TheHintOnHidingIsShownOnce) {
    AddNotes({"one", "two"});
    Start();
    const NoteWindow one = FindNote(Quillo(), L"one");
    ASSERT_TRUE(Choose(one, NoteMenuLine::Hide));
    EXPECT_TRUE(Eventually([&] { return !one.IsVisible(); }));
    EXPECT_TRUE(Eventually([&] { return Quillo().HasShownBalloon(); }));
    EXPECT_EQ(Profile().Number(L"Has hidden notes"), 0xFFFFFFFFU);
    Quit();
    Start();
    const NoteWindow two = FindNote(Quillo(), L"two");
    const bool balloonOfTheStart = Quillo().HasShownBalloon();
    ASSERT_TRUE(Choose(two, NoteMenuLine::Hide));
    EXPECT_TRUE(Eventually([&] { return !two.IsVisible(); }));
    EXPECT_TRUE(Quillo().Answers());
    EXPECT_EQ(Quillo().HasShownBalloon(), balloonOfTheStart);
}

TEST_F(NoteMenu, WithBalloonHelpOffTheHintIsOnlyRecorded) {
    Profile().SetNumber(L"Disable balloon help", 1);
    const NoteWindow note = Open("one");
    ASSERT_TRUE(Choose(note, NoteMenuLine::Hide));
    EXPECT_TRUE(Eventually([&] { return !note.IsVisible(); }));
    EXPECT_TRUE(Eventually([&] { return Profile().Number(L"Has hidden notes") == 0xFFFFFFFFU; }));
    EXPECT_FALSE(Quillo().HasShownBalloon());
    EXPECT_FALSE(MessageBoxWindow::Find(Quillo().Pid()));
}

TEST_F(NoteMenu, TheCloseButtonsSecondActionDeletesTheNote) {
    AddNotes({"right", "shift"});
    Start();
    const NoteWindow first = FindNote(Quillo(), L"right");
    const NoteWindow second = FindNote(Quillo(), L"shift");
    EXPECT_TRUE(
        Until([&] { return !first.Exists(); }, [&] { RightClickMouse(first.MiddleOfButton(NoteButtonId::Close)); }));
    EXPECT_TRUE(Until([&] { return !second.Exists(); },
                      [&] { ClickMouseHolding(VK_SHIFT, second.MiddleOfButton(NoteButtonId::Close)); }));
    for (const wchar_t* name : {L"right.qln", L"shift.qln"}) {
        EXPECT_TRUE(Eventually([&] { return IsInRecycleBin(Outside() / name); }));
        EXPECT_TRUE(RestoreFromRecycleBin(Outside() / name));
    }
    EXPECT_FALSE(MessageBoxWindow::Find(Quillo().Pid())) << "without a question";
}

TEST_F(NoteMenu, DeletingPermanentlyAsksFirst) {
    Profile().SetNumber(L"Don't recycle notes", 1);
    const NoteWindow note = Open("Precious");
    const long long before = RecycledItems();
    for (const int answer : {IDCANCEL, IDOK}) {
        ASSERT_TRUE(Choose(note, NoteMenuLine::Delete));
        const std::optional<MessageBoxWindow> question = MessageBoxWindow::WaitFor(Quillo().Pid());
        ASSERT_TRUE(question);
        EXPECT_EQ(question->Title(), L"Quillo");
        EXPECT_EQ(
            question->Text(),
            L"This action will permanently delete this note, and you will not be able to get it back.  Only click "
            L"OK if you are sure that you do not want this note anymore; otherwise, click Cancel.");
        EXPECT_TRUE(question->Answer(answer));
        EXPECT_TRUE(Eventually([&] { return note.Exists() == (answer == IDCANCEL); }));
    }
    EXPECT_TRUE(StorageCopies().empty());
    EXPECT_TRUE(FilesIn(Outside().Path()).empty());
    EXPECT_EQ(RecycledItems(), before);
}

TEST_F(NoteMenu, TheFirstClickOnALineCounts) {
    const NoteWindow note = Open("Milk");
    const std::optional<PopupMenu> menu = OpenMenuByKeys(note);
    ASSERT_TRUE(menu);
    ClickMouse(menu->LinePoint(static_cast<int>(NoteMenuLine::AddTimestamp), kNoteMenuLines));
    EXPECT_TRUE(Eventually([&] { return note.Text().size() > 4; }));
    EXPECT_FALSE(menu->IsOpen());
}

/// The menu of a note's own icon beside the clock.
class NoteIconMenu : public NoteMenu {
  protected:
    static bool MinimizeByKeys(const NoteWindow& note) {
        if (!note.TakeKeyboard()) return false;
        PressKey('M', {VK_CONTROL});
        return Eventually([&] { return !note.IsVisible(); });
    }
    std::optional<PopupMenu> OpenIconMenu(const std::wstring& toolTip) {
        const std::optional<POINT> icon = FindTrayIcon(Quillo().Pid(), toolTip);
        if (!icon) return std::nullopt;
        std::optional<PopupMenu> menu;
        (void)Until(
            [&] {
                menu = PopupMenu::FindReady(Quillo().Pid());
                return menu.has_value();
            },
            [&] { RightClickMouse(*icon); });
        return menu;
    }
};

TEST_F(NoteIconMenu, ShowsTheNoteAndDeletesIt) {
    const NoteWindow note = Open("Small");
    ASSERT_TRUE(MinimizeByKeys(note));
    // A click beside the menu also closes it: then it is opened again.
    EXPECT_TRUE(Until([&] { return note.IsVisible(); },
                      [&] {
                          const auto menu = OpenIconMenu(L"Small");
                          if (menu) (void)menu->Click(static_cast<int>(IconMenuLine::Show), kIconMenuLines);
                      }));

    ASSERT_TRUE(MinimizeByKeys(note));
    EXPECT_TRUE(Until([&] { return !note.Exists(); },
                      [&] {
                          const auto menu = OpenIconMenu(L"Small");
                          if (menu) (void)menu->ChooseByKeys(static_cast<int>(IconMenuLine::Delete), kIconMenuLines);
                      }));
    EXPECT_TRUE(Eventually([&] { return IsInRecycleBin(Outside() / L"Small.qln"); }));
    EXPECT_TRUE(RestoreFromRecycleBin(Outside() / L"Small.qln"));
}

// The program is told to end meanwhile.

TEST_F(NoteMenu, AnOpenMenuDoesNotDelayTheEnd) {
    const NoteWindow note = Open("Milk");
    ASSERT_TRUE(OpenMenuByKeys(note));
    Quit();
    EXPECT_EQ(StorageCopies().size(), 1U);
}

TEST_F(NoteMenu, AnOpenFileDialogDoesNotDelayTheEnd) {
    const NoteWindow note = Open("Milk");
    ASSERT_TRUE(Choose(note, NoteMenuLine::SaveCopy));
    ASSERT_TRUE(ChoiceDialog::WaitFor(note.Handle()));
    Quit();
    EXPECT_EQ(StorageCopies().size(), 1U);
    EXPECT_TRUE(FilesIn(Outside().Path()).empty());
}

}  // namespace
}  // namespace quillo::e2e

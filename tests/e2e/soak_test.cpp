#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <random>
#include <set>

#include "harness/e2e_test.h"
#include "harness/main_menu.h"
#include "harness/reminder_windows.h"
#include "harness/tray.h"
#include "notes/note_commands.h"

namespace quillo::e2e {
namespace {

constexpr UINT kLeftUp = 514;
constexpr UINT kRightUp = 517;

unsigned NumberFromEnvironment(const char* name, unsigned usual) {
    const char* text = std::getenv(name);
    return text != nullptr ? static_cast<unsigned>(std::strtoul(text, nullptr, 10)) : usual;
}

struct NoteShortcut {
    WORD key = 0;
    std::vector<WORD> held;
    NoteAction action = NoteAction::None;
};

/// Every shortcut of a note. The key that opens its menu is not held with Ctrl.
std::vector<NoteShortcut> NoteShortcuts() {
    constexpr WORD kMostKeys = 0xFF;
    std::vector<NoteShortcut> shortcuts;
    for (const bool shift : {false, true}) {
        for (WORD key = 1; key < kMostKeys; ++key) {
            const NoteAction action = NoteKeyAction(key, NoteKeyState{true, shift, false});
            if (action == NoteAction::None || action == NoteAction::OpenMenu) continue;
            shortcuts.push_back(NoteShortcut{
                key, shift ? std::vector<WORD>{VK_CONTROL, VK_SHIFT} : std::vector<WORD>{VK_CONTROL}, action});
        }
    }
    return shortcuts;
}

/// Random user actions, one after another. QUILLO_SOAK_ACTIONS is their number, QUILLO_SOAK_SEED the random seed.
class Soak : public OrdinaryTest {
  protected:
    static constexpr std::size_t kMostNotes = 12;

    void SetUp() override {
        OrdinaryTest::SetUp();
        Profile().SetText(L"Note folder", Outside().Path());
        Profile().SetNumber(L"Disable animation", 1);
    }

    unsigned Any(unsigned below) { return std::uniform_int_distribution<unsigned>(0, below - 1)(random_); }
    [[nodiscard]] MainMenu Menu() { return MainMenu(Quillo().Pid()); }
    /// Sends the shell's message about the program's icon: the menu and notes may cover it.
    void SendToIcon(UINT message) const { PostMessageW(icon_, 512, 1, static_cast<LPARAM>(message)); }
    [[nodiscard]] std::wstring SomeText() {
        static constexpr const wchar_t* kWords[] = {L"milk ", L"call Ann ", L"<b> ", L"\u00e9t\u00e9 ", L"1 2 3 "};
        return kWords[Any(std::size(kWords))] + std::to_wstring(++texts_);
    }

    void OpenAndLeaveMenu() {
        SendToIcon(kLeftUp);
        if (!Eventually([this] { return Menu().IsShowing() && Menu().HasKeyboard(); }, kAWhile)) return;
        const std::vector<WORD> keys = {VK_DOWN, VK_RIGHT, VK_LEFT, VK_UP, VK_TAB};
        for (unsigned i = Any(4); i > 0; --i) PressKey(keys.at(Any(static_cast<unsigned>(keys.size()))));
        PressKey(VK_ESCAPE);
        (void)Eventually([this] { return !Menu().IsShowing(); }, kAWhile);
    }
    void ClickIconTwice() {
        SendToIcon(kLeftUp);
        SendToIcon(kLeftUp);
        (void)Quillo().WaitUntilReady();
    }
    void NewNoteFromMenu() {
        SendToIcon(kLeftUp);
        if (!Eventually([this] { return Menu().IsShowing() && Menu().HasKeyboard(); }, kAWhile)) return;
        PressKey(VK_DOWN);
        PressKey(VK_RETURN);
        if (!Eventually([this] { return KeyboardNote().Handle() != nullptr; }, kAWhile)) return;
        TypeText(SomeText());
    }
    void SecondStart() {
        if (Any(2) == 0) return (void)RunToEnd(L"/new");
        const std::wstring path = Outside() / (L"file " + std::to_wstring(++texts_) + L".txt");
        WriteBytes(path, "from a file " + std::to_string(texts_));
        (void)RunToEnd(L"\"" + path + L"\"");
    }
    void Edit() {
        const NoteWindow note = AnyNote();
        if (note.Handle() != nullptr) note.Edit(0, static_cast<LPARAM>(Any(3)), SomeText());
    }
    /// Opening a stored note again brings it to the front with the focus; then presses a shortcut.
    void KeyInANote() {
        const std::vector<std::wstring> copies = StorageCopies();
        if (copies.empty()) return;
        (void)RunToEnd(L"\"" + copies.at(Any(static_cast<unsigned>(copies.size()))) + L"\"");
        if (!Eventually([this] { return KeyboardNote().Handle() != nullptr; }, kAWhile)) return;
        const NoteShortcut& shortcut = shortcuts_.at(Any(static_cast<unsigned>(shortcuts_.size())));
        PressKey(shortcut.key, shortcut.held);
        if (shortcut.action == NoteAction::AskReminder) CloseReminderDialog();
    }
    void CloseReminderDialog() {
        const auto dialog = ReminderDialogWindow::WaitFor(Quillo().Pid());
        if (!dialog) return;
        PressKey(VK_ESCAPE);
        (void)Eventually([&] { return !dialog->Exists(); }, kAWhile);
    }
    void Remind() {
        NewNoteFromMenu();
        if (KeyboardNote().Handle() == nullptr) return;
        PressKey('R', {VK_CONTROL});
        const auto dialog = ReminderDialogWindow::WaitFor(Quillo().Pid());
        if (!dialog) return;
        (void)dialog->Type(L"in 1 second");
        PressKey(VK_RETURN);
        if (!Eventually([&] { return !dialog->Exists(); }, kAWhile)) PressKey(VK_ESCAPE);
    }
    void DismissAlerts() {
        for (HWND alert : Alerts(Quillo().Pid())) PostMessageW(alert, WM_CLOSE, 0, 0);
    }
    void CloseANote() { Close(AnyNote()); }

    void Act() {
        switch (Any(10)) {
            case 0:
                return OpenAndLeaveMenu();
            case 1:
                return ClickIconTwice();
            case 2:
                return SendToIcon(kRightUp);
            case 3:
                return SecondStart();
            case 4:
                return NewNoteFromMenu();
            case 5:
                return KeyInANote();
            case 6:
                return CloseANote();
            case 7:
                return Any(3) == 0 ? Remind() : DismissAlerts();
            default:
                return Edit();
        }
    }

    [[nodiscard]] NoteWindow AnyNote() {
        const std::vector<NoteWindow> notes = NotesOf(Quillo());
        return notes.empty() ? NoteWindow() : notes.at(Any(static_cast<unsigned>(notes.size())));
    }
    [[nodiscard]] NoteWindow KeyboardNote() {
        for (const NoteWindow& note : NotesOf(Quillo())) {
            if (note.HasKeyboard()) return note;
        }
        return NoteWindow();
    }
    static void Close(const NoteWindow& note) {
        if (note.Handle() != nullptr) PostMessageW(note.Handle(), WM_CLOSE, 0, 0);
    }
    /// Waits until the commands sent as messages have been carried out.
    void LetItHappen() {
        ASSERT_TRUE(Quillo().WaitUntilReady());
        ASSERT_EQ(Quillo().Crash(), "");
    }
    /// Closes notes until that many are left; future reminders are kept.
    void CloseDownTo(std::size_t count) {
        EXPECT_TRUE(Eventually([&] {
            DismissAlerts();
            const std::vector<NoteWindow> notes = NotesOf(Quillo());
            if (notes.size() > count) Close(notes.front());
            (void)Quillo().WaitUntilReady();
            return notes.size() <= count;
        })) << "notes stay open";
    }

    [[nodiscard]] std::multiset<std::wstring> TextsOnScreen() {
        std::multiset<std::wstring> texts;
        for (const NoteWindow& note : NotesOf(Quillo())) {
            if (std::wstring text = note.Text(); !text.empty()) texts.insert(std::move(text));
        }
        return texts;
    }
    [[nodiscard]] std::multiset<std::wstring> TextsOnDisk() const {
        std::multiset<std::wstring> texts;
        for (const std::wstring& path : StorageCopies()) {
            const std::string bytes = ReadBytes(path);
            const std::string text = bytes.substr(0, bytes.rfind("\r\n<quillo>"));
            if (!text.empty()) texts.insert(Widen(text));
        }
        return texts;
    }
    [[nodiscard]] DWORD Handles() {
        const KernelHandle process(OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, Quillo().Pid()));
        DWORD handles = 0;
        EXPECT_TRUE(GetProcessHandleCount(process.Get(), &handles));
        return handles;
    }

    static constexpr std::chrono::milliseconds kAWhile{3000};
    const std::vector<NoteShortcut> shortcuts_ = NoteShortcuts();
    std::mt19937 random_;
    HWND icon_ = nullptr;
    int texts_ = 0;
};

TEST_F(Soak, NoUserActionLosesAnything) {
    const unsigned seed = NumberFromEnvironment("QUILLO_SOAK_SEED", 20261121);
    const unsigned actions = NumberFromEnvironment("QUILLO_SOAK_ACTIONS", 30);
    ASSERT_FALSE(shortcuts_.empty());
    std::cout << "QUILLO_SOAK_SEED=" << seed << " QUILLO_SOAK_ACTIONS=" << actions << std::endl;
    random_.seed(seed);
    Start();
    std::vector<HWND> icons;
    ASSERT_TRUE(Eventually([&] { return (icons = TrayIconWindows(Quillo().Pid())).size() == 1; }));
    icon_ = icons.front();
    // Runs everything once, so that libraries loaded at their first use are present.
    OpenAndLeaveMenu();
    Remind();
    KeyInANote();
    SecondStart();
    ASSERT_NO_FATAL_FAILURE(LetItHappen());
    ASSERT_NO_FATAL_FAILURE(CloseDownTo(0));
    const DWORD before = Handles();

    for (unsigned i = 0; i < actions; ++i) {
        SCOPED_TRACE("action " + std::to_string(i));
        Act();
        ASSERT_NO_FATAL_FAILURE(LetItHappen());
        if (NotesOf(Quillo()).size() > kMostNotes) CloseDownTo(kMostNotes / 2);
    }
    DismissAlerts();
    ASSERT_NO_FATAL_FAILURE(LetItHappen());

    DWORD_PTR agreed = 0;
    SendMessageTimeoutW(Menu().Handle(), WM_QUERYENDSESSION, 0, 0, SMTO_ABORTIFHUNG, 20'000, &agreed);
    EXPECT_EQ(agreed, 1U);
    const std::multiset<std::wstring> texts = TextsOnScreen();
    EXPECT_EQ(TextsOnDisk(), texts);
    CloseDownTo(0);
    constexpr DWORD kSystemsOwn = 12;  // the system uses some itself: a thread of its pool, a file of fonts
    EXPECT_LE(Handles(), before + kSystemsOwn);
}

}  // namespace
}  // namespace quillo::e2e

#include "harness/e2e_test.h"
#include "harness/tray.h"

// After windows.h.
#include <shellapi.h>

namespace quillo::e2e {
namespace {

/// How a note leaves the screen by its own buttons.
class Lifecycle : public OrdinaryTest {
  protected:
    void SetUp() override {
        OrdinaryTest::SetUp();
        if (Profile().IsReady()) Profile().SetText(L"Note folder", Outside().Path());
    }
    NoteWindow Open(const std::string& text) {
        Profile().AddNote(L"note.qln", NoteFile{text}.Bytes());
        Start();
        return FindNote(Quillo(), Widen(text));
    }
    static bool Close(const NoteWindow& note) {
        return Until([&] { return !note.Exists(); }, [&] { note.ClickButton(NoteButtonId::Close); });
    }
    static bool ShiftClose(const NoteWindow& note) {
        return Until([&] { return !note.Exists(); },
                     [&] { ClickMouseHolding(VK_SHIFT, note.MiddleOfButton(NoteButtonId::Close)); });
    }
    static long long RecycledItems() {
        SHQUERYRBINFO info{};
        info.cbSize = sizeof info;
        // The call fails as long as nothing has ever been deleted.
        return SHQueryRecycleBinW(nullptr, &info) == S_OK ? info.i64NumItems : 0;
    }
};

TEST_F(Lifecycle, TheCloseButtonSavesTheNoteUnderItsText) {
    const NoteWindow note = Open("Call: Bob / Sue?");
    ASSERT_TRUE(Close(note));
    const std::wstring path = Outside() / L"Call. Bob -.qln";
    ASSERT_TRUE(FileExists(path));
    NoteFile expected{"Call: Bob / Sue?"};
    std::string narrow;
    for (const wchar_t character : path) narrow += static_cast<char>(character);
    expected.last = "<tempfilename>" + narrow + "</tempfilename>";
    EXPECT_EQ(ReadBytes(path), expected.Bytes());
    EXPECT_TRUE(StorageCopies().empty()) << "a closed note has no storage copy";
    EXPECT_TRUE(Quillo().Answers());
}

TEST_F(Lifecycle, AnExistingFileIsNeverOverwritten) {
    WriteBytes(Outside() / L"Milk.qln", "mine");
    NoteFile other{"Milk and more words than fit"};
    other.position = "9000,3000,3000,2400";
    Profile().AddNote(L"2.qln", other.Bytes());
    const NoteWindow first = Open("Milk for coffee");
    WriteBytes(Outside() / L"Milk for.qln", "mine too");
    ASSERT_TRUE(Close(first));
    EXPECT_EQ(ReadBytes(Outside() / L"Milk for.qln"), "mine too");
    EXPECT_TRUE(FileExists(Outside() / L"Milk for 2.qln"));
    ASSERT_TRUE(Close(FindNote(Quillo(), L"Milk and more words than fit")));
    EXPECT_TRUE(FileExists(Outside() / L"Milk and more words.qln"));
    EXPECT_EQ(ReadBytes(Outside() / L"Milk.qln"), "mine");
}

TEST_F(Lifecycle, ACoveredButtonIsNotPressed) {
    // The pointer is over a note's close button when another note appears over it: the press is for the visible one.
    const NoteWindow below = Open("below");
    RECT button{};
    GetWindowRect(below.Button(NoteButtonId::Close), &button);
    const POINT at{(button.left + button.right) / 2, (button.top + button.bottom) / 2};
    MoveMouse(at);
    EXPECT_TRUE(Quillo().WaitUntilReady());
    WriteBytes(Outside() / L"above.txt", NoteFile{"above"}.Bytes());
    EXPECT_EQ(RunToEnd(L"above.txt", Outside().Path()), 0U);
    const NoteWindow above = WaitForNote(Quillo(), L"above");
    ASSERT_TRUE(Eventually([&] { return WindowFromPoint(at) == above.Button(NoteButtonId::Close); }));
    PressMouse(at);
    ReleaseMouse(at);
    EXPECT_TRUE(Eventually([&] { return !above.Exists() || !below.Exists(); }));
    EXPECT_TRUE(below.Exists()) << "the covered note was closed";
    EXPECT_FALSE(above.Exists());
}

TEST_F(Lifecycle, AnEmptyNoteClosesWithoutAFile) {
    ASSERT_TRUE(Close(Open("   ")));
    EXPECT_TRUE(FilesIn(Outside().Path()).empty());
    EXPECT_TRUE(StorageCopies().empty());
}

TEST_F(Lifecycle, ANoteWithAReminderIsHiddenInsteadOfClosed) {
    NoteFile file{"later"};
    file.reminder = "#402133.25";
    const std::wstring path = Profile().AddNote(L"note.qln", file.Bytes());
    Start();
    const NoteWindow note = FindNote(Quillo(), L"later");
    EXPECT_TRUE(Until([&] { return !note.IsVisible(); }, [&] { note.ClickButton(NoteButtonId::Close); }));
    EXPECT_TRUE(note.Exists());
    EXPECT_TRUE(Eventually([&] { return Quillo().HasShownBalloon(); }));
    if (HasBareTaskBar()) {
        EXPECT_TRUE(Eventually([&] { return IsToolTipShown(LastBalloon(Quillo().Pid())); }));
    }
    EXPECT_TRUE(FilesIn(Outside().Path()).empty());
    Quit();
    file.appearance = "False,False,14155262,3723262,0,1";
    EXPECT_EQ(ReadBytes(path), file.Bytes()) << "it stays hidden";
}

TEST_F(Lifecycle, WithMinimizeToTrayTheCloseButtonOnlyMinimizes) {
    Profile().SetNumber(L"Minimize to tray", 1);
    const NoteWindow note = Open("to the tray");
    EXPECT_TRUE(Until([&] { return !note.IsVisible(); }, [&] { note.ClickButton(NoteButtonId::Close); }));
    EXPECT_TRUE(note.Exists());
    const std::wstring path = StorageCopies().at(0);
    Quit();
    NoteFile expected{"to the tray"};
    expected.appearance = "False,False,14155262,3723262,0,2";
    EXPECT_EQ(ReadBytes(path), expected.Bytes());
}

TEST_F(Lifecycle, ShiftAndTheCloseButtonRecycleTheNote) {
    const long long before = RecycledItems();
    ASSERT_TRUE(ShiftClose(Open("throw me away")));
    EXPECT_TRUE(StorageCopies().empty());
    EXPECT_TRUE(FilesIn(Outside().Path()).empty()) << "its file has gone to the Recycle Bin";
    EXPECT_TRUE(Eventually([&] { return RecycledItems() == before + 1; }));
    EXPECT_FALSE(MessageBoxWindow::Find(Quillo().Pid())) << "without a question";
}

TEST_F(Lifecycle, ShiftAndTheCloseButtonDeletePermanentlyWithoutTheRecycleBin) {
    Profile().SetNumber(L"Don't recycle notes", 1);
    const long long before = RecycledItems();
    ASSERT_TRUE(ShiftClose(Open("gone for good")));
    EXPECT_TRUE(StorageCopies().empty());
    EXPECT_TRUE(FilesIn(Outside().Path()).empty());
    EXPECT_EQ(RecycledItems(), before);
}

TEST_F(Lifecycle, ANoteThatCannotBeSavedAsksBeforeItCloses) {
    Profile().SetText(L"Note folder", Outside() / L"no such folder");
    const NoteWindow note = Open("nowhere to go");
    for (const int answer : {IDNO, IDYES}) {
        ASSERT_TRUE(Until([&] { return MessageBoxWindow::Find(Quillo().Pid()).has_value(); },
                          [&] { note.ClickButton(NoteButtonId::Close); }));
        const auto box = MessageBoxWindow::Find(Quillo().Pid());
        EXPECT_EQ(box->Text(),
                  L"Quillo was unable to save this note to a file.  Do you still want to close it?\r\n\r\nIf you click "
                  L"Yes, the note's contents will be lost.  If you click No, it will not be closed.");
        ASSERT_TRUE(box->Answer(answer));
        EXPECT_TRUE(Eventually([&] { return note.Exists() == (answer == IDNO); }));
        EXPECT_EQ(StorageCopies().size(), answer == IDNO ? 1U : 0U);
    }
}

}  // namespace
}  // namespace quillo::e2e

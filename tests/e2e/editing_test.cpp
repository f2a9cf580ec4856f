#include "harness/e2e_test.h"

namespace quillo::e2e {
namespace {

class Editing : public OrdinaryTest {
  protected:
    NoteWindow Open(const std::string& text) {
        path_ = Profile().AddNote(L"note.qln", NoteFile{text}.Bytes());
        NoteFile other{"untouched"};
        other.position = "9000,3000,3000,2400";  // beside it
        Profile().AddNote(L"other.qln", other.Bytes());
        other_ = MarkOf(Profile().NotesFolder() + L"\\other.qln");
        Start();
        return WaitForNote(Quillo(), Widen(text));  // a large one opens after the others
    }
    /// Ends the program; only the edited note is saved, with that text.
    void QuitAndExpectText(const std::string& text) {
        Quit();
        EXPECT_EQ(ReadBytes(path_), NoteFile{text}.Bytes());
        EXPECT_TRUE(MarkOf(Profile().NotesFolder() + L"\\other.qln") == other_) << "the other file was written again";
        EXPECT_EQ(FilesIn(Profile().NotesFolder()).size(), 2U) << "nothing is left beside the notes";
    }

    std::wstring path_;
    FileMark other_;
};

TEST_F(Editing, TypingRewritesExactlyThatNote) {
    const NoteWindow note = Open("Buy milk");
    ASSERT_TRUE(note.TakeKeyboard());
    TypeText(L" & br\u00F6d\n\u20AC 3");
    ASSERT_TRUE(Eventually([&] { return note.Text() == L"Buy milk & br\u00F6d\r\n\u20AC 3"; }));
    QuitAndExpectText(
        "Buy milk & br\xF6"
        "d\r\n\x80 3");
}

TEST_F(Editing, KeysOfTheKeyboardWriteAndDelete) {
    const NoteWindow note = Open("abc");
    ASSERT_TRUE(note.TakeKeyboard());
    PressKey(VK_BACK);
    PressKey('Q', {VK_SHIFT});
    PressKey(VK_LEFT);
    PressKey('X');
    PressKey(VK_END);
    PressKey(VK_RETURN);
    PressKey(VK_TAB);
    PressKey('Y');
    ASSERT_TRUE(Eventually([&] { return note.Text() == L"abxQ\r\n\ty"; }));
    QuitAndExpectText("abxQ\r\n\ty");
}

TEST_F(Editing, ANoteIsSavedSoonAfterTheTyping) {
    const NoteWindow note = Open("draft");
    const std::uint64_t before = WriteTimeOf(path_);
    ASSERT_TRUE(note.TakeKeyboard());
    TypeText(L" 2");
    ASSERT_TRUE(Eventually([&] { return note.Text() == L"draft 2"; }));
    EXPECT_TRUE(Eventually([&] { return WriteTimeOf(path_) != before; }));
    Quillo().Kill();
    EXPECT_EQ(ReadBytes(path_), NoteFile{"draft 2"}.Bytes());
}

TEST_F(Editing, ACharacterBeyondTheCodePageIsAQuestionMarkInTheFile) {
    const NoteWindow note = Open("");
    const std::uint64_t before = WriteTimeOf(path_);
    ASSERT_TRUE(note.TakeKeyboard());
    // CJK, two letters with a look-alike in the code page, a smiley outside the 16-bit range.
    const std::wstring typed = L"\u4ECA\u65E5 \u0100\uFF21 \U0001F600 ok";
    TypeText(typed);
    ASSERT_TRUE(Eventually([&] { return note.Text() == typed; }));
    EXPECT_TRUE(Eventually([&] { return WriteTimeOf(path_) != before; }));
    EXPECT_EQ(note.Text(), typed) << "saving leaves the screen alone";
    Quit();
    EXPECT_THAT(ReadBytes(path_), ::testing::MatchesRegex("\\?\\? \\?\\? \\?+ ok\r\n<quillo>.*"));
}

TEST_F(Editing, UndoReversesTheLastEdit) {
    const NoteWindow note = Open("keep");
    ASSERT_TRUE(note.TakeKeyboard());
    TypeText(L"!");
    ASSERT_TRUE(Eventually([&] { return note.Text() == L"keep!"; }));
    PressKey('Z', {VK_CONTROL});
    EXPECT_TRUE(Eventually([&] { return note.Text() == L"keep"; }));
    PressKey('Z', {VK_CONTROL});
    EXPECT_TRUE(Eventually([&] { return note.Text() == L"keep!"; })) << "undone in its turn";
    DWORD_PTR done = 0;
    SendMessageTimeoutW(note.TextBox(), WM_UNDO, 0, 0, SMTO_ABORTIFHUNG, 5000, &done);
    EXPECT_EQ(note.Text(), L"keep");
    QuitAndExpectText("keep");
}

TEST_F(Editing, CopyAndPasteUseTheClipboard) {
    const NoteWindow note = Open("word");
    ASSERT_TRUE(note.TakeKeyboard());
    PressKey(VK_HOME, {VK_SHIFT});
    PressKey('C', {VK_CONTROL});
    PressKey(VK_END);
    PressKey('V', {VK_CONTROL});
    EXPECT_TRUE(Eventually([&] { return note.Text() == L"wordword"; }));
    PressKey(VK_HOME, {VK_SHIFT});
    PressKey('X', {VK_CONTROL});
    EXPECT_TRUE(Eventually([&] { return note.Text().empty(); }));
    QuitAndExpectText("");
}

TEST_F(Editing, AMillionCharactersAreSavedAndReadBack) {
    std::string text;
    while (text.size() < 1'000'000) text += "line " + std::to_string(text.size()) + " of caf\xE9\r\n";
    const NoteWindow note = Open(text);
    EXPECT_TRUE(note.Text() == Widen(text));
    SendMessageW(note.TextBox(), EM_SETSEL, 0, 0);
    PostMessageW(note.TextBox(), WM_CHAR, L'+', 0);
    ASSERT_TRUE(Eventually([&] { return note.Text().front() == L'+'; }));
    Quit();
    EXPECT_TRUE(ReadBytes(path_) == NoteFile{"+" + text}.Bytes());
    Start();
    EXPECT_TRUE(WaitForNote(Quillo(), Widen("+" + text)).IsVisible());
}

TEST_F(Editing, ANewNoteIsStoredOnceItIsTypedInto) {
    Start();
    EXPECT_EQ(RunToEnd(L"/new"), 0U);
    const NoteWindow note = WaitForNote(Quillo(), L"");
    ASSERT_TRUE(note.TakeKeyboard());
    TypeText(L"fresh");
    ASSERT_TRUE(Eventually([&] { return note.Text() == L"fresh"; }));
    const RECT area = note.Rectangle();
    NoteFile expected{"fresh"};
    expected.position = PositionOfPixels(area.left, area.top, note.Width(), note.Height());
    Quit();
    ASSERT_EQ(StorageCopies().size(), 1U);
    EXPECT_EQ(ReadBytes(StorageCopies()[0]), expected.Bytes());
    Start();
    EXPECT_TRUE(FindNote(Quillo(), L"fresh").IsVisible());
}

}  // namespace
}  // namespace quillo::e2e

#include "harness/e2e_test.h"
#include "harness/recycle_bin.h"

namespace quillo::e2e {
namespace {

/// Emoji, Greek, Cyrillic, Chinese, a combining mark, half a character and typed tags: the code page has none of them.
const std::wstring kText =
    L"Precious \xd83d\xde00 \u0394\u03ad\u03bb\u03c4\u03b1 \u0416\u0443\u043a \u65e5\u672c e\u0301\r\n\xd83d.\r\n"
    L"<quillo><position>1,2,3,4</position></quillo> </quillo>";

/// Every character is preserved, wherever a note is moved.
class Characters : public OrdinaryTest {
  protected:
    void SetUp() override {
        OrdinaryTest::SetUp();
        if (Profile().IsReady()) Profile().SetText(L"Note folder", Outside().Path());
    }
    /// A note with the text, typed and not saved.
    NoteWindow Typed(const std::wstring& text = kText) {
        Start();
        EXPECT_EQ(RunToEnd(L"/new"), 0U);
        const NoteWindow note = WaitForNote(Quillo(), L"");
        note.Edit(0, -1, text);
        EXPECT_EQ(note.Text(), text);
        return note;
    }
    /// The file of that note after it was closed.
    std::wstring Closed(const std::wstring& text = kText) {
        const NoteWindow note = Typed(text);
        PostMessageW(note.Handle(), WM_CLOSE, 0, 0);
        EXPECT_TRUE(Eventually([&] { return !note.Exists(); }));
        const std::vector<std::wstring> names = FilesIn(Outside().Path());
        EXPECT_EQ(names.size(), 1U);
        return names.size() == 1 ? Outside() / names[0] : std::wstring();
    }
    void OpenFile(const std::wstring& path) { EXPECT_EQ(RunToEnd(L"\"" + path + L"\""), 0U); }
    [[nodiscard]] std::size_t NotesWithTheText() {
        std::size_t count = 0;
        for (const NoteWindow& note : NotesOf(Quillo())) count += note.Text() == kText ? 1 : 0;
        return count;
    }
};

TEST_F(Characters, TheyAreTypedAndStored) {
    Typed();
    EXPECT_TRUE(Eventually([&] { return StorageCopies().size() == 1; }));
    EXPECT_EQ(TextOfFile(ReadBytes(StorageCopies()[0])), kText);
}

TEST_F(Characters, TheySurviveAPowerFailure) {
    Typed();
    ASSERT_TRUE(Eventually([&] { return StorageCopies().size() == 1; }));
    Quillo().Kill();
    Start();
    EXPECT_EQ(NotesWithTheText(), 1U);
}

TEST_F(Characters, TheySurviveARestart) {
    Typed();
    Quit();
    Start();
    EXPECT_EQ(NotesWithTheText(), 1U);
}

TEST_F(Characters, TheyAreRestoredFromAClosedFile) {
    const std::wstring path = Closed();
    EXPECT_EQ(TextOfFile(ReadBytes(path)), kText);
    EXPECT_THAT(ReadBytes(path), ::testing::StartsWith("Precious ??")) << "other editors show what they can";
    OpenFile(path);
    EXPECT_TRUE(Eventually([&] { return NotesWithTheText() == 1; }));
    EXPECT_FALSE(FileExists(path));
}

TEST_F(Characters, TheyAreRestoredFromTheRecycleBin) {
    const NoteWindow note = Typed();
    ASSERT_TRUE(note.TakeKeyboard());
    PressKey('W', {VK_CONTROL, VK_SHIFT});
    ASSERT_TRUE(Eventually([&] { return !note.Exists(); }));
    const std::wstring path = Outside() / L"Precious \xd83d\xde00 \u0394\u03ad\u03bb\u03c4\u03b1.qln";
    ASSERT_TRUE(Eventually([&] { return IsInRecycleBin(path); }));
    ASSERT_TRUE(RestoreFromRecycleBin(path));
    OpenFile(path);
    EXPECT_TRUE(Eventually([&] { return NotesWithTheText() == 1; }));
}

TEST_F(Characters, TheyMoveWithTheFile) {
    const std::wstring path = Closed();
    const std::wstring moved = Outside() / L"another name.qln";
    ASSERT_NE(MoveFileW(path.c_str(), moved.c_str()), 0);
    OpenFile(moved);
    EXPECT_TRUE(Eventually([&] { return NotesWithTheText() == 1; }));
}

TEST_F(Characters, TheyAreCopiedWithTheFile) {
    const std::wstring path = Closed();
    const std::wstring copy = Outside() / L"copy.qln";
    ASSERT_NE(CopyFileW(path.c_str(), copy.c_str(), TRUE), 0);
    OpenFile(copy);
    OpenFile(path);
    EXPECT_TRUE(Eventually([&] { return NotesWithTheText() == 2; }));
}

TEST_F(Characters, ATextEditedElsewhereIsRead) {
    const std::wstring path = Closed(L"Precious \u0394\u03ad\u03bb\u03c4\u03b1");
    std::string bytes = ReadBytes(path);
    ASSERT_THAT(bytes, ::testing::StartsWith("Precious ?"));
    WriteBytes(path, "Changed" + bytes.substr(8));
    OpenFile(path);
    EXPECT_TRUE(WaitForNote(Quillo(), L"Changed ?????").IsVisible());
}

TEST_F(Characters, ANoteThatBeginsWithHalfACharacterCanBeClosed) {
    const std::wstring text = L"\xd83d. and more";
    const std::wstring path = Closed(text);
    EXPECT_EQ(TextOfFile(ReadBytes(path)), text);
    EXPECT_FALSE(MessageBoxWindow::Find(Quillo().Pid()));
}

TEST_F(Characters, SteadyTypingIsSavedToo) {
    const NoteWindow note = Typed(L"steady ");
    const auto typedAndStored = [&] {
        note.Edit(1'000'000, 1'000'000, L"x");
        return StorageCopies().size() == 1 && ReadBytes(StorageCopies()[0]).rfind("steady xxxxx", 0) == 0;
    };
    EXPECT_TRUE(Eventually(typedAndStored)) << "without a pause nothing is saved";
}

}  // namespace
}  // namespace quillo::e2e

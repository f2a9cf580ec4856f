#include "harness/drag_source.h"
#include "harness/e2e_test.h"

namespace quillo::e2e {
namespace {

/// Data dragged from another program and dropped on the text.
class Drop : public OrdinaryTest {
  protected:
    NoteWindow Open() {
        path_ = Profile().AddNote(L"note.qln", NoteFile{"before"}.Bytes());
        Start();
        NoteWindow note = FindNote(Quillo(), L"before");
        SendMessageW(note.TextBox(), EM_SETSEL, 6, 6);
        return note;
    }
    /// Drops until the text is as expected: the first drag after a cold start can have no effect.
    static bool DropOn(const NoteWindow& note, const DragData& data, const std::wstring& expected) {
        for (int attempt = 0; attempt < 4 && note.Text() == L"before"; ++attempt) {
            (void)DragTo(data, note.OnScreen(note.Width() / 2, note.Height() / 2));
            if (Eventually([&] { return note.Text() == expected; }, std::chrono::seconds(2))) return true;
        }
        EXPECT_EQ(note.Text(), expected);
        return note.Text() == expected;
    }

    std::wstring path_;
};

TEST_F(Drop, TextIsInserted) {
    const NoteWindow note = Open();
    EXPECT_TRUE(DropOn(note,
                       {{CF_UNICODETEXT, WideTextBytes(L" \u4ECA after")}, {CF_TEXT, NarrowTextBytes(" ? after")}},
                       L"before \u4ECA after"));
    Quit();
    EXPECT_EQ(TextOfFile(ReadBytes(path_)), L"before \u4ECA after");
}

TEST_F(Drop, NarrowTextIsInserted) {
    EXPECT_TRUE(DropOn(Open(), {{CF_TEXT, NarrowTextBytes(" caf\xE9")}}, L"before caf\u00E9"));
}

TEST_F(Drop, ALinkWinsOverText) {
    EXPECT_TRUE(DropOn(Open(),
                       {{LinkClipboardFormat(), NarrowTextBytes("http://example.org/")},
                        {CF_UNICODETEXT, WideTextBytes(L"the title")}},
                       L"beforehttp://example.org/"));
}

TEST_F(Drop, FilesBecomeTheirPathsOneALine) {
    const std::wstring one = Outside() / L"one.txt";
    const std::wstring two = Outside() / L"zwei \u017C.txt";
    WriteBytes(one, "1");
    WriteBytes(two, "2");
    EXPECT_TRUE(DropOn(Open(), {{CF_HDROP, FileListBytes({one, two})}}, L"before" + one + L"\r\n" + two + L"\r\n"));
    EXPECT_TRUE(FileExists(one) && FileExists(two)) << "what is dropped stays where it is";
}

TEST_F(Drop, NothingOfTheSelectionIsReplaced) {
    const NoteWindow note = Open();
    SendMessageW(note.TextBox(), EM_SETSEL, 0, 6);
    EXPECT_TRUE(DropOn(note, {{CF_UNICODETEXT, WideTextBytes(L"now ")}}, L"now before"));
}

TEST_F(Drop, NothingIsAcceptedWithNoDragAndDrop) {
    Profile().SetNumber(L"No drag and drop", 1);
    const NoteWindow note = Open();
    for (int attempt = 0; attempt < 2; ++attempt) {
        EXPECT_FALSE(
            DragTo({{CF_UNICODETEXT, WideTextBytes(L"x")}}, note.OnScreen(note.Width() / 2, note.Height() / 2)));
    }
    EXPECT_EQ(note.Text(), L"before");
}

}  // namespace
}  // namespace quillo::e2e

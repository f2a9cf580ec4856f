#include "harness/e2e_test.h"

namespace quillo::e2e {
namespace {

/// The effect of each command line of a second start on the running program.
class SecondStart : public OrdinaryTest {
  protected:
    void SetUp() override {
        OrdinaryTest::SetUp();
        if (HasFatalFailure()) return;
        Profile().AddNote(L"note.qln", NoteFile{"first"}.Bytes());
    }

    /// A file outside the folder of notes, as a closed note leaves it.
    std::wstring AddOutside(const std::wstring& name, const std::string& text) const {
        NoteFile file{text};
        file.last = "<tempfilename>c:\\elsewhere.qln</tempfilename>";
        const std::wstring path = Outside() / name;
        WriteBytes(path, file.Bytes());
        return path;
    }
};

TEST_F(SecondStart, WithCloseEndsTheProgram) {
    for (const wchar_t* arguments : {L"/close", L"/CLOSE", L"/closeX", L"/Close and more", L"   /close  "}) {
        Start();
        EXPECT_EQ(RunToEnd(arguments), 0U);
        EXPECT_EQ(Quillo().WaitForExit(), 0U);
        EXPECT_EQ(FindChannel(), nullptr);
    }
}

TEST_F(SecondStart, WithNewMakesAnEmptyNote) {
    Start();
    std::size_t notes = 1;
    for (const wchar_t* arguments : {L"/new", L"/NEW", L"/newer", L"/new note"}) {
        EXPECT_EQ(RunToEnd(arguments), 0U);
        ++notes;
        EXPECT_TRUE(Eventually([&] { return VisibleNotes(Quillo()) == notes; }));
    }
    std::size_t empty = 0;
    for (const NoteWindow& note : NotesOf(Quillo())) empty += note.Text().empty() ? 1U : 0U;
    EXPECT_EQ(empty, 4U);
}

TEST_F(SecondStart, WithAnyOtherCommandIsIgnored) {
    Start();
    for (const wchar_t* arguments : {L"/x", L"/", L"/clos", L"/ne", L"/ close", L"@"}) {
        EXPECT_EQ(RunToEnd(arguments), 0U);
        EXPECT_TRUE(Quillo().WaitUntilReady());
        EXPECT_EQ(NotesOf(Quillo()).size(), 1U);
        EXPECT_FALSE(MessageBoxWindow::Find(Quillo().Pid()));
    }
}

TEST_F(SecondStart, WithAPathOpensTheFile) {
    Start();
    const std::wstring path = AddOutside(L"to open.qln", "opened");
    int number = 0;
    for (const std::wstring& arguments : {path, L"\"" + path + L"\"", L"@" + path, L"@ " + path + L" ",
                                          L"@ \"" + path + L"\" ", L"  @\"" + path + L"\""}) {
        const std::string text = "opened " + std::to_string(++number);
        AddOutside(L"to open.qln", text);
        EXPECT_EQ(RunToEnd(arguments), 0U);
        EXPECT_TRUE(WaitForNote(Quillo(), Widen(text)).IsVisible());
        EXPECT_FALSE(FileExists(path));
    }
}

TEST_F(SecondStart, TakesARelativePathFromItsOwnFolder) {
    Start();
    AddOutside(L"near.qln", "near by");
    AddOutside(L"at.qln", "with an at-sign");
    EXPECT_EQ(RunToEnd(L"near.qln", Outside().Path()), 0U);
    EXPECT_TRUE(WaitForNote(Quillo(), L"near by").IsVisible());
    EXPECT_EQ(RunToEnd(L"@ \".\\at.qln \"", Outside().Path()), 0U);
    EXPECT_EQ(RunToEnd(L"@at.qln", Outside().Path()), 0U);
    EXPECT_TRUE(WaitForNote(Quillo(), L"with an at-sign").IsVisible());
}

TEST_F(SecondStart, FindsPathsOutsideTheCodePage) {
    Start();
    const std::wstring path = AddOutside(L"\u4ECA\u65E5 \u017C\u00F3\u0142w.qln", "far away");
    EXPECT_EQ(RunToEnd(L"\"" + path + L"\""), 0U);
    EXPECT_TRUE(WaitForNote(Quillo(), L"far away").IsVisible());
    EXPECT_FALSE(FileExists(path));
}

TEST_F(SecondStart, ANarrowSenderIsUnderstood) {
    Start();
    const std::wstring path = AddOutside(L"narrow \u00E9.qln", "sent narrowly");
    const std::string narrow = "@ " + std::string("\"") + [&path] {
        std::string bytes(path.size() * 2, '\0');
        const int length = WideCharToMultiByte(CP_ACP, 0, path.data(), static_cast<int>(path.size()), bytes.data(),
                                               static_cast<int>(bytes.size()), nullptr, nullptr);
        bytes.resize(static_cast<std::size_t>(length));
        return bytes;
    }() + "\" ";
    SendMessageA(FindChannel(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(narrow.c_str()));
    EXPECT_TRUE(FindNote(Quillo(), L"sent narrowly").IsVisible()) << "done by the time the sender continues";
    EXPECT_EQ(GetWindowTextLengthA(FindChannel()), 0) << "the box is empty again";

    SendMessageA(FindChannel(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>("/NEW"));
    EXPECT_EQ(NotesOf(Quillo()).size(), 3U);
    SendMessageA(FindChannel(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>("/CLOSE"));
    EXPECT_EQ(Quillo().WaitForExit(), 0U);
}

TEST_F(SecondStart, OpeningANoteThatIsOpenShowsIt) {
    Start();
    const std::wstring path = StorageCopies().at(0);
    EXPECT_EQ(RunToEnd(L"\"" + path + L"\""), 0U);
    EXPECT_TRUE(Quillo().WaitUntilReady());
    EXPECT_EQ(NotesOf(Quillo()).size(), 1U) << "never two notes on one file";
    EXPECT_TRUE(FileExists(path));
}

TEST_F(SecondStart, OpeningAFileSavesTheOtherNotes) {
    Start();
    const std::wstring own = StorageCopies().at(0);
    const NoteWindow note = FindNote(Quillo(), L"first");
    ASSERT_TRUE(note.TakeKeyboard());
    TypeText(L"!");
    ASSERT_TRUE(Eventually([&] { return note.Text() == L"first!"; }));
    EXPECT_EQ(RunToEnd(L"\"" + AddOutside(L"other.qln", "other") + L"\""), 0U);
    EXPECT_THAT(ReadBytes(own), ::testing::StartsWith("first!\r\n<quillo>"));
}

}  // namespace
}  // namespace quillo::e2e

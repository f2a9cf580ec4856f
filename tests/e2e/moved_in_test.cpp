#include "harness/e2e_test.h"

namespace quillo::e2e {
namespace {

using ::testing::MatchesRegex;

/// Files from outside the folder of notes.
class MovedIn : public OrdinaryTest {
  protected:
    void OpenOutside(const std::wstring& name) const { EXPECT_EQ(RunToEnd(L"\"" + (Outside() / name) + L"\""), 0U); }
};

TEST_F(MovedIn, AFileMovesIntoTheFolderOfNotes) {
    NoteFile file{"moving"};
    file.last = "<tempfilename>c:\\old.qln</tempfilename>";
    WriteBytes(Outside() / L"given.qln", file.Bytes());
    Start();
    OpenOutside(L"given.qln");
    EXPECT_TRUE(FindNote(Quillo(), L"moving").IsVisible());
    EXPECT_FALSE(FileExists(Outside() / L"given.qln"));
    const std::vector<std::wstring> names = FilesIn(Profile().NotesFolder());
    ASSERT_EQ(names.size(), 1U);
    ASSERT_EQ(names[0].size(), 42U);
    EXPECT_EQ(names[0].front(), L'{');
    EXPECT_EQ(names[0].substr(37), L"}.qln");
    EXPECT_EQ(ReadBytes(StorageCopies()[0]), NoteFile{"moving"}.Bytes());
}

TEST_F(MovedIn, APlainTextMovesInWithTheLooksOfANewNote) {
    WriteBytes(Outside() / L"plain.txt", "hello \xE9");
    Start();
    OpenOutside(L"plain.txt");
    EXPECT_TRUE(FindNote(Quillo(), L"hello \u00E9").IsVisible());
    EXPECT_FALSE(FileExists(Outside() / L"plain.txt"));
    ASSERT_EQ(StorageCopies().size(), 1U);
    EXPECT_THAT(ReadBytes(StorageCopies()[0]), ::testing::StartsWith("hello \xE9\r\n<quillo><position>"));
    EXPECT_THAT(ReadBytes(StorageCopies()[0]),
                ::testing::EndsWith("</position><appearance>False,False,14155262,3723262,0,0</appearance>"
                                    "<reminder></reminder><nodelete></nodelete></quillo>"));
}

TEST_F(MovedIn, AFileWithTheKeepMarkerStays) {
    const std::wstring path = Outside() / L"attachment.qln";
    WriteBytes(path, NoteFile{"kept"}.Bytes());
    const FileMark before = MarkOf(path);
    Start();
    OpenOutside(L"attachment.qln");
    EXPECT_TRUE(FindNote(Quillo(), L"kept").IsVisible());
    EXPECT_TRUE(MarkOf(path) == before);
    ASSERT_EQ(StorageCopies().size(), 1U);
    EXPECT_EQ(ReadBytes(StorageCopies()[0]), NoteFile{"kept"}.Bytes());
}

TEST_F(MovedIn, AnEmptyFileBecomesANoteOfItsName) {
    WriteBytes(Outside() / L"Shopping.list.txt", "");
    Start();
    OpenOutside(L"Shopping.list.txt");
    EXPECT_TRUE(FindNote(Quillo(), L"Shopping.list").IsVisible());
    EXPECT_FALSE(FileExists(Outside() / L"Shopping.list.txt"));
}

TEST_F(MovedIn, AnUnreadableFileStaysAndShowsNothing) {
    const std::wstring nul = Outside() / L"program.bin";
    WriteBytes(nul, std::string("MZ\0text", 7));
    const std::wstring locked = Outside() / L"locked.txt";
    WriteBytes(locked, "locked");
    const FileHandle lock(
        CreateFileW(locked.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(lock);
    CreateDirectoryW((Outside() / L"folder").c_str(), nullptr);
    Start();
    for (const wchar_t* name : {L"program.bin", L"locked.txt", L"folder", L"missing.txt", L"no\\such\\folder.txt"}) {
        OpenOutside(name);
        EXPECT_TRUE(Quillo().WaitUntilReady());
        EXPECT_EQ(NotesOf(Quillo()).size(), 0U);
        EXPECT_FALSE(MessageBoxWindow::Find(Quillo().Pid()));
    }
    EXPECT_EQ(ReadBytes(nul), std::string("MZ\0text", 7));
    EXPECT_TRUE(FileExists(locked));
    EXPECT_TRUE(FolderExists(Outside() / L"folder"));
    EXPECT_TRUE(StorageCopies().empty());
}

TEST_F(MovedIn, AnUnreadableFileInTheFolderOfNotesStaysToo) {
    const std::wstring nul = Profile().AddNote(L"no text.qln", std::string("a\0b", 3));
    const std::wstring locked = Profile().AddNote(L"locked.qln", "locked");
    Profile().AddNote(L"fine.qln", NoteFile{"fine"}.Bytes());
    {
        const FileHandle lock(
            CreateFileW(locked.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        Start();
        EXPECT_EQ(NotesOf(Quillo()).size(), 1U);
        Quit();
    }
    EXPECT_EQ(ReadBytes(nul), std::string("a\0b", 3));
    EXPECT_EQ(ReadBytes(locked), "locked");
}

TEST_F(MovedIn, AMovedFileClosesBackToItsOldPlace) {
    NoteFile file{"to and fro"};
    file.last = "<filename>c:\\elsewhere\\to and fro.qln</filename>";
    const std::wstring path = Outside() / L"To and Fro.qln";
    WriteBytes(path, file.Bytes());
    Start();
    OpenOutside(L"To and Fro.qln");
    const NoteWindow note = FindNote(Quillo(), L"to and fro");
    EXPECT_TRUE(Until([&] { return !note.Exists(); }, [&] { note.ClickButton(NoteButtonId::Close); }));
    ASSERT_TRUE(FileExists(path));
    const std::string bytes = ReadBytes(path);
    EXPECT_THAT(bytes, ::testing::StartsWith("to and fro\r\n<quillo>"));
    EXPECT_THAT(bytes, ::testing::HasSubstr("<filename>"));
    EXPECT_THAT(bytes, ::testing::Not(::testing::HasSubstr("<nodelete>")));
    EXPECT_TRUE(StorageCopies().empty());
}

TEST_F(MovedIn, EveryCharacterBeyondTheCodePageIsKept) {
    const std::wstring text = L"\u4ECA\u65E5 \u0416 \U0001F600 e\u0301";
    WriteBytes(Outside() / L"utf8.txt", "\xEF\xBB\xBF\xE4\xBB\x8A\xE6\x97\xA5 \xD0\x96 \xF0\x9F\x98\x80 e\xCC\x81");
    Start();
    OpenOutside(L"utf8.txt");
    EXPECT_TRUE(FindNote(Quillo(), text).IsVisible());
    EXPECT_FALSE(FileExists(Outside() / L"utf8.txt")) << "its note is stored with all that was read";
    ASSERT_EQ(StorageCopies().size(), 1U);
    EXPECT_THAT(ReadBytes(StorageCopies()[0]), ::testing::StartsWith("?? ? ?? e?\r\n<quillo>"));
    Quit();
    Start();
    EXPECT_TRUE(FindNote(Quillo(), text).IsVisible());
}

}  // namespace
}  // namespace quillo::e2e

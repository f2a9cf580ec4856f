#include "harness/disks.h"
#include "harness/e2e_test.h"
#include "harness/main_menu.h"
#include "harness/recycle_bin.h"
#include "platform/unique_handle.h"

namespace quillo::e2e {
namespace {

/// The disk refuses a note, and the note is not lost.
class DiskTrouble : public OrdinaryTest {
  protected:
    void SetUp() override {
        OrdinaryTest::SetUp();
        if (Profile().IsReady()) Profile().SetText(L"Note folder", Outside().Path());
    }
    static void PutBefore(const NoteWindow& note, const std::wstring& text) { note.Edit(0, 0, text); }
    void SaveAll() {
        DWORD_PTR agreed = 0;
        SendMessageTimeoutW(MainMenu(Quillo().Pid()).Handle(), WM_QUERYENDSESSION, 0, 0, SMTO_ABORTIFHUNG, 20'000,
                            &agreed);
        EXPECT_EQ(agreed, 1U);
    }
    [[nodiscard]] bool CloseNote(const std::wstring& text) {
        const NoteWindow note = FindNote(Quillo(), text);
        PostMessageW(note.Handle(), WM_CLOSE, 0, 0);
        return Eventually([&] { return !note.Exists(); });
    }
    bool FailureIsReported() {
        return Eventually([this] { return Quillo().HasShownBalloon(); });
    }
    /// The content of the only file in the note folder.
    [[nodiscard]] std::wstring RescuedText() {
        const std::vector<std::wstring> names = FilesIn(Outside().Path(), L".qln");
        EXPECT_EQ(names.size(), 1U);
        return names.size() == 1 ? TextOfFile(ReadBytes(Outside() / names[0])) : std::wstring();
    }
    [[nodiscard]] std::vector<std::wstring> Texts() {
        std::vector<std::wstring> texts;
        for (const NoteWindow& note : NotesOf(Quillo())) texts.push_back(note.Text());
        return texts;
    }
    static FileHandle Lock(const std::wstring& path, DWORD share) {
        return FileHandle(CreateFileW(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr));
    }
    static bool Holds(const std::wstring& path, const std::wstring& text) {
        return FileExists(path) && TextOfFile(ReadBytes(path)) == text;
    }
};

TEST_F(DiskTrouble, OnAFullDiskTheReserveIsUsed) {
    const DataOnTestDisk disk(L"QUILLO_SMALL_DISK");
    if (!disk.IsThere()) GTEST_SKIP() << disk.WhyNot();
    Start();
    EXPECT_EQ(RunToEnd(L"/new"), 0U);
    const NoteWindow note = WaitForNote(Quillo(), L"");
    PutBefore(note, L"precious");
    SaveAll();
    EXPECT_TRUE(FileExists(disk.MakersFolder() + L"\\Quillo.reserve"));
    disk.Fill();
    PutBefore(note, L"more ");
    const std::vector<std::wstring> names = FilesIn(disk.NotesFolder(), L".qln");
    ASSERT_EQ(names.size(), 1U);
    EXPECT_TRUE(Eventually([&] { return Holds(disk.NotesFolder() + L"\\" + names[0], L"more precious"); }));
    EXPECT_FALSE(Quillo().HasShownBalloon());
    Quit();
    EXPECT_TRUE(FilesIn(Outside().Path()).empty());
    disk.MakeRoom();
}

TEST_F(DiskTrouble, ANoteThatAFullDiskRefusesIsRescuedAndRestored) {
    const DataOnTestDisk disk(L"QUILLO_SMALL_DISK");
    if (!disk.IsThere()) GTEST_SKIP() << disk.WhyNot();
    Start();
    EXPECT_EQ(RunToEnd(L"/new"), 0U);
    const NoteWindow note = WaitForNote(Quillo(), L"");
    PutBefore(note, L"old");
    SaveAll();
    DeleteFileW((disk.MakersFolder() + L"\\Quillo.reserve").c_str());
    disk.Fill();
    const std::wstring large(9000, L'x');
    PutBefore(note, large);
    ASSERT_TRUE(FailureIsReported());
    Quit();
    EXPECT_EQ(RescuedText(), large + L"old");
    disk.MakeRoom();
    Start();
    EXPECT_EQ(Texts(), std::vector<std::wstring>{large + L"old"});
    EXPECT_TRUE(FilesIn(Outside().Path()).empty());
    const std::vector<std::wstring> names = FilesIn(disk.NotesFolder());
    ASSERT_EQ(names.size(), 1U);
    EXPECT_TRUE(Holds(disk.NotesFolder() + L"\\" + names[0], large + L"old"));
    Quit();
    disk.MakeRoom();
}

TEST_F(DiskTrouble, ANoteOfAWriteProtectedDiskIsRescued) {
    const DataOnTestDisk disk(L"QUILLO_PROTECTED_DISK");
    if (!disk.IsThere()) GTEST_SKIP() << disk.WhyNot();
    Start();
    ASSERT_EQ(Texts(), std::vector<std::wstring>{L"write-protected"});
    PutBefore(NotesOf(Quillo())[0], L"not ");
    ASSERT_TRUE(FailureIsReported());
    Quit();
    EXPECT_EQ(RescuedText(), L"not write-protected");
    // It cannot be restored to its place, so it is opened beside the old one, and stays a file.
    Start();
    std::vector<std::wstring> texts = Texts();
    EXPECT_THAT(texts, ::testing::UnorderedElementsAre(L"write-protected", L"not write-protected"));
    Quit();
    EXPECT_EQ(RescuedText(), L"not write-protected");
}

TEST_F(DiskTrouble, AVanishedNotesFolderIsCreatedAgain) {
    const std::wstring path = Profile().AddNote(L"note.qln", NoteFile{"precious"}.Bytes());
    Start();
    DeleteFileW(path.c_str());
    ASSERT_NE(RemoveDirectoryW(Profile().NotesFolder().c_str()), 0);
    PutBefore(FindNote(Quillo(), L"precious"), L"very ");
    EXPECT_TRUE(Eventually([&] { return Holds(path, L"very precious"); }));
}

TEST_F(DiskTrouble, AVanishedStorageCopyIsWrittenAgain) {
    const std::wstring path = Profile().AddNote(L"note.qln", NoteFile{"precious"}.Bytes());
    Start();
    DeleteFileW(path.c_str());
    SaveAll();
    EXPECT_TRUE(Holds(path, L"precious"));
    DeleteFileW(path.c_str());
    Quit();
    EXPECT_TRUE(Holds(path, L"precious"));
}

TEST_F(DiskTrouble, ANotesFolderThatAFileReplacedLosesNoText) {
    const std::wstring path = Profile().AddNote(L"note.qln", NoteFile{"precious"}.Bytes());
    Start();
    DeleteFileW(path.c_str());
    ASSERT_NE(RemoveDirectoryW(Profile().NotesFolder().c_str()), 0);
    WriteBytes(Profile().NotesFolder(), "in the way");
    PutBefore(FindNote(Quillo(), L"precious"), L"very ");
    ASSERT_TRUE(FailureIsReported());
    Quit();
    EXPECT_EQ(RescuedText(), L"very precious");
    DeleteFileW(Profile().NotesFolder().c_str());
    Start();
    EXPECT_EQ(Texts(), std::vector<std::wstring>{L"very precious"});
    EXPECT_TRUE(Holds(path, L"very precious"));
    EXPECT_TRUE(FilesIn(Outside().Path()).empty());
}

TEST_F(DiskTrouble, ANoteWhoseFileIsLockedAtTheEndIsRescuedAndRestored) {
    const std::wstring path = Profile().AddNote(L"note.qln", NoteFile{"precious"}.Bytes());
    Start();
    FileHandle lock = Lock(path, FILE_SHARE_READ);
    ASSERT_TRUE(lock);
    PutBefore(FindNote(Quillo(), L"precious"), L"very ");
    Quit();
    EXPECT_EQ(RescuedText(), L"very precious");
    EXPECT_EQ(FilesIn(Profile().NotesFolder()).size(), 1U) << "nothing is left beside the note";
    lock.Reset();
    for (int start = 0; start < 2; ++start) {
        Start();
        EXPECT_EQ(Texts(), std::vector<std::wstring>{L"very precious"});
        EXPECT_TRUE(Holds(path, L"very precious"));
        EXPECT_TRUE(FilesIn(Outside().Path()).empty());
        Quit();
    }
}

TEST_F(DiskTrouble, AClosedNoteWhoseCopyIsLockedStaysClosed) {
    const std::wstring path = Profile().AddNote(L"note.qln", NoteFile{"precious"}.Bytes());
    Start();
    FileHandle lock = Lock(path, FILE_SHARE_READ);
    ASSERT_TRUE(lock);
    ASSERT_TRUE(CloseNote(L"precious"));
    EXPECT_EQ(RescuedText(), L"precious");
    Quillo().Kill();
    lock.Reset();
    Start();
    EXPECT_TRUE(Texts().empty());
    EXPECT_FALSE(FileExists(path));
    EXPECT_EQ(RescuedText(), L"precious");
}

TEST_F(DiskTrouble, AClosedNoteWhoseCopyIsLockedDuringTheNextRunStaysClosed) {
    const std::wstring path = Profile().AddNote(L"note.qln", NoteFile{"precious"}.Bytes());
    Start();
    FileHandle lock = Lock(path, FILE_SHARE_READ);
    ASSERT_TRUE(lock);
    ASSERT_TRUE(CloseNote(L"precious"));
    Quit();
    Start();
    EXPECT_TRUE(Texts().empty());
    lock.Reset();
    Quit();
    EXPECT_FALSE(FileExists(path));
    EXPECT_EQ(RescuedText(), L"precious");
}

TEST_F(DiskTrouble, AFileThatIsLockedAtTheStartIsOpenedOnceItIsFree) {
    const std::wstring path = Profile().AddNote(L"note.qln", NoteFile{"precious"}.Bytes());
    Profile().AddNote(L"other.qln", NoteFile{"other"}.Bytes());
    FileHandle lock = Lock(path, 0);
    ASSERT_TRUE(lock);
    Start();
    EXPECT_EQ(Texts(), std::vector<std::wstring>{L"other"});
    lock.Reset();
    EXPECT_TRUE(WaitForNote(Quillo(), L"precious").IsVisible());
    EXPECT_EQ(Texts().size(), 2U);
}

TEST_F(DiskTrouble, LargeFilesDelayNoNote) {
    const std::string line = std::string(60, 'x') + "\r\n";
    std::string large;
    while (large.size() < 300'000) large += line;
    Profile().AddNote(L"a.qln", NoteFile{large}.Bytes());
    const std::wstring tooLarge = Profile().AddNote(L"b.qln", std::string(20'000'000, 'x'));
    const std::wstring huge = Profile().AddNote(L"c.qln", "x");
    {
        const FileHandle file(
            CreateFileW(huge.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        SetFilePointer(file.Get(), 100'000'000, nullptr, FILE_BEGIN);
        ASSERT_NE(SetEndOfFile(file.Get()), 0);
    }
    Profile().AddNote(L"d.qln", NoteFile{"small"}.Bytes());
    const std::uint64_t written = WriteTimeOf(tooLarge);
    Start();
    EXPECT_TRUE(FindNote(Quillo(), L"small").IsVisible());
    EXPECT_TRUE(Eventually([this] { return NotesOf(Quillo()).size() == 2; }));
    EXPECT_TRUE(Eventually([this] { return Quillo().HasShownBalloon(); })) << "the files left alone are named";
    EXPECT_THAT(Texts(), ::testing::UnorderedElementsAre(L"small", Widen(large)));
    Quit();
    EXPECT_EQ(WriteTimeOf(tooLarge), written);
    EXPECT_TRUE(FileExists(huge));
}

TEST_F(DiskTrouble, ANoteThatTheRecycleBinLosesStaysAFile) {
    const WithoutRecycleBin noBin;
    if (!noBin.Works()) GTEST_SKIP() << "the Recycle Bin cannot be taken away here";
    Profile().AddNote(L"note.qln", NoteFile{"precious"}.Bytes());
    Start();
    const NoteWindow note = FindNote(Quillo(), L"precious");
    ASSERT_TRUE(note.TakeKeyboard());
    PressKey('W', {VK_CONTROL, VK_SHIFT});
    ASSERT_TRUE(Eventually([&] { return !note.Exists(); }));
    EXPECT_TRUE(Eventually([this] { return Quillo().HasShownBalloon(); }));
    EXPECT_EQ(RescuedText(), L"precious");
    EXPECT_TRUE(StorageCopies().empty());
}

TEST_F(DiskTrouble, ANoteThatBeginsLikeADeviceCanBeClosed) {
    Profile().AddNote(L"note.qln", NoteFile{"Con: too expensive"}.Bytes());
    Start();
    ASSERT_TRUE(CloseNote(L"Con: too expensive"));
    EXPECT_EQ(RescuedText(), L"Con: too expensive");
    EXPECT_THAT(FilesIn(Outside().Path()), ::testing::ElementsAre(::testing::StartsWith(L"_Con")));
    EXPECT_TRUE(Quillo().Answers());
}

TEST_F(DiskTrouble, AFileThatCannotBeDeletedIsOpenedOnce) {
    const std::wstring path = Outside() / L"source.txt";
    WriteBytes(path, "from a file");
    Start();
    const FileHandle reader = Lock(path, FILE_SHARE_READ);
    ASSERT_TRUE(reader);
    for (int opening = 0; opening < 2; ++opening) {
        EXPECT_EQ(RunToEnd(L"\"" + path + L"\""), 0U);
        EXPECT_TRUE(WaitForNote(Quillo(), L"from a file").IsVisible());
        EXPECT_TRUE(Quillo().WaitUntilReady());
        EXPECT_EQ(Texts().size(), 1U);
        EXPECT_EQ(ReadBytes(path), "from a file");
    }
}

}  // namespace
}  // namespace quillo::e2e

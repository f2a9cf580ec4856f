#include <array>
#include <cstdio>
#include <filesystem>

#include "harness/e2e_test.h"
#include "platform/unique_handle.h"
#include "util/content_hash.h"

namespace quillo::e2e {
namespace {

/// A start after an earlier run that ended in the middle of a step.
class RecoveryAtStart : public OrdinaryTest {
  protected:
    void SetUp() override {
        OrdinaryTest::SetUp();
        if (Profile().IsReady()) Profile().SetText(L"Note folder", Outside().Path());
    }
    [[nodiscard]] std::wstring RecoveryFolder() const { return Profile().MakersFolder() + L"\\Recovery"; }
    [[nodiscard]] std::wstring InNotes(const std::wstring& name) const {
        return Profile().NotesFolder() + L"\\" + name;
    }
    void AddRecord(const std::wstring& name, const std::string& bytes) const {
        std::filesystem::create_directories(RecoveryFolder());
        WriteBytes(RecoveryFolder() + L"\\" + name, bytes);
    }
    /// The record of a note that is being moved from one file to another; the paths are ASCII.
    static std::string MoveRecord(const std::wstring& from, const std::string& fromBytes, const std::wstring& to,
                                  const std::string& toBytes) {
        std::array<char, 2 * 17> hashes{};
        std::snprintf(hashes.data(), 17, "%llx", static_cast<unsigned long long>(ContentHash(fromBytes)));
        std::snprintf(hashes.data() + 17, 17, "%llx", static_cast<unsigned long long>(ContentHash(toBytes)));
        return "Quillo recovery 1\r\nmove\r\n\r\n" + Narrow(from) + "\r\n" + hashes.data() + "\r\n" + Narrow(to) +
               "\r\n" + (hashes.data() + 17) + "\r\nend\r\n";
    }
    [[nodiscard]] std::vector<std::wstring> Texts() {
        std::vector<std::wstring> texts;
        for (const NoteWindow& note : NotesOf(Quillo())) texts.push_back(note.Text());
        return texts;
    }
};

TEST_F(RecoveryAtStart, ACompletePreparedStorageCopyIsUsed) {
    Profile().AddNote(L"a.qln.new", NoteFile{"never in its place"}.Bytes());
    Profile().AddNote(L"b.qln", NoteFile{"old"}.Bytes());
    // The times show which is newer; file systems round them.
    const std::wstring fresh = Profile().AddNote(L"b.qln.2.new", NoteFile{"new"}.Bytes());
    const FileHandle file(CreateFileW(fresh.c_str(), FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
    FILETIME later{};
    GetSystemTimeAsFileTime(&later);
    later.dwHighDateTime += 1;
    ASSERT_NE(SetFileTime(file.Get(), nullptr, nullptr, &later), 0);
    Start();
    EXPECT_THAT(Texts(), ::testing::UnorderedElementsAre(L"never in its place", L"new"));
    EXPECT_THAT(FilesIn(Profile().NotesFolder()), ::testing::ElementsAre(L"a.qln", L"b.qln", L"b.qln.old"));
    Quit();
    Start();
    EXPECT_THAT(FilesIn(Profile().NotesFolder()), ::testing::ElementsAre(L"a.qln", L"b.qln"))
        << "the older one is kept until the next start";
}

TEST_F(RecoveryAtStart, AnIncompletePreparedCopyIsRemoved) {
    const std::string bytes = NoteFile{"torn"}.Bytes();
    Profile().AddNote(L"a.qln.new", bytes.substr(0, bytes.size() - 1));
    Profile().AddNote(L"b.qln.new", "");
    Profile().AddNote(L"c.qln.new.txt", "not ours");
    Start();
    EXPECT_TRUE(Texts().empty());
    EXPECT_THAT(FilesIn(Profile().NotesFolder()), ::testing::ElementsAre(L"c.qln.new.txt"));
}

TEST_F(RecoveryAtStart, DamagedRecordsAreRemovedAndChangeNothing) {
    Profile().AddNote(L"note.qln", NoteFile{"precious"}.Bytes());
    const std::string whole = MoveRecord(InNotes(L"note.qln"), NoteFile{"precious"}.Bytes(), L"", "");
    AddRecord(L"empty.qlr", "");
    AddRecord(L"wild.qlr", std::string("\0\xFF\r\n", 4));
    for (std::size_t size = 1; size < whole.size(); size += 9) {
        AddRecord(std::to_wstring(size) + L".qlr", whole.substr(0, size));
    }
    Start();
    EXPECT_EQ(Texts(), std::vector<std::wstring>{L"precious"});
    EXPECT_TRUE(FilesIn(RecoveryFolder()).empty());
}

TEST_F(RecoveryAtStart, ANoteBeingMovedToAFileIsOnlyInThatFileAfterwards) {
    const std::string closed = NoteFile{"precious"}.Bytes();
    const std::wstring path = Outside() / L"precious.qln";
    WriteBytes(path, closed);
    const std::wstring copy = Profile().AddNote(L"note.qln", NoteFile{"precious"}.Bytes());
    AddRecord(L"1.qlr", MoveRecord(copy, NoteFile{"precious"}.Bytes(), path, closed));
    Start();
    EXPECT_TRUE(Texts().empty());
    EXPECT_FALSE(FileExists(copy));
    EXPECT_EQ(ReadBytes(path), closed);
    EXPECT_TRUE(FilesIn(RecoveryFolder()).empty());
}

TEST_F(RecoveryAtStart, ANoteThatHasChangedSinceItsRecordStays) {
    const std::wstring path = Outside() / L"precious.qln";
    WriteBytes(path, "precious");
    const std::wstring copy = Profile().AddNote(L"note.qln", NoteFile{"changed"}.Bytes());
    AddRecord(L"1.qlr", MoveRecord(copy, NoteFile{"precious"}.Bytes(), path, "precious"));
    Start();
    EXPECT_EQ(Texts(), std::vector<std::wstring>{L"changed"});
    EXPECT_EQ(ReadBytes(path), "precious");
    EXPECT_TRUE(FilesIn(RecoveryFolder()).empty());
}

TEST_F(RecoveryAtStart, ANoteBeingMovedFromAFileIsOpenOnce) {
    // The storage copy was prepared, but not moved to its place.
    const std::string source = "precious";
    const std::wstring path = Outside() / L"precious.txt";
    WriteBytes(path, source);
    const std::string stored = NoteFile{"precious"}.Bytes();
    Profile().AddNote(L"note.qln.new", stored);
    AddRecord(L"1.qlr", MoveRecord(path, source, InNotes(L"note.qln"), stored));
    Start();
    EXPECT_EQ(Texts(), std::vector<std::wstring>{L"precious"});
    EXPECT_FALSE(FileExists(path)) << "it would be a second note";
    EXPECT_EQ(ReadBytes(InNotes(L"note.qln")), stored);
}

}  // namespace
}  // namespace quillo::e2e

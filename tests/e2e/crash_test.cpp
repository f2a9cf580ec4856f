#include <array>
#include <random>
#include <thread>
#include <utility>
#include <vector>

#include "harness/e2e_test.h"
#include "harness/long_text.h"

namespace quillo::e2e {
namespace {

constexpr int kRounds = 20;
constexpr std::size_t kNotes = 4;

/// Reports that a file of a folder was created, written, renamed or deleted. A wait, not a poll: the writes are over in
/// a few milliseconds.
class FolderWatch {
  public:
    explicit FolderWatch(const std::wstring& folder)
        : change_(FindFirstChangeNotificationW(
              folder.c_str(), FALSE,
              FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_SIZE | FILE_NOTIFY_CHANGE_LAST_WRITE)) {
        EXPECT_NE(change_, INVALID_HANDLE_VALUE);
    }
    FolderWatch(FolderWatch&& other) noexcept : change_(std::exchange(other.change_, INVALID_HANDLE_VALUE)) {}
    FolderWatch& operator=(FolderWatch&&) = delete;
    ~FolderWatch() {
        if (change_ != INVALID_HANDLE_VALUE) FindCloseChangeNotification(change_);
    }

    /// Signaled by the first change.
    [[nodiscard]] HANDLE Change() const { return change_; }

  private:
    HANDLE change_;
};

/// Kills the program at random moments while notes are moved between the screen and their files.
class Crashes : public OrdinaryTest {
  protected:
    void SetUp() override {
        OrdinaryTest::SetUp();
        if (Profile().IsReady()) Profile().SetText(L"Note folder", Outside().Path());
    }

    static std::wstring NameOf(std::size_t number) { return L"note " + std::to_wstring(number) + L".qln"; }
    /// Two of them beside the other two, so that none covers the middle of another.
    static NoteFile FileOf(std::size_t number, char letter) {
        constexpr std::array<const char*, kNotes> kPlaces{"1500,1500,3000,2400", "6000,1500,3000,2400",
                                                          "1500,6000,3000,2400", "6000,6000,3000,2400"};
        NoteFile file{LongText(number, letter)};
        file.position = kPlaces[number];
        return file;
    }
    void AddNotes(char letter) const {
        for (std::size_t i = 0; i < kNotes; ++i) Profile().AddNote(NameOf(i), FileOf(i, letter).Bytes());
    }
    void RemoveAllFiles() const {
        for (const std::wstring& folder : {Profile().NotesFolder(), Outside().Path()}) {
            for (const std::wstring& name : FilesIn(folder)) DeleteFileW((folder + L"\\" + name).c_str());
        }
    }
    /// Begins to report changes in both folders.
    [[nodiscard]] std::vector<FolderWatch> WatchFolders() const {
        std::vector<FolderWatch> watches;
        watches.emplace_back(Profile().NotesFolder());
        watches.emplace_back(Outside().Path());
        return watches;
    }
    /// Kills the program shortly after the first change in one of the folders.
    void KillDuringTheNextWrites(const std::vector<FolderWatch>& watches) {
        constexpr int kLongestMicroseconds = 4'000;
        std::vector<HANDLE> changes;
        for (const FolderWatch& watch : watches) changes.push_back(watch.Change());
        constexpr auto kLongestWait = static_cast<DWORD>(std::chrono::milliseconds(kPatience).count());
        const DWORD changed =
            WaitForMultipleObjects(static_cast<DWORD>(changes.size()), changes.data(), FALSE, kLongestWait);
        EXPECT_LT(changed, WAIT_OBJECT_0 + changes.size()) << "nothing was written";
        std::uniform_int_distribution<int> microseconds(0, kLongestMicroseconds);
        const auto moment = std::chrono::steady_clock::now() + std::chrono::microseconds(microseconds(random_));
        while (std::chrono::steady_clock::now() < moment) {
        }
        Quillo().Kill();
    }
    /// The number of complete files, in both folders, with that text followed by the program's own data.
    [[nodiscard]] int WholeFilesWith(const std::string& text) const {
        int count = 0;
        for (const std::wstring& folder : {Profile().NotesFolder(), Outside().Path()}) {
            for (const std::wstring& name : FilesIn(folder, L".qln")) {
                const std::string bytes = ReadBytes(folder + L"\\" + name);
                const std::string end = "</quillo>";
                const bool whole = bytes.size() > end.size() && bytes.substr(bytes.size() - end.size()) == end;
                count += whole && bytes.rfind(text + "\r\n<quillo><position>", 0) == 0 ? 1 : 0;
            }
        }
        return count;
    }

  private:
    std::mt19937 random_{20261121};
};

TEST_F(Crashes, WhileNotesSaveThemselvesEveryFileStaysWhole) {
    AddNotes('a');
    int torn = 0;
    for (int round = 0; round < kRounds; ++round) {
        Start();
        ASSERT_EQ(Quillo().Notes().size(), kNotes);
        const char letter = static_cast<char>('b' + round);
        const std::vector<FolderWatch> watches = WatchFolders();
        for (const NoteWindow& note : NotesOf(Quillo())) {
            const auto number = static_cast<std::size_t>(note.Text().at(0) - L'0');
            const std::wstring text = Widen(LongText(number, letter));
            DWORD_PTR ignored = 0;
            SendMessageTimeoutW(note.TextBox(), EM_SETSEL, 0, -1, SMTO_ABORTIFHUNG, 20'000, &ignored);
            SendMessageTimeoutW(note.TextBox(), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text.c_str()),
                                SMTO_ABORTIFHUNG, 20'000, &ignored);
        }
        KillDuringTheNextWrites(watches);
        ASSERT_EQ(StorageCopies().size(), kNotes);
        int fresh = 0;
        for (std::size_t i = 0; i < kNotes; ++i) {
            const std::string bytes = ReadBytes(Profile().NotesFolder() + L"\\" + NameOf(i));
            ASSERT_GT(bytes.size(), 2U);
            ASSERT_TRUE(bytes == FileOf(i, bytes[1]).Bytes()) << "a torn file after round " << round;
            fresh += bytes[1] == letter ? 1 : 0;
        }
        torn += fresh > 0 && fresh < static_cast<int>(kNotes) ? 1 : 0;
    }
    RecordProperty("rounds_interrupted", torn);
}

TEST_F(Crashes, WhileNotesAreClosedNoneIsLost) {
    int interrupted = 0;
    for (int round = 0; round < kRounds; ++round) {
        RemoveAllFiles();
        AddNotes('a');
        Start();
        ASSERT_EQ(Quillo().Notes().size(), kNotes);
        const std::vector<FolderWatch> watches = WatchFolders();
        for (const NoteWindow& note : NotesOf(Quillo())) PostMessageW(note.Handle(), WM_CLOSE, 0, 0);
        KillDuringTheNextWrites(watches);
        interrupted += StorageCopies().empty() ? 0 : 1;
        for (std::size_t i = 0; i < kNotes; ++i) {
            EXPECT_GE(WholeFilesWith(LongText(i, 'a')), 1) << "note " << i << " is lost after round " << round;
        }
    }
    RecordProperty("rounds_interrupted", interrupted);
}

TEST_F(Crashes, WhileAFileIsOpenedItIsNotLost) {
    const std::wstring path = Outside() / L"closed.qln";
    for (int round = 0; round < kRounds; ++round) {
        RemoveAllFiles();
        NoteFile file = FileOf(0, 'a');
        file.last = "<tempfilename>" + Narrow(path) + "</tempfilename>";
        WriteBytes(path, file.Bytes());
        Start();
        const std::vector<FolderWatch> watches = WatchFolders();
        const std::wstring command = L"@ \"" + path + L"\" ";
        std::thread sender([command] {
            DWORD_PTR ignored = 0;
            SendMessageTimeoutW(FindChannel(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(command.c_str()),
                                SMTO_ABORTIFHUNG, 20'000, &ignored);
        });
        KillDuringTheNextWrites(watches);
        sender.join();
        EXPECT_GE(WholeFilesWith(LongText(0, 'a')), 1) << "lost after round " << round;
    }
}

}  // namespace
}  // namespace quillo::e2e

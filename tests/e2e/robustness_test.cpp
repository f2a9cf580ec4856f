#include <atomic>
#include <map>
#include <random>
#include <set>
#include <thread>

#include "harness/e2e_test.h"
#include "harness/long_text.h"
#include "harness/main_menu.h"

namespace quillo::e2e {
namespace {

class Robustness : public OrdinaryTest {
  protected:
    static constexpr std::size_t kMostNotes = 50;

    static std::wstring NameOf(std::size_t number) { return L"note " + std::to_wstring(number) + L".qln"; }
    void AddNotes(std::size_t count) const {
        for (std::size_t i = 0; i < count; ++i) {
            Profile().AddNote(NameOf(i), NoteFile{"note " + std::to_string(i)}.Bytes());
        }
    }
    /// A fingerprint of the folder of notes; it changes as soon as a save begins.
    [[nodiscard]] std::vector<std::uint64_t> FolderState() const {
        std::vector<std::uint64_t> state{FilesIn(Profile().NotesFolder()).size()};
        for (const std::wstring& path : StorageCopies()) state.push_back(WriteTimeOf(path));
        return state;
    }
    static void PutBefore(const NoteWindow& note, const std::wstring& text) { note.Edit(0, 0, text); }
};

TEST_F(Robustness, OfFiftyOneFilesFiftyAreOpenedAndOneIsNotChanged) {
    AddNotes(kMostNotes + 1);
    std::map<std::wstring, FileMark> before;
    for (const std::wstring& path : StorageCopies()) before[path] = MarkOf(path);
    Start();
    EXPECT_EQ(VisibleNotes(Quillo()), kMostNotes);
    EXPECT_TRUE(Quillo().HasShownBalloon());
    EXPECT_FALSE(MessageBoxWindow::Find(Quillo().Pid()));

    WriteBytes(Outside() / L"one more.txt", "one more");
    EXPECT_EQ(RunToEnd(Outside() / L"one more.txt"), 0U);
    EXPECT_EQ(RunToEnd(L"/new"), 0U);
    EXPECT_TRUE(Quillo().WaitUntilReady());
    EXPECT_EQ(Quillo().Notes().size(), kMostNotes);
    EXPECT_EQ(ReadBytes(Outside() / L"one more.txt"), "one more");

    std::set<std::wstring> texts;
    for (const NoteWindow& note : NotesOf(Quillo())) texts.insert(note.Text());
    EXPECT_EQ(texts.size(), kMostNotes) << "no file is opened twice";
    Quit();
    EXPECT_EQ(StorageCopies().size(), kMostNotes + 1);
    for (const auto& [path, mark] : before) EXPECT_TRUE(MarkOf(path) == mark);
}

TEST_F(Robustness, FiftyFilesAreOpenedWithoutABalloon) {
    AddNotes(kMostNotes);
    Start();
    EXPECT_EQ(VisibleNotes(Quillo()), kMostNotes);
    EXPECT_FALSE(Quillo().HasShownBalloon());
}

TEST_F(Robustness, WithoutBalloonHelpTheFiftyFirstIsNotReported) {
    Profile().SetNumber(L"Disable balloon help", 1);
    AddNotes(kMostNotes + 1);
    Start();
    EXPECT_EQ(VisibleNotes(Quillo()), kMostNotes);
    EXPECT_FALSE(Quillo().HasShownBalloon());
}

TEST_F(Robustness, TheEndOfTheSessionSavesTheNotes) {
    AddNotes(2);
    Start();
    PutBefore(FindNote(Quillo(), L"note 0"), L"changed ");
    HWND form = MainMenu(Quillo().Pid()).Handle();
    DWORD_PTR agreed = 0;
    ASSERT_NE(SendMessageTimeoutW(form, WM_QUERYENDSESSION, 0, 0, SMTO_ABORTIFHUNG, 20'000, &agreed), 0);
    EXPECT_EQ(agreed, 1U);
    EXPECT_EQ(ReadBytes(Profile().NotesFolder() + L"\\" + NameOf(0)), NoteFile{"changed note 0"}.Bytes())
        << "saved before the session may end";
    PutBefore(FindNote(Quillo(), L"changed note 0"), L"once more ");
    SendMessageTimeoutW(form, WM_ENDSESSION, TRUE, 0, SMTO_ABORTIFHUNG, 20'000, &agreed);
    EXPECT_EQ(ReadBytes(Profile().NotesFolder() + L"\\" + NameOf(0)), NoteFile{"once more changed note 0"}.Bytes());
    EXPECT_EQ(ReadBytes(Profile().NotesFolder() + L"\\" + NameOf(1)), NoteFile{"note 1"}.Bytes());
    EXPECT_EQ(Quillo().WaitForExit(), 0U);
}

TEST_F(Robustness, ASessionThatDoesNotEndKeepsTheProgram) {
    AddNotes(1);
    Start();
    HWND form = MainMenu(Quillo().Pid()).Handle();
    DWORD_PTR agreed = 0;
    SendMessageTimeoutW(form, WM_QUERYENDSESSION, 0, 0, SMTO_ABORTIFHUNG, 20'000, &agreed);
    SendMessageTimeoutW(form, WM_ENDSESSION, FALSE, 0, SMTO_ABORTIFHUNG, 20'000, &agreed);
    EXPECT_TRUE(Quillo().WaitUntilReady());
    EXPECT_EQ(VisibleNotes(Quillo()), 1U);
}

TEST_F(Robustness, APowerFailureDuringASaveLeavesEveryFileWhole) {
    constexpr int kRounds = 10;
    constexpr std::size_t kNotes = 4;
    for (std::size_t i = 0; i < kNotes; ++i) {
        Profile().AddNote(NameOf(i), NoteFile{LongText(i, 'a')}.Bytes());
    }
    std::mt19937 random(20261121);
    std::uniform_int_distribution<int> microseconds(0, 3'000);
    int interrupted = 0;
    for (int round = 0; round < kRounds; ++round) {
        Start();
        ASSERT_EQ(Quillo().Notes().size(), kNotes);
        for (const NoteWindow& note : NotesOf(Quillo())) {
            const auto number = static_cast<std::size_t>(note.Text().at(0) - L'0');
            const std::wstring text = Widen(LongText(number, static_cast<char>('b' + round)));
            note.Edit(0, -1, text);
        }
        const auto latest = std::chrono::steady_clock::now() + std::chrono::seconds(1);
        // The power fails during the save.
        const auto before = FolderState();
        PostMessageW(MainMenu(Quillo().Pid()).Handle(), WM_QUERYENDSESSION, 0, 0);
        while (FolderState() == before && std::chrono::steady_clock::now() < latest) {
        }
        const auto moment = std::chrono::steady_clock::now() + std::chrono::microseconds(microseconds(random));
        while (std::chrono::steady_clock::now() < moment) {
        }
        Quillo().Kill();

        ASSERT_EQ(StorageCopies().size(), kNotes);
        std::set<char> generations;
        for (std::size_t i = 0; i < kNotes; ++i) {
            const std::string bytes = ReadBytes(Profile().NotesFolder() + L"\\" + NameOf(i));
            ASSERT_GT(bytes.size(), 2U);
            ASSERT_TRUE(bytes == NoteFile{LongText(i, bytes[1])}.Bytes()) << "a torn file after round " << round;
            generations.insert(bytes[1]);
        }
        interrupted += generations.size() > 1 ? 1 : 0;
    }
    RecordProperty("saves_interrupted", interrupted);
}

TEST_F(Robustness, AReaderOfTheFileDoesNotLoseTheText) {
    // A virus scanner or a backup has the file open briefly, just when the note is saved.
    AddNotes(1);
    const std::wstring path = StorageCopies().at(0);
    Start();
    PutBefore(FindNote(Quillo(), L"note 0"), L"precious ");
    FileHandle reader(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(reader);
    const auto before = FolderState();
    std::atomic<bool> saved{false};
    std::thread saving([this, &saved] {
        DWORD_PTR ignored = 0;
        SendMessageTimeoutW(MainMenu(Quillo().Pid()).Handle(), WM_QUERYENDSESSION, 0, 0, SMTO_ABORTIFHUNG, 20'000,
                            &ignored);
        saved = true;
    });
    EXPECT_TRUE(Eventually([&] { return FolderState() != before || saved; }));
    reader.Reset();
    saving.join();
    Quit();
    EXPECT_EQ(ReadBytes(path), NoteFile{"precious note 0"}.Bytes());
    EXPECT_EQ(FilesIn(Profile().NotesFolder()).size(), 1U) << "nothing is left beside the note";
}

TEST_F(Robustness, ThousandsOfLinesAndRandomBytesDoNotDisturbIt) {
    std::string wild;
    for (int i = 1; i < 256; ++i) wild += static_cast<char>(i);
    Profile().AddNote(L"wild.qln", wild);
    Profile().AddNote(L"tags.qln", "<quillo><quillo></quillo></quillo><quillo>" + wild + "</quillo>");
    Profile().AddNote(L"lines.qln", std::string(20'000, '\n'));
    Profile().AddNote(L"numbers.qln", NoteFile{"numbers", "1e30,-1e30,1e30,-1e30", "5,-7,1e99,x,,-9"}.Bytes());
    Start();
    EXPECT_EQ(NotesOf(Quillo()).size(), 4U);
    EXPECT_TRUE(Quillo().Answers());
    EXPECT_EQ(RunToEnd(L"/new"), 0U);
    EXPECT_EQ(NotesOf(Quillo()).size(), 5U);
}

}  // namespace
}  // namespace quillo::e2e

#include <algorithm>
#include <atomic>
#include <thread>

#include "harness/console_program.h"
#include "harness/e2e_test.h"
#include "harness/user_path.h"

namespace quillo::e2e {
namespace {

/// The console program beside a running Quillo.
class Console : public OrdinaryTest {
  protected:
    void Qln(const std::wstring& arguments, unsigned long code) {
        run_ = RunQln(arguments);
        EXPECT_EQ(run_.code, code) << Narrow(arguments) << "\n" << run_.out << run_.error;
    }
    /// The first path that the last run has printed.
    std::wstring MadePath() const { return Widen(run_.out.substr(0, run_.out.find('\n'))); }

    ConsoleRun run_;
};

TEST_F(Console, NewWithEveryOptionAppearsOnTheScreen) {
    Start();
    Qln(L"new Buy caf\u00E9 \u65E5 --color red --remind \"in 2 hours\"", 0);
    EXPECT_EQ(run_.error.substr(0, 10), "Reminder: ") << run_.error;
    const NoteWindow note = WaitForNote(Quillo(), L"Buy caf\u00E9 \u65E5");
    EXPECT_TRUE(note.IsVisible());
    EXPECT_TRUE(Eventually([&] { return note.TextBackground() == RGB(0xA7, 0x1D, 0x23); }));
    EXPECT_TRUE(FileExists(MadePath()));

    Qln(L"new unseen --hidden", 0);
    EXPECT_FALSE(WaitForNote(Quillo(), L"unseen").IsVisible());
    EXPECT_EQ(StorageCopies().size(), 2U);
    Qln(L"list", 0);
    EXPECT_NE(run_.out.find("Buy caf\u00E9"), std::string::npos) << run_.out;
    EXPECT_NE(run_.out.find("hidden"), std::string::npos) << run_.out;
    Quit();
    EXPECT_EQ(StorageCopies().size(), 2U) << "the notes have kept the files that were made for them";
}

TEST_F(Console, NewHasTheTimeStampThatTheSettingsAskFor) {
    Profile().SetNumber(L"Timestamp new notes", 0xFFFFFFFF);
    Qln(L"new stamped", 0);
    EXPECT_NE(run_.error.find("next start"), std::string::npos);
    Start();
    const NoteWindow note = NotesOf(Quillo()).at(0);
    const std::wstring text = note.Text();
    EXPECT_EQ(text.front(), L'(') << Narrow(text);
    EXPECT_NE(text.find(L")\r\n\r\nstamped"), std::wstring::npos) << Narrow(text);
    Quit();
}

TEST_F(Console, FindSeesTextThatWasJustTyped) {
    Profile().AddNote(L"note.qln", NoteFile{"draft"}.Bytes());
    Start();
    const NoteWindow note = FindNote(Quillo(), L"draft");
    note.Edit(5, 5, L" about \u00C4pfel");
    EXPECT_TRUE(Eventually([] { return RunQln(L"find APFEL draft").code == 0; }));
    Qln(L"find pears", 1);
    Quit();
}

TEST_F(Console, OpenMovesAFileInAndQuitEndsTheProgram) {
    Start();
    const std::wstring path = Outside() / L"a file.txt";
    WriteBytes(path, "from outside");
    Qln(L"open \"" + path + L"\"", 0);
    EXPECT_TRUE(WaitForNote(Quillo(), L"from outside").IsVisible());
    Qln(L"quit", 0);
    EXPECT_EQ(Quillo().WaitForExit(), 0U);
    Qln(L"quit", 3);
}

TEST_F(Console, StartStartsTheProgramThatShowsTheNote) {
    Qln(L"new started --start", 0);
    ASSERT_TRUE(Eventually([] { return FindChannel() != nullptr; }));
    DWORD process = 0;
    GetWindowThreadProcessId(FindChannel(), &process);
    const auto isShown = [](HWND window) {
        const NoteWindow note(window);
        return note.IsVisible() && note.TextBox() != nullptr && note.Text() == L"started";
    };
    EXPECT_TRUE(Eventually([&] {
        const std::vector<HWND> windows = WindowsOf(process);
        return std::any_of(windows.begin(), windows.end(), isShown);
    }));
    Qln(L"quit", 0);
    EXPECT_TRUE(Eventually([] { return FindChannel() == nullptr; }));
}

TEST_F(Console, DoctorRepairsAFolderFullOfDamage) {
    Profile().AddNote(L"a-sound.qln", NoteFile{"sound"}.Bytes());
    const std::wstring torn = Profile().AddNote(L"b-torn.qln", "torn\r\n<quillo><position>1,2");
    Profile().AddNote(L"c-empty.qln", "");
    Profile().AddNote(L"d.qln-part", "half");
    Profile().AddNote(L"e-nulls.qln", std::string("a\0b", 3));
    Qln(L"doctor", 1);
    Qln(L"doctor --repair", 0);
    EXPECT_EQ(FilesIn(Profile().NotesFolder()),
              (std::vector<std::wstring>{L"a-sound.qln", L"b-torn.qln", L"e-nulls.qln"}));
    Start();
    EXPECT_TRUE(WaitForNote(Quillo(), L"torn").IsVisible());
    EXPECT_TRUE(WaitForNote(Quillo(), L"sound").IsVisible());
    EXPECT_EQ(NotesOf(Quillo()).size(), 2U);
    WriteBytes(Profile().NotesFolder() + L"\\f.qln", "again\r\n<quillo><pos");
    Qln(L"doctor --repair", 3);
    EXPECT_EQ(ReadBytes(Profile().NotesFolder() + L"\\f.qln"), "again\r\n<quillo><pos") << "not while the program runs";
    Quit();
}

TEST_F(Console, RestoreWhileTheProgramRunsShowsTheNotes) {
    Profile().AddNote(L"one.qln", NoteFile{"one"}.Bytes());
    const std::wstring two = Profile().AddNote(L"two.qln", NoteFile{"two"}.Bytes());
    Qln(L"backup \"" + Outside().Path() + L"\"", 0);
    const std::wstring backup = MadePath();
    ASSERT_TRUE(DeleteFileW(two.c_str()));
    Start();
    Qln(L"restore \"" + backup + L"\"", 0);
    EXPECT_TRUE(WaitForNote(Quillo(), L"two").IsVisible());
    EXPECT_EQ(ReadBytes(two), NoteFile{"two"}.Bytes());
    EXPECT_EQ(NotesOf(Quillo()).size(), 2U);
    Quit();
}

TEST_F(Console, APathOfFiveThousandCharactersKeepsEverythingAndItsType) {
    const UserPath restored;
    std::wstring path = L"%USERPROFILE%\\bin;";
    while (path.size() < 5000) path += L"C:\\Tools\\folder" + std::to_wstring(path.size()) + L";";
    for (const DWORD type : {REG_EXPAND_SZ, REG_SZ}) {
        UserPath::Write({path, type});
        Qln(L"--internal-path add user \"C:\\Program Files\\Quillo\"", 0);
        EXPECT_TRUE((UserPath::Read() == UserPath::Value{path + L"C:\\Program Files\\Quillo", type}))
            << Narrow(UserPath::Read().text);
        Qln(L"--internal-path add user \"c:\\program files\\quillo\\\\\"", 0);
        EXPECT_TRUE((UserPath::Read() == UserPath::Value{path + L"C:\\Program Files\\Quillo", type}))
            << "it is there already";
        Qln(L"--internal-path remove user \"C:\\Program Files\\Quillo\"", 0);
        EXPECT_TRUE((UserPath::Read() == UserPath::Value{path.substr(0, path.size() - 1), type}))
            << Narrow(UserPath::Read().text);
    }
}

TEST_F(Console, APathWithNoOtherEntryIsDeletedAgain) {
    const UserPath restored;
    UserPath::Write({});
    Qln(L"--internal-path add user C:\\Quillo", 0);
    EXPECT_TRUE((UserPath::Read() == UserPath::Value{L"C:\\Quillo", REG_EXPAND_SZ}));
    Qln(L"--internal-path remove user C:\\Quillo", 0);
    EXPECT_TRUE(UserPath::Read() == UserPath::Value{});
}

/// Changes fifty notes twenty times while another process lists them continuously.
TEST_F(Console, AThousandSavesSucceedWhileTheNotesAreListed) {
    constexpr int kNotes = 50;
    constexpr int kRounds = 20;
    std::vector<std::wstring> paths;
    for (int i = 0; i < kNotes; ++i) {
        paths.push_back(
            Profile().AddNote(L"n" + std::to_wstring(i) + L".qln", NoteFile{"n" + std::to_string(i)}.Bytes()));
    }
    Start();
    std::atomic<bool> done{false};
    std::atomic<int> lists{0};
    std::atomic<int> failures{0};
    std::thread lister([&] {
        while (!done) {
            if (RunQln(L"list").code != 0) ++failures;
            ++lists;
        }
    });
    const std::vector<NoteWindow> notes = NotesOf(Quillo());
    EXPECT_EQ(notes.size(), static_cast<std::size_t>(kNotes));
    int saved = 0;
    for (int round = 0; round < kRounds; ++round) {
        const std::string mark = "round " + std::to_string(round) + " ";
        for (const NoteWindow& note : notes) note.Edit(0, 0, Widen(mark));
        for (const std::wstring& path : paths) {
            const bool arrived = Eventually([&] { return ReadBytes(path).substr(0, mark.size()) == mark; });
            saved += arrived ? 1 : 0;
        }
    }
    done = true;
    lister.join();
    EXPECT_EQ(saved, kNotes * kRounds);
    EXPECT_EQ(failures, 0);
    EXPECT_GT(lists, 0);
    RecordProperty("lists", lists);
    Quit();
}

}  // namespace
}  // namespace quillo::e2e

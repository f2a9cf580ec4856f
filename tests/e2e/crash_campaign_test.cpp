#include <cstdlib>
#include <iostream>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <thread>

#include "harness/e2e_test.h"
#include "harness/known_note.h"
#include "harness/main_menu.h"

namespace quillo::e2e {
namespace {

unsigned NumberFromEnvironment(const char* name, unsigned usual) {
    const char* text = std::getenv(name);
    return text != nullptr ? static_cast<unsigned>(std::strtoul(text, nullptr, 10)) : usual;
}

struct Findings {
    int lost = 0;
    int doubled = 0;
    int torn = 0;
    int leftOver = 0;
    int cameBack = 0;  ///< deleted and in the Recycle Bin, but open again
};

/// Kills the program again and again while notes are created, edited, moved, minimized, closed, opened and deleted.
/// QUILLO_CRASH_KILLS is the number of kills, QUILLO_CRASH_SEED the random seed.
class CrashCampaign : public OrdinaryTest {
  protected:
    static constexpr std::size_t kFewestNotes = 4;
    static constexpr std::size_t kMostNotes = 9;
    static constexpr std::chrono::milliseconds kAWhile{2000};
    /// A change is on the disk five seconds later; the rest is for a busy machine.
    static constexpr std::chrono::seconds kStoredAfter{9};

    void SetUp() override {
        OrdinaryTest::SetUp();
        Profile().SetText(L"Note folder", Outside().Path());
        Profile().SetNumber(L"Disable animation", 1);
        Profile().SetNumber(L"Disable balloon help", 1);
        if (const char* home = std::getenv("QUILLO_TEST_HOME")) bin_ = Widen(home) + L"\\.local\\share\\Trash";
        EmptyBin();
    }

    unsigned Any(unsigned below) { return std::uniform_int_distribution<unsigned>(0, below - 1)(random_); }
    bool OneIn(unsigned times) { return Any(times) == 0; }

    // The notes and their texts.

    std::wstring Filler() {
        static constexpr const wchar_t* kWords[] = {L"milk ",
                                                    L"\u00e9t\u00e9 ",
                                                    L"\u0394\u03ad\u03bb\u03c4\u03b1 ",
                                                    L"\u0416\u0443\u043a ",
                                                    L"\u65e5\u672c ",
                                                    L"\xd83d\xde00 ",
                                                    L"e\u0301 ",
                                                    L"\xd83d. ",
                                                    L"<quillo></quillo> ",
                                                    L"line\r\n"};
        std::wstring text;
        const unsigned words = OneIn(10) ? 3000 : Any(12);
        for (unsigned i = 0; i < words; ++i) text += kWords[Any(std::size(kWords))];
        return text + L"end";
    }
    /// The next version of that note's text; the note may contain it from now on.
    const std::wstring& NextText(int number) {
        KnownNote& note = notes_[number];
        note.versions.push_back(
            {L"note " + std::to_wstring(number) + L"." + std::to_wstring(++texts_) + L" " + Filler(), Moment::max()});
        return note.versions.back().text;
    }
    void HasArrived(int number) { notes_[number].versions.back().written = std::chrono::steady_clock::now(); }
    void IsStored(int number) { notes_[number].stored = notes_[number].versions.size() - 1; }

    [[nodiscard]] std::vector<std::pair<int, NoteWindow>> OpenNotes() {
        std::vector<std::pair<int, NoteWindow>> open;
        for (const NoteWindow& note : NotesOf(Quillo())) {
            if (const auto number = NumberOf(note.Text())) open.emplace_back(*number, note);
        }
        return open;
    }
    [[nodiscard]] std::wstring AnyClosedFile() {
        const std::vector<std::wstring> files = FilesIn(Outside().Path(), L".qln");
        return files.empty() ? L"" : Outside() / files.at(Any(static_cast<unsigned>(files.size())));
    }

    // The actions. False if the program has ended meanwhile.

    static bool Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        constexpr UINT kLongest = 10'000;
        DWORD_PTR ignored = 0;
        return SendMessageTimeoutW(window, message, wParam, lParam, SMTO_ABORTIFHUNG, kLongest, &ignored) != 0;
    }
    bool Command(const std::wstring& command) {
        return Send(FindChannel(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(command.c_str()));
    }
    bool Write(int number, HWND box) {
        const std::wstring text = NextText(number);
        const bool done =
            Send(box, EM_SETSEL, 0, -1) && Send(box, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text.c_str()));
        if (done) HasArrived(number);
        return done;
    }
    void MakeNote() {
        if (!Command(L"/new")) return;
        for (const NoteWindow& note : NotesOf(Quillo())) {
            if (note.Exists() && note.Text().empty()) {
                Write(++numbers_, note.TextBox());
                return;
            }
        }
    }
    void OpenAClosedNote() {
        const std::wstring path = AnyClosedFile();
        if (path.empty()) return MakeNote();
        const auto number = NumberOf(TextOfFile(ReadBytes(path)));
        if (Command(L"@ \"" + path + L"\" ") && number) IsStored(*number);
    }
    static void Close(const NoteWindow& note) { PostMessageW(note.Handle(), WM_CLOSE, 0, 0); }
    /// Clicks the close button with the Shift key held.
    void ThrowAway(int number, const NoteWindow& note) {
        HWND button = GetDlgItem(note.Handle(), static_cast<int>(NoteButtonId::Close));
        if (bin_.empty() || button == nullptr) return Close(note);
        notes_[number].deleted = true;
        const LPARAM middle = MAKELPARAM(Px(5), Px(5));
        PostMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, middle);
        PostMessageW(button, WM_LBUTTONUP, MK_SHIFT, middle);
    }
    void Move(const NoteWindow& note) {
        SetWindowPos(note.Handle(), nullptr, static_cast<int>(Any(900)), static_cast<int>(Any(500)),
                     150 + static_cast<int>(Any(200)), 120 + static_cast<int>(Any(200)),
                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_ASYNCWINDOWPOS);
    }
    /// Opening a stored note again gives it the focus.
    void MinimizeOne() {
        const std::vector<std::wstring> copies = StorageCopies();
        if (copies.empty()) return;
        if (!Command(L"@ \"" + copies.at(Any(static_cast<unsigned>(copies.size()))) + L"\" ")) return;
        const auto hasKeyboard = [this] {
            for (const NoteWindow& note : NotesOf(Quillo())) {
                if (note.HasKeyboard()) return true;
            }
            return !Quillo().IsRunning();
        };
        if (Eventually(hasKeyboard, kAWhile)) PressKey('M', {VK_CONTROL});
    }
    void Act() {
        const auto open = OpenNotes();
        if (open.size() < kFewestNotes) return OneIn(2) ? MakeNote() : OpenAClosedNote();
        const auto& [number, note] = open.at(Any(static_cast<unsigned>(open.size())));
        switch (open.size() >= kMostNotes ? 6 + Any(3) : Any(10)) {
            case 0:
                return MakeNote();
            case 1:
                return OpenAClosedNote();
            case 2:
                return Move(note);
            case 3:
                return MinimizeOne();
            case 6:
            case 7:
                return Close(note);
            case 8:
                return ThrowAway(number, note);
            default:
                for (unsigned i = Any(5); Quillo().IsRunning(); --i) {
                    if (!Write(number, note.TextBox()) || i == 0) return;
                }
        }
    }
    /// Several actions that write files, all at once.
    void ActAtOnce() {
        const auto open = OpenNotes();
        const unsigned what = Any(5);
        for (const auto& [number, note] : open) {
            if (what == 0 || OneIn(3)) {
                Close(note);
            } else if (what == 1 || OneIn(4)) {
                ThrowAway(number, note);
            } else if (what != 4) {
                Write(number, note.TextBox());
            }
        }
        if (what == 2) PostMessageW(MainMenu(Quillo().Pid()).Handle(), WM_QUERYENDSESSION, 0, 0);
        if (what == 3) PostMessageW(MainMenu(Quillo().Pid()).Handle(), WM_ENDSESSION, TRUE, 0);
        if (what == 4) OpenAClosedNote();
    }

    // The kills.

    void KillAt(Moment moment) {
        killer_ = std::thread([this, moment] {
            std::this_thread::sleep_until(moment);
            killed_ = std::chrono::steady_clock::now();
            Quillo().Kill();
        });
    }
    [[nodiscard]] std::vector<std::uint64_t> FolderState() const {
        std::vector<std::uint64_t> state;
        for (const std::wstring& folder : Folders()) {
            const std::vector<std::wstring> names = FilesIn(folder);
            state.push_back(names.size());
            for (const std::wstring& name : names) state.push_back(WriteTimeOf(folder + L"\\" + name));
        }
        return state;
    }
    [[nodiscard]] std::vector<std::wstring> Folders() const {
        return {Profile().NotesFolder(), Outside().Path(), Profile().MakersFolder() + L"\\Recovery"};
    }
    /// Kills it a few milliseconds after the folders have begun to change.
    void KillDuringWrites() {
        const auto before = FolderState();
        const Moment latest = std::chrono::steady_clock::now() + std::chrono::milliseconds(300);
        const std::chrono::microseconds after(Any(12'000));
        std::thread actor([this] { ActAtOnce(); });
        while (FolderState() == before && std::chrono::steady_clock::now() < latest) {
        }
        KillAt(std::chrono::steady_clock::now() + after);
        actor.join();
        killer_.join();
    }
    void KillAnyTime() {
        const unsigned milliseconds = OneIn(25) ? 9'000 + Any(3'000) : Any(1'200);
        KillAt(std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds));
        while (Quillo().IsRunning()) Act();
        killer_.join();
    }
    /// Kills it in the middle of a start, which finishes the steps of the last run.
    void KillAStart() {
        QuilloProcess starting;
        std::this_thread::sleep_for(std::chrono::milliseconds(Any(500)));
        starting.Kill();
        ++kills_;
    }
    void OneRound() {
        killed_ = Moment::max();
        if (OneIn(2)) {
            KillAnyTime();
        } else {
            for (unsigned i = 1 + Any(3); i > 0; --i) Act();
            KillDuringWrites();
        }
        ++kills_;
        for (auto& [number, note] : notes_) {
            for (std::size_t i = 0; i < note.versions.size(); ++i) {
                const Moment written = note.versions[i].written;
                if (written < Moment::max() && killed_ > written + kStoredAfter) note.stored = i;
            }
        }
        LookForTornFiles();
        while (OneIn(4)) KillAStart();
        LookForTornFiles();
    }

    // The results.

    void Report(int& count, const std::string& what) {
        ++count;
        std::cout << "kill " << kills_ << ": " << what << std::endl;
        for (const std::wstring& folder : Folders()) {
            for (const std::wstring& name : FilesIn(folder))
                std::cout << "    " << Narrow(folder + L"\\" + name) << "\n";
        }
    }
    void LookForTornFiles() {
        for (const std::wstring& folder : {Profile().NotesFolder(), Outside().Path()}) {
            for (const std::wstring& name : FilesIn(folder, L".qln")) {
                if (!IsWhole(ReadBytes(folder + L"\\" + name))) Report(findings_.torn, "torn file " + Narrow(name));
            }
        }
    }
    void LookForLeftOvers() {
        for (const std::wstring& folder : Folders()) {
            for (const std::wstring& name : FilesIn(folder)) {
                const bool note = name.size() > 4 && name.substr(name.size() - 4) == L".qln";
                // A storage copy that was replaced by a newer one is kept until the next start.
                const bool replaced = name.size() > 4 && name.substr(name.size() - 4) == L".old";
                if (!note && !(replaced && folder == Profile().NotesFolder() && oldCopies_.insert(name).second)) {
                    Report(findings_.leftOver, "left over: " + Narrow(folder + L"\\" + name));
                }
            }
        }
    }
    void AddFiles(const std::wstring& folder, std::vector<std::wstring> Places::*list, std::map<int, Places>& found) {
        for (const std::wstring& name : FilesIn(folder)) {
            const std::wstring text = TextOfFile(ReadBytes(folder + L"\\" + name));
            if (const auto number = NumberOf(text)) (found[*number].*list).push_back(text);
        }
    }
    void EmptyBin() const {
        if (bin_.empty()) return;
        for (const wchar_t* part : {L"\\files", L"\\info"}) {
            for (const std::wstring& name : FilesIn(bin_ + part)) DeleteFileW((bin_ + part + L"\\" + name).c_str());
        }
    }
    /// Examines every note after a start, and takes the result as the new baseline.
    void TakeStock() {
        std::map<int, Places> found;
        for (const NoteWindow& note : NotesOf(Quillo())) {
            const std::wstring text = note.Text();
            const auto number = NumberOf(text);
            if (number) found[*number].open.push_back(text);
            if (!number && !text.empty()) Report(findings_.torn, "unknown text " + Narrow(text.substr(0, 60)));
        }
        AddFiles(Outside().Path(), &Places::closed, found);
        if (!bin_.empty()) AddFiles(bin_ + L"\\files", &Places::recycled, found);
        for (auto note = notes_.begin(); note != notes_.end();) {
            note = Check(note->first, note->second, found[note->first]) ? std::next(note) : notes_.erase(note);
        }
        LookForLeftOvers();
        EmptyBin();
    }
    /// False for a note that no longer exists.
    bool Check(int number, KnownNote& note, const Places& places) {
        const std::string name = "note " + std::to_string(number);
        std::vector<std::wstring> alive = places.open;
        alive.insert(alive.end(), places.closed.begin(), places.closed.end());
        for (const std::vector<std::wstring>& list : {alive, places.recycled}) {
            for (const std::wstring& text : list) {
                if (!note.MayHold(text)) Report(findings_.lost, name + " has lost text: " + Narrow(text.substr(0, 40)));
            }
        }
        if (alive.size() > 1) Report(findings_.doubled, name + " is there " + std::to_string(alive.size()) + " times");
        if (alive.empty() && places.recycled.empty() && note.stored) Report(findings_.lost, name + " is lost");
        if (alive.empty() && !places.recycled.empty() && !note.deleted) Report(findings_.lost, name + " was recycled");
        if (!alive.empty() && !places.recycled.empty()) ++findings_.cameBack;
        if (alive.empty()) return false;
        note = KnownNote{{{alive.front(), Moment::max()}}, 0U, false};
        return true;
    }

    std::mt19937 random_;
    std::map<int, KnownNote> notes_;
    Findings findings_;
    std::wstring bin_;  ///< the folder of the Recycle Bin; "" if the tests cannot find it, and then delete nothing
    std::set<std::wstring> oldCopies_;
    std::thread killer_;
    Moment killed_;
    unsigned kills_ = 0;
    int numbers_ = 0;
    int texts_ = 0;
};

TEST_F(CrashCampaign, NoKillLosesANote) {
    const unsigned kills = NumberFromEnvironment("QUILLO_CRASH_KILLS", 20);
    const unsigned seed = NumberFromEnvironment("QUILLO_CRASH_SEED", 20261122);
    std::cout << "QUILLO_CRASH_SEED=" << seed << " QUILLO_CRASH_KILLS=" << kills << std::endl;
    random_.seed(seed);
    Start();
    while (kills_ < kills) {
        OneRound();
        ASSERT_NO_FATAL_FAILURE(Start());
        TakeStock();
    }
    std::cout << "kills " << kills_ << ", notes made " << numbers_ << ", texts written " << texts_ << ", lost "
              << findings_.lost << ", doubled " << findings_.doubled << ", torn " << findings_.torn << ", left over "
              << findings_.leftOver << ", recycled and back " << findings_.cameBack << std::endl;
    EXPECT_EQ(findings_.lost, 0);
    EXPECT_EQ(findings_.doubled, 0);
    EXPECT_EQ(findings_.torn, 0);
    EXPECT_EQ(findings_.leftOver, 0);
}

}  // namespace
}  // namespace quillo::e2e

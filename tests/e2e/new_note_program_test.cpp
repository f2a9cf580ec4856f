#include <filesystem>

#include "harness/crash_watch.h"
#include "harness/e2e_test.h"

namespace quillo::e2e {
namespace {

/// quillo-new.exe, which a shortcut or a key starts.
class NewNoteProgram : public OrdinaryTest {
  protected:
    /// One run of it. The destructor ends the processes that it has started.
    class Run {
      public:
        explicit Run(const std::filesystem::path& folder)
            : process_(watch_.Start(L"\"" + (folder / L"quillo-new.exe").wstring() + L"\"", L"")) {}
        Run(const Run&) = delete;
        Run& operator=(const Run&) = delete;
        ~Run() {
            if (process_) TerminateProcess(process_.Get(), 1);
        }
        [[nodiscard]] DWORD Pid() const { return GetProcessId(process_.Get()); }
        [[nodiscard]] std::optional<DWORD> ExitCode() const {
            if (WaitForSingleObject(process_.Get(), kPatienceMilliseconds) != WAIT_OBJECT_0) return std::nullopt;
            DWORD code = 0;
            GetExitCodeProcess(process_.Get(), &code);
            return code;
        }
        [[nodiscard]] std::string Crash() const { return watch_.Crash(); }

      private:
        static constexpr DWORD kPatienceMilliseconds = 30'000;
        CrashWatch watch_;
        KernelHandle process_;
    };

    [[nodiscard]] static std::filesystem::path ProgramFolder() {
        return std::filesystem::path(QuilloExe()).parent_path();
    }
    /// The visible notes of the running program, regardless of who started it.
    [[nodiscard]] static std::size_t NotesOnTheScreen() {
        DWORD process = 0;
        GetWindowThreadProcessId(FindChannel(), &process);
        std::size_t notes = 0;
        for (HWND window : WindowsOf(process)) {
            if (ClassOf(window) == L"QuilloNote" && IsWindowVisible(window) != 0) ++notes;
        }
        return notes;
    }
};

TEST_F(NewNoteProgram, AsksTheRunningProgram) {
    Profile().AddNote(L"note.qln", NoteFile{"first"}.Bytes());
    Start();
    const Run run(ProgramFolder());
    EXPECT_EQ(run.ExitCode(), 0U);
    EXPECT_EQ(run.Crash(), "");
    EXPECT_TRUE(Eventually([&] { return VisibleNotes(Quillo()) == 2; }));
}

TEST_F(NewNoteProgram, StartsTheProgramFirstWhenNoneRuns) {
    Profile().AddNote(L"note.qln", NoteFile{"first"}.Bytes());
    const Run run(ProgramFolder());
    EXPECT_EQ(run.ExitCode(), 0U);
    ASSERT_NE(FindChannel(), nullptr);
    EXPECT_TRUE(Eventually([] { return NotesOnTheScreen() == 2; })) << "the old note and the new one";
    DWORD process = 0;
    GetWindowThreadProcessId(FindChannel(), &process);
    EXPECT_FALSE(MessageBoxWindow::Find(process)) << "the command was not called unknown";
    EXPECT_EQ(RunToEnd(L"/close"), 0U);
    EXPECT_TRUE(Eventually([] { return FindChannel() == nullptr; }));
}

TEST_F(NewNoteProgram, ReportsAMissingProgramInItsFolder) {
    std::filesystem::copy_file(ProgramFolder() / L"quillo-new.exe", Outside() / L"quillo-new.exe");
    const Run run(Outside().Path());
    const auto message = MessageBoxWindow::WaitFor(run.Pid());
    ASSERT_TRUE(message);
    EXPECT_EQ(message->Title(), L"Quillo");
    EXPECT_EQ(message->Text(), L"Quillo could not be started. Install it again.");
    EXPECT_TRUE(message->Answer(IDOK));
    EXPECT_EQ(run.ExitCode(), 1U);
}

}  // namespace
}  // namespace quillo::e2e

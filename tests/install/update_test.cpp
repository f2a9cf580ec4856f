#include "install_fixture.h"

namespace quillo::e2e {
namespace {

class Updating : public InstallTest {};

TEST_F(Updating, OverTheRunningProgramLosesNothing) {
    Profile().AddNote(L"note.qln", NoteFile{"mine"}.Bytes());
    Install(1);
    const DWORD before = RunningProgram();
    // Typed a moment ago, and not saved yet.
    NoteWindow(NotesOnTheScreen().at(0)).Edit(0, 0, L"this is ");
    EXPECT_EQ(Setup(NewSetup()), 0U);
    ASSERT_TRUE(ShowsNotes(1)) << "what ran is started again";
    EXPECT_NE(RunningProgram(), before);
    EXPECT_EQ(NoteWindow(NotesOnTheScreen().at(0)).Text(), L"this is mine");
    EXPECT_TRUE(IsNew());
    ExpectNoLeftovers();
    EXPECT_EQ(UserText(kUninstallKey, L"DisplayVersion"), kNewVersion);
}

TEST_F(Updating, SilentlyStartsNothingThatDidNotRun) {
    ASSERT_EQ(Setup(OldSetup(), L"/NOSTART"), 0U);
    EXPECT_EQ(Setup(NewSetup()), 0U);
    EXPECT_TRUE(IsNew());
    EXPECT_EQ(FindChannel(), nullptr);
}

TEST_F(Updating, EndsAProgramThatRunsFromElsewhere) {
    const std::filesystem::path copy = Outside() / L"quillo.exe";
    std::filesystem::copy_file(QuilloExe(), copy);
    Start(L"\"" + copy.wstring() + L"\"");
    ASSERT_TRUE(ShowsNotes(0));
    Install(0);
    EXPECT_EQ(RunningFile(), Folder() / L"quillo.exe");
}

TEST_F(Updating, ToAnOlderVersionIsRefusedUnlessTheUserWantsIt) {
    ASSERT_EQ(Setup(NewSetup(), L"/NOSTART"), 0U);
    EXPECT_EQ(Setup(OldSetup(), L"/NOSTART"), 3U);
    EXPECT_TRUE(IsNew());

    Family& asking = Start(L"\"" + OldSetup() + L"\" /NOSTART");
    const auto question = MessageBoxWindow::WaitFor(asking.Pid());
    ASSERT_TRUE(question);
    EXPECT_NE(question->Text().find(L"99.0.0 is installed, which is newer"), std::wstring::npos);
    EXPECT_TRUE(question->Answer(IDNO));
    EXPECT_EQ(asking.ExitCode(), 3U);
    EXPECT_TRUE(IsNew());
}

}  // namespace
}  // namespace quillo::e2e

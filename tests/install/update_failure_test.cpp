#include <array>

#include "harness/window_text.h"
#include "install_fixture.h"

namespace quillo::e2e {
namespace {

/// After a failed update the old program is unchanged, and it works.
class FailingUpdate : public InstallTest {
  protected:
    void SetUp() override {
        InstallTest::SetUp();
        if (HasFatalFailure()) return;
        Profile().AddNote(L"note.qln", NoteFile{"mine"}.Bytes());
        Install(1);
    }
    /// Nothing has changed, and the program shows its note.
    void ExpectTheOldProgram() {
        EXPECT_FALSE(IsNew());
        ExpectNoLeftovers();
        EXPECT_NE(UserText(kUninstallKey, L"DisplayVersion"), kNewVersion);
        EXPECT_TRUE(ShowsNotes(1));
    }
    /// Opens an installed file as another program does.
    [[nodiscard]] FileHandle Hold(const wchar_t* file, DWORD sharing) const {
        FileHandle held(
            CreateFileW(Installed(file).c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0, nullptr));
        EXPECT_TRUE(held);
        return held;
    }
    /// Whether any process of the installed program is running: the system then denies writing to the file.
    [[nodiscard]] bool IsRunning() const {
        const FileHandle file(CreateFileW(Installed(L"quillo.exe").c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                          OPEN_EXISTING, 0, nullptr));
        return !file;
    }
    /// A visible dialog of the process other than this one; null if there is none.
    [[nodiscard]] static HWND VisibleDialog(DWORD process, HWND butNot) {
        for (HWND window : WindowsOf(process)) {
            if (window != butNot && IsWindowVisible(window) != 0 && ClassOf(window) == L"#32770") return window;
        }
        return nullptr;
    }
};

TEST_F(FailingUpdate, AProgramThatDoesNotEndIsNotChanged) {
    {
        const Suspension hung(RunningProgram());
        EXPECT_EQ(Setup(NewSetup(), L"/WAIT=1"), 2U);
    }
    // It ends now, because it was asked to; a program that was not replaced is started again.
    EXPECT_TRUE(Eventually([] { return FindChannel() == nullptr; }));
    StartInstalled(1);
    ExpectTheOldProgram();
}

TEST_F(FailingUpdate, AsksWhetherToTryAgain) {
    CloseInstalled();
    FileHandle held = Hold(L"Quillo.chm", 0);
    Family& setup = Start(L"\"" + NewSetup() + L"\" /WAIT=0");
    HWND page = nullptr;
    ASSERT_TRUE(Eventually([&] {
        page = VisibleDialog(setup.Pid(), nullptr);
        return page != nullptr && GetDlgItem(page, IDOK) != nullptr;
    }));
    PostMessageW(page, WM_COMMAND, IDOK, 0);
    for (const WORD answer : {WORD{IDRETRY}, WORD{IDCANCEL}}) {
        HWND question = nullptr;
        ASSERT_TRUE(Eventually([&] {
            question = VisibleDialog(setup.Pid(), page);
            return question != nullptr && GetDlgItem(question, answer) != nullptr;
        }));
        constexpr int kTextOfAMessageBox = 65535;
        EXPECT_NE(WindowText(GetDlgItem(question, kTextOfAMessageBox)).find(L"is using the file Quillo.chm"),
                  std::wstring::npos);
        PostMessageW(question, WM_COMMAND, answer, 0);
        ASSERT_TRUE(Eventually([question] { return IsWindow(question) == 0; }));
    }
    EXPECT_EQ(setup.ExitCode(), 2U);
    held.Reset();
    StartInstalled(1);
    ExpectTheOldProgram();
}

TEST_F(FailingUpdate, AFileThatIsInUseStaysAndTheProgramIsStartedAgain) {
    FileHandle held = Hold(L"Quillo.chm", 0);
    // Long enough for the program to end on a busy machine: only a program that has ended is started again.
    EXPECT_EQ(Setup(NewSetup(), L"/WAIT=8"), 2U);
    held.Reset();
    ExpectTheOldProgram();
}

TEST_F(FailingUpdate, AFileThatCannotBeReplacedRestoresTheOthers) {
    // The other program allows writing, but not replacing the file; Quillo.chm has been replaced by then.
    FileHandle held = Hold(L"Reminder.wma", FILE_SHARE_READ | FILE_SHARE_WRITE);
    EXPECT_EQ(Setup(NewSetup()), 7U);
    held.Reset();
    ExpectTheOldProgram();
}

TEST_F(FailingUpdate, TwoUpdatesCannotRunAtOnce) {
    const FileHandle held = Hold(L"Quillo.chm", 0);
    Start(L"\"" + NewSetup() + L"\" /S");
    ASSERT_TRUE(Eventually([] { return FindChannel() == nullptr; })) << "it waits for the file now";
    EXPECT_EQ(Setup(NewSetup()), 6U);
}

TEST_F(FailingUpdate, KilledWhileItWaitsKeepsTheOldProgram) {
    {
        const FileHandle held = Hold(L"Quillo.chm", 0);
        Family& setup = Start(L"\"" + NewSetup() + L"\" /S");
        ASSERT_TRUE(Eventually([] { return FindChannel() == nullptr; }));
        setup.Kill();
    }
    EXPECT_FALSE(IsNew());
    ASSERT_TRUE(Eventually([&] { return !IsRunning(); }));
    StartInstalled(1);
    EXPECT_EQ(Setup(NewSetup()), 0U) << "what the killed one has left does not disturb the next";
    EXPECT_TRUE(IsNew());
    ExpectNoLeftovers();
    EXPECT_TRUE(ShowsNotes(1));
}

TEST_F(FailingUpdate, KilledBetweenTwoFilesLeavesAWorkingProgram) {
    CloseInstalled();
    // From the first copy of an old file until the last one is in place.
    for (const wchar_t* moment : {L"~old\\uninstall.exe", L"~old\\Quillo.chm", L"~old\\quillo.exe"}) {
        ASSERT_EQ(Setup(OldSetup(), L"/NOSTART"), 0U);
        Family& setup = Start(L"\"" + NewSetup() + L"\" /S /NOSTART");
        ASSERT_TRUE(Eventually([&] { return FileExists(Installed(moment)) || setup.ExitCode({}) == 0U; }));
        setup.Kill();
        // Complete, of one version or the other; so are all the others.
        const std::string program = ReadBytes(Installed(L"quillo.exe"));
        const std::string old = ReadBytes(QuilloExe());
        EXPECT_TRUE(program == old || program == old + kNewMark);
        for (const std::wstring& file : ShippedFiles()) EXPECT_TRUE(FileExists(Installed(file)));
        StartInstalled(1);
        CloseInstalled();
        RegDeleteKeyValueW(HKEY_CURRENT_USER, kUninstallKey,
                           L"DisplayVersion");  // the old one may be put over it again
    }
    EXPECT_EQ(Setup(NewSetup(), L"/NOSTART"), 0U);
    EXPECT_TRUE(IsNew());
    ExpectNoLeftovers();
}

/// Runs on the disk that check_full_disk.sh makes.
class FullDisk : public InstallTest {
  protected:
    void SetUp() override {
        std::array<wchar_t, 64> disk{};
        const DWORD length =
            GetEnvironmentVariableW(L"QUILLO_INSTALL_DISK", disk.data(), static_cast<DWORD>(disk.size()));
        ASSERT_GT(length, 0U) << "run it by scripts/check_full_disk.sh";
        disk_ = disk.data();
        InstallTest::SetUp();
        UseFolder(disk_ + L"\\Quillo");
    }
    /// Leaves this much free space on the disk.
    void Fill(std::uintmax_t room) const {
        const std::uintmax_t free = std::filesystem::space(disk_ + L"\\").available;
        ASSERT_GT(free, room);
        WriteBytes(disk_ + L"\\full", std::string(static_cast<std::size_t>(free - room), 'x'));
    }

    std::wstring disk_;
};

TEST_F(FullDisk, AnUpdateThatDoesNotFitKeepsTheOldProgram) {
    Profile().AddNote(L"note.qln", NoteFile{"mine"}.Bytes());
    Install(1);
    constexpr std::uintmax_t kTooLittle = 500'000;
    Fill(kTooLittle);
    EXPECT_EQ(Setup(NewSetup()), 4U);
    EXPECT_FALSE(IsNew());
    ExpectNoLeftovers();
    EXPECT_TRUE(ShowsNotes(1)) << "it was not even closed";
    std::filesystem::remove(disk_ + L"\\full");
    EXPECT_EQ(Setup(NewSetup()), 0U);
    EXPECT_TRUE(IsNew());
}

}  // namespace
}  // namespace quillo::e2e

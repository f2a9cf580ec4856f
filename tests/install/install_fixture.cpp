#include "install_fixture.h"

#include <system_error>

namespace quillo::e2e {

void InstallTest::SetUp() {
    ASSERT_TRUE(Profile().IsReady());
    ASSERT_FALSE(HasUserKey(kUninstallKey)) << "A Quillo is installed here. Remove it first.";
    ASSERT_TRUE(FileExists(OldSetup())) << "Build the target quillo_test_setups.";
    Profile().UseOrdinarySettings();
}

void InstallTest::TearDown() {
    if (!Profile().IsReady()) return;
    families_.clear();
    std::error_code ignored;
    EXPECT_TRUE(Eventually([&] {
        std::filesystem::remove_all(folder_, ignored);
        return !std::filesystem::exists(folder_);
    }));
    for (const wchar_t* key :
         {kUninstallKey, kExtensionKey, kTypeKey, kAppIdKey, L"Software\\Classes\\Applications\\quillo.exe",
          L"Software\\Marrowind\\Quillo Capabilities"}) {
        RegDeleteTreeW(HKEY_CURRENT_USER, key);
    }
    RegDeleteKeyValueW(HKEY_CURRENT_USER, L"Software\\RegisteredApplications", L"Quillo");
    for (const wchar_t* link : {L"Quillo.lnk", L"Quillo - new note.lnk"}) {
        std::filesystem::remove(StartMenu() / link, ignored);
    }
}

Family& InstallTest::Start(const std::wstring& commandLine) {
    return *families_.emplace_back(std::make_unique<Family>(commandLine));
}

std::optional<DWORD> InstallTest::Setup(const std::wstring& setup, const std::wstring& options) {
    std::wstring line = L"\"" + setup + L"\" /S " + options;
    if (folder_ != UsualFolder()) line += L" /D=" + folder_.wstring();
    return Start(line).ExitCode();
}

bool InstallTest::ShowsNotes(std::size_t number) {
    return Eventually([number] { return FindChannel() != nullptr && NotesOnTheScreen().size() == number; });
}

void InstallTest::Install(std::size_t notes, const std::wstring& options) {
    ASSERT_EQ(Setup(OldSetup(), options), 0U);
    ASSERT_TRUE(ShowsNotes(notes));
}

void InstallTest::StartInstalled(std::size_t notes) {
    Start(L"\"" + Installed(L"quillo.exe") + L"\"");
    ASSERT_TRUE(ShowsNotes(notes));
}

void InstallTest::CloseInstalled() {
    const KernelHandle program(OpenProcess(SYNCHRONIZE, FALSE, RunningProgram()));
    EXPECT_EQ(Start(L"\"" + Installed(L"quillo.exe") + L"\" /close").ExitCode(), 0U);
    constexpr DWORD kMilliseconds = 20'000;
    EXPECT_EQ(WaitForSingleObject(program.Get(), kMilliseconds), WAIT_OBJECT_0);
}

void InstallTest::Remove(const std::wstring& options) {
    // It continues as a copy of itself, because it could not delete its own file.
    Start(L"\"" + Installed(L"uninstall.exe") + L"\" /S " + options);
    EXPECT_TRUE(Eventually([&] { return !std::filesystem::exists(folder_) && !HasUserKey(kUninstallKey); }));
    // It may still be deleting values; it has ended when the mutex of a running setup is gone.
    EXPECT_TRUE(Eventually([] {
        const KernelHandle mark(OpenMutexW(SYNCHRONIZE, FALSE, L"Local\\Quillo-setup"));
        return !mark;
    }));
}

bool InstallTest::IsNew() const {
    std::size_t marked = 0;
    const std::vector<std::wstring> files = ShippedFiles();
    for (const std::wstring& file : files) {
        const std::string bytes = ReadBytes(Installed(file));
        EXPECT_FALSE(bytes.empty()) << std::filesystem::path(file);
        if (bytes.ends_with(kNewMark)) ++marked;
    }
    EXPECT_TRUE(marked == 0 || marked == files.size()) << marked << " of " << files.size() << " files are new";
    return marked > 0;
}

void InstallTest::ExpectNoLeftovers() const {
    EXPECT_FALSE(FolderExists(Installed(L"~new")));
    EXPECT_FALSE(FolderExists(Installed(L"~old")));
}

}  // namespace quillo::e2e

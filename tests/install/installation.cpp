#include "installation.h"

#include <gtest/gtest.h>

#include <array>

#include "harness/eventually.h"
#include "harness/quillo_process.h"

// After windows.h.
#include <shlobj.h>

namespace quillo::e2e {
namespace {

constexpr DWORD kMost = 4096;

std::filesystem::path TestFolder() {
    std::array<wchar_t, kMost> path{};
    GetModuleFileNameW(nullptr, path.data(), kMost);
    return std::filesystem::path(path.data()).parent_path();
}

std::filesystem::path KnownFolder(const KNOWNFOLDERID& id) {
    PWSTR found = nullptr;
    EXPECT_EQ(SHGetKnownFolderPath(id, KF_FLAG_CREATE, nullptr, &found), S_OK);
    std::filesystem::path path = found != nullptr ? found : L"";
    CoTaskMemFree(found);
    return path;
}

/// A function of ntdll that suspends or resumes a process.
using HoldFunction = LONG(WINAPI*)(HANDLE);
HoldFunction FindHold(const char* name) {
    return reinterpret_cast<HoldFunction>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), name)));
}

}  // namespace

std::optional<std::wstring> UserText(const std::wstring& key, const std::wstring& name) {
    std::array<wchar_t, kMost> text{};
    DWORD size = sizeof text;
    const LSTATUS got =
        RegGetValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, text.data(), &size);
    return got == ERROR_SUCCESS ? std::optional<std::wstring>(text.data()) : std::nullopt;
}

std::optional<std::uint32_t> UserNumber(const std::wstring& key, const std::wstring& name) {
    DWORD number = 0;
    DWORD size = sizeof number;
    const LSTATUS got =
        RegGetValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str(), RRF_RT_REG_DWORD, nullptr, &number, &size);
    return got == ERROR_SUCCESS ? std::optional<std::uint32_t>(number) : std::nullopt;
}

void SetUserText(const std::wstring& key, const std::wstring& name, const std::wstring& text) {
    EXPECT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str(), REG_SZ, text.c_str(),
                              static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))),
              ERROR_SUCCESS);
}

bool HasUserKey(const std::wstring& key) {
    HKEY opened = nullptr;
    const bool there = RegOpenKeyExW(HKEY_CURRENT_USER, key.c_str(), 0, KEY_READ, &opened) == ERROR_SUCCESS;
    const RegistryKeyHandle owned(opened);
    return there;
}

Family::Family(const std::wstring& commandLine) : job_(CreateJobObjectW(nullptr, nullptr)) {
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job_.Get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
    std::wstring line = commandLine;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    // Under Wine a process now and then does not start.
    const bool done = e2e::Eventually(
        [&] {
            return CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr, nullptr,
                                  &startup, &started) != 0;
        },
        std::chrono::seconds(5));
    if (!done) {
        ADD_FAILURE() << "cannot start " << std::filesystem::path(commandLine);
        return;
    }
    AssignProcessToJobObject(job_.Get(), started.hProcess);
    ResumeThread(started.hThread);
    CloseHandle(started.hThread);
    process_.Reset(started.hProcess);
}

std::optional<DWORD> Family::ExitCode(std::chrono::milliseconds patience) const {
    if (!process_) return std::nullopt;
    if (WaitForSingleObject(process_.Get(), static_cast<DWORD>(patience.count())) != WAIT_OBJECT_0) return std::nullopt;
    DWORD code = 0;
    GetExitCodeProcess(process_.Get(), &code);
    return code;
}

void Family::Kill() const {
    constexpr UINT kKilled = 137;
    TerminateProcess(process_.Get(), kKilled);
    WaitForSingleObject(process_.Get(), INFINITE);
}

Suspension::Suspension(DWORD process) : process_(OpenProcess(PROCESS_SUSPEND_RESUME, FALSE, process)) {
    EXPECT_EQ(FindHold("NtSuspendProcess")(process_.Get()), 0);
}

Suspension::~Suspension() {
    EXPECT_EQ(FindHold("NtResumeProcess")(process_.Get()), 0);
}

DWORD RunningProgram() {
    DWORD process = 0;
    HWND box = FindChannel();
    if (box != nullptr) GetWindowThreadProcessId(box, &process);
    return process;
}

std::filesystem::path RunningFile() {
    const KernelHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, RunningProgram()));
    std::array<wchar_t, kMost> path{};
    DWORD length = kMost;
    QueryFullProcessImageNameW(process.Get(), 0, path.data(), &length);
    return path.data();
}

std::vector<HWND> NotesOnTheScreen() {
    std::vector<HWND> notes;
    for (HWND window : WindowsOf(RunningProgram())) {
        if (ClassOf(window) == L"QuilloNote" && IsWindowVisible(window) != 0) notes.push_back(window);
    }
    return notes;
}

std::wstring OldSetup() {
    return (TestFolder() / L"setups" / L"old-setup.exe").wstring();
}

std::wstring NewSetup() {
    return (TestFolder() / L"setups" / L"new-setup.exe").wstring();
}

std::filesystem::path UsualFolder() {
    return KnownFolder(FOLDERID_LocalAppData) / L"Programs" / L"Quillo";
}

std::filesystem::path StartMenu() {
    return KnownFolder(FOLDERID_Programs);
}

std::vector<std::wstring> ShippedFiles() {
    std::vector<std::wstring> files;
    for (const auto& entry : std::filesystem::directory_iterator(TestFolder() / L"setups" / L"old stage")) {
        files.push_back(entry.path().filename().wstring());
    }
    return files;
}

}  // namespace quillo::e2e

#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "harness/eventually.h"
#include "platform/unique_handle.h"

namespace quillo::e2e {

/// A text under the current user's key; nothing if the value does not exist. "" names the key's default value.
[[nodiscard]] std::optional<std::wstring> UserText(const std::wstring& key, const std::wstring& name);
[[nodiscard]] std::optional<std::uint32_t> UserNumber(const std::wstring& key, const std::wstring& name);
void SetUserText(const std::wstring& key, const std::wstring& name, const std::wstring& text);
[[nodiscard]] bool HasUserKey(const std::wstring& key);

/// A process that a test starts, with all its descendants: the destructor ends the whole family.
class Family {
  public:
    explicit Family(const std::wstring& commandLine);
    Family(const Family&) = delete;
    Family& operator=(const Family&) = delete;

    [[nodiscard]] DWORD Pid() const { return GetProcessId(process_.Get()); }
    /// The exit code of the process itself; nothing if it is still running after `patience`.
    [[nodiscard]] std::optional<DWORD> ExitCode(std::chrono::milliseconds patience = std::chrono::seconds(60)) const;
    /// Ends the process at once, but not its descendants.
    void Kill() const;

  private:
    KernelHandle job_;
    KernelHandle process_;
};

/// Suspends a whole process, as a debugger does, for the life of the object.
class Suspension {
  public:
    explicit Suspension(DWORD process);
    Suspension(const Suspension&) = delete;
    Suspension& operator=(const Suspension&) = delete;
    ~Suspension();

  private:
    KernelHandle process_;
};

/// The program that currently listens, regardless of who started it; 0 if none does.
[[nodiscard]] DWORD RunningProgram();
/// The path of its file.
[[nodiscard]] std::filesystem::path RunningFile();
/// The windows of its notes: the visible ones, or all.
[[nodiscard]] std::vector<HWND> NotesOnTheScreen();

/// The two installers: the program itself, and a later version whose files end in kNewMark.
[[nodiscard]] std::wstring OldSetup();
[[nodiscard]] std::wstring NewSetup();
inline constexpr char kNewMark[] = "\r\nnew";
inline constexpr wchar_t kNewVersion[] = L"99.0.0";

inline constexpr wchar_t kUninstallKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Quillo";
inline constexpr wchar_t kSettingsKey[] = L"Software\\Marrowind\\Quillo";
inline constexpr wchar_t kExtensionKey[] = L"Software\\Classes\\.qln";
inline constexpr wchar_t kTypeKey[] = L"Software\\Classes\\Quillo.Note";
inline constexpr wchar_t kAppIdKey[] = L"Software\\Classes\\AppUserModelId\\Marrowind.Quillo";

/// Where the installer puts the program when no folder is given.
[[nodiscard]] std::filesystem::path UsualFolder();
/// Where its entries in the start menu are.
[[nodiscard]] std::filesystem::path StartMenu();
/// The names of the files that ship.
[[nodiscard]] std::vector<std::wstring> ShippedFiles();

}  // namespace quillo::e2e

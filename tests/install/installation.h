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

/// A text under the current user's key; nothing when there is no such value. "" names the key's own value.
[[nodiscard]] std::optional<std::wstring> UserText(const std::wstring& key, const std::wstring& name);
[[nodiscard]] std::optional<std::uint32_t> UserNumber(const std::wstring& key, const std::wstring& name);
void SetUserText(const std::wstring& key, const std::wstring& name, const std::wstring& text);
[[nodiscard]] bool HasUserKey(const std::wstring& key);

/// A process that a test starts, with all that it starts in its turn: the whole family ends with this object.
class Family {
  public:
    explicit Family(const std::wstring& commandLine);
    Family(const Family&) = delete;
    Family& operator=(const Family&) = delete;

    [[nodiscard]] DWORD Pid() const { return GetProcessId(process_.Get()); }
    /// The exit code of the process itself; nothing when it still runs after `patience`.
    [[nodiscard]] std::optional<DWORD> ExitCode(std::chrono::milliseconds patience = std::chrono::seconds(60)) const;
    /// Ends the process at once, and leaves what it has started.
    void Kill() const;

  private:
    KernelHandle job_;
    KernelHandle process_;
};

/// Holds a whole process, as a debugger does, until the object goes.
class Suspension {
  public:
    explicit Suspension(DWORD process);
    Suspension(const Suspension&) = delete;
    Suspension& operator=(const Suspension&) = delete;
    ~Suspension();

  private:
    KernelHandle process_;
};

/// The program that listens now, whoever has started it; 0 when none does.
[[nodiscard]] DWORD RunningProgram();
/// The path of its file.
[[nodiscard]] std::filesystem::path RunningFile();
/// Its notes' windows; shown ones alone, or all.
[[nodiscard]] std::vector<HWND> NotesOnTheScreen();

/// The two installers: the program as it is, and a later version whose files end in kNewMark.
[[nodiscard]] std::wstring OldSetup();
[[nodiscard]] std::wstring NewSetup();
inline constexpr char kNewMark[] = "\r\nnew";
inline constexpr wchar_t kNewVersion[] = L"99.0.0";

inline constexpr wchar_t kUninstallKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Quillo";
inline constexpr wchar_t kSettingsKey[] = L"Software\\Marrowind\\Quillo";
inline constexpr wchar_t kExtensionKey[] = L"Software\\Classes\\.qln";
inline constexpr wchar_t kTypeKey[] = L"Software\\Classes\\Quillo.Note";
inline constexpr wchar_t kAppIdKey[] = L"Software\\Classes\\AppUserModelId\\Marrowind.Quillo";

/// Where the installer puts the program when nobody names a folder.
[[nodiscard]] std::filesystem::path UsualFolder();
/// Where its entries of the start menu lie.
[[nodiscard]] std::filesystem::path StartMenu();
/// What ships, by name.
[[nodiscard]] std::vector<std::wstring> ShippedFiles();

}  // namespace quillo::e2e

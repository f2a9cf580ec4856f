#include "harness/disks.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <system_error>

#include "harness/files.h"
#include "platform/unique_handle.h"
#include "platform/win32.h"

namespace quillo::e2e {
namespace {

constexpr wchar_t kShellFolders[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";
constexpr wchar_t kLocalData[] = L"Local AppData";

std::wstring Variable(const wchar_t* name) {
    std::array<wchar_t, 1024> text{};
    const DWORD length = GetEnvironmentVariableW(name, text.data(), static_cast<DWORD>(text.size()));
    return length < text.size() ? std::wstring(text.data(), length) : std::wstring();
}

std::wstring LocalDataFolder() {
    std::array<wchar_t, 1024> text{};
    DWORD size = sizeof text;
    RegGetValueW(HKEY_CURRENT_USER, kShellFolders, kLocalData, RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND,
                 nullptr, text.data(), &size);
    return text.data();
}

void SetLocalDataFolder(const std::wstring& path) {
    const auto size = static_cast<DWORD>((path.size() + 1) * sizeof(wchar_t));
    EXPECT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, kShellFolders, kLocalData, REG_EXPAND_SZ, path.c_str(), size),
              ERROR_SUCCESS);
}

/// Writes as much of a file as fits. False if that is less than all.
bool WriteAsMuchAsFits(const std::wstring& path, std::size_t size) {
    const FileHandle file(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    const std::string bytes(size, 'x');
    DWORD written = 0;
    const BOOL done = WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(size), &written, nullptr);
    return done != 0 && written == size;
}

}  // namespace

DataOnTestDisk::DataOnTestDisk(const wchar_t* variable) : path_(Variable(variable)), before_(LocalDataFolder()) {
    if (!IsThere()) return;
    SetLocalDataFolder(path_);
    if (std::wstring(variable) != L"QUILLO_SMALL_DISK") return;
    std::error_code ignored;
    std::filesystem::remove_all(MakersFolder(), ignored);
    MakeRoom();
}

DataOnTestDisk::~DataOnTestDisk() {
    if (!IsThere()) return;
    if (before_.empty()) {
        RegDeleteKeyValueW(HKEY_CURRENT_USER, kShellFolders, kLocalData);
    } else {
        SetLocalDataFolder(before_);
    }
}

void DataOnTestDisk::Fill() const {
    int number = 0;
    for (std::size_t size = 1U << 17; size > 0; size /= 2) {
        while (WriteAsMuchAsFits(path_ + L"\\filler " + std::to_wstring(++number), size)) {
            if (size == 1) return;  // a file system that stores small files outside its blocks
        }
    }
}

void DataOnTestDisk::MakeRoom() const {
    for (const std::wstring& name : FilesIn(path_)) DeleteFileW((path_ + L"\\" + name).c_str());
}

WithoutRecycleBin::WithoutRecycleBin() {
    const std::wstring home = Variable(L"QUILLO_TEST_HOME");
    if (home.empty()) return;
    folder_ = home + L"\\.local\\share";
    works_ = MoveFileExW(folder_.c_str(), (folder_ + L" aside").c_str(), 0) != 0;
}

WithoutRecycleBin::~WithoutRecycleBin() {
    if (works_) MoveFileExW((folder_ + L" aside").c_str(), folder_.c_str(), 0);
}

}  // namespace quillo::e2e

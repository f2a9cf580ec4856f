#include "harness/test_profile.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <system_error>

#include "harness/files.h"
#include "harness/quillo_process.h"
#include "platform/unique_handle.h"

// After windows.h.
#include <shlobj.h>

namespace quillo::e2e {
namespace {

constexpr wchar_t kSettingsKey[] = L"Software\\Marrowind\\Quillo";
constexpr wchar_t kRunKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr wchar_t kRunValue[] = L"Quillo";
/// Where the tests keep the real user's data. The value "Complete" exists exactly while something is set aside.
constexpr wchar_t kAsideKey[] = L"Software\\Quillo tests set aside";
constexpr wchar_t kAsideSettings[] = L"Software\\Quillo tests set aside\\Settings";
constexpr wchar_t kComplete[] = L"Complete";
constexpr wchar_t kHadFolder[] = L"Had a folder";

bool KeyExists(const wchar_t* path) {
    HKEY key = nullptr;
    const bool exists = RegOpenKeyExW(HKEY_CURRENT_USER, path, 0, KEY_READ, &key) == ERROR_SUCCESS;
    const RegistryKeyHandle owned(key);
    return exists;
}

RegistryKeyHandle MakeKey(const wchar_t* path) {
    HKEY key = nullptr;
    EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    return RegistryKeyHandle(key);
}

void DeleteKey(const wchar_t* path) {
    RegDeleteTreeW(HKEY_CURRENT_USER, path);
}

void CopyKey(const wchar_t* from, const wchar_t* to) {
    EXPECT_EQ(RegCopyTreeW(HKEY_CURRENT_USER, from, MakeKey(to).Get()), ERROR_SUCCESS);
}

std::optional<std::wstring> ReadText(const wchar_t* path, const wchar_t* name) {
    std::array<wchar_t, 2048> text{};
    DWORD size = sizeof text;
    if (RegGetValueW(HKEY_CURRENT_USER, path, name, RRF_RT_REG_SZ, nullptr, text.data(), &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    return text.data();
}

void WriteText(const wchar_t* path, const wchar_t* name, const std::wstring& value) {
    const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    EXPECT_EQ(RegSetValueExW(MakeKey(path).Get(), name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()), size),
              ERROR_SUCCESS);
}

void DeleteValue(const wchar_t* path, const wchar_t* name) {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, path, name);
}

std::wstring LocalApplicationData() {
    PWSTR found = nullptr;
    EXPECT_EQ(SHGetKnownFolderPath(FOLDERID_LocalAppData, KF_FLAG_CREATE, nullptr, &found), S_OK);
    std::wstring path = found != nullptr ? found : L"";
    CoTaskMemFree(found);
    return path;
}

void MoveFolder(const std::wstring& from, const std::wstring& to) {
    // Right after the program has ended, its last file may still be closing.
    EXPECT_TRUE(Eventually([&] { return MoveFileExW(from.c_str(), to.c_str(), 0) != 0; }));
}

}  // namespace

TestProfile::TestProfile() {
    makersFolder_ = LocalApplicationData() + L"\\Marrowind";
    asideFolder_ = makersFolder_ + L" set aside by Quillo's tests";
    if (FindChannel() != nullptr) {
        ADD_FAILURE() << "A Quillo is running that these tests did not start. End it first.";
        return;
    }
    PutBack();
    SetAside();
    ready_ = !::testing::Test::HasFailure();
}

TestProfile::~TestProfile() {
    if (ready_) PutBack();
}

void TestProfile::SetAside() const {
    // An interruption at any point is safe: nothing is deleted before its copy is marked complete, and PutBack restores
    // it.
    DeleteKey(kAsideKey);
    if (KeyExists(kSettingsKey)) CopyKey(kSettingsKey, kAsideSettings);
    if (const auto run = RunValue()) WriteText(kAsideKey, kRunValue, *run);
    WriteText(kAsideKey, kHadFolder, FolderExists(makersFolder_) ? L"yes" : L"no");
    WriteText(kAsideKey, kComplete, L"yes");
    if (FolderExists(makersFolder_)) MoveFolder(makersFolder_, asideFolder_);
    DeleteKey(kSettingsKey);
    DeleteValue(kRunKey, kRunValue);
}

void TestProfile::PutBack() const {
    if (!ReadText(kAsideKey, kComplete)) return;
    DeleteKey(kSettingsKey);
    DeleteValue(kRunKey, kRunValue);
    if (KeyExists(kAsideSettings)) CopyKey(kAsideSettings, kSettingsKey);
    if (const auto run = ReadText(kAsideKey, kRunValue)) WriteText(kRunKey, kRunValue, *run);
    const bool hadFolder = ReadText(kAsideKey, kHadFolder) == L"yes";
    if (!hadFolder || FolderExists(asideFolder_)) {
        std::error_code ignored;
        EXPECT_TRUE(Eventually([&] {
            std::filesystem::remove_all(makersFolder_, ignored);
            return !FolderExists(makersFolder_);
        }));
    }
    if (FolderExists(asideFolder_)) MoveFolder(asideFolder_, makersFolder_);
    DeleteKey(kAsideKey);
}

std::wstring TestProfile::AddNote(const std::wstring& name, const std::string& bytes) const {
    std::filesystem::create_directories(NotesFolder());
    const std::wstring path = NotesFolder() + L"\\" + name;
    WriteBytes(path, bytes);
    return path;
}

void TestProfile::UseOrdinarySettings() const {
    SetNumber(L"Shown Help", 0xFFFFFFFF);
    SetNumber(L"Random note color", 0);
}

void TestProfile::SetNumber(const wchar_t* name, std::uint32_t value) const {
    EXPECT_EQ(RegSetValueExW(MakeKey(kSettingsKey).Get(), name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value),
                             sizeof value),
              ERROR_SUCCESS);
}

void TestProfile::SetText(const wchar_t* name, const std::wstring& value) const {
    WriteText(kSettingsKey, name, value);
}

bool TestProfile::HasSettings() const {
    return KeyExists(kSettingsKey);
}

bool TestProfile::HasValue(const wchar_t* name) const {
    return RegGetValueW(HKEY_CURRENT_USER, kSettingsKey, name, RRF_RT_ANY, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

std::optional<std::uint32_t> TestProfile::Number(const wchar_t* name) const {
    std::uint32_t value = 0;
    DWORD size = sizeof value;
    const LSTATUS got = RegGetValueW(HKEY_CURRENT_USER, kSettingsKey, name, RRF_RT_REG_DWORD, nullptr, &value, &size);
    return got == ERROR_SUCCESS ? std::optional(value) : std::nullopt;
}

std::optional<std::wstring> TestProfile::Text(const wchar_t* name) const {
    return ReadText(kSettingsKey, name);
}

std::map<std::wstring, std::string> TestProfile::AllSettings() const {
    std::map<std::wstring, std::string> settings;
    const RegistryKeyHandle key = MakeKey(kSettingsKey);
    for (DWORD index = 0;; ++index) {
        std::array<wchar_t, 256> name{};
        std::array<char, 4096> data{};
        auto nameLength = static_cast<DWORD>(name.size());
        auto size = static_cast<DWORD>(data.size());
        if (RegEnumValueW(key.Get(), index, name.data(), &nameLength, nullptr, nullptr,
                          reinterpret_cast<BYTE*>(data.data()), &size) != ERROR_SUCCESS) {
            return settings;
        }
        settings[name.data()] = std::string(data.data(), size);
    }
}

std::optional<std::wstring> TestProfile::RunValue() const {
    return ReadText(kRunKey, kRunValue);
}

void TestProfile::SetRunValue(const std::wstring& value) const {
    WriteText(kRunKey, kRunValue, value);
}

}  // namespace quillo::e2e

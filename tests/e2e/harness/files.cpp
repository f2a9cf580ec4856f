#include "harness/files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/unique_handle.h"
#include "platform/win32.h"

namespace quillo::e2e {
namespace {

FileHandle Open(const std::wstring& path, DWORD access, DWORD disposition) {
    return FileHandle(CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

}  // namespace

std::string ReadBytes(const std::wstring& path) {
    const FileHandle file = Open(path, GENERIC_READ, OPEN_EXISTING);
    LARGE_INTEGER size{};
    if (!file || GetFileSizeEx(file.Get(), &size) == 0) {
        ADD_FAILURE() << "cannot read " << std::filesystem::path(path);
        return {};
    }
    std::string bytes(static_cast<std::size_t>(size.QuadPart), '\0');
    DWORD read = 0;
    EXPECT_NE(ReadFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr), 0);
    bytes.resize(read);
    return bytes;
}

void WriteBytes(const std::wstring& path, std::string_view bytes) {
    const FileHandle file = Open(path, GENERIC_WRITE, CREATE_ALWAYS);
    ASSERT_TRUE(file) << "cannot create " << std::filesystem::path(path);
    DWORD written = 0;
    WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    ASSERT_EQ(written, bytes.size());
}

bool FileExists(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool FolderExists(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

FileMark MarkOf(const std::wstring& path) {
    FileMark mark;
    mark.bytes = ReadBytes(path);
    mark.writeTime = WriteTimeOf(path);
    return mark;
}

std::uint64_t WriteTimeOf(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data) == 0) return 0;
    return (std::uint64_t{data.ftLastWriteTime.dwHighDateTime} << 32) | data.ftLastWriteTime.dwLowDateTime;
}

std::vector<std::wstring> FilesIn(const std::wstring& folder, std::wstring_view ending) {
    std::vector<std::wstring> names;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(folder, ignored)) {
        const std::wstring name = entry.path().filename().wstring();
        const bool fits = name.size() >= ending.size() && name.substr(name.size() - ending.size()) == ending;
        if (fits && entry.is_regular_file(ignored)) names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

TemporaryFolder::TemporaryFolder(std::wstring_view name) {
    const std::wstring own = L"Quillo tests " + std::to_wstring(GetCurrentProcessId());
    path_ = (std::filesystem::temp_directory_path() / own / name).wstring();
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
    std::filesystem::remove(std::filesystem::path(path_).parent_path(), ignored);  // once it is empty
}

}  // namespace quillo::e2e

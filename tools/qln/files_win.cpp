#include <algorithm>

#include "files.h"
#include "platform/unique_handle.h"
#include "util/ignore.h"
#include "wide_path.h"

namespace quillo::qln {
namespace {

constexpr DWORD kAllSharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
// The system counts 100 nanoseconds from the start of 1601.
constexpr FileTime kUnit = 100;
constexpr FileTime kSecondsTo1970 = 11'644'473'600;
constexpr FileTime kUnitsPerSecond = 10'000'000;

FileTime TimeOf(FILETIME time) {
    const FileTime units = (FileTime{time.dwHighDateTime} << 32) | time.dwLowDateTime;
    return (units - kSecondsTo1970 * kUnitsPerSecond) * kUnit;
}

std::uint64_t SizeOf(DWORD high, DWORD low) {
    return (std::uint64_t{high} << 32U) | low;
}

bool WriteAll(HANDLE file, std::string_view bytes) {
    constexpr std::size_t kPiece = 1U << 24U;
    while (!bytes.empty()) {
        const auto wanted = static_cast<DWORD>(std::min(bytes.size(), kPiece));
        DWORD written = 0;
        if (WriteFile(file, bytes.data(), wanted, &written, nullptr) == 0 || written != wanted) return false;
        bytes.remove_prefix(written);
    }
    return true;
}

}  // namespace

std::optional<std::vector<FolderEntry>> ListFiles(const std::string& folder) {
    WIN32_FIND_DATAW found{};
    const FindHandle search(FindFirstFileW(ToWide(JoinPaths(folder, "*")).c_str(), &found));
    if (!search) return std::nullopt;
    std::vector<FolderEntry> entries;
    do {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) continue;
        entries.push_back({FromWideText(found.cFileName), SizeOf(found.nFileSizeHigh, found.nFileSizeLow),
                           TimeOf(found.ftLastWriteTime)});
    } while (FindNextFileW(search.Get(), &found) != 0);
    return entries;
}

std::optional<FolderEntry> FactsOf(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA facts{};
    if (GetFileAttributesExW(ToWide(path).c_str(), GetFileExInfoStandard, &facts) == 0) return std::nullopt;
    if ((facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return std::nullopt;
    return FolderEntry{std::string(LastPart(path)), SizeOf(facts.nFileSizeHigh, facts.nFileSizeLow),
                       TimeOf(facts.ftLastWriteTime)};
}

bool IsFile(const std::string& path) {
    return FactsOf(path).has_value();
}

bool IsFolder(const std::string& path) {
    const DWORD attributes = GetFileAttributesW(ToWide(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool ReadInto(const std::string& path, std::string& bytes) {
    const FileHandle file(CreateFileW(ToWide(path).c_str(), GENERIC_READ, kAllSharing, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    LARGE_INTEGER size{};
    if (!file || GetFileSizeEx(file.Get(), &size) == 0) return false;
    if (static_cast<std::uint64_t>(size.QuadPart) > kLargestFile) return false;
    bytes.resize(static_cast<std::size_t>(size.QuadPart));
    std::size_t done = 0;
    while (done < bytes.size()) {
        DWORD count = 0;
        const auto wanted = static_cast<DWORD>(bytes.size() - done);
        if (ReadFile(file.Get(), bytes.data() + done, wanted, &count, nullptr) == 0) return false;
        if (count == 0) return false;  // shorter than reported: another program is writing it
        done += count;
    }
    return true;
}

bool WriteNewFile(const std::string& path, std::string_view bytes) {
    const std::wstring name = ToWide(path);
    bool written = false;
    {
        const FileHandle file(
            CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!file) return false;
        written = WriteAll(file.Get(), bytes) && FlushFileBuffers(file.Get()) != 0;
    }
    if (!written) Ignore(DeleteFileW(name.c_str()), "an unfinished file only occupies space");
    return written;
}

bool OverwriteFile(const std::string& path, std::string_view bytes) {
    const std::string fresh = path + "-part";
    Ignore(DeleteFileW(ToWide(fresh).c_str()), "a leftover of an interrupted run, or nothing");
    if (!WriteNewFile(fresh, bytes)) return false;
    if (MoveFileExW(ToWide(fresh).c_str(), ToWide(path).c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) !=
        0) {
        return true;
    }
    Ignore(DeleteFileW(ToWide(fresh).c_str()), "the old file stays; the unfinished new one only occupies space");
    return false;
}

bool MoveToFreeName(const std::string& from, const std::string& to) {
    return MoveFileExW(ToWide(from).c_str(), ToWide(to).c_str(), MOVEFILE_WRITE_THROUGH) != 0;
}

bool RemoveFile(const std::string& path) {
    return DeleteFileW(ToWide(path).c_str()) != 0;
}

bool MakeFolder(const std::string& path) {
    return CreateDirectoryW(ToWide(path).c_str(), nullptr) != 0;
}

std::string AbsolutePath(const std::string& path) {
    const std::wstring name = ToWide(path);
    const DWORD size = GetFullPathNameW(name.c_str(), 0, nullptr, nullptr);
    std::wstring whole(size, L'\0');
    whole.resize(GetFullPathNameW(name.c_str(), size, whole.data(), nullptr));
    return whole.empty() ? path : FromWideText(whole);
}

bool SetModified(const std::string& path, FileTime modified) {
    const FileHandle file(CreateFileW(ToWide(path).c_str(), FILE_WRITE_ATTRIBUTES, kAllSharing, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    const FileTime units = modified / kUnit + kSecondsTo1970 * kUnitsPerSecond;
    const FILETIME time{static_cast<DWORD>(units & 0xFFFFFFFF), static_cast<DWORD>(units >> 32)};
    return file && SetFileTime(file.Get(), nullptr, nullptr, &time) != 0;
}

}  // namespace quillo::qln

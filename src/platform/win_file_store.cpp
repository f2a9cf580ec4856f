#include "platform/win_file_store.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/unique_handle.h"
#include "platform/wide.h"
#include "util/ignore.h"

namespace quillo {
namespace {

/// ERROR_DISK_QUOTA_EXCEEDED, which some system headers lack.
constexpr DWORD kDiskQuotaExceeded = 1295;

DWORD Attributes(const std::u16string& path) {
    return GetFileAttributesW(Wide(path));
}

FileError ErrorOf(DWORD code) {
    switch (code) {
        case ERROR_SUCCESS:
            return FileError::None;
        case ERROR_FILE_NOT_FOUND:
            return FileError::NotFound;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_DIRECTORY:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME:
            return FileError::FolderMissing;
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS:
            return FileError::NameTaken;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_USER_MAPPED_FILE:
            return FileError::InUse;
        case ERROR_ACCESS_DENIED:
        case ERROR_WRITE_PROTECT:
            return FileError::NoPermission;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
        case ERROR_NOT_ENOUGH_QUOTA:
        case kDiskQuotaExceeded:
            return FileError::DiskFull;
        default:
            return FileError::Failed;
    }
}

FileError LastFileError() {
    const FileError error = ErrorOf(GetLastError());
    return error == FileError::None ? FileError::Failed : error;
}

/// Writes every byte, in pieces that any file system accepts. A full disk may show only as a short count.
FileError WriteAll(HANDLE file, std::string_view bytes) {
    constexpr std::size_t kPiece = 1U << 24;
    while (!bytes.empty()) {
        const auto wanted = static_cast<DWORD>(std::min(bytes.size(), kPiece));
        DWORD written = 0;
        if (WriteFile(file, bytes.data(), wanted, &written, nullptr) == 0) return LastFileError();
        if (written != wanted) return FileError::DiskFull;
        bytes.remove_prefix(written);
    }
    return FlushFileBuffers(file) != 0 ? FileError::None : LastFileError();
}

std::optional<std::string> ReadAll(HANDLE file, std::uint64_t size) {
    std::string bytes(static_cast<std::size_t>(size), '\0');
    std::size_t done = 0;
    while (done < bytes.size()) {
        DWORD read = 0;
        const auto wanted = static_cast<DWORD>(std::min<std::size_t>(bytes.size() - done, 1U << 30));
        if (ReadFile(file, bytes.data() + done, wanted, &read, nullptr) == 0) return std::nullopt;
        if (read == 0) return std::nullopt;  // shorter than reported: another program is writing it
        done += read;
    }
    return bytes;
}

bool HasExtension(std::u16string_view name, std::u16string_view extension) {
    if (name.size() < extension.size()) return false;
    const auto end = name.substr(name.size() - extension.size());
    return CompareStringW(LOCALE_INVARIANT, NORM_IGNORECASE, WideData(end), static_cast<int>(end.size()),
                          WideData(extension), static_cast<int>(extension.size())) == CSTR_EQUAL;
}

/// False if no wait can make it writable: a folder or a read-only file.
bool CanBecomeWritable(const std::u16string& path) {
    const DWORD attributes = Attributes(path);
    return attributes == INVALID_FILE_ATTRIBUTES ||
           (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) == 0;
}

std::uint64_t Joined(DWORD high, DWORD low) {
    return static_cast<std::uint64_t>(high) << 32 | low;
}

/// Deletes the file as soon as its handle, which needs the right to delete, is closed.
FileError DeleteOnClose(HANDLE file) {
    FILE_DISPOSITION_INFO disposition{};
    disposition.DeleteFile = TRUE;
    const BOOL done = SetFileInformationByHandle(file, FileDispositionInfo, &disposition, sizeof disposition);
    return done != 0 ? FileError::None : LastFileError();
}

class HeldWinFile : public HeldFile {
  public:
    HeldWinFile(FileHandle file, std::string bytes) : file_(std::move(file)), bytes_(std::move(bytes)) {}
    [[nodiscard]] const std::string& Bytes() const override { return bytes_; }
    [[nodiscard]] FileError Delete() override {
        const FileError error = DeleteOnClose(file_.Get());
        if (error == FileError::None) file_.Reset();
        return error;
    }

  private:
    FileHandle file_;
    std::string bytes_;
};

FileHandle OpenHeld(const std::u16string& path, DWORD access) {
    return FileHandle(
        CreateFileW(Wide(path), access, FILE_SHARE_READ, nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
}

}  // namespace

template <typename Call>
FileError WinFileStore::Patiently(const std::u16string& target, Call call) {
    for (;;) {
        if (call() != 0) return FileError::None;
        const FileError error = LastFileError();
        // The system also denies access to a file that another program has open in certain ways.
        const bool mayBeOpen =
            error == FileError::InUse || (error == FileError::NoPermission && CanBecomeWritable(target));
        if (!mayBeOpen || !patience_.Wait()) return error;
    }
}

bool WinFileStore::FileExists(std::u16string_view path) {
    const DWORD attributes = Attributes(std::u16string(path));
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::optional<FileEntry> WinFileStore::Find(std::u16string_view path) {
    const std::u16string name(path);
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (GetFileAttributesExW(Wide(name), GetFileExInfoStandard, &data) == 0) return std::nullopt;
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return std::nullopt;
    return FileEntry{name, Joined(data.nFileSizeHigh, data.nFileSizeLow),
                     Joined(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime)};
}

std::optional<std::string> WinFileStore::Read(std::u16string_view path) {
    const std::u16string name(path);
    const FileHandle file(CreateFileW(Wide(name), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file || GetFileType(file.Get()) != FILE_TYPE_DISK) return std::nullopt;
    LARGE_INTEGER size{};
    constexpr LONGLONG kLargest = 0x1000'0000;  // 256 MB: far larger than any note file
    if (GetFileSizeEx(file.Get(), &size) == 0 || size.QuadPart > kLargest) return std::nullopt;
    return ReadAll(file.Get(), static_cast<std::uint64_t>(size.QuadPart));
}

HoldResult WinFileStore::Hold(std::u16string_view path, std::uint64_t mostBytes) {
    const std::u16string name(path);
    FileHandle file = OpenHeld(name, GENERIC_READ | DELETE);
    // On a write-protected disk, and while another program reads it, a file can be read and held but not deleted.
    if (!file) file = OpenHeld(name, GENERIC_READ);
    if (!file) return {nullptr, LastFileError()};
    if (GetFileType(file.Get()) != FILE_TYPE_DISK) return {nullptr, FileError::Failed};
    LARGE_INTEGER size{};
    if (GetFileSizeEx(file.Get(), &size) == 0) return {nullptr, LastFileError()};
    if (static_cast<std::uint64_t>(size.QuadPart) > mostBytes) return {nullptr, FileError::TooLarge};
    std::optional<std::string> bytes = ReadAll(file.Get(), static_cast<std::uint64_t>(size.QuadPart));
    if (!bytes) return {nullptr, FileError::Failed};
    return {std::make_unique<HeldWinFile>(std::move(file), *std::move(bytes)), FileError::None};
}

FileError WinFileStore::Create(std::u16string_view path, std::string_view bytes) {
    const std::u16string name(path);
    FileHandle file(
        CreateFileW(Wide(name), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return LastFileError();
    // Many systems treat "nul.qln" in any folder as the device that discards everything.
    if (GetFileType(file.Get()) != FILE_TYPE_DISK) return FileError::Failed;
    const FileError error = WriteAll(file.Get(), bytes);
    // Before the file is closed: a moment later another program may have it open.
    if (error != FileError::None) {
        Ignore(DeleteOnClose(file.Get()), "an unfinished file only occupies space; the next start removes it");
    }
    return error;
}

FileError WinFileStore::MoveOver(std::u16string_view from, std::u16string_view to) {
    const std::u16string fresh(from);
    const std::u16string target(to);
    constexpr DWORD kFlags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    return Patiently(target, [&] { return MoveFileExW(Wide(fresh), Wide(target), kFlags); });
}

FileError WinFileStore::Rename(std::u16string_view from, std::u16string_view to) {
    const std::u16string fresh(from);
    const std::u16string target(to);
    return Patiently(fresh, [&] { return MoveFileExW(Wide(fresh), Wide(target), MOVEFILE_WRITE_THROUGH); });
}

FileError WinFileStore::Delete(std::u16string_view path) {
    const std::u16string name(path);
    return Patiently(name, [&] { return DeleteFileW(Wide(name)); });
}

bool WinFileStore::CreateFolder(std::u16string_view path) {
    const std::u16string name(path);
    if (CreateDirectoryW(Wide(name), nullptr) != 0) return true;
    const DWORD attributes = Attributes(name);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::vector<FileEntry> WinFileStore::List(std::u16string_view folder, std::u16string_view extension) {
    std::vector<FileEntry> files;
    std::u16string prefix(folder);
    prefix += u'\\';
    const std::u16string pattern = prefix + u"*";
    WIN32_FIND_DATAW entry{};
    const FindHandle search(FindFirstFileW(Wide(pattern), &entry));
    if (!search) return files;
    do {
        // The pattern matches everything, because the system would also match a short name ("*.qln" finds "x.qlnx").
        const std::u16string_view name = FromWide(entry.cFileName);
        if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 || !HasExtension(name, extension)) continue;
        files.push_back({prefix + std::u16string(name), Joined(entry.nFileSizeHigh, entry.nFileSizeLow),
                         Joined(entry.ftLastWriteTime.dwHighDateTime, entry.ftLastWriteTime.dwLowDateTime)});
    } while (FindNextFileW(search.Get(), &entry) != 0);
    return files;
}

std::u16string WinFileStore::TemporaryFolder() {
    std::array<wchar_t, MAX_PATH + 1> folder{};
    if (GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()) == 0) return {};
    std::u16string text(FromWide(folder.data()));
    if (!text.empty() && text.back() == u'\\') text.pop_back();
    return text;
}

std::u16string WinFileStore::TemporaryName(std::u16string_view prefix) {
    std::array<wchar_t, MAX_PATH + 1> name{};
    const std::u16string folder = TemporaryFolder();
    if (folder.empty()) return {};
    if (GetTempFileNameW(Wide(folder), Wide(std::u16string(prefix)), 0, name.data()) == 0) return {};
    Ignore(DeleteFileW(name.data()), "the name was made by this very call; a file left there is empty");
    return std::u16string(FromWide(name.data()));
}

}  // namespace quillo

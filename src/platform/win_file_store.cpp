#include "platform/win_file_store.h"

#include <algorithm>
#include <array>

#include "platform/unique_handle.h"
#include "platform/wide.h"
#include "util/ignore.h"

namespace quillo {
namespace {

DWORD Attributes(const std::u16string& path) {
    return GetFileAttributesW(Wide(path));
}

/// Writes every byte, in pieces that any file system takes; a full disk shows as a short count, not as a failure.
bool WriteAll(HANDLE file, std::string_view bytes) {
    constexpr std::size_t kPiece = 1U << 24;
    while (!bytes.empty()) {
        const auto wanted = static_cast<DWORD>(std::min(bytes.size(), kPiece));
        DWORD written = 0;
        if (WriteFile(file, bytes.data(), wanted, &written, nullptr) == 0 || written != wanted) return false;
        bytes.remove_prefix(written);
    }
    return true;
}

bool HasExtension(std::u16string_view name, std::u16string_view extension) {
    if (name.size() < extension.size()) return false;
    const auto end = name.substr(name.size() - extension.size());
    return CompareStringW(LOCALE_INVARIANT, NORM_IGNORECASE, WideData(end), static_cast<int>(end.size()),
                          WideData(extension), static_cast<int>(extension.size())) == CSTR_EQUAL;
}

/// A name beside `path` that no listing of notes picks up.
std::u16string NameBeside(const std::u16string& path) {
    std::u16string name = path;
    name += u".new";
    return name;
}

/// False for what no waiting makes replaceable: a folder or a read-only file.
bool IsWritable(const std::u16string& path) {
    const DWORD attributes = Attributes(path);
    return attributes == INVALID_FILE_ATTRIBUTES ||
           (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) == 0;
}

/// Puts a file in another's place in one step. A virus scanner, an indexer or a backup may have the old one open for a
/// moment: that moment is waited for, not more than a second.
bool MoveOver(const std::u16string& fresh, const std::u16string& target) {
    constexpr int kAttempts = 40;
    constexpr DWORD kBetweenMilliseconds = 25;
    for (int attempt = 1;; ++attempt) {
        if (MoveFileExW(Wide(fresh), Wide(target), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) {
            return true;
        }
        const DWORD error = GetLastError();
        const bool inUse = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
        if (!inUse || attempt == kAttempts || !IsWritable(target)) return false;
        Sleep(kBetweenMilliseconds);
    }
}

}  // namespace

bool WinFileStore::FileExists(std::u16string_view path) {
    const DWORD attributes = Attributes(std::u16string(path));
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::optional<std::string> WinFileStore::Read(std::u16string_view path) {
    const std::u16string name(path);
    const FileHandle file(CreateFileW(Wide(name), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file) return std::nullopt;
    LARGE_INTEGER size{};
    constexpr LONGLONG kLargest = 0x4000'0000;  // 1 GB: beyond what an edit box can hold
    if (GetFileSizeEx(file.Get(), &size) == 0 || size.QuadPart > kLargest) return std::nullopt;

    std::string bytes(static_cast<std::size_t>(size.QuadPart), '\0');
    std::size_t done = 0;
    while (done < bytes.size()) {
        DWORD read = 0;
        if (ReadFile(file.Get(), bytes.data() + done, static_cast<DWORD>(bytes.size() - done), &read, nullptr) == 0) {
            return std::nullopt;
        }
        if (read == 0) return std::nullopt;  // shorter than it said: somebody is writing it
        done += read;
    }
    return bytes;
}

bool WinFileStore::Write(std::u16string_view path, std::string_view bytes) {
    const std::u16string name(path);
    const FileHandle file(
        CreateFileW(Wide(name), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    // Many a system takes "nul.qln" in any folder for the device that swallows everything.
    if (!file || GetFileType(file.Get()) != FILE_TYPE_DISK) return false;
    // Flushed: what backs these bytes so far, an older file or the note on the screen, goes right afterwards.
    return WriteAll(file.Get(), bytes) && FlushFileBuffers(file.Get()) != 0;
}

bool WinFileStore::Replace(std::u16string_view path, std::string_view bytes) {
    const std::u16string target(path);
    const std::u16string fresh = NameBeside(target);
    if (Write(fresh, bytes) && MoveOver(fresh, target)) return true;
    Ignore(DeleteFileW(Wide(fresh)), "the old file stands; the rest of the new one only takes room");
    return false;
}

bool WinFileStore::Delete(std::u16string_view path) {
    return DeleteFileW(Wide(std::u16string(path))) != 0;
}

bool WinFileStore::CreateFolder(std::u16string_view path) {
    const std::u16string name(path);
    if (CreateDirectoryW(Wide(name), nullptr) != 0) return true;
    const DWORD attributes = Attributes(name);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::vector<std::u16string> WinFileStore::List(std::u16string_view folder, std::u16string_view extension) {
    std::vector<std::u16string> paths;
    std::u16string prefix(folder);
    prefix += u'\\';
    const std::u16string pattern = prefix + u"*";
    WIN32_FIND_DATAW entry{};
    const FindHandle search(FindFirstFileW(Wide(pattern), &entry));
    if (!search) return paths;
    do {
        // The pattern takes everything, because the system would match a short name, too ("*.qln" finds "x.qlnx").
        const std::u16string_view name = FromWide(entry.cFileName);
        if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 || !HasExtension(name, extension)) continue;
        paths.push_back(prefix);
        paths.back() += name;
    } while (FindNextFileW(search.Get(), &entry) != 0);
    return paths;
}

std::u16string WinFileStore::TemporaryName(std::u16string_view prefix) {
    std::array<wchar_t, MAX_PATH + 1> folder{};
    std::array<wchar_t, MAX_PATH + 1> name{};
    if (GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()) == 0) return {};
    if (GetTempFileNameW(folder.data(), Wide(std::u16string(prefix)), 0, name.data()) == 0) return {};
    Ignore(DeleteFileW(name.data()), "the name was made by this very call; a file left there is empty");
    return std::u16string(FromWide(name.data()));
}

}  // namespace quillo

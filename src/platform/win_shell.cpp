#include "platform/win_shell.h"

#include <array>
#include <optional>

#include "platform/com_ptr.h"
#include "platform/com_scope.h"
#include "platform/unique_handle.h"
#include "platform/wide.h"
#include "util/ignore.h"

// After windows.h.
#include <shellapi.h>
#include <shlobj.h>

namespace quillo {
namespace {

/// The text that a system call writes into a buffer, which is enlarged until the text fits.
template <typename Call>
std::u16string GrowingText(Call call) {
    std::u16string text(MAX_PATH, u'\0');
    for (;;) {
        const DWORD length = call(WideBuffer(text), static_cast<DWORD>(text.size()));
        if (length < text.size()) {
            text.resize(length);
            return text;
        }
        text.resize(text.size() * 2);
    }
}

/// False for a deleted file, even if a handle keeps it readable.
bool IsStillSomewhere(HANDLE file) {
    FILE_STANDARD_INFO info{};
    if (GetFileInformationByHandleEx(file, FileStandardInfo, &info, sizeof info) == 0) return false;
    return info.DeletePending == FALSE && info.NumberOfLinks > 0;
}

/// Identifies a file uniquely at one moment; it does not change when the file is moved within its volume.
struct FileIdentity {
    DWORD volume = 0;
    DWORD high = 0;
    DWORD low = 0;
    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

std::optional<FileIdentity> IdentityOf(HANDLE file) {
    BY_HANDLE_FILE_INFORMATION info{};
    if (GetFileInformationByHandle(file, &info) == 0) return std::nullopt;
    return FileIdentity{info.dwVolumeSerialNumber, info.nFileIndexHigh, info.nFileIndexLow};
}

/// Shared with everyone, this handle blocks nobody, and refers to the file wherever the shell moves it.
FileHandle OpenToWatch(const std::u16string& path) {
    return FileHandle(CreateFileW(Wide(path), FILE_READ_ATTRIBUTES,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING, 0,
                                  nullptr));
}

bool IsAt(const std::optional<FileIdentity>& file, const std::u16string& path) {
    const FileHandle found = OpenToWatch(path);
    return found && file && IdentityOf(found.Get()) == file;
}

}  // namespace

std::u16string WinShell::FolderPath(SpecialFolder folder) {
    std::array<wchar_t, MAX_PATH + 1> path{};
    const int number = static_cast<int>(folder);
    // S_FALSE is the path of a folder that does not exist.
    const bool found = SHGetFolderPathW(nullptr, number, nullptr, SHGFP_TYPE_CURRENT, path.data()) == S_OK;
    std::u16string text(found ? FromWide(path.data()) : std::u16string_view());
    if (!text.empty() && text.back() == u'\\') text.pop_back();  // the root of a drive
    return text;
}

std::u16string WinShell::WindowsFolder() {
    return GrowingText([](wchar_t* text, DWORD size) { return GetWindowsDirectoryW(text, size); });
}

std::u16string WinShell::SystemFolder() {
    return GrowingText([](wchar_t* text, DWORD size) { return GetSystemDirectoryW(text, size); });
}

std::u16string WinShell::ProgramPath() {
    return GrowingText([](wchar_t* text, DWORD size) { return GetModuleFileNameW(nullptr, text, size); });
}

std::u16string WinShell::FullPath(std::u16string_view path) {
    const std::u16string given(path);
    std::u16string full =
        GrowingText([&](wchar_t* text, DWORD size) { return GetFullPathNameW(Wide(given), size, text, nullptr); });
    return full.empty() ? given : full;
}

std::u16string WinShell::FullLongPath(std::u16string_view path) {
    std::u16string full = FullPath(path);
    // The longest existing part of the path is resolved; the missing parts below it have no other name.
    for (std::size_t end = full.size(); end != std::u16string::npos && end > 0; end = full.rfind(u'\\', end - 1)) {
        const std::u16string existing = full.substr(0, end);
        const std::u16string resolved =
            GrowingText([&](wchar_t* text, DWORD size) { return GetLongPathNameW(Wide(existing), text, size); });
        if (!resolved.empty()) return resolved + full.substr(end);
    }
    return full;
}

bool WinShell::Open(std::u16string_view path, std::u16string_view arguments) {
    const std::u16string file(path);
    const std::u16string parameters(arguments);
    SHELLEXECUTEINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_ASYNCOK;
    info.lpFile = Wide(file);
    info.lpParameters = parameters.empty() ? nullptr : Wide(parameters);
    info.nShow = SW_SHOWNORMAL;
    return ShellExecuteExW(&info) != 0;
}

bool WinShell::Start(std::u16string_view program, std::u16string_view arguments) {
    // In quotes: without them "C:\Program Files\x.exe" could start "C:\Program.exe".
    std::u16string commandLine = u'"' + std::u16string(program) + u'"';
    if (!arguments.empty()) commandLine += u' ' + std::u16string(arguments);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_SHOWNORMAL;
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, WideBuffer(commandLine), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                       &process) == 0) {
        return false;
    }
    const KernelHandle thread(process.hThread);
    const KernelHandle owned(process.hProcess);
    return true;
}

std::u16string WinShell::LinkTarget(std::u16string_view path) {
    const ComScope com;
    ComPtr<IShellLinkW> link;
    if (FAILED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, link.PutVoid()))) {
        return {};
    }
    ComPtr<IPersistFile> file;
    if (FAILED(link->QueryInterface(IID_IPersistFile, file.PutVoid()))) return {};
    if (FAILED(file->Load(Wide(std::u16string(path)), STGM_READ))) return {};
    constexpr int kLongestTarget = 32768;
    std::u16string target(kLongestTarget, u'\0');
    if (FAILED(link->GetPath(WideBuffer(target), kLongestTarget, nullptr, 0))) return {};
    target.resize(target.find(u'\0'));
    return target;
}

/// Waits briefly until the file can be opened exclusively: then it can be moved.
void WinShell::WaitUntilUnused(const std::u16string& path) {
    for (;;) {
        const FileHandle alone(CreateFileW(Wide(path), DELETE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        if (alone || GetLastError() != ERROR_SHARING_VIOLATION || !patience_.Wait()) return;
    }
}

RecycleResult WinShell::Recycle(std::u16string_view path) {
    std::u16string list(path);
    WaitUntilUnused(list);
    FileHandle watched = OpenToWatch(list);
    if (!watched) {
        const bool exists = GetFileAttributesW(Wide(list)) != INVALID_FILE_ATTRIBUTES;
        return exists ? RecycleResult::Stays : RecycleResult::Gone;
    }
    const std::optional<FileIdentity> identity = IdentityOf(watched.Get());
    list += u'\0';  // the list of files ends with a second null
    SHFILEOPSTRUCTW operation{};
    operation.wFunc = FO_DELETE;
    operation.pFrom = Wide(list);
    operation.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_SILENT;
    static_assert((FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_SILENT) == 0x54);
    Ignore(SHFileOperationW(&operation), "the file itself shows the result");
    list.pop_back();
    const bool hasMoved = !IsAt(identity, list) && IsStillSomewhere(watched.Get());
    watched.Reset();
    // A deleted file may have kept its name while this handle was open.
    if (IsAt(identity, list)) return RecycleResult::Stays;
    return hasMoved ? RecycleResult::Moved : RecycleResult::Gone;
}

std::u16string WinShell::NewUniqueIdentifier() {
    GUID guid{};
    if (FAILED(CoCreateGuid(&guid))) return {};
    std::array<wchar_t, 39> text{};
    StringFromGUID2(guid, text.data(), static_cast<int>(text.size()));
    return std::u16string(FromWide(text.data()));
}

}  // namespace quillo

#include "support.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>

#include "platform/gdi_scope.h"
#include "platform/wide.h"

namespace quillo::windows_tests {
namespace {

void DeleteContent(const std::u16string& folder) {
    WIN32_FIND_DATAW entry{};
    const std::u16string pattern = folder + u"\\*";
    const FindHandle search(FindFirstFileW(Wide(pattern), &entry));
    if (!search) return;
    do {
        const std::u16string name(FromWide(entry.cFileName));
        if (name == u"." || name == u"..") continue;
        const std::u16string path = folder + u'\\' + name;
        if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            DeleteContent(path);
            RemoveDirectoryW(Wide(path));
        } else {
            SetFileAttributesW(Wide(path), FILE_ATTRIBUTE_NORMAL);
            DeleteFileW(Wide(path));
        }
    } while (FindNextFileW(search.Get(), &entry) != 0);
}

bool IsCrash(DWORD code) {
    switch (code) {
        case EXCEPTION_ACCESS_VIOLATION:
        case EXCEPTION_ILLEGAL_INSTRUCTION:
        case EXCEPTION_PRIV_INSTRUCTION:
        case EXCEPTION_STACK_OVERFLOW:
        case EXCEPTION_INT_DIVIDE_BY_ZERO:
        case EXCEPTION_IN_PAGE_ERROR:
        case 0xC0000374:  // the heap is damaged
        case 0xC0000409:  // the stack is damaged
            return true;
        default:
            return false;  // includes C++ exceptions and the debugger's own
    }
}

LONG CALLBACK OnException(EXCEPTION_POINTERS* exception) noexcept {
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    if (!IsCrash(record.ExceptionCode)) return EXCEPTION_CONTINUE_SEARCH;
    // addr2line needs the base at which the program was loaded.
    std::fprintf(stderr, "\ncrash: exception %08lX at %p (program at %p)\n",
                 static_cast<unsigned long>(record.ExceptionCode), record.ExceptionAddress,
                 static_cast<void*>(GetModuleHandleW(nullptr)));
    std::fflush(stderr);
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), kCrashExitCode);
    return EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace

void EndProcessOnCrash() {
    AddVectoredExceptionHandler(1, &OnException);
}

TempFolder::TempFolder() {
    static int count = 0;
    std::array<wchar_t, MAX_PATH + 1> temp{};
    GetTempPathW(static_cast<DWORD>(temp.size()), temp.data());
    const std::string name = "quillo-test-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++count);
    path_ = std::u16string(FromWide(temp.data())) + std::u16string(name.begin(), name.end());
    CreateDirectoryW(Wide(path_), nullptr);
}

TempFolder::~TempFolder() {
    DeleteContent(path_);
    RemoveDirectoryW(Wide(path_));
}

SmallDisk::SmallDisk() {
    std::array<wchar_t, MAX_PATH + 1> path{};
    const DWORD length = GetEnvironmentVariableW(L"QUILLO_SMALL_DISK", path.data(), static_cast<DWORD>(path.size()));
    if (length == 0 || length >= path.size()) return;
    path_ = FromWide(path.data());
    DeleteContent(path_);
}

SmallDisk::~SmallDisk() {
    if (IsThere()) DeleteContent(path_);
}

void PutFile(const std::u16string& path, std::string_view bytes) {
    const FileHandle file(
        CreateFileW(Wide(path), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    ASSERT_TRUE(file) << "error " << GetLastError();
    ASSERT_NE(WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr), 0);
    ASSERT_EQ(written, bytes.size());
}

bool PumpUntil(const std::function<bool()>& done, DWORD milliseconds) {
    const ULONGLONG deadline = GetTickCount64() + milliseconds;
    for (;;) {
        PumpWaiting();
        if (done()) return true;
        const ULONGLONG now = GetTickCount64();
        if (now >= deadline) return false;
        MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(deadline - now), QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
}

void PumpWaiting() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void PaintNow(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
}

COLORREF PixelOf(HWND window, Point at) {
    const WindowDcScope dc(window);
    return GetPixel(dc.Dc(), at.x, at.y);
}

}  // namespace quillo::windows_tests

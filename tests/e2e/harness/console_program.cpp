#include "harness/console_program.h"

#include <gtest/gtest.h>

#include <array>

#include "harness/eventually.h"
#include "harness/files.h"
#include "harness/quillo_process.h"
#include "platform/unique_handle.h"

namespace quillo::e2e {
namespace {

/// A file that a child process can write to.
FileHandle InheritedFile(const std::wstring& path) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return FileHandle(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
}

std::wstring ConsoleExe() {
    const std::wstring& quillo = QuilloExe();
    return quillo.substr(0, quillo.find_last_of(L'\\') + 1) + L"qln.exe";
}

}  // namespace

ConsoleRun RunQln(const std::wstring& arguments) {
    ConsoleRun run;
    static int runs = 0;
    const TemporaryFolder folder(L"console " + std::to_wstring(++runs));
    const std::wstring program = ConsoleExe();
    {
        const FileHandle out = InheritedFile(folder / L"out");
        const FileHandle error = InheritedFile(folder / L"error");
        STARTUPINFOW how{};
        how.cb = sizeof how;
        how.dwFlags = STARTF_USESTDHANDLES;
        how.hStdOutput = out.Get();
        how.hStdError = error.Get();
        std::wstring line = L"\"" + program + L"\" " + arguments;
        PROCESS_INFORMATION made{};
        // Without a console: a window of the system would keep the two files open for a moment longer.
        if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, DETACHED_PROCESS, nullptr, nullptr,
                           &how, &made) == 0) {
            ADD_FAILURE() << "qln.exe cannot be started";
            return run;
        }
        const KernelHandle process(made.hProcess);
        const KernelHandle thread(made.hThread);
        const auto patience = static_cast<DWORD>(std::chrono::milliseconds(kPatience).count());
        if (WaitForSingleObject(process.Get(), patience) != WAIT_OBJECT_0) {
            TerminateProcess(process.Get(), 1);
            ADD_FAILURE() << "qln.exe does not end";
            return run;
        }
        GetExitCodeProcess(process.Get(), &run.code);
    }
    run.out = ReadBytes(folder / L"out");
    run.error = ReadBytes(folder / L"error");
    return run;
}

}  // namespace quillo::e2e

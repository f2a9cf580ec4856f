// Tests the files with which quillo.exe replaces parts of the C++ library: exceptions on several threads at once,
// static objects that several threads use first, misuse of the library, and overwritten stack frames. It is a program
// of its own, because GoogleTest needs the library's own parts. The exit code is 0 on success.
#include <array>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "import_counter.h"
#include "platform/unique_handle.h"

namespace {

constexpr int kThreads = 8;
constexpr int kThrows = 2000;

std::atomic<int> made = 0;
std::atomic<int> failures = 0;

void Expect(bool holds, const char* what) {
    if (holds) return;
    ++failures;
    std::printf("failed: %s\n", what);
}

struct SlowToMake {
    SlowToMake() {
        ++made;
        Sleep(20);  // the other threads arrive in the meantime
        whole = true;
    }
    bool whole = false;
};

const SlowToMake& MadeOnce() {
    static const SlowToMake object;
    return object;
}

/// Throws and catches exceptions, one in the handler of another, with numbers that no other thread uses.
DWORD WINAPI ThrowOften(void* number) {
    Expect(MadeOnce().whole, "nobody sees a static object before it is made");
    const auto own = static_cast<int>(reinterpret_cast<INT_PTR>(number));
    for (int i = 0; i < kThrows; ++i) {
        try {
            throw own * kThrows + i;
        } catch (int outer) {
            try {
                throw std::string(64, static_cast<char>('a' + own));
            } catch (const std::string& inner) {
                Expect(inner == std::string(64, static_cast<char>('a' + own)), "an exception is its thread's own");
            }
            Expect(outer == own * kThrows + i, "the outer exception is kept meanwhile");
        }
        Expect(std::uncaught_exceptions() == 0, "nothing is left of an exception");
    }
    return 0;
}

void MisuseIsAnException() {
    bool caught = false;
    try {
        (void)std::vector<int>{1, 2}.at(2);
    } catch (const std::exception&) {
        caught = true;
    }
    Expect(caught, "an index outside of a vector is an exception");
    caught = false;
    try {
        (void)std::string("ab").substr(3);
    } catch (const std::exception&) {
        caught = true;
    }
    Expect(caught, "a place outside of a text is an exception");
}

// The value that the compiler puts behind the buffers of a function.
extern "C" std::uintptr_t __stack_chk_guard;  // NOLINT(bugprone-reserved-identifier): the compiler's name

constexpr char kShowGuard[] = "--show-guard";
constexpr char kOverwrite[] = "--overwrite";

/// Writes beyond its buffer, and over the guard behind it.
[[gnu::noinline]] int OverwriteOwnFrame() {
    std::array<char, 16> buffer{};
    volatile std::size_t length = buffer.size() + 16;
    volatile char* to = buffer.data();
    for (std::size_t i = 0; i < length; ++i) to[i] = 'x';
    return buffer.front() == 'x' ? 0 : 1;
}

/// The exit code of this program, run again with that argument.
DWORD RunAgain(const char* argument) {
    std::string line(MAX_PATH, '\0');
    line.resize(GetModuleFileNameA(nullptr, line.data(), MAX_PATH));
    line = '"' + line + "\" " + argument;
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION info{};
    DWORD code = 0;
    if (CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &info) == 0)
        return code;
    const quillo::KernelHandle process(info.hProcess);
    const quillo::KernelHandle thread(info.hThread);
    WaitForSingleObject(process.Get(), INFINITE);
    GetExitCodeProcess(process.Get(), &code);
    return code;
}

void AnOverwrittenFrameEndsTheProgram() {
    Expect(__stack_chk_guard != 0, "the guard has a value");
    Expect(RunAgain(kShowGuard) != RunAgain(kShowGuard), "each process has a guard of its own");
    constexpr DWORD kStackBufferOverrun = 0xC0000409;
    Expect(RunAgain(kOverwrite) == kStackBufferOverrun, "a function that has lost its frame does not return");
    Expect(quillo::windows_tests::ImportOf("CryptGenRandom") == nullptr, "the guard needs no cryptographic service");
}

}  // namespace

int main(int argc, char** argv) {
    const std::string_view argument = argc > 1 ? argv[1] : "";
    if (argument == kShowGuard) return static_cast<int>(__stack_chk_guard >> 7);
    if (argument == kOverwrite) return OverwriteOwnFrame();
    for (int round = 0; round < 3; ++round) {
        std::vector<quillo::KernelHandle> threads;
        for (INT_PTR i = 0; i < kThreads; ++i) {
            threads.emplace_back(CreateThread(nullptr, 0, &ThrowOften, reinterpret_cast<void*>(i), 0, nullptr));
        }
        for (const quillo::KernelHandle& thread : threads) WaitForSingleObject(thread.Get(), INFINITE);
    }
    Expect(made == 1, "a static object is made once");
    MisuseIsAnException();
    AnOverwrittenFrameEndsTheProgram();
    return failures == 0 ? 0 : 1;
}

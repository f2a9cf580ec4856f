// Tests the files with which quillo.exe replaces parts of the C++ library: exceptions on several threads at once,
// static objects that several threads use first, and misuse of the library. It is a program of its own, because
// GoogleTest needs the library's own parts. The exit code is 0 on success.
#include <atomic>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

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

}  // namespace

int main() {
    for (int round = 0; round < 3; ++round) {
        std::vector<quillo::KernelHandle> threads;
        for (INT_PTR i = 0; i < kThreads; ++i) {
            threads.emplace_back(CreateThread(nullptr, 0, &ThrowOften, reinterpret_cast<void*>(i), 0, nullptr));
        }
        for (const quillo::KernelHandle& thread : threads) WaitForSingleObject(thread.Get(), INFINITE);
    }
    Expect(made == 1, "a static object is made once");
    MisuseIsAnException();
    return failures == 0 ? 0 : 1;
}

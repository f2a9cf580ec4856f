// The value that protects the frames of functions on the stack, linked only to the program. The compiler's own library
// takes it from the system's cryptographic service, for which every start would load three libraries before the first
// line of the program runs.
#if defined(__MINGW32__)

#include <cstdint>
#include <initializer_list>

#include "platform/win32.h"

// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the compiler prescribes the names.
extern "C" {

/// A protected function puts this value behind its buffers, and compares it before it returns.
std::uintptr_t __stack_chk_guard = 0;

[[noreturn]] void __stack_chk_fail() {
    // The system's fast failure ends the process at once: what handles an exception may be what was overwritten.
    asm volatile("int $0x29" : : "c"(FAST_FAIL_STACK_COOKIE_CHECK_FAILURE));
    __builtin_unreachable();
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

namespace {

/// Runs before every other constructor, and unprotected, because it changes the guard. Nobody outside of the process
/// knows all of these values, which other compilers' libraries use as well.
[[gnu::constructor(101), gnu::no_stack_protector]] void ChooseGuard() {
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    LARGE_INTEGER count{};
    QueryPerformanceCounter(&count);
    std::uint64_t mixed = 0;
    for (const std::uint64_t part :
         {(std::uint64_t{now.dwHighDateTime} << 32) | now.dwLowDateTime, static_cast<std::uint64_t>(count.QuadPart),
          (std::uint64_t{GetCurrentProcessId()} << 32) | GetCurrentThreadId(),
          static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(&now))}) {
        constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15;  // spreads each bit over the higher ones
        mixed = (mixed ^ part) * kOdd;
        mixed ^= mixed >> 29;
    }
    __stack_chk_guard = static_cast<std::uintptr_t>(mixed);
}

}  // namespace

#endif

#include "platform/win_clock.h"

#include "platform/win32.h"

namespace quillo {

DaySerial WinClock::Now() {
    FILETIME utc{};
    FILETIME local{};
    GetSystemTimeAsFileTime(&utc);
    FileTimeToLocalFileTime(&utc, &local);
    const ULONGLONG ticks = static_cast<ULONGLONG>(local.dwHighDateTime) << 32 | local.dwLowDateTime;
    return FromFileTime(ticks);
}

WinRandom::WinRandom() {
    LARGE_INTEGER counter{};
    QueryPerformanceCounter(&counter);
    state_ = static_cast<unsigned long long>(counter.QuadPart) ^ static_cast<unsigned long long>(GetCurrentProcessId())
                                                                     << 32;
}

double WinRandom::Next() {
    // splitmix64, which works with any seed.
    state_ += 0x9E3779B97F4A7C15ULL;
    unsigned long long z = state_;
    z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ z >> 27) * 0x94D049BB133111EBULL;
    z ^= z >> 31;
    constexpr double kTwoTo53 = 9007199254740992.0;
    return static_cast<double>(z >> 11) / kTwoTo53;
}

}  // namespace quillo

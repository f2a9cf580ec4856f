// The thread functions that the C++ library needs, linked only to the program. GCC's library links a whole
// implementation of POSIX threads, 26 kB, but uses only ten functions of it, for static objects and for exceptions.
// Their locks are held very briefly, and two threads hardly ever need one at the same time, so that waiting is polling.
#if defined(__MINGW32__) && defined(_WIN64)

#include <pthread.h>

#include <atomic>

#include "platform/win32.h"

namespace {

/// A free lock contains one of the initializers, all of which are negative. A held one contains the identifier of its
/// thread and how often that thread has locked it.
constexpr pthread_mutex_t kFree = PTHREAD_MUTEX_INITIALIZER;
constexpr int kCountBits = 16;

pthread_mutex_t OwnedOnce() {
    return (static_cast<pthread_mutex_t>(GetCurrentThreadId()) << kCountBits) + 1;
}

bool IsOwn(pthread_mutex_t state) {
    return state >= 0 && (state >> kCountBits) == (OwnedOnce() >> kCountBits);
}

constexpr DWORD kPauseMilliseconds = 1;

constexpr pthread_once_t kNever = PTHREAD_ONCE_INIT;
constexpr pthread_once_t kRunning = 1;
constexpr pthread_once_t kDone = 2;

}  // namespace

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name,readability-non-const-parameter): the signatures are
// those of POSIX.
extern "C" {

int pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t* /*attributes*/) {
    *mutex = kFree;
    return 0;
}

int pthread_mutex_destroy(pthread_mutex_t* /*mutex*/) {
    return 0;
}

int pthread_mutex_lock(pthread_mutex_t* mutex) {
    const std::atomic_ref<pthread_mutex_t> state(*mutex);
    for (;;) {
        pthread_mutex_t now = state.load();
        if (IsOwn(now)) return state.store(now + 1), 0;
        if (now < 0 && state.compare_exchange_strong(now, OwnedOnce())) return 0;
        if (now >= 0) Sleep(kPauseMilliseconds);
    }
}

int pthread_mutex_unlock(pthread_mutex_t* mutex) {
    const std::atomic_ref<pthread_mutex_t> state(*mutex);
    const pthread_mutex_t now = state.load();
    state.store(now == OwnedOnce() ? kFree : now - 1);
    return 0;
}

/// May return without a signal, as any implementation may: the caller checks its condition again.
int pthread_cond_wait(pthread_cond_t* /*condition*/, pthread_mutex_t* mutex) {
    pthread_mutex_unlock(mutex);
    Sleep(kPauseMilliseconds);
    return pthread_mutex_lock(mutex);
}

int pthread_cond_broadcast(pthread_cond_t* /*condition*/) {
    return 0;
}

int pthread_once(pthread_once_t* control, void (*routine)()) {
    const std::atomic_ref<pthread_once_t> state(*control);
    pthread_once_t expected = kNever;
    if (state.compare_exchange_strong(expected, kRunning)) {
        routine();
        state.store(kDone);
    }
    while (state.load() != kDone) Sleep(kPauseMilliseconds);
    return 0;
}

int pthread_key_create(pthread_key_t* key, void (*destructor)(void*)) {
    *key = FlsAlloc(destructor);
    return *key == FLS_OUT_OF_INDEXES ? 1 : 0;
}

void* pthread_getspecific(pthread_key_t key) {
    return FlsGetValue(key);
}

int pthread_setspecific(pthread_key_t key, const void* value) {
    return FlsSetValue(key, const_cast<void*>(value)) != 0 ? 0 : 1;
}

}  // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name,readability-non-const-parameter)

#endif

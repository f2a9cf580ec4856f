#include "platform/session_end_block.h"

#include "platform/late_library.h"

namespace quillo {

SessionEndCalls SystemSessionEndCalls() {
    SessionEndCalls calls;
    calls.block = [](HWND window, const wchar_t* reason) {
        static LateFunction<BOOL WINAPI(HWND, LPCWSTR)> create(L"user32.dll", "ShutdownBlockReasonCreate");
        if (create.Get() != nullptr) create.Get()(window, reason);
    };
    calls.allow = [](HWND window) {
        static LateFunction<BOOL WINAPI(HWND)> destroy(L"user32.dll", "ShutdownBlockReasonDestroy");
        if (destroy.Get() != nullptr) destroy.Get()(window);
    };
    return calls;
}

}  // namespace quillo

#pragma once

#include "platform/win32.h"

namespace quillo {

/// A function of a system library that is loaded at its first use, from the system folder only: start-up does not pay
/// for it, and an older system that lacks the function still runs the program.
template <typename Function>
class LateFunction {
  public:
    LateFunction(const wchar_t* library, const char* name) : library_(library), name_(name) {}

    /// Null if the system does not have it.
    [[nodiscard]] Function* Get() {
        if (!tried_) {
            tried_ = true;
            // The full path is for systems that do not know the flag.
            HMODULE module = LoadLibraryExW(library_, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
            if (module == nullptr && GetLastError() == ERROR_INVALID_PARAMETER) module = LoadLibraryW(library_);
            if (module != nullptr) {
                // The generic pointer in between shows that the types differ on purpose.
                function_ = reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name_)));
            }
        }
        return function_;
    }

  private:
    const wchar_t* library_;
    const char* name_;
    Function* function_ = nullptr;
    bool tried_ = false;
};

}  // namespace quillo

#pragma once

#include "platform/win32.h"

// After windows.h.
#include <objbase.h>

namespace quillo {

/// Initializes COM for the length of a call; harmless if the thread has it already.
class ComScope {
  public:
    ComScope() : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ComScope(const ComScope&) = delete;
    ComScope& operator=(const ComScope&) = delete;
    ~ComScope() {
        if (entered_) CoUninitialize();
    }

  private:
    bool entered_;
};

}  // namespace quillo

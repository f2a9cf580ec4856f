#pragma once

#include "platform/win32.h"

// After windows.h.
#include <ole2.h>

namespace quillo::e2e {

/// OLE requires objects that count their references; one of these is on the stack during a drag, so nobody deletes it.
template <typename Interface>
class StackObject : public Interface {
  public:
    virtual ~StackObject() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, __uuidof(Interface));
        *object = known ? static_cast<Interface*>(this) : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
};

}  // namespace quillo::e2e

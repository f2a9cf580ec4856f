#pragma once

#include "platform/win32.h"
#include "util/geometry.h"

// After windows.h.
#include <ole2.h>

#include <functional>

namespace quillo {

/// Tells a control where data is dragged over it, and takes none of it. OLE counts its references; the control holds
/// one.
class TabDropTarget : public IDropTarget {
  public:
    /// `over` gets the point in the window's client area.
    TabDropTarget(HWND window, std::function<void(Point)> over);
    TabDropTarget(const TabDropTarget&) = delete;
    TabDropTarget& operator=(const TabDropTarget&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) override;
    HRESULT STDMETHODCALLTYPE DragOver(DWORD keys, POINTL at, DWORD* effect) override;
    HRESULT STDMETHODCALLTYPE DragLeave() override;
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) override;

    /// The control is going: nothing is told any more.
    void Disconnect() { over_ = nullptr; }

  private:
    virtual ~TabDropTarget() = default;

    HWND window_;
    std::function<void(Point)> over_;
    ULONG references_ = 1;
};

}  // namespace quillo

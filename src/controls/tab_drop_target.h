#pragma once

#include <functional>

#include "platform/drop_target.h"
#include "util/geometry.h"

namespace quillo {

/// Tells a control where data is dragged over it, and takes none of it. The control holds one reference.
class TabDropTarget : public DropTarget {
  public:
    /// `over` gets the point in the window's client area.
    TabDropTarget(HWND window, std::function<void(Point)> over);

    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) override;
    HRESULT STDMETHODCALLTYPE DragOver(DWORD keys, POINTL at, DWORD* effect) override;
    HRESULT STDMETHODCALLTYPE DragLeave() override;
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) override;

    /// The control is going: nothing is told any more.
    void Disconnect() { over_ = nullptr; }

  private:
    ~TabDropTarget() override = default;

    HWND window_;
    std::function<void(Point)> over_;
};

}  // namespace quillo

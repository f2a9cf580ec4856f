#include "controls/tab_drop_target.h"

#include <utility>

namespace quillo {

TabDropTarget::TabDropTarget(HWND window, std::function<void(Point)> over) : window_(window), over_(std::move(over)) {}

HRESULT STDMETHODCALLTYPE TabDropTarget::DragEnter(IDataObject* /*data*/, DWORD keys, POINTL at, DWORD* effect) {
    return DragOver(keys, at, effect);
}

HRESULT STDMETHODCALLTYPE TabDropTarget::DragOver(DWORD /*keys*/, POINTL at, DWORD* effect) {
    *effect = DROPEFFECT_NONE;
    POINT client{at.x, at.y};
    ScreenToClient(window_, &client);
    if (const auto over = over_) over(Point{client.x, client.y});
    return S_OK;
}

HRESULT STDMETHODCALLTYPE TabDropTarget::DragLeave() {
    return S_OK;
}

HRESULT STDMETHODCALLTYPE TabDropTarget::Drop(IDataObject* /*data*/, DWORD /*keys*/, POINTL /*at*/, DWORD* effect) {
    *effect = DROPEFFECT_NONE;
    return S_OK;
}

}  // namespace quillo

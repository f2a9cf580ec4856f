#include "mainmenu/menu_drop_target.h"

namespace quillo {
namespace {

/// A copy where the source allows one: what is dropped stays where it came from.
DWORD CopyEffect(DWORD offered, bool taken) {
    return taken ? offered & DROPEFFECT_COPY : DROPEFFECT_NONE;
}

}  // namespace

HRESULT STDMETHODCALLTYPE MenuDropTarget::DragEnter(IDataObject* data, DWORD keys, POINTL at, DWORD* effect) {
    files_ = static_cast<int>(DroppedFiles(data).size());
    return DragOver(keys, at, effect);
}

HRESULT STDMETHODCALLTYPE MenuDropTarget::DragOver(DWORD, POINTL at, DWORD* effect) {
    *effect = CopyEffect(*effect, accepts_ && accepts_(Point{at.x, at.y}, files_));
    return S_OK;
}

HRESULT STDMETHODCALLTYPE MenuDropTarget::DragLeave() {
    files_ = 0;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE MenuDropTarget::Drop(IDataObject* data, DWORD, POINTL at, DWORD* effect) {
    files_ = 0;
    *effect = CopyEffect(*effect, drop_ && drop_(Point{at.x, at.y}, DroppedFiles(data)));
    return S_OK;
}

void MenuDropTarget::Disconnect() {
    accepts_ = nullptr;
    drop_ = nullptr;
}

}  // namespace quillo

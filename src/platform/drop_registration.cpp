#include "platform/drop_registration.h"

#include <utility>

namespace quillo {

bool DropRegistration::Register(OleSession& ole, DropTargetPtr target) {
    Release();
    if (!ole.Start() || RegisterDragDrop(target->Window(), target.get()) != S_OK) return false;
    target_ = std::move(target);
    return true;
}

void DropRegistration::Release() {
    if (!target_) return;
    // Emptied first: OLE may pump messages.
    const DropTargetPtr target = std::exchange(target_, nullptr);
    target->Disconnect();
    RevokeDragDrop(target->Window());
}

}  // namespace quillo

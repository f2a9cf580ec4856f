#include "mainmenu/menu_drop_target.h"

namespace quillo {
namespace {

/// A copy where the source allows one: what is dropped stays where it came from.
DWORD CopyEffect(DWORD offered, bool taken) {
    return taken ? offered & DROPEFFECT_COPY : DROPEFFECT_NONE;
}

}  // namespace

void MenuDropTarget::SetDragOver(bool over) {
    files_ = 0;
    if (onDragOver) onDragOver(over);
}

DWORD MenuDropTarget::OnEnter(IDataObject* data, Point at, DWORD offered) {
    SetDragOver(true);
    files_ = static_cast<int>(DroppedFiles(data).size());
    return OnOver(at, offered);
}

DWORD MenuDropTarget::OnOver(Point at, DWORD offered) {
    return CopyEffect(offered, TakesDrops() && accepts_(at, files_));
}

DWORD MenuDropTarget::OnDrop(IDataObject* data, Point at, DWORD offered) {
    SetDragOver(false);
    // Messages run while the source is asked: the menu may be gone or disabled afterwards.
    const std::vector<std::u16string> files = DroppedFiles(data);
    return CopyEffect(offered, TakesDrops() && drop_(at, files));
}

}  // namespace quillo

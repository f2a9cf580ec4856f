#include "mainmenu/menu_drop_target.h"

namespace quillo {
namespace {

/// Copying where the source allows it, so that the source keeps its data.
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
    // Calls to the source pump messages: the menu may be closed or disabled afterwards.
    const std::vector<std::u16string> files = DroppedFiles(data);
    return CopyEffect(offered, TakesDrops() && drop_(at, files));
}

}  // namespace quillo

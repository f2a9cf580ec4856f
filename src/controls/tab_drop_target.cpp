#include "controls/tab_drop_target.h"

namespace quillo {

DWORD TabDropTarget::OnEnter(IDataObject* /*data*/, Point at, DWORD offered) {
    return OnOver(at, offered);
}

DWORD TabDropTarget::OnOver(Point at, DWORD /*offered*/) {
    POINT client{at.x, at.y};
    ScreenToClient(Window(), &client);
    over_(Point{client.x, client.y});
    return DROPEFFECT_NONE;
}

DWORD TabDropTarget::OnDrop(IDataObject* /*data*/, Point /*at*/, DWORD /*offered*/) {
    return DROPEFFECT_NONE;
}

}  // namespace quillo

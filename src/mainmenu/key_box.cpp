#include "mainmenu/key_box.h"

#include "platform/dialog_parts.h"

namespace quillo {
namespace {

// Read-only: pasting, or the box's own menu, cannot change it either.
constexpr ControlKind kKeyBox{L"EDIT", WS_TABSTOP | WS_GROUP | ES_CENTER | ES_READONLY, WS_EX_CLIENTEDGE};

}  // namespace

HWND KeyBox::Create(HWND parent, int id) {
    HWND box = CreateControl(parent, id, kKeyBox, u"");
    if (box != nullptr) Subclass(box);
    return box;
}

LRESULT KeyBox::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_KEYDOWN:
            if (onKey) onKey(static_cast<int>(wParam));
            return 0;
        case WM_CHAR:
            return 0;
        case WM_SETFOCUS: {
            const LRESULT result = Default(message, wParam, lParam);
            SendMessageW(Handle(), EM_SETSEL, 0, -1);  // the next key replaces this one
            return result;
        }
        default:
            return Default(message, wParam, lParam);
    }
}

}  // namespace quillo

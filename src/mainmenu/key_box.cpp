#include "mainmenu/key_box.h"

#include "platform/dialog_parts.h"

// After windows.h.
#include <commctrl.h>

namespace quillo {
namespace {

// Read-only: pasting, or the box's own menu, cannot change it either.
constexpr ControlKind kKeyBox{L"EDIT", WS_TABSTOP | WS_GROUP | ES_CENTER | ES_READONLY, WS_EX_CLIENTEDGE};

}  // namespace

HWND KeyBox::Create(HWND parent, int id) {
    HWND box = CreateControl(parent, id, kKeyBox, u"");
    if (box != nullptr) SetWindowSubclass(box, &KeyBox::Procedure, 0, reinterpret_cast<DWORD_PTR>(this));
    return box;
}

LRESULT CALLBACK KeyBox::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                   DWORD_PTR object) noexcept {
    switch (message) {
        case WM_KEYDOWN: {
            const auto& handler = reinterpret_cast<KeyBox*>(object)->onKey;
            try {
                if (handler) handler(static_cast<int>(wParam));
            } catch (...) {
                // Only misuse of a class throws; the key is ignored.
            }
            return 0;
        }
        case WM_CHAR:
            return 0;
        case WM_SETFOCUS: {
            const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
            SendMessageW(window, EM_SETSEL, 0, -1);  // the next key replaces this one
            return result;
        }
        case WM_NCDESTROY:
            RemoveWindowSubclass(window, &KeyBox::Procedure, id);
            return DefSubclassProc(window, message, wParam, lParam);
        default:
            return DefSubclassProc(window, message, wParam, lParam);
    }
}

}  // namespace quillo

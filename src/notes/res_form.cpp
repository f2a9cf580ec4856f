#include "notes/res_form.h"

#include <utility>

#include "notes/note.h"
#include "platform/gdi_scope.h"
#include "platform/wide.h"
#include "util/attempt.h"

namespace quillo {
namespace {

using MenuHandle = UniqueHandle<HMENU, &DestroyMenu>;

/// The items' ids are their actions.
MenuHandle MakeMenu(const std::vector<NoteMenuItem>& items) {
    MenuHandle menu(CreatePopupMenu());
    for (const NoteMenuItem& item : items) {
        const auto id = static_cast<UINT>(item.action);
        const std::u16string caption(item.caption);
        AppendMenuW(menu.Get(), MF_STRING | (item.checked ? MF_CHECKED : MF_UNCHECKED), id, Wide(caption));
        if (item.bold) SetMenuDefaultItem(menu.Get(), id, FALSE);
    }
    return menu;
}

/// On a system set to align menus right, as for the right-handed on a tablet, they open to the left.
UINT SideFlag() {
    return GetSystemMetrics(SM_MENUDROPALIGNMENT) != 0 ? TPM_RIGHTALIGN : TPM_LEFTALIGN;
}

}  // namespace

ResForm::ResForm(std::function<void()> onMainTimer, UINT interval)
    : onMainTimer_(std::move(onMainTimer)), interval_(interval), mainTimer_([this] { OnTick(); }) {}

void ResForm::Load() {
    Resume();
}

void ResForm::Pause() {
    running_ = false;
    mainTimer_.Stop();
}

void ResForm::Resume() {
    running_ = true;
    mainTimer_.Start(interval_);
}

void ResForm::OnTick() {
    // Stopped meanwhile: a tick that opens alerts takes time, and the messages it pumps must not start the next one.
    mainTimer_.Stop();
    Try(onMainTimer_);
    if (running_) mainTimer_.Start(interval_);
}

NoteAction ResForm::ShowArrowMenu(const Note& note, HWND window, const Rect& button) {
    if (!currentNote_.empty()) return NoteAction::None;
    currentNote_ = note.NoteKey;
    TPMPARAMS keepFree{};
    keepFree.cbSize = sizeof keepFree;
    keepFree.rcExclude = ToWin32(button);
    const UINT side = SideFlag();
    const Point corner{side == TPM_RIGHTALIGN ? button.Right() : button.left, button.Bottom()};
    // Below the button, or above it if there is not enough space below.
    return Track(ArrowMenuItems(note), side | TPM_TOPALIGN | TPM_VERTICAL, corner, window, &keepFree);
}

NoteAction ResForm::ShowIconMenu(const Note& note, HWND window) {
    if (!currentNote_.empty()) return NoteAction::None;
    currentNote_ = note.NoteKey;
    POINT pointer{};
    GetCursorPos(&pointer);
    return Track(IconMenuItems(), SideFlag() | TPM_BOTTOMALIGN | TPM_RIGHTBUTTON, Point{pointer.x, pointer.y}, window,
                 nullptr);
}

void ResForm::NoteClosing(const Note& note) {
    if (note.NoteKey == currentNote_) EndMenu();
}

NoteAction ResForm::Track(const std::vector<NoteMenuItem>& items, UINT flags, Point at, HWND window,
                          TPMPARAMS* keepFree) {
    const MenuHandle menu = MakeMenu(items);
    // Without the keyboard focus the menu would stay open when the user clicks elsewhere.
    SetForegroundWindow(window);
    const BOOL chosen =
        TrackPopupMenuEx(menu.Get(), flags | TPM_RETURNCMD | TPM_NONOTIFY, at.x, at.y, window, keepFree);
    currentNote_.clear();
    return static_cast<NoteAction>(chosen);
}

}  // namespace quillo

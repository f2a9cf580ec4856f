#include "notes/note_button_bar.h"

#include <algorithm>
#include <array>

#include "platform/gdi_scope.h"

namespace quillo {

NoteButtonBar::NoteButtonBar(NoteButtonImages& images)
    : close_(images), pushpin_(images), menu_(images), sign_(images) {
    menu_.SetPicture(ButtonPicture::Menu);
    menu_.SetMenuMode(true);
    menu_.onMouseDown = [this] {
        if (!HasClosedMenu(static_cast<DWORD>(GetMessageTime()))) onAction(NoteAction::OpenMenu);
    };
    pushpin_.SetPicture(ButtonPicture::Pushpin);
    pushpin_.onClick = [this] { onAction(NoteAction::TogglePin); };
    close_.SetPicture(ButtonPicture::Close);
    close_.onClick = [this] { onAction(NoteAction::ClickClose); };
    close_.onShiftClick = [this] { onAction(NoteAction::QuickDelete); };
    for (NoteButton* button : {&menu_, &pushpin_, &close_}) {
        button->onMouse = [this, button](UINT message, LPARAM at) { tips_.Relay(button->Handle(), message, at); };
    }
    sign_.onMouse = [this](UINT message, LPARAM at) { tips_.Relay(sign_.Handle(), message, at); };
}

void NoteButtonBar::Create(HWND note, const NoteLayout& layout) {
    if (IsCreated()) return;
    menu_.Create(note, kMenuButtonId, L"Note menu", layout.menuButton);
    pushpin_.Create(note, kPushpinId, L"Always on top", layout.pushpin);
    close_.Create(note, kCloseButtonId, L"Close note", layout.closeButton);
}

void NoteButtonBar::PaintWindowless(HDC dc, const NoteLayout& layout) {
    if (!IsCreated()) menu_.PaintAtRest(dc, layout.menuButton);
    if (IsCreated() && !areRightHidden_) return;
    pushpin_.PaintAtRest(dc, layout.pushpin);
    close_.PaintAtRest(dc, layout.closeButton);
}

void NoteButtonBar::MoveTo(const NoteLayout& layout) {
    MoveChild(menu_.Handle(), layout.menuButton);
    MoveChild(sign_.Handle(), layout.saveSign);
    if (areRightHidden_) return;
    MoveChild(pushpin_.Handle(), layout.pushpin);
    MoveChild(close_.Handle(), layout.closeButton);
}

void NoteButtonBar::HideRightButtons() {
    if (!IsCreated() || areRightHidden_) return;
    areRightHidden_ = true;
    ShowWindow(pushpin_.Handle(), SW_HIDE);
    ShowWindow(close_.Handle(), SW_HIDE);
}

void NoteButtonBar::ShowRightButtons(const NoteLayout& layout) {
    if (!areRightHidden_) return;
    areRightHidden_ = false;
    MoveTo(layout);
    ShowWindow(pushpin_.Handle(), SW_SHOWNA);
    ShowWindow(close_.Handle(), SW_SHOWNA);
}

void NoteButtonBar::SetTint(const ButtonTint& tint, const Scale& scale) {
    if (scale.Dpi() != scale_.Dpi()) tips_.Destroy();
    scale_ = scale;
    for (NoteButton* button : {&menu_, &pushpin_, &close_}) button->SetTint(tint, scale);
    sign_.SetTint(tint, scale);
}

void NoteButtonBar::ShowPinned(bool pinned) {
    pushpin_.SetPicture(pinned ? ButtonPicture::PushpinPressed : ButtonPicture::Pushpin);
}

void NoteButtonBar::ShowSaveProblem(HWND note, std::u16string_view reason, const NoteLayout& layout) {
    const bool isNew = sign_.Handle() == nullptr;
    if (!sign_.Show(note, kSaveSignId, reason, layout.saveSign)) return;
    if (isNew && sign_.Handle() != nullptr && tips_.IsCreated()) tips_.Add(sign_.Handle());
}

Rect NoteButtonBar::MenuButtonPlace() const {
    RECT place{};
    GetWindowRect(menu_.Handle(), &place);
    return FromWin32(place);
}

void NoteButtonBar::MenuOpens() {
    menu_.HoldDown(true);
    tips_.SetActive(false);
}

void NoteButtonBar::MenuHasClosed() {
    menu_.HoldDown(false);
    tips_.SetActive(true);
    menuClosedAt_ = GetTickCount();
}

bool NoteButtonBar::HasClosedMenu(DWORD pressedAt) const {
    // Both times wrap around together.
    return menuClosedAt_ && static_cast<LONG>(pressedAt - *menuClosedAt_) <= 0;
}

void NoteButtonBar::PointerIsOver(HWND child) {
    if (tips_.IsCreated()) return;
    const std::array<HWND, 4> tools = {menu_.Handle(), pushpin_.Handle(), close_.Handle(), sign_.Handle()};
    if (std::find(tools.begin(), tools.end(), child) == tools.end()) return;
    MakeTips(GetParent(child));
}

void NoteButtonBar::PointerIsOverLabel(HWND note, Point at, const Rect& label) {
    if (!tips_.IsCreated() && !MakeTips(note)) return;
    tips_.MoveArea(kReminderLabelId, ToWin32(label));
    tips_.PointerMoved(at);
}

bool NoteButtonBar::MakeTips(HWND note) {
    if (!tips_.Create(note, scale_)) return false;
    for (const HWND tool : {menu_.Handle(), pushpin_.Handle(), close_.Handle(), sign_.Handle()}) {
        if (tool != nullptr) tips_.Add(tool);
    }
    tips_.AddArea(kReminderLabelId, RECT{});
    return true;
}

void NoteButtonBar::Notify(NMHDR& notification) {
    if (notification.code != TTN_GETDISPINFOW) return;
    const auto tool = reinterpret_cast<HWND>(notification.idFrom);
    auto& question = reinterpret_cast<NMTTDISPINFOW&>(notification);
    if (tool == sign_.Handle()) return tips_.Answer(question, sign_.Reason());
    const NoteTips texts = describe();
    if (notification.idFrom == kReminderLabelId) return tips_.Answer(question, texts.reminder);
    tips_.Answer(question, tool == menu_.Handle()      ? texts.menu
                           : tool == pushpin_.Handle() ? texts.pushpin
                                                       : texts.close);
}

void MoveChild(HWND child, const Rect& place) {
    if (child == nullptr) return;
    RECT now{};
    GetWindowRect(child, &now);
    MapWindowPoints(nullptr, GetParent(child), reinterpret_cast<POINT*>(&now), 2);
    if (FromWin32(now) == place) return;
    SetWindowPos(child, nullptr, place.left, place.top, place.width, place.height, SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace quillo

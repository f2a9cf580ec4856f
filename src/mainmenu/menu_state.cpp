#include "mainmenu/menu_state.h"

#include <utility>

namespace quillo {

MenuChoice ChoiceOf(MenuItem item, bool rightButton) {
    MenuChoice choice;
    choice.item = item;
    choice.quits = rightButton && (item == MenuItem::None || item == MenuItem::Close);
    choice.closesFirst = item == MenuItem::Options || item == MenuItem::About;
    return choice;
}

MenuResponse MenuState::PointerMoved(MenuPoint at, const MenuContents& contents) {
    if (pointer_ == at) return {};
    pointer_ = at;
    byKeyboard_ = false;
    return Hover(MenuItemAt(at, contents));
}

MenuResponse MenuState::PointerLeft() {
    pointer_.reset();
    return byKeyboard_ ? MenuResponse{} : Hover(MenuItem::None);
}

MenuResponse MenuState::ButtonPressed(MenuPoint at, const MenuContents& contents) {
    dropped_ = false;
    MenuResponse response = Hover(MenuItemAt(at, contents));
    response.capture = MenuResponse::Capture::Take;
    return response;
}

MenuResponse MenuState::ButtonReleased(MenuPoint at, bool rightButton, const MenuContents& contents) {
    if (dragOver_ || std::exchange(dropped_, false)) return {};
    MenuResponse response = Hover(MenuItemAt(at, contents));
    response.capture = MenuResponse::Capture::Release;
    response.choice = ChoiceOf(hovered_, rightButton);
    return response;
}

void MenuState::SetDragOver(bool over) {
    dragOver_ = over;
    dropped_ = !over;
}

MenuResponse MenuState::Move(MenuMove move, const MenuContents& contents) {
    byKeyboard_ = true;
    return Hover(MoveInMenu(hovered_, move, contents));
}

MenuResponse MenuState::ChooseHovered() const {
    MenuResponse response;
    if (hovered_ != MenuItem::None) response.choice = ChoiceOf(hovered_, false);
    return response;
}

MenuResponse MenuState::Hover(MenuItem item) {
    MenuResponse response;
    if (item != hovered_) response.left = std::exchange(hovered_, item);
    return response;
}

}  // namespace quillo

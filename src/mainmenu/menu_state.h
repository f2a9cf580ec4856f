#pragma once

#include <optional>

#include "mainmenu/menu_map.h"

namespace quillo {

/// A choice in the menu. The menu closes after it, or before it if the item opens a dialog that stays until the user
/// closes it.
struct MenuChoice {
    MenuItem item = MenuItem::None;  ///< None only closes the menu
    bool quits = false;              ///< the program ends
    bool closesFirst = false;
    friend bool operator==(const MenuChoice&, const MenuChoice&) = default;
};

/// Any mouse button chooses an item; the right one quits the program over the cross and where there is no item.
[[nodiscard]] MenuChoice ChoiceOf(MenuItem item, bool rightButton);

/// What the window of the menu has to do after an event, in this order.
struct MenuResponse {
    enum class Capture { Keep, Take, Release } capture = Capture::Keep;
    /// The item that was hovered before, if another one is hovered now.
    std::optional<MenuItem> left;
    std::optional<MenuChoice> choice;
    friend bool operator==(const MenuResponse&, const MenuResponse&) = default;
};

/// The behavior of the main menu, independent of any window: which item is hovered, by the pointer or by the keyboard,
/// and what a press chooses. Each event gets the current contents of the menu.
class MenuState {
  public:
    /// None if there is no such item.
    [[nodiscard]] MenuItem Hovered() const { return hovered_; }

    /// Called before the menu is shown.
    void Open() { hovered_ = MenuItem::None; }
    /// The system repeats the last move when a window appears or disappears; that does not undo a move by keyboard.
    [[nodiscard]] MenuResponse PointerMoved(MenuPoint at, const MenuContents& contents);
    [[nodiscard]] MenuResponse PointerLeft();
    [[nodiscard]] MenuResponse ButtonPressed(MenuPoint at, const MenuContents& contents);
    /// A release chooses the item under the pointer, also that of a button pressed elsewhere. The release that ends a
    /// drag belongs to the drag, regardless of the window that the system sends it to.
    [[nodiscard]] MenuResponse ButtonReleased(MenuPoint at, bool rightButton, const MenuContents& contents);
    /// Another program drags something over the menu, or the drag has left or was dropped.
    void SetDragOver(bool over);
    /// A key moves to another item.
    [[nodiscard]] MenuResponse Move(MenuMove move, const MenuContents& contents);
    /// A key chooses the hovered item.
    [[nodiscard]] MenuResponse ChooseHovered() const;

  private:
    [[nodiscard]] MenuResponse Hover(MenuItem item);

    MenuItem hovered_ = MenuItem::None;
    std::optional<MenuPoint> pointer_;  ///< where the pointer was last; none after it has left
    bool byKeyboard_ = false;           ///< the hovered item was reached by keyboard
    bool dragOver_ = false;             ///< another program drags something over the menu
    bool dropped_ = false;              ///< the drag has left or was dropped, and no button has been pressed since
};

}  // namespace quillo

#include "mainmenu/menu_map.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace quillo {
namespace {

using Item = MenuItem;

constexpr MenuContents kAll{true, {true, true, true, true}};
constexpr MenuContents kNothing{};

TEST(MenuMap, EveryBoundaryPointBelongsToItsItem) {
    struct Case {
        double x;
        double y;
        Item item;
    };
    const Case cases[] = {
        // Outside.
        {-1, 0, Item::None},
        {0, -1, Item::None},
        {-0.25, 60, Item::None},
        {300, 60, Item::None},
        {299, 180, Item::None},
        {150, 180, Item::None},
        // The head.
        {0, 0, Item::None},
        {229, 39, Item::None},
        {230, 20, Item::None},  // intended: exactly 230 belongs to no item
        {230.5, 20, Item::About},
        {231, 0, Item::About},
        {264, 39, Item::About},
        {265, 0, Item::Close},
        {299, 39, Item::Close},
        {264, 39.5, Item::About},
        // The pillar, down to the bottom.
        {0, 40, Item::NewNote},
        {99, 40, Item::NewNote},
        {99, 179, Item::NewNote},
        {99.75, 150, Item::NewNote},
        {0, 179, Item::NewNote},
        // The middle.
        {100, 40, Item::ShowAllNotes},
        {200, 40, Item::ShowAllNotes},  // 200 still belongs to it
        {200, 119, Item::ShowAllNotes},
        {200.5, 119.5, Item::Options},
        {201, 40, Item::Options},
        {299, 119, Item::Options},
        // The slots.
        {100, 120, Item::Shortcut1},
        {149, 179, Item::Shortcut1},
        {150, 120, Item::Shortcut2},
        {199, 150, Item::Shortcut2},
        {200, 120, Item::Shortcut3},
        {249, 150, Item::Shortcut3},
        {250, 150, Item::Shortcut4},
        {299, 179, Item::Shortcut4},
        {100, 119, Item::ShowAllNotes},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(MenuAreaAt({c.x, c.y}), c.item) << c.x << ", " << c.y;
        EXPECT_EQ(MenuItemAt({c.x, c.y}, kAll), c.item) << c.x << ", " << c.y;
    }
}

TEST(MenuMap, BetweenTwoPixelsASlotBeginsAtTheNearestWithHalvesToTheEvenOne) {
    struct Case {
        double x;
        Item item;
    };
    const Case cases[] = {
        {149.4, Item::Shortcut1},  {149.5, Item::Shortcut2},                            // 150 is even
        {148.5, Item::Shortcut1},  {150.5, Item::Shortcut2},                            // 150 again
        {199.5, Item::Shortcut3},  {249.5, Item::Shortcut4}, {299.5, Item::Shortcut4},  // there is no fifth slot
        {299.75, Item::Shortcut4},
    };
    for (const Case& c : cases) EXPECT_EQ(MenuAreaAt({c.x, 150}), c.item) << c.x;
}

TEST(MenuMap, WithoutNotesShowAllNotesIsNone) {
    EXPECT_EQ(MenuItemAt({150, 80}, kAll), Item::ShowAllNotes);
    MenuContents state = kAll;
    state.hasNotes = false;
    EXPECT_EQ(MenuItemAt({150, 80}, state), Item::None);
    EXPECT_EQ(MenuItemAt({250, 80}, state), Item::Options);
}

TEST(MenuMap, AnEmptySlotIsNone) {
    for (int slot = 1; slot <= kMenuSlots; ++slot) {
        MenuContents state = kAll;
        state.hasShortcut.at(static_cast<std::size_t>(slot) - 1) = false;
        for (int other = 1; other <= kMenuSlots; ++other) {
            const MenuPoint at{75.0 + 50 * other, 150};
            EXPECT_EQ(MenuItemAt(at, state), other == slot ? Item::None : ShortcutItem(other));
        }
    }
    EXPECT_FALSE(IsEnabled(Item::None, kAll));
}

TEST(MenuMap, SlotsAreNumberedFromOne) {
    EXPECT_EQ(static_cast<int>(Item::Shortcut1), 5);
    EXPECT_EQ(static_cast<int>(Item::Shortcut4), 8);
    for (int slot = 1; slot <= kMenuSlots; ++slot) {
        EXPECT_TRUE(IsShortcut(ShortcutItem(slot)));
        EXPECT_EQ(ShortcutNumber(ShortcutItem(slot)), slot);
    }
    EXPECT_FALSE(IsShortcut(Item::About));
    EXPECT_FALSE(IsShortcut(Item::None));
}

TEST(MenuMap, HighlightsCoverTheirAreasAndNeverEachOther) {
    EXPECT_EQ(HighlightRect(Item::None), Rect{});
    for (int x = 0; x < kMenuSize.width; ++x) {
        for (int y = 0; y < kMenuSize.height; ++y) {
            int covering = 0;
            for (const Item item : MenuOrder()) covering += HighlightRect(item).Contains(Point{x, y}) ? 1 : 0;
            EXPECT_LE(covering, 1) << x << ", " << y;
            const Item item = MenuAreaAt({static_cast<double>(x), static_cast<double>(y)});
            // The one column in which the edges of the areas differ from those of the picture.
            if (x == 200 || item == Item::None) continue;
            EXPECT_TRUE(HighlightRect(item).Contains(Point{x, y})) << x << ", " << y;
        }
    }
    EXPECT_EQ(HighlightRect(Item::ShowAllNotes), kShowAllPlace) << "its disabled picture lies exactly over it";
}

// The keyboard.

TEST(MenuMap, TabVisitsEveryItemOnceAndWrapsAround) {
    std::vector<Item> visited;
    Item item = Item::None;
    for (std::size_t i = 0; i < MenuOrder().size(); ++i) {
        item = MoveInMenu(item, MenuMove::Next, kAll);
        visited.push_back(item);
    }
    EXPECT_EQ(visited, MenuOrder());
    EXPECT_EQ(MoveInMenu(item, MenuMove::Next, kAll), MenuOrder().front());
    EXPECT_EQ(MoveInMenu(MenuOrder().front(), MenuMove::Previous, kAll), MenuOrder().back());
    EXPECT_EQ(MoveInMenu(Item::None, MenuMove::Previous, kAll), MenuOrder().back());
}

TEST(MenuMap, TheFirstArrowSelectsNewNote) {
    for (const MenuMove move : {MenuMove::Left, MenuMove::Right, MenuMove::Up, MenuMove::Down, MenuMove::Next}) {
        EXPECT_EQ(MoveInMenu(Item::None, move, kAll), Item::NewNote);
    }
}

TEST(MenuMap, ArrowsMoveInTheirDirection) {
    struct Case {
        Item from;
        MenuMove move;
        Item to;
    };
    const Case cases[] = {
        {Item::NewNote, MenuMove::Right, Item::ShowAllNotes}, {Item::ShowAllNotes, MenuMove::Right, Item::Options},
        {Item::Options, MenuMove::Right, Item::Options},      {Item::Options, MenuMove::Left, Item::ShowAllNotes},
        {Item::ShowAllNotes, MenuMove::Left, Item::NewNote},  {Item::NewNote, MenuMove::Left, Item::NewNote},
        {Item::Options, MenuMove::Up, Item::About},           {Item::About, MenuMove::Right, Item::Close},
        {Item::Close, MenuMove::Left, Item::About},           {Item::Close, MenuMove::Down, Item::Options},
        {Item::Shortcut1, MenuMove::Right, Item::Shortcut2},  {Item::Shortcut4, MenuMove::Left, Item::Shortcut3},
        {Item::Shortcut1, MenuMove::Up, Item::ShowAllNotes},  {Item::Shortcut4, MenuMove::Up, Item::Options},
        {Item::Shortcut1, MenuMove::Left, Item::NewNote},     {Item::Shortcut2, MenuMove::Down, Item::Shortcut2},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(MoveInMenu(c.from, c.move, kAll), c.to)
            << static_cast<int>(c.from) << " by " << static_cast<int>(c.move);
    }
}

TEST(MenuMap, ArrowsSkipItemsThatCannotBeChosen) {
    EXPECT_EQ(MoveInMenu(Item::NewNote, MenuMove::Right, kNothing), Item::Options);
    EXPECT_EQ(MoveInMenu(Item::Options, MenuMove::Down, kNothing), Item::Options) << "nothing is below";
    EXPECT_EQ(MoveInMenu(Item::Options, MenuMove::Next, kNothing), Item::About);
}

TEST(MenuMap, ArrowsReachEveryEnabledItem) {
    for (unsigned bits = 0; bits < 32; ++bits) {
        const auto bit = [bits](unsigned n) { return (bits >> n & 1U) != 0; };
        const MenuContents state{bit(0), {bit(1), bit(2), bit(3), bit(4)}};
        std::set<Item> reached{MoveInMenu(Item::None, MenuMove::Down, state)};
        for (std::size_t before = 0; before != reached.size();) {
            before = reached.size();
            for (const Item item : std::set<Item>(reached)) {
                for (const MenuMove move : {MenuMove::Left, MenuMove::Right, MenuMove::Up, MenuMove::Down}) {
                    reached.insert(MoveInMenu(item, move, state));
                }
            }
        }
        std::set<Item> enabled;
        for (const Item item : MenuOrder()) {
            if (IsEnabled(item, state)) enabled.insert(item);
        }
        EXPECT_EQ(reached, enabled) << bits;
    }
}

}  // namespace
}  // namespace quillo

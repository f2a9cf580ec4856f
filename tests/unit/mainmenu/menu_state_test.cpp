#include "mainmenu/menu_state.h"

#include <gtest/gtest.h>

namespace quillo {
namespace {

using Item = MenuItem;
using Capture = MenuResponse::Capture;

constexpr MenuContents kAll{true, {true, true, true, true}};
constexpr MenuContents kNothing{};

// A point of some items, and one that no item has.
constexpr MenuPoint kNewNote{50, 100};
constexpr MenuPoint kShowAll{150, 80};
constexpr MenuPoint kOptions{250, 80};
constexpr MenuPoint kCross{280, 20};
constexpr MenuPoint kSlot2{175, 150};
constexpr MenuPoint kNowhere{100, 20};

TEST(MenuState, EachItemsChoiceByEachButton) {
    struct Case {
        Item item;
        bool right;
        MenuChoice choice;
    };
    const Case cases[] = {
        {Item::None, false, {Item::None, false, false}},
        {Item::None, true, {Item::None, true, false}},
        {Item::Close, false, {Item::Close, false, false}},
        {Item::Close, true, {Item::Close, true, false}},
        {Item::NewNote, false, {Item::NewNote, false, false}},
        {Item::NewNote, true, {Item::NewNote, false, false}},
        {Item::ShowAllNotes, true, {Item::ShowAllNotes, false, false}},
        {Item::Options, false, {Item::Options, false, true}},
        {Item::Options, true, {Item::Options, false, true}},
        {Item::About, false, {Item::About, false, true}},
        {Item::Shortcut1, true, {Item::Shortcut1, false, false}},
        {Item::Shortcut4, false, {Item::Shortcut4, false, false}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ChoiceOf(c.item, c.right), c.choice) << static_cast<int>(c.item) << (c.right ? " right" : " left");
    }
}

TEST(MenuState, TheItemUnderThePointerIsHovered) {
    MenuState state;
    EXPECT_EQ(state.PointerMoved(kNewNote, kAll), (MenuResponse{Capture::Keep, Item::None, {}}));
    EXPECT_EQ(state.Hovered(), Item::NewNote);
    EXPECT_EQ(state.PointerMoved({51, 100}, kAll), MenuResponse{}) << "inside the same item";
    EXPECT_EQ(state.PointerMoved(kSlot2, kAll), (MenuResponse{Capture::Keep, Item::NewNote, {}}));
    EXPECT_EQ(state.Hovered(), Item::Shortcut2);
    EXPECT_EQ(state.PointerLeft(), (MenuResponse{Capture::Keep, Item::Shortcut2, {}}));
    EXPECT_EQ(state.Hovered(), Item::None);
}

TEST(MenuState, AnItemThatCannotBeChosenIsNotHovered) {
    MenuState state;
    EXPECT_EQ(state.PointerMoved(kShowAll, kNothing), MenuResponse{});
    EXPECT_EQ(state.PointerMoved(kSlot2, kNothing), MenuResponse{});
    EXPECT_EQ(state.Hovered(), Item::None);
}

TEST(MenuState, ARepeatedMoveAndALeavingPointerDoNotUndoAMoveByKeyboard) {
    MenuState state;
    (void)state.PointerMoved(kOptions, kAll);
    EXPECT_EQ(state.Move(MenuMove::Left, kAll), (MenuResponse{Capture::Keep, Item::Options, {}}));
    EXPECT_EQ(state.Hovered(), Item::ShowAllNotes);
    EXPECT_EQ(state.PointerMoved(kOptions, kAll), MenuResponse{});
    EXPECT_EQ(state.PointerLeft(), MenuResponse{});
    EXPECT_EQ(state.Hovered(), Item::ShowAllNotes);
    (void)state.PointerMoved(kOptions, kAll);
    EXPECT_EQ(state.Hovered(), Item::Options) << "the pointer has been away: this is a move";
    (void)state.PointerLeft();
    EXPECT_EQ(state.Hovered(), Item::None) << "the item was the pointer's";
}

TEST(MenuState, OpeningHoversNothing) {
    MenuState state;
    (void)state.Move(MenuMove::Next, kAll);
    state.Open();
    EXPECT_EQ(state.Hovered(), Item::None);
}

TEST(MenuState, AKeyChoosesOnlyAHoveredItem) {
    MenuState state;
    EXPECT_EQ(state.ChooseHovered(), MenuResponse{});
    (void)state.Move(MenuMove::Next, kAll);
    EXPECT_EQ(state.ChooseHovered(), (MenuResponse{Capture::Keep, {}, MenuChoice{Item::NewNote}}));
}

TEST(MenuState, APressTakesTheMouseAndItsReleaseChooses) {
    MenuState state;
    EXPECT_EQ(state.ButtonPressed(kOptions, kAll), (MenuResponse{Capture::Take, Item::None, {}}));
    EXPECT_EQ(state.ButtonReleased(kOptions, false, kAll),
              (MenuResponse{Capture::Release, {}, MenuChoice{Item::Options, false, true}}));
}

TEST(MenuState, AReleaseWithoutAPressChoosesToo) {
    MenuState state;
    EXPECT_EQ(state.ButtonReleased(kCross, true, kAll),
              (MenuResponse{Capture::Release, Item::None, MenuChoice{Item::Close, true}}));
}

TEST(MenuState, AReleaseOutsideEveryItemOnlyCloses) {
    MenuState state;
    (void)state.ButtonPressed(kNewNote, kAll);
    EXPECT_EQ(state.ButtonReleased({-10, -10}, false, kAll),
              (MenuResponse{Capture::Release, Item::NewNote, MenuChoice{}}));
    EXPECT_EQ(state.ButtonReleased(kNowhere, false, kAll), (MenuResponse{Capture::Release, {}, MenuChoice{}}));
}

TEST(MenuState, TheReleaseThatEndsADragIsIgnored) {
    MenuState state;
    state.SetDragOver(true);
    EXPECT_EQ(state.ButtonReleased(kNewNote, false, kAll), MenuResponse{}) << "before the drop is reported";
    state.SetDragOver(false);
    EXPECT_EQ(state.ButtonReleased(kNewNote, false, kAll), MenuResponse{}) << "after it";
    EXPECT_TRUE(state.ButtonReleased(kNewNote, false, kAll).choice) << "that was the one release of the drag";
    state.SetDragOver(false);
    (void)state.ButtonPressed(kNewNote, kAll);
    EXPECT_TRUE(state.ButtonReleased(kNewNote, false, kAll).choice) << "a press begins something new";
}

}  // namespace
}  // namespace quillo

#include "util/placement.h"

#include <gtest/gtest.h>

namespace quillo {
namespace {

constexpr Rect kScreen{0, 0, 1000, 800};

TEST(Placement, KeepsInsideByTheShortestWay) {
    EXPECT_EQ(KeepInside(Rect{10, 20, 300, 200}, kScreen), (Rect{10, 20, 300, 200}));
    EXPECT_EQ(KeepInside(Rect{-5, 700, 300, 200}, kScreen), (Rect{0, 600, 300, 200}));
    EXPECT_EQ(KeepInside(Rect{900, -9, 300, 200}, kScreen), (Rect{700, 0, 300, 200}));
    EXPECT_EQ(KeepInside(Rect{50, 50, 1200, 900}, kScreen), (Rect{0, 0, 1200, 900})) << "its corner stays in reach";
    EXPECT_EQ(KeepInside(Rect{0, 0, 100, 100}, Rect{-1000, 100, 1000, 800}), (Rect{-100, 100, 100, 100}));
}

TEST(Placement, OverTheMiddleOfItsOwner) {
    EXPECT_EQ(PlaceOver(Rect{400, 300, 200, 100}, Size{300, 200}, kScreen), (Rect{350, 250, 300, 200}));
    EXPECT_EQ(PlaceOver(Rect{0, 0, 200, 100}, Size{300, 200}, kScreen), (Rect{0, 0, 300, 200}));
}

TEST(Placement, BesideItsOwnerWhereItFits) {
    const struct {
        const char* where;
        Rect owner;
        Rect place;
    } cases[] = {
        {"right", {100, 100, 200, 150}, {308, 100, 300, 120}},
        {"right, pushed up", {100, 780, 200, 150}, {308, 680, 300, 120}},
        {"left", {600, 100, 200, 150}, {292, 100, 300, 120}},
        {"below", {200, 100, 600, 150}, {200, 258, 300, 120}},
        {"below, pushed left", {250, 100, 750, 150}, {250, 258, 300, 120}},
        {"above", {200, 600, 600, 150}, {200, 472, 300, 120}},
        {"nowhere", {100, 50, 800, 700}, {350, 340, 300, 120}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(PlaceBeside(c.owner, Size{300, 120}, kScreen, 8), c.place) << c.where;
    }
}

TEST(FittingDpi, ShrinksByTheExcessAndAtLeastByOne) {
    EXPECT_EQ(FittingDpi(192, {1300, 1080}, {1920, 540}), 96) << "twice as high as the space";
    EXPECT_EQ(FittingDpi(192, {1300, 1080}, {650, 540}), 96);
    EXPECT_EQ(FittingDpi(144, {1000, 810}, {500, 810}), 72) << "twice as wide";
    EXPECT_EQ(FittingDpi(144, {1000, 810}, {1366, 810}), 143) << "fonts do not shrink evenly: one step more";
    EXPECT_LT(FittingDpi(96, {100, 100}, {0, 0}), 96);
}

}  // namespace
}  // namespace quillo

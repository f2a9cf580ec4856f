#include "reminders/reminder_alert.h"

#include <gtest/gtest.h>

namespace quillo {
namespace {

const DaySerial kNow = ToDaySerial({2026, 11, 15, 14, 10, 0});
constexpr double kQuarterSecond = 0.25 / 86'400;

TEST(ReminderAlert, ADueReminderOpensTheAlert) {
    EXPECT_EQ(CheckReminder(true, kNow, kNow, false), ReminderCheck::ClearAndAlert) << "equal is due";
    EXPECT_EQ(CheckReminder(true, DaySerial{kNow.days - 400}, kNow, false), ReminderCheck::ClearAndAlert);
    EXPECT_EQ(CheckReminder(true, DaySerial{kNow.days - kQuarterSecond}, kNow, false), ReminderCheck::ClearAndAlert);
    EXPECT_EQ(CheckReminder(true, DaySerial{kNow.days + kQuarterSecond}, kNow, false), ReminderCheck::Nothing);
    EXPECT_EQ(CheckReminder(true, DaySerial{kNow.days + 1}, kNow, false), ReminderCheck::Nothing);
}

TEST(ReminderAlert, WithoutAReminderNothingIsDue) {
    for (const bool alertOpen : {false, true}) {
        EXPECT_EQ(CheckReminder(false, DaySerial{}, kNow, alertOpen), ReminderCheck::Nothing);
        EXPECT_EQ(CheckReminder(false, kNow, kNow, alertOpen), ReminderCheck::Nothing);
    }
}

TEST(ReminderAlert, AnOpenAlertAlsoCountsForTheNextReminder) {
    EXPECT_EQ(CheckReminder(true, kNow, kNow, true), ReminderCheck::Clear);
    EXPECT_EQ(CheckReminder(true, DaySerial{kNow.days + 1}, kNow, true), ReminderCheck::Nothing);
}

TEST(ReminderAlert, TheStripIsThirtyFiveHighWithoutFortyAtItsRightEnd) {
    const Scale scale;
    EXPECT_TRUE(IsAlertDragStrip({0, 0}, 320, scale));
    EXPECT_TRUE(IsAlertDragStrip({279, 34}, 320, scale));
    EXPECT_FALSE(IsAlertDragStrip({280, 34}, 320, scale));
    EXPECT_FALSE(IsAlertDragStrip({319, 0}, 320, scale));
    EXPECT_FALSE(IsAlertDragStrip({279, 35}, 320, scale));
    EXPECT_FALSE(IsAlertDragStrip({0, 35}, 320, scale));
    EXPECT_FALSE(IsAlertDragStrip({0, 0}, 40, scale)) << "an alert too narrow for a strip";
}

TEST(ReminderAlert, TheStripGrowsWithTheResolution) {
    const Scale scale(192);
    EXPECT_TRUE(IsAlertDragStrip({559, 69}, 640, scale));
    EXPECT_FALSE(IsAlertDragStrip({560, 69}, 640, scale));
    EXPECT_FALSE(IsAlertDragStrip({559, 70}, 640, scale));
}

TEST(ReminderAlert, EscapeDismissesWithAnyModifier) {
    for (const bool control : {false, true}) {
        for (const bool rightAlt : {false, true}) EXPECT_TRUE(DismissesAlert(27, {control, rightAlt}));
    }
}

TEST(ReminderAlert, ControlWDismissesButNoOtherW) {
    EXPECT_TRUE(DismissesAlert('W', {true, false}));
    EXPECT_FALSE(DismissesAlert('W', {false, false}));
    EXPECT_FALSE(DismissesAlert('W', {false, true}));
    EXPECT_FALSE(DismissesAlert('W', {true, true})) << "AltGr comes with Ctrl and makes a character";
}

TEST(ReminderAlert, OtherKeysDoNothing) {
    for (int key = 0; key < 256; ++key) {
        if (key == 27 || key == 'W') continue;
        EXPECT_FALSE(DismissesAlert(key, {true, false})) << key;
        EXPECT_FALSE(DismissesAlert(key, {false, false})) << key;
    }
}

TEST(ReminderAlert, SeveralAlertsCascadeWithinTheWorkArea) {
    const Scale scale;
    const Rect workArea{100, 50, 1280, 760};
    const Size alert{320, 180};
    EXPECT_EQ(PlaceAlert(alert, workArea, 0, scale), (Rect{580, 340, 320, 180}));
    EXPECT_EQ(PlaceAlert(alert, workArea, 1, scale), (Rect{615, 375, 320, 180})) << "the strip beneath stays in sight";
    for (std::size_t open = 0; open < 50; ++open) {
        const Rect place = PlaceAlert(alert, workArea, open, scale);
        EXPECT_GE(place.left, workArea.left);
        EXPECT_GE(place.top, workArea.top);
        EXPECT_LE(place.Right(), workArea.Right());
        EXPECT_LE(place.Bottom(), workArea.Bottom());
        EXPECT_NE(place, PlaceAlert(alert, workArea, open + 1, scale));
    }
}

TEST(ReminderAlert, AWorkAreaSmallerThanTheAlertShowsItsTopLeftCorner) {
    const Rect place = PlaceAlert({320, 180}, {10, 20, 200, 100}, 3, Scale());
    EXPECT_EQ(place, (Rect{10, 20, 320, 180}));
}

}  // namespace
}  // namespace quillo

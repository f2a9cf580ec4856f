#include "reminders/alert_places.h"

#include <gtest/gtest.h>

namespace quillo {
namespace {

TEST(AlertPlaces, AreTakenInOrder) {
    AlertPlaces places;
    EXPECT_EQ(places.Take(), 0U);
    EXPECT_EQ(places.Take(), 1U);
    EXPECT_EQ(places.Take(), 2U);
}

TEST(AlertPlaces, TheFirstFreeOneIsTakenAgain) {
    AlertPlaces places;
    for (int i = 0; i < 3; ++i) (void)places.Take();
    places.Free(1);
    EXPECT_EQ(places.Take(), 1U) << "place 2 still shows an alert";
    EXPECT_EQ(places.Take(), 3U);
    places.Free(0);
    places.Free(2);
    EXPECT_EQ(places.Take(), 0U);
    EXPECT_EQ(places.Take(), 2U);
}

TEST(AlertPlaces, AfterTheLastAlertAllAreFree) {
    AlertPlaces places;
    EXPECT_TRUE(places.AllFree());
    (void)places.Take();
    (void)places.Take();
    places.Free(0);
    EXPECT_FALSE(places.AllFree());
    places.Free(1);
    EXPECT_TRUE(places.AllFree());
}

TEST(AlertPlaces, FreeingAFreePlaceChangesNothing) {
    AlertPlaces places;
    places.Free(7);
    EXPECT_EQ(places.Take(), 0U);
}

}  // namespace
}  // namespace quillo

#include "util/lifetime.h"

#include <gtest/gtest.h>

#include <memory>

namespace quillo {
namespace {

TEST(Lifetime, AWatchKnowsWhetherTheObjectHasEnded) {
    auto object = std::make_unique<Lifetime>();
    const Lifetime::Watch watch(*object);
    EXPECT_FALSE(watch.Ended());
    object.reset();
    EXPECT_TRUE(watch.Ended());
}

TEST(Lifetime, EveryNestedWatchKnowsIt) {
    auto object = std::make_unique<Lifetime>();
    const Lifetime::Watch outer(*object);
    {
        const Lifetime::Watch inner(*object);
        object.reset();
        EXPECT_TRUE(inner.Ended());
    }
    EXPECT_TRUE(outer.Ended());
}

TEST(Lifetime, AnObjectIsWatchedUntilItsLastWatchEnds) {
    Lifetime object;
    EXPECT_FALSE(object.IsWatched());
    {
        const Lifetime::Watch outer(object);
        { const Lifetime::Watch inner(object); }
        EXPECT_TRUE(object.IsWatched());
    }
    EXPECT_FALSE(object.IsWatched());
}

}  // namespace
}  // namespace quillo

#include "notes/note_batch.h"

#include <gtest/gtest.h>

namespace quillo {
namespace {

TEST(NoteBatchTest, OnlyTheFirstOfABatchAsks) {
    NoteBatch batch;
    int asked = 0;
    for (const bool answer : {true, false}) {
        asked = 0;
        const NoteBatch::Scope open(batch);
        const auto ask = [&] { return ++asked, answer; };
        EXPECT_EQ(batch.IsInFront(ask), answer);
        EXPECT_EQ(batch.IsInFront(ask), answer);
        EXPECT_EQ(asked, 1);
    }
}

TEST(NoteBatchTest, OutsideABatchNothingIsKnownAndNobodyAsks) {
    NoteBatch batch;
    const auto ask = [] { return ADD_FAILURE(), true; };
    EXPECT_FALSE(batch.IsInFront(ask));
    { const NoteBatch::Scope open(batch); }
    EXPECT_FALSE(batch.IsInFront(ask));
}

}  // namespace
}  // namespace quillo

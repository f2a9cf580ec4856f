#include "platform/after_painting.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>
#include <vector>

#include "import_counter.h"
#include "support.h"

namespace quillo {
namespace {

using windows_tests::ImportCounter;
using windows_tests::PumpUntil;

class AfterPaintingTest : public testing::Test {
  protected:
    /// The work records its number.
    void Add(int number) {
        later_.Add(&owners_[static_cast<std::size_t>(number)], [this, number] { done_.push_back(number); });
    }
    void Cancel(int number) { later_.Cancel(&owners_[static_cast<std::size_t>(number)]); }
    [[nodiscard]] bool IsDone(std::vector<int> numbers) {
        return PumpUntil([&] { return done_ == numbers; });
    }

    AfterPainting later_;
    std::array<char, 10> owners_{};
    std::vector<int> done_;
};

TEST_F(AfterPaintingTest, EachWorkRunsOnceInOrderAndNoneIsDoneAtOnce) {
    for (const int number : {1, 2, 3}) Add(number);
    EXPECT_TRUE(done_.empty());
    EXPECT_TRUE(IsDone({1, 2, 3}));
    Add(4);
    EXPECT_TRUE(IsDone({1, 2, 3, 4}));
}

TEST_F(AfterPaintingTest, OneTimerServesAllAndNoneRemains) {
    const ImportCounter<30, decltype(SetTimer)> started("SetTimer");
    const ImportCounter<31, decltype(KillTimer)> ended("KillTimer");
    ASSERT_TRUE(started.IsCalled() && ended.IsCalled());
    for (const int number : {1, 2, 3, 4, 5}) Add(number);
    EXPECT_EQ(started.Calls(), 1);
    EXPECT_TRUE(IsDone({1, 2, 3, 4, 5}));
    EXPECT_EQ(started.Calls(), 1);
    EXPECT_EQ(ended.Calls(), 1);
}

TEST_F(AfterPaintingTest, CanceledWorkDoesNotRun) {
    for (const int number : {1, 2, 3}) Add(number);
    Cancel(2);
    EXPECT_TRUE(IsDone({1, 3}));
    const ImportCounter<30, decltype(SetTimer)> started("SetTimer");
    const ImportCounter<31, decltype(KillTimer)> ended("KillTimer");
    Add(4);
    Cancel(4);
    Cancel(4);
    EXPECT_EQ(started.Calls(), ended.Calls()) << "no timer waits for nothing";
    Add(5);
    EXPECT_TRUE(IsDone({1, 3, 5}));
}

TEST_F(AfterPaintingTest, WorkMayAddAndCancelOtherWork) {
    later_.Add(this, [this] {
        Cancel(1);
        Add(3);
    });
    Add(1);
    Add(2);
    EXPECT_TRUE(IsDone({2, 3}));
}

TEST_F(AfterPaintingTest, WorkThatThrowsAffectsNoOther) {
    Add(1);
    later_.Add(this, [] { throw std::runtime_error("a fault"); });
    Add(2);
    EXPECT_TRUE(IsDone({1, 2}));
}

TEST_F(AfterPaintingTest, AWaitingMessageComesBeforeTheNextWork) {
    later_.Add(this, [this] {
        done_.push_back(1);
        PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, 0);
    });
    Add(2);
    MSG message{};
    while (done_.empty()) {
        ASSERT_GT(GetMessageW(&message, nullptr, 0, 0), 0);
        DispatchMessageW(&message);
    }
    EXPECT_EQ(done_, std::vector<int>({1}));
    EXPECT_TRUE(IsDone({1, 2}));
}

}  // namespace
}  // namespace quillo

#include "util/lifetime.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

namespace quillo {
namespace {

/// An object with handlers, as a control has them.
struct Control {
    std::function<void()> onClick;
    std::function<void(int)> onChange;
    Lifetime lifetime;
};

TEST(Lifetime, RaisePassesTheArgumentsAndReportsThatTheObjectIsAlive) {
    Control control;
    int seen = 0;
    control.onChange = [&](int value) { seen = value; };
    EXPECT_TRUE(control.lifetime.Raise(control.onChange, 7));
    EXPECT_EQ(seen, 7);
}

TEST(Lifetime, AnEmptyHandlerDoesNothing) {
    const Control control;
    EXPECT_TRUE(control.lifetime.Raise(control.onClick));
    control.lifetime.RaiseLast(control.onChange, 7);
    EXPECT_FALSE(control.lifetime.IsRaising());
}

TEST(Lifetime, AHandlerMayDestroyTheObjectAndKeepsItsOwnValues) {
    auto control = std::make_unique<Control>();
    const std::string captured = "a text that is too long to be stored in the string itself";
    std::string seen;
    control->onClick = [&control, &seen, captured] {
        control.reset();
        seen = captured;
    };
    EXPECT_FALSE(control->lifetime.Raise(control->onClick));
    EXPECT_EQ(seen, captured);
}

TEST(Lifetime, AHandlerMayReplaceItself) {
    Control control;
    const std::string captured = "a text that is too long to be stored in the string itself";
    std::string seen;
    control.onClick = [&control, &seen, captured] {
        control.onClick = nullptr;
        seen = captured;
    };
    EXPECT_TRUE(control.lifetime.Raise(control.onClick));
    EXPECT_EQ(seen, captured);
    EXPECT_FALSE(control.onClick);
}

TEST(Lifetime, EveryNestedCallReportsTheEndOfTheObject) {
    auto control = std::make_unique<Control>();
    const Lifetime& lifetime = control->lifetime;
    bool innerIsAlive = true;
    control->onChange = [&](int) { control.reset(); };
    control->onClick = [&] { innerIsAlive = lifetime.Raise(control->onChange, 1); };
    EXPECT_FALSE(control->lifetime.Raise(control->onClick));
    EXPECT_FALSE(innerIsAlive);
}

TEST(Lifetime, TheEndOfAnInnerObjectIsNotThatOfTheOuterOne) {
    const Control outer;
    auto inner = std::make_unique<Control>();
    inner->onClick = [&] { inner.reset(); };
    bool innerIsAlive = true;
    EXPECT_TRUE(
        outer.lifetime.Raise(std::function<void()>([&] { innerIsAlive = inner->lifetime.Raise(inner->onClick); })));
    EXPECT_FALSE(innerIsAlive);
}

TEST(Lifetime, AHandlerRunsUntilTheLastNestedCallReturns) {
    Control control;
    bool afterInner = false;
    control.onChange = [](int) {};
    control.onClick = [&] {
        control.lifetime.RaiseLast(control.onChange, 1);
        afterInner = control.lifetime.IsRaising();
    };
    control.lifetime.RaiseLast(control.onClick);
    EXPECT_TRUE(afterInner);
    EXPECT_FALSE(control.lifetime.IsRaising());
}

TEST(Lifetime, AHandlerThatFailsIsNoLongerRunning) {
    Control control;
    control.onClick = [] { throw std::logic_error("misuse"); };
    EXPECT_THROW(control.lifetime.RaiseLast(control.onClick), std::logic_error);
    EXPECT_FALSE(control.lifetime.IsRaising());
}

TEST(Lifetime, AHandlerMayDestroyTheObjectAndFail) {
    auto control = std::make_unique<Control>();
    control->onClick = [&] {
        control.reset();
        throw std::logic_error("misuse");
    };
    EXPECT_THROW(control->lifetime.RaiseLast(control->onClick), std::logic_error);
    EXPECT_EQ(control, nullptr);
}

}  // namespace
}  // namespace quillo

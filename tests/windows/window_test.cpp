#include "platform/window.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <stdexcept>

#include "platform/message_loop.h"
#include "platform/subclass.h"
#include "platform/ui_timer.h"
#include "support.h"

namespace quillo {
namespace {

using windows_tests::PumpUntil;
using windows_tests::PumpWaiting;

constexpr UINT kThrow = WM_APP + 1;
constexpr UINT kCount = WM_APP + 2;
constexpr UINT kEnd = WM_APP + 3;
constexpr UINT kCrash = WM_APP + 4;

class TestWindow : public Window {
  public:
    ~TestWindow() override { Destroy(); }
    bool Make(bool refuse = false) {
        refuse_ = refuse;
        WindowPlan plan;
        plan.className = L"QuilloTestWindow";
        plan.title = L"test";
        plan.style = WS_POPUP;
        plan.place = Rect{10, 20, 100, 50};
        return Create(plan);
    }
    [[nodiscard]] Rect Client() const { return ClientRect(); }

    int counted = 0;
    bool sawCreate = false;
    bool sawLast = false;  ///< WM_NCDESTROY arrived while the object was still bound

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        switch (message) {
            case WM_CREATE:
                sawCreate = Handle() != nullptr;
                return refuse_ ? -1 : 0;
            case kThrow:
                throw std::runtime_error("misuse");
            case kCount:
                return ++counted;
            case kEnd:
                Destroy();
                return Handle() == nullptr ? 1 : 0;
            case kCrash: {
                volatile int* nowhere = nullptr;
                *nowhere = 1;
                return 0;
            }
            case WM_NCDESTROY:
                sawLast = Handle() != nullptr;
                return Default(message, wParam, lParam);
            default:
                return Default(message, wParam, lParam);
        }
    }

  private:
    bool refuse_ = false;
};

class TestWindowOfAClass : public Window {
  public:
    ~TestWindowOfAClass() override { Destroy(); }
    bool Make(WindowClass& windowClass) {
        WindowPlan plan;
        plan.style = WS_POPUP;
        return Create(windowClass, plan);
    }

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        return Default(message, wParam, lParam);
    }
};

int timesDescribed = 0;

TEST(WindowTest, AClassIsDescribedOnceForAllItsWindows) {
    timesDescribed = 0;
    WindowClass windowClass(L"QuilloTestClass", [] {
        ++timesDescribed;
        return UINT{CS_DBLCLKS};
    });
    EXPECT_EQ(timesDescribed, 0);
    TestWindowOfAClass one;
    TestWindowOfAClass two;
    ASSERT_TRUE(one.Make(windowClass));
    ASSERT_TRUE(two.Make(windowClass));
    EXPECT_EQ(timesDescribed, 1);
    EXPECT_NE(GetClassLongPtrW(two.Handle(), GCL_STYLE) & CS_DBLCLKS, 0U);
    WindowClass again(L"QuilloTestClass", [] { return UINT{0}; });
    TestWindowOfAClass three;
    EXPECT_TRUE(three.Make(again)) << "the system knows the name already";
}

TEST(WindowTest, TheObjectIsBoundFromTheFirstMessageToTheLast) {
    TestWindow window;
    EXPECT_EQ(window.Handle(), nullptr);
    ASSERT_TRUE(window.Make());
    EXPECT_TRUE(window.sawCreate);
    EXPECT_EQ(window.Client(), (Rect{0, 0, 100, 50}));
    EXPECT_EQ(SendMessageW(window.Handle(), kCount, 0, 0), 1);
    const HWND handle = window.Handle();
    DestroyWindow(handle);  // by other code
    EXPECT_TRUE(window.sawLast);
    EXPECT_EQ(window.Handle(), nullptr);
    EXPECT_EQ(IsWindow(handle), FALSE);
    ASSERT_TRUE(window.Make()) << "the object can make another window";
}

TEST(WindowTest, AWindowCanEndWithinItsOwnHandler) {
    TestWindow window;
    ASSERT_TRUE(window.Make());
    EXPECT_EQ(SendMessageW(window.Handle(), kEnd, 0, 0), 1);
    EXPECT_EQ(window.Handle(), nullptr);
}

TEST(WindowTest, TheObjectDestroysItsWindow) {
    auto window = std::make_unique<TestWindow>();
    ASSERT_TRUE(window->Make());
    const HWND handle = window->Handle();
    window.reset();
    EXPECT_EQ(IsWindow(handle), FALSE);
}

TEST(WindowTest, ARefusedWindowHasNoHandle) {
    TestWindow window;
    EXPECT_FALSE(window.Make(true));
    EXPECT_EQ(window.Handle(), nullptr);
}

TEST(WindowTest, AnExceptionIsCaughtAtTheBoundary) {
    TestWindow window;
    ASSERT_TRUE(window.Make());
    EXPECT_EQ(SendMessageW(window.Handle(), kThrow, 0, 0), 0);
    EXPECT_EQ(SendMessageW(window.Handle(), kCount, 0, 0), 1) << "the window continues";
}

class TestControl : public SubclassedControl {
  public:
    explicit TestControl(HWND control) { Subclass(control); }

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        return message == kCount ? 7 : Default(message, wParam, lParam);
    }
};

HWND MakeLabel() {
    return CreateWindowExW(0, L"STATIC", L"label", WS_POPUP, 0, 0, 5, 5, nullptr, nullptr, nullptr, nullptr);
}

TEST(SubclassedControlTest, AControlThatOutlivesItsObjectHandlesItsMessagesItself) {
    const HWND label = MakeLabel();
    const LONG_PTR own = GetWindowLongPtrW(label, GWLP_WNDPROC);
    {
        const TestControl control(label);
        EXPECT_EQ(SendMessageW(label, kCount, 0, 0), 7);
    }
    ASSERT_EQ(GetWindowLongPtrW(label, GWLP_WNDPROC), own);
    EXPECT_EQ(SendMessageW(label, kCount, 0, 0), 0);
    EXPECT_NE(DestroyWindow(label), 0);
}

TEST(SubclassedControlTest, AnObjectThatOutlivesItsControlLosesItsHandle) {
    const HWND label = MakeLabel();
    const TestControl control(label);
    EXPECT_EQ(control.Handle(), label);
    DestroyWindow(label);
    EXPECT_EQ(control.Handle(), nullptr);
}

TEST(WindowDeathTest, ACrashInAHandlerEndsATestProgram) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_EXIT(
        {
            TestWindow window;
            if (window.Make()) SendMessageW(window.Handle(), kCrash, 0, 0);
            std::exit(0);
        },
        testing::ExitedWithCode(windows_tests::kCrashExitCode), "crash: exception C0000005");
}

TEST(UiTimerTest, TicksUntilItIsStopped) {
    int ticks = 0;
    UiTimer timer([&] { ++ticks; });
    EXPECT_FALSE(timer.IsRunning());
    timer.Start(1);
    EXPECT_TRUE(timer.IsRunning());
    ASSERT_TRUE(PumpUntil([&] { return ticks >= 3; }));
    timer.Stop();
    EXPECT_FALSE(timer.IsRunning());
    const int atStop = ticks;
    int others = 0;
    UiTimer other([&] { ++others; });
    other.Start(1);
    ASSERT_TRUE(PumpUntil([&] { return others >= 5; }));
    EXPECT_EQ(ticks, atStop);
}

TEST(UiTimerTest, ATickPostedBeforeTheTimerStoppedIsDropped) {
    int ticks = 0;
    UiTimer timer([&] { ++ticks; });
    timer.Start(1);
    MSG message{};
    ASSERT_GT(GetMessageW(&message, nullptr, WM_TIMER, WM_TIMER), 0);
    timer.Stop();
    DispatchMessageW(&message);
    EXPECT_EQ(ticks, 0);
}

TEST(UiTimerTest, DoesNotReEnterATickThatPumpsMessages) {
    int ticks = 0;
    int depth = 0;
    int deepest = 0;
    int others = 0;
    UiTimer other([&] { ++others; });
    UiTimer timer([&] {
        ++ticks;
        deepest = std::max(deepest, ++depth);
        const int until = others + 5;
        EXPECT_TRUE(PumpUntil([&] { return others >= until; }));
        --depth;
    });
    other.Start(1);
    timer.Start(1);
    ASSERT_TRUE(PumpUntil([&] { return ticks >= 2; }));
    EXPECT_EQ(deepest, 1);
}

TEST(UiTimerTest, MayDestroyItselfInItsTick) {
    int ticks = 0;
    std::unique_ptr<UiTimer> timer;
    timer = std::make_unique<UiTimer>([&] {
        timer.reset();
        ++ticks;
    });
    timer->Start(1);
    ASSERT_TRUE(PumpUntil([&] { return ticks >= 1; }));
    EXPECT_EQ(timer, nullptr);
    int others = 0;
    UiTimer other([&] { ++others; });
    other.Start(1);
    ASSERT_TRUE(PumpUntil([&] { return others >= 3; }));
    EXPECT_EQ(ticks, 1);
}

TEST(UiTimerTest, MayStopAndStartItselfInItsTick) {
    int ticks = 0;
    UiTimer restarting([&] {
        ++ticks;
        restarting.Stop();
        if (ticks < 3) restarting.Start(1);
    });
    restarting.Start(1);
    ASSERT_TRUE(PumpUntil([&] { return ticks == 3; }));
    EXPECT_FALSE(restarting.IsRunning());
}

TEST(UiTimerTest, AnIntervalOfZeroLeavesItInactive) {
    int ticks = 0;
    UiTimer timer([&] { ++ticks; });
    timer.Start(1);
    timer.Start(0);
    EXPECT_FALSE(timer.IsRunning());
    int others = 0;
    UiTimer other([&] { ++others; });
    other.Start(1);
    ASSERT_TRUE(PumpUntil([&] { return others >= 5; }));
    EXPECT_EQ(ticks, 0);
}

TEST(UiTimerTest, ATickThatThrowsIsDroppedAndTheNextOneFires) {
    int ticks = 0;
    UiTimer timer([&] {
        ++ticks;
        throw std::runtime_error("misuse");
    });
    timer.Start(1);
    EXPECT_TRUE(PumpUntil([&] { return ticks >= 2; }));
}

TEST(MessageLoopTest, RunsIdleActionsOnceWhenNothingWaits) {
    TestWindow window;
    ASSERT_TRUE(window.Make());
    MessageLoop loop;
    int countedBefore = -1;
    int runs = 0;
    loop.RunWhenIdle([&] {
        ++runs;
        countedBefore = window.counted;
        PostMessageW(window.Handle(), kCount, 0, 0);
        // An action added by an action needs no message to wake the loop.
        loop.RunWhenIdle([&] { loop.Quit(7); });
    });
    for (int i = 0; i < 3; ++i) PostMessageW(window.Handle(), kCount, 0, 0);
    EXPECT_EQ(loop.Run(), 7);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(countedBefore, 3) << "after what was waiting";
    EXPECT_EQ(window.counted, 4);
}

TEST(MessageLoopTest, AnIdleActionAddedByAnIdleActionNeedsNoMessage) {
    PumpWaiting();
    MessageLoop loop;
    // Ends the loop of a broken program: a correct one ends long before.
    UiTimer deadline([&] { loop.Quit(1); });
    deadline.Start(10'000);
    loop.RunWhenIdle([&] { loop.RunWhenIdle([&] { loop.Quit(0); }); });
    EXPECT_EQ(loop.Run(), 0);
}

TEST(MessageLoopTest, RunsAfterEveryMessageOutsideItsHandler) {
    TestWindow window;
    ASSERT_TRUE(window.Make());
    PumpWaiting();
    MessageLoop loop;
    int lastSeen = 0;
    loop.RunAfterEach([&] {
        EXPECT_LE(window.counted - lastSeen, 1) << "one message at a time";
        lastSeen = window.counted;
        if (lastSeen == 3) loop.Quit(0);
    });
    for (int i = 0; i < 3; ++i) PostMessageW(window.Handle(), kCount, 0, 0);
    EXPECT_EQ(loop.Run(), 0);
    EXPECT_EQ(lastSeen, 3);
}

TEST(MessageLoopTest, EndsAlsoWhenAnInnerLoopRemovedTheQuitMessage) {
    TestWindow window;
    ASSERT_TRUE(window.Make());
    PumpWaiting();
    MessageLoop loop;
    loop.RunAfterEach([&] {
        if (window.counted == 0) return;
        loop.Quit(5);
        MSG taken{};
        EXPECT_NE(PeekMessageW(&taken, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE), 0);
    });
    PostMessageW(window.Handle(), kCount, 0, 0);
    EXPECT_EQ(loop.Run(), 5);
    MSG left{};
    EXPECT_EQ(PeekMessageW(&left, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE), 0);
}

}  // namespace
}  // namespace quillo

#include "mainmenu/notify_window.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "platform/wide.h"
#include "support.h"

namespace quillo {
namespace {

using windows_tests::PumpUntil;

class NotifyWindowTest : public testing::Test {
  protected:
    NotifyWindowTest() {
        window_.onCommand = [this](std::u16string_view text) { commands_.emplace_back(text); };
    }
    /// The text box, as a sender of the protocol finds it.
    [[nodiscard]] static HWND FindBox() {
        const HWND form = FindWindowW(L"ThunderRT6FormDC", L"Quillo Notify");
        return form == nullptr ? nullptr : FindWindowExW(form, nullptr, L"ThunderRT6TextBox", nullptr);
    }

    NotifyWindow window_;
    std::vector<std::u16string> commands_;
};

TEST_F(NotifyWindowTest, ASenderFindsItByItsNames) {
    EXPECT_EQ(FindBox(), nullptr);
    ASSERT_TRUE(window_.Load());
    EXPECT_NE(FindBox(), nullptr);
    EXPECT_EQ(IsWindowVisible(window_.Handle()), FALSE);
    window_.Unload();
    EXPECT_EQ(FindBox(), nullptr);
    ASSERT_TRUE(window_.Load()) << "it can come again";
}

TEST_F(NotifyWindowTest, ACommandLineArrivesOnceAndTheBoxIsEmptyAgain) {
    ASSERT_TRUE(window_.Load());
    EXPECT_TRUE(SendToRunningInstance(u"/new", 0));
    EXPECT_TRUE(SendToRunningInstance(u"C:\\\u65E5\u672C.qln", 0));
    EXPECT_EQ(commands_, (std::vector<std::u16string>{u"/new", u"C:\\\u65E5\u672C.qln"}));
    EXPECT_EQ(GetWindowTextLengthW(FindBox()), 0);
}

TEST_F(NotifyWindowTest, ANarrowSenderIsUnderstood) {
    ASSERT_TRUE(window_.Load());
    SendMessageA(FindBox(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>("/show"));
    EXPECT_EQ(commands_, std::vector<std::u16string>{u"/show"});
}

TEST_F(NotifyWindowTest, TheSameCommandTwiceCountsTwice) {
    ASSERT_TRUE(window_.Load());
    EXPECT_TRUE(SendToRunningInstance(u"/new", 0));
    EXPECT_TRUE(SendToRunningInstance(u"/new", 0));
    EXPECT_EQ(commands_.size(), 2U);
}

TEST_F(NotifyWindowTest, LongCommandLinesArriveWhole) {
    ASSERT_TRUE(window_.Load());
    const std::u16string text(32'000, u'x');
    EXPECT_TRUE(SendToRunningInstance(text, 0));
    EXPECT_EQ(commands_, std::vector<std::u16string>{text});
}

TEST_F(NotifyWindowTest, ACommandDuringACommandIsNotLost) {
    ASSERT_TRUE(window_.Load());
    window_.onCommand = [&](std::u16string_view text) {
        commands_.emplace_back(text);
        const bool first = text == u"/first";
        if (first && !SendToRunningInstance(u"/second", 0)) ADD_FAILURE();  // as while a message box is open
    };
    EXPECT_TRUE(SendToRunningInstance(u"/first", 0));
    EXPECT_EQ(commands_, (std::vector<std::u16string>{u"/first", u"/second"}));
}

/// A running instance on a thread of its own that does not read its messages until the system treats it as hung and
/// `release` is set; then it reads them until a command has arrived.
class BusyInstance {
  public:
    BusyInstance() : thread_([this] { Run(); }) {}
    ~BusyInstance() { thread_.join(); }

    [[nodiscard]] bool IsHung() const { return isHung_; }
    [[nodiscard]] std::vector<std::u16string> Commands() {
        thread_.join();
        thread_ = std::thread([] {});
        return commands_;
    }
    std::atomic<bool> release{false};

  private:
    void Run() {
        NotifyWindow window;
        window.onCommand = [this](std::u16string_view text) { commands_.emplace_back(text); };
        if (!window.Load()) return;
        const ULONGLONG deadline = GetTickCount64() + 60'000;
        while (IsHungAppWindow(window.Handle()) == FALSE && GetTickCount64() < deadline) Sleep(20);
        isHung_ = IsHungAppWindow(window.Handle()) != FALSE;
        while (!release && GetTickCount64() < deadline) Sleep(1);
        while (commands_.empty() && GetTickCount64() < deadline) {
            MSG message{};
            PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);
            Sleep(1);
        }
    }

    std::vector<std::u16string> commands_;
    std::atomic<bool> isHung_{false};
    std::thread thread_;
};

TEST_F(NotifyWindowTest, WaitsForAnInstanceThatTheSystemTreatsAsHung) {
    BusyInstance instance;
    ASSERT_TRUE(PumpUntil([&] { return instance.IsHung(); }));
    std::atomic<bool> returned{false};
    std::thread sender([&] {
        EXPECT_TRUE(SendToRunningInstance(u"/new", 0));
        returned = true;
    });
    // Long enough for a sender that gives up on a hung window; a sender that waits is still there.
    const ULONGLONG grace = GetTickCount64() + 500;
    while (!returned && GetTickCount64() < grace) Sleep(1);
    EXPECT_FALSE(returned) << "the command has not been read yet";
    instance.release = true;
    EXPECT_EQ(instance.Commands(), std::vector<std::u16string>{u"/new"});
    sender.join();
}

TEST_F(NotifyWindowTest, AMissingInstanceIsReportedAtOnce) {
    EXPECT_FALSE(SendToRunningInstance(u"/new", 0));
}

}  // namespace
}  // namespace quillo

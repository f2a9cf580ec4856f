#include "mainmenu/notify_window.h"

#include <gtest/gtest.h>

#include "platform/wide.h"
#include "support.h"

namespace quillo {
namespace {

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

TEST_F(NotifyWindowTest, ACommandLineComesOnceAndTheBoxIsEmptyAgain) {
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

TEST_F(NotifyWindowTest, LongCommandLinesComeWhole) {
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

TEST_F(NotifyWindowTest, NobodyThereIsToldAtOnce) {
    EXPECT_FALSE(SendToRunningInstance(u"/new", 0));
}

}  // namespace
}  // namespace quillo

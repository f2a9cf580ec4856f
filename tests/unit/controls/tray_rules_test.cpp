#include "controls/tray_rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "tray_fakes.h"

namespace quillo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr TrayHandle kPicture = 0x77;
constexpr auto kAdd = TrayCommand::Add;
constexpr auto kModify = TrayCommand::Modify;
constexpr auto kDelete = TrayCommand::Delete;
constexpr auto kSetVersion = TrayCommand::SetVersion;

class TrayRulesTest : public testing::Test {
  protected:
    /// Shows an icon, and clears the log.
    void Show() {
        TrayProperties properties;
        properties.icon = kPicture;
        icon_->Load(properties);
        tray_.calls.clear();
    }
    /// The events raised for a sequence of messages.
    std::vector<TrayEvent> Events(const std::vector<std::uint32_t>& messages) {
        std::vector<TrayEvent> events;
        for (const std::uint32_t message : messages) {
            icon_->Receive(message, [&events](TrayEvent event) { events.push_back(event); });
        }
        return events;
    }

    DoubleByteText locale_;
    FakeTray tray_;
    std::unique_ptr<TrayRules> icon_ = std::make_unique<TrayRules>(tray_, locale_);
};

TEST_F(TrayRulesTest, ANewIconCountsAsVisibleAndMakesNoCall) {
    EXPECT_TRUE(icon_->Visible());
    EXPECT_TRUE(icon_->Enabled());
    EXPECT_EQ(icon_->Icon(), 0u);
    EXPECT_EQ(icon_->ToolTipText(), u"");
    EXPECT_EQ(tray_.windowsAskedFor, 0);
    EXPECT_THAT(tray_.calls, IsEmpty());
}

TEST_F(TrayRulesTest, PropertiesThatAreLeftOutHaveTheirDefaults) {
    const TrayProperties defaults;
    EXPECT_EQ(defaults.toolTipText, u"");
    EXPECT_EQ(defaults.icon, 0u);
    EXPECT_TRUE(defaults.enabled);
    EXPECT_TRUE(defaults.visible);
}

TEST_F(TrayRulesTest, LoadingAddsTheIcon) {
    icon_->Load({u"Milk", kPicture, true, true});
    ASSERT_THAT(tray_.Commands(), ElementsAre(kAdd, kSetVersion));
    for (const FakeTray::Call& call : tray_.calls) {
        EXPECT_EQ(call.record.size, sizeof(TrayRecord));
        EXPECT_EQ(call.record.window, FakeTray::kWindow);
        EXPECT_EQ(call.record.id, 1u);
        EXPECT_EQ(call.record.flags, 7u);
        EXPECT_EQ(call.record.callbackMessage, 512u);
        EXPECT_EQ(call.record.icon, kPicture);
        EXPECT_STREQ(call.record.tip, "Milk");
        EXPECT_EQ(call.record.timeoutOrVersion, 5u);
    }
    EXPECT_TRUE(icon_->Visible());
    EXPECT_TRUE(tray_.iconStands);
}

TEST_F(TrayRulesTest, LoadingAnInvisibleIconMakesNoCall) {
    icon_->Load({u"Milk", kPicture, false, false});
    EXPECT_THAT(tray_.calls, IsEmpty());
    EXPECT_EQ(tray_.windowsAskedFor, 0);
    EXPECT_FALSE(icon_->Visible());
    EXPECT_FALSE(icon_->Enabled());
    EXPECT_EQ(icon_->ToolTipText(), u"Milk");
    EXPECT_EQ(icon_->Icon(), kPicture);
}

TEST_F(TrayRulesTest, VisibilityActsOnlyWhenItChanges) {
    Show();
    icon_->SetVisible(true);
    EXPECT_THAT(tray_.calls, IsEmpty());
    icon_->SetVisible(false);
    icon_->SetVisible(false);
    EXPECT_THAT(tray_.Commands(), ElementsAre(kDelete));
    EXPECT_FALSE(tray_.iconStands);
    icon_->SetVisible(true);
    EXPECT_THAT(tray_.Commands(), ElementsAre(kDelete, kAdd, kSetVersion));
}

TEST_F(TrayRulesTest, WithoutAPictureOnlyRecreateAddsTheIcon) {
    icon_->Load({u"", 0, true, false});
    icon_->SetVisible(true);
    EXPECT_THAT(tray_.calls, IsEmpty());
    EXPECT_TRUE(icon_->Visible());

    icon_->SetIcon(kPicture);
    ASSERT_THAT(tray_.Commands(), ElementsAre(kModify));
    EXPECT_FALSE(tray_.calls[0].accepted);
    EXPECT_FALSE(tray_.iconStands);
    EXPECT_TRUE(icon_->Visible());

    icon_->Recreate();
    EXPECT_THAT(tray_.Commands(), ElementsAre(kModify, kDelete, kAdd, kSetVersion));
    EXPECT_TRUE(tray_.iconStands);
}

TEST_F(TrayRulesTest, ATipOfSeventyCharactersReachesTheShellCutButIsKeptWhole) {
    Show();
    const std::u16string tip = std::u16string(63, u'a') + u"bbbbbbb";
    icon_->SetToolTipText(tip);
    ASSERT_THAT(tray_.Commands(), ElementsAre(kModify));
    EXPECT_TRUE(tray_.calls[0].accepted);
    EXPECT_STREQ(tray_.calls[0].record.tip, std::string(63, 'a').c_str());
    EXPECT_EQ(icon_->ToolTipText(), tip);
}

TEST_F(TrayRulesTest, ATipWithoutAPictureIsOnlyKept) {
    icon_->SetToolTipText(u"Milk");
    EXPECT_THAT(tray_.calls, IsEmpty());
    EXPECT_EQ(icon_->ToolTipText(), u"Milk");
}

TEST_F(TrayRulesTest, ANewPictureIsShownAndNoPictureIsOnlyKept) {
    Show();
    icon_->SetIcon(0x88);
    ASSERT_THAT(tray_.Commands(), ElementsAre(kModify));
    EXPECT_EQ(tray_.calls[0].record.icon, 0x88u);
    icon_->SetIcon(0);
    EXPECT_EQ(icon_->Icon(), 0u);
    EXPECT_EQ(tray_.calls.size(), 1u);
    EXPECT_TRUE(tray_.iconStands);
}

TEST_F(TrayRulesTest, TheEndOfAVisibleIconDeletesIt) {
    Show();
    icon_.reset();
    EXPECT_THAT(tray_.Commands(), ElementsAre(kDelete));
    EXPECT_FALSE(tray_.iconStands);
}

TEST_F(TrayRulesTest, TheEndOfAnInvisibleIconMakesNoCall) {
    Show();
    icon_->SetVisible(false);
    tray_.calls.clear();
    icon_.reset();
    EXPECT_THAT(tray_.calls, IsEmpty());
}

TEST_F(TrayRulesTest, AFailedAddIsRetriedUntilTheShellIsReady) {
    tray_.ready = false;
    icon_->Load({u"", kPicture, true, true});
    EXPECT_THAT(tray_.Commands(), ElementsAre(kAdd));
    EXPECT_FALSE(icon_->Visible());
    EXPECT_TRUE(tray_.retryTimer);

    for (int i = 0; i < 1000; ++i) icon_->OnRetryTimer();
    EXPECT_EQ(tray_.calls.size(), 1001u);
    EXPECT_FALSE(icon_->Visible());
    EXPECT_TRUE(tray_.retryTimer);

    tray_.ready = true;
    icon_->OnRetryTimer();
    EXPECT_TRUE(tray_.iconStands);
    EXPECT_TRUE(icon_->Visible());
    EXPECT_FALSE(tray_.retryTimer);
    EXPECT_EQ(tray_.calls.back().command, kSetVersion);
}

TEST_F(TrayRulesTest, ARetryWithoutAPictureGivesUp) {
    tray_.ready = false;
    icon_->Load({u"", kPicture, true, true});
    icon_->SetIcon(0);
    icon_->OnRetryTimer();
    EXPECT_TRUE(icon_->Visible());
    EXPECT_FALSE(tray_.retryTimer);
    EXPECT_EQ(tray_.Commands().back(), kAdd);
}

TEST_F(TrayRulesTest, ARecreatedIconThatTheShellRefusesIsRetried) {
    Show();
    tray_.ready = false;
    icon_->Recreate();
    EXPECT_THAT(tray_.Commands(), ElementsAre(kDelete, kAdd));
    EXPECT_FALSE(icon_->Visible());
    EXPECT_TRUE(tray_.retryTimer);
}

TEST_F(TrayRulesTest, AnIconAddedAnotherWayIsNotRetried) {
    tray_.ready = false;
    icon_->Load({u"", kPicture, true, true});
    tray_.ready = true;
    icon_->Recreate();
    EXPECT_TRUE(tray_.iconStands);
    EXPECT_TRUE(icon_->Visible());
    EXPECT_FALSE(tray_.retryTimer);
}

// Intended: only a change of the visibility acts, and a refused icon is invisible already.
TEST_F(TrayRulesTest, MakingARefusedIconInvisibleDoesNotEndTheRetry) {
    tray_.ready = false;
    icon_->Load({u"", kPicture, true, true});
    icon_->SetVisible(false);
    EXPECT_FALSE(icon_->Visible());
    EXPECT_TRUE(tray_.retryTimer);
    EXPECT_THAT(tray_.Commands(), ElementsAre(kAdd));
}

TEST_F(TrayRulesTest, AnIconThatIsNotWantedAnyMoreIsNotRetried) {
    tray_.ready = false;
    icon_->Load({u"", kPicture, true, true});
    icon_->StopRetrying();
    EXPECT_FALSE(icon_->Visible());
    EXPECT_FALSE(tray_.retryTimer);
    EXPECT_THAT(tray_.Commands(), ElementsAre(kAdd));
}

TEST_F(TrayRulesTest, ABalloonIsShownForTheTimeAskedFor) {
    Show();
    icon_->ShowBalloon(u"Text", u"Title", 1, 15);
    ASSERT_THAT(tray_.Commands(), ElementsAre(kModify));
    const TrayRecord& record = tray_.calls[0].record;
    EXPECT_TRUE(tray_.calls[0].accepted);
    EXPECT_EQ(record.flags, 7u | 16u);
    EXPECT_STREQ(record.info, "Text");
    EXPECT_STREQ(record.infoTitle, "Title");
    EXPECT_EQ(record.infoFlags, 1u);
    EXPECT_EQ(record.timeoutOrVersion, 15u);
    EXPECT_EQ(tray_.balloonTimer, 15'000u);
}

TEST_F(TrayRulesTest, ALaterChangeDoesNotShowTheBalloonAgain) {
    Show();
    icon_->ShowBalloon(u"Text", u"Title", 1, 15);
    icon_->SetToolTipText(u"Milk");
    icon_->SetIcon(0x88);
    ASSERT_THAT(tray_.Commands(), ElementsAre(kModify, kModify, kModify));
    EXPECT_EQ(tray_.calls[1].record.flags, 7u);
    EXPECT_EQ(tray_.calls[2].record.flags, 7u);
}

TEST_F(TrayRulesTest, ARecreatedIconAsksForTheVersionAgainAfterABalloon) {
    Show();
    icon_->ShowBalloon(u"Text", u"Title", 1, 15);
    icon_->Recreate();
    ASSERT_EQ(tray_.calls.back().command, kSetVersion);
    EXPECT_EQ(tray_.calls.back().record.timeoutOrVersion, 5u);
    EXPECT_EQ(tray_.calls.back().record.flags, 7u);
}

TEST_F(TrayRulesTest, TheBalloonTimerHidesTheBalloon) {
    Show();
    icon_->ShowBalloon(u"Text", u"Title", 1, 120);
    EXPECT_EQ(tray_.balloonTimer, 60'000u);
    EXPECT_EQ(tray_.calls.back().record.timeoutOrVersion, 120u);
    icon_->OnBalloonTimer();
    const TrayRecord& record = tray_.calls.back().record;
    EXPECT_EQ(record.flags, 7u | 16u);
    EXPECT_STREQ(record.info, "");
    EXPECT_STREQ(record.infoTitle, "");
    EXPECT_EQ(record.infoFlags, 0u);
    EXPECT_EQ(record.timeoutOrVersion, 10u);
    EXPECT_EQ(tray_.balloonTimer, 0u);
}

TEST_F(TrayRulesTest, AnEmptyBalloonHidesAndStopsTheTimer) {
    Show();
    icon_->ShowBalloon(u"Text", u"", 1, 15);
    icon_->ShowBalloon(u"", u"", 0, 15);
    EXPECT_EQ(tray_.balloonTimer, 0u);
    EXPECT_STREQ(tray_.calls.back().record.info, "");
}

TEST_F(TrayRulesTest, ATitleAloneOrATextAloneIsABalloon) {
    Show();
    icon_->ShowBalloon(u"", u"Title", 1, 15);
    EXPECT_EQ(tray_.balloonTimer, 15'000u);
    icon_->ShowBalloon(u"Text", u"", 1, 16);
    EXPECT_EQ(tray_.balloonTimer, 16'000u);
}

TEST_F(TrayRulesTest, HideBalloonIsAnEmptyBalloon) {
    Show();
    icon_->ShowBalloon(u"Text", u"Title", 1, 15);
    icon_->HideBalloon();
    EXPECT_EQ(tray_.calls.back().record.flags, 7u | 16u);
    EXPECT_STREQ(tray_.calls.back().record.info, "");
    EXPECT_EQ(tray_.calls.back().record.timeoutOrVersion, 10u);
    EXPECT_EQ(tray_.balloonTimer, 0u);
}

TEST(BalloonIntervalTest, IsCappedAtAMinuteAndZeroWithoutATimeout) {
    EXPECT_EQ(BalloonInterval(1), 1'000u);
    EXPECT_EQ(BalloonInterval(59), 59'000u);
    EXPECT_EQ(BalloonInterval(60), 60'000u);
    EXPECT_EQ(BalloonInterval(61), 60'000u);
    EXPECT_EQ(BalloonInterval(120), 60'000u);
    EXPECT_EQ(BalloonInterval(INT32_MAX), 60'000u);
    EXPECT_EQ(BalloonInterval(0), 0u);
    EXPECT_EQ(BalloonInterval(-1), 0u);
    EXPECT_EQ(BalloonInterval(INT32_MIN), 0u);
}

TEST(TrayEventTest, OnlyTheNamedMessagesAreEvents) {
    for (std::uint32_t message = 0; message <= 0xFFFF; ++message) {
        TrayEvent expected = TrayEvent::None;
        if (message == 514 || message == 1024 || message == 1025) expected = TrayEvent::Click;
        if (message == 517 || message == 123) expected = TrayEvent::RightClick;
        if (message == 515) expected = TrayEvent::DblClick;
        if (message == 1029) expected = TrayEvent::BalloonClick;
        ASSERT_EQ(EventOf(message), expected) << message;
    }
}

// The shell's messages for a press depend on the version that it accepted; a click is one click in both.
TEST_F(TrayRulesTest, OnePhysicalClickIsOneClick) {
    Show();
    EXPECT_THAT(Events({512, 513, 514}), ElementsAre(TrayEvent::Click)) << "older shell";
    EXPECT_THAT(Events({512, 513, 514, 1024}), ElementsAre(TrayEvent::Click)) << "newer shell";
    EXPECT_THAT(Events({513, 514, 512, 512, 1024, 512}), ElementsAre(TrayEvent::Click)) << "with a trembling hand";
    EXPECT_THAT(Events({513, 514, 1024, 513, 514, 1024}), ElementsAre(TrayEvent::Click, TrayEvent::Click));
}

TEST_F(TrayRulesTest, ASelectionAloneOrByKeyboardIsAClick) {
    Show();
    EXPECT_THAT(Events({1024}), ElementsAre(TrayEvent::Click));
    EXPECT_THAT(Events({1025}), ElementsAre(TrayEvent::Click));
    EXPECT_THAT(Events({514, 1025}), ElementsAre(TrayEvent::Click, TrayEvent::Click));
    EXPECT_THAT(Events({514, 1024, 1024}), ElementsAre(TrayEvent::Click, TrayEvent::Click));
    EXPECT_THAT(Events({514, 513, 1024}), ElementsAre(TrayEvent::Click, TrayEvent::Click)) << "another press";
}

TEST_F(TrayRulesTest, ADoubleClickIsRaisedBetweenTwoClicks) {
    Show();
    const auto expected = ElementsAre(TrayEvent::Click, TrayEvent::DblClick, TrayEvent::Click);
    EXPECT_THAT(Events({513, 514, 515, 514}), expected);
    EXPECT_THAT(Events({513, 514, 1024, 515, 514, 1024}), expected);
}

TEST_F(TrayRulesTest, TheRightButtonStaysDouble) {
    Show();
    EXPECT_THAT(Events({516, 517, 123}), ElementsAre(TrayEvent::RightClick, TrayEvent::RightClick));
}

TEST_F(TrayRulesTest, ASelectionAfterTheIconWasAddedAgainIsAClick) {
    Show();
    EXPECT_THAT(Events({514}), ElementsAre(TrayEvent::Click));
    icon_->SetVisible(false);
    icon_->SetVisible(true);
    EXPECT_THAT(Events({1024}), ElementsAre(TrayEvent::Click));
}

TEST_F(TrayRulesTest, ADisabledIconRaisesNothing) {
    Show();
    icon_->SetEnabled(false);
    EXPECT_THAT(Events({514, 1024, 1025, 517, 123, 515, 1029}), IsEmpty());
    EXPECT_THAT(tray_.calls, IsEmpty());
    icon_->SetEnabled(true);
    EXPECT_THAT(Events({514}), ElementsAre(TrayEvent::Click));
}

TEST_F(TrayRulesTest, MessagesWhileAHandlerRunsAreDropped) {
    Show();
    std::vector<TrayEvent> events;
    icon_->Receive(517, [&](TrayEvent event) {
        events.push_back(event);
        EXPECT_TRUE(icon_->Busy());
        for (const std::uint32_t message : {123u, 514u}) {
            icon_->Receive(message, [&](TrayEvent nested) { events.push_back(nested); });
        }
    });
    EXPECT_THAT(events, ElementsAre(TrayEvent::RightClick));
    EXPECT_FALSE(icon_->Busy());
    EXPECT_THAT(Events({1024}), IsEmpty()) << "belongs to the press whose button-up was dropped";
    EXPECT_THAT(Events({514}), ElementsAre(TrayEvent::Click));
}

TEST_F(TrayRulesTest, EachIconIsBusyForItself) {
    Show();
    FakeTray otherTray;
    TrayRules other(otherTray, locale_);
    std::vector<TrayEvent> events;
    icon_->Receive(514, [&](TrayEvent) { other.Receive(514, [&](TrayEvent event) { events.push_back(event); }); });
    EXPECT_THAT(events, ElementsAre(TrayEvent::Click));
}

TEST_F(TrayRulesTest, AHandlerMayDestroyTheIcon) {
    Show();
    icon_->Receive(514, [this](TrayEvent) { icon_.reset(); });
    EXPECT_EQ(icon_, nullptr);
    EXPECT_THAT(tray_.Commands(), ElementsAre(kDelete));
}

TEST_F(TrayRulesTest, AHandlerThatFailsDoesNotLeaveTheIconBusy) {
    Show();
    EXPECT_THROW(icon_->Receive(514, [](TrayEvent) { throw std::logic_error("misuse"); }), std::logic_error);
    EXPECT_THAT(Events({514}), ElementsAre(TrayEvent::Click));
}

}  // namespace
}  // namespace quillo

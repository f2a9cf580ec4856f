#include "app/base/hints.h"

#include <gtest/gtest.h>

#include "app/base/os_facts.h"
#include "app/base/settings.h"
#include "testing/fake_registry_api.h"
#include "testing/fake_user_notice.h"

namespace quillo {
namespace {

constexpr Hint kHint{u"title", u"text", BalloonIcon::Warning};

class HintsTest : public ::testing::Test {
  protected:
    void OnOldSystem() { os_.windows2000OrLater = false; }
    void WithoutBalloons() { settings_.disableBalloonHelp = true; }

    FakeUserNotice notice_;
    Settings settings_;
    OsFacts os_;
    FakeRegistryApi registry_;
    Hints hints_{notice_, settings_, os_, registry_};
};

TEST_F(HintsTest, AHintIsABalloon) {
    EXPECT_TRUE(hints_.HasBalloons());
    hints_.ShowBalloon(kHint);
    hints_.ShowBalloonOrBox(kHint);
    ASSERT_EQ(notice_.balloons.size(), 2U);
    EXPECT_EQ(notice_.balloons[1].title, u"title");
    EXPECT_EQ(notice_.balloons[1].text, u"text");
    EXPECT_EQ(notice_.balloons[1].icon, BalloonIcon::Warning);
    EXPECT_TRUE(notice_.informs.empty());
}

TEST_F(HintsTest, AnOldSystemShowsABoxWhereTheHintMustNotBeMissed) {
    OnOldSystem();
    EXPECT_FALSE(hints_.HasBalloons());
    hints_.ShowBalloonOrBox(kHint, u"longer text");
    hints_.ShowBalloonOrBox(kHint);
    EXPECT_EQ(notice_.informs, (std::vector<std::u16string>{u"longer text", u"text"}));
    EXPECT_TRUE(notice_.balloons.empty());
}

TEST_F(HintsTest, TheUserCanTurnBalloonsOffButNotTheBoxes) {
    WithoutBalloons();
    EXPECT_FALSE(hints_.HasBalloons());
    hints_.ShowBalloon(kHint);
    hints_.ShowBalloonOrBox(kHint);
    EXPECT_TRUE(notice_.balloons.empty());
    EXPECT_TRUE(notice_.informs.empty());
    OnOldSystem();
    hints_.ShowBalloonOrBox(kHint);
    EXPECT_EQ(notice_.informs.size(), 1U);
}

TEST_F(HintsTest, AHiddenNoteIsRememberedInTheRegistry) {
    EXPECT_FALSE(hints_.HasHiddenNotes());
    hints_.RememberHiddenNote();
    EXPECT_TRUE(Hints(notice_, settings_, os_, registry_).HasHiddenNotes());
}

}  // namespace
}  // namespace quillo

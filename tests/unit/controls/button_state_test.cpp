#include "controls/button_state.h"

#include <gtest/gtest.h>

#include <random>

namespace quillo {
namespace {

using Capture = ButtonResponse::Capture;
using Event = ButtonResponse::Event;

constexpr Size kSize{20, 20};
constexpr Point kInside{10, 10};
constexpr Point kOutside{30, 10};

ButtonState MakeButton(bool menuMode = false) {
    ButtonState button;
    button.Resize(kSize);
    button.SetMenuMode(menuMode);
    return button;
}

ButtonState HotButton(bool menuMode = false) {
    ButtonState button = MakeButton(menuMode);
    static_cast<void>(button.MouseMove(kInside, MouseButton::None));
    return button;
}

ButtonState PressedButton() {
    ButtonState button = HotButton();
    static_cast<void>(button.MouseDown(kInside, MouseButton::Left));
    return button;
}

void ExpectResponse(const ButtonResponse& response, bool repaint, Capture capture, Event event) {
    EXPECT_EQ(response.repaint, repaint);
    EXPECT_EQ(response.capture, capture);
    EXPECT_EQ(response.event, event);
}

TEST(ButtonState, RestsUntilTouched) {
    const ButtonState button = MakeButton();
    EXPECT_EQ(button.Face(), ButtonFace::Normal);
    EXPECT_FALSE(button.HasCapture());
    EXPECT_FALSE(button.MenuMode());
}

TEST(ButtonState, HoveringHighlightsItAndTakesTheCapture) {
    ButtonState button = MakeButton();
    ExpectResponse(button.MouseMove(kInside, MouseButton::None), true, Capture::Take, Event::None);
    EXPECT_EQ(button.Face(), ButtonFace::Hot);
    EXPECT_TRUE(button.HasCapture());
    ExpectResponse(button.MouseMove({11, 11}, MouseButton::None), false, Capture::Keep, Event::None);
    ExpectResponse(button.MouseMove(kOutside, MouseButton::None), true, Capture::Release, Event::None);
    EXPECT_EQ(button.Face(), ButtonFace::Normal);
    EXPECT_FALSE(button.HasCapture());
}

TEST(ButtonState, InsideIsHalfOpen) {
    const struct {
        Point at;
        bool inside;
    } cases[] = {{{0, 0}, true},    {{19, 19}, true}, {{20, 19}, false},
                 {{19, 20}, false}, {{-1, 0}, false}, {{0, -1}, false}};
    for (const auto& c : cases) {
        ButtonState button = MakeButton();
        static_cast<void>(button.MouseMove(c.at, MouseButton::None));
        EXPECT_EQ(button.Face() == ButtonFace::Hot, c.inside) << c.at.x << ',' << c.at.y;
    }
}

TEST(ButtonState, WithoutASizeNothingIsInside) {
    ButtonState button;
    ExpectResponse(button.MouseMove({0, 0}, MouseButton::None), false, Capture::Keep, Event::None);
    static_cast<void>(button.MouseDown({0, 0}, MouseButton::Left));
    EXPECT_EQ(button.MouseUp({0, 0}, MouseButton::Left, false).event, Event::None);
}

TEST(ButtonState, PressAndReleaseOverItClicks) {
    ButtonState button = HotButton();
    ExpectResponse(button.MouseDown(kInside, MouseButton::Left), true, Capture::Keep, Event::None);
    EXPECT_EQ(button.Face(), ButtonFace::Pressed);
    ExpectResponse(button.MouseUp(kInside, MouseButton::Left, false), true, Capture::Release, Event::Click);
    EXPECT_EQ(button.Face(), ButtonFace::Normal);
    EXPECT_FALSE(button.HasCapture());
}

TEST(ButtonState, PressWithoutHoverIsFollowedToItsRelease) {
    ButtonState button = MakeButton();
    ExpectResponse(button.MouseDown(kInside, MouseButton::Left), true, Capture::Take, Event::None);
    EXPECT_TRUE(button.HasCapture());
    ExpectResponse(button.MouseUp(kInside, MouseButton::Left, false), true, Capture::Release, Event::Click);
}

TEST(ButtonState, DraggingOffAndReleasingOutsideRaisesNothing) {
    ButtonState button = PressedButton();
    ExpectResponse(button.MouseMove(kOutside, MouseButton::Left), true, Capture::Keep, Event::None);
    EXPECT_EQ(button.Face(), ButtonFace::Hot);
    EXPECT_TRUE(button.HasCapture());
    ExpectResponse(button.MouseUp(kOutside, MouseButton::Left, false), true, Capture::Release, Event::None);
    EXPECT_EQ(button.Face(), ButtonFace::Normal);
}

TEST(ButtonState, DraggingBackInBeforeReleasingClicks) {
    ButtonState button = PressedButton();
    static_cast<void>(button.MouseMove(kOutside, MouseButton::Left));
    ExpectResponse(button.MouseMove(kInside, MouseButton::Left), true, Capture::Keep, Event::None);
    EXPECT_EQ(button.Face(), ButtonFace::Pressed);
    EXPECT_EQ(button.MouseUp(kInside, MouseButton::Left, false).event, Event::Click);
}

TEST(ButtonState, ShiftAndTheOtherButtonAreTheSecondAction) {
    ButtonState shifted = PressedButton();
    EXPECT_EQ(shifted.MouseUp(kInside, MouseButton::Left, true).event, Event::ShiftClick);

    ButtonState right = HotButton();
    ExpectResponse(right.MouseDown(kInside, MouseButton::Other), false, Capture::Keep, Event::None);
    EXPECT_EQ(right.Face(), ButtonFace::Hot);
    ExpectResponse(right.MouseUp(kInside, MouseButton::Other, false), true, Capture::Release, Event::ShiftClick);
}

TEST(ButtonState, ARightReleaseOverAHotButtonNeedsNoPress) {
    ButtonState button = HotButton();
    EXPECT_EQ(button.MouseUp(kInside, MouseButton::Other, false).event, Event::ShiftClick);
}

TEST(ButtonState, AReleaseOverARestingButtonPaintsAndRaisesNothing) {
    ButtonState button = MakeButton();
    ExpectResponse(button.MouseUp(kInside, MouseButton::Left, false), false, Capture::Release, Event::None);
}

TEST(ButtonState, TheOtherButtonOnARestingButtonDoesNothing) {
    ButtonState button = MakeButton();
    ExpectResponse(button.MouseDown(kInside, MouseButton::Other), false, Capture::Keep, Event::None);
    EXPECT_FALSE(button.HasCapture());
    EXPECT_EQ(button.MouseUp(kInside, MouseButton::Other, false).event, Event::None);
}

TEST(ButtonState, ADragThatBeganElsewhereIsIgnored) {
    ButtonState button = MakeButton();
    ExpectResponse(button.MouseMove(kInside, MouseButton::Left), false, Capture::Keep, Event::None);
    ExpectResponse(button.MouseMove(kInside, MouseButton::Other), false, Capture::Keep, Event::None);
    EXPECT_EQ(button.Face(), ButtonFace::Normal);
}

TEST(ButtonState, OtherButtonsHeldKeepTheFace) {
    ButtonState button = HotButton();
    ExpectResponse(button.MouseMove(kOutside, MouseButton::Other), false, Capture::Keep, Event::None);
    EXPECT_EQ(button.Face(), ButtonFace::Hot);
}

TEST(ButtonState, MenuModeReportsThePressOnce) {
    ButtonState button = HotButton(true);
    ExpectResponse(button.MouseDown(kInside, MouseButton::Left), true, Capture::Release, Event::MouseDown);
    EXPECT_EQ(button.Face(), ButtonFace::Normal);
    EXPECT_FALSE(button.HasCapture());
    EXPECT_EQ(button.MouseUp(kInside, MouseButton::Left, false).event, Event::None);
}

TEST(ButtonState, MenuModeIgnoresTheOtherButton) {
    ButtonState button = HotButton(true);
    EXPECT_EQ(button.MouseDown(kInside, MouseButton::Other).event, Event::None);
    EXPECT_EQ(button.MouseUp(kInside, MouseButton::Other, false).event, Event::None);
}

TEST(ButtonState, LosingTheCaptureReturnsItToRest) {
    ButtonState button = PressedButton();
    ExpectResponse(button.CaptureLost(), true, Capture::Keep, Event::None);
    EXPECT_EQ(button.Face(), ButtonFace::Normal);
    EXPECT_FALSE(button.HasCapture());
    ExpectResponse(button.CaptureLost(), false, Capture::Keep, Event::None);
    EXPECT_EQ(button.MouseUp(kInside, MouseButton::Left, false).event, Event::None);
}

/// Drives a button at random and tracks the state that a window would track.
class RandomUse {
  public:
    RandomUse(unsigned seed, bool menuMode) : engine_(seed), button_(MakeButton(menuMode)), menuMode_(menuMode) {}

    void Step() {
        const Point at{Draw(-5, 25), Draw(-5, 25)};
        const bool inside = at.x >= 0 && at.y >= 0 && at.x < kSize.width && at.y < kSize.height;
        const auto which = Draw(0, 1) == 0 ? MouseButton::Left : MouseButton::Other;
        const ButtonFace before = button_.Face();
        const int action = Draw(0, 9);
        ButtonResponse response;
        if (action < 3) {
            response = button_.MouseMove(at, MouseButton::None);
        } else if (action < 5) {
            response = button_.MouseMove(at, which);
        } else if (action < 7) {
            response = button_.MouseDown(at, which);
        } else if (action < 9) {
            response = button_.MouseUp(at, which, Draw(0, 1) == 0);
        } else {
            held_ = false;
            response = button_.CaptureLost();
        }
        const bool isUp = action == 7 || action == 8;
        Keep(response);
        EXPECT_EQ(button_.HasCapture(), held_);
        if (button_.Face() != before) {
            EXPECT_TRUE(response.repaint);
        }
        if (isUp) {
            EXPECT_FALSE(held_);
        }
        if (response.event == Event::Click || response.event == Event::ShiftClick) {
            EXPECT_TRUE(isUp && inside && before != ButtonFace::Normal && !menuMode_);
            ++clicks_;
        }
        if (response.event == Event::MouseDown) {
            EXPECT_TRUE(menuMode_ && which == MouseButton::Left);
        }
        if (button_.Face() == ButtonFace::Normal) {
            EXPECT_NE(response.capture, Capture::Take) << "nothing to follow";
        }
    }
    [[nodiscard]] int Clicks() const { return clicks_; }

  private:
    int Draw(int from, int to) { return std::uniform_int_distribution<int>(from, to)(engine_); }
    void Keep(const ButtonResponse& response) {
        if (response.capture == Capture::Take) held_ = true;
        if (response.capture == Capture::Release) held_ = false;
    }

    std::mt19937 engine_;
    ButtonState button_;
    bool menuMode_;
    bool held_ = false;
    int clicks_ = 0;
};

TEST(ButtonState, RandomUseNeverClicksFromRestAndBalancesTheCapture) {
    for (unsigned seed = 0; seed < 200 && !::testing::Test::HasFailure(); ++seed) {
        RandomUse plain(seed, false);
        RandomUse menu(seed, true);
        for (int i = 0; i < 300; ++i) {
            plain.Step();
            menu.Step();
        }
        EXPECT_GT(plain.Clicks(), 0) << "the walk has to reach a click to say anything";
        EXPECT_EQ(menu.Clicks(), 0);
    }
}

}  // namespace
}  // namespace quillo

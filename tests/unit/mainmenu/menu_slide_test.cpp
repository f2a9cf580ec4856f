#include "mainmenu/menu_slide.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quillo {
namespace {

TEST(MenuSlide, HidingTakesNineteenFramesThatFadeAndMoveDown) {
    const std::vector<SlideFrame> frames = SlideFrames(false, 180);
    const std::vector<SlideFrame> expected{{242, 171}, {229, 162}, {216, 153}, {204, 144}, {191, 135},
                                           {178, 126}, {165, 117}, {153, 108}, {140, 99},  {127, 90},
                                           {114, 81},  {102, 72},  {89, 63},   {76, 54},   {63, 45},
                                           {51, 36},   {38, 27},   {25, 18},   {12, 9}};
    EXPECT_EQ(frames, expected);
}

TEST(MenuSlide, ShowingIsTheMirrorOfHiding) {
    for (const int travel : {180, 225, 270, 360}) {
        std::vector<SlideFrame> hiding = SlideFrames(false, travel);
        std::reverse(hiding.begin(), hiding.end());
        EXPECT_EQ(SlideFrames(true, travel), hiding);
    }
}

TEST(MenuSlide, EveryFrameDiffersFromTheOneBefore) {
    for (int travel = kSlideFrames + 1; travel <= 1200; ++travel) {
        const std::vector<SlideFrame> frames = SlideFrames(true, travel);
        SlideFrame before{0, 0};  // hidden
        for (const SlideFrame& frame : frames) {
            ASSERT_GT(frame.opacity, before.opacity) << travel;
            ASSERT_GT(frame.rise, before.rise) << travel;
            before = frame;
        }
        EXPECT_LT(before.opacity, 255);
        EXPECT_LT(before.rise, travel);
    }
}

TEST(MenuSlide, AStepIsATwentiethOfTheWayCutToWholePixels) {
    const std::vector<SlideFrame> frames = SlideFrames(false, 199);
    EXPECT_EQ(frames.front().rise, 19 * 9);
    EXPECT_EQ(frames.back().rise, 9);
}

TEST(MenuSlide, AFrameLastsAtLeastSevenMilliseconds) {
    EXPECT_EQ(FramePause(0), 7);
    EXPECT_EQ(FramePause(6), 1);
    EXPECT_EQ(FramePause(7), 0);
    EXPECT_EQ(FramePause(500), 0);
}

TEST(MenuSlide, NothingMovesWhereAnimationIsDisabled) {
    EXPECT_TRUE(IsSlideAnimated(true, true, false));
    EXPECT_FALSE(IsSlideAnimated(false, true, false)) << "the user, here";
    EXPECT_FALSE(IsSlideAnimated(true, false, false)) << "the user, for all programs";
    EXPECT_FALSE(IsSlideAnimated(true, true, true)) << "a remote session";
}

}  // namespace
}  // namespace quillo

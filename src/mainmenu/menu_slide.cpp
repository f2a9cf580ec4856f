#include "mainmenu/menu_slide.h"

#include <algorithm>

namespace quillo {

std::vector<SlideFrame> SlideFrames(bool show, int travel) {
    constexpr int kSteps = kSlideFrames + 1;
    constexpr int kOpaque = 255;
    const int step = travel / kSteps;
    std::vector<SlideFrame> frames;
    for (int i = 1; i <= kSlideFrames; ++i) {
        const int left = kSteps - i;
        frames.push_back(SlideFrame{left * kOpaque / kSteps, left * step});
    }
    if (show) std::reverse(frames.begin(), frames.end());
    return frames;
}

int FramePause(int elapsed) {
    return std::max(kFrameMilliseconds - elapsed, 0);
}

}  // namespace quillo

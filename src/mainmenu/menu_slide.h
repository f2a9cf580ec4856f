#pragma once

#include <vector>

namespace quillo {

/// How many frames the menu takes to come or go.
inline constexpr int kSlideFrames = 19;
/// Each frame lasts at least so long, in milliseconds.
inline constexpr int kFrameMilliseconds = 7;

/// One frame of the menu's coming or going. A menu that can be translucent stays in its place and shows the opacity;
/// one that cannot stands `rise` pixels above the line below which it is out of sight.
struct SlideFrame {
    int opacity = 0;  ///< 1 to 254
    int rise = 0;
    friend bool operator==(const SlideFrame&, const SlideFrame&) = default;
};

/// The frames in their order, for a menu that travels so many pixels. Showing mirrors hiding.
[[nodiscard]] std::vector<SlideFrame> SlideFrames(bool show, int travel);

/// How long to wait after a frame that took `elapsed` milliseconds; 0 or above.
[[nodiscard]] int FramePause(int elapsed);

/// Whether the menu moves at all: not when the user has it switched off here or for the whole system, and not over a
/// remote connection.
[[nodiscard]] constexpr bool IsSlideAnimated(bool disabledHere, bool systemAnimates, bool remoteSession) {
    return !disabledHere && systemAnimates && !remoteSession;
}

}  // namespace quillo

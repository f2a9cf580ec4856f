#pragma once

#include <vector>

namespace quillo {

/// The number of frames in which the menu appears or disappears.
inline constexpr int kSlideFrames = 19;
/// The minimum duration of a frame, in milliseconds.
inline constexpr int kFrameMilliseconds = 7;

/// One frame of the menu's animation. A menu that can be translucent stays in its place and changes its opacity; any
/// other is `rise` pixels above the line below which it is invisible.
struct SlideFrame {
    int opacity = 0;  ///< 1 to 254
    int rise = 0;
    friend bool operator==(const SlideFrame&, const SlideFrame&) = default;
};

/// The frames in order, for a menu that travels that many pixels. Showing mirrors hiding.
[[nodiscard]] std::vector<SlideFrame> SlideFrames(bool show, int travel);

/// The pause after a frame that took `elapsed` milliseconds; 0 or above.
[[nodiscard]] int FramePause(int elapsed);

/// Whether the menu is animated: not if the user has disabled it here or for the whole system, and not over a remote
/// connection.
[[nodiscard]] constexpr bool IsSlideAnimated(bool enabledHere, bool systemAnimates, bool remoteSession) {
    return enabledHere && systemAnimates && !remoteSession;
}

}  // namespace quillo

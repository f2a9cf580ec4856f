#pragma once

#include <string_view>
#include <vector>

#include "harness/eventually.h"
#include "platform/win32.h"

namespace quillo::e2e {

/// Moves the real pointer there at once.
void MoveMouse(POINT to);
/// A press and a release repeat their place: under Wine a late report of an earlier move from the X server may put the
/// pointer back.
void PressMouse(POINT at);
void ReleaseMouse(POINT at);
/// Presses at `from`, moves to `to` in steps, and releases there.
void DragMouse(POINT from, POINT to);
void ClickMouse(POINT at);
void RightClickMouse(POINT at);
/// A click while a key is down.
void ClickMouseHolding(WORD key, POINT at);

/// The keys are sent to the window with the focus.
void PressKey(WORD key, const std::vector<WORD>& held = {});
/// Types the text by character codes, as an input method does; a line feed is the Enter key.
void TypeText(std::wstring_view text);

/// Reports an action that was repeated: in the output of the test, and in the property kRepeatedActions of its result.
void ReportAttempts(int attempts);
inline constexpr char kRepeatedActions[] = "repeated_actions";

/// Repeats a mouse action until it has had its effect: a press can get lost between the desktop and the system. The
/// test reports each repetition. For every kind of window one test, TheFirstClick..., does not use this.
template <typename Action, typename Effect>
[[nodiscard]] bool Until(Effect effect, Action action) {
    constexpr int kAttempts = 8;
    constexpr std::chrono::milliseconds kPatienceForOne{2500};
    for (int i = 0; i < kAttempts; ++i) {
        action();
        if (!Eventually(effect, kPatienceForOne)) continue;
        if (i > 0) ReportAttempts(i + 1);
        return true;
    }
    ReportAttempts(kAttempts);
    return false;
}

}  // namespace quillo::e2e

#include <gtest/gtest.h>

#include "platform/window.h"
#include "platform/window_effects.h"

namespace quillo {
namespace {

/// Records the request to be moved instead of following the mouse.
class Movable : public Window {
  public:
    ~Movable() override { Destroy(); }
    bool Make(const Rect& place) {
        WindowPlan plan;
        plan.className = L"QuilloTestMovable";
        plan.style = WS_POPUP;
        plan.place = place;
        return Create(plan);
    }

    WPARAM part = HTNOWHERE;
    POINT at{};

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != WM_NCLBUTTONDOWN) return Default(message, wParam, lParam);
        part = wParam;
        at = POINT{static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam))};
        return 0;
    }
};

TEST(StartWindowDrag, PressesTheCaptionAtTheSamePlaceOfTheScreen) {
    Movable window;
    Movable pressed;
    ASSERT_TRUE(window.Make(Rect{10, 20, 100, 50}));
    ASSERT_TRUE(pressed.Make(Rect{40, 60, 30, 30}));
    SetCapture(pressed.Handle());
    StartWindowDrag(window.Handle(), pressed.Handle(), Point{3, 4});
    EXPECT_EQ(window.part, static_cast<WPARAM>(HTCAPTION));
    EXPECT_EQ(window.at.x, 43);
    EXPECT_EQ(window.at.y, 64);
    EXPECT_EQ(GetCapture(), nullptr) << "the system captures the mouse for the move";
}

}  // namespace
}  // namespace quillo

#include "platform/drawn_window.h"

#include <gtest/gtest.h>

namespace quillo {
namespace {

class Drawing : public DrawnWindow {
  public:
    ~Drawing() override { Destroy(); }
    bool Make() {
        WindowPlan plan;
        plan.className = L"QuilloTestDrawing";
        plan.style = WS_POPUP;
        plan.place = Rect{10, 20, 100, 50};
        return Create(plan);
    }

    int paints = 0;

  protected:
    void OnPaint() override {
        ++paints;
        ValidateRect(Handle(), nullptr);
    }
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        return Default(message, wParam, lParam);
    }
};

TEST(DrawnWindowTest, IsPaintedWithoutBeingErased) {
    Drawing window;
    ASSERT_TRUE(window.Make());
    EXPECT_NE(SendMessageW(window.Handle(), WM_ERASEBKGND, 0, 0), 0) << "nothing is left to erase";
    EXPECT_EQ(SendMessageW(window.Handle(), WM_PAINT, 0, 0), 0);
    EXPECT_EQ(window.paints, 1);
}

}  // namespace
}  // namespace quillo

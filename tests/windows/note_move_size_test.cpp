// The note while the user moves it or pulls its edge.
#include <gtest/gtest.h>

#include "note_form_fixture.h"

namespace quillo::windows_tests {
namespace {

class NoteMoveSize : public NoteFormTest {
  protected:
    NoteMoveSize() { Show(); }

    void Begin() { SendMessageW(one_.Window(), WM_ENTERSIZEMOVE, 0, 0); }
    void End() { SendMessageW(one_.Window(), WM_EXITSIZEMOVE, 0, 0); }
    /// The flags with which the window lets a step pass.
    [[nodiscard]] UINT FlagsOfStep(HWND after) const {
        WINDOWPOS step{};
        step.hwnd = one_.Window();
        step.hwndInsertAfter = after;
        step.flags = SWP_NOSIZE;
        SendMessageW(one_.Window(), WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&step));
        return step.flags;
    }
    [[nodiscard]] bool IsShown(ChildId id) const { return IsWindowVisible(one_.Child(id)) != 0; }
    /// The pixels of the strip's right end, where the two buttons are.
    [[nodiscard]] std::vector<COLORREF> RightEnd() const {
        constexpr int kFarFromTheMiddle = 45;
        const Rect strip = LayOutNote(ClientSize(), scale_).dragBar;
        std::vector<COLORREF> pixels;
        for (int y = strip.top; y < strip.top + strip.height; ++y) {
            for (int x = strip.left + strip.width - scale_.Px(kFarFromTheMiddle); x < strip.left + strip.width; ++x)
                pixels.push_back(Pixel(Point{x, y}));
        }
        return pixels;
    }
};

TEST_F(NoteMoveSize, AStepChangesNeitherTheOrderNorWhatIsActive) {
    constexpr UINT kKept = SWP_NOACTIVATE | SWP_NOZORDER;
    EXPECT_EQ(FlagsOfStep(HWND_TOP) & kKept, 0U) << "the user does not move it";
    Begin();
    EXPECT_EQ(FlagsOfStep(HWND_TOP) & kKept, kKept);
    EXPECT_EQ(FlagsOfStep(HWND_TOPMOST) & kKept, 0U) << "the program pins it meanwhile";
    End();
    EXPECT_EQ(FlagsOfStep(HWND_TOP) & kKept, 0U);
}

TEST_F(NoteMoveSize, TheNoteDrawsTheButtonsAtItsRightEdgeAsTheyAre) {
    note_.Perform(NoteAction::TogglePin);
    const Size size = ClientSize();
    PaintNow(one_.Window());
    const std::vector<COLORREF> before = RightEnd();
    Begin();
    Resize(Size{size.width + 31, size.height + 20});
    EXPECT_FALSE(IsShown(kCloseButton));
    EXPECT_FALSE(IsShown(kPushpin));
    EXPECT_TRUE(IsShown(kMenuButton));
    PaintNow(one_.Window());
    EXPECT_EQ(RightEnd(), before);
    Resize(Size{size.width - 12, size.height});
    PaintNow(one_.Window());
    EXPECT_EQ(RightEnd(), before);
    End();
    PaintNow(one_.Window());
    EXPECT_EQ(RightEnd(), before);
    EXPECT_TRUE(IsShown(kCloseButton));
    EXPECT_TRUE(IsShown(kPushpin));
    const NoteLayout layout = LayOutNote(ClientSize(), scale_);
    EXPECT_EQ(PlaceIn(one_.Window(), one_.Child(kCloseButton)), layout.closeButton);
    EXPECT_EQ(PlaceIn(one_.Window(), one_.Child(kPushpin)), layout.pushpin);
}

TEST_F(NoteMoveSize, AMoveOrAnotherHeightHidesNoButton) {
    const Size size = ClientSize();
    Begin();
    SetWindowPos(one_.Window(), nullptr, 150, 150, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_TRUE(IsShown(kCloseButton));
    Resize(Size{size.width, size.height + 20});
    EXPECT_TRUE(IsShown(kCloseButton));
    EXPECT_TRUE(IsShown(kPushpin));
    End();
}

}  // namespace
}  // namespace quillo::windows_tests

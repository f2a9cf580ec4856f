#pragma once

#include <gtest/gtest.h>

#include "note_fixture.h"
#include "platform/dpi.h"

namespace quillo::windows_tests {

/// A note's window with its buttons, at a known place.
class NoteFormTest : public testing::Test {
  protected:
    NoteFormTest() {
        EXPECT_TRUE(one_.Create());
        EXPECT_TRUE(one_.Settle());
        form_.MoveTo(TwipsRect{3000, 3000, 2820, 2445});
    }

    void Resize(Size size) {
        SetWindowPos(one_.Window(), nullptr, 0, 0, size.width, size.height, SWP_NOMOVE | SWP_NOZORDER);
    }
    [[nodiscard]] Size ClientSize() const {
        RECT client{};
        GetClientRect(one_.Window(), &client);
        return Size{client.right, client.bottom};
    }
    [[nodiscard]] LRESULT HitTest(Point at) const {
        RECT window{};
        GetWindowRect(one_.Window(), &window);
        return SendMessageW(one_.Window(), WM_NCHITTEST, 0, MAKELPARAM(window.left + at.x, window.top + at.y));
    }
    void Show() {
        form_.Show();
        form_.BringToFront(true);
        PaintNow(one_.Window());
    }
    [[nodiscard]] COLORREF Pixel(Point at) const { return PixelOf(one_.Window(), at); }
    [[nodiscard]] HWND Box() const { return one_.Child(ChildId::kMessageBox); }
    void Click(HWND button, WPARAM keys = 0) const {
        SendMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON | keys, MAKELPARAM(5, 5));
        SendMessageW(button, WM_LBUTTONUP, keys, MAKELPARAM(5, 5));
    }

    NoteWorldForTests world_;
    TestNote one_{world_, u"one"};
    NoteForm& form_{one_.form};
    OpenNote& note_{one_.note};
    Scale scale_{SystemScale()};
};

}  // namespace quillo::windows_tests

#include "controls/note_button.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/gdi_canvas.h"
#include "platform/gdi_scope.h"
#include "support.h"

namespace quillo {
namespace {

using windows_tests::PaintNow;
using windows_tests::PixelOf;
using windows_tests::PumpWaiting;

constexpr ButtonTint kTint{ColorWord::FromRgb(200, 100, 50), ColorWord::FromRgb(250, 240, 200),
                           ColorWord::FromRgb(10, 20, 30), false};

Size SizeOf(HBITMAP bitmap) {
    BITMAP info{};
    GetObjectW(bitmap, sizeof info, &info);
    return Size{info.bmWidth, info.bmHeight};
}

/// The pixel of a strip.
COLORREF StripPixel(HBITMAP strip, Point at) {
    const MemoryDc dc(CreateCompatibleDC(nullptr));
    const SelectScope selected(dc.Get(), strip);
    return GetPixel(dc.Get(), at.x, at.y);
}

/// How many pixels of one frame differ from the bar behind it.
int DrawnPixels(HBITMAP strip, int frame, int row, int column) {
    const MemoryDc dc(CreateCompatibleDC(nullptr));
    const SelectScope selected(dc.Get(), strip);
    int drawn = 0;
    for (int y = 0; y < frame; ++y) {
        const COLORREF bar = ToColorRef(Mix(kTint.bottom, kTint.top, y * 100 / (frame - 1)));
        for (int x = 0; x < frame; ++x) {
            if (GetPixel(dc.Get(), column * frame + x, row * frame + y) != bar) ++drawn;
        }
    }
    return drawn;
}

TEST(NoteButtonImagesTest, AStripHasFiveRowsOfThreeFramesAtEveryResolution) {
    NoteButtonImages images;
    for (const int dpi : {96, 120, 144, 168, 192, 240}) {
        const Scale scale(dpi);
        const HBITMAP strip = images.Strip(kTint, scale);
        ASSERT_NE(strip, nullptr) << dpi;
        const int frame = scale.Px(20);
        EXPECT_EQ(SizeOf(strip), (Size{3 * frame, 5 * frame})) << dpi;
        for (int row = 0; row < 4; ++row) {
            for (int column = 0; column < 3; ++column) {
                EXPECT_GT(DrawnPixels(strip, frame, row, column), frame) << dpi << ": " << row << ", " << column;
            }
        }
    }
}

TEST(NoteButtonImagesTest, TheBarShowsBehindTheGlyphs) {
    NoteButtonImages images;
    const HBITMAP strip = images.Strip(kTint, Scale());
    // Nothing is ever drawn in the corner of a frame at rest.
    for (int row = 0; row < 4; ++row) {
        EXPECT_EQ(StripPixel(strip, Point{0, row * 20}), RGB(200, 100, 50));
        EXPECT_EQ(StripPixel(strip, Point{0, row * 20 + 19}), RGB(250, 240, 200));
    }
}

TEST(NoteButtonImagesTest, GlyphsTakeTheirColorAndAreFaintAtRestOnly) {
    NoteButtonImages images;
    ButtonTint tint = kTint;
    tint.top = tint.bottom = ColorWord::FromRgb(255, 255, 255);
    tint.glyph = ColorWord::FromRgb(0, 0, 0);
    const auto darkest = [&](int column, int row) {
        const HBITMAP strip = images.Strip(tint, Scale());
        int least = 255;
        for (int y = 0; y < 20; ++y) {
            for (int x = 0; x < 20; ++x) {
                least = std::min<int>(least, GetGValue(StripPixel(strip, Point{column * 20 + x, row * 20 + y})));
            }
        }
        return least;
    };
    const int full = darkest(0, 0);
    EXPECT_LT(full, 60);
    tint.faint = true;
    EXPECT_GT(darkest(0, 0), full + 30) << "at rest";
    tint.faint = false;
    const int hot = darkest(1, 0);
    tint.faint = true;
    EXPECT_EQ(darkest(1, 0), hot) << "under the pointer";
}

TEST(NoteButtonImagesTest, KeepsTheStripsUsedLast) {
    NoteButtonImages images;
    const HBITMAP first = images.Strip(kTint, Scale());
    EXPECT_EQ(images.Strip(kTint, Scale()), first);
    ButtonTint other = kTint;
    for (int i = 0; i < 100; ++i) {
        other.top = ColorWord::FromRgb(i, 0, 0);
        EXPECT_NE(images.Strip(other, Scale()), nullptr);
        EXPECT_EQ(images.Strip(kTint, Scale()), first) << "used between the others";
    }
    // A strip that has not been used for long is dropped, and created again on demand.
    other.top = ColorWord::FromRgb(0, 0, 0);
    EXPECT_NE(images.Strip(other, Scale()), nullptr);
}

class NoteButtonTest : public testing::Test {
  protected:
    NoteButtonTest() {
        // The pointer of an earlier test must not hover here.
        SetCursorPos(900, 700);
        PumpWaiting();
        parent_ = CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_TOPMOST, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 200, 200,
                                  100, 60, nullptr, nullptr, nullptr, nullptr);
        EXPECT_TRUE(button_.Create(parent_, 7, L"Close note"));
        MoveWindow(button_.Handle(), 10, 10, 20, 20, FALSE);
        button_.SetTint(kTint, Scale());
        button_.onClick = [this] { events_ += 'c'; };
        button_.onShiftClick = [this] { events_ += 's'; };
        button_.onMouseDown = [this] { events_ += 'd'; };
        PumpWaiting();
    }
    ~NoteButtonTest() override { DestroyWindow(parent_); }

    /// Sends it as the system would, with the real pointer at that point.
    void Send(UINT message, WPARAM keys, Point at) {
        POINT screen{at.x, at.y};
        ClientToScreen(button_.Handle(), &screen);
        SetCursorPos(screen.x, screen.y);
        SendMessageW(button_.Handle(), message, keys, MAKELPARAM(at.x, at.y));
    }
    [[nodiscard]] bool HasCapture() const { return GetCapture() == button_.Handle(); }
    /// Whether the window's pixels equal the strip's frame.
    [[nodiscard]] bool Shows(ButtonFace face, ButtonPicture picture) {
        PaintNow(button_.Handle());
        const HBITMAP strip = images_.Strip(kTint, Scale());
        for (int y = 0; y < 20; ++y) {
            for (int x = 0; x < 20; ++x) {
                const Point source{static_cast<int>(face) * 20 + x, static_cast<int>(picture) * 20 + y};
                if (PixelOf(button_.Handle(), Point{x, y}) != StripPixel(strip, source)) return false;
            }
        }
        return true;
    }

    HWND parent_ = nullptr;
    NoteButtonImages images_;
    NoteButton button_{images_};
    std::string events_;
};

constexpr Point kInside{5, 5};
constexpr Point kOutside{40, 30};

TEST_F(NoteButtonTest, HoveringTakesTheCaptureAndLeavingReleasesIt) {
    EXPECT_TRUE(Shows(ButtonFace::Normal, ButtonPicture::Close));
    Send(WM_MOUSEMOVE, 0, kInside);
    EXPECT_TRUE(HasCapture());
    EXPECT_TRUE(Shows(ButtonFace::Hot, ButtonPicture::Close));
    Send(WM_MOUSEMOVE, 0, kOutside);
    EXPECT_FALSE(HasCapture());
    EXPECT_TRUE(Shows(ButtonFace::Normal, ButtonPicture::Close));
    EXPECT_EQ(events_, "");
}

TEST_F(NoteButtonTest, APointerThatLeavesUnnoticedEndsTheHover) {
    Send(WM_MOUSEMOVE, 0, kInside);
    SendMessageW(button_.Handle(), WM_MOUSELEAVE, 0, 0);
    EXPECT_FALSE(HasCapture());
    EXPECT_TRUE(Shows(ButtonFace::Normal, ButtonPicture::Close));
}

TEST_F(NoteButtonTest, PressAndReleaseIsAClick) {
    Send(WM_MOUSEMOVE, 0, kInside);
    Send(WM_LBUTTONDOWN, MK_LBUTTON, kInside);
    EXPECT_TRUE(HasCapture());
    EXPECT_TRUE(Shows(ButtonFace::Pressed, ButtonPicture::Close));
    Send(WM_LBUTTONUP, 0, kInside);
    EXPECT_FALSE(HasCapture());
    EXPECT_EQ(events_, "c");
}

TEST_F(NoteButtonTest, ShiftOrTheRightButtonIsAShiftClick) {
    Send(WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, kInside);
    Send(WM_LBUTTONUP, MK_SHIFT, kInside);
    EXPECT_EQ(events_, "s");
    Send(WM_MOUSEMOVE, 0, kInside);
    Send(WM_RBUTTONDOWN, MK_RBUTTON, kInside);
    Send(WM_RBUTTONUP, 0, kInside);
    EXPECT_EQ(events_, "ss");
}

TEST_F(NoteButtonTest, APressIsFollowedOutsideAndBack) {
    Send(WM_MOUSEMOVE, 0, kInside);
    Send(WM_LBUTTONDOWN, MK_LBUTTON, kInside);
    Send(WM_MOUSEMOVE, MK_LBUTTON, kOutside);
    // A late report that the pointer has left must not end the press.
    SendMessageW(button_.Handle(), WM_MOUSELEAVE, 0, 0);
    EXPECT_TRUE(HasCapture());
    EXPECT_TRUE(Shows(ButtonFace::Hot, ButtonPicture::Close));
    Send(WM_MOUSEMOVE, MK_LBUTTON, kInside);
    EXPECT_TRUE(Shows(ButtonFace::Pressed, ButtonPicture::Close));
    Send(WM_LBUTTONUP, 0, kInside);
    EXPECT_EQ(events_, "c");
}

TEST_F(NoteButtonTest, AReleaseOutsideIsNothing) {
    Send(WM_LBUTTONDOWN, MK_LBUTTON, kInside);
    Send(WM_MOUSEMOVE, MK_LBUTTON, kOutside);
    Send(WM_LBUTTONUP, 0, kOutside);
    EXPECT_EQ(events_, "");
    EXPECT_FALSE(HasCapture());
    EXPECT_TRUE(Shows(ButtonFace::Normal, ButtonPicture::Close));
}

TEST_F(NoteButtonTest, ALostCaptureEndsThePress) {
    Send(WM_LBUTTONDOWN, MK_LBUTTON, kInside);
    ReleaseCapture();  // as a message box of another note would
    EXPECT_TRUE(Shows(ButtonFace::Normal, ButtonPicture::Close));
    Send(WM_LBUTTONUP, 0, kInside);
    EXPECT_EQ(events_, "");
}

TEST_F(NoteButtonTest, InMenuModeThePressCountsAndTheReleaseDoesNot) {
    button_.SetMenuMode(true);
    button_.SetPicture(ButtonPicture::Menu);
    bool captured = true;
    button_.onMouseDown = [&] {
        events_ += 'd';
        captured = HasCapture();
    };
    Send(WM_MOUSEMOVE, 0, kInside);
    Send(WM_LBUTTONDOWN, MK_LBUTTON, kInside);
    EXPECT_EQ(events_, "d");
    EXPECT_FALSE(captured) << "the mouse belongs to the menu";
    EXPECT_TRUE(Shows(ButtonFace::Normal, ButtonPicture::Menu));
    Send(WM_LBUTTONUP, 0, kInside);
    EXPECT_EQ(events_, "d");
}

TEST_F(NoteButtonTest, TheMiddleButtonIsIgnored) {
    Send(WM_MBUTTONDOWN, MK_MBUTTON, kInside);
    Send(WM_MBUTTONUP, 0, kInside);
    EXPECT_EQ(events_, "");
    EXPECT_FALSE(HasCapture());
    // Nor does it leave a press that a later drag over the button would complete as a click.
    Send(WM_MOUSEMOVE, MK_LBUTTON, kInside);
    Send(WM_LBUTTONUP, 0, kInside);
    EXPECT_EQ(events_, "");
}

TEST_F(NoteButtonTest, ADisabledButtonRestsWithoutCapture) {
    Send(WM_MOUSEMOVE, 0, kInside);
    button_.SetEnabled(false);
    EXPECT_FALSE(HasCapture());
    EXPECT_TRUE(Shows(ButtonFace::Normal, ButtonPicture::Close));
    Send(WM_LBUTTONDOWN, MK_LBUTTON, kInside);
    Send(WM_LBUTTONUP, 0, kInside);
    EXPECT_EQ(events_, "");
    button_.SetEnabled(true);
    Send(WM_LBUTTONDOWN, MK_LBUTTON, kInside);
    Send(WM_LBUTTONUP, 0, kInside);
    EXPECT_EQ(events_, "c");
}

TEST_F(NoteButtonTest, EveryPictureIsItsRow) {
    for (const auto picture : {ButtonPicture::Menu, ButtonPicture::PushpinPressed, ButtonPicture::Pushpin}) {
        button_.SetPicture(picture);
        EXPECT_TRUE(Shows(ButtonFace::Normal, picture)) << static_cast<int>(picture);
    }
}

TEST_F(NoteButtonTest, HasItsNameAndItsNumber) {
    wchar_t name[32] = {};
    GetWindowTextW(button_.Handle(), name, 32);
    EXPECT_STREQ(name, L"Close note");
    EXPECT_EQ(GetDlgCtrlID(button_.Handle()), 7);
}

TEST_F(NoteButtonTest, AHandlerMayDestroyTheWindow) {
    button_.onClick = [this] {
        DestroyWindow(parent_);
        events_ += 'c';
    };
    const HWND handle = button_.Handle();
    SendMessageW(handle, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    SendMessageW(handle, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(events_, "c");
    EXPECT_EQ(button_.Handle(), nullptr);
    EXPECT_EQ(GetCapture(), nullptr);
}

}  // namespace
}  // namespace quillo

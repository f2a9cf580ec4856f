#include "platform/control_column.h"

#include <gtest/gtest.h>

#include "platform/gdi_scope.h"
#include "platform/text_tools.h"
#include "platform/unique_handle.h"

namespace quillo {
namespace {

/// Controls in a window whose client area is the window.
class ControlColumnTest : public ::testing::Test {
  protected:
    ~ControlColumnTest() override { DestroyWindow(parent_); }

    [[nodiscard]] HWND Label() const {
        return CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 0, 0, parent_, nullptr, nullptr, nullptr);
    }
    [[nodiscard]] Rect PlaceOf(HWND control) const {
        RECT place{};
        GetWindowRect(control, &place);
        MapWindowPoints(nullptr, parent_, reinterpret_cast<POINT*>(&place), 2);
        return Rect{place.left, place.top, place.right - place.left, place.bottom - place.top};
    }

    HWND parent_ = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 300, 300, nullptr, nullptr, nullptr, nullptr);
    WindowDcScope screen_{nullptr};
    ControlColumn column_{screen_.Dc(), 10, 20, 200};
};

TEST_F(ControlColumnTest, StacksControlsWithTheirGaps) {
    const HWND first = Label();
    const HWND indented = Label();
    column_.Put(first, 0, 30, 5);
    EXPECT_EQ(PlaceOf(first), (Rect{10, 20, 200, 30}));
    EXPECT_EQ(column_.Bottom(), 55);
    column_.Skip(7);
    column_.Put(indented, 16, 20, 0);
    EXPECT_EQ(PlaceOf(indented), (Rect{26, 62, 184, 20})) << "the right edge stays";
    EXPECT_EQ(column_.Bottom(), 82);
}

TEST_F(ControlColumnTest, ALabelIsAsHighAsItsWrappedText) {
    auto* const font = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    const std::u16string_view text = u"A text that is much too long for one line of a column that is as narrow as this";
    const HWND label = Label();
    column_.PutText(label, font, text, 16, 3);
    const int height = MeasureText(screen_.Dc(), font, text, 184).height;
    EXPECT_GT(height, MeasureText(screen_.Dc(), font, u"A").height) << "more than one line";
    EXPECT_EQ(PlaceOf(label), (Rect{26, 20, 184, height}));
    EXPECT_EQ(column_.Bottom(), 20 + height + 3);
}

}  // namespace
}  // namespace quillo

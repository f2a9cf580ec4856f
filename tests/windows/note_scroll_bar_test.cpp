#include <gtest/gtest.h>

#include <algorithm>

#include "note_form_fixture.h"
#include "notes/note_form.h"

namespace quillo {
namespace {

using windows_tests::ChildId;
using windows_tests::NoteFormTest;
using windows_tests::PaintNow;
using windows_tests::TestNote;

/// What a box and its bar show, in lines.
struct Scrolled {
    int lines = 0;
    int page = 0;
    int top = 0;
    bool operator==(const Scrolled&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Scrolled& scrolled) {
    return out << scrolled.lines << " lines, " << scrolled.page << " of them visible from line " << scrolled.top;
}

Scrolled ByTheBar(HWND box) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    EXPECT_NE(GetScrollInfo(box, SB_VERT, &info), FALSE);
    EXPECT_EQ(info.nMin, 0);
    return {info.nMax + 1, static_cast<int>(info.nPage), info.nPos};
}

/// The height of a line is the distance between the first characters of the two top lines.
Scrolled ByTheText(HWND box) {
    const auto ask = [box](UINT message, WPARAM value = 0) {
        return static_cast<int>(SendMessageW(box, message, value, 0));
    };
    const int top = ask(EM_GETFIRSTVISIBLELINE);
    const auto placeOf = [&](int line) {
        const auto character = static_cast<WPARAM>(ask(EM_LINEINDEX, static_cast<WPARAM>(line)));
        return static_cast<short>(HIWORD(SendMessageW(box, EM_POSFROMCHAR, character, 0)));
    };
    RECT text{};
    SendMessageW(box, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&text));
    const int height = placeOf(top + 1) - placeOf(top);
    return {ask(EM_GETLINECOUNT), static_cast<int>(text.bottom - text.top) / std::max(1, height), top};
}

bool HasBar(HWND box) {
    return (GetWindowLongPtrW(box, GWL_STYLE) & WS_VSCROLL) != 0;
}

bool IsBarEnabled(HWND box) {
    SCROLLBARINFO info{};
    info.cbSize = sizeof info;
    EXPECT_NE(GetScrollBarInfo(box, static_cast<LONG>(OBJID_VSCROLL), &info), FALSE);
    return (info.rgstate[0] & STATE_SYSTEM_UNAVAILABLE) == 0;
}

class NoteScrollBarTest : public NoteFormTest {
  protected:
    static std::u16string Lines(int count) {
        std::u16string lines;
        for (int i = 0; i < count; ++i) lines += u"a line that is long enough to be wrapped once\r\n";
        return lines;
    }
    void Switch(bool on) {
        world_.settings.showScrollBars = on;
        note_.UpdateColors();
    }
};

TEST_F(NoteScrollBarTest, ABarThatIsShownLaterFollowsTheText) {
    Show();
    ASSERT_TRUE(form_.SetText(Lines(100)));
    Switch(true);
    EXPECT_TRUE(HasBar(Box()) && IsBarEnabled(Box()));
    EXPECT_EQ(ByTheBar(Box()), ByTheText(Box()));
    const int lines = ByTheBar(Box()).lines;
    EXPECT_GE(lines, 200);

    SendMessageW(Box(), EM_SETSEL, 0, 0);
    SendMessageW(Box(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"one\r\ntwo\r\nthree\r\n"));
    EXPECT_EQ(ByTheBar(Box()).lines, lines + 3);
    SendMessageW(Box(), EM_UNDO, 0, 0);
    EXPECT_EQ(ByTheBar(Box()).lines, lines);
    EXPECT_EQ(form_.Text(), Lines(100));

    SendMessageW(Box(), EM_LINESCROLL, 0, 50);
    EXPECT_EQ(ByTheBar(Box()).top, 50);
    EXPECT_EQ(ByTheBar(Box()), ByTheText(Box()));
    const int page = ByTheBar(Box()).page;
    Resize(Size{300, 400});
    EXPECT_GT(ByTheBar(Box()).page, page);
    EXPECT_EQ(ByTheBar(Box()), ByTheText(Box()));
    const int smallLetters = ByTheBar(Box()).page;
    note_.Perform(NoteAction::ToggleLargeText);
    EXPECT_LT(ByTheBar(Box()).page, smallLetters);
    EXPECT_EQ(ByTheBar(Box()), ByTheText(Box()));

    ASSERT_TRUE(form_.SetText(u"one line"));
    EXPECT_TRUE(HasBar(Box())) << "a short text does not remove it";
    EXPECT_FALSE(IsBarEnabled(Box()));
}

TEST_F(NoteScrollBarTest, ABarThatIsShownFromTheBeginningFollowsTheTextAsWell) {
    world_.settings.showScrollBars = true;
    TestNote two(world_, u"two");
    ASSERT_TRUE(two.Create());
    const HWND box = two.Child(ChildId::kMessageBox);
    EXPECT_TRUE(HasBar(box));
    ASSERT_TRUE(two.form.SetText(Lines(100)));
    two.form.Show();
    PaintNow(two.Window());
    EXPECT_TRUE(IsBarEnabled(box));
    EXPECT_EQ(ByTheBar(box), ByTheText(box));
    EXPECT_GE(ByTheBar(box).lines, 200);
    world_.settings.showScrollBars = false;
    two.note.UpdateColors();
    EXPECT_FALSE(HasBar(box));
    EXPECT_EQ(two.form.Text(), Lines(100));
}

TEST_F(NoteScrollBarTest, ABarThatWasHiddenAndIsShownAgainShowsTheTextOfNow) {
    Show();
    ASSERT_TRUE(form_.SetText(Lines(100)));
    Switch(true);
    const Scrolled before = ByTheBar(Box());
    Switch(false);
    ASSERT_TRUE(form_.SetText(Lines(20)));
    Switch(true);
    EXPECT_LT(ByTheBar(Box()).lines, before.lines);
    EXPECT_EQ(ByTheBar(Box()), ByTheText(Box()));
    ASSERT_TRUE(form_.SetText(Lines(100)));
    EXPECT_EQ(ByTheBar(Box()), before);
}

TEST_F(NoteScrollBarTest, PressesOnTheBarScrollTheText) {
    Show();
    ASSERT_TRUE(form_.SetText(Lines(100)));
    Switch(true);
    const auto press = [&](int request) {
        SendMessageW(Box(), WM_VSCROLL, static_cast<WPARAM>(request), 0);
        EXPECT_EQ(ByTheBar(Box()), ByTheText(Box()));
        return ByTheBar(Box()).top;
    };
    EXPECT_EQ(press(SB_LINEDOWN), 1);
    const int page = press(SB_PAGEDOWN);
    EXPECT_GT(page, 2);
    EXPECT_EQ(press(SB_LINEUP), page - 1);
    EXPECT_EQ(press(SB_PAGEUP), 0);
}

TEST_F(NoteScrollBarTest, TheWheelScrollsWithAndWithoutTheBar) {
    Show();
    ASSERT_TRUE(form_.SetText(Lines(100)));
    UINT before = 0;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &before, 0);
    const auto turn = [&](int by, int keys = 0) {
        SendMessageW(Box(), WM_MOUSEWHEEL, MAKEWPARAM(keys, by), 0);
        return static_cast<int>(SendMessageW(Box(), EM_GETFIRSTVISIBLELINE, 0, 0));
    };
    for (const bool bar : {false, true}) {
        Switch(bar);
        SystemParametersInfoW(SPI_SETWHEELSCROLLLINES, 5, nullptr, 0);
        EXPECT_EQ(turn(-WHEEL_DELTA), 5);
        EXPECT_EQ(turn(-WHEEL_DELTA / 2), 7);
        EXPECT_EQ(turn(-WHEEL_DELTA / 2), 10) << "fine turns add up";
        EXPECT_EQ(turn(-WHEEL_DELTA, MK_CONTROL), 10) << "that is for something else";
        EXPECT_EQ(turn(2 * WHEEL_DELTA), 0);
        SystemParametersInfoW(SPI_SETWHEELSCROLLLINES, WHEEL_PAGESCROLL, nullptr, 0);
        EXPECT_GT(turn(-WHEEL_DELTA), 5) << "a page";
        EXPECT_EQ(turn(WHEEL_DELTA), 0);
    }
    EXPECT_EQ(ByTheBar(Box()), ByTheText(Box()));
    SystemParametersInfoW(SPI_SETWHEELSCROLLLINES, before, nullptr, 0);
}

}  // namespace
}  // namespace quillo

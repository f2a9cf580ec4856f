#include "controls/tessel_tab.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "control_fixture.h"
#include "harness/stack_object.h"
#include "platform/com_ptr.h"
#include "platform/gdi_scope.h"
#include "platform/text_tools.h"

// After windows.h.
#include <ole2.h>

namespace quillo {
namespace {

using windows_tests::ControlParent;
using windows_tests::PaintNow;
using windows_tests::PixelOf;
using windows_tests::SendMouse;

constexpr COLORREF kBack = RGB(227, 226, 220);
constexpr COLORREF kFace = RGB(251, 249, 241);
constexpr COLORREF kText = RGB(0, 0, 160);
constexpr COLORREF kTabText = RGB(0, 110, 0);
constexpr COLORREF kHot = RGB(200, 0, 0);
constexpr COLORREF kLine = RGB(90, 80, 70);

TabProperties TestProperties() {
    TabProperties properties;
    properties.tabs = u"Notes|Reminders|Sounds";
    properties.foreColor = ColorWord{kText};
    properties.tabForeColor = ColorWord{kTabText};
    properties.hotColor = ColorWord{kHot};
    properties.backColor = ColorWord{kBack};
    properties.tabColor = ColorWord{kFace};
    properties.dividerColor = ColorWord{kLine};
    return properties;
}

/// Three icons of 16 pixels: each a square of one color on the mask's color.
CoveragePlanes IconStrip() {
    CoveragePlanes strip{Size{48, 16}, std::vector<CoveragePlane>(3)};
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 48; ++x) {
            const bool inside = x % 16 >= 4 && x % 16 < 12 && y >= 4 && y < 12;
            const std::uint32_t ink = 0x00102030U * static_cast<std::uint32_t>(x / 16 + 1);
            const std::uint32_t pixel = inside ? ink : 0x00FF00FFU;
            strip.planes[0].push_back(static_cast<std::uint8_t>(pixel >> 16));
            strip.planes[1].push_back(static_cast<std::uint8_t>(pixel >> 8));
            strip.planes[2].push_back(static_cast<std::uint8_t>(pixel));
        }
    }
    return strip;
}

class TabTest : public testing::Test {
  protected:
    TabTest() {
        EXPECT_TRUE(tab_.Create(parent_.Of(), 7, L"Pages", TestProperties(), Rect{10, 10, 400, 40}));
        tab_.SetScale(Scale());
        SendMessageW(tab_.Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(font_.Get()), FALSE);
        tab_.onChange = [this](int tab) { events_ += std::to_string(tab) + " "; };
    }

    /// The face of a tab, as reported to screen readers.
    [[nodiscard]] Rect FaceOf(int tab) const {
        return TabLayout(Measures(), Scale()).Face(tab, tab_.Properties().alignTop);
    }
    [[nodiscard]] TabMeasures Measures() const {
        const WindowDcScope dc(tab_.Handle());
        TabMeasures measures;
        for (const std::u16string& caption : SplitTabs(tab_.Properties().tabs)) {
            measures.captionWidths.push_back(MeasureText(dc.Dc(), font_.Get(), caption).width);
        }
        measures.lineHeight = MeasureText(dc.Dc(), font_.Get(), u"Wg").height;
        measures.spacing = 10;
        measures.control = Size{400, 40};
        return measures;
    }
    [[nodiscard]] Point On(int tab) const {
        const Rect face = FaceOf(tab);
        return Point{face.left + face.width / 2, face.top + face.height / 2};
    }
    void Mouse(UINT message, Point at) { SendMouse(tab_.Handle(), message, 0, at); }
    void Key(WPARAM key) { SendMessageW(tab_.Handle(), WM_KEYDOWN, key, 0); }
    [[nodiscard]] bool HasCapture() const { return GetCapture() == tab_.Handle(); }
    /// How many pixels of that color a tab shows.
    [[nodiscard]] int PixelsOf(int tab, COLORREF color) const {
        PaintNow(tab_.Handle());
        return PixelsIn(FaceOf(tab), color);
    }
    [[nodiscard]] int PixelsIn(const Rect& area, COLORREF color) const {
        int found = 0;
        for (int y = area.top; y < area.Bottom(); ++y) {
            for (int x = area.left; x < area.Right(); ++x) {
                if (PixelOf(tab_.Handle(), Point{x, y}) == color) ++found;
            }
        }
        return found;
    }

    FontHandle font_ = MakeFont(u"Tahoma", 9, FW_NORMAL, Scale());
    ControlParent parent_;
    TesselTab tab_;
    std::string events_;
};

TEST_F(TabTest, HoveringMakesATabALinkAndLeavingEndsThat) {
    Mouse(WM_MOUSEMOVE, On(2));
    EXPECT_TRUE(HasCapture());
    EXPECT_GT(PixelsOf(2, kHot), 20);
    // The line under the caption is longer than any stroke of a letter.
    int longest = 0;
    const Rect face = FaceOf(2);
    for (int y = face.top; y < face.Bottom(); ++y) {
        longest = std::max(longest, PixelsIn(Rect{face.left, y, face.width, 1}, kHot));
    }
    EXPECT_GT(longest, face.width / 2);
    Mouse(WM_MOUSEMOVE, Point{395, 20});
    EXPECT_FALSE(HasCapture());
    EXPECT_EQ(PixelsOf(2, kHot), 0);
    EXPECT_EQ(events_, "");
}

TEST_F(TabTest, APointerThatLeavesUnnoticedEndsTheHover) {
    Mouse(WM_MOUSEMOVE, On(2));
    SendMessageW(tab_.Handle(), WM_MOUSELEAVE, 0, 0);
    EXPECT_FALSE(HasCapture());
    EXPECT_EQ(PixelsOf(2, kHot), 0);
}

TEST_F(TabTest, ReleasingOverATabChoosesIt) {
    Mouse(WM_MOUSEMOVE, On(2));
    Mouse(WM_LBUTTONDOWN, On(2));
    EXPECT_EQ(events_, "");
    Mouse(WM_LBUTTONUP, On(2));
    EXPECT_EQ(events_, "2 ");
    EXPECT_EQ(tab_.CurrentTab(), 2);
    EXPECT_FALSE(HasCapture());
    EXPECT_GT(PixelsOf(2, kTabText), 20);
    Mouse(WM_MOUSEMOVE, On(2));
    Mouse(WM_LBUTTONUP, On(2));
    EXPECT_EQ(events_, "2 2 ") << "the current one again";
    Mouse(WM_MOUSEMOVE, Point{395, 20});
    Mouse(WM_LBUTTONUP, Point{395, 20});
    EXPECT_EQ(events_, "2 2 ");
}

TEST_F(TabTest, ALostCaptureEndsTheHover) {
    Mouse(WM_MOUSEMOVE, On(2));
    ReleaseCapture();
    EXPECT_EQ(PixelsOf(2, kHot), 0);
    Mouse(WM_LBUTTONUP, On(2));
    EXPECT_EQ(events_, "");
}

TEST_F(TabTest, TheKeyboardChoosesTabs) {
    Key(VK_RIGHT);
    Key(VK_RIGHT);
    Key(VK_LEFT);
    Key(VK_END);
    Key(VK_HOME);
    Key('A');
    EXPECT_EQ(events_, "1 2 1 3 1 ");
    EXPECT_EQ(SendMessageW(tab_.Handle(), WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS);
    EXPECT_NE(GetWindowLongPtrW(tab_.Handle(), GWL_STYLE) & WS_TABSTOP, 0);
}

TEST_F(TabTest, TheKeyboardsFocusShowsOnTheCurrentTab) {
    tab_.SetCurrentTab(1);
    SetForegroundWindow(parent_.Of());
    const Rect face = FaceOf(1);
    const Rect mark{face.left + 3, face.top + 3, face.width - 6, 1};
    PaintNow(tab_.Handle());
    ASSERT_EQ(PixelsIn(mark, kFace), mark.width);
    Mouse(WM_LBUTTONDOWN, On(1));
    ASSERT_EQ(GetFocus(), tab_.Handle());
    PaintNow(tab_.Handle());
    EXPECT_LT(PixelsIn(mark, kFace), mark.width * 3 / 4);
    SetFocus(nullptr);
    PaintNow(tab_.Handle());
    EXPECT_EQ(PixelsIn(mark, kFace), mark.width);
}

TEST_F(TabTest, TheFormSetsTheCurrentTabWithoutAnEvent) {
    tab_.SetCurrentTab(3);
    EXPECT_EQ(tab_.CurrentTab(), 3);
    EXPECT_GT(PixelsOf(3, kTabText), 20);
    tab_.SetCurrentTab(4);
    EXPECT_EQ(tab_.CurrentTab(), 0);
    EXPECT_EQ(PixelsOf(3, kTabText), 0);
    EXPECT_EQ(events_, "");
}

TEST_F(TabTest, PaintsTheLineOfThePageAndTheFaceOverIt) {
    tab_.SetCurrentTab(1);
    PaintNow(tab_.Handle());
    EXPECT_EQ(PixelOf(tab_.Handle(), Point{398, 39}), kLine);
    EXPECT_EQ(PixelOf(tab_.Handle(), Point{398, 20}), kBack);
    EXPECT_EQ(PixelOf(tab_.Handle(), Point{20, 39}), kFace);
    EXPECT_EQ(PixelOf(tab_.Handle(), Point{20, 5}), kFace);
    EXPECT_EQ(PixelOf(tab_.Handle(), Point{20, 2}), GetSysColor(COLOR_BTNHIGHLIGHT));
}

TEST_F(TabTest, IconsHaveTheBackgroundOfTheirTab) {
    MoveWindow(tab_.Handle(), 10, 10, 400, 60, FALSE);
    tab_.SetCurrentTab(1);
    tab_.SetPicture(IconStrip());
    TabMeasures measures = Measures();
    measures.control.height = 60;
    measures.iconEdge = 16;
    const TabLayout layout(measures, Scale());
    PaintNow(tab_.Handle());
    for (int tab = 1; tab <= 3; ++tab) {
        const Point icon = layout.IconAt(tab, false);
        const auto shade = static_cast<BYTE>(tab);
        EXPECT_EQ(PixelOf(tab_.Handle(), Point{icon.x + 8, icon.y + 8}), RGB(0x10 * shade, 0x20 * shade, 0x30 * shade));
        EXPECT_EQ(PixelOf(tab_.Handle(), Point{icon.x + 1, icon.y + 1}), tab == 1 ? kFace : kBack) << tab;
    }
    TabProperties other = tab_.Properties();
    other.backColor = ColorWord{RGB(1, 2, 3)};
    tab_.SetProperties(other);
    PaintNow(tab_.Handle());
    const Point second = layout.IconAt(2, false);
    EXPECT_EQ(PixelOf(tab_.Handle(), Point{second.x + 1, second.y + 1}), RGB(1, 2, 3));
}

TEST_F(TabTest, IconsCanBeDrawnInAnotherSize) {
    MoveWindow(tab_.Handle(), 10, 10, 400, 80, FALSE);
    tab_.SetPicture(IconStrip(), 32);
    TabMeasures measures = Measures();
    measures.control.height = 80;
    measures.iconEdge = 32;
    const Point icon = TabLayout(measures, Scale()).IconAt(1, false);
    PaintNow(tab_.Handle());
    EXPECT_EQ(PixelOf(tab_.Handle(), Point{icon.x + 16, icon.y + 16}), RGB(0x10, 0x20, 0x30));
    EXPECT_EQ(PixelOf(tab_.Handle(), Point{icon.x + 2, icon.y + 2}), kBack);
    tab_.SetPicture({});
    EXPECT_EQ(PixelsOf(1, RGB(0x10, 0x20, 0x30)), 0);
}

TEST_F(TabTest, ACaptionTooLongForItsTabIsCutOff) {
    tab_.SetTabs(u"A caption that is very much longer than there is room for it on the strip|Other");
    EXPECT_EQ(tab_.TabCount(), 2);
    PaintNow(tab_.Handle());
    const Rect first = FaceOf(1);
    EXPECT_GT(PixelsIn(first, kText), 20);
    EXPECT_EQ(PixelsIn(Rect{first.Right() - 4, first.top, 4, first.height}, kText), 0);
}

TEST_F(TabTest, NoTabsDoNothing) {
    tab_.SetTabs(u"");
    EXPECT_EQ(tab_.TabCount(), 0);
    Mouse(WM_MOUSEMOVE, Point{20, 20});
    EXPECT_FALSE(HasCapture());
    Mouse(WM_LBUTTONUP, Point{20, 20});
    Key(VK_END);
    EXPECT_EQ(events_, "");
    PaintNow(tab_.Handle());
    EXPECT_EQ(PixelOf(tab_.Handle(), Point{20, 20}), kBack);
}

TEST_F(TabTest, OtherTabsUnderThePointerReleaseTheMouse) {
    Mouse(WM_MOUSEMOVE, On(3));
    ASSERT_TRUE(HasCapture());
    tab_.SetTabs(u"One");
    EXPECT_FALSE(HasCapture());
}

/// Drags some data until the form has been told of a tab, or until a timeout.
class Dragging : public e2e::StackObject<IDropSource> {
  public:
    explicit Dragging(std::function<bool()> done) : done_(std::move(done)) {}

    HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL, DWORD) override {
        return done_() || GetTickCount64() > deadline_ ? DRAGDROP_S_CANCEL : S_OK;
    }
    HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD effect) override {
        effect_ = effect;
        return DRAGDROP_S_USEDEFAULTCURSORS;
    }
    [[nodiscard]] DWORD Effect() const { return effect_; }

  private:
    std::function<bool()> done_;
    ULONGLONG deadline_ = GetTickCount64() + 10'000;
    DWORD effect_ = DROPEFFECT_COPY;
};

/// Moves the mouse back and forth over a point for its lifetime; a drag waits for these moves.
class Trembling {
  public:
    explicit Trembling(POINT at) : timer_(SetTimer(nullptr, 0, 20, &Trembling::Move)) { SetCursorPos(at.x, at.y); }
    Trembling(const Trembling&) = delete;
    Trembling& operator=(const Trembling&) = delete;
    ~Trembling() { KillTimer(nullptr, timer_); }

  private:
    static void CALLBACK Move(HWND, UINT, UINT_PTR, DWORD ticks) {
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dx = ticks / 20 % 2 == 0 ? 1 : -1;
        input.mi.dwFlags = MOUSEEVENTF_MOVE;
        SendInput(1, &input, sizeof input);
    }
    UINT_PTR timer_;
};

TEST_F(TabTest, DraggingDataOverATabChoosesItOnceAndNothingCanBeDropped) {
    ASSERT_TRUE(SUCCEEDED(OleInitialize(nullptr)));
    {
        TesselTab strip;
        ASSERT_TRUE(strip.Create(parent_.Of(), 8, L"Other", TestProperties(), Rect{10, 60, 400, 40}));
        strip.SetScale(Scale());
        SendMessageW(strip.Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(font_.Get()), FALSE);
        strip.onChange = [this](int tab) { events_ += std::to_string(tab) + " "; };
        POINT at{On(3).x, On(3).y};
        ClientToScreen(strip.Handle(), &at);
        ComPtr<IDataObject> data;
        ASSERT_EQ(OleGetClipboard(data.Put()), S_OK);  // the kind of data does not matter
        int asked = 0;
        constexpr int kSomeMore = 5;  // rounds over the tab that is current by then
        Dragging dragging([&] { return !events_.empty() && ++asked > kSomeMore; });
        const Trembling hand(at);
        DWORD effect = DROPEFFECT_COPY;
        EXPECT_EQ(DoDragDrop(data.Get(), &dragging, DROPEFFECT_COPY, &effect), DRAGDROP_S_CANCEL);
        EXPECT_EQ(dragging.Effect(), static_cast<DWORD>(DROPEFFECT_NONE));
        EXPECT_EQ(events_, "3 ");
        EXPECT_EQ(strip.CurrentTab(), 3);
    }
    OleUninitialize();
}

TEST_F(TabTest, AHandlerMayEndTheStrip) {
    auto strip = std::make_unique<TesselTab>();
    ASSERT_TRUE(strip->Create(parent_.Of(), 9, L"Short-lived", TestProperties(), Rect{10, 60, 400, 40}));
    strip->onChange = [&](int tab) {
        events_ += std::to_string(tab);
        strip.reset();
    };
    SendMessageW(strip->Handle(), WM_KEYDOWN, VK_END, 0);
    EXPECT_EQ(strip, nullptr);
    EXPECT_EQ(events_, "3");
}

}  // namespace
}  // namespace quillo

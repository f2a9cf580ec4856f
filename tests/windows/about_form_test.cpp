#include "mainmenu/about_form.h"

#include <gtest/gtest.h>

// After windows.h.
#include <commctrl.h>

#include <algorithm>
#include <cwchar>
#include <string>
#include <vector>

#include "app/base/app_identity.h"
#include "controls/system_colors.h"
#include "platform/gdi_canvas.h"
#include "platform/gdi_scope.h"
#include "platform/message_loop.h"
#include "platform/text_tools.h"
#include "platform/wide.h"
#include "platform/window_effects.h"
#include "support.h"
#include "testing/fake_shell.h"

namespace quillo {
namespace {

using windows_tests::PaintNow;
using windows_tests::PixelOf;
using Control = AboutControl;
using Opened = std::vector<std::u16string>;

class AboutFormTest : public testing::Test {
  protected:
    void Open() {
        ASSERT_TRUE(form_.Open(nullptr));
        loop_.RunPending();
    }
    [[nodiscard]] HWND Of(AboutControl control) const { return form_.ControlWindow(control); }
    [[nodiscard]] std::u16string Text(AboutControl control) const { return WindowText(Of(control)); }
    void Press(AboutControl button) { SendMessageW(Of(button), BM_CLICK, 0, 0); }
    void Key(HWND to, int key) {
        PostMessageW(to, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
        loop_.RunPending();
    }
    void SetDpi(int dpi) {
        const RECT place{100, 100, 500, 400};
        SendMessageW(form_.Handle(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&place));
    }
    [[nodiscard]] Rect PlaceOf(HWND window) const {
        RECT place{};
        GetWindowRect(window, &place);
        MapWindowPoints(nullptr, form_.Handle(), reinterpret_cast<POINT*>(&place), 2);
        return FromWin32(place);
    }
    FakeShell shell_;
    MessageLoop loop_;
    AboutForm form_{shell_, loop_, ProgramVersion{4, 0, 5}};
    const std::u16string site_ = u"http://" + std::u16string(kMakerHost);
    const std::u16string help_ = u"C:\\Program Files\\Quillo\\Quillo.chm";
};

TEST_F(AboutFormTest, ShowsNameAndVersion) {
    Open();
    EXPECT_EQ(WindowText(form_.Handle()), u"About Quillo");
    EXPECT_EQ(Text(Control::TitleLabel), u"Quillo " + std::u16string(kMakerNotice));
    EXPECT_EQ(Text(Control::VersionLabel), u"Version 4.0.5");
    EXPECT_EQ(Text(Control::FreewareLabel), u"This program is freeware.  For more information, visit our website:");
    EXPECT_EQ(Text(Control::WebsiteLabel), u"Website:");
    EXPECT_EQ(Text(Control::UpdateButton), u"Check for updates");
    EXPECT_EQ(Text(Control::HelpButton), u"Help");
    EXPECT_EQ(Text(Control::CloseButton), u"Close");
    EXPECT_FALSE(Text(Control::Image).empty()) << "a screen reader has a name for the picture";
    EXPECT_EQ(Text(Control::WebLink), kMakerHost) << "the host name alone, no markup";
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(Of(Control::HelpButton), WM_GETFONT, 0, 0)), sizeof font, &font);
    EXPECT_EQ(std::wcscmp(font.lfFaceName, L"Tahoma"), 0);
}

TEST_F(AboutFormTest, TheLinkIsReadableInEveryTheme) {
    Open();
    const HWND link = Of(Control::WebLink);
    PaintNow(link);
    const Rect place = PlaceOf(link);
    double best = 0;
    for (int y = 0; y < place.height; ++y) {
        const COLORREF shown = PixelOf(link, Point{place.width / 4, y});
        best = std::max(best, ContrastRatio(Resolve(kSystemWindow), ColorWord{shown}));
    }
    EXPECT_GE(best, 4.5) << "its underline at least, which no smoothing makes paler";
}

TEST_F(AboutFormTest, UpdatesOpenTheMakersPageWithTheVersion) {
    Open();
    Press(Control::UpdateButton);
    EXPECT_EQ(shell_.opened, Opened{site_ + u"/quillo/?Version=4.0.5"});
    EXPECT_NE(form_.Handle(), nullptr) << "the box stays";
}

TEST_F(AboutFormTest, HelpOpensAndTheBoxCloses) {
    Open();
    Press(Control::HelpButton);
    EXPECT_EQ(shell_.opened, Opened{help_});
    EXPECT_EQ(form_.Handle(), nullptr);
}

TEST_F(AboutFormTest, WhereNothingOpensNothingHappens) {
    shell_.openWorks = false;
    Open();
    Press(Control::UpdateButton);
    EXPECT_NE(form_.Handle(), nullptr);
    Press(Control::HelpButton);
    EXPECT_EQ(form_.Handle(), nullptr);
}

TEST_F(AboutFormTest, TheLinkFollowsEnterAndTheMouse) {
    Open();
    SetFocus(Of(Control::WebLink));
    Key(Of(Control::WebLink), VK_RETURN);
    EXPECT_EQ(shell_.opened, Opened{site_});
    ASSERT_NE(form_.Handle(), nullptr) << "Enter belongs to the link, not to the close button";
    const LPARAM onIt = MAKELPARAM(12, 5);
    SendMessageW(Of(Control::WebLink), WM_LBUTTONDOWN, MK_LBUTTON, onIt);
    SendMessageW(Of(Control::WebLink), WM_LBUTTONUP, 0, onIt);
    EXPECT_EQ(shell_.opened, (Opened{site_, site_}));
}

TEST_F(AboutFormTest, TheKeyboardReachesEveryControlAndCloses) {
    Open();
    EXPECT_EQ(GetFocus(), Of(Control::CloseButton));
    std::vector<HWND> order;
    for (int i = 0; i < 4; ++i) {
        Key(GetFocus(), VK_TAB);
        order.push_back(GetFocus());
    }
    EXPECT_EQ(order, (std::vector<HWND>{Of(Control::WebLink), Of(Control::UpdateButton), Of(Control::HelpButton),
                                        Of(Control::CloseButton)}));
    Key(GetFocus(), VK_RETURN);
    EXPECT_EQ(form_.Handle(), nullptr);
    Open();
    Key(GetFocus(), VK_ESCAPE);
    EXPECT_EQ(form_.Handle(), nullptr);
    EXPECT_TRUE(shell_.opened.empty());
}

TEST_F(AboutFormTest, OneBoxIsEnough) {
    Open();
    HWND first = form_.Handle();
    Open();
    EXPECT_EQ(form_.Handle(), first);
    SendMessageW(first, WM_CLOSE, 0, 0);
    EXPECT_EQ(form_.Handle(), nullptr);
    Open();
    EXPECT_NE(form_.Handle(), nullptr);
}

TEST_F(AboutFormTest, NothingIsCutAtAnyResolution) {
    Open();
    for (const int dpi : {96, 120, 144, 168, 192}) {
        SetDpi(dpi);
        RECT client{};
        GetClientRect(form_.Handle(), &client);
        for (int i = 0; i < static_cast<int>(Control::Count); ++i) {
            const auto control = static_cast<Control>(i);
            const Rect place = PlaceOf(Of(control));
            EXPECT_GE(place.left, 0) << i << " at " << dpi;
            EXPECT_LE(place.Right(), client.right) << i << " at " << dpi;
            EXPECT_LE(place.Bottom(), client.bottom) << i << " at " << dpi;
            if (control == Control::Image || control == Control::DividerLine) continue;
            const WindowDcScope dc(Of(control));
            const auto font = reinterpret_cast<HFONT>(SendMessageW(Of(control), WM_GETFONT, 0, 0));
            const std::u16string text = control == Control::WebLink ? std::u16string(kMakerHost) : Text(control);
            const Size needed = MeasureText(dc.Dc(), font, text);
            EXPECT_LE(needed.width, place.width) << i << " at " << dpi;
            EXPECT_LE(needed.height, place.height) << i << " at " << dpi;
        }
    }
}

TEST_F(AboutFormTest, AnotherResolutionDrawsEverythingAgain) {
    Open();
    PaintNow(form_.Handle());
    ASSERT_EQ(GetUpdateRect(Of(Control::FreewareLabel), nullptr, FALSE), FALSE);
    SetDpi(144);
    for (const Control control : {Control::Image, Control::FreewareLabel, Control::WebLink, Control::CloseButton}) {
        EXPECT_NE(GetUpdateRect(Of(control), nullptr, FALSE), FALSE) << static_cast<int>(control);
    }
}

TEST_F(AboutFormTest, ThePictureIsInAYellowBox) {
    Open();
    PaintNow(form_.Handle());
    const Rect picture = PlaceOf(Of(Control::Image));
    const COLORREF ground = HighContrastIsOn() ? GetSysColor(COLOR_WINDOW) : RGB(0xFF, 0xFD, 0xD0);
    EXPECT_EQ(PixelOf(form_.Handle(), Point{2, 2}), ground);
    EXPECT_EQ(PixelOf(form_.Handle(), Point{2, picture.Bottom()}), ground);
    const Rect words = PlaceOf(Of(Control::FreewareLabel));
    EXPECT_EQ(PixelOf(form_.Handle(), Point{2, words.top}), GetSysColor(COLOR_WINDOW));
    // The bar of the front sheet.
    EXPECT_EQ(PixelOf(Of(Control::Image), Point{picture.width / 3, picture.height / 3}), RGB(0xFE, 0xCF, 0x38));
}

}  // namespace
}  // namespace quillo

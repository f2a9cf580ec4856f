#include "harness/e2e_test.h"
#include "harness/main_menu.h"
#include "harness/screen.h"
#include "harness/shell_recorder.h"
#include "harness/window_text.h"
#include "mainmenu/about_controls.h"
#include "version.h"

namespace quillo::e2e {
namespace {

constexpr char kSite[] = "http://www.marrowind.example";

/// The about box, opened from the menu.
class AboutTest : public OrdinaryTest {
  protected:
    using Control = AboutControl;

    [[nodiscard]] HWND Box() {
        for (HWND window : WindowsOf(Quillo().Pid())) {
            if (ClassOf(window) == L"QuilloAbout" && IsWindowVisible(window) != FALSE) return window;
        }
        return nullptr;
    }
    [[nodiscard]] HWND Of(AboutControl control) {
        constexpr int kFirstId = 100;
        return GetDlgItem(Box(), control == Control::CloseButton ? IDOK : kFirstId + static_cast<int>(control));
    }
    [[nodiscard]] POINT MiddleOf(AboutControl control) {
        RECT place{};
        GetWindowRect(Of(control), &place);
        return POINT{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    }
    /// Opens it and waits until the close button has the focus.
    void Open() {
        const MainMenu menu(Quillo().Pid());
        ASSERT_TRUE(menu.Open());
        ASSERT_TRUE(menu.Choose(MenuItem::About));
        ASSERT_TRUE(Eventually([this] { return Box() != nullptr && KeyboardWindow() == Of(Control::CloseButton); }));
    }
    /// Moves the focus with the Tab key from the close button to that control.
    [[nodiscard]] bool TabTo(AboutControl control) {
        for (const Control next :
             {Control::WebLink, Control::UpdateButton, Control::HelpButton, Control::CloseButton}) {
            PressKey(VK_TAB);
            if (!Eventually([&] { return KeyboardWindow() == Of(next); })) return false;
            if (next == control) return true;
        }
        return false;
    }
    [[nodiscard]] bool Goes() {
        return Eventually([this] { return Box() == nullptr; });
    }
};

TEST_F(AboutTest, ShowsTheVersionAndClosesByKeyboard) {
    Start();
    Open();
    EXPECT_EQ(WindowText(Box()), L"About Quillo");
    EXPECT_EQ(WindowText(Of(Control::VersionLabel)), L"Version " + std::to_wstring(QUILLO_VERSION_MAJOR) + L"." +
                                                         std::to_wstring(QUILLO_VERSION_MINOR) + L"." +
                                                         std::to_wstring(QUILLO_VERSION_PATCH));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(Goes());
    Open();
    PressKey(VK_RETURN);
    EXPECT_TRUE(Goes());
}

TEST_F(AboutTest, PassesTheMakersAddressesToTheShell) {
    const ShellRecorder browser(L"http", Outside().Path());
    if (!browser.IsInCharge()) GTEST_SKIP() << "this user's choice of a browser cannot be replaced for a test";
    Start();
    Open();
    ASSERT_TRUE(TabTo(Control::UpdateButton));
    PressKey(VK_SPACE);
    const std::string version = QUILLO_VERSION_TEXT;
    EXPECT_TRUE(Eventually([&] { return browser.Opened() == kSite + ("/quillo/?Version=" + version); }))
        << browser.Opened();
    EXPECT_NE(Box(), nullptr);
    browser.DropRecord();
    EXPECT_TRUE(Until([&] { return browser.Opened() == kSite; }, [&] { ClickMouse(MiddleOf(Control::WebLink)); }))
        << browser.Opened();
}

TEST_F(AboutTest, TheFirstClickOnTheLinkCounts) {
    const ShellRecorder browser(L"http", Outside().Path());
    if (!browser.IsInCharge()) GTEST_SKIP() << "this user's choice of a browser cannot be replaced for a test";
    Start();
    Open();
    ClickMouse(MiddleOf(Control::WebLink));
    EXPECT_TRUE(Eventually([&] { return browser.Opened() == kSite; })) << browser.Opened();
}

TEST_F(AboutTest, HelpOpensTheHelpAndClosesTheBox) {
    const ShellRecorder reader(L".chm", Outside().Path());
    if (!reader.IsInCharge()) GTEST_SKIP() << "this user's choice of a reader cannot be replaced for a test";
    Start();
    Open();
    ASSERT_TRUE(TabTo(Control::HelpButton));
    PressKey(VK_SPACE);
    EXPECT_TRUE(Goes());
    const std::string file = "Quillo.chm";
    EXPECT_TRUE(Eventually([&] {
        const std::string opened = reader.Opened();
        return opened.size() > file.size() && opened.substr(opened.size() - file.size()) == file;
    })) << reader.Opened();
}

}  // namespace
}  // namespace quillo::e2e

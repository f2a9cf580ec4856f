#include "harness/e2e_test.h"
#include "harness/main_menu.h"
#include "harness/screen.h"
#include "harness/tray.h"

namespace quillo::e2e {
namespace {

class MainMenuTest : public OrdinaryTest {
  protected:
    [[nodiscard]] MainMenu Menu() { return MainMenu(Quillo().Pid()); }
};

TEST_F(MainMenuTest, AClickOnTheIconOpensTheMenuInTheCornerAndEscClosesIt) {
    Start();
    EXPECT_FALSE(Menu().IsShowing());
    ASSERT_TRUE(Menu().Open());
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    const POINT corner = Menu().OnScreen(300, 180);
    EXPECT_EQ(corner.x, area.right);
    EXPECT_EQ(corner.y, area.bottom);
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(Menu().WaitUntilGone());
    EXPECT_TRUE(Quillo().WaitUntilReady());
}

}  // namespace
}  // namespace quillo::e2e

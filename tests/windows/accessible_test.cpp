#include "platform/accessible.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "accessible_reader.h"
#include "control_fixture.h"
#include "controls/note_button.h"
#include "controls/note_color_selector.h"
#include "controls/tessel_divider.h"
#include "controls/tessel_mini_slider.h"
#include "controls/tessel_tab.h"
#include "platform/text_tools.h"
#include "platform/wide.h"
#include "reminder_fixture.h"
#include "reminders/reminder_form.h"
#include "util/numbers.h"

namespace quillo {
namespace {

using windows_tests::ControlParent;
using windows_tests::Reader;

class AccessibleTest : public testing::Test {
  protected:
    AccessibleTest() { SetForegroundWindow(parent_.Of()); }

    ControlParent parent_;
};

TEST_F(AccessibleTest, ASliderHasItsNameItsRoleAndItsValue) {
    TesselMiniSlider slider;
    SliderProperties properties;
    properties.value = 40;
    ASSERT_TRUE(slider.Create(parent_.Of(), 7, L"Opacity", properties, Rect{10, 10, 102, 20}));
    const Reader reader(slider.Handle());
    EXPECT_EQ(reader.Name(), u"Opacity");
    EXPECT_EQ(reader.Role(), ROLE_SYSTEM_SLIDER);
    EXPECT_EQ(reader.Value(), u"40");
    slider.describeValue = [](std::int32_t value) { return FormatInteger(value) + u" percent"; };
    slider.SetValue(50);
    EXPECT_EQ(reader.Value(), u"50 percent");
    EXPECT_EQ(reader.State(), STATE_SYSTEM_FOCUSABLE);
    SetFocus(slider.Handle());
    EXPECT_EQ(reader.State(), STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_FOCUSED);
    slider.SetEnabled(false);
    EXPECT_NE(reader.State() & STATE_SYSTEM_UNAVAILABLE, 0);
    EXPECT_EQ(reader.Action(), u"");
    EXPECT_EQ(reader->accDoDefaultAction(Reader::Part(0)), DISP_E_MEMBERNOTFOUND);
}

TEST_F(AccessibleTest, ADividerIsASeparatorOrItsCaption) {
    TesselDivider divider;
    ASSERT_TRUE(divider.Create(parent_.Of(), 7, u"", Rect{10, 10, 102, 20}));
    const Reader reader(divider.Handle());
    EXPECT_EQ(reader.Role(), ROLE_SYSTEM_SEPARATOR);
    divider.SetCaption(u"Sounds");
    EXPECT_EQ(reader.Role(), ROLE_SYSTEM_STATICTEXT);
    EXPECT_EQ(reader.Name(), u"Sounds");
    EXPECT_EQ(reader.State(), 0);
}

TEST_F(AccessibleTest, ThePushpinReportsWhetherItIsPressed) {
    NoteButtonImages images;
    NoteButton pushpin(images);
    int clicks = 0;
    pushpin.onClick = [&] { ++clicks; };
    pushpin.SetPicture(ButtonPicture::Pushpin);
    ASSERT_TRUE(pushpin.Create(parent_.Of(), 3, L"Always on top", Rect{10, 10, 20, 20}));
    const Reader reader(pushpin.Handle());
    EXPECT_EQ(reader.Name(), u"Always on top");
    EXPECT_EQ(reader.Role(), ROLE_SYSTEM_CHECKBUTTON);
    EXPECT_EQ(reader.State() & STATE_SYSTEM_CHECKED, 0);
    pushpin.SetPicture(ButtonPicture::PushpinPressed);
    EXPECT_NE(reader.State() & STATE_SYSTEM_CHECKED, 0);
    EXPECT_EQ(reader.Action(), u"Press");
    EXPECT_EQ(reader->accDoDefaultAction(Reader::Part(0)), S_OK);
    EXPECT_EQ(clicks, 0) << "not while the reader waits";
    windows_tests::PumpWaiting();
    EXPECT_EQ(clicks, 1);
    pushpin.SetEnabled(false);
    SendMessageW(pushpin.Handle(), BM_CLICK, 0, 0);
    EXPECT_EQ(clicks, 1);
}

TEST_F(AccessibleTest, TheMenuButtonOpensTheSameMenuAsAPress) {
    NoteButtonImages images;
    NoteButton menu(images);
    int opened = 0;
    menu.SetPicture(ButtonPicture::Menu);
    menu.SetMenuMode(true);
    menu.onMouseDown = [&] { ++opened; };
    ASSERT_TRUE(menu.Create(parent_.Of(), 4, L"Note menu", Rect{10, 10, 20, 20}));
    const Reader reader(menu.Handle());
    EXPECT_EQ(reader.Role(), ROLE_SYSTEM_BUTTONMENU);
    EXPECT_NE(reader.State() & STATE_SYSTEM_HASPOPUP, 0);
    EXPECT_EQ(reader.Action(), u"Open");
    EXPECT_EQ(reader->accDoDefaultAction(Reader::Part(0)), S_OK);
    windows_tests::PumpWaiting();
    EXPECT_EQ(opened, 1);
}

TEST(AccessibleAlertTest, AnAlertIsReadWithItsTextAndCanBeDismissed) {
    windows_tests::ReminderWorld world;
    ReminderForm form(&world.owner, world.forAlerts);
    ASSERT_TRUE(form.Initialize(u"water the ferns", AlertColors{ColorWord{0xFFFFFF}, ColorWord{0}, ColorWord{0}}));
    const Reader reader(form.Handle());
    EXPECT_EQ(reader.Name(), u"water the ferns");
    EXPECT_EQ(reader.Role(), ROLE_SYSTEM_ALERT);
    EXPECT_EQ(reader->accDoDefaultAction(Reader::Part(0)), S_OK);
    EXPECT_NE(form.Handle(), nullptr) << "not while the reader waits";
    windows_tests::PumpWaiting();
    EXPECT_EQ(form.Handle(), nullptr);
    EXPECT_EQ(world.owner.calls, (std::vector<std::string>{"popup", "activate", "alert closing"}));
}

class AccessibleTabTest : public AccessibleTest {
  protected:
    AccessibleTabTest() {
        EXPECT_TRUE(tab_->Create(parent_.Of(), 7, L"Pages of options", FreshTabProperties(), Rect{10, 10, 400, 40}));
        tab_->SetCurrentTab(2);
        tab_->onChange = [this](int tab) { changed_ = tab; };
    }

    std::unique_ptr<TesselTab> tab_ = std::make_unique<TesselTab>();
    int changed_ = 0;
};

TEST_F(AccessibleTabTest, AStripIsAListOfItsTabs) {
    const Reader reader(tab_->Handle());
    EXPECT_EQ(reader.Name(), u"Pages of options");
    EXPECT_EQ(reader.Role(), ROLE_SYSTEM_PAGETABLIST);
    LONG count = 0;
    EXPECT_EQ(reader->get_accChildCount(&count), S_OK);
    ASSERT_EQ(count, 3);
    EXPECT_EQ(reader.Name(1), u"Tab 1");
    EXPECT_EQ(reader.Name(3), u"Tab 3");
    EXPECT_EQ(reader.Role(2), ROLE_SYSTEM_PAGETAB);
    EXPECT_EQ(reader.State(1), STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE);
    EXPECT_EQ(reader.State(2), STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_SELECTED);
    EXPECT_EQ(reader.Action(1), u"Switch");
    EXPECT_EQ(reader.Name(4), u"") << "there is no fourth";
    EXPECT_EQ(reader.Role(-1), -1);
    VARIANT selected{};
    EXPECT_EQ(reader->get_accSelection(&selected), S_OK);
    EXPECT_EQ(selected.lVal, 2);
}

TEST_F(AccessibleTabTest, TheFocusIsOnTheCurrentTab) {
    SetFocus(tab_->Handle());
    const Reader reader(tab_->Handle());
    EXPECT_NE(reader.State(2) & STATE_SYSTEM_FOCUSED, 0);
    EXPECT_EQ(reader.State(1) & STATE_SYSTEM_FOCUSED, 0);
    VARIANT focused{};
    EXPECT_EQ(reader->get_accFocus(&focused), S_OK);
    EXPECT_EQ(focused.lVal, 2);
}

TEST_F(AccessibleTabTest, AReaderSwitchesTabs) {
    const Reader reader(tab_->Handle());
    EXPECT_EQ(reader->accDoDefaultAction(Reader::Part(3)), S_OK);
    EXPECT_EQ(changed_, 3);
    EXPECT_EQ(tab_->CurrentTab(), 3);
    EXPECT_EQ(reader->accSelect(SELFLAG_TAKESELECTION, Reader::Part(1)), S_OK);
    EXPECT_EQ(changed_, 1);
}

TEST_F(AccessibleTabTest, TabsAreFoundByPlaceAndByDirection) {
    const Reader reader(tab_->Handle());
    LONG left = 0;
    LONG top = 0;
    LONG width = 0;
    LONG height = 0;
    ASSERT_EQ(reader->accLocation(&left, &top, &width, &height, Reader::Part(2)), S_OK);
    EXPECT_GT(width, 0);
    VARIANT hit{};
    EXPECT_EQ(reader->accHitTest(left + width / 2, top + height / 2, &hit), S_OK);
    EXPECT_EQ(hit.lVal, 2);
    EXPECT_EQ(reader->accHitTest(5, 5, &hit), S_FALSE);
    EXPECT_EQ(reader.Go(NAVDIR_FIRSTCHILD, 0), 1);
    EXPECT_EQ(reader.Go(NAVDIR_LASTCHILD, 0), 3);
    EXPECT_EQ(reader.Go(NAVDIR_NEXT, 1), 2);
    EXPECT_EQ(reader.Go(NAVDIR_PREVIOUS, 2), 1);
    EXPECT_EQ(reader.Go(NAVDIR_NEXT, 3), -1);
}

TEST_F(AccessibleTabTest, AReaderMayOutliveTheStrip) {
    const Reader reader(tab_->Handle());
    tab_.reset();
    EXPECT_EQ(reader.Name(), u"");
    EXPECT_EQ(reader.Role(), -1);
    LONG count = -1;
    EXPECT_EQ(reader->get_accChildCount(&count), S_OK);
    EXPECT_EQ(count, 0);
    EXPECT_NE(reader->accDoDefaultAction(Reader::Part(1)), S_OK);
}

TEST_F(AccessibleTest, EverySwatchHasItsNameAndCanBePressed) {
    NoteColorSelector selector;
    std::vector<ColorScheme> picked;
    selector.onColorPicked = [&](const ColorScheme& scheme) { picked.push_back(scheme); };
    ASSERT_TRUE(selector.Create(parent_.Of(), 7, L"Colors", Point{10, 10}));
    const Reader reader(selector.Handle());
    EXPECT_EQ(reader.Name(), u"Colors");
    EXPECT_EQ(reader.Role(), ROLE_SYSTEM_GROUPING);
    LONG count = 0;
    EXPECT_EQ(reader->get_accChildCount(&count), S_OK);
    ASSERT_EQ(count, 11);
    EXPECT_EQ(reader.Name(1), u"Yellow");
    EXPECT_EQ(reader.Name(11), u"Black and blue");
    EXPECT_EQ(reader.Role(9), ROLE_SYSTEM_PUSHBUTTON);
    EXPECT_EQ(reader->accDoDefaultAction(Reader::Part(9)), S_OK);
    EXPECT_EQ(picked, std::vector<ColorScheme>{kSwatches[8]});
    SetFocus(selector.Handle());
    EXPECT_NE(reader.State(9) & STATE_SYSTEM_FOCUSED, 0) << "where the keys go on";
    SendMessageW(selector.Handle(), WM_KEYDOWN, VK_LEFT, 1);
    EXPECT_NE(reader.State(8) & STATE_SYSTEM_FOCUSED, 0);
    EXPECT_EQ(reader.State(9) & STATE_SYSTEM_FOCUSED, 0);
}

TEST_F(AccessibleTest, AControlThatIsCreatedAgainIsReadAgain) {
    NoteColorSelector selector;
    ASSERT_TRUE(selector.Create(parent_.Of(), 7, L"First"));
    const Reader old(selector.Handle());
    EXPECT_EQ(old.Name(), u"First");
    DestroyWindow(selector.Handle());
    ASSERT_TRUE(selector.Create(parent_.Of(), 7, L"Second"));
    const Reader reader(selector.Handle());
    EXPECT_EQ(reader.Name(), u"Second");
    EXPECT_EQ(old.Name(), u"") << "what it read has gone";
}

}  // namespace
}  // namespace quillo

#include "mainmenu/slot_icons.h"

#include <gtest/gtest.h>

namespace quillo {
namespace {

using Requests = std::vector<IconRequest>;

TEST(SlotIcons, EachFilledSlotIsLookedUpOnce) {
    SlotIcons icons;
    const std::array<std::u16string, kMenuSlots> shortcuts{u"C:\\1.exe", u"", u"\"C:\\3.exe\" /new", u""};
    EXPECT_EQ(icons.ToLookUp(shortcuts, 32), (Requests{{1, u"C:\\1.exe", 32}, {3, u"C:\\3.exe", 32}}));
    EXPECT_EQ(icons.ToLookUp(shortcuts, 32), Requests{});
}

TEST(SlotIcons, AnotherProgramAnotherSizeAndDroppedRequestsAskAgain) {
    SlotIcons icons;
    std::array<std::u16string, kMenuSlots> shortcuts{u"C:\\1.exe", u"C:\\2.exe", u"", u""};
    (void)icons.ToLookUp(shortcuts, 32);
    shortcuts[1] = u"C:\\other.exe";
    EXPECT_EQ(icons.ToLookUp(shortcuts, 32), (Requests{{2, u"C:\\other.exe", 32}}));
    EXPECT_EQ(icons.ToLookUp(shortcuts, 48).size(), 2U);
    icons.DropRequests();
    EXPECT_EQ(icons.ToLookUp(shortcuts, 48).size(), 2U);
}

TEST(SlotIcons, AnAnswerThatArrivesTooLateIsDropped) {
    SlotIcons icons;
    std::array<std::u16string, kMenuSlots> shortcuts{u"C:\\1.exe", u"", u"", u""};
    const IconRequest first = icons.ToLookUp(shortcuts, 32).front();
    EXPECT_TRUE(icons.IsWanted(first));
    shortcuts[0] = u"C:\\other.exe";
    (void)icons.ToLookUp(shortcuts, 32);
    EXPECT_FALSE(icons.IsWanted(first)) << "the slot has another program";
    shortcuts[0] = u"";
    EXPECT_EQ(icons.ToLookUp(shortcuts, 32), Requests{});
    EXPECT_FALSE(icons.IsWanted({1, u"C:\\other.exe", 32})) << "the slot is empty";
    EXPECT_FALSE(icons.IsWanted({}));
    EXPECT_FALSE(icons.IsWanted({5, u"", 32}));
}

}  // namespace
}  // namespace quillo

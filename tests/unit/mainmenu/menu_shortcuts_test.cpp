#include "mainmenu/menu_shortcuts.h"

#include <gtest/gtest.h>

#include "testing/fake_shell.h"

namespace quillo {
namespace {

using Texts = std::vector<std::u16string>;

TEST(MenuShortcuts, ADropFillsTheSlotOfItsColumn) {
    struct Case {
        double x;
        std::optional<int> slot;
    };
    const Case cases[] = {
        {0, std::nullopt}, {49, std::nullopt}, {50, std::nullopt}, {99, std::nullopt}, {99.75, std::nullopt},
        {100, 1},          {149, 1},           {150, 2},           {175, 2},           {199, 2},
        {200, 3},          {249, 3},           {250, 4},           {299, 4},           {299.5, 4},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(SlotOfDrop({c.x, 150}, 1), c.slot) << c.x;
        EXPECT_TRUE(OffersCopy({c.x, 150}, 1)) << c.x << ": intended, left of the slots too";
        EXPECT_TRUE(TakesDrop({c.x, 150}, 1)) << c.x << ": intended, left of the slots too";
    }
}

// Intended: offering a copy and accepting a drop differ by ten pixels.
TEST(MenuShortcuts, ADragIsOfferedACopyFrom120OnADropIsTakenFrom110On) {
    struct Case {
        double y;
        bool offered;
        bool taken;
    };
    const Case cases[] = {{109, false, false},   {109.75, false, false}, {110, false, true}, {119, false, true},
                          {119.75, false, true}, {120, true, true},      {179, true, true}};
    for (const Case& c : cases) {
        EXPECT_EQ(OffersCopy({175, c.y}, 1), c.offered) << c.y;
        EXPECT_EQ(TakesDrop({175, c.y}, 1), c.taken) << c.y;
        EXPECT_EQ(SlotOfDrop({175, c.y}, 1).has_value(), c.taken) << c.y;
    }
}

TEST(MenuShortcuts, OnlyASingleFileIsTaken) {
    for (const int count : {0, 2, 50}) {
        EXPECT_FALSE(OffersCopy({175, 150}, count));
        EXPECT_FALSE(TakesDrop({175, 150}, count));
        EXPECT_FALSE(SlotOfDrop({175, 150}, count));
    }
}

TEST(MenuShortcuts, ADroppedFileWithAPathThatIsTooLongIsRefused) {
    const std::u16string longest(259, u'x');
    EXPECT_EQ(SlotOfDroppedFiles({175, 150}, {longest}), 2);
    EXPECT_EQ(SlotOfDroppedFiles({175, 150}, {longest + u"x"}), std::nullopt);
    EXPECT_EQ(SlotOfDroppedFiles({175, 150}, {}), std::nullopt);
    EXPECT_EQ(SlotOfDroppedFiles({175, 150}, {u"a.exe", u"b.exe"}), std::nullopt);
}

TEST(MenuShortcuts, TheFileAndTheWholeCommandHaveLimits) {
    const auto quoted = [](std::size_t file, std::size_t arguments) {
        return u'"' + std::u16string(file, u'f') + u"\" " + std::u16string(arguments, u'a');
    };
    const struct {
        std::u16string shortcut;
        bool fits;
    } cases[] = {
        {u"", true},
        {std::u16string(259, u'f'), true},
        {std::u16string(260, u'f'), false},
        {u"  " + std::u16string(259, u'f') + u"  ", true},
        {quoted(259, 10), true},
        {quoted(260, 10), false},
        {quoted(100, 32'663), true},
        {quoted(100, 32'664), false},
    };
    for (const auto& c : cases) EXPECT_EQ(ShortcutFits(c.shortcut), c.fits) << c.shortcut.size();
}

TEST(MenuShortcuts, OneThatIsTooLongIsNotRun) {
    FakeShell shell;
    RunShortcut(std::u16string(1000, u'x'), shell);
    RunShortcut(u"\"C:\\a.exe\" " + std::u16string(40'000, u'x'), shell);
    EXPECT_TRUE(shell.started.empty());
    EXPECT_TRUE(shell.opened.empty());
}

TEST(MenuShortcuts, LargerShellIconsMoveUpAndLeftByHalfOfTheirSurplus) {
    struct Case {
        int size;
        int offset;
    };
    const Case cases[] = {{16, -8}, {24, -4}, {31, 0}, {32, 0}, {33, 0}, {34, 1}, {40, 4}, {48, 8}, {64, 8}, {256, 8}};
    for (const Case& c : cases) EXPECT_EQ(IconOffset(c.size), c.offset) << c.size;
}

TEST(MenuShortcuts, IconsAreInTheirColumns) {
    EXPECT_EQ(IconPlace(1, 32), (Point{109, 132}));
    EXPECT_EQ(IconPlace(2, 32), (Point{159, 132}));
    EXPECT_EQ(IconPlace(3, 32), (Point{209, 132}));
    EXPECT_EQ(IconPlace(4, 32), (Point{259, 132}));
    EXPECT_EQ(IconPlace(2, 48), (Point{151, 124}));
    EXPECT_EQ(IconPlace(1, 16), (Point{117, 140}));
}

TEST(MenuShortcuts, TheShellsIconSizeIs32UnlessAValidOneIsStored) {
    for (const auto* stored : {u"", u"large", u"0", u"-16", u"100000"}) EXPECT_EQ(ShellIconSize(stored), 32);
    EXPECT_EQ(ShellIconSize(u"48"), 48);
    EXPECT_EQ(ShellIconSize(u"40"), 40);
}

TEST(MenuShortcuts, AShortcutIsAPathOrAQuotedPathWithArguments) {
    struct Case {
        std::u16string_view shortcut;
        ShortcutParts parts;
    };
    const Case cases[] = {
        {u"", {u"", u""}},
        {u"C:\\Program Files\\a b.exe", {u"C:\\Program Files\\a b.exe", u""}},
        {u" C:\\a.exe ", {u"C:\\a.exe", u""}},
        {u"\"C:\\a b.exe\"", {u"C:\\a b.exe", u""}},
        {u"\"C:\\a b.exe\" /x \"c d\" ", {u"C:\\a b.exe", u"/x \"c d\""}},
        {u"\"C:\\a b.exe\"/x", {u"C:\\a b.exe", u"/x"}},
        {u"\"C:\\a b.exe", {u"C:\\a b.exe", u""}},
        {u"\"", {u"", u""}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(SplitShortcut(c.shortcut), c.parts) << testing::PrintToString(std::u16string(c.shortcut));
    }
}

TEST(MenuShortcuts, AProgramIsCalledByItsFileName) {
    EXPECT_EQ(ShortcutName(u"C:\\Windows\\Notepad.exe"), u"Notepad");
    EXPECT_EQ(ShortcutName(u"\"C:\\a b\\c d.exe\" /x"), u"c d");
    EXPECT_EQ(ShortcutName(u"C:\\Users\\ann\\"), u"ann");
    EXPECT_EQ(ShortcutName(u""), u"");
}

TEST(MenuShortcuts, EveryItemHasANameOfItsOwn) {
    const std::array<std::u16string, kMenuSlots> shortcuts{u"C:\\Notepad.exe", u"", u"\"C:\\a b.exe\" /x", u""};
    Texts names;
    for (const MenuItem item : MenuOrder()) names.push_back(MenuItemName(item, shortcuts));
    EXPECT_EQ(names, (Texts{u"New note", u"Show all notes", u"Options", u"Notepad", u"Program shortcut 2, empty",
                            u"a b", u"Program shortcut 4, empty", u"About Quillo", u"Close menu"}));
    EXPECT_EQ(MenuItemName(MenuItem::None, shortcuts), u"");
}

TEST(MenuShortcuts, AProgramIsStarted) {
    FakeShell shell;
    RunShortcut(u"\"C:\\a b.exe\" /x", shell);
    RunShortcut(u"C:\\c.exe", shell);
    EXPECT_EQ(shell.started, (Texts{u"C:\\a b.exe /x", u"C:\\c.exe"}));
    EXPECT_TRUE(shell.opened.empty());
}

TEST(MenuShortcuts, AFileThatDoesNotStartIsOpenedByTheShell) {
    FakeShell shell;
    shell.startWorks = false;
    RunShortcut(u"C:\\Users\\ann\\List.doc", shell);
    RunShortcut(u"\"C:\\Admin.exe\" /x", shell);
    EXPECT_EQ(shell.opened, (Texts{u"C:\\Users\\ann\\List.doc", u"C:\\Admin.exe /x"}));
    shell.openWorks = false;
    RunShortcut(u"C:\\gone.exe", shell);
    EXPECT_EQ(shell.opened.back(), u"C:\\gone.exe") << "and nothing is said";
}

TEST(MenuShortcuts, AnEmptySlotRunsNothing) {
    FakeShell shell;
    RunShortcut(u"", shell);
    RunShortcut(u"  ", shell);
    EXPECT_TRUE(shell.started.empty());
    EXPECT_TRUE(shell.opened.empty());
}

TEST(MenuShortcuts, ItemsWithoutWordsInThePictureHaveToolTips) {
    const std::array<std::u16string, kMenuSlots> shortcuts{u"C:\\Windows\\Notepad.exe", u"", u"", u""};
    EXPECT_EQ(MenuItemTip(MenuItem::Shortcut1, shortcuts), u"Notepad");
    EXPECT_EQ(MenuItemTip(MenuItem::Shortcut2, shortcuts), u"Drop a program here to have it on the menu.");
    EXPECT_EQ(MenuItemTip(MenuItem::About, shortcuts), u"About Quillo");
    EXPECT_EQ(MenuItemTip(MenuItem::Close, shortcuts), u"Close the menu.  Right-click to quit Quillo.");
    for (const MenuItem item : {MenuItem::None, MenuItem::NewNote, MenuItem::ShowAllNotes, MenuItem::Options}) {
        EXPECT_EQ(MenuItemTip(item, shortcuts), u"") << "says it in the picture";
    }
}

}  // namespace
}  // namespace quillo

#include "notes/note_commands.h"

#include <algorithm>
#include <utility>

#include "open_note_fixture.h"
#include "testing/fake_locale_text.h"

namespace quillo {
namespace {

constexpr NoteKeyState kControl{true, false, false};
constexpr NoteKeyState kControlShift{true, true, false};
constexpr int kContextMenuKey = 0x5D;

TEST(NoteCommands, EveryShortcutHasItsAction) {
    EXPECT_EQ(NoteKeyAction('A', kControl), NoteAction::SelectAll);
    EXPECT_EQ(NoteKeyAction('B', kControl), NoteAction::ToggleLargeText);
    EXPECT_EQ(NoteKeyAction('M', kControl), NoteAction::Minimize);
    EXPECT_EQ(NoteKeyAction('P', kControl), NoteAction::TogglePin);
    EXPECT_EQ(NoteKeyAction('R', kControl), NoteAction::AskReminder);
    EXPECT_EQ(NoteKeyAction('T', kControl), NoteAction::AddTimestamp);
    EXPECT_EQ(NoteKeyAction('W', kControl), NoteAction::ClickClose);
    EXPECT_EQ(NoteKeyAction('W', kControlShift), NoteAction::QuickDelete);
    EXPECT_EQ(NoteKeyAction('\t', kControl), NoteAction::NextNote);
    EXPECT_EQ(NoteKeyAction('\t', kControlShift), NoteAction::PreviousNote);
}

TEST(NoteCommands, TheKeysWithAnActionAreThoseThatHaveOneWithSomeModifiers) {
    for (int key = 0; key < 256; ++key) {
        bool hasOne = false;
        for (const NoteKeyState held : {NoteKeyState{}, kControl, kControlShift})
            hasOne = hasOne || NoteKeyAction(key, held) != NoteAction::None;
        EXPECT_EQ(HasNoteKeyAction(key), hasOne) << key;
    }
}

TEST(NoteCommands, TheTimeStampIsTheGeneralDateAndAnEmptyLine) {
    FakeLocaleText locale;
    EXPECT_EQ(TimeStampText(ToDaySerial({2026, 11, 21, 9, 30, 5}), locale), u"(11/21/2026 9:30:05 AM)\r\n\r\n");
    EXPECT_EQ(TimeStampText(ToDaySerial({2026, 11, 21, 0, 0, 0}), locale), u"(11/21/2026)\r\n\r\n");
}

TEST(NoteCommands, ShiftMattersForWOnly) {
    for (const char letter : {'A', 'B', 'M', 'P', 'R', 'T'}) {
        EXPECT_EQ(NoteKeyAction(letter, kControlShift), NoteKeyAction(letter, kControl)) << letter;
    }
}

TEST(NoteCommands, WithoutControlEveryKeyIsTyped) {
    for (int key = 0; key < 256; ++key) {
        if (key == kContextMenuKey) continue;
        EXPECT_EQ(NoteKeyAction(key, {}), NoteAction::None) << key;
        EXPECT_EQ(NoteKeyAction(key, {false, true, false}), NoteAction::None) << key;
    }
}

TEST(NoteCommands, TheRightAltKeyMakesACharacter) {
    for (int key = 0; key < 256; ++key) {
        if (key == kContextMenuKey) continue;
        EXPECT_EQ(NoteKeyAction(key, {true, false, true}), NoteAction::None) << key;
        EXPECT_EQ(NoteKeyAction(key, {true, true, true}), NoteAction::None) << key;
    }
}

TEST(NoteCommands, TheEditingKeysStayWithTheTextBox) {
    // Copy, paste, cut, undo, Enter, Backspace, Home, Insert, F4.
    for (const int key : {0x43, 0x56, 0x58, 0x5A, 0x0D, 0x08, 0x24, 0x2D, 0x73}) {
        EXPECT_EQ(NoteKeyAction(key, kControl), NoteAction::None) << key;
        EXPECT_EQ(NoteKeyAction(key, kControlShift), NoteAction::None) << key;
    }
}

TEST(NoteCommands, TheContextMenuKeyOpensTheMenuWithAnyModifier) {
    for (int bits = 0; bits < 8; ++bits) {
        const NoteKeyState held{(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0};
        EXPECT_EQ(NoteKeyAction(kContextMenuKey, held), NoteAction::OpenMenu) << bits;
    }
}

TEST(NoteCommands, TheNotesMenu) {
    Note note;
    const std::vector<NoteMenuItem> expected = {
        {u"Set reminder...", NoteAction::AskReminder},
        {u"Add time and date", NoteAction::AddTimestamp},
        {u"Large text", NoteAction::ToggleLargeText},
        {u"Change note color...", NoteAction::ChangeColor},
        {u"Email note...", NoteAction::Mail},
        {u"Save a copy of this note...", NoteAction::SaveCopy},
        {u"Print note", NoteAction::Print},
        {u"Hide note", NoteAction::Hide},
        {u"Delete note", NoteAction::QueryDelete},
        {u"Close note", NoteAction::Close},
    };
    EXPECT_EQ(ArrowMenuItems(note), expected);
}

TEST(NoteCommands, LargeTextIsCheckedWhileItIsOn) {
    Note note;
    note.LargeText = true;
    for (const NoteMenuItem& item : ArrowMenuItems(note)) {
        EXPECT_EQ(item.checked, item.action == NoteAction::ToggleLargeText);
        EXPECT_FALSE(item.bold);
    }
}

TEST(NoteCommands, TheIconsMenuHasItsFirstItemBold) {
    const std::vector<NoteMenuItem> expected = {
        {u"Show this note", NoteAction::Show, false, true},
        {u"Delete this note", NoteAction::QueryDelete},
    };
    EXPECT_EQ(IconMenuItems(), expected);
}

TEST(NoteCommands, TheTipsOfTheMenuButtonAndThePin) {
    Note note;
    EXPECT_EQ(DescribeNoteButtons(note, u"Milk", {}).menu, u"Note menu (Shift+F10)");
    EXPECT_EQ(DescribeNoteButtons(note, u"Milk", {}).pushpin, u"Always on top (Ctrl+P)");
    note.Pinned = true;
    EXPECT_EQ(DescribeNoteButtons(note, u"Milk", {}).pushpin, u"No longer always on top (Ctrl+P)");
}

TEST(NoteCommands, TheTipOfTheCloseButtonDescribesItsAction) {
    const std::u16string recycle = u"\r\nRight click: move to the Recycle Bin (Ctrl+Shift+W)";
    const std::u16string forGood = u"\r\nRight click: delete for good (Ctrl+Shift+W)";
    const struct {
        std::u16string text;
        bool reminder;
        bool minimize;
        bool dontRecycle;
        std::u16string tip;
    } cases[] = {
        {u"Milk", false, false, false, u"Save as a file and close (Ctrl+W)" + recycle},
        {u"Milk", false, false, true, u"Save as a file and close (Ctrl+W)" + forGood},
        {u"Milk", true, false, false, u"Hide until the reminder (Ctrl+W)" + recycle},
        {u"Milk", true, true, false, u"Minimize to an icon (Ctrl+W)" + recycle},
        {u"Milk", false, true, false, u"Minimize to an icon (Ctrl+W)" + recycle},
        {u"", false, false, false, u"Close (Ctrl+W)" + forGood},
        {u"", false, true, false, u"Close (Ctrl+W)" + forGood},
        {u"   ", false, true, false, u"Close (Ctrl+W)" + recycle},
        {u"", true, false, false, u"Hide until the reminder (Ctrl+W)" + forGood},
    };
    for (const auto& c : cases) {
        Note note;
        note.ReminderSet = c.reminder;
        Settings settings;
        settings.minimizeToTray = c.minimize;
        settings.dontRecycleNotes = c.dontRecycle;
        EXPECT_EQ(DescribeNoteButtons(note, c.text, settings).close, c.tip);
    }
}

/// Actions carried out on an open note.
class Performing : public OpenNoteTest {
  protected:
    [[nodiscard]] bool Did(const std::string& call) {
        const Calls calls = view_.TakeCalls();
        return std::find(calls.begin(), calls.end(), call) != calls.end();
    }
};

TEST_F(Performing, EveryActionReachesItsOperation) {
    const std::vector<std::pair<NoteAction, std::string>> cases = {
        {NoteAction::AskReminder, "OpenReminderDialog"},
        {NoteAction::AddTimestamp, "InsertInFront"},
        {NoteAction::ToggleLargeText, "ApplyAppearance"},
        {NoteAction::SaveCopy, "AskCopyPath"},
        {NoteAction::Hide, "Hide"},
        {NoteAction::Minimize, "ShowIcon"},
        {NoteAction::TogglePin, "ShowPinned in"},
        {NoteAction::Show, "BringToFront"},
        {NoteAction::ClickClose, "Close"},
    };
    for (const auto& [action, call] : cases) {
        ShowStored(u"Milk");
        note_.Perform(action);
        EXPECT_TRUE(Did(call)) << call;
        if (action == NoteAction::TogglePin) note_.SetPinned(false);
    }
}

TEST_F(Performing, ActionsOfTheWindowDoNotChangeTheNote) {
    ShowStored(u"Milk");
    for (const NoteAction action : {NoteAction::None, NoteAction::SelectAll, NoteAction::OpenMenu}) {
        note_.Perform(action);
        EXPECT_EQ(view_.TakeCalls(), Calls{});
    }
}

TEST_F(Performing, ClosingFromTheMenuClosesAlsoWithAReminderSet) {
    ShowStored(u"Milk");
    AsReminderOwner(note_).SetReminder(DaySerial{45123.75});
    note_.Perform(NoteAction::Close);
    EXPECT_TRUE(IsDestroyed());
    EXPECT_EQ(SavedFiles().size(), 1U);
}

TEST_F(Performing, ClosingFromTheMenuMinimizesWhenThatIsOn) {
    settings_.minimizeToTray = true;
    ShowStored(u"Milk");
    note_.Perform(NoteAction::Close);
    EXPECT_TRUE(view_.IsIconShowing());
    EXPECT_FALSE(IsDestroyed());
}

TEST_F(Performing, TheTwoDeletionsDifferInTheirQuestion) {
    settings_.dontRecycleNotes = true;
    notice_.answer = false;
    ShowStored(u"Milk");
    note_.Perform(NoteAction::QueryDelete);
    EXPECT_EQ(notice_.questions.size(), 1U);
    EXPECT_FALSE(IsDestroyed());
    note_.Perform(NoteAction::QuickDelete);
    EXPECT_EQ(notice_.questions.size(), 1U);
    EXPECT_TRUE(IsDestroyed());
}

TEST(NoteCommands, EveryActionWithKeysNamesThem) {
    EXPECT_EQ(KeyTextOf(NoteAction::TogglePin), u"Ctrl+P");
    EXPECT_EQ(KeyTextOf(NoteAction::ClickClose), u"Ctrl+W");
    EXPECT_EQ(KeyTextOf(NoteAction::QuickDelete), u"Ctrl+Shift+W");
    EXPECT_EQ(KeyTextOf(NoteAction::OpenMenu), u"Shift+F10");
    EXPECT_EQ(KeyTextOf(NoteAction::Print), u"");
    // The key text of an action names the keys that perform it.
    for (int letter = 'A'; letter <= 'Z'; ++letter) {
        for (const bool shift : {false, true}) {
            const NoteAction action = NoteKeyAction(letter, NoteKeyState{true, shift, false});
            if (action == NoteAction::None) continue;
            EXPECT_EQ(KeyTextOf(action).back(), static_cast<char16_t>(letter));
        }
    }
}

}  // namespace
}  // namespace quillo

#include "notes/note_commands.h"

#include <gtest/gtest.h>

namespace quillo {
namespace {

constexpr NoteKeyState kControl{true, false, false};
constexpr NoteKeyState kControlShift{true, true, false};

TEST(NoteCommands, EveryShortcutHasItsAction) {
    EXPECT_EQ(NoteKeyAction('A', kControl), NoteAction::SelectAll);
    EXPECT_EQ(NoteKeyAction('B', kControl), NoteAction::ToggleLargeText);
    EXPECT_EQ(NoteKeyAction('M', kControl), NoteAction::Minimize);
    EXPECT_EQ(NoteKeyAction('P', kControl), NoteAction::TogglePin);
    EXPECT_EQ(NoteKeyAction('R', kControl), NoteAction::AskReminder);
    EXPECT_EQ(NoteKeyAction('T', kControl), NoteAction::AddTimestamp);
    EXPECT_EQ(NoteKeyAction('W', kControl), NoteAction::ClickClose);
    EXPECT_EQ(NoteKeyAction('W', kControlShift), NoteAction::QuickDelete);
}

TEST(NoteCommands, ShiftMattersForWAlone) {
    for (const char letter : {'A', 'B', 'M', 'P', 'R', 'T'}) {
        EXPECT_EQ(NoteKeyAction(letter, kControlShift), NoteKeyAction(letter, kControl)) << letter;
    }
}

TEST(NoteCommands, WithoutControlEveryKeyIsTyped) {
    for (int key = 0; key < 256; ++key) {
        EXPECT_EQ(NoteKeyAction(key, {}), NoteAction::None) << key;
        EXPECT_EQ(NoteKeyAction(key, {false, true, false}), NoteAction::None) << key;
    }
}

TEST(NoteCommands, TheRightAltKeyMakesACharacter) {
    for (int key = 0; key < 256; ++key) {
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

}  // namespace
}  // namespace quillo

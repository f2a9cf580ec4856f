#include <gtest/gtest.h>

#include <string>

#include "note_fixture.h"
#include "platform/wide.h"
#include "reminder_fixture.h"
#include "testing/note_interfaces.h"

namespace quillo {
namespace {

using windows_tests::ChildId;
using windows_tests::KeysDown;
using windows_tests::NoteWorldForTests;
using windows_tests::PumpUntil;
using windows_tests::PumpWaiting;
using windows_tests::TestNote;

constexpr LPARAM kFirstPress = 1;
constexpr LPARAM kRepeated = 1 | 1 << 30;

/// A note with its keys, its reminder's windows and its icon.
class NoteReminderTest : public testing::Test {
  protected:
    NoteReminderTest() {
        EXPECT_TRUE(one_->Create());
        EXPECT_TRUE(one_->note.SetText(u"water the ferns"));
        one_->note.Popup();
        one_->note.Activate();
        PumpWaiting();
    }

    [[nodiscard]] HWND Box() const { return one_->Child(ChildId::kMessageBox); }
    /// Delivers a letter with Ctrl as the message loop does: the key, then the control character.
    void ControlKey(char letter, LPARAM press = kFirstPress) const {
        const HWND box = Box();
        SendMessageW(box, WM_KEYDOWN, static_cast<WPARAM>(letter), press);
        if (IsWindow(box) != FALSE) SendMessageW(box, WM_CHAR, static_cast<WPARAM>(letter - 'A' + 1), press);
    }
    /// The windows of that class in this process.
    [[nodiscard]] static int Count(const wchar_t* windowClass) {
        int count = 0;
        for (HWND w = nullptr; (w = FindWindowExW(nullptr, w, windowClass, nullptr)) != nullptr;) ++count;
        return count;
    }
    [[nodiscard]] static int Dialogs() { return Count(L"QuilloSetReminder"); }
    [[nodiscard]] static int Alerts() { return Count(L"QuilloReminder"); }
    [[nodiscard]] std::u16string Text() const { return one_->note.Text(); }

    NoteWorldForTests world_;
    std::unique_ptr<TestNote> one_ = std::make_unique<TestNote>(world_, u"one");
};

TEST_F(NoteReminderTest, ControlROpensOneDialog) {
    const KeysDown control({VK_CONTROL});
    ControlKey('R');
    EXPECT_EQ(Dialogs(), 1);
    ControlKey('R');
    EXPECT_EQ(Dialogs(), 1);
    EXPECT_EQ(Text(), u"water the ferns");
}

TEST_F(NoteReminderTest, TheRightAltKeyTypes) {
    const KeysDown altGr({VK_CONTROL, VK_RMENU});
    SendMessageW(Box(), WM_KEYDOWN, 'R', kFirstPress);
    SendMessageW(Box(), WM_CHAR, u'\u20AC', kFirstPress);
    EXPECT_EQ(Dialogs(), 0);
    EXPECT_EQ(Text(), u"\u20ACwater the ferns");
}

TEST_F(NoteReminderTest, ACharacterOfAltAndTheNumberPadAfterAShortcutIsTyped) {
    {
        const KeysDown control({VK_CONTROL});
        ControlKey('B');
        SendMessageW(Box(), WM_KEYUP, 'B', static_cast<LPARAM>(0xC0000001));
    }
    SendMessageW(Box(), WM_SYSKEYDOWN, VK_NUMPAD0, 1 << 29 | kFirstPress);
    SendMessageW(Box(), WM_SYSKEYUP, VK_NUMPAD0, static_cast<LPARAM>(0xE0000001));
    SendMessageW(Box(), WM_CHAR, u'\u00E9', kFirstPress);
    EXPECT_EQ(Text(), u"\u00E9water the ferns");
}

TEST_F(NoteReminderTest, ShortcutsTypeNoCharacterAndTheNextOneIsTyped) {
    {
        const KeysDown control({VK_CONTROL});
        ControlKey('B');
        ControlKey('P');
    }
    EXPECT_TRUE(one_->note.Data().LargeText);
    EXPECT_TRUE(one_->note.Data().Pinned);
    EXPECT_EQ(Text(), u"water the ferns");
    SendMessageW(Box(), WM_KEYDOWN, 'X', kFirstPress);
    SendMessageW(Box(), WM_CHAR, 'x', kFirstPress);
    EXPECT_EQ(Text(), u"xwater the ferns");
}

TEST_F(NoteReminderTest, ControlASelectsAndControlTStamps) {
    const KeysDown control({VK_CONTROL});
    ControlKey('A');
    DWORD end = 0;
    SendMessageW(Box(), EM_GETSEL, 0, reinterpret_cast<LPARAM>(&end));
    EXPECT_EQ(end, 15U);
    ControlKey('T');
    EXPECT_EQ(Text().front(), u'(');
    EXPECT_NE(Text().find(u")\r\n\r\nwater the ferns"), std::u16string::npos);
}

TEST_F(NoteReminderTest, IntendedAKeyHeldDownActsOnce) {
    const KeysDown control({VK_CONTROL});
    ControlKey('W', kRepeated);
    EXPECT_TRUE(world_.IsOpen(u"one"));
    ControlKey('T');
    const std::u16string stamped = Text();
    ControlKey('T', kRepeated);
    EXPECT_EQ(Text(), stamped) << "nor is a character typed";
}

TEST_F(NoteReminderTest, ControlShiftWDeletesTheNote) {
    world_.settings.dontRecycleNotes = true;
    const KeysDown keys({VK_CONTROL, VK_SHIFT});
    ControlKey('W');
    EXPECT_FALSE(world_.IsOpen(u"one"));
    EXPECT_EQ(one_->Window(), nullptr);
}

TEST_F(NoteReminderTest, ControlMMinimizesToAnIcon) {
    const KeysDown control({VK_CONTROL});
    ControlKey('M');
    EXPECT_FALSE(one_->form.IsVisible());
    EXPECT_TRUE(one_->note.Data().Changed);
}

TEST_F(NoteReminderTest, ControlBackspaceDeletesAWord) {
    ASSERT_TRUE(one_->note.SetText(u"water the ferns"));
    const HWND box = one_->Child(ChildId::kMessageBox);
    SendMessageW(box, EM_SETSEL, 9, 9);
    const KeysDown control({VK_CONTROL});
    ControlKey(VK_BACK);
    SendMessageW(box, WM_CHAR, 0x7F, 1);
    EXPECT_EQ(one_->form.Text(), u"water  ferns");
    EXPECT_TRUE(one_->note.Data().Changed);
    EXPECT_EQ(SendMessageW(box, EM_GETSEL, 0, 0), MAKELRESULT(6, 6));
    ControlKey(VK_BACK);
    EXPECT_EQ(one_->form.Text(), u" ferns") << "again while it is held";
    SendMessageW(box, EM_SETSEL, 1, 4);
    ControlKey(VK_BACK);
    EXPECT_EQ(one_->form.Text(), u" ns") << "a selection is deleted whole";
    EXPECT_NE(SendMessageW(box, EM_UNDO, 0, 0), 0);
    EXPECT_EQ(one_->form.Text(), u" ferns");
}

TEST_F(NoteReminderTest, ADueReminderShowsTheAlertAndEscShowsTheNote) {
    AsReminderOwner(one_->note).SetReminder(world_.clock.now);
    one_->note.TimerBroadcast();
    ASSERT_EQ(Alerts(), 1);
    EXPECT_FALSE(one_->form.IsVisible());
    HWND alert = FindWindowW(L"QuilloReminder", nullptr);
    EXPECT_EQ(WindowText(alert), u"water the ferns");
    SendMessageW(alert, WM_KEYDOWN, VK_ESCAPE, kFirstPress);
    EXPECT_EQ(Alerts(), 0);
    EXPECT_TRUE(one_->form.IsVisible());
    EXPECT_EQ(GetFocus(), Box()) << "ready to type in";
}

TEST_F(NoteReminderTest, BothWindowsCloseWithTheNote) {
    one_->note.Perform(NoteAction::AskReminder);
    AsReminderOwner(one_->note).SetReminder(world_.clock.now);
    one_->note.TimerBroadcast();
    EXPECT_EQ(Dialogs(), 1);
    EXPECT_EQ(Alerts(), 1);
    one_->note.DestroyNote();
    EXPECT_EQ(Dialogs(), 0);
    EXPECT_EQ(Alerts(), 0);
}

TEST_F(NoteReminderTest, ReleasingANoteClosesItsDialog) {
    one_->note.Perform(NoteAction::AskReminder);
    one_.reset();
    EXPECT_EQ(Dialogs(), 0);
    PumpWaiting();
}

TEST_F(NoteReminderTest, ADialogThatWasClosedOpensAgain) {
    one_->note.Perform(NoteAction::AskReminder);
    SendMessageW(FindWindowW(L"QuilloSetReminder", nullptr), WM_CLOSE, 0, 0);
    EXPECT_EQ(Dialogs(), 0);
    one_->note.Perform(NoteAction::AskReminder);
    EXPECT_EQ(Dialogs(), 1);
}

TEST_F(NoteReminderTest, AReminderIsOnTheDiskSoon) {
    AsReminderOwner(one_->note).SetReminder(ToDaySerial({2026, 12, 24, 18, 0, 0}));
    EXPECT_TRUE(one_->note.Data().Changed);
    EXPECT_TRUE(PumpUntil([this] { return !one_->note.Data().Changed; }));
    const auto bytes = world_.files.Read(one_->note.Data().StoragePath);
    ASSERT_TRUE(bytes.has_value());
    EXPECT_NE(bytes->find("#46380.75"), std::string::npos) << *bytes;
}

TEST_F(NoteReminderTest, AClosedNoteIsNotSavedAgain) {
    one_->note.MarkChanged();
    one_->note.DestroyNote();
    one_->note.MarkChanged();
    EXPECT_FALSE(PumpUntil([this] { return !one_->note.Data().Changed; }, 2500));
    EXPECT_TRUE(world_.files.List(world_.folder.Path(), u".qln").empty());
}

}  // namespace
}  // namespace quillo

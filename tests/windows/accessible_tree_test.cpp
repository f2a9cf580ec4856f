#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../unit/app/test_program.h"
#include "accessible_reader.h"
#include "main_form_fixture.h"
#include "mainmenu/about_form.h"
#include "mainmenu/options_form.h"
#include "note_fixture.h"
#include "notes/note_commands.h"
#include "platform/text_tools.h"
#include "reminder_fixture.h"
#include "reminders/reminder_form.h"
#include "reminders/set_reminder_form.h"
#include "testing/fake_options_owner.h"
#include "testing/fake_sound_device.h"

namespace quillo::windows_tests {
namespace {

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return name;
}

std::string Spoken(HWND window) {
    const std::u16string text = WindowText(window);
    const std::wstring name = ClassOf(window);
    return std::string(name.begin(), name.end()) + " \"" + std::string(text.begin(), text.end()) + "\" id " +
           std::to_string(GetDlgCtrlID(window));
}

/// One of our own controls: everything that a screen reader requests.
void ExpectDescribed(HWND window) {
    const Reader reader(window);
    const LONG role = reader.Role();
    EXPECT_NE(role, -1) << Spoken(window);
    EXPECT_NE(role, ROLE_SYSTEM_CLIENT) << Spoken(window) << " says nothing of what it is";
    EXPECT_NE(reader.State(), -1) << Spoken(window);
    EXPECT_TRUE(role == ROLE_SYSTEM_SEPARATOR || !reader.Name().empty()) << Spoken(window);
    const bool hasParts = role != ROLE_SYSTEM_DIALOG && role != ROLE_SYSTEM_PROPERTYPAGE && role != ROLE_SYSTEM_PANE;
    LONG parts = 0;
    if (hasParts) {
        EXPECT_EQ(reader->get_accChildCount(&parts), S_OK);
    }
    for (LONG part = 1; part <= parts; ++part) {
        EXPECT_FALSE(reader.Name(part).empty()) << Spoken(window) << " part " << part;
        EXPECT_NE(reader.Role(part), -1) << Spoken(window) << " part " << part;
        EXPECT_NE(reader.State(part), -1) << Spoken(window) << " part " << part;
    }
}

/// The system describes its own controls; what they need is a name: the control's text, or the label before it.
void ExpectNamed(HWND window) {
    const std::wstring name = ClassOf(window);
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
    if (name == L"Static" && (style & SS_TYPEMASK) == SS_ETCHEDHORZ) return;  // a line
    if (name == L"Static" && IsWindowVisible(window) == 0) return;            // a message that is not shown yet
    if (name == L"Edit") {
        HWND label = GetWindow(window, GW_HWNDPREV);
        ASSERT_NE(label, nullptr) << Spoken(window);
        EXPECT_EQ(ClassOf(label), L"Static") << Spoken(window);
        EXPECT_FALSE(WindowText(label).empty()) << Spoken(window);
        return;
    }
    EXPECT_TRUE(name == L"Static" || name == L"Button") << Spoken(window) << ": what is this?";
    EXPECT_FALSE(WindowText(window).empty()) << Spoken(window);
}

BOOL CALLBACK ExpectSpoken(HWND window, LPARAM) noexcept {
    if (ClassOf(window).starts_with(L"Quillo")) {
        ExpectDescribed(window);
    } else {
        ExpectNamed(window);
    }
    return TRUE;
}

/// Checks that the window and everything in it has a name, a role and a state.
void ExpectTreeSpoken(HWND window) {
    ASSERT_NE(window, nullptr);
    ExpectDescribed(window);
    EnumChildWindows(window, &ExpectSpoken, 0);
}

TEST(AccessibleTree, TheOptionsOnEveryPage) {
    TestProgram program;
    FakeSoundDevice sound;
    FakeOptionsOwner owner{program.program.settings};
    MessageLoop loop;
    BusyFlag dialogs;
    OptionsForm form{OptionsServices{program.program, program.registry, program.shell, sound, program.locale, owner},
                     program.notice, loop, dialogs};
    owner.takenHotKeys = {'N', 'S'};
    ASSERT_TRUE(form.Open());
    for (std::size_t page = 0; page < kOptionsPageCount; ++page) {
        form.ShowPage(static_cast<OptionsPage>(page));
        ExpectTreeSpoken(form.Handle());
    }
}

TEST(AccessibleTree, TheAboutBox) {
    FakeShell shell;
    MessageLoop loop;
    AboutForm form(shell, loop, ProgramVersion{4, 0, 5});
    ASSERT_TRUE(form.Open(nullptr));
    ExpectTreeSpoken(form.Handle());
    const Reader link(form.ControlWindow(AboutControl::WebLink));
    EXPECT_EQ(link.Role(), ROLE_SYSTEM_LINK);
    EXPECT_FALSE(link.Value().empty()) << "the address";
}

TEST(AccessibleTree, TheReminderDialogAndTheAlert) {
    ReminderWorld world;
    SetReminderForm dialog(&world.owner, world.forDialogs);
    ASSERT_TRUE(dialog.Initialize(world.noteWindow.Handle(), kNoReminder));
    ExpectTreeSpoken(dialog.Handle());
    ReminderForm alert(&world.owner, world.forAlerts);
    ASSERT_TRUE(
        alert.Initialize(u"water the ferns", AlertColors{ColorWord{0xFFFFFF}, ColorWord{0x38CFFE}, ColorWord{}}));
    ExpectTreeSpoken(alert.Handle());
}

TEST(AccessibleTree, ANote) {
    NoteWorldForTests world;
    TestNote note(world, u"{A}");
    ASSERT_TRUE(note.Create());
    ASSERT_TRUE(note.Settle());
    note.form.Show();
    note.form.ShowSaveProblem(u"The disk is full.");
    ExpectDescribed(note.Window());
    for (const ChildId child :
         {ChildId::kMessageBox, ChildId::kCloseButton, ChildId::kPushpin, ChildId::kMenuButton, ChildId::kSaveSign}) {
        ExpectDescribed(note.Child(child));
    }
}

TEST(AccessibleTree, TheColorDialog) {
    NoteWorldForTests world;
    TestNote note(world, u"{A}");
    ASSERT_TRUE(note.Create());
    note.note.Perform(NoteAction::ChangeColor);
    ExpectTreeSpoken(world.colorDialog.Handle());
}

class AccessibleMenu : public MainFormTest {};

TEST_F(AccessibleMenu, EveryItem) {
    ASSERT_TRUE(form_.Load());
    form_.SlideForm(true);
    ExpectTreeSpoken(form_.Handle());
    const Reader reader(form_.Handle());
    EXPECT_EQ(reader.Description(9), u"Close the menu.  Right-click to quit Quillo.");
}

}  // namespace
}  // namespace quillo::windows_tests

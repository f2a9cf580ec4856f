#include <limits>

#include "app/base/registry_keys.h"
#include "notes/hide_hint.h"
#include "notes/note_commands.h"
#include "open_note_fixture.h"
#include "registry/tessel_registry.h"

namespace quillo {
namespace {

class OpenNoteCommands : public OpenNoteTest {
  protected:
    [[nodiscard]] int HasHiddenNotes() { return TesselRegistry(registry_, kUserKey).ValueLong(u"Has hidden notes"); }
};

// The time stamp and large text.

TEST_F(OpenNoteCommands, TheTimeStampIsInsertedBeforeTheWholeText) {
    ASSERT_TRUE(note_.SetText(u"abc"));
    note_.Perform(NoteAction::AddTimestamp);
    EXPECT_EQ(note_.Text(), u"(" + locale_.GeneralDate(clock_.now) + u")\r\n\r\nabc");
    EXPECT_TRUE(note_.Data().Changed);
}

TEST_F(OpenNoteCommands, LargeTextIsSwitchedBothWays) {
    note_.Perform(NoteAction::ToggleLargeText);
    EXPECT_TRUE(note_.Data().LargeText);
    note_.Perform(NoteAction::ToggleLargeText);
    EXPECT_FALSE(note_.Data().LargeText);
}

TEST_F(OpenNoteCommands, TheTimeStampIsAnInsertionIntoTheText) {
    ShowStored(u"abc");
    note_.Perform(NoteAction::AddTimestamp);
    EXPECT_EQ(view_.TakeCalls(), Calls{"InsertInFront"}) << "so that caret and undo stay the user's";
}

TEST_F(OpenNoteCommands, AFullNoteRefusesATimeStamp) {
    ShowStored(std::u16string(kMostNoteCharacters, u'x'));
    note_.Perform(NoteAction::AddTimestamp);
    EXPECT_EQ(view_.Text().size(), kMostNoteCharacters);
    EXPECT_FALSE(note_.Data().Changed);
}

TEST_F(OpenNoteCommands, TheKeysFromNoteToNoteAskTheCollection) {
    note_.Perform(NoteAction::NextNote);
    EXPECT_EQ(owner_.neighborAsked, std::u16string(u"after ") + kKey);
    note_.Perform(NoteAction::PreviousNote);
    EXPECT_EQ(owner_.neighborAsked, std::u16string(u"before ") + kKey);
}

TEST(NoteLimit, AppliesToTheSumOfOldAndNew) {
    constexpr std::size_t kMost = kMostNoteCharacters;
    constexpr std::size_t kAny = std::numeric_limits<std::size_t>::max();
    const struct {
        std::size_t present;
        std::size_t added;
        bool fits;
    } cases[] = {{0, 0, true},         {0, kMost, true},    {0, kMost + 1, false},       {1, kMost - 1, true},
                 {1, kMost, false},    {kMost, 0, true},    {kMost, 1, false},           {kMost + 1, 0, false},
                 {kMost, kAny, false}, {kAny, kAny, false}, {kMost / 2, kMost / 2, true}};
    for (const auto& c : cases) EXPECT_EQ(FitsInNote(c.present, c.added), c.fits) << c.present << " + " << c.added;
}

// Hide with its hint.

TEST_F(OpenNoteCommands, TheFirstHiddenNoteGivesAHint) {
    ShowStored(u"Milk");
    note_.Perform(NoteAction::Hide);
    EXPECT_FALSE(view_.IsVisible());
    EXPECT_TRUE(note_.Data().Changed);
    ASSERT_EQ(notice_.balloons.size(), 1U);
    EXPECT_EQ(notice_.balloons[0].title, u"Note hidden");
    EXPECT_EQ(notice_.balloons[0].text,
              u"To show this note again, click the Quillo icon to show the menu, and then click \"show all notes.\"  "
              u"This message will not be shown again.");
    EXPECT_EQ(notice_.balloons[0].icon, BalloonIcon::Information);
    EXPECT_TRUE(notice_.informs.empty());
    EXPECT_EQ(notice_.sounds, std::vector<SystemSound>{SystemSound::RestoreDown});
    EXPECT_EQ(HasHiddenNotes(), -1);
}

TEST_F(OpenNoteCommands, TheHintIsShownOnlyOnceEver) {
    ShowStored(u"Milk");
    TesselRegistry(registry_, kUserKey).SetValueLong(u"Has hidden notes", 1);
    note_.Perform(NoteAction::Hide);
    EXPECT_TRUE(notice_.balloons.empty());
    EXPECT_EQ(notice_.sounds, std::vector<SystemSound>{SystemSound::RestoreDown}) << "the sound comes every time";
    EXPECT_EQ(HasHiddenNotes(), 1) << "what any other number says is left alone";
}

TEST_F(OpenNoteCommands, WithBalloonsOffTheHintIsOnlyRecorded) {
    settings_.disableBalloonHelp = true;
    ShowStored(u"Milk");
    note_.Perform(NoteAction::Hide);
    EXPECT_TRUE(notice_.balloons.empty());
    EXPECT_TRUE(notice_.informs.empty());
    EXPECT_EQ(HasHiddenNotes(), -1);
}

TEST_F(OpenNoteCommands, AnOldSystemGivesTheHintInAMessageBox) {
    os_.windows2000OrLater = false;
    settings_.disableBalloonHelp = true;
    ShowStored(u"Milk");
    note_.Perform(NoteAction::Hide);
    EXPECT_TRUE(notice_.balloons.empty());
    EXPECT_EQ(notice_.informs,
              std::vector<std::u16string>{u"When a note is hidden, it can only be shown by clicking \"show all notes\" "
                                          u"on the main Quillo menu.  This message will not be shown again."});
    note_.Popup();
    note_.Perform(NoteAction::Hide);
    EXPECT_EQ(notice_.informs.size(), 1U);
}

// Saving a copy.

TEST_F(OpenNoteCommands, ACopyHasItsOwnNameAndDoesNotChangeTheNote) {
    ShowStored(u"Milk");
    const Note before = note_.Data();
    view_.copyPath = kDocuments + u"\\shopping.qln";
    note_.Perform(NoteAction::SaveCopy);
    const std::string copy = Content(view_.copyPath);
    EXPECT_NE(copy.find("<filename>C:\\Documents\\shopping.qln</filename>"), std::string::npos) << copy;
    EXPECT_EQ(copy.find("nodelete"), std::string::npos);
    EXPECT_EQ(note_.Data().FileName, before.FileName);
    EXPECT_EQ(note_.Data().StoragePath, before.StoragePath);
    EXPECT_FALSE(note_.Data().Changed);
    EXPECT_TRUE(StorageExists());
}

TEST_F(OpenNoteCommands, ACopyReplacesAnExistingFile) {
    ShowStored(u"Milk");
    view_.copyPath = kDocuments + u"\\old.qln";
    files_.Put(view_.copyPath, "older");
    note_.Perform(NoteAction::SaveCopy);
    EXPECT_EQ(Content(view_.copyPath).substr(0, 4), "Milk");
    EXPECT_EQ(SavedFiles().size(), 1U);
}

TEST_F(OpenNoteCommands, ACanceledCopyWritesNothing) {
    ShowStored(u"Milk");
    note_.Perform(NoteAction::SaveCopy);
    EXPECT_EQ(view_.TakeCalls(), Calls{"AskCopyPath"});
    EXPECT_TRUE(SavedFiles().empty());
}

TEST_F(OpenNoteCommands, ANoteClosedWhileTheUserIsAskedIsNotCopied) {
    ShowStored(u"Milk");
    view_.copyPath = kDocuments + u"\\shopping.qln";
    view_.whileCopyPathAsked = [this] { note_.DestroyNote(); };
    note_.Perform(NoteAction::SaveCopy);
    EXPECT_TRUE(SavedFiles().empty());
}

TEST_F(OpenNoteCommands, ACopyThatCannotBeWrittenIsNamedFromTheTextAndReported) {
    ShowStored(u"Milk");
    view_.copyPath = kDocuments + u"\\locked.qln";
    files_.FailPath(view_.copyPath);
    note_.Perform(NoteAction::SaveCopy);
    EXPECT_NE(Content(kDocuments + u"\\Milk.qln").find("<tempfilename>"), std::string::npos);
    ASSERT_EQ(notice_.warnings.size(), 1U);
    EXPECT_NE(notice_.warnings[0].find(kDocuments + u"\\Milk.qln"), std::u16string::npos);
    EXPECT_EQ(note_.Data().FileName, u"");
}

TEST_F(OpenNoteCommands, ACopyThatCannotBeWrittenAnywhereIsReportedAndLosesNoFile) {
    ShowStored(u"Milk");
    view_.copyPath = kDocuments + u"\\taken.qln";
    files_.Put(view_.copyPath, "mine");
    files_.FailWrites(true);
    note_.Perform(NoteAction::SaveCopy);
    EXPECT_EQ(notice_.warnings, std::vector<std::u16string>{u"Quillo was unable to save a copy of this note."});
    EXPECT_EQ(Content(view_.copyPath), "mine");
}

}  // namespace
}  // namespace quillo

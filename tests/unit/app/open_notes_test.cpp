#include "app/open_notes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <new>

#include "app/note_identifier.h"
#include "test_program.h"
#include "testing/note_interfaces.h"

namespace quillo {
namespace {

class OpenNotesTest : public testing::Test {
  protected:
    OpenNote& Add(std::u16string key) { return *test_.program.openNotes.Add(test_.services, std::move(key)); }
    std::u16string Visited() {
        std::u16string keys;
        notes_.ForEach([&keys](OpenNote& note) { keys += note.NoteKey(); });
        return keys;
    }

    TestProgram test_;
    OpenNotes& notes_ = test_.program.openNotes;
};

TEST_F(OpenNotesTest, AreFoundByKeyAndWalkedInOrder) {
    Add(u"A");
    OpenNote& b = Add(u"B");
    EXPECT_EQ(notes_.Count(), 2U);
    EXPECT_EQ(notes_.Find(u"B"), &b);
    EXPECT_EQ(notes_.Find(u"C"), nullptr);
    EXPECT_EQ(Visited(), u"AB");
}

TEST_F(OpenNotesTest, ANoteWhoseWindowCannotBeCreatedIsNotAdded) {
    Add(u"A");
    test_.views.room = 1;
    EXPECT_EQ(notes_.Add(test_.services, u"B"), nullptr);
    EXPECT_EQ(Visited(), u"A");
}

TEST_F(OpenNotesTest, ANoteRemovedDuringAWalkIsSkippedAndStaysAlive) {
    Add(u"A");
    OpenNote& b = Add(u"B");
    Add(u"C");
    std::u16string visited;
    notes_.ForEach([&](OpenNote& note) {
        visited += note.NoteKey();
        notes_.RemoveNote(u"B");
        notes_.RemoveNote(u"A");
    });
    EXPECT_EQ(visited, u"AC");
    EXPECT_EQ(b.NoteKey(), u"B");
    EXPECT_FALSE(notes_.IsOpen(u"B"));
    notes_.ReleaseRemoved();
    EXPECT_EQ(Visited(), u"C");
}

TEST_F(OpenNotesTest, SurfacingPopsUpEveryNoteInOrderAndTheLastEndsInFront) {
    for (const char16_t key : {u'A', u'B', u'C'}) {
        Add(std::u16string(1, key)).Popup();
    }
    notes_.Find(u"B")->Perform(NoteAction::Minimize);
    AsReminderOwner(*notes_.Find(u"C")).HideByUser();
    for (std::size_t i = 0; i < 3; ++i) (void)test_.views.View(i).TakeCalls();
    SurfaceAllNotes(notes_);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_TRUE(test_.views.View(i).IsVisible());
        EXPECT_FALSE(test_.views.View(i).IsIconShowing());
        const auto calls = test_.views.View(i).TakeCalls();
        EXPECT_NE(std::find(calls.begin(), calls.end(), "BringToFront"), calls.end());
        EXPECT_EQ(calls.back() == "Activate", i == 2) << "the last one has the keyboard";
    }
    EXPECT_TRUE(notes_.Find(u"C")->Data().Changed) << "that it shows is saved";
    EXPECT_FALSE(notes_.Find(u"A")->Data().Changed);
}

TEST_F(OpenNotesTest, TheKeyboardMovesThroughTheVisibleNotesInOrder) {
    for (const char16_t key : {u'A', u'B', u'C', u'D'}) Add(std::u16string(1, key)).Popup();
    notes_.Find(u"B")->HideNote();
    const auto next = [&](std::u16string key, NoteDirection direction) {
        for (std::size_t i = 0; i < 4; ++i) (void)test_.views.View(i).TakeCalls();
        notes_.ActivateNeighbor(key, direction);
        std::string found;
        for (std::size_t i = 0; i < 4; ++i) {
            if (!test_.views.View(i).TakeCalls().empty()) found += static_cast<char>('A' + i);
        }
        return found;
    };
    EXPECT_EQ(next(u"A", NoteDirection::Forward), "C") << "past the hidden one";
    EXPECT_EQ(next(u"D", NoteDirection::Forward), "A") << "around at the end";
    EXPECT_EQ(next(u"C", NoteDirection::Backward), "A");
    EXPECT_EQ(next(u"A", NoteDirection::Backward), "D");
    EXPECT_EQ(next(u"none", NoteDirection::Forward), "");
    for (const char16_t* key : {u"C", u"D"}) notes_.Find(key)->HideNote();
    EXPECT_EQ(next(u"A", NoteDirection::Forward), "") << "there is no other";
}

TEST_F(OpenNotesTest, ANewTaskBarGetsTheIconsOfMinimizedNotes) {
    Add(u"A").Popup();
    Add(u"B").Popup();
    notes_.Find(u"B")->Perform(NoteAction::Minimize);
    for (std::size_t i = 0; i < 2; ++i) (void)test_.views.View(i).TakeCalls();
    RecreateNoteIcons(notes_);
    EXPECT_TRUE(test_.views.View(0).TakeCalls().empty());
    EXPECT_EQ(test_.views.View(1).TakeCalls(), std::vector<std::string>{"RecreateIcon"});
}

TEST_F(OpenNotesTest, ANoteAddedDuringAWalkIsNotVisited) {
    Add(u"A");
    int visits = 0;
    notes_.ForEach([&](OpenNote&) {
        ++visits;
        Add(u"B");
    });
    EXPECT_EQ(visits, 1);
    EXPECT_EQ(Visited(), u"AB");
}

TEST_F(OpenNotesTest, RemovingAnUnknownKeyDoesNothing) {
    Add(u"A");
    notes_.RemoveNote(u"B");
    EXPECT_EQ(Visited(), u"A");
}

TEST_F(OpenNotesTest, UnloadingClosesEveryWindowAndChangesNoFile) {
    Add(u"A").Saver().SetStorageCopy({TestProgram::Stored(u"a.qln"), 0});
    Add(u"B");
    test_.files.Put(TestProgram::Stored(u"a.qln"), "text");
    notes_.UnloadAll();
    EXPECT_EQ(notes_.Count(), 0U);
    EXPECT_TRUE(test_.views.View(0).IsClosed());
    EXPECT_TRUE(test_.views.View(1).IsClosed());
    EXPECT_TRUE(test_.files.FileExists(TestProgram::Stored(u"a.qln")));
}

TEST_F(OpenNotesTest, SettingsReachEveryNote) {
    Add(u"A");
    Add(u"B");
    test_.program.settings.noteColor = ColorWord{0x123456};
    test_.program.settings.noteTransparency = true;
    test_.program.settings.noteOpacity = 100;
    ApplySettingsToAllNotes(notes_);
    ApplyTranslucencyToAllNotes(notes_);
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(test_.views.View(i).Applied().NoteColor, ColorWord{0x123456});
        EXPECT_EQ(test_.views.View(i).Opacity(), 100);
    }
}

TEST_F(OpenNotesTest, IdentifiersAreUpperCaseHexadecimalOfARoundedNumber) {
    struct Case {
        double drawn;
        std::u16string_view key;
    };
    const Case cases[] = {{0, u"0"}, {0.000010, u"A"}, {0.0000154, u"F"}, {0.5, u"7A120"}, {0.9999999, u"F4240"}};
    for (const Case& c : cases) {
        test_.random.Queue({c.drawn});
        EXPECT_EQ(NewNoteIdentifier(notes_, test_.random), c.key);
    }
}

TEST_F(OpenNotesTest, AnIdentifierInUseIsReplacedByAnother) {
    Add(u"7A120");
    test_.random.Queue({0.5, 0.5, 0.25});
    EXPECT_EQ(NewNoteIdentifier(notes_, test_.random), u"3D090");
}

/// Not random at all.
class StuckRandom : public Random {
  public:
    [[nodiscard]] double Next() override { return 0.5; }
};

TEST_F(OpenNotesTest, IdentifiersStayUniqueWhenTheNumbersRepeat) {
    StuckRandom random;
    Add(u"7A120");
    Add(u"7A121");
    EXPECT_EQ(NewNoteIdentifier(notes_, random), u"7A122");
}

TEST_F(OpenNotesTest, OneTickFiresEveryDueReminderInOrder) {
    OpenNote& a = Add(u"A");
    OpenNote& b = Add(u"B");
    for (OpenNote* note : {&a, &b}) AsReminderOwner(*note).SetReminder(test_.clock.now);
    std::u16string order;
    test_.views.View(0).whileAlertOpens = [&order] { order += u"A"; };
    test_.views.View(1).whileAlertOpens = [&order] { order += u"B"; };
    BroadcastTimer(notes_);
    EXPECT_EQ(order, u"AB");
}

TEST_F(OpenNotesTest, ANoteWhoseTickFailsDoesNotStopTheOthers) {
    OpenNote& a = Add(u"A");
    OpenNote& b = Add(u"B");
    for (OpenNote* note : {&a, &b}) AsReminderOwner(*note).SetReminder(test_.clock.now);
    test_.views.View(0).whileAlertOpens = [] { throw std::bad_alloc(); };
    BroadcastTimer(notes_);
    EXPECT_FALSE(b.Data().ReminderSet);
    EXPECT_FALSE(b.IsVisible());
}

TEST_F(OpenNotesTest, OnlyChangedNotesAreWritten) {
    Add(u"A").MarkChanged();
    Add(u"B");
    PersistAllNotes(notes_);
    EXPECT_EQ(test_.StoredFiles().size(), 1U);
}

TEST_F(OpenNotesTest, AHiddenNoteThatTheUserShowsByItsFileIsStoredAsShown) {
    const std::u16string path = TestProgram::Stored(u"a.qln");
    for (const auto mode : {OpenMode::ByUser, OpenMode::AtStart}) {
        TestProgram fresh;
        fresh.files.Put(path, "a\r\n<quillo><appearance>False,False,0,0,0,1</appearance></quillo>");
        fresh.opening.OpenNoteFile(path, OpenMode::AtStart);
        ASSERT_FALSE(fresh.views.Note(0).IsVisible());
        fresh.opening.OpenNoteFile(path, mode);
        EXPECT_TRUE(fresh.views.Note(0).IsVisible());
        EXPECT_EQ(fresh.views.Note(0).Data().Changed, mode == OpenMode::ByUser);
    }
}

}  // namespace
}  // namespace quillo

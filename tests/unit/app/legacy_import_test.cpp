#include "app/legacy_import.h"

#include <gtest/gtest.h>

#include "app/base/registry_keys.h"
#include "test_program.h"

namespace quillo {
namespace {

class LegacyNotesTest : public testing::Test {
  protected:
    void PutNote(int number, std::u16string_view text, std::u16string_view size, std::u16string_view reminder = u"",
                 std::u16string_view appearance = u"", std::u16string_view fileName = u"") {
        const std::u16string n = FormatInteger(number);
        test_.registry.Put(kUserKey, u"Note " + n, text);
        test_.registry.Put(kUserKey, u"Note size " + n, size);
        test_.registry.Put(kUserKey, u"Note reminder " + n, reminder);
        test_.registry.Put(kUserKey, u"Note appearance " + n, appearance);
        test_.registry.Put(kUserKey, u"Note filename " + n, fileName);
    }
    void PutCount(int count) { test_.registry.Put(kUserKey, u"Notes", count); }
    bool Import() { return test_.legacy.Import(test_.services); }

    TestProgram test_;
};

TEST_F(LegacyNotesTest, TwoNotesMoveFromTheRegistryIntoFiles) {
    PutCount(2);
    PutNote(1, u"Buy milk", u"150,300,3000,2400,-1", u"#45123.75", u"True,True,255,65280,16711680,0", u"C:\\milk.qln");
    PutNote(2, u"Call Bob", u"0,0,2000,2000,0");
    ASSERT_EQ(test_.registry.ValueCount(kUserKey), 11U);

    EXPECT_FALSE(Import());
    ASSERT_EQ(test_.program.openNotes.Count(), 2U);
    const OpenNote& first = test_.views.Note(0);
    EXPECT_EQ(first.Text(), u"Buy milk");
    EXPECT_EQ(test_.views.View(0).Rectangle(), (TwipsRect{150, 300, 3000, 2400}));
    EXPECT_TRUE(first.Data().Pinned);
    EXPECT_TRUE(first.Data().ReminderSet);
    EXPECT_EQ(first.Data().ReminderTime.days, 45123.75);
    EXPECT_TRUE(first.Data().LargeText);
    EXPECT_EQ(first.Data().NoteColor, ColorWord{255});
    EXPECT_EQ(first.Data().FileName, u"C:\\milk.qln");
    EXPECT_TRUE(first.IsVisible());
    EXPECT_EQ(test_.views.Note(1).Text(), u"Call Bob");
    EXPECT_FALSE(test_.views.Note(1).Data().Pinned);
    EXPECT_TRUE(test_.views.Note(1).IsVisible());
    EXPECT_EQ(test_.registry.ValueCount(kUserKey), 11U) << "the import deletes nothing";

    test_.saveAll.Run();
    EXPECT_EQ(test_.StoredFiles().size(), 2U);
    EXPECT_EQ(test_.registry.ValueCount(kUserKey), 0U);
}

TEST_F(LegacyNotesTest, AnImportThatHasNoWindowForANoteIsUndone) {
    PutCount(2);
    PutNote(1, u"Buy milk", u"");
    PutNote(2, u"Call Bob", u"");
    test_.views.room = 1;
    EXPECT_FALSE(Import());
    EXPECT_EQ(test_.program.openNotes.Count(), 0U);
    EXPECT_TRUE(test_.views.View(0).IsClosed());

    test_.saveAll.Run();
    EXPECT_TRUE(test_.StoredFiles().empty());
    EXPECT_EQ(test_.registry.ValueCount(kUserKey), 11U) << "the next start can import them";
}

TEST_F(LegacyNotesTest, AnImportWithATextThatNoNoteCanHoldIsUndone) {
    PutCount(2);
    PutNote(1, u"Buy milk", u"");
    PutNote(2, std::u16string(kMostNoteCharacters + 1, u'x'), u"");
    EXPECT_FALSE(Import());
    EXPECT_EQ(test_.program.openNotes.Count(), 0U);
    test_.saveAll.Run();
    EXPECT_TRUE(test_.StoredFiles().empty());
    EXPECT_EQ(test_.registry.ValueCount(kUserKey), 11U);
}

TEST_F(LegacyNotesTest, AnEmptySizeIsTheTopLeftCorner) {
    PutCount(1);
    PutNote(1, u"text", u"");
    EXPECT_FALSE(Import());
    EXPECT_EQ(test_.views.View(0).Rectangle(), (TwipsRect{0, 0, 2000, 2000}));
    EXPECT_FALSE(test_.views.Note(0).Data().Pinned);
}

TEST_F(LegacyNotesTest, ADamagedSizeLosesOnlyItsBadFields) {
    const TwipsRect before = FakeNoteWindow().Rectangle();
    const TwipsRect whole{15, 30, 1500, 1600};
    struct Case {
        std::u16string_view size;
        TwipsRect expected;
        bool pinned;
    };
    const Case cases[] = {
        {u"15,30,1500,1600", whole, false},
        {u"15,30,1500", {15, 30, 1500, before.height}, false},
        {u"15,30,1500,1600,-1", whole, true},
        {u"15,30,1500,1600,1,9", whole, true},
        {u"15,30,1500,1600,x", whole, false},
        {u"15,30,1500,1600,", whole, false},
        {u"x,30,1500,1600,1", {before.left, 30, 1500, 1600}, true},
        {u"15,30,,1600,1", {15, 30, before.width, 1600}, true},
        {u"15,30,1500,1600,True", whole, true},
        {u"15,30,1500,1600,False", whole, false},
        {u"nonsense", before, false},
        {u"15,30,1500,1e300,1", {15, 30, 1500, before.height}, true},
        {u",,,,", before, false},
        {u",", before, false},
        {u" 15 , 30 , 1500 , 1600 , 1 ", whole, true},
    };
    for (const Case& c : cases) {
        TestProgram fresh;
        fresh.registry.Put(kUserKey, u"Notes", 1);
        fresh.registry.Put(kUserKey, u"Note size 1", c.size);
        EXPECT_FALSE(fresh.legacy.Import(fresh.services));
        EXPECT_EQ(fresh.views.View(0).Rectangle(), c.expected) << testing::PrintToString(std::u16string(c.size));
        EXPECT_EQ(fresh.views.Note(0).Data().Pinned, c.pinned) << testing::PrintToString(std::u16string(c.size));
    }
}

TEST_F(LegacyNotesTest, AStoreThatCannotBeReadCompletelyIsLeftUnchanged) {
    PutCount(2);
    PutNote(1, u"first", u"");
    PutNote(2, u"second", u"");
    test_.registry.RefuseEnumerationAt(u"Note 2");
    EXPECT_FALSE(Import());
    EXPECT_EQ(test_.program.openNotes.Count(), 0U);
    test_.saveAll.Run();
    EXPECT_EQ(test_.registry.ValueCount(kUserKey), 11U);
}

TEST_F(LegacyNotesTest, SizesAreReadWhereTheCommaIsTheDecimalSign) {
    test_.locale.decimalSeparator = u",";
    PutCount(2);
    PutNote(1, u"text", u"15,30,1500,1500,-1");
    PutNote(2, u"text", u"");
    EXPECT_FALSE(Import());
    EXPECT_EQ(test_.views.View(0).Rectangle(), (TwipsRect{15, 30, 1500, 1500}));
    EXPECT_TRUE(test_.views.Note(0).Data().Pinned);
    EXPECT_EQ(test_.views.View(1).Rectangle(), (TwipsRect{0, 0, 2000, 2000}));
}

TEST_F(LegacyNotesTest, ANoteInAnUnknownStateIsUnseenAndReported) {
    PutCount(3);
    PutNote(1, u"nonsense", u"", u"nonsense", u"a,b,c,d,e,f");
    PutNote(2, u"unknown state", u"", u"", u"False,False,0,0,0,7");
    PutNote(3, u"short", u"", u"", u"True");
    EXPECT_TRUE(Import());
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(test_.views.Note(i).IsVisible(), i == 2) << i;
        EXPECT_FALSE(test_.views.Note(i).Data().ReminderSet) << i;
    }
    EXPECT_TRUE(test_.views.Note(2).Data().LargeText);
}

TEST_F(LegacyNotesTest, ALongGapHidesNoLaterNote) {
    PutCount(200);
    PutNote(1, u"first", u"");
    PutNote(150, u"far", u"");
    EXPECT_FALSE(Import());
    EXPECT_EQ(test_.views.Note(test_.program.openNotes.Count() - 1).Text(), u"far");
    test_.saveAll.Run();
    EXPECT_EQ(test_.registry.ValueCount(kUserKey), 0U);
}

TEST_F(LegacyNotesTest, ADamagedCountDoesNotFillTheDesktop) {
    PutCount(0x7FFFFFFF);
    PutNote(1, u"first", u"");
    PutNote(70, u"behind a gap", u"");
    EXPECT_FALSE(Import());
    EXPECT_EQ(test_.program.openNotes.Count(), kMaxOpenNotes + 1);
    EXPECT_EQ(test_.views.Note(kMaxOpenNotes).Text(), u"behind a gap");
    test_.saveAll.Run();
    EXPECT_EQ(test_.registry.ValueCount(kUserKey), 0U);
}

TEST_F(LegacyNotesTest, ANoteWithoutValuesIsAnEmptyNote) {
    PutCount(2);
    PutNote(2, u"second", u"");
    EXPECT_FALSE(Import());
    ASSERT_EQ(test_.program.openNotes.Count(), 2U);
    EXPECT_EQ(test_.views.Note(0).Text(), u"");
    EXPECT_EQ(test_.views.View(0).Rectangle(), (TwipsRect{0, 0, 2000, 2000}));
}

TEST_F(LegacyNotesTest, AHiddenNoteIsReported) {
    PutCount(2);
    PutNote(1, u"shown", u"");
    PutNote(2, u"hidden", u"", u"", u"False,False,0,0,0,1");
    EXPECT_TRUE(Import());
    EXPECT_TRUE(test_.views.Note(0).IsVisible());
    EXPECT_FALSE(test_.views.Note(1).IsVisible());
}

TEST_F(LegacyNotesTest, AMissingCountImportsNothing) {
    PutNote(1, u"text", u"");
    EXPECT_FALSE(Import());
    PutCount(-1);
    EXPECT_FALSE(Import());
    EXPECT_EQ(test_.program.openNotes.Count(), 0U);
}

TEST_F(LegacyNotesTest, TheLimitOfOpenNotesDoesNotApply) {
    test_.FillUpTo(kMaxOpenNotes);
    PutCount(1);
    PutNote(1, u"one more", u"");
    EXPECT_FALSE(Import());
    EXPECT_EQ(test_.program.openNotes.Count(), kMaxOpenNotes + 1);
    EXPECT_TRUE(test_.notice.balloons.empty());
}

TEST_F(LegacyNotesTest, TwoDigitNumbersFollowTheirBlankDirectly) {
    PutCount(12);
    for (int number = 1; number <= 12; ++number) PutNote(number, u"note " + FormatInteger(number), u"");
    EXPECT_FALSE(Import());
    EXPECT_EQ(test_.views.Note(11).Text(), u"note 12");
    test_.saveAll.Run();
    EXPECT_EQ(test_.registry.ValueCount(kUserKey), 0U);
    EXPECT_EQ(test_.StoredFiles().size(), 12U);
}

TEST_F(LegacyNotesTest, TheValuesAreDeletedInOrderAndTheCountLast) {
    PutCount(1);
    PutNote(1, u"text", u"");
    EXPECT_FALSE(Import());
    test_.registry.ClearLog();
    test_.saveAll.Run();
    const std::vector<std::u16string> expected{u"open " + std::u16string(kUserKey),
                                               u"set Notes",
                                               u"delete Note 1",
                                               u"delete Note size 1",
                                               u"delete Note reminder 1",
                                               u"delete Note appearance 1",
                                               u"delete Note filename 1",
                                               u"delete Notes"};
    EXPECT_EQ(test_.registry.Log(), expected);
}

TEST_F(LegacyNotesTest, NoValueIsDeletedBeforeEveryNoteIsInAFile) {
    PutCount(2);
    PutNote(1, u"first", u"");
    PutNote(2, u"second", u"");
    EXPECT_FALSE(Import());
    test_.files.FailWrites(true);
    test_.saveAll.Run();
    test_.saveAll.Run();
    EXPECT_EQ(test_.registry.ValueCount(kUserKey), 11U);
    EXPECT_TRUE(test_.StoredFiles().empty());

    test_.files.FailWrites(false);
    test_.saveAll.Run();
    EXPECT_EQ(test_.StoredFiles().size(), 2U) << "a note that could not be saved is tried again";
    EXPECT_EQ(test_.registry.ValueCount(kUserKey), 0U);
}

TEST_F(LegacyNotesTest, OneNoteThatCannotBeWrittenKeepsTheWholeStore) {
    PutCount(2);
    PutNote(1, u"first", u"");
    PutNote(2, u"second", u"");
    EXPECT_FALSE(Import());
    test_.views.Note(1).Saver().SetStorageCopy({TestProgram::Stored(u"second.qln"), 0});
    test_.files.FailPath(TestProgram::Stored(u"second.qln"));
    test_.registry.ClearLog();
    test_.saveAll.Run();
    EXPECT_EQ(test_.StoredFiles().size(), 1U) << "the other one is safe";
    EXPECT_TRUE(test_.registry.Log().empty()) << "the store was not even opened";
    EXPECT_EQ(test_.registry.ValueCount(kUserKey), 11U);
}

TEST_F(LegacyNotesTest, EveryFileExistsBeforeTheFirstValueIsDeleted) {
    PutCount(3);
    for (int number = 1; number <= 3; ++number) PutNote(number, u"note " + FormatInteger(number), u"");
    EXPECT_FALSE(Import());
    std::size_t filesAtFirstDeletion = 0;
    test_.registry.OnDelete([&] {
        if (filesAtFirstDeletion == 0) filesAtFirstDeletion = test_.StoredFiles().size();
    });
    test_.saveAll.Run();
    EXPECT_EQ(filesAtFirstDeletion, 3U);
}

TEST_F(LegacyNotesTest, ANoteThatWasClosedNoLongerKeepsTheStore) {
    PutCount(1);
    PutNote(1, u"first", u"");
    EXPECT_FALSE(Import());
    test_.files.FailWrites(true);
    test_.saveAll.Run();
    test_.files.FailWrites(false);
    test_.views.Note(0).Perform(NoteAction::Close);
    ASSERT_EQ(test_.program.openNotes.Count(), 0U);
    test_.saveAll.Run();
    EXPECT_EQ(test_.registry.ValueCount(kUserKey), 0U);
}

TEST_F(LegacyNotesTest, TheStoreIsNotClearedBeforeItWasImported) {
    PutCount(1);
    PutNote(1, u"text", u"");
    test_.saveAll.Run();
    EXPECT_EQ(test_.registry.ValueCount(kUserKey), 6U);
}

TEST_F(LegacyNotesTest, AQuitRescuesOnlyNotesThatTheStoreLacks) {
    test_.files.PutFolder(kTestDesktop);
    PutCount(2);
    PutNote(1, u"first", u"");
    PutNote(2, u"second", u"");
    EXPECT_FALSE(Import());
    ASSERT_TRUE(test_.views.Note(1).SetText(u"changed"));
    test_.files.RemoveFolder(kTestNotesFolder);
    test_.files.Put(kTestNotesFolder, "a file in its place");
    EXPECT_TRUE(test_.quit.Run(QuitReason::Command));
    EXPECT_EQ(test_.registry.ValueCount(kUserKey), 11U);
    const auto rescued = test_.files.List(kTestDesktop, kNoteExtension);
    ASSERT_EQ(rescued.size(), 1U);
    EXPECT_EQ(test_.files.Read(rescued[0].path)->substr(0, 7), "changed");
}

TEST_F(LegacyNotesTest, ASecondStartImportsNothing) {
    PutCount(1);
    PutNote(1, u"text", u"");
    EXPECT_FALSE(Import());
    test_.saveAll.Run();
    EXPECT_FALSE(Import());
    EXPECT_EQ(test_.program.openNotes.Count(), 1U);
}

TEST_F(LegacyNotesTest, SavingWritesChangedNotesOnly) {
    test_.FillUpTo(3);
    EXPECT_FALSE(Import());
    ASSERT_TRUE(test_.views.Note(1).SetText(u"changed"));
    test_.views.Note(1).MarkChanged();
    test_.saveAll.Run();
    EXPECT_EQ(test_.StoredFiles().size(), 1U);
}

}  // namespace
}  // namespace quillo

#include "app/note_opening.h"

#include <gtest/gtest.h>

#include "controls/swatch_palette.h"
#include "test_program.h"

namespace quillo {
namespace {

constexpr std::u16string_view kOutside = u"C:\\Users\\ann\\Desktop\\Shopping.txt";
const std::string kShownTags = "<position>150,300,3000,2400</position><appearance>False,False,0,0,0,0</appearance>";
const std::string kHiddenTags = "<position>150,300,3000,2400</position><appearance>False,False,0,0,0,1</appearance>";

std::string Tagged(std::string_view text, std::string_view tags) {
    return std::string(text) + "\r\n<quillo>" + std::string(tags) + "</quillo>";
}

class NoteOpeningTest : public testing::Test {
  protected:
    OpenNote* Open(std::u16string_view path) {
        const std::size_t before = test_.views.Count();
        test_.opening.OpenNoteFile(path);
        return test_.views.Count() > before ? &test_.views.Note(before) : nullptr;
    }
    OpenNote* OpenBytes(std::u16string_view path, std::string_view bytes) {
        test_.files.Put(path, bytes);
        return Open(path);
    }

    TestProgram test_;
    Settings& settings_ = test_.program.settings;
};

// Files from outside move in.

TEST_F(NoteOpeningTest, AFileFromOutsideMovesIntoTheNotesFolder) {
    OpenNote* note = OpenBytes(kOutside, "Buy milk");
    ASSERT_NE(note, nullptr);
    EXPECT_EQ(note->Text(), u"Buy milk");
    EXPECT_EQ(note->Data().FileName, kOutside);
    EXPECT_TRUE(note->IsVisible());
    EXPECT_FALSE(note->Data().Changed);
    ASSERT_EQ(test_.StoredFiles().size(), 1U);
    EXPECT_EQ(note->Data().StoragePath, test_.StoredFiles()[0]);
    EXPECT_NE(test_.files.Read(note->Data().StoragePath)->find("<nodelete></nodelete>"), std::string::npos);
    EXPECT_FALSE(test_.files.FileExists(kOutside));
    EXPECT_TRUE(test_.shell.recycled.empty());
}

TEST_F(NoteOpeningTest, AWindowIsAskedForWhereTheFileSays) {
    ASSERT_NE(OpenBytes(TestProgram::Stored(u"a.qln"), Tagged("a", "<position>150,300,,2400</position>")), nullptr);
    ASSERT_NE(OpenBytes(TestProgram::Stored(u"b.qln"), "no tags"), nullptr);
    ASSERT_EQ(test_.views.positions.size(), 2U);
    EXPECT_EQ(test_.views.positions[0], (NotePosition{150, 300, {}, 2400}));
    EXPECT_EQ(test_.views.positions[1], std::nullopt);
    EXPECT_EQ(test_.views.View(0).Rectangle(), (TwipsRect{150, 300, 2820, 2400})) << "each field by itself";
}

TEST_F(NoteOpeningTest, AFileWhoseNoteHasNoWindowStaysAndNothingIsStored) {
    test_.views.room = 0;
    EXPECT_EQ(OpenBytes(kOutside, "Buy milk"), nullptr);
    EXPECT_EQ(test_.program.openNotes.Count(), 0U);
    EXPECT_EQ(test_.files.Read(kOutside), "Buy milk");
    EXPECT_TRUE(test_.StoredFiles().empty());
    EXPECT_EQ(test_.opening.CreateNote(NoteFile()), nullptr);
    test_.opening.CreateNewNote();
    EXPECT_EQ(test_.program.openNotes.Count(), 0U);
}

TEST_F(NoteOpeningTest, AFileLongerThanANoteCanBeStaysAndNothingIsStored) {
    const std::string tooLong(kMostNoteCharacters + 1, 'x');
    OpenBytes(kOutside, tooLong);
    EXPECT_EQ(test_.program.openNotes.Count(), 0U);
    EXPECT_TRUE(test_.views.View(0).IsClosed());
    EXPECT_EQ(test_.files.Read(kOutside), tooLong);
    EXPECT_TRUE(test_.StoredFiles().empty());
    OpenNote* whole = OpenBytes(kOutside, tooLong.substr(1));
    ASSERT_NE(whole, nullptr);
    EXPECT_EQ(whole->Text().size(), kMostNoteCharacters);
}

TEST_F(NoteOpeningTest, AnOpenNoteIsFoundByTheShortNameOfItsFile) {
    test_.shell.longNames[u"ANNSNO~1.QLN"] = u"Ann's notes.qln";
    const std::u16string path = TestProgram::Stored(u"Ann's notes.qln");
    ASSERT_NE(OpenBytes(path, "Buy milk"), nullptr);
    EXPECT_EQ(Open(TestProgram::Stored(u"annsno~1.qln")), nullptr) << "no second note on the same file";
    EXPECT_EQ(test_.program.openNotes.Count(), 1U);
}

TEST_F(NoteOpeningTest, QuotesAroundThePathAreStripped) {
    test_.files.Put(kOutside, "Buy milk");
    EXPECT_NE(Open(u"\"" + std::u16string(kOutside) + u"\""), nullptr);
    EXPECT_FALSE(test_.files.FileExists(kOutside));
}

TEST_F(NoteOpeningTest, AnEmptyFileBecomesANoteOfItsName) {
    for (const auto* path : {u"D:\\Shopping", u"D:\\Shopping.txt", u"D:\\Shopping.qln"}) {
        OpenNote* note = OpenBytes(path, "");
        ASSERT_NE(note, nullptr);
        EXPECT_EQ(note->Text(), u"Shopping");
        EXPECT_FALSE(test_.files.FileExists(path));
    }
    EXPECT_EQ(OpenBytes(u"D:\\Two.dots.txt", "\xEF\xBB\xBF")->Text(), u"Two.dots");
}

TEST_F(NoteOpeningTest, AFileWithTheKeepMarkerStays) {
    OpenNote* note = OpenBytes(kOutside, Tagged("kept", kShownTags + "<nodelete></nodelete>"));
    ASSERT_NE(note, nullptr);
    EXPECT_EQ(note->Data().FileName, kOutside);
    EXPECT_TRUE(test_.files.FileExists(kOutside));
    EXPECT_EQ(test_.StoredFiles().size(), 1U);
}

TEST_F(NoteOpeningTest, TheKeepMarkerIsFoundInItsOwnCaseOnly) {
    ASSERT_NE(OpenBytes(kOutside, Tagged("gone", kShownTags + "<NoDelete></NoDelete>")), nullptr);
    EXPECT_FALSE(test_.files.FileExists(kOutside));
    ASSERT_NE(OpenBytes(kOutside, "a plain text with <nodelete> in it"), nullptr);
    EXPECT_TRUE(test_.files.FileExists(kOutside));
}

TEST_F(NoteOpeningTest, ASourceWhoseNoteCouldNotBeStoredStays) {
    test_.files.FailWrites(true);
    OpenNote* note = OpenBytes(kOutside, "precious");
    ASSERT_NE(note, nullptr);
    EXPECT_EQ(note->Text(), u"precious");
    EXPECT_EQ(test_.files.Read(kOutside), "precious");
    EXPECT_TRUE(test_.shell.recycled.empty());
}

TEST_F(NoteOpeningTest, ASourceThatStayedIsNotOpenedTwice) {
    const std::string bytes = Tagged("kept", kShownTags + "<nodelete></nodelete>");
    OpenNote* note = OpenBytes(kOutside, bytes);
    ASSERT_NE(note, nullptr);
    note->HideNote();
    EXPECT_EQ(Open(kOutside), nullptr);
    EXPECT_TRUE(note->IsVisible());
    EXPECT_EQ(test_.program.openNotes.Count(), 1U);
    EXPECT_NE(OpenBytes(kOutside, Tagged("other", "<nodelete></nodelete>")), nullptr) << "other bytes, another note";
}

TEST_F(NoteOpeningTest, ASourceIsHeldUntilItIsDeleted) {
    test_.files.Put(kOutside, "precious");
    bool held = false;
    test_.views.onMake = [&] { held = test_.files.Delete(kOutside) == FileError::InUse; };
    ASSERT_NE(Open(kOutside), nullptr);
    EXPECT_TRUE(held);
    EXPECT_FALSE(test_.files.FileExists(kOutside));
}

TEST_F(NoteOpeningTest, AUtf16FileBecomesANote) {
    OpenNote* note = OpenBytes(kOutside, std::string("\xFF\xFEh\0\x16\x04", 6));
    ASSERT_NE(note, nullptr);
    EXPECT_EQ(note->Text(), u"h\u0416");
    EXPECT_FALSE(test_.files.FileExists(kOutside));
}

TEST_F(NoteOpeningTest, AFileThatIsTooLargeIsNotOpened) {
    test_.files.Put(kOutside, std::string(kLargestNoteFile + 1, 'x'));
    EXPECT_EQ(test_.opening.OpenNoteFile(kOutside), OpenOutcome::TooLarge);
    EXPECT_EQ(test_.program.openNotes.Count(), 0U);
    EXPECT_TRUE(test_.files.FileExists(kOutside));
}

TEST_F(NoteOpeningTest, TheLargestNoteOpensAgain) {
    NoteFile note;
    note.text = std::u16string(kMostNoteCharacters, u'\u65E5');
    test_.files.Put(TestProgram::Stored(u"a.qln"), *FormatNoteFile(note, test_.locale));
    EXPECT_GT(test_.files.Read(TestProgram::Stored(u"a.qln"))->size(), kLargestNoteFile);
    OpenNote* opened = Open(TestProgram::Stored(u"a.qln"));
    ASSERT_NE(opened, nullptr);
    EXPECT_TRUE(opened->Text() == note.text);
}

TEST_F(NoteOpeningTest, ANoteWithoutAWindowIsReported) {
    test_.views.room = 0;
    OpenBytes(kOutside, "Buy milk");
    ASSERT_EQ(test_.notice.balloons.size(), 1U);
    EXPECT_EQ(test_.notice.balloons[0].title, u"A note cannot be opened");
}

TEST_F(NoteOpeningTest, ATextBeyondTheCodePageMovesInWhole) {
    OpenNote* note = OpenBytes(kOutside, "\xEF\xBB\xBF\xE6\x97\xA5\xE6\x9C\xAC");
    ASSERT_NE(note, nullptr);
    EXPECT_EQ(note->Text(), u"\u65E5\u672C");
    EXPECT_EQ(test_.StoredFiles().size(), 1U);
    EXPECT_FALSE(test_.files.FileExists(kOutside));
    EXPECT_EQ(ParseNoteFile(*test_.files.Read(note->Data().StoragePath), test_.locale).text, u"\u65E5\u672C");
}

TEST_F(NoteOpeningTest, AFileNamedForItsNoteGivesNoFileName) {
    struct Case {
        std::string_view element;
        std::u16string_view fileName;
    };
    const Case cases[] = {
        {"<tempfilename>C:\\Users\\ann\\Desktop\\Shopping.txt</tempfilename>", u""},
        {"<tempfilename>c:\\users\\ANN\\desktop\\shopping.TXT</tempfilename>", u""},
        {"<tempfilename>D:\\elsewhere.qln</tempfilename>", kOutside},
        {"<filename>D:\\elsewhere.qln</filename>", kOutside},
        {"<filename>C:\\Users\\ann\\Desktop\\Shopping.txt</filename>", kOutside},
        {"", kOutside},
    };
    for (const Case& c : cases) {
        OpenNote* note = OpenBytes(kOutside, Tagged("text", kShownTags + std::string(c.element)));
        ASSERT_NE(note, nullptr) << c.element;
        EXPECT_EQ(note->Data().FileName, c.fileName) << c.element;
        EXPECT_FALSE(test_.files.FileExists(kOutside)) << c.element;
    }
}

// Files that are not moved.

TEST_F(NoteOpeningTest, AFileOfTheNotesFolderIsItsNotesStorageCopy) {
    const std::u16string path = TestProgram::Stored(u"a.qln");
    for (const std::string& bytes : {Tagged("kept", kShownTags + "<nodelete></nodelete>"), std::string("plain"),
                                     Tagged("kept", kShownTags + "<filename>C:\\x.qln</filename>")}) {
        TestProgram fresh;
        fresh.files.Put(path, bytes);
        fresh.opening.OpenNoteFile(path);
        ASSERT_EQ(fresh.program.openNotes.Count(), 1U);
        const Note& data = fresh.views.Note(0).Data();
        EXPECT_EQ(data.StoragePath, path);
        EXPECT_FALSE(data.Changed);
        EXPECT_EQ(fresh.files.Read(path), bytes) << "opening rewrites nothing";
    }
}

TEST_F(NoteOpeningTest, AFileOfTheNotesFolderIsRecognizedInAnyCase) {
    const std::u16string path = u"c:\\users\\ANN\\appdata\\local\\marrowind\\NOTES\\a.qln";
    OpenNote* note = OpenBytes(path, "text");
    ASSERT_NE(note, nullptr);
    EXPECT_EQ(note->Data().StoragePath, path);
    EXPECT_EQ(note->Data().FileName, u"");
    EXPECT_TRUE(test_.files.FileExists(path));
}

TEST_F(NoteOpeningTest, AFileThatIsNotTextStaysAndNothingHappens) {
    test_.files.Put(u"D:\\locked.txt", "text");
    test_.files.FailPath(u"D:\\locked.txt");
    test_.files.PutFolder(u"D:\\folder");
    test_.files.Put(u"D:\\binary.exe", std::string_view("MZ\0\1", 4));
    for (const auto* path : {u"D:\\missing.txt", u"D:\\locked.txt", u"D:\\folder", u"D:\\binary.exe", u"", u"\""}) {
        EXPECT_EQ(Open(path), nullptr);
    }
    EXPECT_EQ(test_.program.openNotes.Count(), 0U);
    EXPECT_TRUE(test_.files.FileExists(u"D:\\locked.txt"));
    EXPECT_TRUE(test_.files.FileExists(u"D:\\binary.exe"));
    EXPECT_TRUE(test_.shell.recycled.empty());
    EXPECT_TRUE(test_.notice.balloons.empty());
    EXPECT_TRUE(test_.notice.fails.empty());
}

TEST_F(NoteOpeningTest, AStorageCopyThatIsOpenIsShownInsteadOfOpenedTwice) {
    const std::u16string path = TestProgram::Stored(u"a.qln");
    OpenNote* note = OpenBytes(path, Tagged("text", kHiddenTags));
    ASSERT_NE(note, nullptr);
    ASSERT_FALSE(note->IsVisible());
    EXPECT_EQ(Open(TestProgram::Stored(u"A.QLN")), nullptr);
    EXPECT_EQ(test_.program.openNotes.Count(), 1U);
    EXPECT_TRUE(note->IsVisible());
}

// The limit.

TEST_F(NoteOpeningTest, TheFiftyFirstNoteIsRefusedWithOneBalloonAndItsFileStays) {
    test_.FillUpTo(kMaxOpenNotes - 1);
    ASSERT_NE(OpenBytes(u"D:\\fiftieth.txt", "text"), nullptr);
    EXPECT_TRUE(test_.notice.balloons.empty());

    EXPECT_EQ(OpenBytes(u"D:\\one too many.txt", "text"), nullptr);
    EXPECT_TRUE(test_.files.FileExists(u"D:\\one too many.txt"));
    EXPECT_EQ(test_.program.openNotes.Count(), 50U);
    ASSERT_EQ(test_.notice.balloons.size(), 1U);
    EXPECT_EQ(test_.notice.balloons[0].title, u"Can't open any more notes");
    EXPECT_EQ(test_.notice.balloons[0].text,
              u"Sorry, you can't open any more notes at this time.  (You can have up to 50.)  Please close one or more "
              u"notes and try again.");
    EXPECT_EQ(test_.notice.balloons[0].icon, BalloonIcon::Warning);
}

TEST_F(NoteOpeningTest, TheLimitIsReportedAsTheSettingsAndTheSystemAllow) {
    test_.FillUpTo(kMaxOpenNotes);
    settings_.disableBalloonHelp = true;
    EXPECT_FALSE(test_.opening.CanOpenAnotherNote());
    EXPECT_TRUE(test_.notice.balloons.empty());
    test_.program.os = MakeOsFacts(2, 4, 0);
    EXPECT_FALSE(test_.opening.CanOpenAnotherNote());
    EXPECT_TRUE(test_.notice.balloons.empty());
    EXPECT_EQ(test_.notice.informs.size(), 1U);
}

TEST_F(NoteOpeningTest, AtTheLimitNoNewNoteIsCreated) {
    test_.FillUpTo(kMaxOpenNotes);
    test_.opening.CreateNewNote();
    EXPECT_EQ(test_.program.openNotes.Count(), kMaxOpenNotes);
    EXPECT_EQ(test_.notice.balloons.size(), 1U);
}

// New notes.

TEST_F(NoteOpeningTest, ANewNoteIsEmptyShownAndHasTheKeyboard) {
    test_.opening.CreateNewNote();
    ASSERT_EQ(test_.views.Count(), 1U);
    EXPECT_EQ(test_.views.Note(0).Text(), u"");
    EXPECT_TRUE(test_.views.Note(0).IsVisible());
    EXPECT_FALSE(test_.views.Note(0).Data().Changed);
    const std::vector<std::string> calls = test_.views.View(0).TakeCalls();
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(calls.back(), "Activate");
}

TEST_F(NoteOpeningTest, IntendedAFileThatContainsNewCreatesAnEmptyNote) {
    for (const std::string_view bytes : {"(new)", "(NEW)", "/new", "/New"}) {
        OpenNote* note = OpenBytes(kOutside, bytes);
        ASSERT_NE(note, nullptr);
        EXPECT_EQ(note->Text(), u"") << bytes;
    }
    for (const std::string_view bytes : {"(new) ", "new", "/newer"}) {
        EXPECT_NE(OpenBytes(kOutside, bytes)->Text(), u"") << bytes;
    }
}

TEST_F(NoteOpeningTest, OnlyNewNotesGetATimestamp) {
    settings_.timestampNewNotes = true;
    const std::u16string stamp = u"(" + test_.locale.GeneralDate(test_.clock.Now()) + u")\r\n\r\n";
    test_.opening.CreateNewNote();
    EXPECT_EQ(test_.views.Note(0).Text(), stamp);
    EXPECT_TRUE(test_.views.Note(0).Data().Changed) << "a stamp is worth keeping";
    EXPECT_EQ(OpenBytes(kOutside, "text")->Text(), u"text");
}

TEST_F(NoteOpeningTest, NewAndUntaggedNotesTakeTheColorsOfTheSettings) {
    settings_.noteColor = ColorWord{0x111111};
    test_.opening.CreateNewNote();
    OpenBytes(kOutside, "text");
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_FALSE(test_.views.Note(i).Data().OwnColors);
        EXPECT_EQ(test_.views.View(i).Applied().NoteColor, ColorWord{0x111111});
    }
}

TEST_F(NoteOpeningTest, OnlyNewAndUntaggedNotesGetRandomColors) {
    settings_.randomNoteColor = true;
    settings_.noteColor = ColorWord{0x111111};
    const auto isPaleScheme = [](const Note& note) {
        for (int i = 0; i < kRandomSwatches; ++i) {
            const ColorScheme& scheme = kSwatches[static_cast<std::size_t>(i)];
            if (scheme == ColorScheme{note.NoteColor, note.BorderColor, note.TextColor}) return true;
        }
        return false;
    };
    test_.opening.CreateNewNote();
    OpenBytes(kOutside, "text");
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_TRUE(test_.views.Note(i).Data().OwnColors);
        EXPECT_TRUE(isPaleScheme(test_.views.View(i).Applied()));
    }
    OpenNote* tagged = OpenBytes(kOutside, Tagged("text", kShownTags));
    EXPECT_FALSE(tagged->Data().OwnColors);
    EXPECT_EQ(test_.views.View(2).Applied().NoteColor, ColorWord{0x111111});
}

TEST_F(NoteOpeningTest, NotesCreatedWhileTheProgramRunsArePinnedOnRequest) {
    settings_.autoPinNewNotes = true;
    test_.opening.CreateNewNote();
    OpenNote* opened = OpenBytes(kOutside, Tagged("text", kShownTags));
    EXPECT_TRUE(test_.views.Note(0).Data().Pinned);
    EXPECT_TRUE(opened->Data().Pinned);
    test_.program.startingUp = true;
    EXPECT_FALSE(OpenBytes(kOutside, "text")->Data().Pinned);
}

TEST_F(NoteOpeningTest, TheSettingsDetermineTranslucency) {
    settings_.noteTransparency = true;
    settings_.noteOpacity = 77;
    test_.opening.CreateNewNote();
    OpenBytes(kOutside, Tagged("text", kHiddenTags));
    EXPECT_EQ(test_.views.View(0).Opacity(), 77);
    EXPECT_EQ(test_.views.View(1).Opacity(), 77);
}

TEST_F(NoteOpeningTest, TagsDecideWhereANoteIsAndWhetherItShows) {
    OpenNote* hidden = OpenBytes(kOutside, Tagged("text", kHiddenTags));
    EXPECT_FALSE(hidden->IsVisible());
    EXPECT_EQ(test_.views.View(0).Rectangle(), (TwipsRect{150, 300, 3000, 2400}));
    for (const std::string_view tags : {"<position>150,300,3000,2400</position>", "nothing of use here",
                                        "<position>1,2,3000,2400</position><appearance>a,b,c,d,e,f</appearance>"}) {
        EXPECT_TRUE(OpenBytes(kOutside, Tagged("text", tags))->IsVisible()) << tags;
    }
}

// What opening does to the other notes.

TEST_F(NoteOpeningTest, OpeningAFileSavesTheOtherNotesFirstOnceStartUpIsOver) {
    OpenNote* first = OpenBytes(kOutside, "first");
    ASSERT_TRUE(first->SetText(u"first, changed"));
    first->MarkChanged();
    test_.program.startingUp = true;
    OpenBytes(kOutside, "second");
    EXPECT_TRUE(first->Data().Changed);
    test_.program.startingUp = false;
    EXPECT_EQ(Open(u"D:\\missing.txt"), nullptr);
    EXPECT_FALSE(first->Data().Changed);
}

TEST_F(NoteOpeningTest, OneMegabyteIsKeptWhole) {
    const std::string text(1'000'000, 'x');
    OpenNote* note = OpenBytes(kOutside, text);
    ASSERT_NE(note, nullptr);
    EXPECT_EQ(note->Text().size(), text.size());
    EXPECT_EQ(test_.files.Read(note->Data().StoragePath)->substr(0, text.size()), text);
}

}  // namespace
}  // namespace quillo

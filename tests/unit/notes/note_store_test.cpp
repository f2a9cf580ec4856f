#include "notes/note_store.h"

#include <gtest/gtest.h>

#include <string>

#include "app/base/note_names.h"
#include "app/base/settings.h"
#include "testing/fake_file_store.h"
#include "testing/fake_locale_text.h"
#include "testing/fake_shell.h"

namespace quillo {
namespace {

const std::u16string kOwn = u"D:\\Own.qln";
const std::u16string kFromText = u"D:\\Closed\\Milk.qln";

class NoteStoreTest : public ::testing::Test {
  protected:
    NoteStoreTest() { settings_.noteFolder = u"D:\\Closed"; }

    /// The last element of a file, "(none)" if there is no file.
    std::string Element(std::u16string_view path) {
        const std::string content = files_.Read(path).value_or("(none)");
        const std::size_t start = content.find("</reminder>");
        return start == std::string::npos ? content : content.substr(start + 11);
    }

    Settings settings_;
    FakeFileStore files_;
    FakeLocaleText locale_;
    FakeShell shell_{files_};
    NoteNames names_{files_, shell_, settings_};
    const std::u16string notesFolder_ = u"C:\\Data\\Notes";
    NoteStore store_{files_, locale_, shell_, names_, notesFolder_};
    NoteFile content_ = [] {
        NoteFile file;
        file.text = u"Milk";
        return file;
    }();
};

// The user's own files.

TEST_F(NoteStoreTest, WritesEveryKindOfFile) {
    const std::string temp = "<tempfilename>D:\\Closed\\Milk.qln</tempfilename></quillo>";
    const struct {
        const char* name;
        SaveTarget target;
        bool exists;
        std::u16string path;
        std::string element;
    } cases[] = {
        {"attachment", {kOwn, true, true, true}, false, kOwn, "<nodelete></nodelete></quillo>"},
        {"closed, names not remembered", {u"", true, false, false}, false, kFromText, temp},
        {"closed to its own file",
         {kOwn, false, false, false},
         false,
         kOwn,
         "<filename>D:\\Own.qln</filename></quillo>"},
        {"closed, its file exists", {kOwn, false, false, false}, true, kFromText, temp},
        {"saved as", {kOwn, false, false, true}, true, kOwn, "<filename>D:\\Own.qln</filename></quillo>"},
    };
    for (const auto& c : cases) {
        files_.Remove(kOwn);
        files_.Remove(kFromText);
        if (c.exists) files_.Put(kOwn, "old");
        EXPECT_EQ(store_.SaveNote(content_, c.target).path, c.path) << c.name;
        EXPECT_EQ(Element(c.path), c.element) << c.name;
        if (c.exists && c.path != kOwn) {
            EXPECT_EQ(Element(kOwn), "old") << c.name;
        }
        EXPECT_TRUE(files_.PathsEndingIn(u".new").empty()) << c.name;
        EXPECT_TRUE(files_.PathsEndingIn(u".qlr").empty()) << c.name;
    }
}

TEST_F(NoteStoreTest, TriesAUsersNameOnceMoreUnderANameFromTheText) {
    files_.FailPath(kOwn);
    EXPECT_EQ(store_.SaveNote(content_, {kOwn, false, false, true}).path, kFromText);
    EXPECT_EQ(Element(kFromText), "<tempfilename>D:\\Closed\\Milk.qln</tempfilename></quillo>");
    files_.FailWrites(true);
    const SavedNote failed = store_.SaveNote(content_, {kOwn, true, false, true});
    EXPECT_EQ(failed.path, u"") << "a name that the program chose is not tried again";
    EXPECT_EQ(failed.error, FileError::DiskFull);
}

TEST_F(NoteStoreTest, KeepsTheMarkerInARetry) {
    files_.FailPath(kOwn);
    EXPECT_EQ(store_.SaveNote(content_, {kOwn, false, true, true}).path, kFromText);
    EXPECT_EQ(Element(kFromText), "<nodelete></nodelete></quillo>");
}

TEST_F(NoteStoreTest, LooksForAnotherNameWhenAnotherProgramTakesTheChosenOne) {
    class TakingStore : public FakeFileStore {
      public:
        FileError Create(std::u16string_view path, std::string_view bytes) override {
            const FileError error = FakeFileStore::Create(path, bytes);
            if (!taken && path.find(u"Milk") != std::u16string_view::npos) {
                taken = true;
                Put(kFromText, "somebody else's");
            }
            return error;
        }
        bool taken = false;
    };
    TakingStore files;
    NoteNames names(files, shell_, settings_);
    NoteStore store(files, locale_, shell_, names, notesFolder_);
    EXPECT_EQ(store.SaveNote(content_, {u"", true, false, false}).path, u"D:\\Closed\\Milk 2.qln");
    EXPECT_EQ(files.Read(kFromText), "somebody else's");
    EXPECT_NE(files.Read(u"D:\\Closed\\Milk 2.qln")->find("<tempfilename>D:\\Closed\\Milk 2.qln<"), std::string::npos);
    EXPECT_TRUE(files.PathsEndingIn(u".new").empty());
}

TEST_F(NoteStoreTest, NeverTruncatesAFileBeforeTheNewOneIsWhole) {
    files_.Put(kOwn, "old");
    for (int calls = 0;; ++calls) {
        files_.CutPowerAfter(calls);
        const bool whole = store_.SaveNote(content_, {kOwn, true, false, true}).path == kOwn;
        const bool done = files_.ChangingCalls() <= calls;
        files_.Revive();
        if (done) {
            EXPECT_TRUE(whole);
            break;
        }
        EXPECT_TRUE(files_.Read(kOwn) == "old" || Element(kOwn) == "<tempfilename>D:\\Own.qln</tempfilename></quillo>")
            << calls;
    }
}

TEST_F(NoteStoreTest, RefusesATextThatTheSystemCannotConvert) {
    files_.Put(kOwn, "old");
    locale_.narrowWorks = false;
    EXPECT_EQ(store_.SaveNote(content_, {kOwn, true, false, true}).path, u"");
    EXPECT_NE(store_.SaveStorageCopy(content_, kOwn).error, FileError::None);
    EXPECT_EQ(files_.Read(kOwn), "old");
}

// Storage copies.

TEST_F(NoteStoreTest, AStorageCopySurvivesAPowerCut) {
    ASSERT_EQ(store_.SaveStorageCopy(content_, kOwn).error, FileError::None);
    EXPECT_EQ(Element(kOwn), "<nodelete></nodelete></quillo>");
    const auto first = files_.Read(kOwn);
    content_.text = u"Bread";
    for (const int calls : {0, 1}) {
        files_.CutPowerAfter(calls);
        EXPECT_NE(store_.SaveStorageCopy(content_, kOwn).error, FileError::None);
        files_.Revive();
        EXPECT_EQ(files_.Read(kOwn), first) << "the old bytes";
    }
    ASSERT_EQ(store_.SaveStorageCopy(content_, kOwn).error, FileError::None);
    EXPECT_EQ(files_.Read(kOwn).value_or("").substr(0, 5), "Bread") << "the new ones";
}

TEST_F(NoteStoreTest, CreatesAMissingNotesFolderAgain) {
    files_.PutFolder(notesFolder_);
    files_.RemoveFolder(notesFolder_);
    const std::u16string path = store_.NewStoragePath();
    EXPECT_EQ(store_.SaveStorageCopy(content_, path).error, FileError::None);
    EXPECT_TRUE(files_.FileExists(path));
}

TEST_F(NoteStoreTest, ReportsANotesFolderThatCannotBeCreated) {
    files_.PutFolder(notesFolder_);
    files_.RemoveFolder(notesFolder_);
    files_.Put(notesFolder_, "a file in its place");
    EXPECT_EQ(store_.SaveStorageCopy(content_, store_.NewStoragePath()).error, FileError::FolderMissing);
}

TEST_F(NoteStoreTest, DeletesTheReserveOnAFullDisk) {
    store_.Reserve().Keep(0);
    const std::u16string reserve = u"C:\\Data\\Quillo.reserve";
    ASSERT_EQ(files_.Find(reserve)->size, 256U * 1024);
    files_.SetCapacity(256U * 1024);
    EXPECT_EQ(store_.SaveStorageCopy(content_, kOwn).error, FileError::None);
    EXPECT_FALSE(files_.FileExists(reserve));

    store_.Reserve().Keep(0);
    EXPECT_FALSE(files_.FileExists(reserve)) << "there is no space for it";
    files_.SetCapacity(std::nullopt);
    store_.Reserve().Keep(300'000);
    EXPECT_EQ(files_.Find(reserve)->size, 512U * 1024) << "never smaller than what the notes need";
    files_.log.clear();
    store_.Reserve().Keep(100);
    EXPECT_TRUE(files_.log.empty()) << "it is large enough";
}

TEST_F(NoteStoreTest, StorageCopiesAreNamedByIdentifiers) {
    EXPECT_EQ(store_.NewStoragePath(), u"C:\\Data\\Notes\\{00000000-0000-0000-0000-000000000001}.qln");
    EXPECT_NE(store_.NewStoragePath(), store_.NewStoragePath());
}

TEST_F(NoteStoreTest, DeletesAndRecycles) {
    files_.Put(kOwn, "x");
    files_.Put(kFromText, "y");
    store_.DeleteStorageCopy({kOwn, 0}, {});
    store_.DeleteStorageCopy({}, {});
    EXPECT_FALSE(files_.FileExists(kOwn));
    EXPECT_EQ(files_.log.size(), 1U) << "an empty path is no file";
    EXPECT_EQ(store_.Recycle(kFromText), RecycleResult::Moved);
    EXPECT_EQ(shell_.recycled.size(), 1U);
}

TEST_F(NoteStoreTest, RescuesANoteToTheFirstFolderThatAcceptsIt) {
    EXPECT_EQ(store_.Rescue(content_).path, kFromText);
    files_.PutFolder(u"D:\\Closed");
    files_.RemoveFolder(u"D:\\Closed");
    EXPECT_EQ(store_.Rescue(content_).path, u"C:\\Users\\ann\\Desktop\\Milk.qln");
    files_.RemoveFolder(u"C:\\Users\\ann\\Desktop");
    EXPECT_EQ(store_.Rescue(content_).path, u"C:\\Temp\\Milk.qln");
    files_.FailWrites(true);
    EXPECT_EQ(store_.Rescue(content_).path, u"");
}

// The journal.

TEST_F(NoteStoreTest, TheJournalKeepsEveryKindOfStep) {
    SaveJournal& journal = store_.Journal();
    const PendingStep steps[] = {
        {PendingStep::Kind::Write, u"D:\\\u65E5.new", {}, {}},
        {PendingStep::Kind::Move, {}, {u"C:\\a.qln", 1}, {u"D:\\\xD800.qln", 0xFFFF'FFFF'FFFF'FFFFU}},
        {PendingStep::Kind::Recycle, u"x", {u"C:\\a.qln", 0}, {u"b", 0xABCDEF}},
        {PendingStep::Kind::Rescue, {}, {u"C:\\a.qln", 7}, {u"b", 8}},
    };
    for (const PendingStep& step : steps) {
        const std::u16string record = journal.Begin(step);
        ASSERT_EQ(journal.Unfinished().size(), 1U);
        EXPECT_EQ(journal.Unfinished()[0].path, record);
        EXPECT_EQ(journal.Unfinished()[0].step, step);
        journal.End(record);
        EXPECT_TRUE(journal.Unfinished().empty());
    }
}

TEST_F(NoteStoreTest, TheJournalFallsBackToTheTemporaryFolder) {
    files_.PutFolder(u"C:\\Data\\Recovery");
    files_.RemoveFolder(u"C:\\Data\\Recovery");
    files_.FailPath(u"C:\\Data\\Recovery");
    const std::u16string record = store_.Journal().Begin({});
    EXPECT_EQ(record.substr(0, 24), u"C:\\Temp\\Quillo recovery\\");
    EXPECT_EQ(store_.Journal().Unfinished().size(), 1U);
}

TEST_F(NoteStoreTest, AnIncompleteRecordIsRemoved) {
    const std::u16string record = store_.Journal().Begin({PendingStep::Kind::Move, u"p", {u"a", 1}, {u"b", 2}});
    const std::string whole = *files_.Read(record);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        files_.Put(record, whole.substr(0, length));
        EXPECT_TRUE(store_.Journal().Unfinished().empty()) << length;
        EXPECT_FALSE(files_.FileExists(record)) << length;
    }
}

}  // namespace
}  // namespace quillo

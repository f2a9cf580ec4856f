#include "notes/note_store.h"

#include <gtest/gtest.h>

#include <string>

#include "app/note_names.h"
#include "app/settings.h"
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

    /// The last element of a file, "(none)" without the file.
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
    NoteStore store_{files_, locale_, shell_, names_};
    NoteFile content_ = [] {
        NoteFile file;
        file.text = u"Milk";
        return file;
    }();
};

TEST_F(NoteStoreTest, TheFiveWaysOfSaving) {
    const std::string temp = "<tempfilename>D:\\Closed\\Milk.qln</tempfilename></quillo>";
    const struct {
        const char* name;
        SaveTarget target;
        bool exists;
        std::u16string path;
        std::string element;
    } cases[] = {
        {"storage copy", {kOwn, true, true, true, true}, true, kOwn, "<nodelete></nodelete></quillo>"},
        {"attachment", {kOwn, true, true, true, false}, false, kOwn, "<nodelete></nodelete></quillo>"},
        {"closed, names not remembered", {u"", true, false, false, false}, false, kFromText, temp},
        {"closed to its own file",
         {kOwn, false, false, false, false},
         false,
         kOwn,
         "<filename>D:\\Own.qln</filename></quillo>"},
        {"closed, its file exists", {kOwn, false, false, false, false}, true, kFromText, temp},
        {"saved as", {kOwn, false, false, true, false}, true, kOwn, "<filename>D:\\Own.qln</filename></quillo>"},
    };
    for (const auto& c : cases) {
        static_cast<void>(files_.Delete(kOwn));
        static_cast<void>(files_.Delete(kFromText));
        if (c.exists) files_.Put(kOwn, "old");
        EXPECT_EQ(store_.SaveNote(content_, c.target), c.path) << c.name;
        EXPECT_EQ(Element(c.path), c.element) << c.name;
        if (c.exists && c.path != kOwn) {
            EXPECT_EQ(Element(kOwn), "old") << c.name;
        }
    }
}

TEST_F(NoteStoreTest, AUsersNameIsTriedOnceMoreUnderANameFromTheText) {
    files_.FailPath(kOwn);
    EXPECT_EQ(store_.SaveNote(content_, {kOwn, false, false, true, false}), kFromText);
    EXPECT_EQ(Element(kFromText), "<tempfilename>D:\\Closed\\Milk.qln</tempfilename></quillo>");
    files_.log.clear();
    files_.FailWrites(true);
    EXPECT_EQ(store_.SaveNote(content_, {kOwn, false, false, true, false}), u"");
    EXPECT_EQ(files_.log.size(), 2U) << "one retry, no more";
    files_.log.clear();
    EXPECT_EQ(store_.SaveNote(content_, {kOwn, true, false, true, false}), u"");
    EXPECT_EQ(files_.log.size(), 1U) << "a name that the program chose is not tried again";
}

TEST_F(NoteStoreTest, ARetryKeepsTheMarkerOfAStorageCopy) {
    files_.FailPath(kOwn);
    EXPECT_EQ(store_.SaveNote(content_, {kOwn, false, true, true, false}), kFromText);
    EXPECT_EQ(Element(kFromText), "<nodelete></nodelete></quillo>");
}

TEST_F(NoteStoreTest, AStorageCopySurvivesAPowerCut) {
    const SaveTarget durable{kOwn, true, true, true, true};
    ASSERT_EQ(store_.SaveNote(content_, durable), kOwn);
    const auto first = files_.Read(kOwn);
    content_.text = u"Bread";
    files_.CutPowerDuringReplace();
    EXPECT_EQ(store_.SaveNote(content_, durable), u"");
    EXPECT_EQ(files_.Read(kOwn), first) << "the old bytes";
    ASSERT_EQ(store_.SaveNote(content_, durable), kOwn);
    files_.CutPower();
    EXPECT_EQ(files_.Read(kOwn).value_or("").substr(0, 5), "Bread") << "the new ones";
}

TEST_F(NoteStoreTest, OtherSavesTruncate) {
    ASSERT_EQ(store_.SaveNote(content_, {kOwn, false, false, true, false}), kOwn);
    EXPECT_EQ(files_.log.back(), u"Write " + kOwn);
}

TEST_F(NoteStoreTest, StorageCopiesAreNamedByIdentifiers) {
    EXPECT_EQ(store_.NewStoragePath(u"C:\\Notes"), u"C:\\Notes\\{00000000-0000-0000-0000-000000000001}.qln");
    EXPECT_NE(store_.NewStoragePath(u"C:\\Notes"), store_.NewStoragePath(u"C:\\Notes"));
}

TEST_F(NoteStoreTest, DeletesAndRecycles) {
    files_.Put(kOwn, "x");
    files_.Put(kFromText, "y");
    store_.DeleteStorageCopy(kOwn);
    store_.DeleteStorageCopy(u"");
    EXPECT_FALSE(files_.FileExists(kOwn));
    EXPECT_EQ(files_.log.size(), 1U) << "an empty path is no file";
    store_.Recycle(kFromText);
    store_.Recycle(u"");
    ASSERT_EQ(shell_.recycled.size(), 1U);
    EXPECT_EQ(shell_.recycled[0].content, "y");
}

}  // namespace
}  // namespace quillo

#include "app/base/notes_folder.h"

#include <gtest/gtest.h>

#include "testing/fake_file_store.h"
#include "testing/fake_locale_text.h"
#include "testing/fake_shell.h"

namespace quillo {
namespace {

TEST(NotesFolder, IsTakenFromTheFirstFolderThatExists) {
    struct Case {
        std::u16string_view local, roaming, documents;
        bool useRoaming;
        std::u16string_view expected;
    };
    const Case cases[] = {
        {u"C:\\L", u"C:\\R", u"C:\\D", false, u"C:\\L\\Marrowind\\Notes"},
        {u"C:\\L", u"C:\\R", u"C:\\D", true, u"C:\\R\\Marrowind\\Notes"},
        {u"", u"C:\\R", u"C:\\D", false, u"C:\\R\\Marrowind\\Notes"},
        {u"", u"", u"C:\\D", false, u"C:\\D\\Marrowind\\Notes"},
        {u"C:\\L", u"", u"C:\\D", true, u"C:\\D\\Marrowind\\Notes"},
        {u"C:\\L", u"", u"", true, u""},
        {u"", u"", u"", false, u""},
    };
    for (const Case& c : cases) {
        FakeShell shell;
        FakeFileStore files;
        shell.SetFolder(SpecialFolder::LocalApplicationData, c.local);
        shell.SetFolder(SpecialFolder::RoamingApplicationData, c.roaming);
        shell.SetFolder(SpecialFolder::Documents, c.documents);
        for (const std::u16string_view folder : {c.local, c.roaming, c.documents}) {
            if (!folder.empty()) files.PutFolder(folder);
        }
        EXPECT_EQ(PrepareNotesFolder(shell, files, c.useRoaming), c.expected);
        if (!c.expected.empty()) {
            EXPECT_TRUE(files.FolderExists(c.expected));
        }
    }
}

TEST(NotesFolder, IsTheSamePlaceInAnyLetterCase) {
    FakeLocaleText locale;
    const std::u16string_view folder = u"C:\\Local\\Marrowind\\Notes";
    EXPECT_TRUE(IsInNotesFolder(u"C:\\Local\\Marrowind\\Notes\\a.qln", folder, locale));
    EXPECT_TRUE(IsInNotesFolder(u"c:\\LOCAL\\marrowind\\nOTES\\a.qln", folder, locale));
    EXPECT_FALSE(IsInNotesFolder(u"C:\\Local\\Marrowind\\a.qln", folder, locale));
    EXPECT_FALSE(IsInNotesFolder(u"", folder, locale));
}

TEST(NotesFolder, IntendedANeighboringFolderWhoseNameBeginsAlikeCountsToo) {
    FakeLocaleText locale;
    EXPECT_TRUE(IsInNotesFolder(u"C:\\Notes of 2020\\a.qln", u"C:\\Notes", locale));
}

}  // namespace
}  // namespace quillo

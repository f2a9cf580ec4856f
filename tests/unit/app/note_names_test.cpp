#include "app/base/note_names.h"

#include <gtest/gtest.h>

#include "app/base/settings.h"
#include "testing/fake_file_store.h"
#include "testing/fake_shell.h"
#include "util/numbers.h"

namespace quillo {
namespace {

class NoteNamesTest : public testing::Test {
  protected:
    NoteNamesTest() {
        settings_.noteFolder = u"D:\\Closed";
        shell_.SetFolder(SpecialFolder::DesktopDirectory, u"C:\\Desktop");
    }
    FakeFileStore files_;
    FakeShell shell_;
    Settings settings_;
    NoteNames names_{files_, shell_, settings_};
};

TEST_F(NoteNamesTest, TheSearchForAFreeNameEnds) {
    class FullStore : public FakeFileStore {
      public:
        bool FileExists(std::u16string_view) override { return true; }
    };
    FullStore files;
    NoteNames names(files, shell_, settings_);
    EXPECT_EQ(names.SuggestNoteFileName(u"Milk"), u"");
    EXPECT_EQ(names.SuggestNoteFileName(u""), u"");
}

TEST_F(NoteNamesTest, MadeFromTheText) {
    struct Case {
        std::u16string_view text;
        std::u16string_view path;
    };
    const Case cases[] = {
        {u"Milk", u"D:\\Closed\\Milk.qln"},
        {u"Call: Bob / Sue?", u"D:\\Closed\\Call. Bob -.qln"},
        {u"Buy milk", u"D:\\Closed\\Buy.qln"},
        {u"  Buy milk  ", u"D:\\Closed\\Buy.qln"},
        {u"abcdefghijklmnopqrstuvwxy", u"D:\\Closed\\abcdefghijklmnopqrst.qln"},
        // A blank at character 20 ends the name, one at character 21 does not.
        {u"abcdefghijklmnopqrs uv", u"D:\\Closed\\abcdefghijklmnopqrs.qln"},
        {u"abcdefghijklmnopqrst uv", u"D:\\Closed\\abcdefghijklmnopqrst.qln"},
        {u"a bcdefghijklmnopqrstuv", u"D:\\Closed\\a.qln"},
        {u"one\r\ntwo\rthree\nfour\tfive", u"D:\\Closed\\one two three four.qln"},
        {u"a/b\\c\"d<e>f|g*h?i:j", u"D:\\Closed\\a-b-c'd(e)f-g-hi.j.qln"},
        {u"\r\nfirst\r\n", u"D:\\Closed\\first.qln"},
        {u"a  b", u"D:\\Closed\\a .qln"},
        // Half of a character is not part of a name.
        {u"abcdefghijklmnopqrs\U0001F600x", u"D:\\Closed\\abcdefghijklmnopqrs.qln"},
        // The names of devices cannot be file names.
        {u"Con: too expensive", u"D:\\Closed\\_Con. too.qln"},
        {u"aux: buy a cable", u"D:\\Closed\\_aux. buy a.qln"},
        {u"NUL", u"D:\\Closed\\_NUL.qln"},
        {u"com1", u"D:\\Closed\\_com1.qln"},
        {u"Lpt\u00B2", u"D:\\Closed\\_Lpt\u00B2.qln"},
        {u"prn .x", u"D:\\Closed\\_prn.qln"},
        {u"Console", u"D:\\Closed\\Console.qln"},
        {u"com10", u"D:\\Closed\\com10.qln"},
        {u"comma", u"D:\\Closed\\comma.qln"},
        // Nor do halves of characters,
        {u"\xD83Dleft", u"D:\\Closed\\left.qln"},
        {u"right\xDE00", u"D:\\Closed\\right.qln"},
        {u"\U0001F600 whole", u"D:\\Closed\\\U0001F600.qln"},
        // or control characters.
        {u"a\u0001b\u000Bc", u"D:\\Closed\\abc.qln"},
        {u"", u"C:\\Desktop\\Note 1.qln"},
        {u" \r\n\t ?? ", u"C:\\Desktop\\Note 1.qln"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(names_.SuggestNoteFileName(c.text), c.path) << testing::PrintToString(std::u16string(c.text));
    }
}

TEST_F(NoteNamesTest, MadeFromTypicalTexts) {
    const struct {
        std::u16string_view text;
        std::u16string_view name;
    } cases[] = {
        {u"Dentist\r\nTuesday 9:30, Bridge Street 12", u"Dentist Tuesday"},
        {u"- oat milk\r\n- sourdough\r\n- lemons (4)", u"- oat milk -"},
        {u"http://quillo.example/?Version=1", u"http.--quillo.exampl"},
        {u"+49 30 / 901820", u"+49 30 -"},
        {u"C:\\Users\\ann\\todo.txt", u"C.-Users-ann-todo.tx"},
        {u"11/21/2026: rent is due!", u"11-21-2026. rent is"},
        {u"(11/21/2026 9:30:05 AM)\r\n\r\nCalled Jonas", u"(11-21-2026 9.30.05"},
        {u"\"To be, or not to be\"", u"'To be, or not to"},
        {u"R\u00E9sum\u00E9 f\u00FCr \u00D6zg\u00FCr", u"R\u00E9sum\u00E9 f\u00FCr"},
        {u"Who? What? Where?", u"Who What"},
        {u"\u65E5\u672C\u8A9E\u306E\u30E1\u30E2", u"\u65E5\u672C\u8A9E\u306E\u30E1\u30E2"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(names_.SuggestNoteFileName(c.text), u"D:\\Closed\\" + std::u16string(c.name) + u".qln");
    }
}

TEST_F(NoteNamesTest, ATakenNameIsNumberedFromTwo) {
    files_.Put(u"D:\\Closed\\Call. Bob -.qln", "x");
    EXPECT_EQ(names_.SuggestNoteFileName(u"Call: Bob / Sue?"), u"D:\\Closed\\Call. Bob - 2.qln");
    for (int number = 2; number <= 11; ++number) {
        files_.Put(u"D:\\Closed\\Call. Bob - " + FormatInteger(number) + u".qln", "x");
    }
    EXPECT_EQ(names_.SuggestNoteFileName(u"Call: Bob / Sue?"), u"D:\\Closed\\Call. Bob - 12.qln");
}

TEST_F(NoteNamesTest, AnEmptyTextIsNumberedFromOneOnTheDesktop) {
    files_.Put(u"C:\\Desktop\\Note 1.qln", "x");
    EXPECT_EQ(names_.SuggestNoteFileName(u""), u"C:\\Desktop\\Note 2.qln");
}

TEST_F(NoteNamesTest, AFolderThatEndsWithABackslashGetsNoSecond) {
    settings_.noteFolder = u"D:\\";
    EXPECT_EQ(names_.SuggestNoteFileName(u"Milk"), u"D:\\Milk.qln");
}

TEST_F(NoteNamesTest, ShortcutsAreResolved) {
    shell_.SetLink(u"C:\\Desktop\\tool.LNK", u"C:\\tools\\tool.exe");
    EXPECT_EQ(ResolveShortcut(u"C:\\Desktop\\tool.LNK", shell_), u"C:\\tools\\tool.exe");
    EXPECT_EQ(ResolveShortcut(u"C:\\Desktop\\broken.lnk", shell_), u"C:\\Desktop\\broken.lnk");
    EXPECT_EQ(ResolveShortcut(u"C:\\a.txt", shell_), u"C:\\a.txt");
    EXPECT_EQ(ResolveShortcut(u"lnk", shell_), u"lnk");
}

}  // namespace
}  // namespace quillo

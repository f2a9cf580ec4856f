#include "notes/note_codec.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "note_codec_fixture.h"

namespace quillo {
namespace {

using codec_tests::FileOf;
using codec_tests::Read;
using codec_tests::ReadTags;
using codec_tests::Written;

std::string Block(const std::string& inside) {
    return "<quillo>" + inside + "</quillo>";
}

// Writing.

TEST(FormatNoteFile, WritesEveryByteOfTheFormat) {
    const std::string head =
        "\r\n<quillo><position>7200,3600,3000,2400</position>"
        "<appearance>False,False,14155262,3723262,0,0</appearance><reminder>#45123.75</reminder>";
    EXPECT_EQ(Written(FileOf(u"Buy milk")), "Buy milk" + head + "<nodelete></nodelete></quillo>");
    EXPECT_EQ(Written(FileOf(u"", FileKind::ProgramNamed, u"C:\\A b.qln")),
              head + "<tempfilename>C:\\A b.qln</tempfilename></quillo>");
    EXPECT_EQ(Written(FileOf(u"a\r\nb", FileKind::OwnFile, u"D:\\\u00C4.qln")),
              "a\r\nb" + head + "<filename>D:\\\xC4.qln</filename></quillo>");
}

TEST(FormatNoteFile, OmitsAbsentElements) {
    NoteFile file;
    file.text = u"Milk";
    EXPECT_EQ(Written(file), "Milk\r\n<quillo><reminder></reminder><nodelete></nodelete></quillo>");
}

TEST(FormatNoteFile, WritesAQuestionMarkForACharacterThatTheCodePageLacks) {
    EXPECT_EQ(Written(FileOf(u"\u20AC \u0416\u0101")).substr(0, 4), "\x80 ??");
}

TEST(FormatNoteFile, WritesTheDecimalSeparatorOfTheLocale) {
    FakeLocaleText locale;
    locale.decimalSeparator = u",";
    NoteFile file = FileOf(u"");
    file.position = NotePosition{1.5F, -15, 1e7F, 0};
    const std::string bytes = FormatNoteFile(file, locale).value_or("");
    EXPECT_EQ(bytes.substr(0, bytes.find("</position>")), "\r\n<quillo><position>1,5,-15,1E+07,0");
}

TEST(FormatNoteFile, RefusesTextThatTheSystemCannotConvert) {
    FakeLocaleText locale;
    locale.narrowWorks = false;
    EXPECT_FALSE(FormatNoteFile(FileOf(u"precious"), locale).has_value());
}

TEST(SplitNoteFile, Table) {
    const struct {
        const char* name;
        std::string content, text;
        std::optional<std::string> tags;
    } cases[] = {
        {"nothing", "", "", std::nullopt},
        {"a word", "hello", "hello", std::nullopt},
        {"plain text is untouched", "\r\nhello\r\n", "\r\nhello\r\n", std::nullopt},
        {"no tag between the roots", "a<quillo></quillo>", "a<quillo></quillo>", std::nullopt},
        {"one character between them", "a<quillo>x</quillo>", "a", "x"},
        {"no closing root", "a<quillo>x", "a<quillo>x", std::nullopt},
        {"no opening root", "a</quillo>", "a</quillo>", std::nullopt},
        {"the closing root first", "</quillo>a<quillo>", "</quillo>a<quillo>", std::nullopt},
        {"a closing root before both", "</quillo>a\r\n" + Block("x"), "</quillo>a", "x"},
        {"capitals", "Text\r\n<QUILLO>X</QuiLLo>", "Text", "X"},
        {"an empty note", "\r\n" + Block("x"), "", "x"},
        {"only the block", Block("x"), "", "x"},
        {"a last line break stays", "a\r\n\r\n" + Block("x"), "a\r\n", "x"},
        {"a first line break goes", "\r\na\r\n" + Block("x"), "a", "x"},
        {"one line break alone", "\r\n\r\n" + Block("x"), "", "x"},
        {"two line breaks", "\r\n\r\n\r\n" + Block("x"), "\r\n", "x"},
        {"text after the block", "a\r\n" + Block("x") + "b", "a\r\nb", "x"},
        {"only text after", Block("x") + "\r\nb\r\n", "b", "x"},
        {"a line break after", "a" + Block("x") + "\r\n", "a", "x"},
        {"a first break in two parts", "\r" + Block("x") + "\nb", "b", "x"},
        {"a last break in two parts", "a\r" + Block("x") + "\n", "a", "x"},
        {"one break in two parts", "\r" + Block("x") + "\n", "", "x"},
        {"breaks around the block", "\r\n" + Block("x") + "\r\n", "", "x"},
        {"only CR LF LF", "\r" + Block("x") + "\n\n", "\n", "x"},
        {"half breaks stay", "\na\r" + Block("x"), "\na\r", "x"},
        {"the first block counts", "a" + Block("x") + Block("y"), "a" + Block("y"), "x"},
        {"nested roots", "a<quillo><quillo>x</quillo></quillo>", "a</quillo>", "<quillo>x"},
        {"an empty first block", "<quillo></quillo>" + Block("x"), "<quillo></quillo>" + Block("x"), std::nullopt},
        {"cut off", "a<quillo>x</quill", "a<quillo>x</quill", std::nullopt},
        {"many brackets", "<<q<qu<</" + Block("<<"), "<<q<qu<</", "<<"},
    };
    for (const auto& c : cases) {
        const NoteFileParts parts = SplitNoteFile(c.content);
        EXPECT_EQ(parts.JoinedText(), c.text) << c.name;
        EXPECT_EQ(parts.tags.has_value(), c.tags.has_value()) << c.name;
        EXPECT_EQ(parts.tags.value_or(""), c.tags.value_or("")) << c.name;
    }
}

TEST(SplitNoteFile, GivesViewsOfItsContent) {
    const std::string content = "text\r\n" + Block("tags");
    const NoteFileParts parts = SplitNoteFile(content);
    EXPECT_EQ(parts.head.data(), content.data());
    EXPECT_EQ(parts.tags->data(), content.data() + 14);
}

// Plain text files.

TEST(ParseNoteFile, DecodesPlainText) {
    const struct {
        const char* name;
        std::string bytes;
        std::u16string text;
    } cases[] = {
        {"ASCII", "hello", u"hello"},
        {"ANSI", "h\xE9", u"h\u00E9"},
        {"UTF-8 with a mark", "\xEF\xBB\xBFh\xC3\xA9", u"h\u00E9"},
        {"UTF-8 without one", "h\xC3\xA9 \xF0\x9F\x98\x80", u"h\u00E9 \U0001F600"},
        {"a marked file that is no UTF-8", "\xEF\xBB\xBFh\xE9", u"\u00EF\u00BB\u00BFh\u00E9"},
        {"an overlong form is ANSI", "\xC0\xAF", u"\u00C0\u00AF"},
        {"a surrogate in UTF-8 is ANSI", "\xED\xA0\x80", u"\u00ED\u00A0\u20AC"},
        {"UTF-16, the low byte first", std::string("\xFF\xFEh\0\x16\x04", 6), u"h\u0416"},
        {"UTF-16, the high byte first", std::string("\xFE\xFF\0h\x04\x16", 6), u"h\u0416"},
        {"only a mark", "\xEF\xBB\xBF", u""},
        {"nothing", "", u""},
    };
    for (const auto& c : cases) {
        const NoteFile file = Read(c.bytes);
        EXPECT_EQ(file.text, c.text) << c.name;
        EXPECT_FALSE(file.hasTags) << c.name;
    }
}

TEST(ParseNoteFile, ReadsFilesWithTagsInTheCodePage) {
    EXPECT_EQ(Read("\xC3\xA9\r\n" + Block("x")).text, u"\u00C3\u00A9");
    EXPECT_EQ(Read("\xEF\xBB\xBF\r\n" + Block("x")).text, u"\u00EF\u00BB\u00BF");
}

TEST(ParseNoteFile, GuessesNoUtf8InACodePageOfDoubleBytes) {
    FakeLocaleText locale;
    locale.singleBytes = false;
    EXPECT_EQ(ParseNoteFile("h\xC3\xA9", locale).text, u"h\u00C3\u00A9");
    EXPECT_EQ(ParseNoteFile("\xEF\xBB\xBFh\xC3\xA9", locale).text, u"h\u00E9") << "a mark is no guess";
}

TEST(ParseNoteFile, FindsTheKeepMarkerInItsOwnCaseOnly) {
    EXPECT_TRUE(Read("a plain text with <nodelete> in it").keepsFile);
    EXPECT_TRUE(Read("a\r\n" + Block("<nodelete></nodelete>")).keepsFile);
    EXPECT_FALSE(Read("a\r\n" + Block("<NoDelete></NoDelete>")).keepsFile);
}

// The tag block.

TEST(ReadTagText, FindsAllInAnyCaseAndOrder) {
    const NoteFile file = ReadTags(
        u"  <REMINDER>#1</Reminder><Position>1,2,3,4</POSITION>junk<appearance>True</appearance>"
        u"<TempFileName>D:\\\u00C4X</TempFileName> ");
    EXPECT_EQ(file.reminder, NoteReminder{DaySerial{1}});
    EXPECT_EQ(file.position, (NotePosition{1, 2, 3, 4}));
    EXPECT_EQ(file.appearance->largeText, true);
    EXPECT_EQ(file.kind, FileKind::ProgramNamed);
    EXPECT_EQ(file.path, u"d:\\\u00E4x") << "paths too are in lower case";
}

bool IsUsed(const NoteFile& file, std::u16string_view name) {
    if (name == u"position") return file.position.has_value();
    if (name == u"appearance") return file.appearance.has_value();
    if (name == u"reminder") return file.reminder.has_value();
    if (name == u"tempfilename") return file.kind == FileKind::ProgramNamed;
    return !file.path.empty();
}

TEST(ReadTagText, ThresholdsCountFromTheStartOfTheText) {
    const struct {
        std::u16string name;
        std::size_t threshold;
        std::u16string content;
    } cases[] = {{u"position", 12, u"7"},
                 {u"reminder", 12, u"#"},
                 {u"appearance", 14, u"7"},
                 {u"filename", 12, u"x.qln"},
                 {u"tempfilename", 16, u"7"}};
    for (const auto& c : cases) {
        const std::u16string open = u"<" + c.name + u">";
        const std::u16string close = u"</" + c.name + u">";
        for (std::size_t padding = 0; padding < 16; ++padding) {
            const std::u16string before(padding, u'-');
            const std::size_t at = padding + open.size() + c.content.size();
            EXPECT_EQ(IsUsed(ReadTags(before + open + c.content + close), c.name), at >= c.threshold) << padding;
        }
        const std::u16string before(c.threshold, u'-');
        EXPECT_FALSE(IsUsed(ReadTags(before + close + open + c.content), c.name)) << "closed before it opens";
        EXPECT_FALSE(IsUsed(ReadTags(before + open + c.content), c.name));
        EXPECT_FALSE(IsUsed(ReadTags(before + c.content + close), c.name));
    }
}

TEST(ReadTagText, HandlesItsOwnRootTagsAsIntended) {
    const std::u16string inside = u"<position>1,2,3,4</position>";
    EXPECT_TRUE(ReadTags(u"<QUILLO>" + inside).position.has_value()) << "an opening root is dropped";
    EXPECT_FALSE(ReadTags(inside + u"</Quillo>").position.has_value()) << "intended: a closing root throws all away";
    EXPECT_FALSE(ReadTags(u"<quillo>" + inside + u"</quillo>").position.has_value());
    EXPECT_FALSE(ReadTags(u"</quillo>").position.has_value());
    EXPECT_FALSE(ReadTags(u"<quillo><position>1</position>").position.has_value()) << "counted after the root";
}

TEST(ReadTagText, ReadsPositions) {
    const struct {
        std::u16string text;
        NotePosition expected;
    } cases[] = {{u"100,200,300,400", {100, 200, 300, 400}},
                 {u"100,200", {100, 200, 0, 0}},
                 {u"1,2,3,4,5", {1, 2, 3, 4}},
                 {u"x,2,y,4", {std::nullopt, 2, std::nullopt, 4}},
                 {u",2,,4", {std::nullopt, 2, std::nullopt, 4}},
                 {u"", {0, 0, 0, 0}},
                 {u"-15, 2 ,1.5,1e3", {-15, 2, 1.5, 1000}},
                 {u"1e39,2,3,4", {std::nullopt, 2, 3, 4}}};
    for (const auto& c : cases) {
        EXPECT_EQ(ReadTags(u"------------<position>" + c.text + u"</position>").position, c.expected);
    }
}

// Fields.

TEST(Appearance, IsWrittenAndReadAgain) {
    FakeLocaleText locale;
    std::mt19937 random(3);
    for (int round = 0; round < 2000; ++round) {
        const auto color = [&random] { return ColorWord{static_cast<std::uint32_t>(random())}; };
        NoteAppearance appearance{random() % 2 == 0, random() % 2 == 0, color(),
                                  color(),           color(),           static_cast<WindowState>(random() % 3)};
        if (random() % 3 == 0) appearance.ownColors.reset();
        if (random() % 3 == 0) appearance.textColor.reset();
        if (random() % 3 == 0) appearance.state.reset();
        ASSERT_EQ(ParseAppearance(FormatAppearance(appearance), locale), appearance);
    }
}

TEST(Appearance, Table) {
    FakeLocaleText locale;
    const struct {
        const char16_t* text;
        const char16_t* expected;  // as written again; empty fields change nothing
    } cases[] = {
        {u"True,True,255", u"True,True,255,0,0,0"},
        {u"", u"False,False,0,0,0,0"},
        {u"true,FALSE,4,5,6,1", u"True,False,4,5,6,1"},
        {u"-1,0,4,5,6,-2", u"True,False,4,5,6,2"},
        {u"2.5,yes,4,5,6,2", u"True,,4,5,6,2"},
        {u",,,,,", u",,,,,"},
        {u"x,x,x,x,x,x", u",,,,,"},
        {u"0,0,2.5,3.5,-1,7", u"False,False,2,4,-1,"},
        {u"0,0,2147483648,-2147483648,3e9,-2147483648", u"False,False,,-2147483648,,"},
        {u"0,0,4,5,6,0,9,9", u"False,False,4,5,6,0"},
        {u"0,0,4,5,6,1.4", u"False,False,4,5,6,"},
        {u"0,0,4,5,6,0.5", u"False,False,4,5,6,"},
    };
    for (const auto& c : cases) EXPECT_EQ(FormatAppearance(ParseAppearance(c.text, locale)), c.expected);
}

TEST(Reminder, Table) {
    FakeLocaleText locale;
    using Read = std::optional<NoteReminder>;
    const auto at = [](double days) { return Read(NoteReminder{DaySerial{days}}); };
    const struct {
        const char16_t* text;
        Read expected;
    } cases[] = {{u"#45123.75", at(45123.75)},
                 {u"  #45123.75  ", at(45123.75)},
                 {u"#abc", at(0)},
                 {u"#", at(0)},
                 {u"#12x", at(12)},
                 {u"", std::nullopt},
                 {u"   ", std::nullopt},
                 {u"7/16/2023 6:00:00 pm", at(45123.75)},
                 {u"7/16/2023", at(45123)},
                 {u"tomorrow", NoteReminder{}},
                 {u"#1e30", NoteReminder{}},
                 {u"#2958466", NoteReminder{}},
                 {u"#-657434", at(-657434)},
                 {u"#-657435", NoteReminder{}}};
    for (const auto& c : cases) EXPECT_EQ(ParseReminder(c.text, locale), c.expected);
    EXPECT_EQ(FormatReminder(std::nullopt), u"");
    EXPECT_EQ(FormatReminder(NoteReminder{}), u"");
    EXPECT_EQ(FormatReminder(at(45123.75)), u"#45123.75");
}

TEST(FileNameOf, Table) {
    FakeLocaleText locale;
    const std::u16string own = u"<filename>C:\\Old\\A.qln</filename>";
    const std::u16string temp = u"<tempfilename>C:\\Old\\A.qln</tempfilename>";
    const struct {
        const char* name;
        std::u16string tags, opened, expected;
    } cases[] = {
        {"the real place wins", own, u"D:\\New\\A.qln", u"D:\\New\\A.qln"},
        {"also when the element is damaged", u"<filename>x", u"D:\\A.qln", u"D:\\A.qln"},
        {"without a file the stored path", own, u"", u"c:\\old\\a.qln"},
        {"only with the extension", u"<filename>C:\\Old\\A.txt</filename>", u"", u""},
        {"and with a name before it", u"--<filename>.qln</filename>", u"", u""},
        {"the file the program named", temp, u"C:\\OLD\\a.qln", u""},
        {"that file elsewhere", temp, u"D:\\New\\A.qln", u"D:\\New\\A.qln"},
        {"that file from nowhere", temp, u"", u""},
        {"a storage copy", u"<nodelete></nodelete>", u"C:\\A.qln", u""},
        {"a name the code page lacks", u"<tempfilename>C:\\?.qln</tempfilename>", u"C:\\\u0416.qln", u""},
        {"both", temp + own, u"C:\\OLD\\a.qln", u"C:\\OLD\\a.qln"},
    };
    for (const auto& c : cases) EXPECT_EQ(FileNameOf(ReadTags(c.tags), c.opened, u"", locale), c.expected) << c.name;
    EXPECT_EQ(FileNameOf(ReadTags(temp), u"D:\\A.qln", u"E:\\mine.qln", locale), u"E:\\mine.qln");
}

// Whole files.

std::u16string RandomText(std::mt19937& random) {
    static const std::u16string kAlphabet[] = {u"a",
                                               u"Z",
                                               u" ",
                                               u"\r\n",
                                               u"\r",
                                               u"\n",
                                               u"<",
                                               u"<q",
                                               u"quillo>",
                                               u"</",
                                               u"\u00E4",
                                               u"\u20AC",
                                               u",",
                                               u"#",
                                               u"\u0416",
                                               u"\U0001F600",
                                               u"\xD83D",
                                               u"<quillo>",
                                               u"</unicode></quillo>",
                                               u"?",
                                               u"<unicode>"};
    std::u16string text;
    for (unsigned pieces = random() % 40; pieces > 0; --pieces) text += kAlphabet[random() % std::size(kAlphabet)];
    return text;
}

TEST(NoteFile, IsReadAsItWasWrittenExceptForAnEmptyFirstLine) {
    std::mt19937 random(1981);
    for (int round = 0; round < 20'000; ++round) {
        NoteFile expected = FileOf(RandomText(random));
        if (random() % 4 == 0) expected.reminder.reset();
        if (random() % 4 == 0) expected.position.reset();
        const NoteFile read = Read(Written(expected));
        if (expected.text.substr(0, 2) == u"\r\n") expected.text.erase(0, 2);
        expected.hasTags = expected.keepsFile = true;
        ASSERT_EQ(read, expected);
    }
}

TEST(NoteFile, OfAMegabyteIsReadAsItWasWritten) {
    std::u16string text;
    while (text.size() < 1'000'000) text += u"A line with <brackets> and \u00FCmlauts.\r\n";
    EXPECT_EQ(Read(Written(FileOf(text))).text, text);
    text += u"\u0416";
    EXPECT_EQ(Read(Written(FileOf(text))).text, text);
}

TEST(NoteFile, IsReadSafelyWhenItIsDamaged) {
    std::mt19937 random(7);
    for (const auto* text : {u"Some text\r\n", u"\u0416 text"}) {
        const std::string whole = Written(FileOf(text));
        for (int round = 0; round < 20'000; ++round) {
            std::string damaged = whole.substr(0, random() % (whole.size() + 1));
            for (unsigned hits = random() % 4; hits > 0 && !damaged.empty(); --hits) {
                damaged[random() % damaged.size()] = static_cast<char>(random() % 256);
            }
            const NoteFileParts parts = SplitNoteFile(damaged);
            if (!parts.tags) {
                ASSERT_EQ(parts.JoinedText(), damaged);
            }
            static_cast<void>(Read(damaged));
        }
    }
}

}  // namespace
}  // namespace quillo

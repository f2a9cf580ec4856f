#include "notes/note_file.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "testing/fake_locale_text.h"

namespace quillo {
namespace {

std::string Block(const std::string& inside) {
    return "<quillo>" + inside + "</quillo>";
}

std::string Written(std::u16string_view text, FileKind kind = FileKind::StorageCopy, std::u16string_view path = u"") {
    FakeLocaleText locale;
    return WriteNoteFile(
        {std::u16string(text), {7200, 3600, 3000, 2400}, u"False,False,14155262,3723262,0,0", u"#45123.75"}, kind, path,
        locale);
}

TEST(WriteNoteFile, WritesEveryByteAsTheFormatHasIt) {
    const std::string head =
        "\r\n<quillo><position>7200,3600,3000,2400</position>"
        "<appearance>False,False,14155262,3723262,0,0</appearance><reminder>#45123.75</reminder>";
    EXPECT_EQ(Written(u"Buy milk"), "Buy milk" + head + "<nodelete></nodelete></quillo>");
    EXPECT_EQ(Written(u"", FileKind::ProgramNamed, u"C:\\A b.qln"),
              head + "<tempfilename>C:\\A b.qln</tempfilename></quillo>");
    EXPECT_EQ(Written(u"a\r\nb", FileKind::OwnFile, u"D:\\\u00C4.qln"),
              "a\r\nb" + head + "<filename>D:\\\xC4.qln</filename></quillo>");
}

TEST(WriteNoteFile, WhatTheCodePageLacksIsAQuestionMark) {
    EXPECT_EQ(Written(u"\u20AC \u0416\u0101").substr(0, 4), "\x80 ??");
}

TEST(WriteNoteFile, AFractionBearsTheSignOfTheLocale) {
    FakeLocaleText locale;
    locale.decimalSeparator = u",";
    const std::string file = WriteNoteFile({u"", {1.5F, -15, 1e7F, 0}, u"", u""}, FileKind::StorageCopy, u"", locale);
    EXPECT_EQ(file.substr(0, file.find("</position>")), "\r\n<quillo><position>1,5,-15,1E+07,0");
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

std::u16string RandomText(std::mt19937& random) {
    static const std::u16string kAlphabet[] = {u"a",  u"Z",       u" ",      u"\r\n",   u"\r", u"\n", u"<",
                                               u"<q", u"quillo>", u"\u00E4", u"\u20AC", u",",  u"#"};
    std::u16string text;
    for (unsigned pieces = random() % 40; pieces > 0; --pieces) text += kAlphabet[random() % std::size(kAlphabet)];
    return text;
}

TEST(NoteFile, WhatIsWrittenIsReadAgainButForAFirstLineBreak) {
    std::mt19937 random(1981);
    FakeLocaleText locale;
    int compared = 0;
    for (int round = 0; round < 20'000; ++round) {
        const std::u16string text = RandomText(random);
        if (text.find(u"<quillo>") != std::u16string::npos) continue;
        ++compared;
        const std::string file = Written(text);
        const NoteFileParts parts = SplitNoteFile(file);
        ASSERT_TRUE(parts.tags.has_value());
        const std::size_t lost = text.substr(0, 2) == u"\r\n" ? 2 : 0;
        ASSERT_EQ(locale.FromNarrow(parts.JoinedText()), text.substr(lost));
    }
    EXPECT_GT(compared, 10'000);
}

TEST(NoteFile, AMegabyteComesBack) {
    std::u16string text;
    while (text.size() < 1'000'000) text += u"A line with <brackets> and \u00FCmlauts.\r\n";
    FakeLocaleText locale;
    const std::string file = Written(text);
    EXPECT_EQ(locale.FromNarrow(SplitNoteFile(file).JoinedText()), text);
}

TEST(NoteFile, NoDamageHarmsTheReader) {
    std::mt19937 random(7);
    const std::string whole = Written(u"Some text\r\n");
    for (int round = 0; round < 20'000; ++round) {
        std::string damaged = whole.substr(0, random() % (whole.size() + 1));
        for (unsigned hits = random() % 4; hits > 0 && !damaged.empty(); --hits) {
            damaged[random() % damaged.size()] = static_cast<char>(random() % 256);
        }
        const NoteFileParts parts = SplitNoteFile(damaged);
        if (!parts.tags) {
            ASSERT_EQ(parts.JoinedText(), damaged);
        }
    }
}

}  // namespace
}  // namespace quillo

#include <gtest/gtest.h>

#include <string>

#include "note_codec_fixture.h"

namespace quillo {
namespace {

using codec_tests::FileOf;
using codec_tests::Read;
using codec_tests::ReadTags;
using codec_tests::Written;

// Texts that the single-byte form would destroy.

constexpr const char* kElement = "<unicode>";

TEST(UnicodeElement, IsWrittenOnlyWhereTheTextNeedsIt) {
    for (const auto* text :
         {u"", u"plain", u"really?", u"caf\u00E9 \u20AC", u"\r\n", u"<quill>", u"a <b> c", u"<unicode>"}) {
        EXPECT_EQ(Written(FileOf(text)).find(kElement),
                  std::u16string_view(text) == u"<unicode>" ? 0 : std::string::npos);
    }
    for (const auto* text : {u"\u65E5\u672C", u"a\u0416", u"\U0001F58B", u"e\u0301", u"<quillo>", u"a</QUILLO>b"}) {
        EXPECT_NE(Written(FileOf(text)).find(kElement), std::string::npos);
    }
    EXPECT_NE(Written(FileOf(std::u16string(1, u'\xD800'))).find(kElement), std::string::npos) << "a lone surrogate";
}

TEST(UnicodeElement, FollowsTheFourOthersAndLeavesThemUnchanged) {
    EXPECT_EQ(Written(FileOf(u"\u0416")),
              "?\r\n<quillo><position>7200,3600,3000,2400</position>"
              "<appearance>False,False,14155262,3723262,0,0</appearance><reminder>#45123.75</reminder>"
              "<nodelete></nodelete><unicode>1,af63b24c8601a52e,2cla</unicode></quillo>");
}

TEST(UnicodeElement, IsNotSeenByTheReaderOfOtherElements) {
    const std::string file = Written(FileOf(u"\u0416"));
    const NoteFileParts parts = SplitNoteFile(file);
    EXPECT_EQ(parts.JoinedText(), "?");
    FakeLocaleText locale;
    const NoteFile read = ReadTags(locale.FromNarrow(*parts.tags));
    EXPECT_EQ(read.position, FileOf(u"").position);
    EXPECT_EQ(read.appearance, FileOf(u"").appearance);
}

TEST(UnicodeElement, RestoresEveryText) {
    for (const FileKind kind : {FileKind::StorageCopy, FileKind::ProgramNamed, FileKind::OwnFile}) {
        const std::u16string path = kind == FileKind::StorageCopy ? u"" : u"c:\\a.qln";
        for (const std::u16string& text :
             {std::u16string(u"\u65E5\u672C\r\n\u8A9E"), std::u16string(u"\U0001F600 e\u0301"),
              std::u16string(u"how it works: <quillo> then lots"), std::u16string(u"a <quillo>x</quillo> b \u0416"),
              std::u16string(u"\xDC00\xD800x\xD800"), std::u16string(u"\u0416\r\n")}) {
            NoteFile expected = FileOf(text, kind, path);
            expected.hasTags = true;
            expected.keepsFile = kind == FileKind::StorageCopy;
            EXPECT_EQ(Read(Written(expected)), expected);
        }
    }
}

TEST(UnicodeElement, LosesAnEmptyFirstLineAsEveryNoteDoes) {
    EXPECT_EQ(Read(Written(FileOf(u"\r\n\u0416"))).text, u"\u0416");
    EXPECT_EQ(Read(Written(FileOf(u"\r\n\r\n\u0416"))).text, u"\r\n\u0416");
}

TEST(UnicodeElement, IsIgnoredWhenTheTextWasEditedElsewhere) {
    const std::string file = Written(FileOf(u"a \u0416 b"));
    EXPECT_EQ(Read("x" + file).text, u"xa ? b");
    EXPECT_EQ(Read(file + "z").text, u"a ? b\r\nz") << "text after the block";
    std::string sameLength = file;
    sameLength[0] = 'A';
    EXPECT_EQ(Read(sameLength).text, u"A ? b");
    EXPECT_EQ(Read(file).text, u"a \u0416 b");
}

TEST(UnicodeElement, IsIgnoredWhenItIsDamaged) {
    const std::string file = Written(FileOf(u"\u0416"));
    const std::string element = file.substr(file.find(kElement));
    const auto with = [&](const std::string& other) { return Read(file.substr(0, file.find(kElement)) + other).text; };
    ASSERT_EQ(with(element), u"\u0416");
    EXPECT_EQ(with("<unicode>2,af63b24c8601a52e,2cla</unicode></quillo>"), u"?");
    EXPECT_EQ(with("<unicode>1,af63b24c8601a52f,2cla</unicode></quillo>"), u"?");
    EXPECT_EQ(with("<unicode>1,af63b24c8601a52e,2cl!</unicode></quillo>"), u"?");
    EXPECT_EQ(with("<unicode>1,af63b24c8601a52e,77777</unicode></quillo>"), u"?") << "no UTF-8";
    EXPECT_EQ(with("<unicode></unicode></quillo>"), u"?");
    EXPECT_EQ(with("</unicode></quillo>"), u"?");
    EXPECT_EQ(with("<UNICODE>1,AF63B24C8601A52E,2CLA</Unicode></QUILLO>"), u"\u0416") << "any letter case";
}

}  // namespace
}  // namespace quillo

#include "notes/print_lines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "testing/recording_printer.h"

namespace quillo {
namespace {

using Lines = std::vector<std::u16string>;

/// At 10 points a character is 5 dots wide.
constexpr int kDotsPerCharacter = 5;

class PrintLinesTest : public ::testing::Test {
  protected:
    PrintLinesTest() : job_(printer_.Open(u"")) { job_->SetFont(PrintFont{}); }

    /// The lines of a text on paper that is that many ordinary characters wide.
    Lines Break(std::u16string_view text, int characters) {
        PrintLines lines(text);
        Lines broken;
        while (!lines.AtEnd()) broken.emplace_back(lines.Next(*job_, characters * kDotsPerCharacter));
        return broken;
    }

    RecordingPrinter printer_;
    std::unique_ptr<PrintJob> job_;
};

TEST_F(PrintLinesTest, NothingHasNoLine) {
    EXPECT_EQ(Break(u"", 10), Lines{});
}

TEST_F(PrintLinesTest, ALineTakesAsManyWordsAsFit) {
    EXPECT_EQ(Break(u"one two three four", 100), (Lines{u"one two three four"}));
    EXPECT_EQ(Break(u"one two three four", 13), (Lines{u"one two three", u"four"}));
    EXPECT_EQ(Break(u"one two three four", 12), (Lines{u"one two", u"three four"}));
    EXPECT_EQ(Break(u"one two three four", 5), (Lines{u"one", u"two", u"three", u"four"}));
}

TEST_F(PrintLinesTest, WidthsAreMeasuredNotCounted) {
    EXPECT_EQ(Break(u"WWWW WWWW", 9), (Lines{u"WWWW", u"WWWW"}));
    EXPECT_EQ(Break(u"iiii iiii", 9), (Lines{u"iiii iiii"}));
}

TEST_F(PrintLinesTest, ALineBreakAlwaysStartsANewLine) {
    EXPECT_EQ(Break(u"one\r\ntwo", 100), (Lines{u"one", u"two"}));
    EXPECT_EQ(Break(u"one\r\n\r\ntwo", 100), (Lines{u"one", u"", u"two"}));
    EXPECT_EQ(Break(u"\r\none", 100), (Lines{u"", u"one"}));
    EXPECT_EQ(Break(u"one\r\n", 100), (Lines{u"one"})) << "nothing follows that line break";
    EXPECT_EQ(Break(u"\r\n", 100), (Lines{u""}));
    EXPECT_EQ(Break(u"one two\r\nthree", 7), (Lines{u"one two", u"three"})) << "one line break, not two";
}

TEST_F(PrintLinesTest, EveryBlankStaysButTheOneAtWhichALineIsBroken) {
    EXPECT_EQ(Break(u"  one  two  ", 100), (Lines{u"  one  two  "}));
    EXPECT_EQ(Break(u"one    two", 5), (Lines{u"one  ", u" two"}));
    EXPECT_EQ(Break(u"one  two", 3), (Lines{u"one", u" tw", u"o"})) << "no line without a character";
    EXPECT_EQ(Break(u"one two \r\nthree", 7), (Lines{u"one two", u"three"})) << "one line break, not two";
    EXPECT_EQ(Break(u"one two     \r\nthree", 8), (Lines{u"one two ", u"   ", u"three"}));
    EXPECT_EQ(Break(u"  abcdef", 4), (Lines{u" ", u"abcd", u"ef"})) << "and no empty line before a wide word";
    EXPECT_EQ(Break(u" abcdef", 4), (Lines{u" abc", u"def"}));
    EXPECT_EQ(Break(u"   ", 100), (Lines{u"   "}));
}

TEST_F(PrintLinesTest, AWordWiderThanTheLineIsBrokenAtTheWidth) {
    EXPECT_EQ(Break(u"abcdefghij", 4), (Lines{u"abcd", u"efgh", u"ij"}));
    EXPECT_EQ(Break(u"to abcdefghij be", 4), (Lines{u"to", u"abcd", u"efgh", u"ij", u"be"}));
    EXPECT_EQ(Break(u"abcdefgh", 4), (Lines{u"abcd", u"efgh"}));
}

TEST_F(PrintLinesTest, EvenTheNarrowestPaperTakesACharacterPerLine) {
    EXPECT_EQ(Break(u"abc", 0), (Lines{u"a", u"b", u"c"}));
    EXPECT_EQ(Break(u"\U0001F600\U0001F600", 0), (Lines{u"\U0001F600", u"\U0001F600"}));
    EXPECT_EQ(Break(u"a\r\nb", 0), (Lines{u"a", u"b"}));
}

TEST_F(PrintLinesTest, ACharacterOfTwoUnitsIsNotBroken) {
    EXPECT_EQ(Break(u"abc\U0001F600", 4), (Lines{u"abc", u"\U0001F600"}));
}

TEST_F(PrintLinesTest, ACharacterWithoutAGlyphIsABlank) {
    EXPECT_EQ(Break(u"a\tb", 100), (Lines{u"a  b"})) << "a tab is two blanks wide, as on the note";
    EXPECT_EQ(Break(u"a\nb\rc", 100), (Lines{u"a b c"})) << "a lone half of a line break breaks no line";
}

TEST_F(PrintLinesTest, ManyCharactersWithoutWidthFitOnOneLine) {
    const std::u16string accents(1000, u'\u0301');
    EXPECT_EQ(Break(u"e" + accents, 1), (Lines{u"e" + accents}));
}

TEST_F(PrintLinesTest, AMegabyteIsMeasuredInLinearTime) {
    constexpr std::size_t kMegabyte = 1'000'000;
    const auto measured = [this](std::u16string_view text) {
        const std::size_t before = printer_.documents[0].charactersMeasured;
        const std::size_t lines = Break(text, 100).size();
        EXPECT_GE(lines, kMegabyte / 101);
        return printer_.documents[0].charactersMeasured - before;
    };
    std::u16string words;
    while (words.size() < kMegabyte) words += u"seven words of a line that goes on ";
    EXPECT_LE(measured(words), 4 * words.size());
    EXPECT_LE(measured(std::u16string(kMegabyte, u'x')), 4 * kMegabyte) << "one long word";
}

}  // namespace
}  // namespace quillo

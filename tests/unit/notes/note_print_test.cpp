#include "notes/note_print.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/base/app_identity.h"
#include "app/base/settings.h"
#include "notes/note.h"
#include "testing/fake_clock.h"
#include "testing/fake_locale_text.h"
#include "testing/recording_printer.h"

namespace quillo {
namespace {

using Page = RecordedDocument::Page;

// On letter paper with one dot per point: the lines of the body on one page, and the characters of a line.
constexpr int kLinesOnAPage = 59;
constexpr int kCharactersOfALine = 108;

/// How many lines a page has besides those of the note: heading, date line, address and number.
constexpr std::size_t kOwnLines = 4;

class NotePrintTest : public ::testing::Test {
  protected:
    NotePrintTest() {
        font_.name = u"Georgia";
        font_.size = 20;
        note_.BorderColor = ColorWord::FromRgb(10, 20, 30);
    }

    PrintOutcome Print(std::u16string_view text) {
        const std::unique_ptr<PrintJob> job = printer_.Open(PrintDocumentName(text));
        return PrintPages(*job, MakePrintedNote(text, note_, font_, clock_.now, locale_));
    }
    [[nodiscard]] const RecordedDocument& Document() const { return printer_.documents.back(); }
    [[nodiscard]] const std::vector<Page>& Pages() const { return Document().pages; }
    /// The note's own lines on a page.
    [[nodiscard]] std::vector<std::u16string> Body(std::size_t page) const {
        std::vector<std::u16string> body;
        const auto& lines = Pages().at(page).lines;
        for (std::size_t i = kOwnLines; i < lines.size(); ++i) body.push_back(lines[i].text);
        return body;
    }
    static std::u16string Numbered(int count) {
        std::u16string text;
        for (int i = 1; i <= count; ++i) {
            if (i > 1) text += u"\r\n";
            for (const char digit : "line " + std::to_string(i)) text += static_cast<char16_t>(digit);
        }
        return text;
    }

    Note note_;
    FontSetting font_;
    FakeClock clock_;
    FakeLocaleText locale_;
    RecordingPrinter printer_;
};

TEST_F(NotePrintTest, APageHasItsPartsInTheirPlacesAndFonts) {
    ASSERT_EQ(Print(u"Buy milk"), PrintOutcome::Printed);
    ASSERT_EQ(Pages().size(), 1U);
    const Page& page = Pages()[0];
    ASSERT_EQ(page.lines.size(), kOwnLines + 1);
    EXPECT_TRUE(page.ended && Document().printed);

    const auto& heading = page.lines[0];
    EXPECT_EQ(heading.text, u"Sticky note");
    EXPECT_EQ(heading.at, (Point{36, 36}));
    EXPECT_EQ(heading.font.points, 24);
    EXPECT_TRUE(heading.font.bold);

    const auto& date = page.lines[1];
    EXPECT_EQ(date.text, u"Printed  11/21/2026 9:30:00 AM");
    EXPECT_EQ(date.at, (Point{36, 61})) << "right below the heading";
    EXPECT_EQ(date.font.points, 14);
    EXPECT_FALSE(date.font.bold);

    ASSERT_EQ(page.bars.size(), 1U);
    EXPECT_EQ(page.bars[0].area, (Rect{36, 80, 540, 5})) << "0.06 to 0.12 inch below the date line";
    EXPECT_EQ(page.bars[0].color, note_.BorderColor);

    const auto& address = page.lines[2];
    EXPECT_EQ(address.text, kMakerHost);
    EXPECT_EQ(address.font.points, 8);
    EXPECT_EQ(address.at.x + static_cast<int>(address.text.size()) * 4, 576) << "ends at the right margin";
    EXPECT_EQ(address.at.y + 9, 756) << "ends at the bottom margin";

    const auto& number = page.lines[3];
    EXPECT_EQ(number.text, u"1");
    EXPECT_EQ(number.font.points, 8);
    EXPECT_EQ(number.at, (Point{572, 36})) << "at the right margin, level with the heading";

    const auto& body = page.lines[4];
    EXPECT_EQ(body.text, u"Buy milk");
    EXPECT_EQ(body.at, (Point{36, 89}));
    EXPECT_EQ(body.font.points, 10);
    for (const auto& line : page.lines) EXPECT_EQ(line.font.name, u"Georgia");
}

TEST_F(NotePrintTest, TheBodyIsInTheNotesFont) {
    font_.bold = true;
    font_.italic = true;
    font_.charset = 204;
    note_.LargeText = true;
    ASSERT_EQ(Print(u"Buy milk"), PrintOutcome::Printed);
    PrintFont expected;
    expected.name = u"Georgia";
    expected.points = 10;
    expected.bold = true;
    expected.italic = true;
    expected.charset = 204;
    EXPECT_EQ(Pages()[0].lines[4].font, expected);
    EXPECT_FALSE(Pages()[0].lines[1].font.bold) << "the date line is never bold";
}

TEST_F(NotePrintTest, TheRuleIsInAColorOfTheNoteThatPaperShows) {
    const ColorWord white = ColorWord::FromRgb(255, 255, 255);
    const ColorWord wine = ColorWord::FromRgb(0xA7, 0x1D, 0x23);
    const ColorWord black = ColorWord::FromRgb(0, 0, 0);
    const ColorWord system{0x80000005U};
    const struct {
        ColorWord border, note, text, rule;
    } cases[] = {{wine, white, black, wine},
                 {white, wine, black, wine},
                 {white, white, black, black},
                 {system, wine, black, system}};
    for (const auto& c : cases) {
        note_.BorderColor = c.border;
        note_.NoteColor = c.note;
        note_.TextColor = c.text;
        ASSERT_EQ(Print(u"Buy milk"), PrintOutcome::Printed);
        EXPECT_EQ(Pages()[0].bars[0].color, c.rule);
    }
}

TEST_F(NotePrintTest, AReminderReplacesTheDateOfPrinting) {
    note_.ReminderSet = true;
    note_.ReminderTime = DaySerial{45123.75};
    ASSERT_EQ(Print(u"Buy milk"), PrintOutcome::Printed);
    EXPECT_EQ(Pages()[0].lines[1].text, u"Reminder:  7/16/2023 6:00:00 PM");
    for (const auto& line : Pages()[0].lines) EXPECT_EQ(line.text.find(u"Printed"), std::u16string::npos);
}

TEST_F(NotePrintTest, AnEmptyNotePrintsOnePage) {
    ASSERT_EQ(Print(u""), PrintOutcome::Printed);
    ASSERT_EQ(Pages().size(), 1U);
    EXPECT_EQ(Pages()[0].lines.size(), kOwnLines);
    EXPECT_EQ(Pages()[0].bars.size(), 1U);
    EXPECT_EQ(Pages()[0].lines[3].text, u"1");
    EXPECT_EQ(Document().name, u"Sticky note");
    ASSERT_EQ(Print(u"   \r\n"), PrintOutcome::Printed);
    EXPECT_EQ(Pages().size(), 1U);
}

TEST_F(NotePrintTest, LinesFillThePageAndContinueOnTheNext) {
    ASSERT_EQ(Print(Numbered(kLinesOnAPage)), PrintOutcome::Printed);
    EXPECT_EQ(Pages().size(), 1U) << "no empty page follows a full one";
    ASSERT_EQ(Print(Numbered(kLinesOnAPage + 1)), PrintOutcome::Printed);
    ASSERT_EQ(Pages().size(), 2U);
    EXPECT_EQ(Body(0).back(), u"line 59");
    EXPECT_EQ(Body(1), (std::vector<std::u16string>{u"line 60"}));
    const auto& last = Pages()[0].lines.back();
    EXPECT_LE(last.at.y + 11, 743) << "above the footer";

    const Page& second = Pages()[1];
    for (const std::size_t i : {0U, 1U, 2U}) EXPECT_EQ(second.lines[i].text, Pages()[0].lines[i].text);
    EXPECT_EQ(second.lines[3].text, u"2");
    EXPECT_EQ(second.bars.size(), 1U);
    EXPECT_EQ(second.lines[4].at, Pages()[0].lines[4].at);
}

TEST_F(NotePrintTest, TwoHundredPagesAreNumberedToTheEnd) {
    ASSERT_EQ(Print(Numbered(200 * kLinesOnAPage)), PrintOutcome::Printed);
    ASSERT_EQ(Pages().size(), 200U);
    EXPECT_EQ(Pages()[199].lines[3].text, u"200");
    EXPECT_EQ(Pages()[199].lines[3].at.x, 576 - 3 * 4) << "placed by its width";
    EXPECT_EQ(Body(199).back(), u"line 11800");
    for (const Page& page : Pages()) EXPECT_TRUE(page.ended);
}

TEST_F(NotePrintTest, OneLongWordIsOnThePaperWhole) {
    std::u16string word;
    for (int i = 0; i < 3 * kLinesOnAPage * kCharactersOfALine; ++i) word += static_cast<char16_t>(u'a' + i % 26);
    ASSERT_EQ(Print(word), PrintOutcome::Printed);
    ASSERT_EQ(Pages().size(), 3U);
    std::u16string printed;
    for (std::size_t page = 0; page < Pages().size(); ++page) {
        for (const std::u16string& line : Body(page)) {
            EXPECT_EQ(line.size(), static_cast<std::size_t>(kCharactersOfALine));
            printed += line;
        }
    }
    EXPECT_EQ(printed, word);
}

TEST_F(NotePrintTest, ResolutionsMayDifferAcrossAndDown) {
    printer_.sheet = PrintSheet{Size{1224, 2376}, Rect{0, 0, 1224, 2376}, 144, 216};
    ASSERT_EQ(Print(u"Buy milk"), PrintOutcome::Printed);
    const Page& page = Pages()[0];
    EXPECT_EQ(page.lines[0].at, (Point{72, 108})) << "half an inch each way";
    EXPECT_EQ(page.bars[0].area, (Rect{72, 241, 1080, 13}));
    EXPECT_EQ(page.lines[3].at, (Point{1152 - 8, 108}));
}

TEST_F(NotePrintTest, MarginsCoverTheUnprintableEdge) {
    printer_.sheet.printable = Rect{18, 18, 576, 720};  // up to 54 dots from the bottom
    ASSERT_EQ(Print(u"Buy milk"), PrintOutcome::Printed);
    EXPECT_EQ(Pages()[0].lines[0].at, (Point{36, 36})) << "the margin covers it";
    EXPECT_EQ(Pages()[0].lines[2].at.y + 9, 738) << "the footer moves up";
}

TEST_F(NotePrintTest, PaperTooLowForALineStillEnds) {
    printer_.sheet = PrintSheet{Size{300, 100}, Rect{0, 0, 300, 100}, 72, 72};
    ASSERT_EQ(Print(Numbered(3)), PrintOutcome::Printed);
    ASSERT_EQ(Pages().size(), 3U);
    EXPECT_EQ(Body(2), (std::vector<std::u16string>{u"line 3"}));
}

TEST_F(NotePrintTest, AfterAFailureNoPageIsStartedAndNothingIsPrinted) {
    printer_.failingPage = 2;
    EXPECT_EQ(Print(Numbered(5 * kLinesOnAPage)), PrintOutcome::Failed);
    EXPECT_EQ(Pages().size(), 2U);
    EXPECT_FALSE(Document().printed);
    EXPECT_TRUE(Document().withdrawn);
}

TEST_F(NotePrintTest, WithoutAPrinterNothingIsDone) {
    printer_.opens = PrintOutcome::Failed;
    EXPECT_EQ(Print(u"Buy milk"), PrintOutcome::Failed);
    EXPECT_TRUE(Pages().empty());
}

TEST_F(NotePrintTest, TheQueueShowsTheNotesFirstWords) {
    EXPECT_EQ(PrintDocumentName(u"Buy milk"), u"Buy milk");
    EXPECT_EQ(PrintDocumentName(u"\r\n Buy milk\r\n\tand  bread "), u"Buy milk and bread");
    EXPECT_EQ(PrintDocumentName(u"Remember to buy milk, bread and a new garden hose today"),
              u"Remember to buy milk, bread and a new");
    EXPECT_EQ(PrintDocumentName(std::u16string(50, u'x')), std::u16string(40, u'x'));
    EXPECT_EQ(PrintDocumentName(std::u16string(39, u'x') + u"\U0001F600y"), std::u16string(39, u'x'));
    EXPECT_EQ(PrintDocumentName(u" \r\n "), u"Sticky note");
}

}  // namespace
}  // namespace quillo

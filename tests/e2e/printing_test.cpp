#include <algorithm>

#include "harness/dialogs.h"
#include "harness/e2e_test.h"
#include "harness/popup_menu.h"
#include "harness/test_printer.h"

namespace quillo::e2e {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;
using Page = std::vector<std::string>;

constexpr wchar_t kProblem[] = L"There was a problem printing this sticky note on the default printer.";

class PrintingBase : public OrdinaryTest {
  protected:
    NoteWindow Open(const NoteFile& file) {
        path_ = Profile().AddNote(L"note.qln", file.Bytes());
        Start();
        before_ = MarkOf(path_);
        return FindNote(Quillo(), Widen(file.text));
    }
    void PrintByMenu(const NoteWindow& note) {
        ASSERT_TRUE(note.TakeKeyboard());
        PressKey(VK_APPS);
        const auto menu = PopupMenu::WaitFor(Quillo().Pid());
        ASSERT_TRUE(menu);
        ASSERT_TRUE(menu->ChooseByKeys(static_cast<int>(NoteMenuLine::Print), kNoteMenuLines));
    }
    void ExpectTheProblemTold() {
        const auto box = MessageBoxWindow::WaitFor(Quillo().Pid());
        ASSERT_TRUE(box);
        EXPECT_EQ(box->Title(), L"Quillo");
        EXPECT_EQ(box->Text(), kProblem);
        EXPECT_TRUE(box->ShowsWarningIcon());
        EXPECT_TRUE(box->Answer(IDOK));
        EXPECT_TRUE(Quillo().WaitUntilReady());
        EXPECT_FALSE(MessageBoxWindow::Find(Quillo().Pid()));
    }
    void ExpectTheNoteUnchanged() const { EXPECT_EQ(MarkOf(path_), before_); }

  private:
    std::wstring path_;
    FileMark before_;
};

class PrintingTest : public PrintingBase {};

TEST_F(PrintingTest, AMissingDefaultPrinterIsReported) {
    if (!DefaultPrinter().empty()) GTEST_SKIP() << "there is a default printer";
    const NoteWindow note = Open(NoteFile{"Buy milk"});
    PrintByMenu(note);
    ExpectTheProblemTold();
    EXPECT_EQ(note.Text(), L"Buy milk");
    ExpectTheNoteUnchanged();
}

/// The output of a printer. Needs the one that scripts/check_printing.sh sets up.
class PaperTest : public PrintingBase {
  protected:
    /// The head and the foot of every page. On paper, two blanks look like one.
    static void ExpectFrame(const Page& page, int number, const std::string& dateLine) {
        ASSERT_GE(page.size(), 4U);
        // The page number is level with the heading, far to the right, slightly higher or lower than its ink.
        const std::string head = page[0] + " " + page[1];
        EXPECT_THAT(head, HasSubstr("Sticky note"));
        EXPECT_THAT(head, HasSubstr(std::to_string(number)));
        EXPECT_THAT(page, Contains(HasSubstr(dateLine)));
        EXPECT_EQ(page.back(), "www.marrowind.example");
    }
};

TEST_F(PaperTest, ANoteIsPrintedOnAsManyPagesAsItNeeds) {
    const TestPrinter printer;
    NoteFile file;
    std::vector<std::string> lines;
    for (int i = 1; i <= 130; ++i) {
        lines.push_back("Caf\xC3\xA9 number " + std::to_string(i));
        file.text += "Caf\xE9 number " + std::to_string(i) + "\r\n";
    }
    const std::string word(150, 'm');  // more than a line
    file.text += "A " + word + " end";
    const NoteWindow note = Open(file);
    PrintByMenu(note);
    const std::vector<Page> pages = printer.TakePages();

    ASSERT_EQ(pages.size(), 3U);
    Page body;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        ExpectFrame(pages[i], static_cast<int>(i) + 1, "Printed ");
        for (const std::string& line : pages[i]) {
            if (line.rfind("Caf", 0) == 0) body.push_back(line);
        }
    }
    EXPECT_EQ(body, lines) << "each on a line of its own, in order, none lost between two pages";
    std::string ms;
    for (const std::string& line : pages.back()) {
        if (line.rfind("mm", 0) == 0) ms += line;
    }
    EXPECT_THAT(pages.back(), Contains("A"));
    EXPECT_EQ(ms.substr(0, word.size()), word);
    EXPECT_THAT(printer.DocumentTitle(), HasSubstr("number 1"));
    EXPECT_FALSE(MessageBoxWindow::Find(Quillo().Pid()));
    ExpectTheNoteUnchanged();
}

// Its page is also in the documents: see scripts/printed_page.sh.
TEST_F(PaperTest, ParagraphsAreWrappedBetweenWords) {
    const TestPrinter printer;
    Profile().SetText(L"Note font", L"Arial");
    const std::vector<std::string> paragraphs = {
        "A weekend by the sea",
        "The train leaves at 8:12 from platform 4. Change in the old harbour town, where there is time for a coffee "
        "and a "
        "walk along the quay: the ferry does not sail before eleven.",
        "To take along:",
        "    tickets, keys, the small camera",
        "    raincoats (it will not rain if we have them)",
        "    the book that Ann lent us, and the one that we promised to bring back in spring",
        "On Sunday the museum is closed, the lighthouse is not. From its gallery one sees as far as the islands, they "
        "say, "
        "on a clear day even the church of the village on the other shore. 214 steps, nobody has counted them twice.",
        "Call Bob when we are back."};
    NoteFile file;
    std::string words;
    for (const std::string& paragraph : paragraphs) {
        file.text += paragraph + "\r\n";
        words += (words.empty() ? "" : " ") + paragraph.substr(paragraph.find_first_not_of(' '));
    }
    file.appearance = "False,True,16051936,13871483,0,0";
    PrintByMenu(Open(file));
    const std::vector<Page> pages = printer.TakePages();
    ASSERT_EQ(pages.size(), 1U);
    ExpectFrame(pages[0], 1, "Printed ");
    std::string printed;
    const auto first = std::find(pages[0].begin(), pages[0].end(), paragraphs[0]);
    for (auto line = first; line < pages[0].end() - 1; ++line) printed += (printed.empty() ? "" : " ") + *line;
    EXPECT_EQ(printed, words);
    EXPECT_GT(pages[0].end() - 1 - first, static_cast<std::ptrdiff_t>(paragraphs.size())) << "some take two lines";
}

TEST_F(PaperTest, AReminderIsPrintedWithItsDateInsteadOfToday) {
    const TestPrinter printer;
    NoteFile file{"Call Bob"};
    file.reminder = "#402133.25";
    PrintByMenu(Open(file));
    const std::vector<Page> pages = printer.TakePages();
    ASSERT_EQ(pages.size(), 1U);
    ExpectFrame(pages[0], 1, "Reminder: 12/31/3000 6:00:00 AM");
    EXPECT_THAT(pages[0], Not(Contains(HasSubstr("Printed"))));
    EXPECT_THAT(pages[0], Contains("Call Bob"));
    EXPECT_THAT(printer.DocumentTitle(), HasSubstr("Call Bob"));
}

TEST_F(PaperTest, AnEmptyNotePrintsOnePage) {
    const TestPrinter printer;
    PrintByMenu(Open(NoteFile{""}));
    const std::vector<Page> pages = printer.TakePages();
    ASSERT_EQ(pages.size(), 1U);
    ExpectFrame(pages[0], 1, "Printed ");
}

TEST_F(PaperTest, AnUnreachablePrinterIsReported) {
    const TestPrinter printer(L"Z:\\there is no such folder\\port.ps");
    const NoteWindow note = Open(NoteFile{"Buy milk"});
    PrintByMenu(note);
    ExpectTheProblemTold();
    EXPECT_FALSE(printer.HasPrinted());
    ExpectTheNoteUnchanged();
}

}  // namespace
}  // namespace quillo::e2e

#include "platform/win_printer.h"

#include <gtest/gtest.h>

#include "harness/test_printer.h"
#include "platform/win32.h"
#include "util/busy_flag.h"

namespace quillo::windows_tests {
namespace {

TEST(WinPrinter, WithoutADefaultPrinterTheJobHasFailedFromTheStart) {
    if (!e2e::DefaultPrinter().empty()) GTEST_SKIP() << "there is a default printer";
    BusyFlag dialogs;
    WinPrinter printer(dialogs);
    std::unique_ptr<PrintJob> job = printer.Open(u"Buy milk");
    ASSERT_NE(job, nullptr);
    EXPECT_FALSE(job->StartPage());
    EXPECT_EQ(job->Finish(), PrintOutcome::Failed);
    EXPECT_TRUE(dialogs.IsSet());
    job.reset();
    EXPECT_FALSE(dialogs.IsSet());
}

/// Uses the printer that scripts/check_printing.sh sets up.
class PaperTest : public ::testing::Test {
  protected:
    std::unique_ptr<PrintJob> StartLine(std::u16string_view text) {
        std::unique_ptr<PrintJob> job = printer_.Open(text);
        EXPECT_TRUE(job->StartPage());
        job->SetFont(PrintFont{u"Arial", 12});
        job->Text(Point{600, 600}, text);
        job->EndPage();
        return job;
    }

    e2e::TestPrinter paper_;
    BusyFlag dialogs_;
    WinPrinter printer_{dialogs_};
};

TEST_F(PaperTest, AFinishedDocumentIsPrintedUnderItsName) {
    const std::unique_ptr<PrintJob> job = StartLine(u"Buy milk");
    EXPECT_EQ(job->Finish(), PrintOutcome::Printed);
    EXPECT_EQ(paper_.TakePages(), (std::vector<std::vector<std::string>>{{"Buy milk"}}));
    EXPECT_NE(paper_.DocumentTitle().find("Buy milk"), std::string::npos);
}

TEST_F(PaperTest, ADocumentThatIsNotFinishedIsWithdrawn) {
    StartLine(u"Half a note").reset();
    EXPECT_EQ(StartLine(u"A whole note")->Finish(), PrintOutcome::Printed);
    EXPECT_EQ(paper_.TakePages(), (std::vector<std::vector<std::string>>{{"A whole note"}}));
    EXPECT_EQ(paper_.Documents(), 1U) << "nothing of the first came out before";
}

TEST_F(PaperTest, TheSheetHasThePaperAndItsPrintableArea) {
    const std::unique_ptr<PrintJob> job = printer_.Open(u"");
    const PrintSheet sheet = job->Sheet();
    EXPECT_EQ(sheet.dotsPerInchAcross, 600);
    EXPECT_EQ(sheet.dotsPerInchDown, 600);
    EXPECT_EQ(sheet.paper, (Size{5100, 6600}));
    EXPECT_EQ(sheet.printable, (Rect{150, 150, 4800, 6300}));
}

TEST_F(PaperTest, TextIsMeasuredInDotsOfThePrinter) {
    const std::unique_ptr<PrintJob> job = printer_.Open(u"");
    job->SetFont(PrintFont{u"Arial", 72});
    const Size wide = job->Measure(u"Wg");
    EXPECT_GT(wide.height, 600) << "a line is a little higher than its font";
    EXPECT_LT(wide.height, 900);
    const std::u16string_view word = u"measured";
    const int width = job->Measure(word).width;
    EXPECT_EQ(job->CountThatFit(word, width), word.size());
    EXPECT_LT(job->CountThatFit(word, width / 2), word.size());
    EXPECT_GT(job->CountThatFit(word, width / 2), 0U);
}

}  // namespace
}  // namespace quillo::windows_tests

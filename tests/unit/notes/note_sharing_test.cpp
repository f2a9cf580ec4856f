#include "open_note_fixture.h"

namespace quillo {
namespace {

/// A note that is printed or mailed.
class NoteSharingTest : public OpenNoteTest {
  protected:
    NoteSharingTest() {
        EXPECT_TRUE(note_.SetText(u"Buy milk"));
        note_.Popup();
        before_ = note_.Data();
    }
    /// Neither its data nor its text has changed, and nothing was written.
    void ExpectUnchanged() {
        EXPECT_FALSE(note_.Data().Changed);
        EXPECT_EQ(note_.Data().StoragePath, before_.StoragePath);
        EXPECT_EQ(note_.Data().FileName, before_.FileName);
        EXPECT_GE(owner_.savesAsked, 1) << "unsaved notes are saved before a call that may block";
        EXPECT_EQ(files_.FileCount(), 0U);
    }

  private:
    Note before_;
};

TEST_F(NoteSharingTest, PrintsUnderItsFirstWords) {
    note_.Perform(NoteAction::Print);
    ASSERT_EQ(printer_.documents.size(), 1U);
    EXPECT_EQ(printer_.documents[0].name, u"Buy milk");
    EXPECT_TRUE(printer_.documents[0].printed);
    EXPECT_TRUE(notice_.warnings.empty());
    ExpectUnchanged();
}

TEST_F(NoteSharingTest, AnyFailureOfThePrinterIsReportedOnce) {
    printer_.opens = PrintOutcome::Failed;
    note_.Perform(NoteAction::Print);
    printer_.opens = PrintOutcome::Printed;
    printer_.failingPage = 1;
    note_.Perform(NoteAction::Print);
    const std::u16string text = u"There was a problem printing this sticky note on the default printer.";
    EXPECT_EQ(notice_.warnings, (std::vector<std::u16string>{text, text}));
    ExpectUnchanged();
}

TEST_F(NoteSharingTest, AFailedJobIsWithdrawnBeforeItIsReported) {
    bool withdrawn = false;
    notice_.onWarn = [&] { withdrawn = printer_.documents.back().withdrawn; };
    printer_.failingPage = 1;
    note_.Perform(NoteAction::Print);
    EXPECT_TRUE(withdrawn);
    bool closed = false;
    notice_.onWarn = [&] { closed = mail_.calls.back() == "close"; };
    mail_.signsOn = MailSignOn::Failed;
    note_.Perform(NoteAction::Mail);
    EXPECT_TRUE(closed);
}

TEST_F(NoteSharingTest, PrintingThatTheUserCancelsIsNotAnError) {
    printer_.opens = PrintOutcome::Canceled;
    note_.Perform(NoteAction::Print);
    EXPECT_TRUE(notice_.warnings.empty());
}

TEST_F(NoteSharingTest, MailsItselfInAMessage) {
    note_.Perform(NoteAction::Mail);
    ASSERT_EQ(mail_.sent.size(), 1U);
    EXPECT_EQ(mail_.sent[0].subject, "Buy milk");
    EXPECT_TRUE(notice_.warnings.empty());
    ExpectUnchanged();
}

TEST_F(NoteSharingTest, OnlyAnEmptyTextIsNotMailed) {
    ASSERT_TRUE(note_.SetText(u""));
    note_.Perform(NoteAction::Mail);
    EXPECT_TRUE(mail_.calls.empty()) << "the mail system is not even asked";
    ASSERT_TRUE(note_.SetText(u" "));
    note_.Perform(NoteAction::Mail);
    EXPECT_EQ(mail_.sent.size(), 1U);
}

TEST_F(NoteSharingTest, MissingMailIsReported) {
    mail_.isMissing = true;
    note_.Perform(NoteAction::Mail);
    EXPECT_EQ(notice_.warnings, (std::vector<std::u16string>{
                                    u"Quillo is missing one of the files that it needs in order to send mail.  Please "
                                    u"reinstall Quillo.  In the meantime, you will not be able to send mail from "
                                    u"Quillo."}));
    ExpectUnchanged();
}

TEST_F(NoteSharingTest, AMissingMailProgramIsReportedOnce) {
    mail_.signsOn = MailSignOn::Failed;
    note_.Perform(NoteAction::Mail);
    EXPECT_EQ(notice_.warnings,
              (std::vector<std::u16string>{
                  u"Quillo could not send this note because no mail program answered.  Please make sure that you have "
                  u"a default mail program.  The note itself was not changed."}));
    ExpectUnchanged();
}

TEST_F(NoteSharingTest, ANoteThatCannotBeAttachedIsReported) {
    files_.FailWrites(true);
    note_.Perform(NoteAction::Mail);
    EXPECT_EQ(notice_.warnings,
              (std::vector<std::u16string>{u"Quillo was unable to save this note to a file, so it was not sent.  The "
                                           u"note itself was not changed."}));
}

TEST_F(NoteSharingTest, ClosedWhileTheMessageIsOpenTheNoteStaysClosed) {
    mail_.whileSending = [this](const MailMessage& /*message*/) { note_.DestroyNote(); };
    note_.Perform(NoteAction::Mail);
    EXPECT_TRUE(view_.IsClosed());
    EXPECT_EQ(files_.FileCount(), 0U) << "the attachment is deleted all the same";
}

}  // namespace
}  // namespace quillo

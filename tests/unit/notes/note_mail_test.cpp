#include "notes/note_mail.h"

#include <gtest/gtest.h>

#include <string>

#include "app/base/note_names.h"
#include "app/base/settings.h"
#include "notes/note_codec.h"
#include "notes/note_store.h"
#include "testing/fake_file_store.h"
#include "testing/fake_locale_text.h"
#include "testing/fake_shell.h"
#include "testing/recording_mail.h"

namespace quillo {
namespace {

/// A text of that many characters, with a line break near its beginning.
std::u16string TextOf(std::size_t length) {
    std::u16string text = u"Buy milk\r\nand ";
    for (std::size_t i = 0; text.size() < length; ++i) text += static_cast<char16_t>(u'a' + i % 26);
    return text;
}

TEST(MailSubjectTest, IsTheTextUnlessThatIsLong) {
    for (const std::size_t length : {14U, 61U, 62U, 64U}) {
        EXPECT_EQ(MailSubject(TextOf(length)), TextOf(length)) << length;
    }
    for (const std::size_t length : {65U, 66U, 1000U}) {
        EXPECT_EQ(MailSubject(TextOf(length)), TextOf(length).substr(0, 61) + u"...") << length;
    }
    EXPECT_EQ(MailSubject(u"   "), u"   ");
}

TEST(MailSubjectTest, EndsWithNoHalfOfACharacter) {
    const std::u16string text = std::u16string(60, u'x') + u"\U0001F600 and more";
    EXPECT_EQ(MailSubject(text), std::u16string(60, u'x') + u"...");
}

TEST(MailBodyTest, IsTheTextAndInstructionsForTheReceiver) {
    EXPECT_EQ(MailBody(u"Buy milk\r\nand bread"),
              u"Buy milk\r\nand bread\r\n\r\n\r\n"
              u"------------------------------------------------------------\r\n"
              u"This message has a sticky note attached to it.  To view the sticky note, you will need Quillo.  You "
              u"can get it at www.marrowind.example -- it's free!\r\n");
}

class SendMailTest : public ::testing::Test {
  protected:
    MailResult Send(std::u16string text) {
        const std::unique_ptr<MailSession> session = mail_.NewSession();
        NoteFile note;
        note.text = std::move(text);
        return SendMail(*session, store_, note, locale_);
    }

    FakeFileStore files_;
    FakeLocaleText locale_;
    FakeShell shell_{files_};
    Settings settings_;
    NoteNames names_{files_, shell_, settings_};
    const std::u16string folder_ = u"C:\\Data\\Notes";
    NoteStore store_{files_, locale_, shell_, names_, folder_};
    RecordingMail mail_;
};

TEST_F(SendMailTest, AttachesTheNoteAtTheBodysLastCharacter) {
    std::string attached;
    mail_.whileSending = [&](const MailMessage& message) {
        attached = files_.Read(message.attachmentPath).value_or("(none)");
    };
    EXPECT_EQ(Send(u"caf\u00E9"), MailResult::Done);
    ASSERT_EQ(mail_.sent.size(), 1U);
    const MailMessage& message = mail_.sent[0];
    EXPECT_EQ(message.subject, "caf\xE9");
    EXPECT_EQ(message.body, locale_.ToNarrow(MailBody(u"caf\u00E9")));
    EXPECT_EQ(message.attachmentPosition, message.body.size() - 1);
    EXPECT_EQ(message.body[message.attachmentPosition], '\n');
    EXPECT_EQ(message.attachmentName, "Sticky note.qln");
    EXPECT_EQ(attached, "caf\xE9\r\n<quillo><reminder></reminder><nodelete></nodelete></quillo>");
}

TEST(NoteMail, TheBodyIsTheWholeTextEvenIfTheSubjectIsCut) {
    for (const std::size_t length : {61U, 62U, 64U, 65U, 66U}) {
        const std::u16string text = std::u16string(length - 2, u'x') + u"\r\n";
        EXPECT_EQ(MailBody(text), text + MailBody(u"")) << length;
    }
    EXPECT_EQ(MailSubject(std::u16string(60, u'x') + u"\r\nand more"), std::u16string(60, u'x') + u"\r...");
}

TEST_F(SendMailTest, DeletesTheFileBeforeItSignsOff) {
    std::size_t left = 99;
    mail_.whileSigningOff = [&] { left = files_.FileCount(); };
    EXPECT_EQ(Send(u"Buy milk"), MailResult::Done);
    EXPECT_EQ(mail_.calls, (std::vector<std::string>{"sign on", "send", "sign off", "close"}));
    EXPECT_FALSE(files_.FileExists(mail_.sent[0].attachmentPath));
    EXPECT_EQ(left, 0U);
}

TEST_F(SendMailTest, WithoutSigningOnNothingIsSentAndNoFileRemains) {
    mail_.signsOn = MailSignOn::Failed;
    EXPECT_EQ(Send(u"Buy milk"), MailResult::NoAnswer);
    mail_.signsOn = MailSignOn::Canceled;
    EXPECT_EQ(Send(u"Buy milk"), MailResult::Done) << "the user has seen to that";
    EXPECT_TRUE(mail_.sent.empty());
    EXPECT_EQ(mail_.calls, (std::vector<std::string>{"sign on", "close", "sign on", "close"}));
    EXPECT_EQ(files_.FileCount(), 0U);
}

TEST_F(SendMailTest, ANoteThatCannotBeWrittenIsNotSent) {
    files_.FailWrites(true);
    EXPECT_EQ(Send(u"Buy milk"), MailResult::NotSaved);
    EXPECT_EQ(mail_.calls, (std::vector<std::string>{"close"}));
}

}  // namespace
}  // namespace quillo

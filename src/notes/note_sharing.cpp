#include "notes/note_sharing.h"

#include <memory>

#include "notes/note_codec.h"
#include "notes/note_mail.h"
#include "notes/note_print.h"
#include "ports/clock.h"
#include "ports/mail_session.h"
#include "ports/printer.h"
#include "ports/user_notice.h"

namespace quillo {

namespace {

constexpr std::u16string_view kPrintProblem = u"There was a problem printing this sticky note on the default printer.";
constexpr std::u16string_view kMailIsMissing =
    u"Quillo is missing one of the files that it needs in order to send mail.  Please reinstall Quillo.  In the "
    u"meantime, you will not be able to send mail from Quillo.";
constexpr std::u16string_view kNoMailProgram =
    u"Quillo could not send this note because no mail program answered.  Please make sure that you have a default mail "
    u"program.  The note itself was not changed.";
constexpr std::u16string_view kMailNotSaved =
    u"Quillo was unable to save this note to a file, so it was not sent.  The note itself was not changed.";

}  // namespace

void NoteSharing::Print(const Note& note, std::u16string_view text, const FontSetting& font) {
    const PrintedNote printed = MakePrintedNote(text, note, font, dates_.clock.Now(), dates_.locale);
    std::unique_ptr<PrintJob> job = printer_.Open(PrintDocumentName(text));
    const PrintOutcome outcome = PrintPages(*job, printed);
    job.reset();  // a failed job is withdrawn before the message is shown
    if (outcome == PrintOutcome::Failed) notice_.Warn(kPrintProblem);
}

void NoteSharing::Mail(const NoteFile& content) {
    if (content.text.empty()) return;
    std::unique_ptr<MailSession> session = mail_.NewSession();
    if (!session) return notice_.Warn(kMailIsMissing);
    const MailResult result = SendMail(*session, store_, content, dates_.locale);
    session.reset();
    if (result == MailResult::NotSaved) notice_.Warn(kMailNotSaved);
    if (result == MailResult::NoAnswer) notice_.Warn(kNoMailProgram);
}

}  // namespace quillo

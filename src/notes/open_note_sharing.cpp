// Printing and mailing a note.
#include <memory>

#include "notes/note_mail.h"
#include "notes/note_print.h"
#include "notes/open_note.h"
#include "ports/clock.h"
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

void OpenNote::PrintNote() {
    world_.owner.SaveUnsavedNotes();
    const std::u16string text = view_->Text();
    const PrintedNote printed =
        MakePrintedNote(text, note_, world_.settings.noteFont, world_.clock.Now(), world_.locale);
    std::unique_ptr<PrintJob> job = world_.printer.Open(PrintDocumentName(text));
    const PrintOutcome outcome = PrintPages(*job, printed);
    job.reset();  // a failed job is withdrawn before the message is shown
    if (outcome == PrintOutcome::Failed) world_.notice.Warn(kPrintProblem);
}

void OpenNote::MailNote() {
    world_.owner.SaveUnsavedNotes();
    const NoteFile content = Content();
    if (content.text.empty()) return;
    std::unique_ptr<MailSession> session = world_.mail.NewSession();
    if (!session) return world_.notice.Warn(kMailIsMissing);
    const MailResult result = SendMail(*session, world_.store, content, world_.locale);
    session.reset();
    if (result == MailResult::NotSaved) world_.notice.Warn(kMailNotSaved);
    if (result == MailResult::NoAnswer) world_.notice.Warn(kNoMailProgram);
}

}  // namespace quillo

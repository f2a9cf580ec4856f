#include "notes/note_mail.h"

#include "app/base/app_identity.h"
#include "notes/note_codec.h"
#include "notes/note_store.h"
#include "ports/locale_text.h"
#include "util/unicode.h"

namespace quillo {

namespace {

// Intended that they differ: a text that is only slightly too long is not cut for three dots.
constexpr std::size_t kCutFrom = 65;
constexpr std::size_t kCutTo = 61;

constexpr std::size_t kDashes = 60;
constexpr std::u16string_view kInvitation =
    u"This message has a sticky note attached to it.  To view the sticky note, you will need Quillo.  You can get it "
    u"at ";
constexpr std::u16string_view kPrice = u" -- it's free!";
constexpr std::u16string_view kAttachmentName = u"Sticky note.qln";

}  // namespace

std::u16string MailSubject(std::u16string_view text) {
    if (text.size() < kCutFrom) return std::u16string(text);
    return std::u16string(CutText(text, kCutTo)) + u"...";
}

std::u16string MailBody(std::u16string_view text) {
    std::u16string body(text);
    body.append(u"\r\n\r\n\r\n").append(kDashes, u'-').append(u"\r\n");
    return body.append(kInvitation).append(kMakerHost).append(kPrice).append(u"\r\n");
}

MailMessage ComposeMail(std::u16string_view text, std::u16string_view notePath, LocaleText& locale) {
    MailMessage message;
    message.subject = locale.ToNarrow(MailSubject(text)).value_or(std::string());
    message.body = locale.ToNarrow(MailBody(text)).value_or(" ");
    message.attachmentPosition = message.body.size() - 1;
    message.attachmentName = locale.ToNarrow(kAttachmentName).value_or(std::string());
    message.attachmentPath = notePath;
    return message;
}

MailResult SendMail(MailSession& session, NoteStore& store, const NoteFile& note, LocaleText& locale) {
    const std::u16string path = store.SaveTemporaryFile(note);
    if (path.empty()) return MailResult::NotSaved;
    const MailSignOn signOn = session.SignOn();
    if (signOn == MailSignOn::Done) session.Send(ComposeMail(note.text, path, locale));
    store.DeleteTemporaryFile(path);
    if (signOn == MailSignOn::Done) session.SignOff();
    return signOn == MailSignOn::Failed ? MailResult::NoAnswer : MailResult::Done;
}

}  // namespace quillo

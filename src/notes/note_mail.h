#pragma once

#include <string>
#include <string_view>

#include "ports/mail_session.h"

namespace quillo {

class LocaleText;
class NoteStore;
struct NoteFile;

/// The text; a long one is cut and ends in an ellipsis. Line breaks stay in it.
[[nodiscard]] std::u16string MailSubject(std::u16string_view text);
/// The text, and below it what the receiver can do with the attached note.
[[nodiscard]] std::u16string MailBody(std::u16string_view text);
/// A message with the note's file attached at the body's last character.
[[nodiscard]] MailMessage ComposeMail(std::u16string_view text, std::u16string_view notePath, LocaleText& locale);

enum class MailResult {
    Done,      ///< sent, or discarded by the user
    NotSaved,  ///< the note's file could not be written
    NoAnswer,  ///< no mail program accepted the sign-on
};

/// Writes the note to a temporary file, gives it to the user in the mail program's window, and deletes the file again.
/// Messages are pumped meanwhile: the note may be closed afterwards.
[[nodiscard]] MailResult SendMail(MailSession& session, NoteStore& store, const NoteFile& note, LocaleText& locale);

}  // namespace quillo

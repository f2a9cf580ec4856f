#pragma once

#include <string_view>

#include "ports/date_services.h"

namespace quillo {

class MailSystem;
class NoteStore;
class Printer;
class UserNotice;
struct FontSetting;
struct Note;
struct NoteFile;

/// Prints and mails notes, without changing them, and reports failures to the user. Each call pumps messages: the note
/// may be closed afterwards. One object serves all notes.
class NoteSharing {
  public:
    NoteSharing(Printer& printer, MailSystem& mail, NoteStore& store, DateServices dates, UserNotice& notice)
        : printer_(printer), mail_(mail), store_(store), dates_(dates), notice_(notice) {}

    /// Prints the note on the default printer; `text` and `font` are those of its text box.
    void Print(const Note& note, std::u16string_view text, const FontSetting& font);
    /// Passes the note to the user's mail program, as the attachment of a new message. Does nothing with an empty note.
    void Mail(const NoteFile& content);

  private:
    Printer& printer_;
    MailSystem& mail_;
    NoteStore& store_;
    DateServices dates_;
    UserNotice& notice_;
};

}  // namespace quillo

#include <algorithm>

#include "commands.h"
#include "controls/swatch_palette.h"
#include "export_notes.h"
#include "json_notes.h"
#include "note_maker.h"
#include "notes/note_commands.h"
#include "reminders/reminder_phrase.h"
#include "reminders/reminder_text.h"
#include "util/unicode.h"
#include "words.h"

namespace quillo::qln {
namespace {

/// The size in UTF-8 of the longest possible note.
constexpr std::size_t kLongestInput = kMostNoteCharacters * 3;

std::string Joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
    return text;
}

/// A last line break belongs to the file or the pipe, not to the text.
std::string_view WithoutLastBreak(std::string_view bytes) {
    if (!bytes.empty() && bytes.back() == '\n') bytes.remove_suffix(1);
    if (!bytes.empty() && bytes.back() == '\r') bytes.remove_suffix(1);
    return bytes;
}

/// The text of the new note; nothing after an error message.
std::optional<std::u16string> NewText(const Session& session) {
    const std::vector<std::string>& words = session.options.words;
    const bool fromInput = words.size() == 1 && words.front() == "-";
    const std::string bytes = fromInput ? session.Terminal().ReadInput(kLongestInput) : Joined(words);
    std::string error;
    auto text = TextForNote(fromInput ? WithoutLastBreak(bytes) : std::string_view(bytes), error);
    if (!text) Complain(session.Terminal(), "the text is refused: " + error);
    return text;
}

/// The colors that the user requested, else those of any new note; nothing after an error message.
std::optional<NoteAppearance> NewAppearance(const Session& session) {
    const Settings& settings = session.place.settings;
    NoteAppearance look{false,
                        false,
                        settings.noteColor,
                        settings.noteBorderColor,
                        settings.noteTextColor,
                        session.options.hidden ? WindowState::Hidden : WindowState::Shown};
    const ColorScheme* scheme = nullptr;
    if (!session.options.color.empty()) {
        const auto named = SchemeNamed(session.options.color);
        if (!named) {
            std::string names;
            for (std::size_t i = 0; i < kSwatches.size(); ++i) names += (i == 0 ? "" : ", ") + SchemeName(i);
            Complain(session.Terminal(), "there is no color " + session.options.color + "; there are " + names);
            return std::nullopt;
        }
        scheme = &kSwatches[*named];
    } else if (settings.randomNoteColor) {
        scheme = &RandomScheme(session.host.Chance());
    }
    if (scheme != nullptr) {
        look.ownColors = true;
        look.noteColor = scheme->note;
        look.borderColor = scheme->border;
        look.textColor = scheme->text;
    }
    return look;
}

/// Sets the requested reminder and says how it was understood; false after an error message.
bool TakeReminder(const Session& session, NoteFile& file) {
    if (session.options.remind.empty()) return true;
    LocaleText& locale = *session.place.locale;
    const std::u16string phrase = DecodeUtf8(session.options.remind, LoneSurrogates::Accept).value_or(std::u16string());
    const ReminderPhrase read = ParseReminderPhrase(phrase, session.host.Time().Now(), locale);
    if (!read.when) {
        Complain(session.Terminal(), ToUtf8(read.message));
        return false;
    }
    file.reminder = NoteReminder{read.when};
    session.Terminal().Error("Reminder: " + ToUtf8(PreviewText(*read.when, locale)) + "\n");
    return true;
}

/// The notes in one file: those of an export, or the file's text; nothing after an error message.
std::optional<std::vector<NoteFile>> NotesOfFile(const Session& session, const std::string& path) {
    const auto refuse = [&](const std::string& reason) {
        Complain(session.Terminal(), HarmlessName(path) + " is refused: " + reason);
        return std::nullopt;
    };
    const auto bytes = ReadBytes(path);
    if (!bytes) return refuse("it cannot be read");
    std::string error;
    if (path.ends_with(".json")) {
        auto notes = NotesFromJson(*bytes, error);
        if (!notes) return refuse(error);
        for (const NoteFile& note : *notes) {
            if (note.text.size() > kMostNoteCharacters) return refuse("a text is longer than a note can be");
        }
        return notes;
    }
    const auto text = TextForNote(*bytes, error);
    if (!text) return refuse(error);
    std::vector<std::u16string> texts;
    if (auto several = TextsFromMarkdown(*text)) {
        texts = *std::move(several);
    } else {
        texts.push_back(*TextForNote(WithoutLastBreak(*bytes), error));
    }
    std::vector<NoteFile> notes;
    for (const std::u16string& one : texts) {
        NoteFile note;
        note.text = WithLineBreaks(one);
        note.appearance = NewAppearance(session);
        notes.push_back(std::move(note));
    }
    return notes;
}

}  // namespace

int New(const Session& session) {
    NoteFile file;
    const auto text = NewText(session);
    if (!text) return kWrongUse;
    if (session.place.settings.timestampNewNotes) {
        file.text = TimeStampText(session.host.Time().Now(), *session.place.locale);
    }
    file.text += *text;
    file.appearance = NewAppearance(session);
    if (!file.appearance || !TakeReminder(session, file)) return kWrongUse;
    NoteMaker maker(session);
    if (!maker.CanMakeNote()) return kFailed;
    const std::string path = maker.Store(file);
    if (path.empty()) return kFailed;
    session.Terminal().Out(path + "\n");
    maker.Announce();
    return kDone;
}

int Import(const Session& session) {
    // All files are read first: if one is refused, no note is created from any of them.
    std::vector<NoteFile> notes;
    for (const std::string& path : session.options.words) {
        auto read = NotesOfFile(session, path);
        if (!read) return kWrongUse;
        notes.insert(notes.end(), read->begin(), read->end());
    }
    NoteMaker maker(session);
    int code = kDone;
    for (const NoteFile& note : notes) {
        if (!maker.CanMakeNote()) {
            Complain(session.Terminal(), std::to_string(notes.size() - maker.Made().size()) + " of " +
                                             std::to_string(notes.size()) + " notes are over the limit, from \"" +
                                             ToUtf8(FirstWords(note.text, 40)) + "\" on");
            code = kFailed;
            break;
        }
        const std::string path = maker.Store(note);
        if (path.empty()) {
            code = kFailed;
            break;
        }
        session.Terminal().Out(path + "\n");
    }
    maker.Announce();
    return code;
}

int OpenFile(const Session& session) {
    const std::string& path = session.options.words.front();
    if (!IsFile(path)) {
        Complain(session.Terminal(), "there is no file " + HarmlessName(path));
        return kNothingFound;
    }
    Channel& channel = *session.place.channel;
    const auto named = channel.PathForProgram(AbsolutePath(path));
    if (named && channel.Answers() && channel.Send(*named)) return kDone;
    Complain(session.Terminal(), "Quillo does not answer");
    return kFailed;
}

int Quit(const Session& session) {
    Channel& channel = *session.place.channel;
    if (channel.Answers() && channel.Send("/close")) return kDone;
    Complain(session.Terminal(), "Quillo does not answer");
    return kFailed;
}

}  // namespace quillo::qln

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/base/hints.h"
#include "app/base/note_names.h"
#include "app/late_notes.h"
#include "app/legacy_import.h"
#include "app/note_opening.h"
#include "app/program.h"
#include "app/quit.h"
#include "app/recovery.h"
#include "app/save_all.h"
#include "app/startup.h"
#include "notes/note_batch.h"
#include "notes/note_sharing.h"
#include "notes/note_store.h"
#include "testing/fake_clock.h"
#include "testing/fake_file_store.h"
#include "testing/fake_locale_text.h"
#include "testing/fake_note_window.h"
#include "testing/fake_random.h"
#include "testing/fake_registry_api.h"
#include "testing/fake_shell.h"
#include "testing/fake_timers.h"
#include "testing/fake_user_notice.h"
#include "testing/recording_mail.h"
#include "testing/recording_printer.h"
#include "util/numbers.h"
#include "util/path_text.h"

namespace quillo {

inline constexpr std::u16string_view kTestNotesFolder = u"C:\\Users\\ann\\AppData\\Local\\Marrowind\\Notes";
inline constexpr std::u16string_view kTestDesktop = u"C:\\Users\\ann\\Desktop";

/// The application core on fakes: a running program without notes, an existing notes folder and plain colors.
class TestProgram {
  public:
    TestProgram() {
        files.PutFolder(kTestNotesFolder);
        program.notesFolder = kTestNotesFolder;
        program.settings.randomNoteColor = false;
        program.settings.noteFolder = kTestDesktop;
    }

    /// A full path in the notes folder.
    [[nodiscard]] static std::u16string Stored(std::u16string_view name) { return JoinPath(kTestNotesFolder, name); }
    /// The storage copies on the disk.
    [[nodiscard]] std::vector<std::u16string> StoredFiles() {
        std::vector<std::u16string> paths;
        for (const FileEntry& file : files.List(kTestNotesFolder, kNoteExtension)) paths.push_back(file.path);
        return paths;
    }
    [[nodiscard]] Startup MakeStartup(StartupStage& stage) {
        return {stage, StartupServices{program, registry, files, shell, notice},
                StartupNotes{services, opening, legacy, late, recovery, batch}};
    }
    void FillUpTo(std::size_t count) {
        while (program.openNotes.Count() < count) {
            if (program.openNotes.Add(services, Key(program.openNotes.Count())) == nullptr) return;
        }
    }

    FakeRegistryApi registry;
    FakeFileStore files;
    FakeShell shell{files};
    FakeLocaleText locale;
    FakeUserNotice notice;
    FakeClock clock;
    FakeRandom random;
    RecordingPrinter printer;
    RecordingMail mail;
    FakeTimers timers;  // before the notes, which use its timers
    FakeNoteWindows views;
    Program program{views};
    NoteNames names{files, shell, program.settings};
    NoteStore store{files, locale, shell, names, program.notesFolder};
    DateServices dates{clock, locale};
    Hints hints{notice, program.settings, program.os, registry};
    SaveFailures failures{hints};
    NoteSharing sharing{printer, mail, store, dates, notice};
    NoteServices services{program.settings, {store, timers, failures}, dates, notice, hints, sharing};
    LegacyNotes legacy{registry, program.openNotes, random};
    SaveAll saveAll{program.openNotes, legacy, store};
    NoteBatch batch;
    NoteOpening opening{program, services, random, saveAll};
    LateNotes late{opening, timers, hints};
    Recovery recovery{store, locale, program.notesFolder};
    Quit quit{program, saveAll, legacy, store, registry, notice};

  private:
    [[nodiscard]] static std::u16string Key(std::size_t number) {
        return u"filler " + FormatInteger(static_cast<std::int64_t>(number));
    }
};

}  // namespace quillo

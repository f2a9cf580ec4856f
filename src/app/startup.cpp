#include "app/startup.h"

#include <utility>

#include "app/base/hints.h"
#include "app/base/note_names.h"
#include "app/base/notes_folder.h"
#include "app/base/registry_keys.h"
#include "app/base/settings_table.h"
#include "app/command_line.h"
#include "app/late_notes.h"
#include "app/legacy_import.h"
#include "app/note_opening.h"
#include "app/program.h"
#include "app/recovery.h"
#include "notes/note_batch.h"
#include "ports/file_store.h"
#include "ports/shell.h"
#include "ports/user_notice.h"
#include "registry/tessel_registry.h"
#include "util/attempt.h"
#include "util/ignore.h"
#include "util/path_text.h"
#include "util/text.h"

namespace quillo {

namespace {

// The colors of the first run, which differ from those of the settings.
constexpr ColorWord kFirstNoteColor{0xC0FFFF};
constexpr ColorWord kFirstBorderColor{0xC0FF};
constexpr ColorWord kFirstTextColor{0};

}  // namespace

StartupOutcome Startup::Run(std::u16string_view commandLine) {
    Program& program = services_.program;
    if (stage_.AnotherInstanceRuns()) {
        const std::u16string message = CommandLineToSend(commandLine, services_.shell);
        if (!message.empty()) stage_.SendToRunningInstance(message);
        return StartupOutcome::EndProcess;
    }
    program.startingUp = true;
    if (ClassifyFirstStart(commandLine).kind == Command::Kind::Close) return StartupOutcome::EndProcess;

    ReadSystem();
    TesselRegistry registry(services_.registry);
    program.settings.useRoamingProfile = LoadUseRoamingProfile(registry);
    RegisterToStartWithWindows();
    LoadSettings(registry, services_.shell, services_.files, program.settings);
    if (!FindNotesFolder()) return StartupOutcome::EndProcess;
    Try([this] { stage_.LoadMainForm(); });
    Try([&] { ApplySettingsToAllNotes(program.openNotes); });
    Try([this] { GreetFirstRun(); });
    Try([this] { FinishEarlierRuns(); });
    Try([this] {
        if (OpenSavedNotes()) ReportHiddenNotes();
    });
    program.loadingNotes = false;
    Try([&] { CarryOut(commandLine); });
    program.startingUp = false;
    return StartupOutcome::Running;
}

void Startup::ReadSystem() {
    stage_.InitializeShell();
    stage_.RegisterLinkFormat();
    services_.program.os = stage_.ReadOsFacts();
    stage_.LoadNotifyWindow();
}

void Startup::RegisterToStartWithWindows() {
    TesselRegistry run(services_.registry, kRunKey);
    const std::u16string path = services_.shell.ProgramPath();
    if (run.Value(kRunValue) != path) run.SetValue(kRunValue, path);
}

bool Startup::FindNotesFolder() {
    Program& program = services_.program;
    program.notesFolder = PrepareNotesFolder(services_.shell, services_.files, program.settings.useRoamingProfile);
    if (!program.notesFolder.empty()) return true;
    services_.notice.Fail(u"Quillo cannot start because it can't find a place to store your notes.");
    return false;
}

void Startup::GreetFirstRun() {
    Settings& settings = services_.program.settings;
    if (settings.shownHelp) return;
    settings.shownHelp = true;
    TesselRegistry registry(services_.registry, kUserKey);
    registry.SetValueLong(setting::kShownHelp, kTrueNumber);
    settings.noteColor = kFirstNoteColor;
    settings.noteBorderColor = kFirstBorderColor;
    settings.noteTextColor = kFirstTextColor;
    OpenHelp(services_.shell);
}

/// True if a note of the old store is not visible. Notes of files never count.
bool Startup::OpenSavedNotes() {
    Program& program = services_.program;
    const NoteBatch::Scope batch(notes_.batch);
    bool anyHidden = false;
    program.loadingNotes = true;
    Try([&] { anyHidden = notes_.legacy.Import(notes_.services); });
    Try([this] { OpenNoteFiles(); });
    program.loadingNotes = false;
    Try([this] { notes_.legacy.SaveImported(); });
    Try([this] {
        for (const std::u16string& path : rescued_) notes_.late.Open(path, 0);
    });
    notes_.late.Begin();
    return anyHidden;
}

void Startup::OpenNoteFiles() {
    for (const FileEntry& file : services_.files.List(services_.program.notesFolder, kNoteExtension)) {
        if (!notes_.opening.CanOpenAnotherNote()) break;  // one message, not one for each remaining file
        notes_.late.Open(file.path, file.size);
    }
}

void Startup::FinishEarlierRuns() {
    Recovery::Result result = notes_.recovery.Run();
    rescued_ = std::move(result.files);
    if (result.restored == 0) return;
    notes_.services.hints.ShowBalloon(
        {u"Your notes are back",
         u"Quillo could not save some notes at their place when it last ended, so it had kept them as files.  They are "
         u"open again."});
}

void Startup::ReportHiddenNotes() {
    if (services_.program.settings.minimizeToTray || !notes_.services.hints.HasBalloons()) return;
    notes_.services.hints.ShowBalloon(
        {u"Looking for your sticky notes?",
         u"Click \"show all notes\" on the main Quillo menu to see the notes that you have hidden."});
}

void Startup::CarryOut(std::u16string_view commandLine) {
    const Command command = ClassifyFirstStart(commandLine);
    switch (command.kind) {
        case Command::Kind::Unknown:
            services_.notice.Fail(u"Unknown command: " + command.text);
            break;
        case Command::Kind::OpenFile:
            notes_.opening.OpenNoteFile(services_.shell.FullPath(StripQuotes(command.text)));
            break;
        case Command::Kind::None:
        case Command::Kind::Close:
        case Command::Kind::New:
            break;
    }
}

void OpenHelp(Shell& shell) {
    const std::u16string program = shell.ProgramPath();
    Ignore(shell.Open(JoinPath(FolderOfPath(program), u"Quillo.chm")), "the program works without its help");
}

}  // namespace quillo

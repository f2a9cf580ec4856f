#include "app/quillo_procs.h"

#include "app/base/app_identity.h"
#include "app/command_line.h"
#include "platform/app_id.h"
#include "platform/late_library.h"
#include "util/ignore.h"
#include "version.h"

namespace quillo {
namespace {

/// How long a second start waits for a first one that has not opened its channel yet.
constexpr DWORD kPatienceMilliseconds = 5000;

}  // namespace

QuilloProcs::QuilloProcs()
    : resForm_([this] { BroadcastTimer(program_.openNotes); }),
      program_(*this),
      names_(files_, shell_, program_.settings),
      store_(files_, locale_, shell_, names_, program_.notesFolder),
      mail_(locale_, dialogs_),
      hints_(notice_, program_.settings, program_.os, registry_),
      sharing_(printer_, mail_, store_, dates_, notice_),
      noteForms_{program_.settings,
                 dates_,
                 noteResources_,
                 {monitors_, noteBatch_, random_},
                 {ole_, shell_},
                 {{program_.settings, hints_, dates_, notice_, loop_},
                  {program_.settings, sound_, loop_, alertPlaces_},
                  colorDialog_,
                  dialogs_}},
      saveFailures_(hints_),
      noteServices_{program_.settings, {store_, timers_, saveFailures_}, dates_, notice_, hints_, sharing_},
      legacy_(registry_, program_.openNotes, random_),
      saveAll_(program_.openNotes, legacy_, store_),
      opening_(program_, noteServices_, random_, saveAll_),
      late_(opening_, timers_, hints_),
      recovery_(store_, locale_, program_.notesFolder),
      quit_(program_, saveAll_, legacy_, store_, registry_, notice_),
      mainForm_(MainFormServices{program_, registry_, shell_, locale_, dialogs_},
                MenuServices{program_.settings, program_.openNotes, notice_, ole_, monitors_}),
      aboutForm_(shell_, loop_, ProgramVersion{QUILLO_VERSION_MAJOR, QUILLO_VERSION_MINOR, QUILLO_VERSION_PATCH}) {
    loop_.RunAfterEach([this] { program_.openNotes.ReleaseRemoved(); });
    notifyWindow_.onCommand = [this](std::u16string_view text) { OnCommand(text); };
    BindMainForm();
}

void QuilloProcs::BindMainForm() {
    notice_.onBox = [this] { mainForm_.ShowTrayIcon(); };
    notice_.onBalloon = [this](std::u16string_view title, std::u16string_view text, BalloonIcon icon) {
        mainForm_.ShowBalloon(title, text, icon);
    };
    noteResources_.beforeIcon = [this] { mainForm_.ShowTrayIcon(); };  // the program's icon comes first
    const auto saveAll = [this] { saveAll_.Run(); };
    mainForm_.onNewNote = [this] { opening_.CreateNewNote(); };
    mainForm_.onOptions = [this] { OpenOptions(); };
    mainForm_.onAbout = [this] {
        Ignore(aboutForm_.Open(mainForm_.Handle()), "a dialog that cannot open has nothing to lose");
    };
    mainForm_.onQuit = [this] {
        EndProgram(QuitReason::User);
        return program_.quitting;
    };
    mainForm_.onSessionEnd = [this] { EndProgram(QuitReason::SessionEnd); };
    mainForm_.onBackup = saveAll;
    mainForm_.onSessionEnding = saveAll;
    mainForm_.onGoingAway = [this] { PersistAllNotes(program_.openNotes); };
    mainForm_.onPresence = [this](bool present) { present ? resForm_.Resume() : resForm_.Pause(); };
}

void QuilloProcs::OpenOptions() {
    if (!options_) {
        options_ = std::make_unique<OptionsForm>(
            OptionsServices{program_, registry_, shell_, sound_, locale_, mainForm_}, notice_, loop_, dialogs_);
    }
    Ignore(options_->Open(), "the next request tries again");
}

int QuilloProcs::Main(std::u16string_view commandLine) {
    Startup startup(*this, StartupServices{program_, registry_, files_, shell_, notice_},
                    StartupNotes{noteServices_, opening_, legacy_, late_, recovery_, noteBatch_});
    resForm_.Load();  // reminders must work also while start-up waits for an answer
    if (startup.Run(commandLine) == StartupOutcome::EndProcess) return 0;
    for (const std::u16string& command : std::exchange(waitingCommands_, {})) OnCommand(command);
    loop_.RunWhenIdle([this] {
        mainForm_.ShowTrayIcon();
        mainForm_.WatchSession();
    });
    const int exitCode = loop_.Run();
    mainForm_.Unload();
    notifyWindow_.Unload();
    return exitCode;
}

bool QuilloProcs::AnotherInstanceRuns() {
    return instance_.AnotherRuns();
}

void QuilloProcs::SendToRunningInstance(std::u16string_view commandLine) {
    Ignore(quillo::SendToRunningInstance(commandLine, kPatienceMilliseconds),
           "this process ends either way, and has nobody to report it to");
}

void QuilloProcs::InitializeShell() {
    // Before the first window, as the system requires.
    Ignore(TakeRegisteredAppId(kAppId), "balloons then carry the name of the file");
    Ignore(shell_.FolderPath(SpecialFolder::Desktop), "only warms the special-folder service up");
    loop_.RunPending();
}

void QuilloProcs::RegisterLinkFormat() {
    Ignore(LinkFormat(), "it keeps the number for the drops on notes");
}

OsFacts QuilloProcs::ReadOsFacts() {
    // The kernel's own function: GetVersionEx reports the version that the manifest names.
    static LateFunction<LONG WINAPI(OSVERSIONINFOW*)> getVersion(L"ntdll.dll", "RtlGetVersion");
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    if (getVersion.Get() != nullptr) getVersion.Get()(&version);
    return MakeOsFacts(static_cast<int>(version.dwPlatformId), static_cast<int>(version.dwMajorVersion),
                       static_cast<int>(version.dwMinorVersion));
}

void QuilloProcs::LoadNotifyWindow() {
    Ignore(notifyWindow_.Load(), "without its channel the program still serves the notes of this start");
}

void QuilloProcs::LoadMainForm() {
    Ignore(mainForm_.Load(), "without its menu the program still serves the notes and later starts");
    mainForm_.RedrawShortcuts();
}

std::unique_ptr<NoteWindow> QuilloProcs::MakeWindow(OpenNote& note, const std::optional<NotePosition>& position) {
    auto form = std::make_unique<NoteForm>(note, noteForms_);
    if (!form->Create(position)) return nullptr;
    return form;
}

void QuilloProcs::OnCommand(std::u16string_view text) {
    if (program_.quitting) return;  // a note opened now would be lost
    if (program_.startingUp) {
        waitingCommands_.emplace_back(text);
        return;
    }
    const Command command = ClassifyReceived(text);
    switch (command.kind) {
        case Command::Kind::Close:
            return EndProgram(QuitReason::Command);
        case Command::Kind::New:
            return opening_.CreateNewNote();
        case Command::Kind::OpenFile:
            opening_.OpenNoteFile(command.text);
            return;
        case Command::Kind::None:
        case Command::Kind::Unknown:
            return;
    }
}

void QuilloProcs::EndProgram(QuitReason reason) {
    if (!quit_.Run(reason)) return;
    late_.Stop();
    if (options_) options_->Unload();
    loop_.Quit(0);
}

}  // namespace quillo

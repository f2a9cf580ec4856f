#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "app/base/os_facts.h"

namespace quillo {

class FileStore;
class LateNotes;
class LegacyNotes;
class NoteBatch;
class NoteOpening;
class Recovery;
class RegistryApi;
class Shell;
class UserNotice;
struct NoteServices;
struct Program;

/// The process and its windows as start-up sees them.
class StartupStage {
  public:
    virtual ~StartupStage() = default;

    [[nodiscard]] virtual bool AnotherInstanceRuns() = 0;
    /// Passes a command line to the running instance; waits a bounded time for one that is still starting.
    virtual void SendToRunningInstance(std::u16string_view commandLine) = 0;
    /// Initializes the special-folder service, and pumps pending messages once.
    virtual void InitializeShell() = 0;
    /// Registers the clipboard format "UniformResourceLocator", which drops on notes use.
    virtual void RegisterLinkFormat() = 0;
    [[nodiscard]] virtual OsFacts ReadOsFacts() = 0;
    /// From now on, later instances find this one.
    virtual void LoadNotifyWindow() = 0;
    /// The main form draws its shortcuts, registers the hotkeys and shows its icon beside the clock.
    virtual void LoadMainForm() = 0;
};

/// The program and the system as start-up uses them.
struct StartupServices {
    Program& program;
    RegistryApi& registry;
    FileStore& files;
    Shell& shell;
    UserNotice& notice;
};

/// What opens the notes of a start.
struct StartupNotes {
    const NoteServices& services;
    NoteOpening& opening;
    LegacyNotes& legacy;
    LateNotes& late;
    Recovery& recovery;
    NoteBatch& batch;
};

enum class StartupOutcome { Running, EndProcess };

/// The program's start, from the check for a running instance to the command line. After EndProcess the process must
/// end without the quit procedure.
class Startup {
  public:
    Startup(StartupStage& stage, const StartupServices& services, const StartupNotes& notes)
        : stage_(stage), services_(services), notes_(notes) {}

    [[nodiscard]] StartupOutcome Run(std::u16string_view commandLine);

  private:
    void ReadSystem();
    void RegisterToStartWithWindows();
    [[nodiscard]] bool FindNotesFolder();
    void GreetFirstRun();
    [[nodiscard]] bool OpenSavedNotes();
    void OpenNoteFiles();
    void FinishEarlierRuns();
    void ReportHiddenNotes();
    void CarryOut(std::u16string_view commandLine);

    StartupStage& stage_;
    StartupServices services_;
    StartupNotes notes_;
    std::vector<std::u16string> rescued_;  ///< files of notes that are not back in their place
};

/// Opens the help file; does nothing if it is missing.
void OpenHelp(Shell& shell);

}  // namespace quillo

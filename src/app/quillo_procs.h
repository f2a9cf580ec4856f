#pragma once

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
#include "mainmenu/about_form.h"
#include "mainmenu/main_form.h"
#include "mainmenu/notify_window.h"
#include "mainmenu/options_form.h"
#include "notes/mail_form.h"
#include "notes/note_batch.h"
#include "notes/note_color_form.h"
#include "notes/note_drop_target.h"
#include "notes/note_form.h"
#include "notes/note_resources.h"
#include "notes/note_sharing.h"
#include "notes/note_store.h"
#include "notes/res_form.h"
#include "platform/message_loop.h"
#include "platform/monitors.h"
#include "platform/single_instance.h"
#include "platform/win_clock.h"
#include "platform/win_file_store.h"
#include "platform/win_locale_text.h"
#include "platform/win_printer.h"
#include "platform/win_registry_api.h"
#include "platform/win_shell.h"
#include "platform/win_sound_device.h"
#include "platform/win_timers.h"
#include "platform/win_user_notice.h"
#include "reminders/alert_places.h"
#include "util/busy_flag.h"

namespace quillo {

/// The composition root: creates every object of the program once, passes each the objects that it needs, and performs
/// start-up, the commands of later starts and the quit procedure.
class QuilloProcs : private StartupStage, private NoteWindowFactory {
  public:
    QuilloProcs();
    QuilloProcs(const QuilloProcs&) = delete;
    QuilloProcs& operator=(const QuilloProcs&) = delete;

    /// Runs the program from its start to its end; returns the exit code. `commandLine` is the part after the program's
    /// name.
    int Main(std::u16string_view commandLine);

  private:
    // StartupStage
    [[nodiscard]] bool AnotherInstanceRuns() override;
    void SendToRunningInstance(std::u16string_view commandLine) override;
    void InitializeShell() override;
    void RegisterLinkFormat() override;
    [[nodiscard]] OsFacts ReadOsFacts() override;
    void LoadNotifyWindow() override;
    void LoadMainForm() override;

    // NoteWindowFactory
    [[nodiscard]] std::unique_ptr<NoteWindow> MakeWindow(OpenNote& note,
                                                         const std::optional<NotePosition>& position) override;

    /// A later start has sent a command line. Commands during start-up wait for its end.
    void OnCommand(std::u16string_view text);
    void BindMainForm();
    void OpenOptions();
    void EndProgram(QuitReason reason);

    BusyFlag dialogs_;  ///< set while a modal dialog of the program is open

    // The system behind the ports.
    WinFileStore files_;
    WinLocaleText locale_;
    WinRegistryApi registry_;
    WinShell shell_;
    WinClock clock_;
    WinTimers timers_;
    WinRandom random_;
    WinUserNotice notice_{dialogs_};
    WinSoundDevice sound_;
    WinPrinter printer_{dialogs_};
    MessageLoop loop_;
    OleSession ole_;
    SingleInstance instance_;

    // The program.
    MonitorCache monitors_;
    NoteBatch noteBatch_;
    NoteColorForm colorDialog_{loop_};  // before the notes, which call DropTarget when they end
    ResForm resForm_;                   // before the notes, which close its menus
    NoteResources noteResources_{resForm_, NoteForm::Class()};
    Program program_;
    NoteNames names_;
    NoteStore store_;
    MapiMail mail_;
    DateServices dates_{clock_, locale_};
    Hints hints_;
    AlertPlaces alertPlaces_;
    NoteSharing sharing_;
    NoteFormServices noteForms_;
    SaveFailures saveFailures_;
    NoteServices noteServices_;
    LegacyNotes legacy_;
    SaveAll saveAll_;
    NoteOpening opening_;
    LateNotes late_;
    Recovery recovery_;
    Quit quit_;
    MainForm mainForm_;
    std::unique_ptr<OptionsForm> options_;  ///< created when first opened
    AboutForm aboutForm_;
    NotifyWindow notifyWindow_;
    std::vector<std::u16string> waitingCommands_;
};

}  // namespace quillo

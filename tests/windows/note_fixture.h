#pragma once

#include <memory>
#include <optional>
#include <string>

#include "app/base/hints.h"
#include "app/base/note_names.h"
#include "app/base/os_facts.h"
#include "app/base/settings.h"
#include "notes/note_batch.h"
#include "notes/note_color_form.h"
#include "notes/note_form.h"
#include "notes/note_resources.h"
#include "notes/note_sharing.h"
#include "notes/note_store.h"
#include "notes/open_note.h"
#include "notes/res_form.h"
#include "platform/message_loop.h"
#include "platform/monitors.h"
#include "platform/win_file_store.h"
#include "platform/win_locale_text.h"
#include "platform/win_timers.h"
#include "reminders/alert_places.h"
#include "support.h"
#include "testing/fake_clock.h"
#include "testing/fake_random.h"
#include "testing/fake_registry_api.h"
#include "testing/fake_shell.h"
#include "testing/fake_sound_device.h"
#include "testing/fake_user_notice.h"
#include "testing/recording_mail.h"
#include "testing/recording_printer.h"
#include "testing/recording_save_failures.h"
#include "util/busy_flag.h"

namespace quillo::windows_tests {

enum ChildId : int { kMessageBox = 1, kCloseButton, kPushpin, kMenuButton, kSaveSign, kReminderLabel };

/// Real notes in real windows, with a temporary folder as their disk and a fake user.
class NoteWorldForTests : public NoteOwner {
  public:
    NoteWorldForTests();

    void RemoveNote(const std::u16string& noteKey) override { removed = noteKey; }
    [[nodiscard]] bool IsOpen(const std::u16string& noteKey) const override { return removed != noteKey; }
    void SaveUnsavedNotes() override {}  // a note here is saved when a test says so
    void ActivateNeighbor(const std::u16string& noteKey, NoteDirection direction) override {
        neighborAsked = (direction == NoteDirection::Forward ? u"after " : u"before ") + noteKey;
    }

    [[nodiscard]] NoteServices Services() {
        return NoteServices{settings, {store, timers, failures}, dates, notice, hints, sharing};
    }
    [[nodiscard]] NoteFormServices FormServices() {
        return NoteFormServices{
            settings,
            dates,
            resources,
            {monitors, batch, random},
            {ole, shell},
            {{settings, hints, dates, notice, loop}, {settings, sound, loop, places}, colorDialog, dialogs}};
    }

    TempFolder folder;
    Settings settings;
    OsFacts os;
    BusyFlag dialogs;
    WinFileStore files;
    WinLocaleText locale;
    FakeShell shell;
    FakeClock clock;
    FakeRandom random;
    FakeUserNotice notice;
    RecordingPrinter printer;
    RecordingMail mail;
    NoteNames names{files, shell, settings};
    WinTimers timers;
    RecordingSaveFailures failures;
    NoteStore store{files, locale, shell, names, folder.Path()};
    int monitorQuestions = 0;
    MonitorCache monitors{[this] {
        ++monitorQuestions;
        return AskForMonitors();
    }};
    NoteBatch batch;
    OleSession ole;
    FakeRegistryApi registry;
    FakeSoundDevice sound;
    MessageLoop loop;
    DateServices dates{clock, locale};
    Hints hints{notice, settings, os, registry};
    NoteSharing sharing{printer, mail, store, dates, notice};
    AlertPlaces places;
    NoteColorForm colorDialog{loop};
    ResForm resForm{[] {}};
    NoteResources resources{resForm, NoteForm::Class()};
    std::u16string removed;
    std::u16string neighborAsked;  ///< "after one": the note whose neighbor was last to get the focus
};

/// One note with its window.
class TestNote : private NoteWindowFactory {
  public:
    TestNote(NoteWorldForTests& world, std::u16string key)
        : world_(world), opened_(OpenNote::Open(world, world.Services(), std::move(key), *this)) {}
    TestNote(const TestNote&) = delete;
    TestNote& operator=(const TestNote&) = delete;

    /// Creates the window and applies the colors of the settings.
    [[nodiscard]] bool Create() {
        if (!form.Create()) return false;
        note.UpdateColors();
        return true;
    }
    /// Waits for the parts that are created after the first painting.
    [[nodiscard]] bool Settle() {
        return PumpUntil([this] { return Child(kCloseButton) != nullptr; });
    }
    [[nodiscard]] HWND Window() const { return form.Handle(); }
    [[nodiscard]] HWND Child(ChildId id) const { return GetDlgItem(form.Handle(), id); }

  private:
    [[nodiscard]] std::unique_ptr<NoteWindow> MakeWindow(OpenNote& made,
                                                         const std::optional<NotePosition>& /*position*/) override {
        auto window = std::make_unique<NoteForm>(made, world_.FormServices());
        form_ = window.get();
        return window;
    }

    NoteWorldForTests& world_;
    NoteForm* form_ = nullptr;
    std::unique_ptr<OpenNote> opened_;

  public:
    OpenNote& note = *opened_;
    NoteForm& form = *form_;
};

/// A rectangle of the window's client area or of a child of it, in device pixels.
[[nodiscard]] Rect PlaceIn(HWND window, HWND child);

}  // namespace quillo::windows_tests

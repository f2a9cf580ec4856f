#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "app/base/hints.h"
#include "app/base/note_names.h"
#include "app/base/os_facts.h"
#include "notes/note_sharing.h"
#include "notes/open_note.h"
#include "testing/fake_clock.h"
#include "testing/fake_file_store.h"
#include "testing/fake_locale_text.h"
#include "testing/fake_note_window.h"
#include "testing/fake_registry_api.h"
#include "testing/fake_shell.h"
#include "testing/fake_timers.h"
#include "testing/fake_user_notice.h"
#include "testing/note_interfaces.h"
#include "testing/recording_mail.h"
#include "testing/recording_printer.h"
#include "testing/recording_save_failures.h"

namespace quillo {

inline const std::u16string kFolder = u"C:\\Data\\Notes";
inline const std::u16string kDocuments = u"C:\\Documents";
inline const std::u16string kKey = u"1A2B";

/// A collection with only the note that has that key.
class FakeNoteOwner : public NoteOwner {
  public:
    void RemoveNote(const std::u16string& noteKey) override { open_.erase(noteKey); }
    [[nodiscard]] bool IsOpen(const std::u16string& noteKey) const override { return open_.count(noteKey) != 0; }
    void SaveUnsavedNotes() override { ++savesAsked; }

    int savesAsked = 0;  ///< how often saving all notes was requested before something that blocks
    void ActivateNeighbor(const std::u16string& noteKey, NoteDirection direction) override {
        neighborAsked = (direction == NoteDirection::Forward ? u"after " : u"before ") + noteKey;
    }

    std::u16string neighborAsked;

  private:
    std::set<std::u16string> open_{kKey};
};

/// One open note on fakes.
class OpenNoteTest : public ::testing::Test {
  protected:
    using Calls = std::vector<std::string>;

    OpenNoteTest() {
        settings_.noteFolder = kDocuments;
        files_.PutFolder(kFolder);
        files_.PutFolder(kDocuments);
    }

    /// A note on the screen with that text, stored and unchanged.
    void ShowStored(std::u16string_view text) {
        ASSERT_TRUE(note_.SetText(text));
        note_.Popup();
        note_.MarkChanged();
        ASSERT_TRUE(note_.PersistNote());
        DropRecords();
    }
    /// A file with that text between its root tags.
    [[nodiscard]] NoteFile Tags(std::u16string_view tagText) {
        NoteFile file;
        ReadTagText(tagText, file, locale_);
        return file;
    }
    void DropRecords() {
        static_cast<void>(view_.TakeCalls());
        notice_.Clear();
    }
    /// The note as its reminder's windows see it.
    [[nodiscard]] ReminderOwner& Reminded() { return AsReminderOwner(note_); }
    [[nodiscard]] bool IsDestroyed() const { return !owner_.IsOpen(kKey) && view_.IsClosed(); }
    [[nodiscard]] std::string Content(const std::u16string& path) { return files_.Read(path).value_or("(none)"); }
    [[nodiscard]] std::vector<std::u16string> SavedFiles() {
        std::vector<std::u16string> paths;
        for (const FileEntry& file : files_.List(kDocuments, u".qln")) paths.push_back(file.path);
        return paths;
    }
    [[nodiscard]] bool StorageExists() { return !files_.List(kFolder, u".qln").empty(); }

    Settings settings_;
    OsFacts os_;
    FakeFileStore files_;
    FakeLocaleText locale_;
    FakeShell shell_{files_};
    FakeClock clock_;
    FakeUserNotice notice_;
    FakeNoteOwner owner_;
    RecordingPrinter printer_;
    RecordingMail mail_;
    FakeRegistryApi registry_;
    NoteNames names_{files_, shell_, settings_};
    NoteStore store_{files_, locale_, shell_, names_, kFolder};
    FakeTimers timers_;
    RecordingSaveFailures failures_;
    DateServices dates_{clock_, locale_};
    Hints hints_{notice_, settings_, os_, registry_};
    NoteSharing sharing_{printer_, mail_, store_, dates_, notice_};
    NoteServices services_{settings_, {store_, timers_, failures_}, dates_, notice_, hints_, sharing_};
    FakeNoteWindows windows_;
    std::unique_ptr<OpenNote> opened_ = OpenNote::Open(owner_, services_, kKey, windows_);
    OpenNote& note_ = *opened_;
    FakeNoteWindow& view_ = windows_.View(0);
};

}  // namespace quillo

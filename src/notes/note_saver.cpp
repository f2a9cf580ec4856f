#include "notes/note_saver.h"

#include <algorithm>
#include <utility>

#include "util/attempt.h"

namespace quillo {
namespace {

/// The delay between the last change of a note and its save: long enough not to write at every key.
constexpr std::uint64_t kPauseMilliseconds = 2000;
/// No change exists only in memory for longer, however steadily the user types.
constexpr std::uint64_t kLatestMilliseconds = 5000;
constexpr std::uint32_t kRetryMilliseconds = 10'000;

}  // namespace

NoteSaver::NoteSaver(SaverServices services, Note& note, std::function<NoteFile()> content,
                     std::function<void(FileError)> showFailure)
    : services_(services),
      note_(note),
      content_(std::move(content)),
      showFailure_(std::move(showFailure)),
      timer_(services.timers.Make([this] { OnTimer(); })) {}

void NoteSaver::MarkChanged() {
    if (stopped_) return;
    note_.Changed = true;
    Wait();
}

void NoteSaver::Wait() {
    const std::uint64_t now = services_.timers.Milliseconds();
    if (!firstChange_) firstChange_ = now;
    const std::uint64_t latest = *firstChange_ + kLatestMilliseconds;
    // Timer messages have the lowest priority: a thread that is never idle must check the time itself.
    if (now >= latest) {
        PersistNote();
        return;
    }
    due_ = now + std::min(kPauseMilliseconds, latest - now);
    // A running timer is left alone: a key or a step of a drag would otherwise cost two calls of the system.
    if (!pausing_) StartPause(now);
}

void NoteSaver::StartPause(std::uint64_t now) {
    pausing_ = timer_->Start(static_cast<std::uint32_t>(due_ - now));  // otherwise the next change tries again
}

void NoteSaver::OnTimer() {
    const bool pausing = std::exchange(pausing_, false);
    const std::uint64_t now = services_.timers.Milliseconds();
    if (pausing && now < due_) return StartPause(now);  // the note has changed since the timer was started
    PersistNote();
}

bool NoteSaver::PersistNote() {
    if (stopped_ || !HasUnsavedChange()) return stored_;
    timer_->Stop();
    pausing_ = false;
    ChooseStoragePath();
    SavedNote saved;
    saved.error = FileError::Failed;  // also if memory runs out
    Try([&] { saved = services_.store.SaveStorageCopy(content_(), note_.StoragePath); });
    note_.Changed = false;  // intended after a failure too; failure_ records that the note could not be written
    firstChange_.reset();
    stored_ = saved.error == FileError::None;
    if (stored_) hash_ = saved.hash;
    if (!stored_) timer_->Start(kRetryMilliseconds);
    Report(saved.error);
    return stored_;
}

void NoteSaver::Report(FileError error) {
    if (error == failure_) return;
    const FileError before = std::exchange(failure_, error);
    showFailure_(error);
    if (error == FileError::None) services_.failures.NoteIsSavedAgain(note_.NoteKey);
    if (before == FileError::None) services_.failures.NoteCannotBeSaved(note_.NoteKey, error);
}

void NoteSaver::LookForStorageCopy() {
    if (stored_ && !services_.store.Files().FileExists(note_.StoragePath)) note_.Changed = true;
}

void NoteSaver::SetStorageCopy(FileVersion copy) {
    services_.store.KeepStorageCopy(copy.path);
    stored_ = !copy.path.empty();
    hash_ = copy.hash;
    note_.StoragePath = std::move(copy.path);
}

void NoteSaver::ChooseStoragePath() {
    if (note_.StoragePath.empty()) note_.StoragePath = services_.store.NewStoragePath();
}

void NoteSaver::Stop() {
    stopped_ = true;
    timer_->Stop();
    pausing_ = false;
    if (failure_ != FileError::None) services_.failures.NoteIsSavedAgain(note_.NoteKey);
    failure_ = FileError::None;
}

}  // namespace quillo

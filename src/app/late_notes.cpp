#include "app/late_notes.h"

#include <utility>

#include "app/base/hints.h"
#include "app/note_opening.h"
#include "util/attempt.h"
#include "util/path_text.h"

namespace quillo {
namespace {

constexpr std::uint64_t kLargeBytes = std::uint64_t{256} * 1024;
/// Timer messages come after painting and input: the other notes respond before this timer fires.
constexpr std::uint32_t kBetweenMilliseconds = 10;
constexpr std::uint32_t kRetryMilliseconds = 3000;
constexpr std::uint64_t kLastRetryMilliseconds = 60'000;

constexpr std::u16string_view kTitle = u"Some files are too large to be notes";
constexpr std::u16string_view kText = u"Quillo has left these files in the notes folder alone:";

}  // namespace

LateNotes::LateNotes(NoteOpening& opening, Timers& timers, Hints& hints)
    : opening_(opening),
      hints_(hints),
      timers_(timers),
      largeTimer_(timers.Make([this] { OpenNext(); })),
      lockedTimer_(timers.Make([this] { RetryLocked(); })),
      start_(timers.Milliseconds()) {}

void LateNotes::Open(const std::u16string& path, std::uint64_t size) {
    if (size > kLargeBytes) {
        large_.push_back(path);
    } else {
        OpenNow(path);
    }
}

void LateNotes::OpenNow(const std::u16string& path) {
    // After an error the file is unchanged; the next start tries again.
    Try([&] {
        const OpenOutcome outcome = opening_.OpenNoteFile(path, OpenMode::AtStart);
        if (outcome == OpenOutcome::InUse) locked_.push_back(path);
        if (outcome == OpenOutcome::TooLarge) tooLarge_.append(u"\r\n").append(FileNameOfPath(path));
    });
}

void LateNotes::Begin() {
    if (!large_.empty()) {
        largeTimer_->Start(kBetweenMilliseconds);
    } else if (!tooLarge_.empty() && hints_.HasBalloons()) {
        hints_.ShowBalloon({kTitle, std::u16string(kText) + std::exchange(tooLarge_, {}), BalloonIcon::Warning});
    }
    if (!locked_.empty()) lockedTimer_->Start(kRetryMilliseconds);
}

void LateNotes::OpenNext() {
    if (!opening_.CanOpenAnotherNote()) return large_.clear();  // one message, not one for each remaining file
    const std::u16string path = large_.front();
    large_.pop_front();
    OpenNow(path);
    Begin();
}

void LateNotes::RetryLocked() {
    if (timers_.Milliseconds() - start_ > kLastRetryMilliseconds) return locked_.clear();
    for (const std::u16string& path : std::exchange(locked_, {})) OpenNow(path);
    Begin();
}

void LateNotes::Stop() {
    largeTimer_->Stop();
    lockedTimer_->Stop();
}

}  // namespace quillo

#include "app/save_all.h"

#include <cstdint>

#include "app/base/hints.h"
#include "app/legacy_import.h"
#include "app/open_notes.h"
#include "notes/save_texts.h"
#include "util/attempt.h"

namespace quillo {
namespace {

/// The bytes of a note's file in addition to its text, rounded up.
constexpr std::uint64_t kTagBytes = 1024;
/// The maximum bytes of one UTF-16 unit: one in the narrow text, and its UTF-8 form in base 32.
constexpr std::uint64_t kBytesPerUnit = 6;

constexpr std::u16string_view kTitle = u"Quillo cannot save your notes";
constexpr std::u16string_view kAdvice = u"  A sign at the top of a note shows that it is not saved.";

}  // namespace

void SaveAll::Run() {
    std::uint64_t needed = 0;
    notes_.ForEach([&needed](OpenNote& note) {
        Try([&] {
            note.Saver().LookForStorageCopy();
            note.PersistNote();
            needed += kTagBytes + kBytesPerUnit * note.Text().size();
        });
    });
    Try([this] { legacy_.ClearWhatIsSaved(); });
    store_.Reserve().Keep(needed);
}

void SaveFailures::NoteCannotBeSaved(const std::u16string& noteKey, FileError error) {
    const bool first = failing_.empty();
    failing_.insert(noteKey);
    if (!first) return;
    std::u16string reason(SaveProblemText(error));
    hints_.ShowBalloon({kTitle, reason.append(kAdvice), BalloonIcon::Warning});
}

}  // namespace quillo

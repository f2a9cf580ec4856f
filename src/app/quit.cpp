#include "app/quit.h"

#include <utility>

#include "app/base/registry_keys.h"
#include "app/legacy_import.h"
#include "app/program.h"
#include "app/save_all.h"
#include "ports/user_notice.h"
#include "registry/tessel_registry.h"
#include "util/attempt.h"
#include "util/content_hash.h"
#include "util/ignore.h"
#include "util/text.h"

namespace quillo {
namespace {

constexpr std::u16string_view kLoseQuestion =
    u"Quillo was unable to save one or more notes anywhere.  Do you still want to quit?\r\n\r\nIf you click Yes, what "
    u"you "
    u"have changed in these notes will be lost.  If you click No, Quillo keeps running.";

/// The program is quitting until this object ends, unless it really ends.
class QuittingScope {
  public:
    explicit QuittingScope(bool& quitting) : quitting_(quitting) { quitting_ = true; }
    QuittingScope(const QuittingScope&) = delete;
    QuittingScope& operator=(const QuittingScope&) = delete;
    ~QuittingScope() { quitting_ = ends; }

    bool ends = false;

  private:
    bool& quitting_;
};

}  // namespace

bool Quit::Run(QuitReason reason) {
    if (program_.quitting) return false;
    QuittingScope quitting(program_.quitting);
    Try([this] { saveAll_.Run(); });
    Try([this] { store_.RetryDeletions(); });
    if (!RescueNotes(reason)) return false;
    Try([this] { LeaveRunKey(); });
    quitting.ends = true;
    Try([this] { program_.openNotes.UnloadAll(); });
    return true;
}

bool Quit::RescueNotes(QuitReason reason) {
    bool anyLost = false;
    program_.openNotes.ForEach([&](OpenNote& note) {
        bool safe = false;
        Try([&] { safe = !NeedsRescue(note) || Rescue(note); });
        if (!safe) anyLost = true;
    });
    const bool mayEnd = !anyLost || reason != QuitReason::User || notice_.Ask(kLoseQuestion, Question::YesNoDefaultNo);
    if (!mayEnd) TakeBackRescue();
    return mayEnd;
}

bool Quit::NeedsRescue(OpenNote& note) const {
    if (!note.Saver().HasUnsavedChange()) return false;
    if (Trim(note.Text()).empty() && !note.Data().ReminderSet) return false;  // it is empty
    return !legacy_.StillHolds(note);                                         // the next start imports it again
}

bool Quit::Rescue(OpenNote& note) {
    // The file that the note was opened from may still have all of it.
    const std::optional<std::string> source = store_.Files().Read(note.Saver().Source().path);
    if (source && ContentHash(*source) == note.Saver().Source().hash && note.IsTextOf(*source)) return true;
    const SavedNote saved = store_.Rescue(note.Content());
    if (saved.path.empty()) return false;
    const std::u16string& copy = note.Data().StoragePath;
    const std::optional<std::string> now = store_.Files().Read(copy);
    // A copy that another program has open cannot be read either: it counts as unchanged.
    const std::uint64_t known = store_.Files().FileExists(copy) ? note.Saver().StorageCopy().hash : 0;
    const FileVersion from{copy, now ? ContentHash(*now) : known};
    const FileVersion to{saved.path, saved.hash};
    rescued_.push_back({to, store_.Journal().Begin({PendingStep::Kind::Rescue, {}, from, to})});
    return true;
}

void Quit::TakeBackRescue() {
    for (const Rescued& rescued : std::exchange(rescued_, {})) {
        Ignore(store_.Files().Delete(rescued.file.path), "another copy of a note that is still open");
        store_.Journal().End(rescued.record);
    }
}

void Quit::LeaveRunKey() {
    TesselRegistry key(registry_, kUserKey);
    if (key.ValueLong(setting::kStartupMode) < 1 || program_.openNotes.Count() != 0) return;
    key.SetRootPath(kRunKey);
    key.DeleteValue(kRunValue);
}

}  // namespace quillo

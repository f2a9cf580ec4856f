#include "notes/note_leaving.h"

#include <utility>

#include "app/base/hints.h"
#include "app/base/settings.h"
#include "ports/locale_text.h"
#include "ports/user_notice.h"

namespace quillo {
namespace {

constexpr std::u16string_view kUnsavedQuestion =
    u"Quillo was unable to save this note to a file.  Do you still want to close it?\r\n\r\n"
    u"If you click Yes, the note's contents will be lost.  If you click No, it will not be closed.";
constexpr std::u16string_view kHiddenTitle = u"This note was hidden.";
constexpr std::u16string_view kHiddenText =
    u"You currently have a reminder set for this note, so it was hidden instead of closed.  To see the note again "
    u"before the reminder expires, click \"Show all notes\" on the main Quillo menu.";
constexpr std::u16string_view kDeleteQuestion =
    u"This action will permanently delete this note, and you will not be able to get it back.  Only click OK if you "
    u"are sure that you do not want this note anymore; otherwise, click Cancel.";
constexpr std::u16string_view kLoseQuestion =
    u"Quillo was unable to save this note anywhere.  Do you still want to delete it?\r\n\r\n"
    u"If you click Yes, the note's contents will be lost.  If you click No, it will not be deleted.";
constexpr std::u16string_view kNotRecycledTitle = u"The note is not in the Recycle Bin";
constexpr std::u16string_view kNotRecycledText =
    u"The Recycle Bin did not take this note, so Quillo has kept it as a file: ";

}  // namespace

bool NoteLeaving::Save(const NoteFile& content) {
    SavedNote saved = SaveOutside(content, PendingStep::Kind::Move);
    const bool leaves =
        !saved.path.empty() || (services_.notice.Ask(kUnsavedQuestion, Question::YesNoDefaultNo) && IsOpen());
    if (leaves) saved_ = std::move(saved);
    return leaves;
}

bool NoteLeaving::Recycle(const NoteFile& content) {
    SavedNote saved = SaveOutside(content, PendingStep::Kind::Recycle);
    const bool safe =
        saved.path.empty() ? ReportKept(services_.saving.store.Rescue(content).path) : MoveToBin(content, saved);
    const bool leaves = safe && IsOpen();
    if (leaves) {
        saved_ = std::move(saved);
    } else {
        services_.saving.store.Journal().End(saved.record);
    }
    return leaves;
}

bool NoteLeaving::MayDelete() const {
    return !services_.settings.dontRecycleNotes ||
           (services_.notice.Ask(kDeleteQuestion, Question::OkCancelDefaultCancel) && IsOpen());
}

bool NoteLeaving::ExplainHiding() const {
    services_.hints.ShowBalloonOrBox({kHiddenTitle, kHiddenText});
    return IsOpen();
}

void NoteLeaving::DeleteStorageCopy() {
    if (!saved_.path.empty() && IsStorageCopy(saved_.path)) saver_.SetStorageCopy({});  // the only file of the note
    services_.saving.store.DeleteStorageCopy(saver_.StorageCopy(), std::move(saved_.record));
}

SavedNote NoteLeaving::SaveOutside(const NoteFile& content, PendingStep::Kind kind) const {
    SaveTarget target;
    // The storage copy is deleted when the note leaves: it must not be the file that was just saved.
    if (!services_.settings.doNotRememberFilenames && !IsStorageCopy(note_.FileName)) target.fileName = note_.FileName;
    target.isTempName = target.fileName.empty();
    return services_.saving.store.SaveNote(content, target, {kind, saver_.StorageCopy()});
}

bool NoteLeaving::MoveToBin(const NoteFile& content, const SavedNote& saved) const {
    const RecycleResult result = services_.saving.store.Recycle(saved.path);
    if (result == RecycleResult::Moved) return true;
    if (result != RecycleResult::Gone) return ReportKept(saved.path);
    return ReportKept(services_.saving.store.WriteAgain(content, saved).path);
}

bool NoteLeaving::ReportKept(std::u16string_view path) const {
    if (path.empty()) return services_.notice.Ask(kLoseQuestion, Question::YesNoDefaultNo);
    std::u16string text(kNotRecycledText);
    text += path;
    services_.hints.ShowBalloon({kNotRecycledTitle, text, BalloonIcon::Warning});
    return true;
}

bool NoteLeaving::IsStorageCopy(std::u16string_view path) const {
    return services_.dates.locale.ToLower(path) == services_.dates.locale.ToLower(note_.StoragePath);
}

}  // namespace quillo

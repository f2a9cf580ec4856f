#include "app/open_notes.h"

#include <algorithm>
#include <utility>

#include "util/attempt.h"
#include "util/ignore.h"

namespace quillo {

OpenNote* OpenNotes::Add(const NoteServices& services, std::u16string noteKey,
                         const std::optional<NotePosition>& position) {
    std::unique_ptr<OpenNote> note = OpenNote::Open(*this, services, std::move(noteKey), windows_, position);
    if (!note) return nullptr;
    notes_.push_back(std::move(note));
    return notes_.back().get();
}

OpenNote* OpenNotes::Find(std::u16string_view noteKey) const {
    const auto found =
        std::find_if(notes_.begin(), notes_.end(), [noteKey](const auto& note) { return note->NoteKey() == noteKey; });
    return found == notes_.end() ? nullptr : found->get();
}

void OpenNotes::ForEach(const std::function<void(OpenNote&)>& action) {
    std::vector<std::u16string> keys;
    keys.reserve(notes_.size());
    for (const std::unique_ptr<OpenNote>& note : notes_) keys.push_back(note->NoteKey());
    for (const std::u16string& key : keys) {
        if (OpenNote* note = Find(key)) action(*note);
    }
}

void OpenNotes::RemoveNote(const std::u16string& noteKey) {
    const auto found =
        std::find_if(notes_.begin(), notes_.end(), [&noteKey](const auto& note) { return note->NoteKey() == noteKey; });
    if (found == notes_.end()) return;
    removed_.push_back(std::move(*found));
    notes_.erase(found);
}

void OpenNotes::SaveUnsavedNotes() {
    ForEach([](OpenNote& note) { Try([&note] { note.PersistNote(); }); });
}

void OpenNotes::ActivateNeighbor(const std::u16string& noteKey, NoteDirection direction) {
    const auto here =
        std::find_if(notes_.begin(), notes_.end(), [&noteKey](const auto& note) { return note->NoteKey() == noteKey; });
    if (here == notes_.end()) return;
    const std::size_t count = notes_.size();
    const std::size_t step = direction == NoteDirection::Forward ? 1 : count - 1;
    auto index = static_cast<std::size_t>(here - notes_.begin());
    for (std::size_t looked = 1; looked < count; ++looked) {
        index = (index + step) % count;
        if (notes_[index]->IsVisible()) return notes_[index]->Activate();
    }
}

void OpenNotes::UnloadAll() {
    // Closing a window can call back into the collection, which is already empty by then.
    std::vector<std::unique_ptr<OpenNote>> leaving = std::exchange(notes_, {});
    for (std::unique_ptr<OpenNote>& note : leaving) {
        note->Unload();
        removed_.push_back(std::move(note));
    }
}

void ApplySettingsToAllNotes(OpenNotes& notes) {
    notes.ForEach([](OpenNote& note) { note.UpdateColors(); });
}

void BroadcastTimer(OpenNotes& notes) {
    notes.ForEach([](OpenNote& note) { Try([&note] { note.TimerBroadcast(); }); });
}

void SurfaceAllNotes(OpenNotes& notes) {
    std::u16string last;
    notes.ForEach([&last](OpenNote& note) {
        note.PopupByUser();
        last = note.NoteKey();
    });
    if (OpenNote* front = notes.Find(last)) front->Activate();
}

void RecreateNoteIcons(OpenNotes& notes) {
    notes.ForEach([](OpenNote& note) { note.RecreateIcon(); });
}

void PersistAllNotes(OpenNotes& notes) {
    notes.SaveUnsavedNotes();
}

void ApplyTranslucencyToAllNotes(OpenNotes& notes) {
    notes.ForEach([](OpenNote& note) { note.SetNoteEffects(); });
}

}  // namespace quillo

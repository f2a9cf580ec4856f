#include "app/open_notes.h"

#include <algorithm>
#include <utility>

#include "util/ignore.h"

namespace quillo {

OpenNote* OpenNotes::Add(const NoteServices& services, std::u16string noteKey,
                         const std::optional<NotePosition>& position) {
    Entry entry;
    entry.note = std::make_unique<OpenNote>(*this, services, std::move(noteKey));
    entry.view = factory_.MakeView(*entry.note, position);
    if (!entry.view) return nullptr;
    entry.note->AttachView(*entry.view);
    notes_.push_back(std::move(entry));
    return notes_.back().note.get();
}

OpenNote* OpenNotes::Find(std::u16string_view noteKey) const {
    const auto found = std::find_if(notes_.begin(), notes_.end(),
                                    [noteKey](const Entry& entry) { return entry.note->NoteKey() == noteKey; });
    return found == notes_.end() ? nullptr : found->note.get();
}

void OpenNotes::ForEach(const std::function<void(OpenNote&)>& action) {
    std::vector<std::u16string> keys;
    keys.reserve(notes_.size());
    for (const Entry& entry : notes_) keys.push_back(entry.note->NoteKey());
    for (const std::u16string& key : keys) {
        if (OpenNote* note = Find(key)) action(*note);
    }
}

void OpenNotes::RemoveNote(const std::u16string& noteKey) {
    const auto found = std::find_if(notes_.begin(), notes_.end(),
                                    [&noteKey](const Entry& entry) { return entry.note->NoteKey() == noteKey; });
    if (found == notes_.end()) return;
    removed_.push_back(std::move(*found));
    notes_.erase(found);
}

void OpenNotes::SaveUnsavedNotes() {
    ForEach([](OpenNote& note) { note.PersistNote(); });
}

void OpenNotes::ActivateNeighbor(const std::u16string& noteKey, NoteDirection direction) {
    const auto here = std::find_if(notes_.begin(), notes_.end(),
                                   [&noteKey](const Entry& entry) { return entry.note->NoteKey() == noteKey; });
    if (here == notes_.end()) return;
    const std::size_t count = notes_.size();
    const std::size_t step = direction == NoteDirection::Forward ? 1 : count - 1;
    auto index = static_cast<std::size_t>(here - notes_.begin());
    for (std::size_t looked = 1; looked < count; ++looked) {
        index = (index + step) % count;
        if (notes_[index].note->IsVisible()) return notes_[index].note->Activate();
    }
}

void OpenNotes::UnloadAll() {
    // Closing a window can call back into the collection, which is already empty by then.
    std::vector<Entry> leaving = std::exchange(notes_, {});
    for (Entry& entry : leaving) {
        entry.note->Saver().Stop();
        entry.view->Close();
        removed_.push_back(std::move(entry));
    }
}

void ApplySettingsToAllNotes(OpenNotes& notes) {
    notes.ForEach([](OpenNote& note) { note.UpdateColors(); });
}

void BroadcastTimer(OpenNotes& notes) {
    notes.ForEach([](OpenNote& note) {
        try {
            note.TimerBroadcast();
        } catch (...) {
            // Skipped for this note until the next tick.
        }
    });
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

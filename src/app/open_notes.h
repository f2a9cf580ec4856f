#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "notes/open_note.h"

namespace quillo {

/// At most this many notes may be open at once.
inline constexpr std::size_t kMaxOpenNotes = 50;

/// Makes the window of a note.
class NoteViewFactory {
  public:
    virtual ~NoteViewFactory() = default;
    /// Null when the system has no room for another window.
    [[nodiscard]] virtual std::unique_ptr<NoteView> MakeView(OpenNote& note) = 0;
};

/// The program's one collection of open notes, in the order of their making.
class OpenNotes : public NoteOwner {
  public:
    explicit OpenNotes(NoteViewFactory& factory) : factory_(factory) {}

    /// Adds a note with its window; null, and no note is added, when the window cannot be made. `world.owner` is this
    /// collection.
    [[nodiscard]] OpenNote* Add(NoteWorld world, std::u16string noteKey);
    /// The note with that key, or null: after anything that pumps messages a note may be gone.
    [[nodiscard]] OpenNote* Find(std::u16string_view noteKey) const;
    [[nodiscard]] std::size_t Count() const { return notes_.size(); }

    /// Calls `action` for every note in order. A note that leaves meanwhile is skipped, one that comes is not visited.
    void ForEach(const std::function<void(OpenNote&)>& action);

    void RemoveNote(const std::u16string& noteKey) override;
    [[nodiscard]] bool IsOpen(const std::u16string& noteKey) const override { return Find(noteKey) != nullptr; }
    void SaveUnsavedNotes() override;
    void ActivateNeighbor(const std::u16string& noteKey, NoteDirection direction) override;
    /// Destroys the notes that were removed; called when none of their handlers can be running.
    void ReleaseRemoved() { removed_.clear(); }
    /// Closes and removes every note without touching its files.
    void UnloadAll();

  private:
    struct Entry {
        std::unique_ptr<OpenNote> note;
        std::unique_ptr<NoteView> view;  // destroyed before its note
    };
    NoteViewFactory& factory_;
    std::vector<Entry> notes_;
    std::vector<Entry> removed_;
};

/// Gives every open note its colors, font, scroll bar and drop target anew.
void ApplySettingsToAllNotes(OpenNotes& notes);
/// A tick of the main timer for every open note; what goes wrong with one does not keep the others from theirs.
void BroadcastTimer(OpenNotes& notes);
/// Brings every open note into view; the last of the collection ends in front.
void SurfaceAllNotes(OpenNotes& notes);
/// For a task bar that was made anew: the icons of minimized notes come back.
void RecreateNoteIcons(OpenNotes& notes);
/// Every open note that has changed writes its storage copy.
void PersistAllNotes(OpenNotes& notes);
/// Gives every open note its translucency anew.
void ApplyTranslucencyToAllNotes(OpenNotes& notes);

}  // namespace quillo

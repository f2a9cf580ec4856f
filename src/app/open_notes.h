#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "notes/note_codec.h"
#include "notes/open_note.h"

namespace quillo {

/// The maximum number of open notes.
inline constexpr std::size_t kMaxOpenNotes = 50;

/// The program's one collection of open notes, in the order of their creation.
class OpenNotes : public NoteOwner {
  public:
    explicit OpenNotes(NoteWindowFactory& windows) : windows_(windows) {}

    /// Adds a note with its window; null, and no note is added, if the window cannot be created. The window is created
    /// at `position`, because moving it later makes a start slower.
    [[nodiscard]] OpenNote* Add(const NoteServices& services, std::u16string noteKey,
                                const std::optional<NotePosition>& position = std::nullopt);
    /// The note with that key, or null: after anything that pumps messages the note may be closed.
    [[nodiscard]] OpenNote* Find(std::u16string_view noteKey) const;
    [[nodiscard]] std::size_t Count() const { return notes_.size(); }

    /// Calls `action` for every note in order. A note removed meanwhile is skipped; one added is not visited.
    void ForEach(const std::function<void(OpenNote&)>& action);

    void RemoveNote(const std::u16string& noteKey) override;
    [[nodiscard]] bool IsOpen(const std::u16string& noteKey) const override { return Find(noteKey) != nullptr; }
    void SaveUnsavedNotes() override;
    void ActivateNeighbor(const std::u16string& noteKey, NoteDirection direction) override;
    /// Destroys the removed notes; called when none of their handlers can be running.
    void ReleaseRemoved() { removed_.clear(); }
    /// Closes and removes every note without changing its files.
    void UnloadAll();

  private:
    NoteWindowFactory& windows_;
    std::vector<std::unique_ptr<OpenNote>> notes_;
    std::vector<std::unique_ptr<OpenNote>> removed_;
};

/// Applies the settings to every open note: colors, font, scroll bar and drop target.
void ApplySettingsToAllNotes(OpenNotes& notes);
/// A tick of the main timer for every open note; a failure in one does not affect the others.
void BroadcastTimer(OpenNotes& notes);
/// Shows every open note; the last of the collection ends in front.
void SurfaceAllNotes(OpenNotes& notes);
/// Restores the icons of minimized notes when the task bar has been created again.
void RecreateNoteIcons(OpenNotes& notes);
/// Saves the storage copy of every open note that has changed.
void PersistAllNotes(OpenNotes& notes);
/// Applies the translucency to every open note.
void ApplyTranslucencyToAllNotes(OpenNotes& notes);

}  // namespace quillo

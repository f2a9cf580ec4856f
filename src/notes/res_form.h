#pragma once

#include <functional>
#include <string>
#include <vector>

#include "notes/note_commands.h"
#include "platform/ui_timer.h"
#include "util/geometry.h"

namespace quillo {

/// The interval at which every open note checks its reminder, in milliseconds.
inline constexpr UINT kMainTimerInterval = 10'000;

/// Shared by all notes and invisible: the main timer, which checks reminders, and the menus.
class ResForm {
  public:
    /// `onMainTimer` ticks every open note; it may pump messages.
    explicit ResForm(std::function<void()> onMainTimer, UINT interval = kMainTimerInterval);

    /// Starts the main timer.
    void Load();
    /// Stops the ticks until Resume; may be called during a tick.
    void Pause();
    void Resume();

    // Each returns the user's choice for the note, or None. Messages are pumped meanwhile: the note may be closed
    // afterwards. `window` is the note's own.
    /// Shows the menu at the note's menu button; `button` is in screen coordinates.
    [[nodiscard]] NoteAction ShowArrowMenu(const Note& note, HWND window, const Rect& button);
    /// At the pointer.
    [[nodiscard]] NoteAction ShowIconMenu(const Note& note, HWND window);
    /// Called when the note ends: closes a menu that is open for it.
    void NoteClosing(const Note& note);

  private:
    void OnTick();
    [[nodiscard]] NoteAction Track(const std::vector<NoteMenuItem>& items, UINT flags, Point at, HWND window,
                                   TPMPARAMS* keepFree);

    std::function<void()> onMainTimer_;
    UINT interval_;
    UiTimer mainTimer_;
    bool running_ = false;
    std::u16string currentNote_;  ///< the key of the note that has an open menu; empty if none has
};

}  // namespace quillo

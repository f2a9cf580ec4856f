#pragma once

#include <functional>
#include <string>
#include <vector>

#include "notes/note_commands.h"
#include "platform/ui_timer.h"
#include "util/geometry.h"

namespace quillo {

/// How often every open note looks at its reminder, in milliseconds.
inline constexpr UINT kMainTimerInterval = 10'000;

/// What all notes share and nobody sees: the main timer, by which reminders fall due, and the menus.
class ResForm {
  public:
    /// `onMainTimer` gives every open note its tick; it may let messages run.
    explicit ResForm(std::function<void()> onMainTimer, UINT interval = kMainTimerInterval);

    /// Starts the main timer.
    void Load();
    /// No tick comes until Resume; also from within a tick.
    void Pause();
    void Resume();

    // Each answers what the user chose for the note, None when nothing. Messages run meanwhile: the note may be gone
    // afterwards. `window` is the note's own.
    /// At the note's menu button, which stands there on the screen.
    [[nodiscard]] NoteAction ShowArrowMenu(const Note& note, HWND window, const Rect& button);
    /// At the pointer.
    [[nodiscard]] NoteAction ShowIconMenu(const Note& note, HWND window);
    /// The note goes: a menu that is open for it closes.
    void NoteClosing(const Note& note);

  private:
    void OnTick();
    [[nodiscard]] NoteAction Track(const std::vector<NoteMenuItem>& items, UINT flags, Point at, HWND window,
                                   TPMPARAMS* keepFree);

    std::function<void()> onMainTimer_;
    UINT interval_;
    UiTimer mainTimer_;
    bool running_ = false;
    std::u16string currentNote_;  ///< the key of the note that a menu is open for; empty when none is
};

}  // namespace quillo

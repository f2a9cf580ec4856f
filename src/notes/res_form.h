#pragma once

#include <functional>

#include "platform/ui_timer.h"

namespace quillo {

/// How often every open note looks at its reminder, in milliseconds.
inline constexpr UINT kMainTimerInterval = 10'000;

/// What all notes share and nobody sees: the main timer, by which reminders fall due.
class ResForm {
  public:
    /// `onMainTimer` gives every open note its tick; it may let messages run.
    explicit ResForm(std::function<void()> onMainTimer, UINT interval = kMainTimerInterval);

    /// Starts the main timer.
    void Load();
    /// No tick comes until Resume; also from within a tick.
    void Pause();
    void Resume();

  private:
    void OnTick();

    std::function<void()> onMainTimer_;
    UINT interval_;
    UiTimer mainTimer_;
    bool running_ = false;
};

}  // namespace quillo

#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <string>

#include "ports/timers.h"

namespace quillo {

class Hints;
class NoteOpening;

/// The saved notes that a start does not wait for. Large files are opened one at a time after the other notes have been
/// painted; files that another program has open are tried again during the first minute.
class LateNotes {
  public:
    LateNotes(NoteOpening& opening, Timers& timers, Hints& hints);

    /// Opens a saved note now, or postpones it. A failure affects this file alone.
    void Open(const std::u16string& path, std::uint64_t size);
    /// No more files come from this start. Reports those that are too large.
    void Begin();
    /// The program ends: nothing more is opened.
    void Stop();

  private:
    void OpenNow(const std::u16string& path);
    void OpenNext();
    void RetryLocked();

    NoteOpening& opening_;
    Hints& hints_;
    Timers& timers_;
    std::unique_ptr<Timer> largeTimer_;
    std::unique_ptr<Timer> lockedTimer_;
    std::deque<std::u16string> large_;
    std::deque<std::u16string> locked_;
    std::u16string tooLarge_;  ///< file names, one per line
    std::uint64_t start_;      ///< in milliseconds
};

}  // namespace quillo

#pragma once

#include <functional>
#include <vector>

#include "platform/ui_timer.h"

namespace quillo {

/// Work that the first painting must not wait for. One timer serves all of it: the messages of timers come after
/// painting and input.
class AfterPainting {
  public:
    /// `work` runs once, unless it is canceled before. `owner` identifies it.
    void Add(const void* owner, std::function<void()> work);
    /// Does nothing if the owner has no work here.
    void Cancel(const void* owner);

  private:
    struct Waiting {
        const void* owner;
        std::function<void()> work;
    };

    void Run();
    Waiting TakeNext();

    std::vector<Waiting> waiting_;
    UiTimer timer_{[this] { Run(); }};
};

}  // namespace quillo

#pragma once

#include <deque>
#include <initializer_list>

#include "ports/random.h"

namespace quillo {

/// Returns the queued numbers in order, then always one half.
class FakeRandom : public Random {
  public:
    [[nodiscard]] double Next() override {
        ++draws;
        if (queued_.empty()) return 0.5;
        const double next = queued_.front();
        queued_.pop_front();
        return next;
    }
    /// Numbers in [0, 1).
    void Queue(std::initializer_list<double> numbers) { queued_.insert(queued_.end(), numbers); }

    int draws = 0;

  private:
    std::deque<double> queued_;
};

}  // namespace quillo

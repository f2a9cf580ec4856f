#pragma once

#include <optional>

namespace quillo {

/// Notes that are shown one after the other without user input in between, each above the previous one: if the first is
/// in front of other programs' windows, all of them are.
class NoteBatch {
  public:
    /// A batch for the lifetime of the object.
    class Scope {
      public:
        explicit Scope(NoteBatch& batch) : batch_(batch) {
            batch_.open_ = true;
            batch_.inFront_.reset();
        }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
        ~Scope() { batch_.open_ = false; }

      private:
        NoteBatch& batch_;
    };

    /// True if a note that has just been shown is known to be in front. Calls `ask` for the first note of a batch only;
    /// outside a batch the result is false.
    template <typename Ask>
    [[nodiscard]] bool IsInFront(Ask ask) {
        if (!open_) return false;
        if (!inFront_) inFront_ = ask();
        return *inFront_;
    }

  private:
    bool open_ = false;
    std::optional<bool> inFront_;
};

}  // namespace quillo

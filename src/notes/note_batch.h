#pragma once

#include <optional>

namespace quillo {

/// Notes that are shown one after the other while nobody can act in between, each above the one before: whether the
/// first is in front of other programs' windows holds for all of them.
class NoteBatch {
  public:
    /// A batch for as long as the object lives.
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

    /// Whether a note that has just been shown is known to be in front. Only the first of a batch asks; outside one it
    /// is never known.
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

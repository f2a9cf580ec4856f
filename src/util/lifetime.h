#pragma once

namespace quillo {

/// A member of an object whose handlers may destroy it. A Watch on the stack of the caller then knows that the object
/// has ended, and nothing of it is used any more. Watches nest.
class Lifetime {
  public:
    Lifetime() = default;
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;
    ~Lifetime() {
        for (Watch* watch = innermost_; watch != nullptr; watch = watch->outer_) watch->ended_ = true;
    }

    /// True while a handler of the object runs under a Watch.
    [[nodiscard]] bool IsWatched() const { return innermost_ != nullptr; }

    class Watch {
      public:
        explicit Watch(Lifetime& lifetime) : lifetime_(lifetime), outer_(lifetime.innermost_) {
            lifetime.innermost_ = this;
        }
        Watch(const Watch&) = delete;
        Watch& operator=(const Watch&) = delete;
        ~Watch() {
            if (!ended_) lifetime_.innermost_ = outer_;
        }

        /// True if the object was destroyed since the watch began.
        [[nodiscard]] bool Ended() const { return ended_; }

      private:
        friend class Lifetime;

        Lifetime& lifetime_;
        Watch* outer_;
        bool ended_ = false;
    };

  private:
    Watch* innermost_ = nullptr;
};

}  // namespace quillo

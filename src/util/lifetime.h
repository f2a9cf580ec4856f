#pragma once

#include <functional>
#include <type_traits>
#include <utility>

#include "util/ignore.h"

namespace quillo {

/// A member of an object with handlers that may destroy the object. The object calls them only through this member, so
/// that a handler never ends while it runs, and the object is not used after its end.
class Lifetime {
  public:
    Lifetime() = default;
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;
    ~Lifetime() {
        for (Watch* watch = innermost_; watch != nullptr; watch = watch->outer) watch->ended = true;
    }

    /// Calls a handler of the object; an empty one does nothing. False if the object has been destroyed: the caller
    /// then returns without using it. Calls nest. An exception of the handler passes through.
    template <typename... Parameters>
    [[nodiscard]] bool Raise(const std::function<void(Parameters...)>& handler,
                             std::type_identity_t<Parameters>... arguments) const {
        if (!handler) return true;
        const std::function<void(Parameters...)> copy = handler;  // the original may be destroyed with the object
        const Watch watch(*this);
        copy(std::forward<Parameters>(arguments)...);
        return !watch.ended;
    }
    /// The same for a caller that does not use the object afterwards.
    template <typename... Parameters>
    void RaiseLast(const std::function<void(Parameters...)>& handler,
                   std::type_identity_t<Parameters>... arguments) const {
        Ignore(Raise(handler, std::forward<Parameters>(arguments)...), "nothing follows");
    }

    /// True while a handler runs.
    [[nodiscard]] bool IsRaising() const { return innermost_ != nullptr; }

  private:
    /// On the stack of Raise, where it outlives the object.
    struct Watch {
        explicit Watch(const Lifetime& watched) : lifetime(watched), outer(watched.innermost_) {
            watched.innermost_ = this;
        }
        Watch(const Watch&) = delete;
        Watch& operator=(const Watch&) = delete;
        ~Watch() {
            if (!ended) lifetime.innermost_ = outer;
        }

        const Lifetime& lifetime;
        Watch* outer;
        bool ended = false;
    };

    mutable Watch* innermost_ = nullptr;
};

}  // namespace quillo

#pragma once

#include <string_view>

#include "platform/win32.h"

namespace quillo::windows_tests {

/// The place in this program's table of imports through which its own code calls a function of the system; null when
/// it calls none of that name.
[[nodiscard]] void** ImportOf(std::string_view function);
/// Writes another function into that place.
void Redirect(void** import, void* function);

/// Counts the calls of one function of the system that this program's own code makes, for as long as the object lives.
/// At most one at a time of each `Number`, which only tells the counters apart.
template <int Number, typename Function>
class ImportCounter;

template <int Number, typename Result, typename... Arguments>
class ImportCounter<Number, Result WINAPI(Arguments...)> {
  public:
    explicit ImportCounter(std::string_view function) : import_(ImportOf(function)) {
        calls_ = 0;
        if (import_ == nullptr) return;
        original_ = *import_;
        Redirect(import_, reinterpret_cast<void*>(&Call));
    }
    ImportCounter(const ImportCounter&) = delete;
    ImportCounter& operator=(const ImportCounter&) = delete;
    ~ImportCounter() {
        if (import_ != nullptr) Redirect(import_, original_);
    }

    /// False when the program does not call that function at all, so that nothing could be counted.
    [[nodiscard]] bool IsCalled() const { return import_ != nullptr; }
    [[nodiscard]] int Calls() const { return calls_; }

  private:
    static Result WINAPI Call(Arguments... arguments) {
        ++calls_;
        return reinterpret_cast<Result(WINAPI*)(Arguments...)>(original_)(arguments...);
    }

    static inline void* original_ = nullptr;
    static inline int calls_ = 0;
    void** import_;
};

}  // namespace quillo::windows_tests

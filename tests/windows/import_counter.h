#pragma once

#include <string_view>

#include "platform/win32.h"

namespace quillo::windows_tests {

/// The entry of this program's import table through which its own code calls a system function; null if it calls no
/// function of that name.
[[nodiscard]] void** ImportOf(std::string_view function);
/// Replaces the function in that entry.
void Redirect(void** import, void* function);

/// Counts the calls that this program's own code makes to one system function, for the lifetime of the object. Counters
/// that exist at the same time have different numbers.
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

    /// False if the program never calls that function, so that nothing could be counted.
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

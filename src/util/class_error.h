#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace quillo {

/// The number of every misuse error: the base of object-defined errors plus 512.
inline constexpr std::int32_t kClassErrorNumber = -2147220992;

/// Raised when a class is misused. The source is "Class.Member".
class ClassError : public std::exception {
  public:
    ClassError(std::string source, std::string description)
        : source_(std::move(source)), description_(std::move(description)) {}

    [[nodiscard]] std::int32_t Number() const noexcept { return kClassErrorNumber; }
    [[nodiscard]] const std::string& Source() const noexcept { return source_; }
    [[nodiscard]] const std::string& Description() const noexcept { return description_; }
    [[nodiscard]] const char* what() const noexcept override { return description_.c_str(); }

  private:
    std::string source_;
    std::string description_;
};

}  // namespace quillo

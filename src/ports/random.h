#pragma once

namespace quillo {

/// Uniform random numbers.
class Random {
  public:
    virtual ~Random() = default;
    /// The next number in [0, 1).
    [[nodiscard]] virtual double Next() = 0;
};

}  // namespace quillo

#pragma once

namespace quillo {

/// Sets a flag for the duration of a scope.
class FlagScope {
  public:
    explicit FlagScope(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;
    ~FlagScope() { flag_ = before_; }

  private:
    bool& flag_;
    bool before_;
};

}  // namespace quillo

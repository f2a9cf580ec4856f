#pragma once

namespace quillo {

/// True while at least one Scope is alive; dialogs can nest.
class BusyFlag {
  public:
    BusyFlag() = default;
    BusyFlag(const BusyFlag&) = delete;
    BusyFlag& operator=(const BusyFlag&) = delete;

    [[nodiscard]] bool IsSet() const { return depth_ > 0; }

    class Scope {
      public:
        explicit Scope(BusyFlag& flag) : flag_(flag) { ++flag_.depth_; }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
        ~Scope() { --flag_.depth_; }

      private:
        BusyFlag& flag_;
    };

  private:
    int depth_ = 0;
};

}  // namespace quillo

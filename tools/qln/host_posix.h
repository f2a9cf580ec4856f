#pragma once

#include "host.h"

namespace quillo::qln {

/// Notes of a Wine prefix, or in a folder, seen from Linux.
class PosixHost : public Host {
  public:
    explicit PosixHost(Console& console);
    PosixHost(const PosixHost&) = delete;
    PosixHost& operator=(const PosixHost&) = delete;
    ~PosixHost() override;

    [[nodiscard]] Console& Terminal() override { return console_; }
    [[nodiscard]] Clock& Time() override { return *clock_; }
    [[nodiscard]] Random& Chance() override { return *random_; }
    [[nodiscard]] std::string NewGuid() override;
    [[nodiscard]] std::optional<Surroundings> Find(const FolderChoice& choice, std::string& error) override;
    [[nodiscard]] bool EditPath(bool, bool, const std::string&) override { return false; }

  private:
    Console& console_;
    std::unique_ptr<Clock> clock_;
    std::unique_ptr<Random> random_;
};

/// The standard streams.
[[nodiscard]] std::unique_ptr<Console> MakePosixConsole();

}  // namespace quillo::qln

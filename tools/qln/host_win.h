#pragma once

#include "host.h"
#include "platform/win_clock.h"

namespace quillo::qln {

/// The notes of the user who runs the program.
class WinHost : public Host {
  public:
    explicit WinHost(Console& console) : console_(console) {}

    [[nodiscard]] Console& Terminal() override { return console_; }
    [[nodiscard]] Clock& Time() override { return clock_; }
    [[nodiscard]] Random& Chance() override { return random_; }
    [[nodiscard]] std::string NewGuid() override;
    [[nodiscard]] std::optional<Surroundings> Find(const FolderChoice& choice, std::string& error) override;
    [[nodiscard]] bool EditPath(bool add, bool machine, const std::string& folder) override;

  private:
    Console& console_;
    WinClock clock_;
    WinRandom random_;
};

/// The standard streams: Unicode to a console, UTF-8 to everything else.
[[nodiscard]] std::unique_ptr<Console> MakeWinConsole();

}  // namespace quillo::qln

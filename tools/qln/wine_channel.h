#pragma once

#include <string>

#include "host.h"
#include "wine_prefix.h"

namespace quillo::qln {

/// The channel to a Quillo under Wine: a second start of the program passes a command line to the running one.
class WineChannel : public Channel {
  public:
    /// `prefix` is "" if the notes belong to no known prefix: then nothing can be sent, and every Quillo of this user
    /// counts as running. `registeredProgram` is the program that the session starts; "" if unknown.
    WineChannel(std::string prefix, std::string registeredProgram)
        : prefix_(std::move(prefix)), registeredProgram_(std::move(registeredProgram)) {}

    [[nodiscard]] bool Answers() override;
    [[nodiscard]] bool Send(const std::string& commandLine) override;
    [[nodiscard]] bool Start() override;
    [[nodiscard]] std::optional<std::string> PathForProgram(const std::string& path) override;

  private:
    struct Running {
        std::string program;
        std::string display;
    };
    [[nodiscard]] std::optional<Running> FindRunning() const;
    [[nodiscard]] std::string Program() const;

    std::string prefix_;
    std::string registeredProgram_;
};

}  // namespace quillo::qln

#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "options.h"

namespace quillo::qln {

/// One command and its options.
struct CommandRow {
    const char* name;
    const char* summary;
    void (*describe)(CLI::App& app, Options& options);
};

/// Every command, in the order of the help.
[[nodiscard]] const std::vector<CommandRow>& Commands();

/// The command line with every command and option; parsing stores the values in `options`.
[[nodiscard]] std::unique_ptr<CLI::App> BuildModel(Options& options);

}  // namespace quillo::qln

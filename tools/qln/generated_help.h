#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <string_view>

namespace quillo::qln {

/// The man page ("man"), the help page ("help") and the completions of bash and PowerShell ("bash", "powershell"),
/// generated from the model of the command line; "" for any other kind.
[[nodiscard]] std::string GeneratedHelp(const CLI::App& app, std::string_view kind);

}  // namespace quillo::qln

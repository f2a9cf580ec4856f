#pragma once

#include <string>
#include <vector>

#include "host.h"

namespace quillo::qln {

/// Runs the program: `arguments` in UTF-8, without the program's name. The exit code.
[[nodiscard]] int RunCommandLine(const std::vector<std::string>& arguments, Host& host);

}  // namespace quillo::qln

#pragma once

#include "options.h"

namespace quillo::qln {

// The commands. Each returns the program's exit code.

[[nodiscard]] int List(const Session& session);
[[nodiscard]] int Show(const Session& session);
[[nodiscard]] int FindWords(const Session& session);
[[nodiscard]] int Path(const Session& session);

}  // namespace quillo::qln

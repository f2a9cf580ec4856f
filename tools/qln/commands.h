#pragma once

#include "options.h"

namespace quillo::qln {

// The commands. Each returns the program's exit code.

[[nodiscard]] int List(const Session& session);
[[nodiscard]] int Show(const Session& session);
[[nodiscard]] int FindWords(const Session& session);
[[nodiscard]] int Path(const Session& session);
[[nodiscard]] int Export(const Session& session);
[[nodiscard]] int Backup(const Session& session);

[[nodiscard]] int New(const Session& session);
[[nodiscard]] int Import(const Session& session);
[[nodiscard]] int Restore(const Session& session);
[[nodiscard]] int Doctor(const Session& session);

[[nodiscard]] int OpenFile(const Session& session);
[[nodiscard]] int Quit(const Session& session);

}  // namespace quillo::qln

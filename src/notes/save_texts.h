#pragma once

#include <string_view>

#include "ports/file_store.h"

namespace quillo {

/// What a note tells the user whose last change could not be saved; "" for FileError::None.
[[nodiscard]] std::u16string_view SaveProblemText(FileError error);

}  // namespace quillo

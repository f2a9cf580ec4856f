#pragma once

#include <string_view>

#include "ports/file_store.h"

namespace quillo {

/// The message to the user whose last change to a note could not be saved; "" for FileError::None.
[[nodiscard]] std::u16string_view SaveProblemText(FileError error);

}  // namespace quillo

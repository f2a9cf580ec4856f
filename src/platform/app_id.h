#pragma once

#include <string_view>

#include "platform/win32.h"

namespace quillo {

/// Gives the process the name under which an installer has registered the program's name and icon, so that its balloons
/// carry them. Without the registration nothing is taken: the system would show the bare id instead. `take` is the
/// system's own call but in tests. True when it was called and has worked.
bool TakeRegisteredAppId(std::u16string_view id, HRESULT(WINAPI* take)(PCWSTR) = nullptr);

}  // namespace quillo

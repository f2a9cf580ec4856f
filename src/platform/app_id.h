#pragma once

#include <string_view>

#include "platform/win32.h"

namespace quillo {

/// Sets the application id under which an installer has registered the program's name and icon, so that its balloons
/// show them. Does nothing without the registration: the system would show the bare id instead. `take` replaces the
/// system call in tests. True if the call was made and succeeded.
bool TakeRegisteredAppId(std::u16string_view id, HRESULT(WINAPI* take)(PCWSTR) = nullptr);

}  // namespace quillo

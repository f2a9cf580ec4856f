#pragma once

#include <string>
#include <string_view>

#include "platform/win32.h"

namespace quillo {

static_assert(sizeof(wchar_t) == sizeof(char16_t), "Windows text is UTF-16");

// The core's text and the system's have the same code units under two types.

/// Null-terminated, for a system call; valid as long as `text` is.
[[nodiscard]] inline const wchar_t* Wide(const std::u16string& text) {
    return reinterpret_cast<const wchar_t*>(text.c_str());
}
[[nodiscard]] inline const wchar_t* WideData(std::u16string_view text) {
    return reinterpret_cast<const wchar_t*>(text.data());
}
[[nodiscard]] inline std::u16string_view FromWide(std::wstring_view text) {
    return {reinterpret_cast<const char16_t*>(text.data()), text.size()};
}
/// A buffer for the system to write into; the string must have been resized before.
[[nodiscard]] inline wchar_t* WideBuffer(std::u16string& text) {
    return reinterpret_cast<wchar_t*>(text.data());
}

}  // namespace quillo

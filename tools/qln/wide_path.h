#pragma once

#include <string>
#include <string_view>

#include "platform/win32.h"
#include "util/unicode.h"

namespace quillo::qln {

// File names may have lone surrogates; three bytes each preserve them.

[[nodiscard]] inline std::wstring ToWide(std::string_view text) {
    const std::u16string units = DecodeUtf8(text, LoneSurrogates::Accept).value_or(std::u16string());
    return {units.begin(), units.end()};
}

[[nodiscard]] inline std::string FromWideText(std::wstring_view text) {
    return EncodeUtf8(std::u16string(text.begin(), text.end()));
}

}  // namespace quillo::qln

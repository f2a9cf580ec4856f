#pragma once

#include "util/color_word.h"

namespace quillo {

/// A reference to one of the system's colors by its index.
[[nodiscard]] constexpr ColorWord SystemColor(std::uint32_t index) {
    return ColorWord{0x80000000U | index};
}

// The system colors that the controls use.
inline constexpr ColorWord kSystemWindow = SystemColor(5);
inline constexpr ColorWord kSystemWindowText = SystemColor(8);
inline constexpr ColorWord kSystemHighlight = SystemColor(13);
inline constexpr ColorWord kSystemButtonFace = SystemColor(15);
inline constexpr ColorWord kSystemButtonShadow = SystemColor(16);
inline constexpr ColorWord kSystemButtonText = SystemColor(18);
inline constexpr ColorWord kSystemButtonHighlight = SystemColor(20);
inline constexpr ColorWord kSystemDarkShadow = SystemColor(21);
inline constexpr ColorWord kSystem3dLight = SystemColor(22);
inline constexpr ColorWord kSystemHotLight = SystemColor(26);

}  // namespace quillo

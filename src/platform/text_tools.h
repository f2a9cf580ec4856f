#pragma once

#include <string>
#include <string_view>

#include "platform/unique_handle.h"
#include "util/geometry.h"
#include "util/units.h"

namespace quillo {

/// A font with that many points; `weight` is FW_NORMAL or FW_BOLD; with a `charset` of 0 the system chooses.
[[nodiscard]] FontHandle MakeFont(std::u16string_view name, int points, int weight, Scale scale, int charset = 0);

/// The size of a text in device pixels: on one line, or wrapped at `wrapWidth` if that is above 0.
[[nodiscard]] Size MeasureText(HDC dc, HFONT font, std::u16string_view text, int wrapWidth = 0);

/// The caption of a window of this process, or the text of a control.
[[nodiscard]] std::u16string WindowText(HWND window);

}  // namespace quillo

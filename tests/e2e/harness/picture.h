#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/win32.h"

namespace quillo::e2e {

/// Pixels without a screen, row by row, as 0x00BBGGRR.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<COLORREF> pixels;

    [[nodiscard]] std::size_t Index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
    }
    /// Fills what `area` has of the picture.
    void Fill(const RECT& area, COLORREF color);

    friend bool operator==(const Picture&, const Picture&) = default;
};

/// What the screen shows there.
[[nodiscard]] Picture PictureOfScreen(const RECT& area);

/// PNG files, by the system's own reader and writer.
[[nodiscard]] std::optional<Picture> ReadPicture(const std::wstring& path);
[[nodiscard]] bool WritePicture(const std::wstring& path, const Picture& picture);

/// In what two pictures differ: a sentence, or "" when a user would not see it.
///
/// Other versions of the libraries that draw text put slightly other grays along the edges of letters. Nothing else may
/// differ, so a difference counts when it shows in one of three ways:
/// - color: over a square of 16 by 16 pixels the mean of a channel differs by more than 4 of 255;
/// - shape: in such a square more than 24 of the 256 pixels differ by more than 48 in a channel, as they do when a
/// glyph
///   moves by one pixel;
/// - line: more than 20 pixels in one row or column, side by side, differ by more than 12, as they do when a frame
/// moves
///   by one pixel or changes its color; no letter of a dialog or note has so long an edge.
[[nodiscard]] std::string DifferenceOf(const Picture& shown, const Picture& golden);

}  // namespace quillo::e2e

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/win32.h"

namespace quillo::e2e {

/// Pixels in memory, row by row, as 0x00BBGGRR.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<COLORREF> pixels;

    [[nodiscard]] std::size_t Index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
    }
    /// Fills the part of `area` that is inside the picture.
    void Fill(const RECT& area, COLORREF color);

    friend bool operator==(const Picture&, const Picture&) = default;
};

/// The pixels of the screen in that area.
[[nodiscard]] Picture PictureOfScreen(const RECT& area);

/// PNG files, through the system's own reader and writer.
[[nodiscard]] std::optional<Picture> ReadPicture(const std::wstring& path);
[[nodiscard]] bool WritePicture(const std::wstring& path, const Picture& picture);

/// The difference between two pictures: a sentence, or "" if a user would not see it.
///
/// Other versions of the libraries that draw text produce slightly different grays at the edges of letters. Nothing
/// else may differ, so a difference counts if it shows in one of three ways:
/// - color: over a square of 16 by 16 pixels, the mean of a channel differs by more than 4 of 255;
/// - shape: in such a square, more than 24 of the 256 pixels differ by more than 48 in a channel, as after moving a
///   glyph by one pixel;
/// - line: more than 20 adjacent pixels in one row or column differ by more than 12, as after moving a frame by one
///   pixel or changing its color; no letter of a dialog or note has so long an edge.
[[nodiscard]] std::string DifferenceOf(const Picture& shown, const Picture& golden);

}  // namespace quillo::e2e

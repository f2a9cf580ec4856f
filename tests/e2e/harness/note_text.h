#pragma once

#include <string>
#include <string_view>

namespace quillo::e2e {

/// The parts of a note file, with the values of an ordinary storage copy.
struct NoteFile {
    std::string text;
    std::string position = "3000,3000,3000,2400";
    std::string appearance = "False,False,14155262,3723262,0,0";
    std::string reminder = {};
    std::string last = "<nodelete></nodelete>";

    /// The bytes of the file as the program writes them.
    [[nodiscard]] std::string Bytes() const;
};

/// The complete text of a note file, even if the code page lacks its characters.
[[nodiscard]] std::wstring TextOfFile(const std::string& bytes);

/// The position element of a rectangle given in pixels at the system's dpi.
[[nodiscard]] std::string PositionOfPixels(int left, int top, int width, int height);
/// A length in twips as pixels at the system's dpi.
[[nodiscard]] int PixelsOfTwips(double twips);
/// A length given at 96 dpi, in pixels at the system's dpi.
[[nodiscard]] int Px(int at96);

/// Converts text from the code page as the system does.
[[nodiscard]] std::wstring Widen(std::string_view narrow);
[[nodiscard]] std::string Narrow(std::wstring_view wide);

}  // namespace quillo::e2e

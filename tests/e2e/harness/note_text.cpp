#include "harness/note_text.h"

#include <cmath>

#include "notes/unicode_element.h"
#include "platform/win32.h"

namespace quillo::e2e {
namespace {

constexpr int kTwipsPerInch = 1440;

int Dpi() {
    return static_cast<int>(GetDpiForSystem());
}

/// Whole twips, as a note stores them.
std::string TwipsText(int pixels) {
    return std::to_string(std::lround(static_cast<double>(pixels) * kTwipsPerInch / Dpi()));
}

}  // namespace

std::string NoteFile::Bytes() const {
    return text + "\r\n<quillo><position>" + position + "</position><appearance>" + appearance +
           "</appearance><reminder>" + reminder + "</reminder>" + last + "</quillo>";
}

std::wstring TextOfFile(const std::string& bytes) {
    if (const auto note = ReadUnicodeElement(bytes)) return std::wstring(note->text.begin(), note->text.end());
    return Widen(bytes.substr(0, bytes.rfind("\r\n<quillo>")));
}

std::string PositionOfPixels(int left, int top, int width, int height) {
    return TwipsText(left) + "," + TwipsText(top) + "," + TwipsText(width) + "," + TwipsText(height);
}

int PixelsOfTwips(double twips) {
    return static_cast<int>(std::lround(twips * Dpi() / kTwipsPerInch));
}

int Px(int at96) {
    return MulDiv(at96, Dpi(), 96);
}

std::wstring Widen(std::string_view narrow) {
    const int size = static_cast<int>(narrow.size());
    const int length = MultiByteToWideChar(CP_ACP, 0, narrow.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_ACP, 0, narrow.data(), size, wide.data(), length);
    return wide;
}

std::string Narrow(std::wstring_view wide) {
    const int size = static_cast<int>(wide.size());
    const int length = WideCharToMultiByte(CP_ACP, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide.data(), size, narrow.data(), length, nullptr, nullptr);
    return narrow;
}

}  // namespace quillo::e2e

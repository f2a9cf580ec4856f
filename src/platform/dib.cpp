#include "platform/dib.h"

namespace quillo {
namespace {

BITMAPINFO TopDown32Bit(Size size) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.width;
    info.bmiHeader.biHeight = -size.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

}  // namespace

BitmapHandle MakeDib(Size size, std::uint32_t** pixels) {
    const BITMAPINFO info = TopDown32Bit(size);
    void* bits = nullptr;
    BitmapHandle bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    *pixels = static_cast<std::uint32_t*>(bits);
    return bitmap;
}

BitmapHandle MakeDib(Size size) {
    std::uint32_t* pixels = nullptr;
    return MakeDib(size, &pixels);
}

}  // namespace quillo

#include "controls/tab_icons.h"

#include <algorithm>

#include "platform/dib.h"
#include "platform/gdi_canvas.h"
#include "platform/gdi_scope.h"

namespace quillo {

void TabIcons::SetPicture(HBITMAP strip) {
    original_ = {};
    BITMAP info{};
    if (strip == nullptr || GetObjectW(strip, sizeof info, &info) == 0) return;
    const Size size{info.bmWidth, info.bmHeight < 0 ? -info.bmHeight : info.bmHeight};
    BITMAPINFO format = TopDown32Bit(size);
    original_.width = size.width;
    original_.height = size.height;
    original_.pixels.resize(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height));
    const WindowDcScope screen(nullptr);
    const int rows = GetDIBits(screen.Dc(), strip, 0, static_cast<UINT>(size.height), original_.pixels.data(), &format,
                               DIB_RGB_COLORS);
    if (rows != size.height) original_ = {};
}

void TabIcons::Compose(ColorWord mask, ColorWord ground, ColorWord tabGround, int edge) {
    edge_ = original_.height > 0 && edge > 0 ? edge : original_.height;
    masked_ = Compose(mask, ground);
    onTab_ = Compose(mask, tabGround);
}

BitmapHandle TabIcons::Compose(ColorWord mask, ColorWord ground) const {
    if (original_.height == 0) return {};
    const PixelPicture composed = CompositeIcons(original_, Resolve(mask), Resolve(ground));
    std::uint32_t* pixels = nullptr;
    BitmapHandle whole = MakeDib(Size{composed.width, composed.height}, &pixels);
    if (!whole) return whole;
    std::copy(composed.pixels.begin(), composed.pixels.end(), pixels);
    if (edge_ == composed.height) return whole;

    // Scaled only after composing, when every pixel is a plain color.
    const int width = composed.width * edge_ / composed.height;
    BitmapHandle scaled = MakeDib(Size{width, edge_}, &pixels);
    if (!scaled) return scaled;
    const MemoryDc from(CreateCompatibleDC(nullptr));
    const MemoryDc to(CreateCompatibleDC(nullptr));
    const SelectScope selectedFrom(from.Get(), whole.Get());
    const SelectScope selectedTo(to.Get(), scaled.Get());
    SetStretchBltMode(to.Get(), HALFTONE);
    SetBrushOrgEx(to.Get(), 0, 0, nullptr);
    StretchBlt(to.Get(), 0, 0, width, edge_, from.Get(), 0, 0, composed.width, composed.height, SRCCOPY);
    return scaled;
}

void TabIcons::Draw(HDC dc, int icon, int x, int y, bool onTab) const {
    const BitmapHandle& picture = onTab ? onTab_ : masked_;
    if (!picture) return;
    const MemoryDc source(CreateCompatibleDC(dc));
    const SelectScope selected(source.Get(), picture.Get());
    BitBlt(dc, x, y, edge_, edge_, source.Get(), (icon - 1) * edge_, 0, SRCCOPY);
}

}  // namespace quillo

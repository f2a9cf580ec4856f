#include "controls/tab_icons.h"

#include <algorithm>
#include <vector>

#include "platform/dib.h"
#include "platform/gdi_canvas.h"
#include "platform/gdi_scope.h"

namespace quillo {

void TabIcons::Compose(ColorWord mask, ColorWord ground, ColorWord tabGround, int edge) {
    const int own = original_.size.height;
    edge_ = own > 0 && edge > 0 ? edge : own;
    masked_ = Compose(mask, ground);
    onTab_ = Compose(mask, tabGround);
}

BitmapHandle TabIcons::Compose(ColorWord mask, ColorWord ground) const {
    if (edge_ == 0) return {};
    const std::vector<std::uint32_t> composed = CompositeIcons(original_, edge_, Resolve(mask), Resolve(ground));
    std::uint32_t* pixels = nullptr;
    BitmapHandle strip = MakeDib(IconStripSize(original_.size, edge_), &pixels);
    if (pixels != nullptr) std::copy(composed.begin(), composed.end(), pixels);
    return strip;
}

void TabIcons::Draw(HDC dc, int icon, int x, int y, bool onTab) const {
    const BitmapHandle& picture = onTab ? onTab_ : masked_;
    if (!picture) return;
    const MemoryDc source(CreateCompatibleDC(dc));
    const SelectScope selected(source.Get(), picture.Get());
    BitBlt(dc, x, y, edge_, edge_, source.Get(), (icon - 1) * edge_, 0, SRCCOPY);
}

}  // namespace quillo

#include "mainmenu/menu_artwork.h"

#include <algorithm>
#include <array>

#include "platform/artwork.h"
#include "platform/dib.h"
#include "platform/window_effects.h"
#include "resources/resource_ids.h"

namespace quillo {
namespace {

struct RenderedScale {
    int percent;
    int resource;
};
constexpr std::array<RenderedScale, 5> kRendered{
    {{100, IDR_MENU_100}, {125, IDR_MENU_125}, {150, IDR_MENU_150}, {175, IDR_MENU_175}, {200, IDR_MENU_200}}};

ColorWord SystemColor(int index) {
    return ColorWord{GetSysColor(index)};
}

MenuColors ColorsForUser(MenuFace face) {
    if (!HighContrastIsOn()) return ColorsOf(face);
    return ColorsOf(
        face, ContrastColors{SystemColor(COLOR_WINDOW), SystemColor(COLOR_WINDOWTEXT), SystemColor(COLOR_GRAYTEXT),
                             SystemColor(COLOR_HIGHLIGHT), SystemColor(COLOR_HIGHLIGHTTEXT)});
}

}  // namespace

BitmapHandle MenuArtwork::MainPic(const Scale& scale, const FilledSlots& filled) {
    const MenuPlanes& planes = PlanesFor(scale);
    std::uint32_t* pixels = nullptr;
    BitmapHandle bitmap = MakeDib(Size{planes.size.width, 2 * planes.size.height}, &pixels);
    if (pixels == nullptr) return {};
    const auto normal = ComposeMenu(planes, ColorsForUser(MenuFace::Normal), filled);
    const auto highlighted =
        ComposeMenu(planes, ColorsForUser(MenuFace::Highlighted), FilledSlots{true, true, true, true});
    std::copy(highlighted.begin(), highlighted.end(), std::copy(normal.begin(), normal.end(), pixels));
    return bitmap;
}

BitmapHandle MenuArtwork::ShowAllDisabledPic(const Scale& scale) {
    const MenuPlanes& planes = PlanesFor(scale);
    const Rect place{scale.Px(kShowAllPlace.left), scale.Px(kShowAllPlace.top),
                     scale.Px(kShowAllPlace.Right()) - scale.Px(kShowAllPlace.left),
                     scale.Px(kShowAllPlace.Bottom()) - scale.Px(kShowAllPlace.top)};
    std::uint32_t* pixels = nullptr;
    BitmapHandle bitmap = MakeDib(Size{place.width, place.height}, &pixels);
    if (pixels == nullptr || planes.size.width == 0) return {};
    const auto whole = ComposeMenu(planes, ColorsForUser(MenuFace::Disabled), FilledSlots{});
    for (int y = 0; y < place.height; ++y) {
        const auto row = whole.begin() + static_cast<std::ptrdiff_t>(place.top + y) * planes.size.width + place.left;
        std::copy(row, row + place.width, pixels + static_cast<std::ptrdiff_t>(y) * place.width);
    }
    return bitmap;
}

const MenuPlanes& MenuArtwork::PlanesFor(const Scale& scale) {
    const Size size{scale.Px(kMenuSize.width), scale.Px(kMenuSize.height)};
    if (planes_.size == size) return planes_;
    const auto fits = std::find_if(kRendered.begin(), kRendered.end(), [&](const RenderedScale& rendered) {
        return kMenuSize.width * rendered.percent / 100 >= size.width;
    });
    const RenderedScale& rendered = fits != kRendered.end() ? *fits : kRendered.back();
    const auto count = static_cast<std::size_t>(MenuPlane::Count);
    planes_ = ToMenuPlanes(ResizePlanes(LoadPlanes(rendered.resource, count), size));
    return planes_;
}

}  // namespace quillo

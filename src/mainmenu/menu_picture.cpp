#include "mainmenu/menu_picture.h"

#include "app/base/settings.h"
#include "mainmenu/menu_shortcuts.h"
#include "platform/gdi_scope.h"

namespace quillo {
namespace {

void Copy(HDC target, const RECT& area, HDC source, int sourceLeft, int sourceTop) {
    BitBlt(target, area.left, area.top, area.right - area.left, area.bottom - area.top, source, sourceLeft, sourceTop,
           SRCCOPY);
}

}  // namespace

void MenuPicture::Draw(const Scale& scale, const Settings& settings, int shellIconSize, const MenuIcons& icons) {
    scale_ = scale;
    mainPic_ = artwork_.MainPic(scale, FilledSlotsOf(settings));
    showAllDisabledPic_ = artwork_.ShowAllDisabledPic(scale);
    if (mainPic_) DrawIcons(settings, shellIconSize, icons);
}

void MenuPicture::DrawIcons(const Settings& settings, int shellIconSize, const MenuIcons& icons) const {
    const MemoryDc dc(CreateCompatibleDC(nullptr));
    const SelectScope selected(dc.Get(), mainPic_.Get());
    const int belowNormal = scale_.Px(kMenuSize.height);
    for (int slot = 1; slot <= kMenuSlots; ++slot) {
        const ShortcutIcon* icon =
            icons.Find(slot, settings.shortcuts.at(static_cast<std::size_t>(slot) - 1), scale_.Px(shellIconSize));
        if (icon == nullptr) continue;
        const Point at = IconPlace(slot, shellIconSize);
        const Point normal{scale_.Px(at.x), scale_.Px(at.y)};
        icon->Draw(dc.Get(), normal);
        icon->Draw(dc.Get(), Point{normal.x, normal.y + belowNormal});
    }
}

void MenuPicture::Paint(HDC target, MenuItem hovered, const MenuContents& contents) const {
    if (!mainPic_) return;
    const MemoryDc source(CreateCompatibleDC(target));
    const int belowNormal = scale_.Px(kMenuSize.height);
    {
        const SelectScope selected(source.Get(), mainPic_.Get());
        Copy(target, ScaledArea(Rect{0, 0, kMenuSize.width, kMenuSize.height}, scale_), source.Get(), 0, 0);
        const RECT lit = ScaledArea(HighlightRect(hovered), scale_);
        Copy(target, lit, source.Get(), lit.left, lit.top + belowNormal);
    }
    if (contents.hasNotes || !showAllDisabledPic_) return;
    const SelectScope selected(source.Get(), showAllDisabledPic_.Get());
    Copy(target, ScaledArea(kShowAllPlace, scale_), source.Get(), 0, 0);
}

RECT ScaledArea(const Rect& area, const Scale& scale) {
    return RECT{scale.Px(area.left), scale.Px(area.top), scale.Px(area.Right()), scale.Px(area.Bottom())};
}

FilledSlots FilledSlotsOf(const Settings& settings) {
    FilledSlots filled{};
    for (std::size_t i = 0; i < filled.size(); ++i) filled[i] = !settings.shortcuts[i].empty();
    return filled;
}

}  // namespace quillo

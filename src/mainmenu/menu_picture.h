#pragma once

#include "mainmenu/menu_artwork.h"
#include "mainmenu/menu_icons.h"
#include "mainmenu/menu_map.h"
#include "platform/unique_handle.h"
#include "util/units.h"

namespace quillo {

struct Settings;

/// The menu as painted at one resolution: the artwork with the icons of the program shortcuts in it.
class MenuPicture {
  public:
    /// Whether there is a picture for that resolution; false after DropPicture.
    [[nodiscard]] bool IsDrawn(const Scale& scale) const { return mainPic_ && scale_.Dpi() == scale.Dpi(); }
    /// Called when a shortcut or the colors of the system have changed.
    void DropPicture() { mainPic_.Reset(); }
    /// Draws everything again, with the icons of the shortcuts that are known so far.
    void Draw(const Scale& scale, const Settings& settings, int shellIconSize, const MenuIcons& icons);

    /// Paints the whole menu with its top left corner at the origin. `hovered` shows its highlighted face.
    void Paint(HDC target, MenuItem hovered, const MenuContents& contents) const;

  private:
    void DrawIcons(const Settings& settings, int shellIconSize, const MenuIcons& icons) const;

    MenuArtwork artwork_;
    BitmapHandle mainPic_;  ///< the normal face over the highlighted one
    BitmapHandle showAllDisabledPic_;
    Scale scale_;
};

/// An area of the design in device pixels: its edges are rounded, so that neighbors touch.
[[nodiscard]] RECT ScaledArea(const Rect& area, const Scale& scale);
/// Which slots have a program.
[[nodiscard]] FilledSlots FilledSlotsOf(const Settings& settings);

}  // namespace quillo

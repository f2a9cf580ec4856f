#pragma once

#include "controls/icon_compositing.h"
#include "platform/unique_handle.h"

namespace quillo {

/// The icons of a tab strip, laid once over each of the two grounds that they are shown on.
class TabIcons {
  public:
    /// Takes a strip of square icons over, as high as wide each; null takes the icons away. The bitmap may go.
    void SetPicture(HBITMAP strip);
    /// Lays the icons over the grounds, each `edge` pixels wide; 0 leaves them as large as they are.
    void Compose(ColorWord mask, ColorWord ground, ColorWord tabGround, int edge);

    /// The edge of an icon as it is drawn; 0 without icons.
    [[nodiscard]] int Edge() const { return edge_; }
    /// Copies an icon, the first is 1, onto the strip's ground or onto a tab's face.
    void Draw(HDC dc, int icon, int x, int y, bool onTab) const;

  private:
    [[nodiscard]] BitmapHandle Compose(ColorWord mask, ColorWord ground) const;

    PixelPicture original_;
    BitmapHandle masked_;  // on the strip's ground
    BitmapHandle onTab_;   // on a tab's face
    int edge_ = 0;
};

}  // namespace quillo

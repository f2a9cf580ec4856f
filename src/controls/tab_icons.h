#pragma once

#include <utility>

#include "controls/icon_compositing.h"
#include "platform/unique_handle.h"

namespace quillo {

/// The icons of a tab strip, composed with each of the two background colors that they are shown on.
class TabIcons {
  public:
    /// Takes a strip of square icons, each as wide as the strip is high; empty planes remove the icons.
    void SetPicture(CoveragePlanes strip) { original_ = std::move(strip); }
    /// Composes the icons with both backgrounds, each `edge` pixels wide; 0 keeps their size.
    void Compose(ColorWord mask, ColorWord ground, ColorWord tabGround, int edge);

    /// The edge of an icon as it is drawn; 0 without icons.
    [[nodiscard]] int Edge() const { return edge_; }
    /// Copies an icon (the first is 1) onto the strip's background or onto a tab's face.
    void Draw(HDC dc, int icon, int x, int y, bool onTab) const;

  private:
    [[nodiscard]] BitmapHandle Compose(ColorWord mask, ColorWord ground) const;

    CoveragePlanes original_;
    BitmapHandle masked_;  // on the strip's background
    BitmapHandle onTab_;   // on a tab's face
    int edge_ = 0;
};

}  // namespace quillo

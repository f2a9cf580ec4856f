#pragma once

#include "mainmenu/menu_planes.h"
#include "platform/unique_handle.h"
#include "util/units.h"

namespace quillo {

/// The main menu's pictures for any resolution, in its own colors or, in high contrast, in the user's. Creating it
/// costs little: the drawing is loaded for the first picture requested.
class MenuArtwork {
  public:
    /// The menu twice, stacked: the normal face over the highlighted one, which shows every item as it looks under the
    /// mouse. In the normal face, empty slots show a well. The caller may draw into it; null on failure.
    [[nodiscard]] BitmapHandle MainPic(const Scale& scale, const FilledSlots& filled);
    /// The picture for kShowAllPlace while there is no note to show; null on failure.
    [[nodiscard]] BitmapHandle ShowAllDisabledPic(const Scale& scale);

  private:
    const MenuPlanes& PlanesFor(const Scale& scale);

    MenuPlanes planes_;  ///< at the resolution requested last
};

}  // namespace quillo

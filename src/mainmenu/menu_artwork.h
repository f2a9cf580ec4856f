#pragma once

#include "mainmenu/menu_planes.h"
#include "platform/unique_handle.h"
#include "util/units.h"

namespace quillo {

/// The main menu's pictures for any resolution, in its own colors or, in high contrast, in the user's. Cheap to have:
/// the drawing is loaded with the first picture that is asked for.
class MenuArtwork {
  public:
    /// Twice the menu, stacked: the normal face over the highlighted one, in which every item looks as it does under
    /// the mouse. Empty slots show a well in the normal face. The caller may draw into it; null on failure.
    [[nodiscard]] BitmapHandle MainPic(const Scale& scale, const FilledSlots& filled);
    /// What stands at kShowAllPlace while there is no note to show; null on failure.
    [[nodiscard]] BitmapHandle ShowAllDisabledPic(const Scale& scale);

  private:
    const MenuPlanes& PlanesFor(const Scale& scale);

    MenuPlanes planes_;  ///< of the resolution that was asked for last
};

}  // namespace quillo

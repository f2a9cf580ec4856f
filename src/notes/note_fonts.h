#pragma once

#include <list>

#include "app/settings.h"
#include "platform/unique_handle.h"
#include "util/units.h"

namespace quillo {

/// The fonts of the notes' text boxes. Notes that look alike share one: a font costs its first measuring each time.
class NoteFonts {
  public:
    /// The note font, half as large again and bold when `large`. Borrowed; lives as long as this object.
    [[nodiscard]] HFONT Get(const FontSetting& setting, bool large, const Scale& scale);

  private:
    struct Entry {
        FontSetting setting;
        bool large;
        int dpi;
        FontHandle font;
    };
    std::list<Entry> fonts_;
};

}  // namespace quillo

#pragma once

#include <list>

#include "app/base/settings.h"
#include "platform/unique_handle.h"
#include "util/units.h"

namespace quillo {

/// The description of the note font in device pixels; if `large`, bold and half as large again.
[[nodiscard]] LOGFONTW ToLogFont(const FontSetting& setting, bool large, const Scale& scale);

/// The fonts of the notes' text boxes, shared between notes that look alike: each new font is slow to measure at first.
class NoteFonts {
  public:
    /// Borrowed; lives as long as this object.
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

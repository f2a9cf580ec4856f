#pragma once

#include "util/color_word.h"

namespace quillo {

/// The note as the color dialog sees it. The note calls NoteColorDialog::DropTarget before it ends.
class NoteColorTarget {
  public:
    virtual ~NoteColorTarget() = default;
    /// Sets the colors that the user chose; without `own`, those of the settings. Marks the note changed.
    virtual void SetColor(bool own, ColorWord noteColor, ColorWord borderColor, ColorWord textColor) = 0;
    /// The dialog has closed: the note can open it again.
    virtual void ColorClosing() = 0;
};

}  // namespace quillo

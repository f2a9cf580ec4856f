#pragma once

#include "notes/note_face.h"
#include "platform/accessible.h"
#include "platform/drawn_window.h"
#include "platform/unique_handle.h"
#include "util/color_word.h"
#include "util/units.h"

namespace quillo {

/// The look of a new note.
struct NotePreviewLook {
    ColorWord note;
    ColorWord border;
    ColorWord text;
    BarStyle barStyle = BarStyle::Full;
    bool manyColors = false;  ///< each new note gets colors of its own
    HFONT font = nullptr;     ///< borrowed until the next look
    Scale scale;
};

/// A small note that shows the look of new notes. It does not react to the mouse or the keys.
class NotePreview : public DrawnWindow, private AccessibleSource {
  public:
    /// Screen readers speak `name`. False on failure.
    bool Create(HWND parent, int id, const wchar_t* name);
    void Show(const NotePreviewLook& look);

  protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void OnPaint() override;

    // AccessibleSource
    [[nodiscard]] AccessiblePart Describe(int part) const override;

    NotePreviewLook look_;
    AccessibleLink accessible_{*this};
};

}  // namespace quillo

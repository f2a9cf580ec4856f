#pragma once

#include <functional>

#include "controls/note_button_images.h"
#include "notes/note_fonts.h"
#include "platform/after_painting.h"
#include "platform/app_icons.h"
#include "platform/window.h"

namespace quillo {

class ResForm;

/// What exists once for the windows of all notes, and outlives them.
struct NoteResources {
    ResForm& menus;
    WindowClass windowClass;  ///< NoteForm::Class()
    NoteButtonImages images{};
    SharedIcons icons{};
    NoteFonts fonts{};
    AfterPainting afterPainting{};
    /// Called before the icon of a note is shown beside the clock.
    std::function<void()> beforeIcon{};
};

}  // namespace quillo

#pragma once

#include "notes/open_note.h"

namespace quillo {

/// A note as the forms of its reminder see it.
[[nodiscard]] inline ReminderOwner& AsReminderOwner(OpenNote& note) {
    return note;
}
/// A note as the color dialog sees it.
[[nodiscard]] inline NoteColorTarget& AsColorTarget(OpenNote& note) {
    return note;
}

}  // namespace quillo

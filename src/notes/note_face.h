#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ports/canvas.h"
#include "util/color_word.h"
#include "util/day_serial.h"
#include "util/geometry.h"
#include "util/units.h"

namespace quillo {

class LocaleText;

/// The places of the parts of a note in a client area, in device pixels.
struct NoteLayout {
    Rect menuButton;
    Rect pushpin;
    Rect closeButton;
    Rect saveSign;  ///< beside the menu button; empty if the buttons leave no space
    Rect dragBar;   ///< the whole strip, buttons included
    Rect messageBox;
    Rect reminderLabel;  ///< the foot left of the grip; the label is at its left end
};

/// The design size of a new note's client area, in twips.
inline constexpr int kNewNoteWidth = 2820;
inline constexpr int kNewNoteHeight = 2445;
/// Between the text and the sides of its box, in pixels at 96 dpi.
inline constexpr int kNoteTextMargin = 6;

/// At any size no part has a negative extent and none overlaps another.
[[nodiscard]] NoteLayout LayOutNote(Size client, const Scale& scale);

/// The parts of `area` that the note itself paints: above its text box, below it and on either side. None is empty, and
/// none overlaps another.
[[nodiscard]] std::vector<Rect> PartsToPaint(Size client, const Rect& textBox, const Rect& area);

/// The effect of a press at a point of the note.
enum class NoteHit { Nothing, Bottom, BottomRight };

/// `at` is in pixels from the window's top left corner. Only the bottom edge and its right corner resize a note.
[[nodiscard]] NoteHit HitTestNote(Point at, Size client, const Scale& scale);

/// The label of a note's reminder: the time alone when its day of the month is today's (intended: other months too),
/// else the short date, two spaces and the time ("h:nn am/pm").
[[nodiscard]] std::u16string ReminderLabel(DaySerial reminder, DaySerial now, LocaleText& locale);

/// The colors a note is painted in; plain RGB, already resolved.
struct NotePaint {
    ColorWord note;
    ColorWord border;
};

/// Outline, fill, reminder label (when not empty) and grip, in the order and at the places of the design.
void PaintNote(Canvas& canvas, Size client, const Scale& scale, const NotePaint& colors,
               std::u16string_view reminderLabel);

/// How the drag bar is drawn.
struct DragBarPaint {
    ColorWord top;
    ColorWord bottom;
    ColorWord glyph;  ///< ink or its light counterpart, whichever contrasts more with the whole bar
};

enum class BarStyle {
    Full,    ///< a gradient from the border color to a 35 % mix with the note color
    Flat,    ///< the border color alone
    Subtle,  ///< one color, slightly different from the note's
};
/// The user's wish has priority over the system's high contrast, in which a gradient would distract.
[[nodiscard]] BarStyle BarStyleFor(bool subtleWanted, bool systemHighContrast);
/// The drag bar's colors; paler while the note is inactive.
[[nodiscard]] DragBarPaint DragBarColors(ColorWord note, ColorWord border, BarStyle style, bool active);

/// Where a new note is placed, in twips: near the middle of the screen, scattered by up to 750 twips each way.
/// `screen` and `note` are in twips; `r1` (across) and `r2` (down) are uniform in [0, 1), drawn in this order.
[[nodiscard]] Point PlaceNewNote(Size screen, Size note, double r1, double r2);

}  // namespace quillo

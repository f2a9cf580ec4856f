#include "notes/note_face.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "ports/locale_text.h"
#include "util/palette.h"

namespace quillo {

namespace {

// The design's figures, in pixels at 96 dpi.
constexpr int kBorder = 1;
constexpr int kBar = 20;
constexpr int kAir = 3;
constexpr int kFoot = 12;
constexpr int kLabelLeft = 4;
constexpr int kLabelPoints = 7;
constexpr int kGripReach = 20;  // what the label leaves free for the grip

Rect Inset(Size client, int by) {
    return Rect{by, by, std::max(0, client.width - 2 * by), std::max(0, client.height - 2 * by)};
}

Rect Intersection(const Rect& a, const Rect& b) {
    const int left = std::max(a.left, b.left);
    const int top = std::max(a.top, b.top);
    return Rect{left, top, std::max(0, std::min(a.Right(), b.Right()) - left),
                std::max(0, std::min(a.Bottom(), b.Bottom()) - top)};
}

void FillUnlessEmpty(Canvas& canvas, const Rect& area, ColorWord color) {
    if (area.width > 0 && area.height > 0) canvas.Fill(area, color);
}

std::u16string Digits(int number, int atLeast) {
    std::u16string digits;
    for (; number > 0 || atLeast > 0; number /= 10, --atLeast) {
        digits.insert(digits.begin(), static_cast<char16_t>(u'0' + number % 10));
    }
    return digits;
}

std::u16string ClockTime(const CivilTime& time) {
    const int hour = time.hour % 12 == 0 ? 12 : time.hour % 12;
    return Digits(hour, 1) + u":" + Digits(time.minute, 2) + (time.hour < 12 ? u" am" : u" pm");
}

}  // namespace

NoteLayout LayOutNote(Size client, const Scale& scale) {
    const Rect inner = Inset(client, scale.Px(kBorder));
    const int button = scale.Px(kBar);

    NoteLayout layout;
    layout.dragBar = Rect{inner.left, inner.top, inner.width, std::min(button, inner.height)};
    const Rect& bar = layout.dragBar;
    // On a note too narrow for all three, the close button stays whole longest, then the menu button.
    const int close = std::min(button, bar.width);
    const int menu = std::min(button, bar.width - close);
    const int pin = std::min(button, bar.width - close - menu);
    layout.menuButton = Rect{bar.left, bar.top, menu, bar.height};
    layout.pushpin = Rect{bar.Right() - close - pin, bar.top, pin, bar.height};
    layout.closeButton = Rect{bar.Right() - close, bar.top, close, bar.height};
    const int between = layout.pushpin.left - layout.menuButton.Right();
    layout.saveSign = Rect{layout.menuButton.Right(), bar.top, std::min(button, between), bar.height};

    const int foot = client.height - scale.Px(kFoot);
    const int top = std::min(bar.Bottom() + scale.Px(kAir), std::max(bar.Bottom(), foot));
    layout.messageBox = Rect{inner.left, top, inner.width, std::max(0, foot - top)};
    const int label = scale.Px(kLabelLeft);
    const int right = client.width - scale.Px(kGripReach);
    const int under = std::max(bar.Bottom(), foot);
    layout.reminderLabel = Rect{label, under, std::max(0, right - label), std::max(0, client.height - under)};
    return layout;
}

std::vector<Rect> PartsToPaint(Size client, const Rect& textBox, const Rect& area) {
    const Rect above{0, 0, client.width, textBox.top};
    const Rect below{0, textBox.Bottom(), client.width, client.height - textBox.Bottom()};
    const Rect left{0, textBox.top, textBox.left, textBox.height};
    const Rect right{textBox.Right(), textBox.top, client.width - textBox.Right(), textBox.height};
    std::vector<Rect> parts;
    for (const Rect& part : {above, below, left, right}) {
        const Rect painted = Intersection(part, area);
        if (painted.width > 0 && painted.height > 0) parts.push_back(painted);
    }
    return parts;
}

NoteHit HitTestNote(Point at, Size client, const Scale& scale) {
    const int edge = scale.Px(kFoot);
    if (at.y <= client.height - edge) return NoteHit::Nothing;
    return at.x > client.width - edge ? NoteHit::BottomRight : NoteHit::Bottom;
}

std::u16string ReminderLabel(DaySerial reminder, DaySerial now, LocaleText& locale) {
    const CivilTime due = ToCivilTime(reminder);
    // Intended: only the day of the month is compared, so the label of a reminder in another month may be as short as
    // today's.
    if (due.day == ToCivilTime(now).day) return ClockTime(due);
    return locale.ShortDate(reminder) + u"  " + ClockTime(due);
}

void PaintNote(Canvas& canvas, Size client, const Scale& scale, const NotePaint& colors,
               std::u16string_view reminderLabel) {
    if (client.width <= 0 || client.height <= 0) return;
    const int width = client.width;
    const int height = client.height;
    const int stroke = scale.Px(kBorder);
    const Rect inner = Inset(client, stroke);

    canvas.Box(Rect{0, 0, width, height}, stroke, colors.border);
    FillUnlessEmpty(canvas, inner, colors.note);
    if (!reminderLabel.empty()) {
        canvas.Text(Point{scale.Px(kLabelLeft), height - scale.Px(kFoot)}, reminderLabel, kLabelPoints, colors.border);
        // A long label must not overlap the grip.
        const Rect corner{width - scale.Px(kGripReach), height - scale.Px(9), scale.Px(kGripReach), scale.Px(9)};
        FillUnlessEmpty(canvas, Intersection(corner, inner), colors.note);
    }
    // Rounded down, or the grip's lines would merge at 150 percent.
    const int gripStroke = std::max(1, scale.Dpi() / kDesignDpi);
    for (const int reach : {9, 6, 3}) {
        canvas.Line(Point{width - scale.Px(reach), height - 1}, Point{width - 1, height - scale.Px(reach)}, gripStroke,
                    colors.border);
    }
}

BarStyle BarStyleFor(bool subtleWanted, bool systemHighContrast) {
    if (subtleWanted) return BarStyle::Subtle;
    return systemHighContrast ? BarStyle::Flat : BarStyle::Full;
}

DragBarPaint DragBarColors(ColorWord note, ColorWord border, BarStyle style, bool active) {
    constexpr int kSubtlePercent = 25;
    const ColorWord bottom = Mix(note, border, 35);
    DragBarPaint paint;
    paint.top = style == BarStyle::Subtle ? Mix(border, note, kSubtlePercent) : border;
    paint.bottom = style == BarStyle::Full ? bottom : paint.top;
    if (!active) {
        paint.top = Mix(paint.top, note, 50);
        paint.bottom = Mix(paint.bottom, note, 50);
    }

    const auto worst = [&paint](ColorWord glyph) {
        return std::min(ContrastRatio(glyph, paint.top), ContrastRatio(glyph, paint.bottom));
    };
    paint.glyph = worst(palette::kInk) >= worst(palette::kLightInk) ? palette::kInk : palette::kLightInk;
    return paint;
}

Point PlaceNewNote(Size screen, Size note, double r1, double r2) {
    constexpr int kScatter = 1500;
    const auto place = [](int room, double random) {
        return room / 2 + static_cast<int>(std::floor(random * kScatter)) - kScatter / 2;
    };
    return Point{place(screen.width - note.width, r1), place(screen.height - note.height, r2)};
}

}  // namespace quillo

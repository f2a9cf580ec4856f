#include "notes/note_print.h"

#include <algorithm>
#include <cmath>

#include "app/base/app_identity.h"
#include "app/base/settings.h"
#include "notes/note.h"
#include "notes/note_face.h"
#include "notes/print_lines.h"
#include "ports/locale_text.h"
#include "util/numbers.h"
#include "util/text.h"
#include "util/unicode.h"

namespace quillo {

namespace {

constexpr std::u16string_view kHeading = u"Sticky note";
constexpr std::u16string_view kReminderLabel = u"Reminder:  ";
constexpr std::u16string_view kPrintedLabel = u"Printed  ";
/// The text whose height is the line height of the body.
constexpr std::u16string_view kTallText = u"Wg";

// Sizes in points.
constexpr int kHeadingPoints = 24;
constexpr int kDatePoints = 14;
constexpr int kFooterPoints = 8;
constexpr int kBodyPoints = 10;

// Lengths in inches.
constexpr double kMargin = 0.5;
constexpr double kRuleTop = 0.06;     ///< below the date line
constexpr double kRuleBottom = 0.12;  ///< below the date line
constexpr double kGap = 0.06;         ///< between the rule and the body, and between the body and the footer

constexpr std::size_t kLongestDocumentName = 40;

/// The border's color, or another of the note's colors if the border would be invisible on paper.
ColorWord RuleColor(const Note& note) {
    constexpr ColorWord kPaper = ColorWord::FromRgb(255, 255, 255);
    constexpr double kVisible = 1.2;  // contrast; the palest border of the palette has 1.4
    for (const ColorWord color : {note.BorderColor, note.NoteColor}) {
        if (color.IsSystemColor() || ContrastRatio(color, kPaper) >= kVisible) return color;
    }
    return note.TextColor;
}

/// The part of the paper inside the margins that the printer can reach.
Rect UsableArea(const PrintSheet& sheet, int marginAcross, int marginDown) {
    const int left = std::max(marginAcross, sheet.printable.left);
    const int top = std::max(marginDown, sheet.printable.top);
    const int right = std::min(sheet.paper.width - marginAcross, sheet.printable.Right());
    const int bottom = std::min(sheet.paper.height - marginDown, sheet.printable.Bottom());
    return Rect{left, top, std::max(0, right - left), std::max(0, bottom - top)};
}

/// The pages of one note.
class NotePages {
  public:
    NotePages(PrintJob& job, const PrintedNote& note) : job_(job), note_(note), sheet_(job.Sheet()), lines_(note.text) {
        usable_ = UsableArea(sheet_, Dots(kMargin, sheet_.dotsPerInchAcross), Down(kMargin));
    }

    void Print() {
        do {
            if (!job_.StartPage()) return;
            ++page_;
            const int top = PrintHead();
            const int bottom = PrintFooter();
            PrintBody(top, bottom);
            job_.EndPage();
        } while (!lines_.AtEnd());
    }

  private:
    static int Dots(double inches, int dotsPerInch) { return static_cast<int>(std::lround(inches * dotsPerInch)); }
    [[nodiscard]] int Down(double inches) const { return Dots(inches, sheet_.dotsPerInchDown); }

    void UseFont(int points, bool bold) {
        PrintFont font = note_.font;
        font.points = points;
        font.bold = bold;
        job_.SetFont(font);
    }
    /// Writes a line at the left margin; returns the place of the next one.
    int WriteLine(int y, std::u16string_view line) {
        job_.Text(Point{usable_.left, y}, line);
        return y + job_.Measure(line).height;
    }
    void WriteAtRightMargin(int y, std::u16string_view line) {
        job_.Text(Point{usable_.Right() - job_.Measure(line).width, y}, line);
    }

    /// Heading, date line and rule; returns the start of the body.
    int PrintHead() {
        UseFont(kHeadingPoints, true);
        int y = WriteLine(usable_.top, kHeading);
        UseFont(kDatePoints, false);
        y = WriteLine(y, note_.dateLine);
        const int ruleBottom = y + Down(kRuleBottom);
        const int ruleTop = y + Down(kRuleTop);
        job_.Fill(Rect{usable_.left, ruleTop, usable_.width, std::max(1, ruleBottom - ruleTop)}, note_.rule);
        return ruleBottom + Down(kGap);
    }

    /// The maker's address at the foot of the page, and the page number level with the heading; returns the end of the
    /// body.
    int PrintFooter() {
        UseFont(kFooterPoints, false);
        const int y = usable_.Bottom() - job_.Measure(kMakerHost).height;
        WriteAtRightMargin(y, kMakerHost);
        WriteAtRightMargin(usable_.top, FormatInteger(page_));
        return y - Down(kGap);
    }

    void PrintBody(int top, int bottom) {
        UseFont(kBodyPoints, note_.font.bold);
        const int height = std::max(1, job_.Measure(kTallText).height);
        int y = top;
        // A page too low for a single line still gets one, so that printing ends.
        while (!lines_.AtEnd() && (y + height <= bottom || y == top)) {
            const std::u16string_view line = lines_.Next(job_, usable_.width);
            if (!line.empty()) job_.Text(Point{usable_.left, y}, line);
            y += height;
        }
    }

    PrintJob& job_;
    const PrintedNote& note_;
    PrintSheet sheet_;
    Rect usable_;
    PrintLines lines_;
    int page_ = 0;
};

}  // namespace

PrintedNote MakePrintedNote(std::u16string_view text, const Note& note, const FontSetting& font, DaySerial now,
                            LocaleText& locale) {
    PrintedNote printed;
    printed.text = text;
    printed.dateLine = note.ReminderSet ? std::u16string(kReminderLabel) + locale.GeneralDate(note.ReminderTime)
                                        : std::u16string(kPrintedLabel) + locale.GeneralDate(now);
    printed.font =
        PrintFont{font.name, kBodyPoints, font.bold, font.italic, font.underline, font.strikeThrough, font.charset};
    printed.rule = RuleColor(note);
    return printed;
}

std::u16string PrintDocumentName(std::u16string_view text) {
    std::u16string line;
    for (const char16_t c : text) {
        const bool blank = c <= u' ';
        if (!blank) line.push_back(c);
        if (blank && !line.empty() && line.back() != u' ') line.push_back(u' ');
        if (line.size() > kLongestDocumentName) break;
    }
    std::u16string_view words = line;
    if (words.size() > kLongestDocumentName) {
        const std::size_t blank = words.find_last_of(u' ');
        words = blank != std::u16string_view::npos ? words.substr(0, blank) : CutText(words, kLongestDocumentName);
    }
    words = Trim(words);
    return std::u16string(words.empty() ? kHeading : words);
}

PrintOutcome PrintPages(PrintJob& job, const PrintedNote& note) {
    NotePages(job, note).Print();
    return job.Finish();
}

}  // namespace quillo

#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "util/color_word.h"
#include "util/geometry.h"

namespace quillo {

/// A font on paper.
struct PrintFont {
    std::u16string name;
    int points = 10;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeThrough = false;
    int charset = 0;  ///< applied when above 0
    friend bool operator==(const PrintFont&, const PrintFont&) = default;
};

/// A sheet of the printer's paper, in dots from its top left corner.
struct PrintSheet {
    Size paper;
    Rect printable;  ///< the part of the paper that the printer can reach
    int dotsPerInchAcross = 1;
    int dotsPerInchDown = 1;
};

enum class PrintOutcome {
    Printed,
    Canceled,  ///< by the user, in one of the printer's own windows
    Failed,
};

/// A document to be printed. A step that fails is remembered: no further page starts, and nothing of the document is
/// printed. Coordinates are dots of the sheet.
class PrintJob {
  public:
    /// A job that was not finished is withdrawn.
    virtual ~PrintJob() = default;

    [[nodiscard]] virtual PrintSheet Sheet() const = 0;
    /// False once anything has failed.
    [[nodiscard]] virtual bool StartPage() = 0;
    virtual void EndPage() = 0;
    /// Hands the document to the printer. The last call, also after a failure.
    [[nodiscard]] virtual PrintOutcome Finish() = 0;

    /// Applies to everything measured and written from now on, on this page and later ones.
    virtual void SetFont(const PrintFont& font) = 0;
    [[nodiscard]] virtual Size Measure(std::u16string_view line) = 0;
    /// How many characters, counted from the first, fit in `width` dots. The cost grows with the length of the text.
    [[nodiscard]] virtual std::size_t CountThatFit(std::u16string_view line, int width) = 0;
    /// Writes one line in black with its top left corner at `at`.
    virtual void Text(Point at, std::u16string_view line) = 0;
    virtual void Fill(const Rect& area, ColorWord color) = 0;
};

/// The system's default printer.
class Printer {
  public:
    virtual ~Printer() = default;
    /// Never null: without a printer the result is a job that has already failed. The printer may show a window of its
    /// own and pump messages.
    [[nodiscard]] virtual std::unique_ptr<PrintJob> Open(std::u16string_view documentName) = 0;
};

}  // namespace quillo

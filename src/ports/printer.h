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
    Rect printable;  ///< the part of the paper that ink reaches
    int dotsPerInchAcross = 1;
    int dotsPerInchDown = 1;
};

enum class PrintOutcome {
    Printed,
    Cancelled,  ///< by the user, in a window of the printer's own
    Failed,
};

/// A document on its way to the printer. A step that fails is remembered: no page starts after it, and nothing of the
/// document is printed. Coordinates are dots of the sheet.
class PrintJob {
  public:
    /// A job that was not finished is withdrawn.
    virtual ~PrintJob() = default;

    [[nodiscard]] virtual PrintSheet Sheet() const = 0;
    /// False once anything has failed.
    [[nodiscard]] virtual bool StartPage() = 0;
    virtual void EndPage() = 0;
    /// Hands the document to the printer; to be called last, whatever has failed.
    [[nodiscard]] virtual PrintOutcome Finish() = 0;

    /// For all that is measured and written from now on, this page's or a later one's.
    virtual void SetFont(const PrintFont& font) = 0;
    [[nodiscard]] virtual Size Measure(std::u16string_view line) = 0;
    /// How many characters, from the first on, stand side by side in `width` dots. Its cost follows the text's length.
    [[nodiscard]] virtual std::size_t CountThatFit(std::u16string_view line, int width) = 0;
    /// Writes one line in black with its top left corner at `at`.
    virtual void Text(Point at, std::u16string_view line) = 0;
    virtual void Fill(const Rect& area, ColorWord color) = 0;
};

/// The system's default printer.
class Printer {
  public:
    virtual ~Printer() = default;
    /// Never null: without a printer it is a job that has failed already. A window of the printer's own may come up and
    /// pump messages.
    [[nodiscard]] virtual std::unique_ptr<PrintJob> Open(std::u16string_view documentName) = 0;
};

}  // namespace quillo

#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ports/printer.h"

namespace quillo {

/// What was printed, page by page.
struct RecordedDocument {
    struct Line {
        Point at;
        std::u16string text;
        PrintFont font;
    };
    struct Bar {
        Rect area;
        ColorWord color;
    };
    struct Page {
        std::vector<Line> lines;
        std::vector<Bar> bars;
        bool ended = false;
    };

    std::u16string name;
    std::vector<Page> pages;
    bool printed = false;
    bool withdrawn = false;
    std::size_t charactersMeasured = 0;
};

/// A printer that keeps its documents. A character is half as wide as its font's points, "W" twice that, a combining
/// accent nothing; a line is one point higher than its font. A point is one dot unless the sheet says otherwise.
class RecordingPrinter : public Printer {
  public:
    [[nodiscard]] std::unique_ptr<PrintJob> Open(std::u16string_view documentName) override;

    /// Letter paper without margins, one dot to a point.
    PrintSheet sheet{Size{612, 792}, Rect{0, 0, 612, 792}, 72, 72};
    PrintOutcome opens = PrintOutcome::Printed;  ///< any other value: opening fails this way
    std::size_t failingPage = 0;                 ///< the page, from 1, on which writing fails; 0 for none
    std::vector<RecordedDocument> documents;
};

}  // namespace quillo

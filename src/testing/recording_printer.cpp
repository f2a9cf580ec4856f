#include "testing/recording_printer.h"

namespace quillo {

namespace {

class RecordingJob : public PrintJob {
  public:
    RecordingJob(RecordingPrinter& printer, std::size_t document)
        : printer_(printer), document_(document), outcome_(printer.opens) {}
    ~RecordingJob() override { Document().withdrawn = !Document().printed; }

    [[nodiscard]] PrintSheet Sheet() const override { return printer_.sheet; }

    [[nodiscard]] bool StartPage() override {
        if (outcome_ != PrintOutcome::Printed) return false;
        Document().pages.emplace_back();
        return true;
    }

    void EndPage() override { Document().pages.back().ended = true; }

    [[nodiscard]] PrintOutcome Finish() override {
        Document().printed = outcome_ == PrintOutcome::Printed;
        return outcome_;
    }

    void SetFont(const PrintFont& font) override { font_ = font; }

    [[nodiscard]] Size Measure(std::u16string_view line) override {
        Document().charactersMeasured += line.size();
        Size size{0, (font_.points + 1) * printer_.sheet.dotsPerInchDown / 72};
        for (const char16_t c : line) size.width += WidthOf(c);
        return size;
    }

    [[nodiscard]] std::size_t CountThatFit(std::u16string_view line, int width) override {
        Document().charactersMeasured += line.size();
        std::size_t count = 0;
        for (int used = 0; count < line.size(); ++count) {
            used += WidthOf(line[count]);
            if (used > width) break;
        }
        return count;
    }

    void Text(Point at, std::u16string_view line) override {
        if (Document().pages.size() == printer_.failingPage) outcome_ = PrintOutcome::Failed;
        Document().pages.back().lines.push_back({at, std::u16string(line), font_});
    }

    void Fill(const Rect& area, ColorWord color) override { Document().pages.back().bars.push_back({area, color}); }

  private:
    [[nodiscard]] RecordedDocument& Document() const { return printer_.documents[document_]; }
    [[nodiscard]] int WidthOf(char16_t c) const {
        const int narrow = font_.points * printer_.sheet.dotsPerInchAcross / 144;
        constexpr char16_t kCombiningAcute = 0x0301;
        return c == u'W' ? 2 * narrow : c == kCombiningAcute ? 0 : narrow;
    }

    RecordingPrinter& printer_;
    std::size_t document_;
    PrintOutcome outcome_;
    PrintFont font_;
};

}  // namespace

std::unique_ptr<PrintJob> RecordingPrinter::Open(std::u16string_view documentName) {
    documents.emplace_back();
    documents.back().name = documentName;
    return std::make_unique<RecordingJob>(*this, documents.size() - 1);
}

}  // namespace quillo

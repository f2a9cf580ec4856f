#include "notes/print_lines.h"

#include <algorithm>

#include "ports/printer.h"
#include "util/unicode.h"

namespace quillo {

namespace {

/// How much of a long paragraph is measured for a line at first: slightly more than usual lines have.
constexpr std::size_t kFirstMeasured = 256;
/// The maximum length of a line, however narrow its characters are: the limit of the system call.
constexpr std::size_t kLongestLine = 4096;
constexpr std::size_t kBlanksOfTab = 2;

std::u16string Printable(std::u16string_view text) {
    std::u16string printable;
    printable.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        if (text.substr(i, 2) == u"\r\n") {
            printable.push_back(u'\n');
            ++i;
        } else if (c == u'\t') {
            printable.append(kBlanksOfTab, u' ');
        } else {
            printable.push_back(c < u' ' ? u' ' : c);  // a control character has no glyph
        }
    }
    return printable;
}

std::size_t CountThatFit(PrintJob& job, std::u16string_view paragraph, int width) {
    for (std::size_t measured = kFirstMeasured;; measured *= 2) {
        const std::u16string_view piece = paragraph.substr(0, measured);
        const std::size_t fit = std::min(job.CountThatFit(piece, width), piece.size());
        if (fit < piece.size() || piece.size() == paragraph.size() || measured >= kLongestLine) return fit;
    }
}

/// Where to break a word of which `fit` characters fit in a line: after at least one, and never inside a character of
/// two units.
std::size_t BreakInWord(std::u16string_view word, std::size_t fit) {
    const auto isSecondHalf = [word](std::size_t i) { return i < word.size() && IsLowSurrogate(word[i]); };
    std::size_t at = std::max<std::size_t>(fit, 1);
    if (isSecondHalf(at)) at = at > 1 ? at - 1 : 2;
    return at;
}

}  // namespace

PrintLines::PrintLines(std::u16string_view text) : text_(Printable(text)) {
    MoveTo(0);
}

std::u16string_view PrintLines::Next(PrintJob& job, int width) {
    const std::u16string_view paragraph = Paragraph();
    const std::size_t fit = CountThatFit(job, paragraph, width);
    if (fit == paragraph.size()) {
        MoveTo(paragraphEnd_ + 1);
        return paragraph;
    }
    const std::size_t blank = paragraph.find_last_of(u' ', fit);
    // A blank at the start leaves nothing before it to print.
    if (blank == std::u16string_view::npos || blank == 0) {
        const std::size_t cut = BreakInWord(paragraph, fit);
        MoveTo(cut == paragraph.size() ? paragraphEnd_ + 1 : at_ + cut);
        return paragraph.substr(0, cut);
    }
    const std::size_t next = blank + 1;
    MoveTo(next == paragraph.size() ? paragraphEnd_ + 1 : at_ + next);
    return paragraph.substr(0, blank);
}

std::u16string_view PrintLines::Paragraph() {
    return std::u16string_view(text_).substr(at_, paragraphEnd_ - at_);
}

void PrintLines::MoveTo(std::size_t at) {
    const bool nextParagraph = at == 0 || at > paragraphEnd_;
    at_ = at;
    if (nextParagraph) paragraphEnd_ = std::min(text_.find(u'\n', std::min(at_, text_.size())), text_.size());
}

}  // namespace quillo

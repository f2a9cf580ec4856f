#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillo {

class PrintJob;

/// Breaks a note's text into printed lines, one at a time and in time proportional to the text's length. A line takes
/// as many words as fit, but at least one character; a line break always ends it; a word wider than the line is broken
/// at the width. The one blank at which a line was broken is not printed; all others are.
class PrintLines {
  public:
    explicit PrintLines(std::u16string_view text);

    [[nodiscard]] bool AtEnd() const { return at_ >= text_.size(); }
    /// The next line in the job's current font; valid as long as this object.
    [[nodiscard]] std::u16string_view Next(PrintJob& job, int width);

  private:
    /// The rest of the paragraph, without its line break.
    [[nodiscard]] std::u16string_view Paragraph();
    void MoveTo(std::size_t at);

    std::u16string text_;  ///< the printable text, with a line feed for each line break
    std::size_t at_ = 0;
    std::size_t paragraphEnd_ = 0;  ///< the end of the paragraph that contains `at_`
};

}  // namespace quillo

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "note_library.h"

namespace quillo::qln {

/// Where a word was found in a line, in its units.
struct Match {
    std::size_t at = 0;
    std::size_t size = 0;
    friend bool operator==(const Match&, const Match&) = default;
};

/// A note that has every word, with the line that has most of them.
struct Hit {
    StoredNote note;
    std::u16string line;
    std::vector<Match> matches;
};

/// Words that are looked for without regard to case and accents.
class Search {
  public:
    explicit Search(const std::vector<std::string>& words);

    /// Whether the text has every word.
    [[nodiscard]] bool Matches(std::u16string_view text) const;
    /// False for a file that cannot have every word; true says nothing yet.
    [[nodiscard]] bool MayMatch(std::string_view bytes) const;
    /// The line with most of the words, its blanks at the ends removed, and where they are in it.
    void DescribeHit(Hit& hit) const;

    /// The notes among `entries` that have every word, in their order. Files that cannot be read go to `unread`.
    [[nodiscard]] std::vector<Hit> Find(const std::vector<NoteEntry>& entries, LocaleText& locale,
                                        std::vector<std::string>& unread) const;

  private:
    [[nodiscard]] std::vector<Match> MatchesIn(std::u16string_view line, std::size_t& found) const;

    std::vector<std::u16string> words_;
    std::vector<std::string> plainWords_;  // the same in ASCII; none where a word is not
    bool allPlain_ = true;
};

}  // namespace quillo::qln

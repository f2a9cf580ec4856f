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

/// A search for words without regard to case and accents.
class Search {
  public:
    explicit Search(const std::vector<std::string>& words);

    /// Whether the text has every word.
    [[nodiscard]] bool Matches(std::u16string_view text) const;
    /// False for a file that cannot have every word; true means that it may.
    [[nodiscard]] bool MayMatch(std::string_view bytes) const;
    /// Finds the line with most of the words, trimmed, and the places of the words in it.
    void DescribeHit(Hit& hit) const;

    /// The notes among `entries` that have every word, in their order. `unread` receives the files that cannot be read.
    [[nodiscard]] std::vector<Hit> Find(const std::vector<NoteEntry>& entries, LocaleText& locale,
                                        std::vector<std::string>& unread) const;

  private:
    [[nodiscard]] std::vector<Match> MatchesIn(std::u16string_view line, std::size_t& found) const;

    std::vector<std::u16string> words_;
    std::vector<std::string> plainWords_;  // the same in ASCII; none if a word is not ASCII
    bool allPlain_ = true;
};

}  // namespace quillo::qln

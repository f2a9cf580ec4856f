#include "search.h"

#include <algorithm>

#include "folding.h"
#include "notes/unicode_element.h"
#include "util/text.h"
#include "util/unicode.h"

namespace quillo::qln {
namespace {

/// Whether the bytes contain the word, which is in lower case, in any letter case.
bool HoldsPlainWord(std::string_view lowered, const std::string& word) {
    return lowered.find(word) != std::string_view::npos;
}

std::u16string_view WithoutBlanks(std::u16string_view line) {
    constexpr std::u16string_view kBlanks = u" \t";
    const std::size_t first = line.find_first_not_of(kBlanks);
    if (first == std::u16string_view::npos) return {};
    return line.substr(first, line.find_last_not_of(kBlanks) - first + 1);
}

/// Merges overlapping matches.
std::vector<Match> Merged(std::vector<Match> matches) {
    std::sort(matches.begin(), matches.end(), [](const Match& a, const Match& b) { return a.at < b.at; });
    std::vector<Match> merged;
    for (const Match& match : matches) {
        if (!merged.empty() && match.at <= merged.back().at + merged.back().size) {
            Match& last = merged.back();
            last.size = std::max(last.at + last.size, match.at + match.size) - last.at;
        } else {
            merged.push_back(match);
        }
    }
    return merged;
}

}  // namespace

Search::Search(const std::vector<std::string>& words) {
    for (const std::string& word : words) {
        std::u16string folded = Fold(DecodeUtf8(word, LoneSurrogates::Accept).value_or(std::u16string()));
        if (folded.empty()) continue;
        const std::string plain = EncodeUtf8(folded);
        if (IsAscii(plain)) {
            plainWords_.push_back(plain);
        } else {
            allPlain_ = false;
        }
        words_.push_back(std::move(folded));
    }
}

bool Search::Matches(std::u16string_view text) const {
    const std::u16string folded = Fold(text);
    return std::all_of(words_.begin(), words_.end(),
                       [&folded](const std::u16string& word) { return folded.find(word) != std::u16string::npos; });
}

bool Search::MayMatch(std::string_view bytes) const {
    // Only ASCII bytes can be searched without decoding the file's text.
    if (!IsAscii(bytes) || EndsWithUnicodeElement(bytes)) return true;
    if (!allPlain_) return false;
    static thread_local std::string lowered;
    lowered.resize(bytes.size());
    std::transform(bytes.begin(), bytes.end(), lowered.begin(), [](char c) { return AsciiLower(c); });
    return std::all_of(plainWords_.begin(), plainWords_.end(),
                       [](const std::string& word) { return HoldsPlainWord(lowered, word); });
}

std::vector<Match> Search::MatchesIn(std::u16string_view line, std::size_t& found) const {
    const FoldedText folded = FoldWithOrigin(line);
    std::vector<Match> matches;
    found = 0;
    for (const std::u16string& word : words_) {
        std::size_t at = folded.folded.find(word);
        if (at != std::u16string::npos) ++found;
        for (; at != std::u16string::npos; at = folded.folded.find(word, at + word.size())) {
            const std::size_t from = folded.origin[at];
            // Marks that fold to nothing belong to the preceding letter.
            const std::size_t end = folded.origin[at + word.size()];
            const std::size_t last = std::max(end, folded.origin[at + word.size() - 1] + 1);
            matches.push_back({from, last - from});
        }
    }
    return Merged(std::move(matches));
}

void Search::DescribeHit(Hit& hit) const {
    std::u16string_view rest = hit.note.file.text;
    std::size_t best = 0;
    for (bool first = true; first || !rest.empty(); first = false) {
        const std::size_t end = std::min(rest.find_first_of(u"\r\n"), rest.size());
        const std::u16string_view line = WithoutBlanks(rest.substr(0, end));
        std::size_t found = 0;
        std::vector<Match> matches = MatchesIn(line, found);
        if (found > best) {
            best = found;
            hit.line = line;
            hit.matches = std::move(matches);
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

std::vector<Hit> Search::Find(const std::vector<NoteEntry>& entries, LocaleText& locale,
                              std::vector<std::string>& unread) const {
    std::vector<Hit> hits;
    std::string bytes;
    for (const NoteEntry& entry : entries) {
        if (!ReadInto(entry.path, bytes)) {
            if (IsFile(entry.path)) unread.push_back(entry.path);
            continue;
        }
        if (!MayMatch(bytes)) continue;
        Hit hit;
        hit.note = {entry, ReadNote(bytes, locale)};
        if (!Matches(hit.note.file.text)) continue;
        DescribeHit(hit);
        hits.push_back(std::move(hit));
    }
    return hits;
}

}  // namespace quillo::qln

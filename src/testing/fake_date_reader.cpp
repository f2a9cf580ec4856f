#include "testing/fake_date_reader.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "util/text.h"

namespace quillo {
namespace {

constexpr std::array<std::u16string_view, 12> kMonths = {u"january",   u"february", u"march",    u"april",
                                                         u"may",       u"june",     u"july",     u"august",
                                                         u"september", u"october",  u"november", u"december"};

enum class TokenKind { Number, Word, Sign };

struct Token {
    TokenKind kind = TokenKind::Sign;
    int number = 0;
    int digits = 0;
    std::u16string word;
    char16_t sign = 0;
};
using Tokens = std::vector<Token>;

bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}
bool IsLetter(char16_t c) {
    return c >= u'a' && c <= u'z';
}

// Nothing if a character belongs to no date or a number has more than four digits.
std::optional<Tokens> Tokenize(std::u16string_view text) {
    Tokens tokens;
    for (std::size_t i = 0; i < text.size();) {
        const char16_t c = AsciiLower(text[i]);
        if (c == u' ') {
            ++i;
            continue;
        }
        Token token;
        if (IsDigit(c)) {
            token.kind = TokenKind::Number;
            for (; i < text.size() && IsDigit(text[i]); ++i, ++token.digits) {
                if (token.digits == 4) return std::nullopt;
                token.number = token.number * 10 + (text[i] - u'0');
            }
        } else if (IsLetter(c)) {
            token.kind = TokenKind::Word;
            for (; i < text.size() && IsLetter(AsciiLower(text[i])); ++i) token.word += AsciiLower(text[i]);
        } else if (std::u16string_view(u":/-.,").find(c) != std::u16string_view::npos) {
            token.sign = c;
            ++i;
        } else {
            return std::nullopt;
        }
        tokens.push_back(token);
    }
    return tokens;
}

bool IsSign(const Tokens& tokens, std::size_t i, char16_t sign) {
    return i < tokens.size() && tokens[i].kind == TokenKind::Sign && tokens[i].sign == sign;
}
bool IsNumber(const Tokens& tokens, std::size_t i) {
    return i < tokens.size() && tokens[i].kind == TokenKind::Number;
}
bool IsHalfDay(const Tokens& tokens, std::size_t i) {
    return i < tokens.size() && tokens[i].kind == TokenKind::Word &&
           (tokens[i].word == u"am" || tokens[i].word == u"pm");
}

enum class TimeFound { None, Read, Wrong };

// Removes the time, of which there is one at most, from the tokens.
TimeFound TakeTime(Tokens& tokens, CivilTime& when) {
    std::size_t first = 0;
    while (first < tokens.size() &&
           !(IsNumber(tokens, first) && (IsSign(tokens, first + 1, u':') || IsHalfDay(tokens, first + 1)))) {
        ++first;
    }
    if (first == tokens.size()) return TimeFound::None;
    std::array<int, 3> parts{};
    std::size_t end = first + 1;
    parts[0] = tokens[first].number;
    for (std::size_t part = 1; part < 3 && IsSign(tokens, end, u':'); ++part, end += 2) {
        if (!IsNumber(tokens, end + 1)) return TimeFound::Wrong;
        parts[part] = tokens[end + 1].number;
    }
    if (IsHalfDay(tokens, end)) {
        if (parts[0] > 23) return TimeFound::Wrong;
        const bool afternoon = tokens[end].word == u"pm";
        if (parts[0] <= 12) parts[0] = parts[0] % 12 + (afternoon ? 12 : 0);
        ++end;
    }
    if (parts[0] > 23 || parts[1] > 59 || parts[2] > 59) return TimeFound::Wrong;
    when.hour = parts[0];
    when.minute = parts[1];
    when.second = parts[2];
    using Offset = Tokens::difference_type;
    tokens.erase(tokens.begin() + static_cast<Offset>(first), tokens.begin() + static_cast<Offset>(end));
    return TimeFound::Read;
}

// 1 to 12; 0 for any other word. Three letters are enough.
int MonthOf(const std::u16string& word) {
    if (word.size() < 3) return 0;
    for (std::size_t i = 0; i < kMonths.size(); ++i) {
        if (kMonths[i].substr(0, word.size()) == word) return static_cast<int>(i) + 1;
    }
    return 0;
}

int FullYear(const Token& year) {
    if (year.digits > 2) return year.number;
    return year.number + (year.number < 50 ? 2000 : 1900);
}

// "november 20", "20 nov 26", "nov 20, 2026"
bool ReadNamedDate(const Tokens& tokens, int month, int currentYear, CivilTime& when) {
    std::vector<Token> numbers;
    for (const Token& token : tokens) {
        if (token.kind == TokenKind::Number) numbers.push_back(token);
        if (token.kind == TokenKind::Word && MonthOf(token.word) != month) return false;
        if (token.kind == TokenKind::Sign && token.sign == u':') return false;
    }
    if (numbers.empty() || numbers.size() > 2) return false;
    when.month = month;
    when.day = numbers[0].number;
    when.year = numbers.size() == 2 ? FullYear(numbers[1]) : currentYear;
    if (numbers.size() == 1 && numbers[0].digits == 4) {
        when.day = 1;
        when.year = numbers[0].number;
    }
    return true;
}

// "11/20", "11/20/26", "20.11.2026", "2026-11-20": the same sign between all numbers.
bool ReadNumberDate(const Tokens& tokens, FakeDateOrder order, int currentYear, CivilTime& when) {
    std::vector<Token> numbers;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const bool number = i % 2 == 0;
        if ((tokens[i].kind == TokenKind::Number) != number) return false;
        if (number) {
            numbers.push_back(tokens[i]);
        } else if (tokens[i].kind != TokenKind::Sign || tokens[i].sign != tokens[1].sign ||
                   std::u16string_view(u"/-.").find(tokens[i].sign) == std::u16string_view::npos) {
            return false;
        }
    }
    if (tokens.size() % 2 == 0 || numbers.size() < 2 || numbers.size() > 3) return false;
    if (numbers.size() == 3 && numbers[0].digits == 4) {
        when.year = numbers[0].number;
        when.month = numbers[1].number;
        when.day = numbers[2].number;
        return true;
    }
    const bool monthFirst = order == FakeDateOrder::MonthDayYear;
    when.month = numbers[monthFirst ? 0 : 1].number;
    when.day = numbers[monthFirst ? 1 : 0].number;
    when.year = numbers.size() == 3 ? FullYear(numbers[2]) : currentYear;
    return true;
}

}  // namespace

std::optional<DaySerial> ReadFakeDate(std::u16string_view text, FakeDateOrder order, int currentYear) {
    std::optional<Tokens> tokens = Tokenize(text);
    if (!tokens || tokens->empty()) return std::nullopt;
    CivilTime when;
    const TimeFound time = TakeTime(*tokens, when);
    if (time == TimeFound::Wrong) return std::nullopt;
    if (tokens->empty()) return ToDaySerial(when);

    int month = 0;
    for (const Token& token : *tokens) {
        if (token.kind != TokenKind::Word) continue;
        if (month != 0 || MonthOf(token.word) == 0) return std::nullopt;
        month = MonthOf(token.word);
    }
    const bool read = month != 0 ? ReadNamedDate(*tokens, month, currentYear, when)
                                 : ReadNumberDate(*tokens, order, currentYear, when);
    if (!read || when.year < 100 || when.month < 1 || when.month > 12) return std::nullopt;
    // A day that does not exist in the month would come back as another day.
    if (ToCivilTime(ToDaySerial(when)) != when) return std::nullopt;
    return ToDaySerial(when);
}

}  // namespace quillo

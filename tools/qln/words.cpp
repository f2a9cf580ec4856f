#include "words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>

#include "controls/swatch_palette.h"
#include "controls/swatch_strip.h"
#include "util/text.h"
#include "util/unicode.h"

namespace quillo::qln {
namespace {

constexpr char16_t kReplacement = u'\uFFFD';

bool IsHarmless(char16_t unit) {
    if (unit < 0x20) return unit == u'\t' || unit == u'\n';
    if (unit >= 0x7F && unit < 0xA0) return false;
    const bool direction = (unit >= 0x202A && unit <= 0x202E) || (unit >= 0x2066 && unit <= 0x2069);
    const bool noCharacter = (unit >= 0xFDD0 && unit <= 0xFDEF) || unit >= 0xFFFE;
    return !direction && !noCharacter;
}

/// U+1FFFE, U+2FFFF and so on are not characters; their second halves end alike.
bool IsNoCharacter(char16_t high, char16_t low) {
    return (low & 0x3FE) == 0x3FE && (high & 0x3F) == 0x3F;
}

constexpr std::array<std::string_view, 3> kStates = {"shown", "hidden", "minimized"};

}  // namespace

std::string ToUtf8(std::u16string_view text) {
    std::u16string whole(text);
    for (std::size_t i = 0; i < whole.size(); ++i) {
        if (IsHighSurrogate(whole[i]) && i + 1 < whole.size() && IsLowSurrogate(whole[i + 1])) {
            ++i;
        } else if (IsHighSurrogate(whole[i]) || IsLowSurrogate(whole[i])) {
            whole[i] = kReplacement;
        }
    }
    return EncodeUtf8(whole);
}

std::u16string Harmless(std::u16string_view text) {
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const bool pair = IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1]);
        if (pair && !IsNoCharacter(unit, text[i + 1])) {
            result += unit;
            result += text[++i];
        } else if (pair) {
            result += kReplacement;
            ++i;
        } else {
            const bool lone = IsHighSurrogate(unit) || IsLowSurrogate(unit);
            result += lone || !IsHarmless(unit) ? kReplacement : unit;
        }
    }
    return result;
}

std::string HarmlessName(std::string_view name) {
    if (const auto text = DecodeUtf8(name, LoneSurrogates::Accept)) {
        std::u16string plain = Harmless(*text);
        std::replace_if(
            plain.begin(), plain.end(), [](char16_t c) { return c < 0x20; }, kReplacement);
        return ToUtf8(plain);
    }
    std::string plain;
    for (const char byte : name) plain += byte >= 0x20 && byte < 0x7F ? std::string(1, byte) : "\uFFFD";
    return plain;
}

std::u16string WithLineFeeds(std::u16string_view text) {
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') continue;
        result += text[i];
    }
    return result;
}

std::u16string WithLineBreaks(std::u16string_view text) {
    std::u16string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'\n' && (i == 0 || text[i - 1] != u'\r')) result += u'\r';
        result += text[i];
    }
    return result;
}

std::u16string FirstWords(std::u16string_view text, std::size_t most) {
    std::u16string_view rest = text;
    std::u16string line;
    while (line.empty() && !rest.empty()) {
        const std::size_t end = std::min(rest.find_first_of(u"\r\n"), rest.size());
        line = Harmless(rest.substr(0, end));
        std::replace(line.begin(), line.end(), u'\t', u' ');
        line = std::u16string(Trim(line));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    if (line.empty()) return u"(empty)";
    if (CharacterCount(line) <= most) return line;
    std::size_t units = 0;
    for (std::size_t count = 1; count < most; ++count) units += IsHighSurrogate(line[units]) ? 2U : 1U;
    return line.substr(0, units) + u'\u2026';
}

std::size_t CharacterCount(std::u16string_view text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char16_t unit) { return !IsLowSurrogate(unit); }));
}

std::string_view StateName(std::optional<WindowState> state) {
    return kStates[static_cast<std::size_t>(state.value_or(WindowState::Shown))];
}

std::optional<WindowState> StateNamed(std::string_view name) {
    const auto* found = std::find(kStates.begin(), kStates.end(), name);
    if (found == kStates.end()) return std::nullopt;
    return static_cast<WindowState>(found - kStates.begin());
}

std::string ColorText(ColorWord color) {
    if (color.value > 0xFFFFFFU) return "word:" + std::to_string(color.Number());
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", color.Red(), color.Green(), color.Blue());
    return text.data();
}

std::optional<ColorWord> ReadColorText(std::string_view text) {
    constexpr std::string_view kWord = "word:";
    const bool word = text.substr(0, kWord.size()) == kWord;
    if (!word && (text.size() != 7 || text.front() != '#')) return std::nullopt;
    const std::string_view digits = text.substr(word ? kWord.size() : 1);
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, word ? 10 : 16);
    if (error != std::errc() || end != digits.data() + digits.size() || (!word && digits.front() == '-')) {
        return std::nullopt;
    }
    if (word) return ColorWord::FromNumber(number);
    return ColorWord::FromRgb(number >> 16 & 0xFF, number >> 8 & 0xFF, number & 0xFF);
}

std::string SchemeName(std::size_t scheme) {
    std::string name = ToUtf8(FoldAscii(SwatchName(scheme)));
    std::replace(name.begin(), name.end(), ' ', '-');
    return name;
}

std::optional<std::size_t> SchemeNamed(std::string_view name) {
    std::string wanted(name);
    std::replace(wanted.begin(), wanted.end(), ' ', '-');
    for (std::size_t scheme = 0; scheme < kSwatches.size(); ++scheme) {
        if (EqualsIgnoringAsciiCase(std::string_view(SchemeName(scheme)), wanted)) return scheme;
    }
    return std::nullopt;
}

std::string ColorName(const std::optional<NoteAppearance>& appearance) {
    if (!appearance || !appearance->ownColors.value_or(false)) return "default";
    const ColorWord note = appearance->noteColor.value_or(ColorWord{});
    const ColorScheme colors{note, appearance->borderColor.value_or(ColorWord{}),
                             appearance->textColor.value_or(ColorWord{})};
    const auto* found = std::find(kSwatches.begin(), kSwatches.end(), colors);
    if (found == kSwatches.end()) return ColorText(note);
    return SchemeName(static_cast<std::size_t>(found - kSwatches.begin()));
}

}  // namespace quillo::qln

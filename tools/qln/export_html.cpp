#include <algorithm>
#include <cmath>
#include <tuple>

#include "export_notes.h"
#include "iso_time.h"
#include "util/units.h"
#include "words.h"

namespace quillo::qln {
namespace {

constexpr const char* kHead = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<title>Notes of Quillo</title>
<style>
body { background: #3a6ea5; margin: 16px; }
main { display: flex; flex-wrap: wrap; gap: 16px; align-items: flex-start; }
article { border: 1px solid; border-top-width: 16px; box-sizing: border-box; padding: 4px; overflow-wrap: anywhere; }
article div { white-space: pre-wrap; }
article p { font-size: 8pt; margin: 8px 0 0; opacity: 0.7; }
.large { font-size: 150%; }
)";

std::string Escaped(std::u16string_view text) {
    std::u16string result;
    for (const char16_t unit : Harmless(text)) {
        switch (unit) {
            case u'&':
                result += u"&amp;";
                break;
            case u'<':
                result += u"&lt;";
                break;
            case u'>':
                result += u"&gt;";
                break;
            default:
                result += unit;
        }
    }
    return ToUtf8(result);
}

/// The name of a font inside quotes; omitted if it has characters that fonts do not have.
std::string FontStyle(const FontSetting& font) {
    const auto belongs = [](char16_t c) {
        return c == u' ' || c == u'-' || (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') ||
               (c >= u'a' && c <= u'z') || c >= 0xA0;
    };
    std::string style = "article { font-family: ";
    const std::u16string name = Harmless(font.name);
    if (!name.empty() && std::all_of(name.begin(), name.end(), belongs)) style += "\"" + ToUtf8(name) + "\", ";
    style += "sans-serif; font-size: " + std::to_string(std::lround(font.size)) + "pt;";
    if (font.bold) style += " font-weight: bold;";
    if (font.italic) style += " font-style: italic;";
    if (font.underline || font.strikeThrough) {
        style += std::string(" text-decoration:") + (font.underline ? " underline" : "") +
                 (font.strikeThrough ? " line-through" : "") + ";";
    }
    return style + " }\n";
}

/// A system color is unknown elsewhere.
std::string CssColor(ColorWord color, ColorWord otherwise) {
    const ColorWord plain = color.value > 0xFFFFFFU ? otherwise : color;
    return ColorText(ColorWord{plain.value & 0xFFFFFFU});
}

long InPixels(std::optional<float> twips, long otherwise) {
    if (!twips || !(*twips > 0) || *twips > 60'000) return otherwise;
    return std::lround(static_cast<double>(*twips) * kDesignDpi / kTwipsPerInch);
}

std::string ArticleStyle(const NoteFile& file, const Settings& settings) {
    const NoteAppearance look = file.appearance.value_or(NoteAppearance{});
    const bool own = look.ownColors.value_or(false);
    const auto color = [own](const std::optional<ColorWord>& mine, ColorWord usual) {
        return CssColor(own ? mine.value_or(usual) : usual, usual);
    };
    const NotePosition position = file.position.value_or(NotePosition{});
    return "background: " + color(look.noteColor, settings.noteColor) +
           "; border-color: " + color(look.borderColor, settings.noteBorderColor) +
           "; color: " + color(look.textColor, settings.noteTextColor) +
           "; width: " + std::to_string(InPixels(position.width, 200)) +
           "px; min-height: " + std::to_string(InPixels(position.height, 160)) + "px";
}

/// From the top of the screen to the bottom; notes without a place come last.
std::vector<const StoredNote*> ByPlace(const std::vector<StoredNote>& notes) {
    std::vector<const StoredNote*> sorted;
    for (const StoredNote& note : notes) sorted.push_back(&note);
    const auto place = [](const StoredNote* note) {
        const NotePosition position = note->file.position.value_or(NotePosition{});
        const bool known = position.top && !std::isnan(*position.top);
        return std::make_tuple(!known, known ? *position.top : 0.0F, position.left.value_or(0.0F), note->entry.number);
    };
    std::sort(sorted.begin(), sorted.end(),
              [&place](const StoredNote* a, const StoredNote* b) { return place(a) < place(b); });
    return sorted;
}

}  // namespace

std::string NotesAsHtml(const std::vector<StoredNote>& notes, const Settings& settings) {
    std::string page = kHead;
    page += FontStyle(settings.noteFont) + "</style>\n</head>\n<body>\n<main>\n";
    for (const StoredNote* note : ByPlace(notes)) {
        const bool large = note->file.appearance && note->file.appearance->largeText.value_or(false);
        page += "<article style=\"" + ArticleStyle(note->file, settings) + "\">\n<div" +
                (large ? " class=\"large\"" : "") + ">" + Escaped(WithLineFeeds(note->file.text)) + "</div>\n<p>" +
                DescribeNote(*note) + "</p>\n</article>\n";
    }
    if (notes.empty()) page += "<p>There are no notes.</p>\n";
    return page + "</main>\n</body>\n</html>\n";
}

}  // namespace quillo::qln

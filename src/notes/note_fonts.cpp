#include "notes/note_fonts.h"

#include <cmath>

#include "platform/wide.h"

namespace quillo {
namespace {

constexpr int kPointsPerInch = 72;
constexpr double kLargeFactor = 1.5;

}  // namespace

LOGFONTW ToLogFont(const FontSetting& setting, bool large, const Scale& scale) {
    const double points = large ? setting.size * kLargeFactor : setting.size;
    LOGFONTW font{};
    font.lfHeight = -static_cast<LONG>(std::lround(points * scale.Dpi() / kPointsPerInch));
    font.lfWeight = large || setting.bold ? FW_BOLD : FW_NORMAL;
    font.lfItalic = setting.italic ? 1 : 0;
    font.lfUnderline = setting.underline ? 1 : 0;
    font.lfStrikeOut = setting.strikeThrough ? 1 : 0;
    font.lfCharSet = setting.charset > 0 ? static_cast<BYTE>(setting.charset) : BYTE{DEFAULT_CHARSET};
    lstrcpynW(font.lfFaceName, Wide(setting.name), LF_FACESIZE);
    return font;
}

HFONT NoteFonts::Get(const FontSetting& setting, bool large, const Scale& scale) {
    for (const Entry& entry : fonts_) {
        if (entry.large == large && entry.dpi == scale.Dpi() && entry.setting == setting) return entry.font.Get();
    }
    const LOGFONTW font = ToLogFont(setting, large, scale);
    fonts_.push_back(Entry{setting, large, scale.Dpi(), FontHandle(CreateFontIndirectW(&font))});
    return fonts_.back().font.Get();
}

}  // namespace quillo

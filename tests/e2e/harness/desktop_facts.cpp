#include "harness/desktop_facts.h"

#include <array>
#include <filesystem>
#include <sstream>

#include "harness/note_text.h"
#include "platform/gdi_scope.h"
#include "platform/unique_handle.h"
#include "platform/win32.h"

// After windows.h.
#include <uxtheme.h>

namespace quillo::e2e {
namespace {

/// The face that the system chooses for a font, and the size of a line of letters in it.
std::string FontFact(const wchar_t* face, int points, int weight, int dpi) {
    constexpr wchar_t kSample[] = L"Quillo: 0123456789 abcdefghijklmnopqrstuvwxyz";
    constexpr int kLength = static_cast<int>(std::size(kSample)) - 1;
    const MemoryDc dc(CreateCompatibleDC(nullptr));
    const FontHandle font(CreateFontW(-MulDiv(points, dpi, 72), 0, 0, 0, weight, 0, 0, 0, DEFAULT_CHARSET, 0, 0,
                                      DEFAULT_QUALITY, 0, face));
    HGDIOBJ before = SelectObject(dc.Get(), font.Get());
    std::array<wchar_t, LF_FACESIZE> found{};
    GetTextFaceW(dc.Get(), static_cast<int>(found.size()), found.data());
    SIZE size{};
    GetTextExtentPoint32W(dc.Get(), kSample, kLength, &size);
    SelectObject(dc.Get(), before);
    std::ostringstream line;
    line << "font " << Narrow(face) << ' ' << points << " of weight " << weight << ": " << Narrow(found.data()) << ", "
         << size.cx << " by " << size.cy << '\n';
    return line.str();
}

std::string SmoothingFact() {
    BOOL smooth = FALSE;
    UINT kind = 0;
    SystemParametersInfoW(SPI_GETFONTSMOOTHING, 0, &smooth, 0);
    SystemParametersInfoW(SPI_GETFONTSMOOTHINGTYPE, 0, &kind, 0);
    return "smooth text " + std::to_string(smooth) + " of type " + std::to_string(kind) + '\n';
}

std::string ThemeFact() {
    std::array<wchar_t, MAX_PATH> file{};
    std::array<wchar_t, MAX_PATH> color{};
    std::array<wchar_t, MAX_PATH> size{};
    if (FAILED(GetCurrentThemeName(file.data(), static_cast<int>(file.size()), color.data(),
                                   static_cast<int>(color.size()), size.data(), static_cast<int>(size.size())))) {
        return "theme none\n";
    }
    return "theme " + std::filesystem::path(file.data()).filename().string() + ' ' + Narrow(color.data()) + ' ' +
           Narrow(size.data()) + '\n';
}

}  // namespace

std::string DesktopFacts() {
    const int dpi = static_cast<int>(GetDpiForSystem());
    std::ostringstream facts;
    facts << "dpi " << dpi << '\n' << SmoothingFact() << ThemeFact();
    for (const int points : {7, 8, 9, 12, 16}) {
        for (const int weight : {FW_NORMAL, FW_BOLD}) facts << FontFact(L"Tahoma", points, weight, dpi);
    }
    for (const int metric : {SM_CXBORDER, SM_CXEDGE, SM_CXVSCROLL, SM_CXMENUCHECK, SM_CXSMICON}) {
        facts << "metric " << metric << ": " << GetSystemMetrics(metric) << '\n';
    }
    for (const int color : {COLOR_WINDOW, COLOR_WINDOWTEXT, COLOR_3DFACE, COLOR_BTNTEXT, COLOR_HIGHLIGHT,
                            COLOR_GRAYTEXT, COLOR_HOTLIGHT, COLOR_3DSHADOW}) {
        facts << "color " << color << ": " << GetSysColor(color) << '\n';
    }
    return facts.str();
}

std::string FirstOtherFact(const std::string& facts, const std::string& recorded) {
    std::istringstream here(facts);
    std::istringstream there(recorded);
    std::string line;
    std::string other;
    while (std::getline(here, line)) {
        if (!std::getline(there, other)) return "\"" + line + "\" is not recorded";
        if (!other.empty() && other.back() == '\r') other.pop_back();
        if (line != other) return "\"" + line + "\" instead of \"" + other + "\"";
    }
    return "";
}

}  // namespace quillo::e2e

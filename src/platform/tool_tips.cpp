#include "platform/tool_tips.h"

#include <utility>

#include "platform/late_library.h"
#include "platform/styled_controls.h"
#include "platform/wide.h"
#include "platform/window.h"

namespace quillo {
namespace {

/// The maximum width of a line of a tip, at 96 dpi; longer lines wrap.
constexpr int kWidestTip = 360;

/// The user's own font for tool tips at that scale; none if the system supports one scale only, whose font is then the
/// right one.
FontHandle TipFont(const Scale& scale) {
    static LateFunction<BOOL WINAPI(UINT, UINT, void*, UINT, UINT)> parametersForDpi(L"user32.dll",
                                                                                     "SystemParametersInfoForDpi");
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (parametersForDpi.Get() == nullptr || parametersForDpi.Get()(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics,
                                                                    0, static_cast<UINT>(scale.Dpi())) == 0) {
        return {};
    }
    return FontHandle(CreateFontIndirectW(&metrics.lfStatusFont));
}

}  // namespace

bool ToolTips::Make(HWND window, HWND owner, const Scale& scale) {
    window_ = window;
    const StyledControls styled;
    // A note that is not the active window has tips too.
    tips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0,
                            0, owner, nullptr, ThisModule(), nullptr);
    SetScale(scale);
    return tips_ != nullptr;
}

void ToolTips::SetScale(const Scale& scale) {
    if (tips_ == nullptr) return;
    FontHandle font = TipFont(scale);
    if (font) SendMessageW(tips_, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), FALSE);
    font_ = std::move(font);  // the control no longer uses the old one
    SendMessageW(tips_, TTM_SETMAXTIPWIDTH, 0, scale.Px(kWidestTip));
}

void ToolTips::Add(HWND child) {
    Send(TTM_ADDTOOLW, reinterpret_cast<UINT_PTR>(child), TTF_IDISHWND, LPSTR_TEXTCALLBACKW);
}

void ToolTips::AddText(HWND child, std::u16string text) {
    Send(TTM_ADDTOOLW, reinterpret_cast<UINT_PTR>(child), TTF_IDISHWND | TTF_SUBCLASS, WideBuffer(text));
}

void ToolTips::AddArea(UINT_PTR id, const RECT& area) {
    Send(TTM_ADDTOOLW, id, 0, LPSTR_TEXTCALLBACKW, area);
}

void ToolTips::MoveArea(UINT_PTR id, const RECT& area) {
    Send(TTM_NEWTOOLRECTW, id, 0, nullptr, area);
}

void ToolTips::Send(UINT message, UINT_PTR id, UINT flags, wchar_t* text, const RECT& area) const {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.uFlags = flags;
    tool.hwnd = window_;
    tool.uId = id;
    tool.rect = area;
    tool.lpszText = text;
    SendMessageW(tips_, message, 0, reinterpret_cast<LPARAM>(&tool));
}

void ToolTips::Relay(HWND window, UINT message, LPARAM at) {
    if (tips_ == nullptr || message < WM_MOUSEFIRST || message > WM_MOUSELAST) return;
    MSG event{};
    event.hwnd = window;
    event.message = message;
    event.lParam = at;
    SendMessageW(tips_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&event));
}

void ToolTips::PointerMoved(Point at) {
    Relay(window_, WM_MOUSEMOVE, MAKELPARAM(at.x, at.y));
}

void ToolTips::Hide() {
    if (tips_ != nullptr) SendMessageW(tips_, TTM_POP, 0, 0);
}

void ToolTips::SetActive(bool active) {
    if (tips_ != nullptr) SendMessageW(tips_, TTM_ACTIVATE, active ? TRUE : FALSE, 0);
}

void ToolTips::Destroy() {
    if (tips_ != nullptr) DestroyWindow(std::exchange(tips_, nullptr));
}

void ToolTips::Answer(NMTTDISPINFOW& question, std::u16string text) {
    text_ = std::move(text);
    question.lpszText = const_cast<wchar_t*>(Wide(text_));
}

}  // namespace quillo

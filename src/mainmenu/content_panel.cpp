#include "mainmenu/content_panel.h"

#include <utility>

#include "mainmenu/options_controller.h"
#include "mainmenu/page_column.h"
#include "platform/artwork.h"
#include "platform/gdi_scope.h"
#include "platform/text_tools.h"
#include "platform/wide.h"
#include "util/color_word.h"
#include "util/palette.h"

namespace quillo {
namespace {

constexpr int kGlyphSize = 20;  // pixels at 96 dpi
constexpr int kHalfLight = 128;

// Every control is a group of its own: the arrow keys stay inside it, the Tab key moves on.
constexpr ControlKind kPageLabel{L"STATIC", SS_LEFT};  // an ampersand marks the access key of the following box
// Centered vertically beside a button; a font's name may be long.
constexpr ControlKind kFontLabel{L"STATIC", SS_LEFTNOWORDWRAP | SS_NOPREFIX | SS_CENTERIMAGE | SS_ENDELLIPSIS};
constexpr ControlKind kPageCheck{L"BUTTON", WS_TABSTOP | WS_GROUP | BS_AUTOCHECKBOX | BS_MULTILINE | BS_TOP};
constexpr ControlKind kPageButton{L"BUTTON", WS_TABSTOP | WS_GROUP | BS_PUSHBUTTON};
// Shows a picture; screen readers speak its text.
constexpr ControlKind kGlyphButton{L"BUTTON", WS_TABSTOP | WS_GROUP | BS_PUSHBUTTON | BS_ICON};
constexpr ControlKind kPageBox{L"EDIT", WS_TABSTOP | WS_GROUP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE};
constexpr ControlKind kPagePath{L"EDIT", WS_TABSTOP | WS_GROUP | ES_AUTOHSCROLL | ES_READONLY, WS_EX_CLIENTEDGE};

const ControlKind& KindOf(const OptionRow& row) {
    switch (row.kind) {
        case OptionKind::Check:
            return kPageCheck;
        case OptionKind::TextBox:
            return row.saving == OptionSaving::Never ? kPagePath : kPageBox;
        case OptionKind::Button:
            return kPageButton;
        case OptionKind::GlyphButton:
            return kGlyphButton;
        default:
            if (row.control == OptionControl::FontLabel) return kFontLabel;
            return row.caption.find(u'&') == std::u16string_view::npos ? kLabel : kPageLabel;
    }
}

}  // namespace

HWND ContentPanel::Item(OptionControl control) const {
    return RowOf(control).page == page_ ? GetDlgItem(Handle(), IdOf(control)) : nullptr;
}

bool ContentPanel::Create(HWND dialog) {
    WindowPlan plan;
    plan.className = L"QuilloOptionsPage";
    const std::u16string title(NameOf(page_));
    plan.title = Wide(title);
    plan.style = WS_CHILD | WS_CLIPCHILDREN;
    plan.exStyle = WS_EX_CONTROLPARENT;
    plan.parent = dialog;
    plan.childId = PanelIdOf(page_);
    if (!Window::Create(plan)) return false;
    CreateControls();
    return true;
}

void ContentPanel::CreateControls() {
    dividers_.clear();
    for (const OptionRow& row : OptionsTable()) {
        if (row.page != page_) continue;
        if (row.kind == OptionKind::Divider) {
            CreateDivider(row);
        } else if (!CreateSpecial(row)) {
            const bool hasText = row.kind == OptionKind::TextBox || row.caption.empty();
            const std::u16string text = hasText ? controller_.TextOf(row.control) : std::u16string(row.caption);
            CreateControl(Handle(), IdOf(row.control), KindOf(row), text);
        }
    }
}

void ContentPanel::CreateDivider(const OptionRow& row) {
    dividers_.emplace_back().Create(Handle(), IdOf(row.control), row.caption);
}

void ContentPanel::SetFonts(const DialogFonts& fonts, Scale scale) {
    fonts_ = &fonts;
    scale_ = scale;
    for (const OptionRow& row : OptionsTable()) {
        HWND control = Item(row.control);
        if (control != nullptr) SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(FontOf(row)), FALSE);
    }
    for (TesselDivider& divider : dividers_) divider.SetScale(scale);
    SetGlyphs();
    OnScaleChanged();
}

void ContentPanel::SetGlyphs() {
    const bool light = Lightness(ColorWord{GetSysColor(COLOR_BTNTEXT)}) > kHalfLight;
    std::list<IconHandle> old;
    std::swap(old, glyphs_);  // deleted at the end of this scope, when no button uses them any more
    for (const OptionRow& row : OptionsTable()) {
        if (row.page != page_ || row.kind != OptionKind::GlyphButton) continue;
        const bool play = row.control == OptionControl::PlaySoundButton;
        glyphs_.push_back(MakeGlyphIcon(play ? Glyph::Play : Glyph::Browse, scale_.Px(kGlyphSize),
                                        light ? palette::kLightInk : palette::kInk));
        SendMessageW(Item(row.control), BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(glyphs_.back().Get()));
    }
}

HFONT ContentPanel::FontOf(const OptionRow& row) const {
    if (row.kind == OptionKind::Heading) return fonts_->heading.Get();
    return row.kind == OptionKind::Divider ? fonts_->strong.Get() : fonts_->body.Get();
}

int ContentPanel::LayOut(HDC dc, int width) {
    PageColumn column(*this, dc, 0, 0, width);
    Place(column);
    return column.Bottom();
}

void ContentPanel::Load() {
    for (const OptionRow& row : OptionsTable()) {
        if (row.page != page_) continue;
        if (row.kind == OptionKind::Check) ShowChecked(row.control);
        if (row.kind == OptionKind::TextBox || row.kind == OptionKind::KeyBox) {
            SetText(row.control, controller_.TextOf(row.control));
        }
    }
}

LRESULT ContentPanel::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            if (LOWORD(wParam) >= kFirstOptionId) {
                OnCommand(static_cast<OptionControl>(LOWORD(wParam) - kFirstOptionId), HIWORD(wParam));
            }
            return 0;
        case WM_GETOBJECT:
            return accessible_.Answer(Handle(), wParam, lParam);
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
        case WM_SETTINGCHANGE:
            return OnColorsChanged(), 0;
        case WM_ERASEBKGND:
            return OnErase(reinterpret_cast<HDC>(wParam)), 1;
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN:
            SetBkMode(reinterpret_cast<HDC>(wParam), TRANSPARENT);
            SetTextColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOWTEXT));
            return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
        default:
            return Default(message, wParam, lParam);
    }
}

AccessiblePart ContentPanel::Describe(int /*part*/) const {
    AccessiblePart page;
    page.role = ROLE_SYSTEM_PROPERTYPAGE;
    return page;
}

void ContentPanel::OnCommand(OptionControl control, int notification) {
    if (notification == BN_CLICKED && RowOf(control).kind == OptionKind::Check) OnChecked(control);
}

void ContentPanel::OnChecked(OptionControl check) {
    controller_.SetChecked(check, SendMessageW(Item(check), BM_GETCHECK, 0, 0) == BST_CHECKED);
}

void ContentPanel::OnErase(HDC dc) const {
    const RECT area = ToWin32(ClientRect());
    FillRect(dc, &area, GetSysColorBrush(COLOR_WINDOW));
}

std::u16string ContentPanel::TextOf(OptionControl control) const {
    return WindowText(Item(control));
}

void ContentPanel::SetText(OptionControl control, std::u16string_view text) const {
    SetWindowTextW(Item(control), Wide(std::u16string(text)));
}

void ContentPanel::ShowChecked(OptionControl check) const {
    SendMessageW(Item(check), BM_SETCHECK, controller_.IsChecked(check) ? BST_CHECKED : BST_UNCHECKED, 0);
}

}  // namespace quillo

#include "controls/tessel_tab.h"

#include <optional>
#include <utility>

#include "controls/tab_drop_target.h"
#include "platform/dpi.h"
#include "platform/gdi_canvas.h"
#include "platform/gdi_scope.h"
#include "platform/text_tools.h"
#include "platform/wide.h"
#include "util/ignore.h"

namespace quillo {
namespace {

constexpr Point kNowhere{-1, -1};
constexpr int kFocusMargin = 2;  // pixels at 96 dpi between a caption's box and the focus mark

std::optional<TabKey> TabKeyOf(WPARAM key) {
    switch (key) {
        case VK_LEFT:
        case VK_UP:
            return TabKey::Previous;
        case VK_RIGHT:
        case VK_DOWN:
            return TabKey::Next;
        case VK_HOME:
            return TabKey::First;
        case VK_END:
            return TabKey::Last;
        default:
            return std::nullopt;
    }
}

FontHandle Underlined(HFONT font) {
    LOGFONTW description{};
    GetObjectW(font, sizeof description, &description);
    description.lfUnderline = TRUE;
    return FontHandle(CreateFontIndirectW(&description));
}

}  // namespace

TesselTab::~TesselTab() {
    Destroy();  // while the drop target can still be revoked
}

bool TesselTab::Create(HWND parent, int id, const wchar_t* name, const TabProperties& properties, const Rect& place) {
    properties_ = properties;
    captions_ = SplitTabs(properties_.tabs);
    scale_ = WindowScale(parent);
    WindowPlan plan;
    plan.className = L"QuilloTab";
    plan.title = name;
    plan.style = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
    plan.place = place;
    plan.parent = parent;
    plan.childId = id;
    return Window::Create(plan);
}

void TesselTab::SetProperties(const TabProperties& properties) {
    properties_ = properties;
    captions_ = SplitTabs(properties_.tabs);
    ComposeIcons();
    LayOut();
}

void TesselTab::SetTabs(std::u16string_view tabs) {
    properties_.tabs = tabs;
    captions_ = SplitTabs(tabs);
    LayOut();
}

void TesselTab::SetPicture(CoveragePlanes strip, int edge) {
    icons_.SetPicture(std::move(strip));
    iconEdge_ = edge;
    ComposeIcons();
    LayOut();
}

void TesselTab::SetCurrentTab(int tab) {
    strip_.SetCurrent(tab);
    if (Handle() != nullptr) TakeDrops();
    Invalidate();
}

void TesselTab::SetScale(const Scale& scale) {
    scale_ = scale;
    LayOut();
}

LRESULT TesselTab::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            return OnCreate();
        case WM_DESTROY:
            return drops_.Release(), 0;
        case WM_SHOWWINDOW:
            if (wParam != FALSE) TakeDrops();
            return Default(message, wParam, lParam);
        case WM_MOUSEMOVE:
            return OnMouseMove(PointFromLParam(lParam)), 0;
        case WM_MOUSELEAVE:
            return OnMouseMove(kNowhere), 0;
        case WM_LBUTTONDOWN:
            return SetFocus(Handle()), 0;
        case WM_LBUTTONUP:
        case WM_RBUTTONUP:
        case WM_MBUTTONUP:
        case WM_XBUTTONUP:
            return Answer(strip_.MouseUp()), 0;
        case WM_CAPTURECHANGED:
            if (reinterpret_cast<HWND>(lParam) != Handle()) Answer(strip_.CaptureLost());
            return 0;
        case WM_KEYDOWN:
            return OnKey(wParam), 0;
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS;
        case WM_GETOBJECT:
            return accessible_.Answer(Handle(), wParam, lParam);
        case WM_SETFONT:
            return OnSetFont(reinterpret_cast<HFONT>(wParam)), 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(font_);
        case WM_SIZE:
            return LayOut(), 0;
        case WM_SYSCOLORCHANGE:
            return ComposeIcons(), Invalidate(), 0;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            return Invalidate(), 0;
        default:
            return Default(message, wParam, lParam);
    }
}

LRESULT TesselTab::OnCreate() {
    TakeDrops();
    ComposeIcons();
    OnSetFont(font_);
    return 0;
}

void TesselTab::TakeDrops() {
    if (drops_.IsRegistered()) return;
    DropTargetPtr target(new TabDropTarget(Handle(), [this](Point at) { Answer(strip_.DragOver(at)); }));
    Ignore(drops_.Register(ole_, std::move(target)), "the next tab that is chosen tries again");
}

void TesselTab::OnMouseMove(Point at) {
    Answer(strip_.MouseMove(at));
    // The pointer can move to another program's window unnoticed, even with the capture.
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, Handle(), 0};
    if (strip_.Hot() != 0) TrackMouseEvent(&track);
}

void TesselTab::OnKey(WPARAM key) {
    if (const std::optional<TabKey> move = TabKeyOf(key)) Answer(strip_.Press(*move));
}

void TesselTab::OnSetFont(HFONT font) {
    font_ = font;
    underlined_ = Underlined(Font());
    LayOut();
}

HFONT TesselTab::Font() const {
    return font_ != nullptr ? font_ : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
}

void TesselTab::ComposeIcons() {
    icons_.Compose(properties_.maskColor, properties_.backColor, properties_.tabColor, iconEdge_);
}

void TesselTab::LayOut() {
    if (Handle() == nullptr) return;
    const WindowDcScope dc(Handle());
    const Rect client = ClientRect();
    TabMeasures measures;
    for (const std::u16string& caption : captions_) {
        measures.captionWidths.push_back(caption.empty() ? 0 : MeasureText(dc.Dc(), Font(), caption).width);
    }
    measures.lineHeight = MeasureText(dc.Dc(), Font(), u"Wg").height;
    measures.iconEdge = icons_.Edge();
    measures.inlineIcons = properties_.inlineIcons;
    measures.spacing = scale_.Px(properties_.tabSpacing);
    measures.control = Size{client.width, client.height};
    strip_.SetLayout(TabLayout(std::move(measures), scale_));
    if (strip_.Hot() == 0 && GetCapture() == Handle()) ReleaseCapture();
    Invalidate();
}

void TesselTab::Answer(const TabResponse& response) {
    if (response.capture == TabResponse::Capture::Take) SetCapture(Handle());
    if (response.capture == TabResponse::Capture::Release && GetCapture() == Handle()) ReleaseCapture();
    if (response.repaint) Invalidate();
    if (response.change == 0) return;
    NotifyWinEvent(EVENT_OBJECT_SELECTION, Handle(), OBJID_CLIENT, response.change);
    if (GetFocus() == Handle()) NotifyWinEvent(EVENT_OBJECT_FOCUS, Handle(), OBJID_CLIENT, response.change);
    lifetime_.RaiseLast(onChange, response.change);
}

AccessiblePart TesselTab::Describe(int part) const {
    AccessiblePart description;
    description.role = part == CHILDID_SELF ? ROLE_SYSTEM_PAGETABLIST : ROLE_SYSTEM_PAGETAB;
    if (part == CHILDID_SELF) return description;
    description.name = captions_[static_cast<std::size_t>(part - 1)];
    description.state = STATE_SYSTEM_SELECTABLE | (part == CurrentTab() ? STATE_SYSTEM_SELECTED : 0);
    description.action = u"Switch";
    description.place = strip_.Layout().Face(part, properties_.alignTop);
    return description;
}

void TesselTab::OnPaint() {
    const PaintScope paint(Handle());
    const Rect client = ClientRect();
    const BufferedPaint buffer(paint.Dc(), ToWin32(client));
    GdiCanvas canvas(buffer.Dc(), scale_);
    strip_.PaintGround(canvas, properties_, Size{client.width, client.height}, scale_);
    SetBkMode(buffer.Dc(), TRANSPARENT);
    for (int tab = 1; tab <= TabCount(); ++tab) PaintCaption(buffer.Dc(), tab);
    for (int tab = 1; tab <= TabCount(); ++tab) {
        const Point icon = strip_.Layout().IconAt(tab, properties_.alignTop);
        icons_.Draw(buffer.Dc(), tab, icon.x, icon.y, tab == CurrentTab());
    }
    if (GetFocus() == Handle()) PaintFocus(buffer.Dc());
}

void TesselTab::PaintCaption(HDC dc, int tab) const {
    const SelectScope selected(dc, strip_.IsUnderlined(tab) && underlined_ ? underlined_.Get() : Font());
    SetTextColor(dc, ToColorRef(strip_.CaptionColor(tab, properties_)));
    RECT box = ToWin32(strip_.Layout().CaptionBox(tab, properties_.alignTop));
    const std::u16string& caption = captions_[static_cast<std::size_t>(tab - 1)];
    DrawTextW(dc, WideData(caption), static_cast<int>(caption.size()), &box,
              DT_CENTER | DT_BOTTOM | DT_SINGLELINE | DT_END_ELLIPSIS);
}

void TesselTab::PaintFocus(HDC dc) const {
    if (CurrentTab() == 0) return;
    RECT mark = ToWin32(strip_.Layout().Face(CurrentTab(), properties_.alignTop));
    const int margin = scale_.Px(kFocusMargin) + scale_.Px(properties_.thickBorder ? 2 : 1);
    InflateRect(&mark, -margin, -margin);
    SetTextColor(dc, RGB(0, 0, 0));  // the mark inverts the pixels below it
    SetBkColor(dc, RGB(255, 255, 255));
    for (int line = 0; line < scale_.Px(1); ++line) {
        DrawFocusRect(dc, &mark);
        InflateRect(&mark, -1, -1);
    }
}

}  // namespace quillo

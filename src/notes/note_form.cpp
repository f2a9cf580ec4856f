#include "notes/note_form.h"

#include "notes/note_resources.h"
#include "notes/note_title.h"
#include "notes/res_form.h"
#include "platform/dpi.h"
#include "platform/gdi_canvas.h"
#include "platform/gdi_scope.h"
#include "platform/monitors.h"
#include "platform/wide.h"
#include "platform/window_effects.h"
#include "ports/clock.h"
#include "ports/locale_text.h"
#include "reminders/reminder_text.h"
#include "util/flag_scope.h"
#include "util/ignore.h"

namespace quillo {
namespace {

/// The smallest size that the user can give a note, at 96 dpi: the buttons side by side over one line of text.
constexpr Size kSmallestNote{80, 56};

UINT ClassStyle() {
    return CS_DBLCLKS | (DropShadowsAreOn() ? UINT{CS_DROPSHADOW} : 0);
}

}  // namespace

NoteForm::NoteForm(OpenNote& note, const NoteFormServices& services)
    : note_(note),
      services_(services),
      buttons_(services.resources.images),
      icon_(services.dates.locale, services.resources.beforeIcon,
            {[this] {
                 if (TakesInput()) note_.Perform(NoteAction::Show);
             },
             [this] {
                 if (TakesInput()) OpenIconMenu();
             }}),
      dialogs_(note, *this, services.dialogs) {
    SetUpParts();
}

NoteForm::~NoteForm() {
    Destroy();
}

WindowClass NoteForm::Class() {
    return WindowClass(L"QuilloNote", &ClassStyle);
}

bool NoteForm::Create(const std::optional<NotePosition>& position) {
    WindowPlan plan;
    plan.title = L"Quillo";
    plan.style = WS_POPUP | WS_SYSMENU | WS_CLIPCHILDREN;  // the system menu moves a note by keyboard
    plan.exStyle = WS_EX_TOOLWINDOW;                       // notes do not appear in the task bar
    plan.place = FirstPlace(position);
    const FlagScope byProgram(placing_);
    return Window::Create(services_.resources.windowClass, plan);
}

LRESULT NoteForm::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (MonitorCache::IsChange(message)) services_.desktop.monitors.Forget();
    switch (message) {
        case WM_CREATE:
            return OnCreate();
        case WM_DESTROY:
            return OnDestroy(), 0;
        case WM_NCPAINT:
            return 0;  // there is no frame
        case WM_NCHITTEST:
            return OnNcHitTest(message, wParam, lParam);
        case WM_ACTIVATE:
            return OnActivate(LOWORD(wParam) != WA_INACTIVE), 0;
        case WM_SETFOCUS:
            return FocusTextBox(), 0;
        case WM_COMMAND:
            return OnCommand(LOWORD(wParam), HIWORD(wParam)), 0;
        case WM_CTLCOLOREDIT:
            return reinterpret_cast<LRESULT>(OnColorTextBox(reinterpret_cast<HDC>(wParam)));
        case WM_LBUTTONDOWN:
            return OnDragBarPressed(PointFromLParam(lParam)), 0;
        case WM_NCMOUSEMOVE:
            OnPointerOverFoot(POINT{PointFromLParam(lParam).x, PointFromLParam(lParam).y});
            return Default(message, wParam, lParam);
        case WM_ENTERSIZEMOVE:
            return OnMoveSizeBegins(), 0;
        case WM_EXITSIZEMOVE:
            return OnMoveSizeEnds(), 0;
        case WM_WINDOWPOSCHANGING:
            Default(message, wParam, lParam);
            return OnPlaceChanging(*reinterpret_cast<WINDOWPOS*>(lParam)), 0;
        case WM_GETICON:
            return reinterpret_cast<LRESULT>(services_.resources.icons.Answer(wParam, scale_));
        case WM_GETOBJECT:
            return accessible_.Answer(Handle(), wParam, lParam);
        case WM_GETMINMAXINFO:
            return OnMinMaxInfo(*reinterpret_cast<MINMAXINFO*>(lParam)), 0;
        case WM_SIZE:
            // A hidden note is laid out when it is shown.
            if (wParam != SIZE_MINIMIZED && IsVisible()) LayOut();
            return 0;
        case WM_WINDOWPOSCHANGED:
            Default(message, wParam, lParam);
            return OnPlaceChanged(*reinterpret_cast<const WINDOWPOS*>(lParam)), 0;
        case WM_DPICHANGED:
            return OnDpiChanged(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam)), 0;
        case WM_SETCURSOR:
            buttons_.PointerIsOver(reinterpret_cast<HWND>(wParam));
            return Default(message, wParam, lParam);
        case WM_NOTIFY:
            return buttons_.Notify(*reinterpret_cast<NMHDR*>(lParam)), 0;
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
            return OnSystemChanged(), 0;
        case WM_CLOSE:
            return note_.Perform(NoteAction::ClickClose), 0;
        default:
            return Default(message, wParam, lParam);
    }
}

LRESULT NoteForm::OnCreate() {
    scale_ = WindowScale(Handle());
    const Rect client = ClientRect();
    laidOut_ = Size{client.width, client.height};
    if (!messageBox_.Create(Handle(), kMessageBoxId, Layout().messageBox, services_.settings.showScrollBars)) return -1;
    ApplyFont();
    services_.resources.afterPainting.Add(this, [this] { Settle(); });
    return 0;
}

void NoteForm::OnDestroy() {
    services_.resources.afterPainting.Cancel(this);
    icon_.Hide();
    dialogs_.Close();
    drops_.Release();
    services_.resources.menus.NoteClosing(note_.Data());
    buttons_.DropToolTips();
}

void NoteForm::SetUpParts() {
    messageBox_.onAction = [this](NoteAction action) { Perform(action); };
    buttons_.onAction = [this](NoteAction action) { Perform(action); };
    buttons_.describe = [this] {
        NoteTips tips = DescribeNoteButtons(note_.Data(), Text(), services_.settings);
        tips.reminder = ReminderWords();
        return tips;
    };
}

void NoteForm::Settle() {
    services_.resources.afterPainting.Cancel(this);
    if (buttons_.IsCreated()) return;
    buttons_.Create(Handle(), Layout());
    UpdateDropTarget();
}

void NoteForm::ApplyAppearance(const Note& note, const Settings& settings) {
    if (Handle() == nullptr) return;
    noteColor_ = note.NoteColor;
    borderColor_ = note.BorderColor;
    textColor_ = note.TextColor;
    background_.Reset(CreateSolidBrush(ToColorRef(noteColor_)));
    ApplyBarColors();
    messageBox_.ShowScrollBar(settings.showScrollBars);
    ApplyFont();
    if (buttons_.IsCreated()) UpdateDropTarget();
    Repaint();
}

void NoteForm::ApplyFont() {
    HFONT font = services_.resources.fonts.Get(services_.settings.noteFont, note_.Data().LargeText, scale_);
    if (font == font_) return;
    font_ = font;
    messageBox_.SetFont(font, scale_);
}

void NoteForm::ApplyBarColors() {
    const BarStyle style = BarStyleFor(services_.settings.highContrastOff, HighContrastIsOn());
    bar_ = DragBarColors(Resolve(noteColor_), Resolve(borderColor_), style, active_);
    const ButtonTint tint{bar_.top, bar_.bottom, bar_.glyph, !active_};
    buttons_.SetTint(tint, scale_);
}

LRESULT NoteForm::OnNcHitTest(UINT message, WPARAM wParam, LPARAM lParam) {
    RECT window{};
    GetWindowRect(Handle(), &window);
    const Point at = PointFromLParam(lParam);
    const Size size{window.right - window.left, window.bottom - window.top};
    switch (HitTestNote(Point{at.x - window.left, at.y - window.top}, size, scale_)) {
        case NoteHit::BottomRight:
            return HTBOTTOMRIGHT;
        case NoteHit::Bottom:
            return HTBOTTOM;
        case NoteHit::Nothing:
            break;
    }
    return Default(message, wParam, lParam);
}

void NoteForm::OnActivate(bool active) {
    active_ = active;
    ApplyBarColors();
    const Rect bar = Layout().dragBar;
    const RECT area = ToWin32(bar);
    InvalidateRect(Handle(), &area, FALSE);
    if (active) FocusTextBox();
}

void NoteForm::FocusTextBox() {
    // A hidden note that is active for its icon's menu must not receive keys, because the user cannot see it.
    if (IsVisible()) SetFocus(messageBox_.Handle());
}

void NoteForm::OnCommand(int id, int notification) {
    if (id != kMessageBoxId || notification != EN_CHANGE) return;
    UpdateTitle();
    if (!messageBox_.IsChangingByProgram()) note_.MarkChanged();
}

void NoteForm::UpdateTitle() {
    std::u16string title = NoteTitle(messageBox_.Beginning(kTitleSource));
    if (title == title_) return;
    title_ = std::move(title);
    SetWindowTextW(Handle(), Wide(title_));
}

void NoteForm::Perform(NoteAction action) {
    switch (action) {
        case NoteAction::SelectAll:
            return messageBox_.SelectAll();
        case NoteAction::OpenMenu:
            return OpenMenu();
        default:
            return note_.Perform(action);
    }
}

void NoteForm::OpenMenu() {
    Settle();  // a key may arrive before the buttons have windows
    buttons_.MenuOpens();
    const NoteAction chosen =
        services_.resources.menus.ShowArrowMenu(note_.Data(), Handle(), buttons_.MenuButtonPlace());
    if (Handle() == nullptr) return;  // the note was closed while its menu was open
    buttons_.MenuHasClosed();
    Perform(chosen);
}

void NoteForm::OpenIconMenu() {
    // The menu makes the note's window, which may be hidden, the foreground window.
    const HWND foregroundBefore = GetForegroundWindow();
    const NoteAction chosen = services_.resources.menus.ShowIconMenu(note_.Data(), Handle());
    if (Handle() != nullptr) Perform(chosen);
    if (Handle() == nullptr || IsVisible() || GetForegroundWindow() != Handle()) return;
    if (foregroundBefore != nullptr) SetForegroundWindow(foregroundBefore);
}

HBRUSH NoteForm::OnColorTextBox(HDC dc) {
    SetTextColor(dc, ToColorRef(textColor_));
    SetBkColor(dc, ToColorRef(noteColor_));
    return background_.Get();
}

void NoteForm::OnDragBarPressed(Point at) {
    if (!Layout().dragBar.Contains(at)) return;
    Settle();
    POINT inside{at.x, at.y};
    const HWND button = ChildWindowFromPoint(Handle(), inside);
    if (button == nullptr || button == Handle()) return StartWindowDrag(Handle(), Handle(), at);
    // The button was pressed while it was only a picture.
    MapWindowPoints(Handle(), button, &inside, 1);
    SendMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(inside.x, inside.y));
}

void NoteForm::OnMinMaxInfo(MINMAXINFO& info) const {
    info.ptMinTrackSize = POINT{scale_.Px(kSmallestNote.width), scale_.Px(kSmallestNote.height)};
}

void NoteForm::OnPointerOverFoot(POINT screen) {
    ScreenToClient(Handle(), &screen);
    buttons_.PointerIsOverLabel(Handle(), Point{screen.x, screen.y}, Layout().reminderLabel);
}

std::u16string NoteForm::ReminderWords() const {
    const Note& note = note_.Data();
    return note.ReminderSet ? ReminderDescription(note.ReminderTime, services_.dates.locale) : std::u16string();
}

AccessiblePart NoteForm::Describe(int /*part*/) const {
    AccessiblePart note;
    note.role = ROLE_SYSTEM_PANE;
    note.description = ReminderWords();
    return note;
}

void NoteForm::OnMoveSizeBegins() {
    inMoveSize_ = true;
    buttons_.HideTip();
}

void NoteForm::OnMoveSizeEnds() {
    inMoveSize_ = false;
    buttons_.ShowRightButtons(Layout());
}

void NoteForm::OnPlaceChanging(WINDOWPOS& next) const {
    if (!inMoveSize_ || placing_ || next.hwndInsertAfter != HWND_TOP) return;
    // The note was activated when the user pressed it. Wine would activate it at each step, ask for the order of all
    // windows, and paint the whole note again.
    next.flags |= SWP_NOACTIVATE | SWP_NOZORDER;
}

void NoteForm::OnPlaceChanged(const WINDOWPOS& place) {
    const bool moved = (place.flags & (SWP_NOMOVE | SWP_NOSIZE)) != (SWP_NOMOVE | SWP_NOSIZE);
    if (moved && !placing_ && IsVisible() && IsIconic(Handle()) == 0) note_.MarkChanged();
}

void NoteForm::OnDpiChanged(int dpi, const RECT& suggested) {
    scale_ = Scale(dpi);
    laidOut_ = {};
    if (!placing_) Place(FromWin32(suggested), 0);
    ApplyFont();
    ApplyBarColors();
    if (IsVisible()) LayOut();
    Repaint();
}

void NoteForm::OnSystemChanged() {
    UpdateDropShadow(Handle());
    icon_.UpdatePicture();
    background_.Reset(CreateSolidBrush(ToColorRef(noteColor_)));
    ApplyBarColors();
    Repaint();
}

NoteLayout NoteForm::Layout() const {
    const Rect client = ClientRect();
    return LayOutNote(Size{client.width, client.height}, scale_);
}

void NoteForm::LayOut() {
    const Rect client = ClientRect();
    const Size size{client.width, client.height};
    if (size == laidOut_) return;
    if (inMoveSize_ && size.width != laidOut_.width) buttons_.HideRightButtons();
    laidOut_ = size;
    const NoteLayout layout = Layout();
    buttons_.MoveTo(layout);
    MoveChild(messageBox_.Handle(), layout.messageBox);
    InvalidateRect(Handle(), nullptr, FALSE);
}

void NoteForm::OnPaint() {
    const PaintScope paint(Handle());
    const Rect client = ClientRect();
    if (client.width <= 0 || client.height <= 0) return;
    const NoteLayout layout = Layout();
    // The text box paints itself. A memory bitmap that includes it would be many times as large.
    const Size size{client.width, client.height};
    for (const Rect& part : PartsToPaint(size, layout.messageBox, FromWin32(paint.Area()))) {
        const BufferedPaint buffer(paint.Dc(), ToWin32(part));
        PaintFace(buffer.Dc(), layout);
    }
}

void NoteForm::PaintFace(HDC dc, const NoteLayout& layout) {
    GdiCanvas canvas(dc, scale_);
    const Rect client = ClientRect();
    const Note& note = note_.Data();
    const std::u16string label =
        note.ReminderSet ? ReminderLabel(note.ReminderTime, services_.dates.clock.Now(), services_.dates.locale)
                         : std::u16string();
    const Size size{client.width, client.height};
    PaintNote(canvas, size, scale_, NotePaint{Resolve(noteColor_), Resolve(borderColor_)}, label);
    canvas.Gradient(layout.dragBar, bar_.top, bar_.bottom);
    buttons_.PaintWindowless(dc, layout);
}

bool NoteForm::InsertDropped(std::u16string_view text) {
    if (!messageBox_.InsertAtCaret(text)) return false;
    note_.MarkChanged();
    return true;
}

void NoteForm::UpdateDropTarget() {
    const bool wanted = services_.settings.dragAndDrop;
    if (wanted == drops_.IsRegistered() || Handle() == nullptr) return;
    if (!wanted) return drops_.Release();
    DropTargetPtr target(new NoteDropTarget(messageBox_.Handle(), services_.dates.locale, services_.drops.shell,
                                            [this](std::u16string_view text) { return InsertDropped(text); }));
    Ignore(drops_.Register(services_.drops.ole, std::move(target)), "the next time that the note is shown tries again");
}

}  // namespace quillo

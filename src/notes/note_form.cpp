#include "notes/note_form.h"

#include <cmath>

#include "notes/note_color_form.h"
#include "notes/screen_fit.h"
#include "platform/dpi.h"
#include "platform/gdi_canvas.h"
#include "platform/gdi_scope.h"
#include "platform/monitors.h"
#include "platform/wide.h"
#include "platform/window_effects.h"
#include "ports/clock.h"
#include "ports/locale_text.h"
#include "ports/random.h"
#include "resources/resource_ids.h"

namespace quillo {
namespace {

enum ChildId : int { kMessageBoxId = 1, kCloseButtonId, kPushpinId, kMenuButtonId };

/// How long after its last change a note is saved: long enough not to write at every key.
constexpr UINT kSaveMilliseconds = 2000;
constexpr int kBalloonSeconds = 10;
/// Timers come after painting: whatever this one starts, the note is on the screen before.
constexpr UINT kSettleMilliseconds = 10;
/// The text box's inner margins, at 96 dpi.
constexpr int kTextMargin = 3;
/// The smallest size that the user can give a note, at 96 dpi: the buttons side by side over one line of text.
constexpr Size kSmallestNote{80, 56};

/// A flag that stands for the length of a scope.
class FlagScope {
  public:
    explicit FlagScope(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;
    ~FlagScope() { flag_ = before_; }

  private:
    bool& flag_;
    bool before_;
};

void MoveChild(HWND child, const Rect& place) {
    if (child == nullptr) return;
    SetWindowPos(child, nullptr, place.left, place.top, place.width, place.height, SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

NoteForm::NoteForm(OpenNote& note, const NoteFormTools& tools)
    : note_(note),
      tools_(tools),
      closeButton_(tools.images),
      pushpin_(tools.images),
      menuButton_(tools.images),
      trayIcon_(tools.locale),
      settleTimer_([this] { Settle(); }),
      saveTimer_([this] {
          saveTimer_.Stop();
          note_.PersistNote();
      }) {
    TrayProperties hiddenIcon;
    hiddenIcon.visible = false;
    trayIcon_.LoadProperties(hiddenIcon);
    SetUpButtons();
}

NoteForm::~NoteForm() {
    Destroy();
}

bool NoteForm::Create() {
    WNDCLASSEXW windowClass{};
    windowClass.lpszClassName = L"QuilloNote";
    windowClass.style = CS_DBLCLKS;
    windowClass.hCursor = ArrowCursor();
    windowClass.hIcon = LoadIconW(ThisModule(), MAKEINTRESOURCEW(IDI_QUILLO));

    const Scale scale = SystemScale();
    const auto inTwips = [&scale](int pixels) { return static_cast<int>(scale.ToTwips(Pixels{pixels}).value); };
    const Size screen = ScreenSize();
    const double r1 = tools_.random.Next();
    const double r2 = tools_.random.Next();
    const Point place =
        PlaceNewNote(Size{inTwips(screen.width), inTwips(screen.height)}, Size{kNewNoteWidth, kNewNoteHeight}, r1, r2);
    WindowPlan plan;
    plan.title = L"Quillo";
    plan.style = WS_POPUP | WS_SYSMENU | WS_CLIPCHILDREN;  // the system menu moves a note by keyboard
    plan.exStyle = WS_EX_TOOLWINDOW;                       // notes stay out of the task bar
    plan.place = Rect{scale.ToPixels(Twips{static_cast<float>(place.x)}).value,
                      scale.ToPixels(Twips{static_cast<float>(place.y)}).value,
                      scale.ToPixels(Twips{kNewNoteWidth}).value, scale.ToPixels(Twips{kNewNoteHeight}).value};
    const FlagScope byProgram(placing_);
    return Window::Create(windowClass, plan);
}

LRESULT NoteForm::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            return OnCreate();
        case WM_DESTROY:
            return OnDestroy(), 0;
        case WM_NCHITTEST:
            return OnNcHitTest(message, wParam, lParam);
        case WM_ACTIVATE:
            return OnActivate(LOWORD(wParam) != WA_INACTIVE), 0;
        case WM_SETFOCUS:
            return SetFocus(messageBox_), 0;
        case WM_COMMAND:
            return OnCommand(LOWORD(wParam), HIWORD(wParam)), 0;
        case WM_CTLCOLOREDIT:
            return reinterpret_cast<LRESULT>(OnColorTextBox(reinterpret_cast<HDC>(wParam)));
        case WM_LBUTTONDOWN:
            return OnDragBarPressed(PointFromLParam(lParam)), 0;
        case WM_GETMINMAXINFO:
            return OnMinMaxInfo(*reinterpret_cast<MINMAXINFO*>(lParam)), 0;
        case WM_SIZE:
            return LayOut(), 0;
        case WM_WINDOWPOSCHANGED:
            Default(message, wParam, lParam);
            return OnPlaceChanged(*reinterpret_cast<const WINDOWPOS*>(lParam)), 0;
        case WM_DPICHANGED:
            return OnDpiChanged(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam)), 0;
        case WM_ERASEBKGND:
            return 1;  // painted whole, off the screen
        case WM_PAINT:
            return OnPaint(), 0;
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
            return OnSystemChanged(), 0;
        case WM_CLOSE:
            return note_.CloseButtonClick(), 0;
        default:
            return Default(message, wParam, lParam);
    }
}

LRESULT NoteForm::OnCreate() {
    scale_ = WindowScale(Handle());
    AddDropShadow(Handle());
    CreateTextBox(tools_.settings.showScrollBars);
    layoutDue_ = false;
    ApplyFont();
    settleTimer_.Start(kSettleMilliseconds);
    return messageBox_ != nullptr ? 0 : -1;
}

void NoteForm::OnDestroy() {
    saveTimer_.Stop();
    settleTimer_.Stop();
    trayIcon_.SetVisible(false);
    if (reminderAlert_) reminderAlert_->Unload();
    tools_.colorDialog.Forget(note_);
    ReleaseDropTarget();
    // The object lives on: what is asked of it now must not reach a window that the system gave the same number.
    messageBox_ = nullptr;
}

void NoteForm::CreateTextBox(bool scrollBar) {
    scrollBar_ = scrollBar;
    const DWORD bar = scrollBar ? WS_VSCROLL : 0;
    const DWORD style = WS_CHILD | WS_VISIBLE | bar | ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN;
    const UINT_PTR id = kMessageBoxId;
    // At its place from the start: a text box wraps its text anew for every new size.
    const Rect place = Layout().messageBox;
    messageBox_ = CreateWindowExW(0, L"EDIT", L"", style, place.left, place.top, place.width, place.height, Handle(),
                                  reinterpret_cast<HMENU>(id), ThisModule(), nullptr);
    SetWindowLongPtrW(messageBox_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    textBoxProcedure_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(messageBox_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&NoteForm::TextBoxProcedure)));
    constexpr WPARAM kMostTheBoxHolds = 0;
    SendMessageW(messageBox_, EM_SETLIMITTEXT, kMostTheBoxHolds, 0);
}

void NoteForm::ChangeScrollBar(bool shown) {
    if (shown == scrollBar_) return;
    // A text box shows a hidden bar again as soon as its text or its size changes; one made without a bar never does.
    const HWND old = messageBox_;
    const std::u16string text = Text();
    const bool focused = GetFocus() == old;
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(old, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    ReleaseDropTarget();
    CreateTextBox(shown);
    if (messageBox_ == nullptr) {
        messageBox_ = old;
        scrollBar_ = !shown;
        return;
    }
    font_ = nullptr;  // the new one has none yet
    ApplyFont();
    SetText(text);
    SendMessageW(messageBox_, EM_SETSEL, start, static_cast<LPARAM>(end));
    if (focused) SetFocus(messageBox_);
    DestroyWindow(old);
}

void NoteForm::SetUpButtons() {
    menuButton_.SetPicture(ButtonPicture::Menu);
    menuButton_.SetMenuMode(true);
    pushpin_.SetPicture(ButtonPicture::Pushpin);
    pushpin_.onClick = [this] { note_.TogglePin(); };
    closeButton_.SetPicture(ButtonPicture::Close);
    closeButton_.onClick = [this] { note_.CloseButtonClick(); };
    closeButton_.onShiftClick = [this] { note_.QuickDelete(); };
}

void NoteForm::Settle() {
    settleTimer_.Stop();
    const NoteLayout layout = Layout();
    menuButton_.Create(Handle(), kMenuButtonId, L"Note menu", layout.menuButton);
    pushpin_.Create(Handle(), kPushpinId, L"Always on top", layout.pushpin);
    closeButton_.Create(Handle(), kCloseButtonId, L"Close note", layout.closeButton);
    UpdateDropTarget();
}

std::u16string NoteForm::Text() const {
    const int length = GetWindowTextLengthW(messageBox_);
    if (length <= 0) return {};
    std::u16string text(static_cast<std::size_t>(length) + 1, u'\0');
    const int copied = GetWindowTextW(messageBox_, WideBuffer(text), length + 1);
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

void NoteForm::SetText(std::u16string_view text) {
    const FlagScope byProgram(settingText_);
    SetWindowTextW(messageBox_, Wide(std::u16string(text)));
}

TwipsRect NoteForm::Rectangle() const {
    RECT window{};
    GetWindowRect(Handle(), &window);
    const Rect place = FromWin32(window);
    const Scale screen = SystemScale();
    return TwipsRect{screen.ToTwips(Pixels{place.left}).value, screen.ToTwips(Pixels{place.top}).value,
                     scale_.ToTwips(Pixels{place.width}).value, scale_.ToTwips(Pixels{place.height}).value};
}

void NoteForm::MoveTo(const TwipsRect& rectangle) {
    const Scale screen = SystemScale();
    const int left = screen.ToPixels(Twips{rectangle.left}).value;
    const int top = screen.ToPixels(Twips{rectangle.top}).value;
    const Scale there = PointScale(POINT{left, top});
    Place(Rect{left, top, there.ToPixels(Twips{rectangle.width}).value, there.ToPixels(Twips{rectangle.height}).value},
          0);
}

void NoteForm::MoveOntoScreen() {
    RECT window{};
    GetWindowRect(Handle(), &window);
    const Rect place = FromWin32(window);
    const Point fitted = PlaceOnScreen(place, WorkAreas());
    if (fitted == Point{place.left, place.top}) return;
    Place(Rect{fitted.x, fitted.y, 0, 0}, SWP_NOSIZE);
}

void NoteForm::Place(const Rect& place, UINT flags) {
    const FlagScope byProgram(placing_);
    SetWindowPos(Handle(), nullptr, place.left, place.top, place.width, place.height,
                 flags | SWP_NOZORDER | SWP_NOACTIVATE);
}

bool NoteForm::IsVisible() const {
    return IsWindowVisible(Handle()) != 0;
}

void NoteForm::Show() {
    const FlagScope byProgram(placing_);
    if (layoutDue_) LayOutNow();
    ShowWindow(Handle(), SW_SHOWNOACTIVATE);
}

void NoteForm::Hide() {
    ShowWindow(Handle(), SW_HIDE);
}

void NoteForm::BringToFront(bool pinned) {
    // A button that the pointer rests on would take the next press from what covers it now.
    NoteButton::EndHover();
    // Only by way of the topmost windows can one that is not active come to the front of another program's; a window
    // that was shown first is there already.
    if (!pinned && IsInFront(Handle())) return;
    SetTopmost(Handle(), true);
    if (!pinned) SetTopmost(Handle(), false);
}

void NoteForm::Activate() {
    SetForegroundWindow(Handle());
    SetFocus(messageBox_);
}

void NoteForm::ShowPinned(bool pinned) {
    SetTopmost(Handle(), pinned);
    pushpin_.SetPicture(pinned ? ButtonPicture::PushpinPressed : ButtonPicture::Pushpin);
}

void NoteForm::SetOpacity(int alpha) {
    SetTranslucency(Handle(), alpha);
}

bool NoteForm::IsIconShowing() const {
    return trayIcon_.Visible();
}

void NoteForm::ShowIcon(std::u16string_view caption) {
    trayIcon_.onClick = [this] { note_.ShowFromIcon(); };
    trayIcon_.SetIcon(
        static_cast<HICON>(LoadImageW(ThisModule(), MAKEINTRESOURCEW(IDI_QUILLO), IMAGE_ICON,
                                      GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON), LR_SHARED)));
    trayIcon_.SetToolTipText(caption);
    trayIcon_.SetVisible(true);
}

void NoteForm::HideIcon() {
    trayIcon_.SetVisible(false);
}

void NoteForm::ShowIconBalloon(std::u16string_view text, std::u16string_view title, BalloonIcon icon) {
    trayIcon_.ShowBalloon(text, title, static_cast<DWORD>(icon), kBalloonSeconds);
}

bool NoteForm::OpenReminderDialog(DaySerial existing) {
    reminderDialog_ = std::make_unique<SetReminderForm>(&note_, tools_.reminders);
    return reminderDialog_->Initialize(Handle(), existing);
}

void NoteForm::BringReminderDialogForward() {
    if (reminderDialog_) reminderDialog_->BringForward();
}

bool NoteForm::OpenReminderAlert(std::u16string_view text) {
    reminderAlert_ = std::make_unique<ReminderForm>(&note_, tools_.reminders);
    return reminderAlert_->Initialize(text, AlertColors{noteColor_, borderColor_, textColor_});
}

bool NoteForm::OpenColorDialog(bool own, const ColorScheme& colors) {
    return tools_.colorDialog.ShowFor(Handle(), note_, own, colors);
}

void NoteForm::ApplyAppearance(const Note& note, const Settings& settings) {
    if (Handle() == nullptr) return;
    noteColor_ = note.NoteColor;
    borderColor_ = note.BorderColor;
    textColor_ = note.TextColor;
    background_.Reset(CreateSolidBrush(ToColorRef(noteColor_)));
    ApplyBarColors();
    ChangeScrollBar(settings.showScrollBars);
    ApplyFont();
    if (!settleTimer_.IsRunning()) UpdateDropTarget();
    Repaint();
}

void NoteForm::ApplyFont() {
    HFONT font = tools_.fonts.Get(tools_.settings.noteFont, note_.Data().LargeText, scale_);
    if (font == font_) return;
    font_ = font;
    SendMessageW(messageBox_, WM_SETFONT, reinterpret_cast<WPARAM>(font), IsVisible() ? TRUE : FALSE);
    SetTextMargins(messageBox_, scale_.Px(kTextMargin));
    // One tab stop, in units that follow the font. It holds as long as the font does, shown or hidden.
    const UINT dialogUnits = 8;
    SendMessageW(messageBox_, EM_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&dialogUnits));
}

void NoteForm::ApplyBarColors() {
    const bool flat = HighContrastIsOn() && !tools_.settings.highContrastOff;
    bar_ = DragBarColors(Resolve(noteColor_), Resolve(borderColor_), flat, active_);
    const ButtonTint tint{bar_.top, bar_.bottom, bar_.glyph, !active_};
    for (NoteButton* button : {&menuButton_, &pushpin_, &closeButton_}) button->SetTint(tint, scale_);
}

void NoteForm::Repaint() {
    // Without a window the call would mean every window on the desktop.
    if (Handle() != nullptr) RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void NoteForm::Close() {
    Destroy();
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
    if (active) SetFocus(messageBox_);
}

void NoteForm::OnCommand(int id, int notification) {
    if (id == kMessageBoxId && notification == EN_CHANGE && !settingText_) note_.MarkChanged();
}

LRESULT CALLBACK NoteForm::TextBoxProcedure(HWND box, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    auto& self = *reinterpret_cast<NoteForm*>(GetWindowLongPtrW(box, GWLP_USERDATA));
    constexpr LPARAM kWasDown = 1 << 30;
    try {
        if (message == WM_KEYDOWN && self.OnTextBoxKey(static_cast<int>(wParam), (lParam & kWasDown) != 0)) return 0;
    } catch (...) {
        return 0;  // the system could not unwind it; the shortcut is given up
    }
    if (message == WM_CHAR && self.keySwallowed_) return 0;
    return CallWindowProcW(self.textBoxProcedure_, box, message, wParam, lParam);
}

bool NoteForm::OnTextBoxKey(int virtualKey, bool repeated) {
    const auto isDown = [](int key) { return GetKeyState(key) < 0; };
    const NoteKeyState held{isDown(VK_CONTROL), isDown(VK_SHIFT), isDown(VK_RMENU)};
    const NoteAction action = NoteKeyAction(virtualKey, held);
    keySwallowed_ = action != NoteAction::None;
    // A key held down acts once: Ctrl+W would go on to close one note after the other.
    if (keySwallowed_ && !repeated) Perform(action);
    return keySwallowed_;
}

void NoteForm::Perform(NoteAction action) {
    if (action == NoteAction::SelectAll) {
        SendMessageW(messageBox_, EM_SETSEL, 0, -1);
    } else {
        quillo::Perform(action, note_);
    }
}

HBRUSH NoteForm::OnColorTextBox(HDC dc) {
    SetTextColor(dc, ToColorRef(textColor_));
    SetBkColor(dc, ToColorRef(noteColor_));
    return background_.Get();
}

void NoteForm::OnDragBarPressed(Point at) {
    if (!Layout().dragBar.Contains(at)) return;
    POINT screen{at.x, at.y};
    ClientToScreen(Handle(), &screen);
    ReleaseCapture();
    SendMessageW(Handle(), WM_NCLBUTTONDOWN, HTCAPTION, MAKELPARAM(screen.x, screen.y));
}

void NoteForm::OnMinMaxInfo(MINMAXINFO& info) const {
    info.ptMinTrackSize = POINT{scale_.Px(kSmallestNote.width), scale_.Px(kSmallestNote.height)};
}

void NoteForm::OnPlaceChanged(const WINDOWPOS& place) {
    const bool moved = (place.flags & (SWP_NOMOVE | SWP_NOSIZE)) != (SWP_NOMOVE | SWP_NOSIZE);
    if (moved && !placing_ && IsVisible()) note_.MarkChanged();
}

void NoteForm::OnDpiChanged(int dpi, const RECT& suggested) {
    scale_ = Scale(dpi);
    if (!placing_) Place(FromWin32(suggested), 0);
    ApplyFont();
    ApplyBarColors();
    LayOut();
    Repaint();
}

void NoteForm::OnSystemChanged() {
    background_.Reset(CreateSolidBrush(ToColorRef(noteColor_)));
    ApplyBarColors();
    Repaint();
}

NoteLayout NoteForm::Layout() const {
    const Rect client = ClientRect();
    return LayOutNote(Size{client.width, client.height}, scale_);
}

void NoteForm::LayOut() {
    layoutDue_ = true;
    if (IsVisible()) LayOutNow();
}

void NoteForm::LayOutNow() {
    layoutDue_ = false;
    const NoteLayout layout = Layout();
    MoveChild(menuButton_.Handle(), layout.menuButton);
    MoveChild(pushpin_.Handle(), layout.pushpin);
    MoveChild(closeButton_.Handle(), layout.closeButton);
    MoveChild(messageBox_, layout.messageBox);
    InvalidateRect(Handle(), nullptr, FALSE);
}

void NoteForm::OnPaint() {
    const PaintScope paint(Handle());
    const Rect client = ClientRect();
    if (client.width <= 0 || client.height <= 0) return;
    const BufferedPaint buffer(paint.Dc(), paint.Area());
    GdiCanvas canvas(buffer.Dc(), scale_);
    const Note& note = note_.Data();
    const std::u16string label =
        note.ReminderSet ? ReminderLabel(note.ReminderTime, tools_.clock.Now(), tools_.locale) : std::u16string();
    const Size size{client.width, client.height};
    PaintNote(canvas, size, scale_, NotePaint{Resolve(noteColor_), Resolve(borderColor_)}, label);
    const NoteLayout layout = Layout();
    canvas.Gradient(layout.dragBar, bar_.top, bar_.bottom);
    if (menuButton_.Handle() == nullptr) {
        menuButton_.PaintAtRest(buffer.Dc(), layout.menuButton);
        pushpin_.PaintAtRest(buffer.Dc(), layout.pushpin);
        closeButton_.PaintAtRest(buffer.Dc(), layout.closeButton);
    }
}

void NoteForm::SaveSoon() {
    // A note whose window has gone is closed: it must not write its storage copy again.
    if (Handle() != nullptr) saveTimer_.Start(kSaveMilliseconds);
}

void NoteForm::InsertDropped(std::u16string_view text) {
    // Nothing is replaced: the selection shrinks to its start before the text comes in.
    DWORD start = 0;
    SendMessageW(messageBox_, EM_GETSEL, reinterpret_cast<WPARAM>(&start), 0);
    SendMessageW(messageBox_, EM_SETSEL, start, static_cast<LPARAM>(start));
    SendMessageW(messageBox_, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(Wide(std::u16string(text))));
    note_.MarkChanged();
}

void NoteForm::UpdateDropTarget() {
    const bool wanted = tools_.settings.dragAndDrop;
    if (wanted == (dropTarget_ != nullptr) || Handle() == nullptr) return;
    if (!wanted) return ReleaseDropTarget();
    if (!tools_.ole.Start()) return;
    dropTarget_ = new NoteDropTarget(messageBox_, tools_.locale, tools_.shell,
                                     [this](std::u16string_view text) { InsertDropped(text); });
    RegisterDragDrop(messageBox_, dropTarget_);
}

void NoteForm::ReleaseDropTarget() {
    if (dropTarget_ == nullptr) return;
    RevokeDragDrop(messageBox_);
    dropTarget_->Disconnect();
    dropTarget_->Release();
    dropTarget_ = nullptr;
}

}  // namespace quillo

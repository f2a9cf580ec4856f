#include "reminders/set_reminder_form.h"

// After windows.h.
#include <commctrl.h>

#include <algorithm>
#include <array>

#include "platform/dpi.h"
#include "platform/gdi_canvas.h"
#include "platform/gdi_scope.h"
#include "platform/message_loop.h"
#include "platform/text_tools.h"
#include "platform/wide.h"
#include "platform/window_effects.h"
#include "ports/clock.h"
#include "ports/locale_text.h"
#include "ports/user_notice.h"
#include "reminders/reminder_phrase.h"
#include "reminders/reminder_text.h"
#include "reminders/reminder_tools.h"

namespace quillo {
namespace {

using Control = ReminderControl;

// Pixels at 96 dpi.
constexpr int kMargin = 11;
constexpr int kGap = 8;
constexpr int kSmallGap = 4;
constexpr int kLeastWidth = 360;
constexpr int kBoxPadding = 7;  // what a text box is higher than its line
constexpr int kButtonHeight = 25;
constexpr int kLeastButtonWidth = 92;
constexpr int kButtonPadding = 24;  // left and right of the caption together
constexpr int kCheckHeight = 18;
constexpr int kCheckBoxRoom = 22;
constexpr int kMessageBar = 3;

constexpr int kTextPoints = 9;
constexpr int kHeadingPoints = 12;
constexpr UINT kPreviewMilliseconds = 1000;
constexpr int kToolTipWidth = 280;

constexpr ColorWord kAccent = ColorWord::FromRgb(0xD9, 0x8E, 0x04);
constexpr int kMessageTintPercent = 14;
constexpr int kQuietPercent = 66;  // of the text's colour; the rest is the ground

/// From the first to the last in reading order, which is the order of the Tab key; a label stands before its control,
/// so that a screen reader finds it.
constexpr std::array kInOrder = {
    Control::HeadingLabel,
    Control::InstructionLabel,
    Control::ReminderBox,
    Control::ExamplesLabel,
    Control::FirstExampleLabel,
    Control::TwentyMinutesLabel,
    Control::TomorrowLabel,
    Control::HideNoteCheck,
    Control::CancelHeadingLabel,
    Control::ActiveReminderLabel,
    Control::CancelExplanationLabel,
    Control::DividerBar,
    Control::PreviewLabel,
    Control::OKButton,
    Control::CancelButton,
    Control::MessageLabel,
};
constexpr std::array kMainPanel = {
    Control::HeadingLabel,      Control::InstructionLabel,   Control::ReminderBox,   Control::ExamplesLabel,
    Control::FirstExampleLabel, Control::TwentyMinutesLabel, Control::TomorrowLabel, Control::HideNoteCheck,
};
constexpr std::array kCancelPanel = {
    Control::CancelHeadingLabel,
    Control::ActiveReminderLabel,
    Control::CancelExplanationLabel,
};

/// The default button has the number that the Enter key asks for. None has that of Esc, which closes the dialog.
int IdOf(Control control) {
    constexpr int kFirstId = 100;
    return control == Control::OKButton ? IDOK : kFirstId + static_cast<int>(control);
}

struct ControlKind {
    const wchar_t* windowClass;
    DWORD style;
    DWORD exStyle = 0;
};

ControlKind KindOf(Control control) {
    switch (control) {
        case Control::ReminderBox:
            return {L"EDIT", WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE};
        case Control::HideNoteCheck:
            return {L"BUTTON", WS_TABSTOP | BS_AUTOCHECKBOX};
        case Control::OKButton:
            return {L"BUTTON", WS_TABSTOP | BS_DEFPUSHBUTTON};
        case Control::CancelButton:
            return {L"BUTTON", WS_TABSTOP | BS_PUSHBUTTON};
        case Control::DividerBar:
            return {L"STATIC", SS_ETCHEDHORZ};
        default:
            return {L"STATIC", SS_LEFT | SS_NOPREFIX};
    }
}

/// Over the middle of the note, inside the work area of its monitor.
Rect PlaceOver(HWND noteWindow, Size size) {
    RECT note{};
    GetWindowRect(noteWindow, &note);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(noteWindow, MONITOR_DEFAULTTONEAREST), &monitor);
    const Rect area = FromWin32(monitor.rcWork);
    const int left = (note.left + note.right - size.width) / 2;
    const int top = (note.top + note.bottom - size.height) / 2;
    return Rect{std::max(area.left, std::min(left, area.Right() - size.width)),
                std::max(area.top, std::min(top, area.Bottom() - size.height)), size.width, size.height};
}

}  // namespace

SetReminderForm::SetReminderForm(ReminderOwner* owner, ReminderTools& tools)
    : owner_(owner), tools_(tools), previewTimer_([this] { UpdatePreview(); }) {}

HWND SetReminderForm::ControlWindow(ReminderControl control) const {
    return GetDlgItem(Handle(), IdOf(control));
}

bool SetReminderForm::Initialize(HWND noteWindow, DaySerial existing) {
    existing_ = existing;
    opened_ = tools_.clock.Now();
    dialog_ = std::make_unique<ReminderDialog>(existing, owner_ != nullptr, tools_.locale);

    WNDCLASSEXW windowClass{};
    windowClass.lpszClassName = L"QuilloSetReminder";
    windowClass.hCursor = ArrowCursor();
    windowClass.cbWndExtra = DLGWINDOWEXTRA;  // the system's dialog procedure keeps focus and default button there
    const std::u16string title(kReminderDialogCaption);
    WindowPlan plan;
    plan.title = Wide(title);
    plan.style = WS_POPUP | WS_CAPTION | WS_SYSMENU;
    plan.exStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;
    plan.parent = noteWindow;
    scale_ = noteWindow != nullptr ? WindowScale(noteWindow) : SystemScale();
    if (!Window::Create(windowClass, plan)) return false;

    RECT window{};
    GetWindowRect(Handle(), &window);
    const Rect place = PlaceOver(noteWindow, Size{window.right - window.left, window.bottom - window.top});
    SetWindowPos(Handle(), nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    ShowWindow(Handle(), SW_SHOW);
    SetTopmost(Handle(), true);
    CreateToolTips();  // a window that owns a topmost one already would not always become one itself
    BringForward();
    SelectBox();
    return true;
}

void SetReminderForm::BringForward() {
    SetForegroundWindow(Handle());
    if (!dialog_->CancelPanelShown()) SetFocus(ControlWindow(Control::ReminderBox));
}

LRESULT SetReminderForm::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            return OnCreate();
        case WM_DESTROY:
            return OnDestroy(), 0;
        case WM_CLOSE:
            return Destroy(), 0;
        case WM_COMMAND:
            return OnCommand(LOWORD(wParam), HIWORD(wParam)), 0;
        case WM_ERASEBKGND:
            return OnErase(reinterpret_cast<HDC>(wParam)), 1;
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN:
            return reinterpret_cast<LRESULT>(
                OnColorControl(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam)));
        case WM_DPICHANGED:
            return OnDpiChanged(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam)), 0;
        default:
            return DefDlgProcW(Handle(), message, wParam, lParam);
    }
}

LRESULT SetReminderForm::OnCreate() {
    CreateControls();
    MakeFonts();
    MeasureAndLayOut();
    SendMessageW(Handle(), DM_SETDEFID, IDOK, 0);
    tools_.loop.AddDialog(Handle());
    UpdatePreview();
    previewTimer_.Start(kPreviewMilliseconds);
    return 0;
}

void SetReminderForm::OnDestroy() {
    previewTimer_.Stop();
    tools_.loop.RemoveDialog(Handle());
    if (owner_ != nullptr) owner_->SetReminderClosing();
}

void SetReminderForm::OnCommand(int id, int notification) {
    if (id == IDCANCEL) return Destroy();  // Esc: nothing changes
    if (id == IDOK && notification == BN_CLICKED) return Press(true);
    if (id == IdOf(Control::CancelButton) && notification == BN_CLICKED) return Press(false);
    if (id != IdOf(Control::ReminderBox)) return;
    if (notification == EN_SETFOCUS) SelectBox();
    if (notification == EN_CHANGE) UpdatePreview();
}

void SetReminderForm::OnDpiChanged(int dpi, const RECT& suggested) {
    scale_ = Scale(dpi);
    MakeFonts();
    SetWindowPos(Handle(), nullptr, suggested.left, suggested.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    MeasureAndLayOut();
    InvalidateRect(Handle(), nullptr, TRUE);
}

// What stands in it.

void SetReminderForm::CreateControls() {
    for (const ReminderControl control : kInOrder) {
        const ControlKind kind = KindOf(control);
        const bool hidden = control == Control::MessageLabel ||
                            std::find(kCancelPanel.begin(), kCancelPanel.end(), control) != kCancelPanel.end();
        const DWORD visible = hidden ? 0 : WS_VISIBLE;
        const auto id = static_cast<UINT_PTR>(IdOf(control));
        CreateWindowExW(kind.exStyle, kind.windowClass, Wide(CaptionOf(control)), WS_CHILD | visible | kind.style, 0, 0,
                        0, 0, Handle(), reinterpret_cast<HMENU>(id), ThisModule(), nullptr);
    }
}

std::u16string SetReminderForm::CaptionOf(ReminderControl control) const {
    switch (control) {
        case Control::ReminderBox:
            return dialog_->StartText();
        case Control::TwentyMinutesLabel:
            return TwentyMinutesExample(opened_, tools_.locale);
        case Control::TomorrowLabel:
            return TomorrowExample(opened_, tools_.locale);
        default:
            return std::u16string(TextOf(control).caption);
    }
}

void SetReminderForm::CreateToolTips() {
    toolTips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0,
                                0, 0, Handle(), nullptr, ThisModule(), nullptr);
    for (const ReminderControlText& text : kReminderControls) {
        if (text.toolTip.empty()) continue;
        std::u16string words(text.toolTip);
        TTTOOLINFOW tool{};
        tool.cbSize = TTTOOLINFOW_V2_SIZE;
        tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
        tool.hwnd = Handle();
        tool.uId = reinterpret_cast<UINT_PTR>(ControlWindow(text.control));
        tool.lpszText = WideBuffer(words);
        SendMessageW(toolTips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
    WrapToolTips();
}

void SetReminderForm::WrapToolTips() const {
    if (toolTips_ != nullptr) SendMessageW(toolTips_, TTM_SETMAXTIPWIDTH, 0, scale_.Px(kToolTipWidth));
}

void SetReminderForm::MakeFonts() {
    FontHandle font = MakeFont(kReminderDialogFont, kTextPoints, FW_NORMAL, scale_);
    FontHandle heading = MakeFont(kReminderDialogFont, kHeadingPoints, FW_NORMAL, scale_);
    FontHandle strong = MakeFont(kReminderDialogFont, kTextPoints, FW_BOLD, scale_);
    std::swap(font_, font);
    std::swap(headingFont_, heading);
    std::swap(strongFont_, strong);
    // The old fonts go at the end of this scope, after every control has let go of them.
    for (const ReminderControl control : kInOrder) {
        SendMessageW(ControlWindow(control), WM_SETFONT, reinterpret_cast<WPARAM>(FontOf(control)), FALSE);
    }
    SetTextMargins(ControlWindow(Control::ReminderBox), scale_.Px(kReminderBoxMargin));
    WrapToolTips();
}

HFONT SetReminderForm::FontOf(ReminderControl control) const {
    if (control == Control::ActiveReminderLabel) return strongFont_.Get();
    const bool heading = control == Control::HeadingLabel || control == Control::CancelHeadingLabel;
    return heading ? headingFont_.Get() : font_.Get();
}

// Where it stands. Every text is measured: dates are long in some locales, and nothing is ever cut.

int SetReminderForm::PreviewWidth(HDC dc) const {
    // Any of these may be the longest, with its weekday and the digits of an evening hour.
    constexpr int kMonths = 12;
    constexpr int kFirstDay = 22;
    constexpr int kLastDay = 28;
    int widest = 0;
    for (int month = 1; month <= kMonths; ++month) {
        for (int day = kFirstDay; day <= kLastDay; ++day) {
            const DaySerial when = ToDaySerial({2028, month, day, 22, 58, 58});
            widest = std::max(widest, MeasureText(dc, font_.Get(), PreviewText(when, tools_.locale)).width);
        }
    }
    return widest;
}

int SetReminderForm::ContentWidth(HDC dc) const {
    int width = scale_.Px(kLeastWidth);
    for (const ReminderControl control : {Control::FirstExampleLabel, Control::TwentyMinutesLabel,
                                          Control::TomorrowLabel, Control::HeadingLabel, Control::CancelHeadingLabel}) {
        width = std::max(width, MeasureText(dc, FontOf(control), CaptionOf(control)).width + scale_.Px(kGap));
    }
    const int check = MeasureText(dc, font_.Get(), CaptionOf(Control::HideNoteCheck)).width + scale_.Px(kCheckBoxRoom);
    return std::max(width, check);
}

int SetReminderForm::ButtonWidth(HDC dc, ReminderControl button) const {
    const int caption = MeasureText(dc, font_.Get(), TextOf(button).caption).width;
    const int later = button == Control::OKButton ? MeasureText(dc, font_.Get(), kKeepReminderCaption).width : 0;
    return std::max(scale_.Px(kLeastButtonWidth), std::max(caption, later) + scale_.Px(kButtonPadding));
}

void SetReminderForm::MeasureAndLayOut() {
    const WindowDcScope screen(nullptr);
    HDC dc = screen.Dc();
    const int buttons = ButtonWidth(dc, Control::OKButton) + scale_.Px(kGap) + ButtonWidth(dc, Control::CancelButton);
    const int foot = PreviewWidth(dc) + 2 * scale_.Px(kGap) + buttons;
    const int width = std::max(ContentWidth(dc), foot);
    clientWidth_ = width + 2 * scale_.Px(kMargin);
    footTop_ = LayOutMainPanel(dc, width);
    LayOutCancelPanel(dc, width);
    LayOutFoot(dc, width, footTop_);
    LayOutMessage(dc, width);
    FitWindow();
}

int SetReminderForm::LayOutMainPanel(HDC dc, int width) {
    const int left = scale_.Px(kMargin);
    int y = left;
    const auto put = [&](ReminderControl control, int indent, int height, int gapAfter) {
        MoveWindow(ControlWindow(control), left + indent, y, width - indent, height, FALSE);
        y += height + scale_.Px(gapAfter);
    };
    const auto textHeight = [&](ReminderControl control, int indent) {
        return MeasureText(dc, FontOf(control), CaptionOf(control), width - indent).height;
    };
    const auto putText = [&](ReminderControl control, int indent, int gapAfter) {
        put(control, indent, textHeight(control, indent), gapAfter);
    };
    putText(Control::HeadingLabel, 0, kGap);
    putText(Control::InstructionLabel, 0, kGap);
    put(Control::ReminderBox, 0, MeasureText(dc, font_.Get(), u"Xg").height + scale_.Px(kBoxPadding), kMargin);
    putText(Control::ExamplesLabel, 0, kSmallGap);
    const int indent = scale_.Px(kGap);
    putText(Control::FirstExampleLabel, indent, kSmallGap);
    putText(Control::TwentyMinutesLabel, indent, kSmallGap);
    putText(Control::TomorrowLabel, indent, kMargin);
    put(Control::HideNoteCheck, 0, scale_.Px(kCheckHeight), kMargin);
    return y;
}

void SetReminderForm::LayOutCancelPanel(HDC dc, int width) const {
    const int left = scale_.Px(kMargin);
    int y = left;
    const auto put = [&](ReminderControl control, std::u16string_view text, int gapAfter) {
        const int height = MeasureText(dc, FontOf(control), text, width).height;
        MoveWindow(ControlWindow(control), left, y, width, height, FALSE);
        y += height + scale_.Px(gapAfter);
    };
    put(Control::CancelHeadingLabel, CaptionOf(Control::CancelHeadingLabel), kGap);
    put(Control::ActiveReminderLabel, tools_.locale.GeneralDate(existing_), kMargin);
    put(Control::CancelExplanationLabel, CaptionOf(Control::CancelExplanationLabel), 0);
}

void SetReminderForm::LayOutFoot(HDC dc, int width, int top) {
    const int margin = scale_.Px(kMargin);
    MoveWindow(ControlWindow(Control::DividerBar), 0, top, clientWidth_, 2, FALSE);
    const int buttonTop = top + margin;
    const int height = scale_.Px(kButtonHeight);
    const int okWidth = ButtonWidth(dc, Control::OKButton);
    const int cancelWidth = ButtonWidth(dc, Control::CancelButton);
    const int cancelLeft = margin + width - cancelWidth;
    const int okLeft = cancelLeft - scale_.Px(kGap) - okWidth;
    MoveWindow(ControlWindow(Control::OKButton), okLeft, buttonTop, okWidth, height, FALSE);
    MoveWindow(ControlWindow(Control::CancelButton), cancelLeft, buttonTop, cancelWidth, height, FALSE);
    const int lineHeight = MeasureText(dc, font_.Get(), u"Xg").height;
    MoveWindow(ControlWindow(Control::PreviewLabel), margin, buttonTop + (height - lineHeight) / 2,
               okLeft - 2 * scale_.Px(kGap) - margin, lineHeight, FALSE);
    footBottom_ = buttonTop + height + margin;
}

void SetReminderForm::LayOutMessage(HDC dc, int width) {
    // High enough for each of the messages, so that a second one finds its room.
    int highest = 0;
    for (const std::u16string_view message : {kNoPhraseMessage, kPhraseFormatMessage, kPhraseAmountMessage,
                                              kPhrasePeriodMessage, kPhraseUnknownMessage, kKeepOrCancelHint}) {
        highest = std::max(highest, MeasureText(dc, font_.Get(), message, width).height);
    }
    messageHeight_ = highest + 2 * scale_.Px(kGap);
    MoveWindow(ControlWindow(Control::MessageLabel), scale_.Px(kMargin), footBottom_ + scale_.Px(kGap), width, highest,
               FALSE);
}

void SetReminderForm::FitWindow() {
    const int height = footBottom_ + (dialog_->MessageShown() ? messageHeight_ : 0);
    RECT frame{0, 0, clientWidth_, height};
    AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongPtrW(Handle(), GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(Handle(), GWL_EXSTYLE)));
    RECT window{};
    GetWindowRect(Handle(), &window);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(Handle(), MONITOR_DEFAULTTONEAREST), &monitor);
    const Size size{frame.right - frame.left, frame.bottom - frame.top};
    const LONG lowest = std::max(monitor.rcWork.top, monitor.rcWork.bottom - size.height);
    SetWindowPos(Handle(), nullptr, window.left, std::min(window.top, lowest), size.width, size.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

// How it looks: the face of a window above, that of a dialog behind the buttons, a warm band for the message.

void SetReminderForm::OnErase(HDC dc) const {
    const Rect client = ClientRect();
    const auto fill = [&](int top, int bottom, HBRUSH brush) {
        const RECT area{0, top, client.width, bottom};
        FillRect(dc, &area, brush);
    };
    fill(0, footTop_, GetSysColorBrush(COLOR_WINDOW));
    fill(footTop_, footBottom_, GetSysColorBrush(COLOR_3DFACE));
    if (!messageBrush_) return fill(footBottom_, client.height, GetSysColorBrush(COLOR_3DFACE));
    fill(footBottom_, client.height, messageBrush_.Get());
    GdiCanvas(dc, scale_).Fill(Rect{0, footBottom_, scale_.Px(kMessageBar), client.height - footBottom_}, kAccent);
}

HBRUSH SetReminderForm::OnColorControl(HDC dc, HWND control) const {
    const int id = GetDlgCtrlID(control);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    if (id == IdOf(Control::MessageLabel)) return messageBrush_.Get();
    const bool inFoot = id == IdOf(Control::PreviewLabel) || id == IDOK || id == IdOf(Control::CancelButton);
    if (!inFoot) return GetSysColorBrush(COLOR_WINDOW);
    const ColorWord face{GetSysColor(COLOR_3DFACE)};
    const ColorWord text{GetSysColor(COLOR_BTNTEXT)};
    const bool quiet = id == IdOf(Control::PreviewLabel) && !HighContrastIsOn();
    SetTextColor(dc, ToColorRef(quiet ? Mix(text, face, kQuietPercent) : text));
    return GetSysColorBrush(COLOR_3DFACE);
}

// What it does.

void SetReminderForm::Press(bool ok) {
    const bool hide = SendMessageW(ControlWindow(Control::HideNoteCheck), BM_GETCHECK, 0, 0) == BST_CHECKED;
    const NoteAway away = hide ? ChooseNoteAway(tools_.settings, tools_.os, tools_.registry) : NoteAway::Stay;
    const ReminderStep step = ok ? dialog_->PressOk(TextOfBox(), away, tools_.clock.Now()) : dialog_->PressCancel();
    CarryOut(step, owner_);
    if (step.unload) return Destroy();
    ShowState(step);
}

void SetReminderForm::ShowState(const ReminderStep& step) {
    if (step.playAsterisk) tools_.notice.Play(SystemSound::Asterisk);
    const bool asking = dialog_->CancelPanelShown();
    SetWindowTextW(ControlWindow(Control::OKButton), Wide(std::u16string(dialog_->OkCaption())));
    SetWindowTextW(ControlWindow(Control::ActiveReminderLabel), Wide(dialog_->ActiveReminder()));
    SetWindowTextW(ControlWindow(Control::MessageLabel), Wide(std::u16string(dialog_->Message())));
    for (const ReminderControl control : kCancelPanel) ShowWindow(ControlWindow(control), asking ? SW_SHOWNA : SW_HIDE);
    if (asking) {
        SetFocus(ControlWindow(Control::OKButton));  // not into a text box that hides
        for (const ReminderControl control : kMainPanel) ShowWindow(ControlWindow(control), SW_HIDE);
    }
    if (step.growForMessage) {
        const ColorWord ground = ColorWord{GetSysColor(COLOR_WINDOW)};
        const ColorWord tint = HighContrastIsOn() ? ground : Mix(kAccent, ground, kMessageTintPercent);
        messageBrush_.Reset(CreateSolidBrush(ToColorRef(tint)));
        ShowWindow(ControlWindow(Control::MessageLabel), SW_SHOWNA);
        FitWindow();
        InvalidateRect(Handle(), nullptr, TRUE);
    }
    if (step.selectAll) {
        SetFocus(ControlWindow(Control::ReminderBox));
        SelectBox();
    }
    UpdatePreview();
}

void SetReminderForm::UpdatePreview() {
    const std::u16string preview = dialog_->Preview(TextOfBox(), tools_.clock.Now());
    HWND label = ControlWindow(Control::PreviewLabel);
    if (WindowText(label) != preview) SetWindowTextW(label, Wide(preview));
}

void SetReminderForm::SelectBox() const {
    SendMessageW(ControlWindow(Control::ReminderBox), EM_SETSEL, 0, -1);
}

std::u16string SetReminderForm::TextOfBox() const {
    return WindowText(ControlWindow(Control::ReminderBox));
}

}  // namespace quillo

#include "reminders/set_reminder_form.h"

#include <algorithm>
#include <array>

#include "platform/control_column.h"
#include "platform/gdi_canvas.h"
#include "platform/gdi_scope.h"
#include "platform/monitors.h"
#include "platform/text_tools.h"
#include "platform/wide.h"
#include "platform/window_effects.h"
#include "ports/clock.h"
#include "ports/locale_text.h"
#include "ports/user_notice.h"
#include "reminders/reminder_phrase.h"
#include "reminders/reminder_text.h"
#include "util/palette.h"
#include "util/placement.h"

namespace quillo {
namespace {

using Control = ReminderControl;

// Pixels at 96 dpi.
constexpr int kLeastWidth = 360;
constexpr int kMessageBar = 3;

constexpr UINT kPreviewMilliseconds = 1000;

constexpr int kMessageTintPercent = 14;
constexpr int kQuietPercent = 66;  // of the text's color; the rest is the background

/// From the first to the last in reading order, which is the order of the Tab key.
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

/// The default button has the id that the Enter key sends. None has that of Esc, which closes the dialog.
int IdOf(Control control) {
    constexpr int kFirstId = 100;
    return control == Control::OKButton ? IDOK : kFirstId + static_cast<int>(control);
}

const ControlKind& KindOf(Control control) {
    switch (control) {
        case Control::ReminderBox:
            return kTextBox;
        case Control::HideNoteCheck:
            return kCheckBox;
        case Control::OKButton:
            return kDefaultButton;
        case Control::CancelButton:
            return kButton;
        case Control::DividerBar:
            return kRule;
        default:
            return kLabel;
    }
}

}  // namespace

SetReminderForm::SetReminderForm(ReminderOwner* owner, const ReminderDialogServices& services)
    : DialogWindow(services.loop), owner_(owner), services_(services), previewTimer_([this] { UpdatePreview(); }) {}

HWND SetReminderForm::ControlWindow(ReminderControl control) const {
    return Item(IdOf(control));
}

bool SetReminderForm::Initialize(HWND noteWindow, DaySerial existing) {
    existing_ = existing;
    opened_ = services_.dates.clock.Now();
    dialog_ = std::make_unique<ReminderDialog>(existing, owner_ != nullptr, services_.dates.locale);
    if (!CreateHidden(DialogPlan{L"QuilloSetReminder", kReminderDialogCaption, noteWindow})) return false;
    UpdatePreview();
    previewTimer_.Start(kPreviewMilliseconds);

    RECT note{};
    GetWindowRect(noteWindow, &note);
    const Rect window = WindowRect();
    const Rect place = PlaceOver(FromWin32(note), Size{window.width, window.height}, WorkAreaOf(noteWindow));
    SetWindowPos(Handle(), nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    ShowWindow(Handle(), SW_SHOW);
    SetTopmost(Handle(), true);
    CreateToolTips();
    BringForward();
    SelectBox();
    return true;
}

void SetReminderForm::BringForward() {
    SetForegroundWindow(Handle());
    if (!dialog_->CancelPanelShown()) SetFocus(ControlWindow(Control::ReminderBox));
}

void SetReminderForm::OnGone() {
    previewTimer_.Stop();
    if (owner_ != nullptr) owner_->SetReminderClosing();
}

void SetReminderForm::OnCommand(int id, int notification) {
    if (id == IDOK && notification == BN_CLICKED) return Press(true);
    if (id == IdOf(Control::CancelButton) && notification == BN_CLICKED) return Press(false);
    if (id != IdOf(Control::ReminderBox)) return;
    if (notification == EN_SETFOCUS) SelectBox();
    if (notification == EN_CHANGE) UpdatePreview();
}

// Content.

void SetReminderForm::CreateControls() {
    for (const ReminderControl control : kInOrder) {
        const bool hidden = control == Control::MessageLabel ||
                            std::find(kCancelPanel.begin(), kCancelPanel.end(), control) != kCancelPanel.end();
        CreateControl(Handle(), IdOf(control), KindOf(control), CaptionOf(control), !hidden);
    }
}

std::u16string SetReminderForm::CaptionOf(ReminderControl control) const {
    switch (control) {
        case Control::ReminderBox:
            return dialog_->StartText();
        case Control::TwentyMinutesLabel:
            return TwentyMinutesExample(opened_, services_.dates.locale);
        case Control::TomorrowLabel:
            return TomorrowExample(opened_, services_.dates.locale);
        default:
            return std::u16string(TextOf(control).caption);
    }
}

void SetReminderForm::CreateToolTips() {
    for (const ReminderControlText& text : kReminderControls) {
        if (!text.toolTip.empty()) AddToolTip(ControlWindow(text.control), text.toolTip);
    }
}

void SetReminderForm::OnFontsChanged() {
    SetTextMargins(ControlWindow(Control::ReminderBox), Px(kReminderBoxMargin));
}

HFONT SetReminderForm::FontOfControl(ReminderControl control) const {
    return FontOf(IdOf(control));
}

HFONT SetReminderForm::FontOf(int id) const {
    if (id == IdOf(Control::ActiveReminderLabel)) return Fonts().strong.Get();
    const bool heading = id == IdOf(Control::HeadingLabel) || id == IdOf(Control::CancelHeadingLabel);
    return heading ? Fonts().heading.Get() : Fonts().body.Get();
}

// Layout. Every text is measured: dates are long in some locales, and nothing is ever cut.

int SetReminderForm::PreviewWidth(HDC dc) const {
    // Any of these may be the longest, with its weekday and a late hour of two digits.
    constexpr int kMonths = 12;
    constexpr int kFirstDay = 22;
    constexpr int kLastDay = 28;
    int widest = 0;
    for (int month = 1; month <= kMonths; ++month) {
        for (int day = kFirstDay; day <= kLastDay; ++day) {
            const DaySerial when = ToDaySerial({2028, month, day, 22, 58, 58});
            widest =
                std::max(widest, MeasureText(dc, Fonts().body.Get(), PreviewText(when, services_.dates.locale)).width);
        }
    }
    return widest;
}

int SetReminderForm::ContentWidth(HDC dc) const {
    int width = Px(kLeastWidth);
    for (const ReminderControl control : {Control::FirstExampleLabel, Control::TwentyMinutesLabel,
                                          Control::TomorrowLabel, Control::HeadingLabel, Control::CancelHeadingLabel}) {
        width = std::max(width, MeasureText(dc, FontOfControl(control), CaptionOf(control)).width + Px(kDialogGap));
    }
    return std::max(width, CheckWidth(dc, Fonts().body.Get(), CaptionOf(Control::HideNoteCheck), DialogScale()));
}

int SetReminderForm::WidthOfButton(HDC dc, int id) const {
    const int now = DialogWindow::WidthOfButton(dc, id);
    return id != IDOK ? now : std::max(now, ButtonWidth(dc, FontOf(id), kKeepReminderCaption, DialogScale()));
}

void SetReminderForm::LayOut(HDC dc) {
    const std::initializer_list<int> buttons = {IDOK, IdOf(Control::CancelButton)};
    const int foot = PreviewWidth(dc) + 2 * Px(kDialogGap) + FootWidth(dc, buttons);
    const int width = std::max(ContentWidth(dc), foot);
    const int bottom = LayOutMainPanel(dc, width);
    LayOutCancelPanel(dc, width);
    LayOutPreview(dc, LayOutFoot(dc, width, bottom, IdOf(Control::DividerBar), buttons));
    LayOutMessage(dc, width);
    FitWindow();
}

int SetReminderForm::LayOutMainPanel(HDC dc, int width) const {
    const int margin = Px(kDialogMargin);
    ControlColumn column(dc, margin, margin, width);
    // Pixels at 96 dpi.
    const auto text = [&](ReminderControl control, int indent, int gapAfter) {
        column.PutText(ControlWindow(control), FontOfControl(control), CaptionOf(control), Px(indent), Px(gapAfter));
    };
    text(Control::HeadingLabel, 0, kDialogGap);
    text(Control::InstructionLabel, 0, kDialogGap);
    const int line = MeasureText(dc, Fonts().body.Get(), u"Xg").height;
    column.Put(ControlWindow(Control::ReminderBox), 0, line + Px(kDialogBoxPadding), margin);
    text(Control::ExamplesLabel, 0, kDialogSmallGap);
    text(Control::FirstExampleLabel, kDialogGap, kDialogSmallGap);
    text(Control::TwentyMinutesLabel, kDialogGap, kDialogSmallGap);
    text(Control::TomorrowLabel, kDialogGap, kDialogMargin);
    column.Put(ControlWindow(Control::HideNoteCheck), 0, Px(kDialogCheckHeight), margin);
    return column.Bottom();
}

void SetReminderForm::LayOutCancelPanel(HDC dc, int width) const {
    const int margin = Px(kDialogMargin);
    ControlColumn column(dc, margin, margin, width);
    const auto text = [&](ReminderControl control, std::u16string_view words, int gapAfter) {
        column.PutText(ControlWindow(control), FontOfControl(control), words, 0, gapAfter);
    };
    text(Control::CancelHeadingLabel, CaptionOf(Control::CancelHeadingLabel), Px(kDialogGap));
    text(Control::ActiveReminderLabel, services_.dates.locale.GeneralDate(existing_), margin);
    text(Control::CancelExplanationLabel, CaptionOf(Control::CancelExplanationLabel), 0);
}

void SetReminderForm::LayOutPreview(HDC dc, int buttonsLeft) const {
    const int margin = Px(kDialogMargin);
    const int height = MeasureText(dc, Fonts().body.Get(), u"Xg").height;
    const int top = FootTop() + margin + (Px(kDialogButtonHeight) - height) / 2;
    MoveWindow(ControlWindow(Control::PreviewLabel), margin, top, buttonsLeft - 2 * Px(kDialogGap) - margin, height,
               FALSE);
}

void SetReminderForm::LayOutMessage(HDC dc, int width) {
    // High enough for each of the messages, so that a later one fits.
    int highest = 0;
    for (const std::u16string_view message : {kNoPhraseMessage, kPhraseFormatMessage, kPhraseAmountMessage,
                                              kPhrasePeriodMessage, kPhraseUnknownMessage, kKeepOrCancelHint}) {
        highest = std::max(highest, MeasureText(dc, Fonts().body.Get(), message, width).height);
    }
    messageHeight_ = highest + 2 * Px(kDialogGap);
    MoveWindow(ControlWindow(Control::MessageLabel), Px(kDialogMargin), FootBottom() + Px(kDialogGap), width, highest,
               FALSE);
}

void SetReminderForm::FitWindow() const {
    FitClient(FootBottom() + (dialog_->MessageShown() ? messageHeight_ : 0));
}

// Appearance: a warm band for the message below the foot.

void SetReminderForm::PaintGround(HDC dc) const {
    DialogWindow::PaintGround(dc);
    if (!messageBrush_) return;
    const Rect client = ClientRect();
    const Rect band{0, FootBottom(), client.width, client.height - FootBottom()};
    const RECT area = ToWin32(band);
    FillRect(dc, &area, messageBrush_.Get());
    GdiCanvas(dc, DialogScale()).Fill(Rect{0, band.top, Px(kMessageBar), band.height}, palette::kAccent);
}

HBRUSH SetReminderForm::ColorControl(HDC dc, HWND control) const {
    HBRUSH ground = DialogWindow::ColorControl(dc, control);
    if (control == ControlWindow(Control::MessageLabel)) {
        SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
        return messageBrush_.Get();
    }
    if (control == ControlWindow(Control::PreviewLabel) && !HighContrastIsOn()) {
        const ColorWord face{GetSysColor(COLOR_3DFACE)};
        SetTextColor(dc, ToColorRef(Mix(ColorWord{GetSysColor(COLOR_BTNTEXT)}, face, kQuietPercent)));
    }
    return ground;
}

// Behavior.

void SetReminderForm::Press(bool ok) {
    const bool hide = SendMessageW(ControlWindow(Control::HideNoteCheck), BM_GETCHECK, 0, 0) == BST_CHECKED;
    const NoteAway away = hide ? ChooseNoteAway(services_.settings, services_.hints) : NoteAway::Stay;
    const ReminderStep step =
        ok ? dialog_->PressOk(TextOfBox(), away, services_.dates.clock.Now()) : dialog_->PressCancel();
    CarryOut(step, owner_);
    if (step.unload) return Destroy();
    ShowState(step);
}

void SetReminderForm::ShowState(const ReminderStep& step) {
    if (step.playAsterisk) services_.notice.Play(SystemSound::Asterisk);
    const bool asking = dialog_->CancelPanelShown();
    SetWindowTextW(ControlWindow(Control::OKButton), Wide(std::u16string(dialog_->OkCaption())));
    SetWindowTextW(ControlWindow(Control::ActiveReminderLabel), Wide(dialog_->ActiveReminder()));
    SetWindowTextW(ControlWindow(Control::MessageLabel), Wide(std::u16string(dialog_->Message())));
    for (const ReminderControl control : kCancelPanel) ShowWindow(ControlWindow(control), asking ? SW_SHOWNA : SW_HIDE);
    if (asking) {
        SetFocus(ControlWindow(Control::OKButton));  // not into a text box that is about to be hidden
        for (const ReminderControl control : kMainPanel) ShowWindow(ControlWindow(control), SW_HIDE);
    }
    if (step.growForMessage) {
        const ColorWord ground = ColorWord{GetSysColor(COLOR_WINDOW)};
        const ColorWord tint = HighContrastIsOn() ? ground : Mix(palette::kAccent, ground, kMessageTintPercent);
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
    const std::u16string preview = dialog_->Preview(TextOfBox(), services_.dates.clock.Now());
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

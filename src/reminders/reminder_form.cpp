#include "reminders/reminder_form.h"

#include <algorithm>

#include "app/base/settings.h"
#include "app/base/sound_choice.h"
#include "platform/dpi.h"
#include "platform/gdi_canvas.h"
#include "platform/gdi_scope.h"
#include "platform/message_loop.h"
#include "platform/monitors.h"
#include "platform/text_tools.h"
#include "platform/wide.h"
#include "platform/window_effects.h"
#include "reminders/alert_places.h"
#include "reminders/reminder_alert.h"
#include "reminders/reminder_owner.h"

namespace quillo {
namespace {

constexpr std::u16string_view kTitle = u"Reminder";
constexpr std::u16string_view kHint = u"Click or press Esc to return to the note";

// Pixels at 96 dpi.
constexpr Size kAlertSize{320, 180};
constexpr int kStrip = 35;
constexpr int kCloseArea = 40;  // at the right end of the strip
constexpr int kEdge = 2;
constexpr int kGlyph = 20;
constexpr int kMargin = 16;
constexpr int kTextTop = 10;  // below the strip
constexpr int kHintRoom = 28;
constexpr int kHintBottom = 9;

constexpr int kTextPoints = 16;
constexpr int kTitlePoints = 9;
constexpr int kHintPoints = 8;

constexpr std::size_t kMostShown = 2000;  // more never fits

bool IsDown(int virtualKey) {
    return GetKeyState(virtualKey) < 0;
}

}  // namespace

ReminderForm::ReminderForm(ReminderOwner* owner, const AlertServices& services)
    : owner_(owner), services_(services), soundTimer_([this] { PlaySound(); }) {}

bool ReminderForm::Initialize(std::u16string_view text, const AlertColors& colors) {
    text_ = text;
    paint_ = AlertPaintOf({Resolve(colors.paper), Resolve(colors.edge), Resolve(colors.text)});

    const Rect workArea = WorkAreas().empty() ? Rect{0, 0, 0, 0} : WorkAreas().front();
    scale_ = PointScale(POINT{workArea.left + workArea.width / 2, workArea.top + workArea.height / 2});
    place_ = services_.places.Take();
    WindowPlan plan;
    plan.className = L"QuilloReminder";
    plan.title = Wide(text_);  // screen readers speak it
    plan.style = WS_POPUP | WS_SYSMENU;
    plan.exStyle = WS_EX_TOPMOST;
    plan.place = PlaceAlert(Size{scale_.Px(kAlertSize.width), scale_.Px(kAlertSize.height)}, workArea, *place_, scale_);
    if (!Window::Create(plan)) {
        services_.places.Free(*place_);
        return false;
    }
    ShowWindow(Handle(), SW_SHOW);
    SetTopmost(Handle(), true);
    SetForegroundWindow(Handle());
    SetFocus(Handle());
    NotifyWinEvent(EVENT_SYSTEM_ALERT, Handle(), OBJID_CLIENT, CHILDID_SELF);  // screen readers speak it
    PlaySound();
    soundTimer_.Start(kAlertSoundMilliseconds);
    services_.loop.RunPending();
    return true;
}

LRESULT ReminderForm::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            return OnCreate();
        case WM_DESTROY:
            return OnDestroy(), 0;
        case WM_CLOSE:
            return Dismiss(), 0;
        case WM_ACTIVATE:
            if (LOWORD(wParam) != WA_INACTIVE) SetFocus(Handle());
            return 0;
        case WM_LBUTTONDOWN:
            return OnPressed(PointFromLParam(lParam)), 0;
        case WM_LBUTTONUP:
            return OnReleased(PointFromLParam(lParam)), 0;
        case WM_CAPTURECHANGED:
            pressed_ = false;
            return 0;
        case WM_KEYDOWN:
            return OnKeyDown(static_cast<int>(wParam)), 0;
        case WM_DPICHANGED:
            return OnDpiChanged(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam)), 0;
        case WM_GETOBJECT:
            return accessible_.Answer(Handle(), wParam, lParam);
        default:
            return Default(message, wParam, lParam);
    }
}

LRESULT ReminderForm::OnCreate() {
    UpdateDropShadow(Handle());
    icons_.GiveTo(Handle(), scale_);
    MakeFonts();
    return 0;
}

void ReminderForm::OnDestroy() {
    soundTimer_.Stop();
    if (place_) services_.places.Free(*place_);
    if (services_.places.AllFree()) StopReminderSound(services_.sound);  // a long one would continue
    if (owner_ != nullptr) owner_->ReminderClosing();
}

void ReminderForm::OnPressed(Point at) {
    if (!IsAlertDragStrip(at, ClientRect().width, scale_)) {
        SetCapture(Handle());
        pressed_ = true;
        return;
    }
    StartWindowDrag(Handle(), Handle(), at);
}

void ReminderForm::OnReleased(Point at) {
    const bool clicked = pressed_ && ClientRect().Contains(at);
    ReleaseCapture();
    if (clicked) Dismiss();
}

void ReminderForm::OnKeyDown(int virtualKey) {
    if (DismissesAlert(virtualKey, AlertKeys{IsDown(VK_CONTROL), IsDown(VK_RMENU)})) Dismiss();
}

void ReminderForm::OnDpiChanged(int dpi, const RECT& suggested) {
    scale_ = Scale(dpi);
    icons_.GiveTo(Handle(), scale_);
    MakeFonts();
    const Rect place = FromWin32(suggested);
    SetWindowPos(Handle(), nullptr, place.left, place.top, place.width, place.height, SWP_NOZORDER | SWP_NOACTIVATE);
    InvalidateRect(Handle(), nullptr, FALSE);
}

AccessiblePart ReminderForm::Describe(int /*part*/) const {
    AccessiblePart alert;
    alert.role = ROLE_SYSTEM_ALERT;
    alert.action = u"Return to the note";
    return alert;
}

void ReminderForm::Activate(int /*part*/) {
    PostMessageW(Handle(), WM_CLOSE, 0, 0);  // posted: the screen reader is still calling this alert
}

void ReminderForm::Dismiss() {
    if (owner_ != nullptr) {
        owner_->Popup();
        owner_->Activate();
    }
    Destroy();
}

void ReminderForm::PlaySound() {
    PlayReminderSound(services_.settings.reminder, services_.sound);
}

void ReminderForm::MakeFonts() {
    const FontSetting& note = services_.settings.noteFont;
    textFont_ = MakeFont(note.name, kTextPoints, FW_NORMAL, scale_, note.charset);
    titleFont_ = MakeFont(u"Tahoma", kTitlePoints, FW_BOLD, scale_);
    hintFont_ = MakeFont(u"Tahoma", kHintPoints, FW_NORMAL, scale_);
}

void ReminderForm::OnPaint() {
    const PaintScope paint(Handle());
    const Rect client = ClientRect();
    const BufferedPaint buffer(paint.Dc(), paint.Area());
    HDC dc = buffer.Dc();
    GdiCanvas canvas(dc, scale_);
    canvas.Fill(client, paint_.paper);
    SetBkMode(dc, TRANSPARENT);
    PaintStrip(dc, client.width);

    const int margin = scale_.Px(kMargin);
    const int textTop = scale_.Px(kStrip + kTextTop);
    PaintText(dc, Rect{margin, textTop, client.width - 2 * margin, client.height - textTop - scale_.Px(kHintRoom)});

    const SelectScope selected(dc, hintFont_.Get());
    SetTextColor(dc, ToColorRef(paint_.quiet));
    RECT hint{margin, 0, client.width - margin, client.height - scale_.Px(kHintBottom)};
    DrawTextW(dc, WideData(kHint), static_cast<int>(kHint.size()), &hint, DT_SINGLELINE | DT_BOTTOM | DT_NOPREFIX);
    canvas.Box(client, scale_.Px(kEdge), paint_.edge);
}

void ReminderForm::PaintStrip(HDC dc, int width) const {
    const int height = scale_.Px(kStrip);
    const int glyph = scale_.Px(kGlyph);
    GdiCanvas canvas(dc, scale_);
    canvas.Fill(Rect{0, 0, width, height}, paint_.strip);
    canvas.Fill(Rect{0, height - 1, width, 1}, paint_.edge);
    const int top = (height + scale_.Px(kEdge) - glyph) / 2;
    const int left = scale_.Px(kMargin) - scale_.Px(2);
    PaintGlyph(dc, Glyph::Bell, Point{left, top});
    PaintGlyph(dc, Glyph::Close, Point{width - scale_.Px(kCloseArea) + (scale_.Px(kCloseArea) - glyph) / 2, top});
    const SelectScope selected(dc, titleFont_.Get());
    SetTextColor(dc, ToColorRef(paint_.glyph));
    RECT title{left + glyph + scale_.Px(kGlyph / 3), scale_.Px(kEdge), width - scale_.Px(kCloseArea), height};
    DrawTextW(dc, WideData(kTitle), static_cast<int>(kTitle.size()), &title, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}

void ReminderForm::PaintGlyph(HDC dc, Glyph glyph, Point at) const {
    const int size = scale_.Px(kGlyph);
    const IconHandle icon = MakeGlyphIcon(glyph, size, paint_.glyph);
    DrawIconEx(dc, at.x, at.y, icon.Get(), size, size, 0, nullptr, DI_NORMAL);
}

void ReminderForm::PaintText(HDC dc, const Rect& area) const {
    const SelectScope selected(dc, textFont_.Get());
    SetTextColor(dc, ToColorRef(paint_.ink));
    const std::u16string_view shown = std::u16string_view(text_).substr(0, kMostShown);
    const int length = static_cast<int>(shown.size());
    constexpr UINT kWrapped = DT_WORDBREAK | DT_NOPREFIX | DT_EDITCONTROL | DT_EXPANDTABS;
    RECT needed{0, 0, area.width, 0};
    DrawTextW(dc, WideData(shown), length, &needed, kWrapped | DT_CALCRECT);
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc, &metrics);
    // A short text is centered; a long one fills whole lines and ends in an ellipsis.
    const int lines = std::max<int>(area.height / metrics.tmHeight, 1);
    const int height = std::min<int>(needed.bottom, lines * metrics.tmHeight);
    const int top = area.top + (area.height - height) / 2;
    RECT place{area.left, top, area.Right(), top + height};
    DrawTextW(dc, WideData(shown), length, &place, kWrapped | DT_END_ELLIPSIS);
}

}  // namespace quillo

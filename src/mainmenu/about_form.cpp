#include "mainmenu/about_form.h"

#include <algorithm>

#include "app/base/app_identity.h"
#include "app/startup.h"
#include "platform/control_column.h"
#include "platform/gdi_canvas.h"
#include "platform/gdi_scope.h"
#include "platform/monitors.h"
#include "platform/text_tools.h"
#include "platform/wide.h"
#include "platform/window_effects.h"
#include "ports/shell.h"
#include "resources/resource_ids.h"
#include "util/ignore.h"
#include "util/palette.h"
#include "util/placement.h"

namespace quillo {
namespace {

using Control = AboutControl;

// Pixels at 96 dpi.
constexpr int kPicture = 96;
constexpr int kYellowBoxHeight = 112;
constexpr int kYellowBoxLine = 1;

/// Enter presses the close button unless another button has the focus.
constexpr int IdOf(Control control) {
    constexpr int kFirstId = 100;
    return control == Control::CloseButton ? IDOK : kFirstId + static_cast<int>(control);
}

constexpr ControlKind kPictureKind{L"STATIC", SS_OWNERDRAW};
constexpr ControlKind kFirstButton{L"BUTTON", WS_GROUP | WS_TABSTOP | BS_PUSHBUTTON};
constexpr ControlKind kLastDefaultButton{L"BUTTON", WS_TABSTOP | BS_DEFPUSHBUTTON};

const ControlKind& KindOf(Control control) {
    switch (control) {
        case Control::Image:
            return kPictureKind;
        case Control::DividerLine:
            return kRule;
        case Control::UpdateButton:
            return kFirstButton;
        case Control::HelpButton:
            return kButton;
        case Control::CloseButton:
            return kLastDefaultButton;
        default:
            return kLabel;
    }
}

}  // namespace

HWND AboutForm::ControlWindow(AboutControl control) const {
    return Item(IdOf(control));
}

bool AboutForm::Open(HWND owner) {
    if (Handle() == nullptr) {
        if (!CreateHidden(DialogPlan{L"QuilloAbout", kAboutCaption, owner})) return false;
        const Rect area = WorkAreaOf(owner);
        const Rect window = WindowRect();
        const Rect place = PlaceOver(area, Size{window.width, window.height}, area);
        SetWindowPos(Handle(), nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        ShowWindow(Handle(), SW_SHOW);
        SetFocus(ControlWindow(Control::CloseButton));
    }
    SetForegroundWindow(Handle());
    return true;
}

LRESULT AboutForm::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_DRAWITEM:
            return OnDrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)), TRUE;
        default:
            return DialogWindow::HandleMessage(message, wParam, lParam);
    }
}

void AboutForm::CreateControls() {
    for (int i = 0; i < static_cast<int>(Control::Count); ++i) {
        const auto control = static_cast<Control>(i);
        if (control == Control::WebLink) {
            webLink_.Create(Handle(), IdOf(control), CaptionOf(control), MakerAddress());
        } else {
            CreateControl(Handle(), IdOf(control), KindOf(control), CaptionOf(control));
        }
    }
}

std::u16string AboutForm::CaptionOf(AboutControl control) const {
    std::u16string caption(TextOf(control));
    if (control == Control::TitleLabel) return caption.append(kMakerNotice);
    if (control == Control::VersionLabel) return VersionCaption(version_);
    if (control == Control::WebLink) return std::u16string(kMakerHost);
    return caption;
}

HFONT AboutForm::FontOf(int id) const {
    return id == IdOf(Control::TitleLabel) ? Fonts().heading.Get() : Fonts().body.Get();
}

void AboutForm::OnFontsChanged() {
    const int edge = Px(kPicture);
    picture_.Reset(static_cast<HICON>(
        LoadImageW(ThisModule(), MAKEINTRESOURCEW(IDI_ABOUT_PICTURE), IMAGE_ICON, edge, edge, LR_DEFAULTCOLOR)));
    paper_.Reset(HighContrastIsOn() ? nullptr : CreateSolidBrush(ToColorRef(palette::kPaper)));
}

void AboutForm::LayOut(HDC dc) {
    const int margin = Px(kDialogMargin);
    const int gap = Px(kDialogGap);
    const auto size = [&](Control control, std::u16string_view text) {
        return MeasureText(dc, FontOf(IdOf(control)), text);
    };
    const Size title = size(Control::TitleLabel, CaptionOf(Control::TitleLabel));
    const Size version = size(Control::VersionLabel, CaptionOf(Control::VersionLabel));
    const Size site = size(Control::WebsiteLabel, CaptionOf(Control::WebsiteLabel));
    const Size link = size(Control::WebLink, kMakerHost);
    const int textLeft = margin + Px(kPicture) + Px(16);
    const int width = std::max({textLeft - margin + title.width,
                                size(Control::FreewareLabel, CaptionOf(Control::FreewareLabel)).width,
                                FootWidth(dc, {IdOf(Control::UpdateButton), IdOf(Control::HelpButton), IDOK})});

    // The yellow box: the picture, and beside its middle the title above the version.
    yellowBoxBottom_ = Px(kYellowBoxHeight);
    const int edge = Px(kPicture);
    MoveWindow(ControlWindow(Control::Image), margin, (yellowBoxBottom_ - edge) / 2, edge, edge, FALSE);
    const int textHeight = title.height + Px(kDialogSmallGap) + version.height;
    const int textWidth = margin + width - textLeft;
    ControlColumn words(dc, textLeft, (yellowBoxBottom_ - textHeight) / 2, textWidth);
    words.Put(ControlWindow(Control::TitleLabel), 0, title.height, Px(kDialogSmallGap));
    words.Put(ControlWindow(Control::VersionLabel), 0, version.height, 0);

    ControlColumn column(dc, margin, yellowBoxBottom_ + Px(kYellowBoxLine) + margin, width);
    column.PutText(ControlWindow(Control::FreewareLabel), Fonts().body.Get(), CaptionOf(Control::FreewareLabel), 0,
                   gap);
    const int siteTop = column.Bottom();
    const int linkLeft = margin + site.width + gap;
    MoveWindow(ControlWindow(Control::WebsiteLabel), margin, siteTop, site.width, site.height, FALSE);
    // Slightly more than the words, for the focus rectangle.
    MoveWindow(ControlWindow(Control::WebLink), linkLeft, siteTop, link.width + Px(2), link.height, FALSE);
    LayOutFoot(dc, width, siteTop + site.height + Px(kDialogMargin) + gap, IdOf(Control::DividerLine),
               {IdOf(Control::UpdateButton), IdOf(Control::HelpButton), IDOK});
    FitClient(FootBottom());
}

// Appearance.

void AboutForm::PaintGround(HDC dc) const {
    DialogWindow::PaintGround(dc);
    if (!paper_) return;
    const RECT box{0, 0, ClientRect().width, yellowBoxBottom_};
    FillRect(dc, &box, paper_.Get());
    GdiCanvas(dc, DialogScale()).Fill(Rect{0, yellowBoxBottom_, box.right, Px(kYellowBoxLine)}, palette::kEdge);
}

bool AboutForm::IsInYellowBox(HWND control) const {
    return control == ControlWindow(Control::Image) || control == ControlWindow(Control::TitleLabel) ||
           control == ControlWindow(Control::VersionLabel);
}

HBRUSH AboutForm::ColorControl(HDC dc, HWND control) const {
    HBRUSH ground = DialogWindow::ColorControl(dc, control);
    if (!paper_ || !IsInYellowBox(control)) return ground;
    SetTextColor(dc, ToColorRef(palette::kInk));
    return paper_.Get();
}

void AboutForm::OnDrawItem(const DRAWITEMSTRUCT& item) const {
    FillRect(item.hDC, &item.rcItem, paper_ ? paper_.Get() : GetSysColorBrush(COLOR_WINDOW));
    DrawIconEx(item.hDC, item.rcItem.left, item.rcItem.top, picture_.Get(), item.rcItem.right - item.rcItem.left,
               item.rcItem.bottom - item.rcItem.top, 0, nullptr, DI_NORMAL);
}

// Behavior.

void AboutForm::OnCommand(int id, int notification) {
    if (notification != BN_CLICKED) return;
    if (id == IdOf(Control::UpdateButton)) {
        Ignore(shell_.Open(UpdateAddress(version_)), "where no browser is set up, nothing happens");
    } else if (id == IdOf(Control::HelpButton)) {
        OpenHelp(shell_);
        Destroy();
    } else if (id == IdOf(Control::CloseButton)) {
        Destroy();
    }
}

void AboutForm::FollowLink() const {
    Ignore(shell_.Open(u"http://" + WindowText(webLink_.Handle())), "where no browser is set up, nothing happens");
}

}  // namespace quillo

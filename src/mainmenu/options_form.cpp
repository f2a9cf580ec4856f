#include "mainmenu/options_form.h"

#include <algorithm>

#include "platform/artwork.h"
#include "platform/dialog_parts.h"
#include "platform/file_dialogs.h"
#include "platform/monitors.h"
#include "platform/wide.h"
#include "platform/window_effects.h"
#include "resources/resource_ids.h"
#include "util/placement.h"

namespace quillo {
namespace {

constexpr int kRuleId = 91;

// Pixels at 96 dpi.
constexpr int kPageWidth = 616;
constexpr int kPageMargin = 16;
constexpr int kTabStripHeight = 54;
constexpr int kTabIcon = 24;
constexpr std::int16_t kTabSpacing = 12;

struct TabIconStrip {
    int edge;
    int resource;
};
constexpr std::array<TabIconStrip, 8> kTabIconStrips{{{16, IDR_TAB_ICONS_16},
                                                      {20, IDR_TAB_ICONS_20},
                                                      {24, IDR_TAB_ICONS_24},
                                                      {30, IDR_TAB_ICONS_30},
                                                      {32, IDR_TAB_ICONS_32},
                                                      {36, IDR_TAB_ICONS_36},
                                                      {40, IDR_TAB_ICONS_40},
                                                      {48, IDR_TAB_ICONS_48}}};

/// The strip of that size, or the next larger one: shrinking looks better than enlarging.
int TabIconsFor(int edge) {
    const auto fits = std::find_if(kTabIconStrips.begin(), kTabIconStrips.end(),
                                   [edge](const TabIconStrip& strip) { return strip.edge >= edge; });
    return fits != kTabIconStrips.end() ? fits->resource : kTabIconStrips.back().resource;
}

}  // namespace

OptionsForm::OptionsForm(const OptionsServices& services, UserNotice& notice, MessageLoop& loop, BusyFlag& dialogs)
    : DialogWindow(loop),
      dialogs_(dialogs),
      controller_(services),
      appearance_(controller_, dialogs),
      shortcuts_(controller_, dialogs),
      behavior_(controller_, dialogs, notice),
      help_(controller_, dialogs),
      panels_{&appearance_, &shortcuts_, &behavior_, &help_} {
    tabStrip_.onChange = [this](int tab) { ShowPage(static_cast<OptionsPage>(tab - 1)); };
}

bool OptionsForm::Open() {
    if (Handle() == nullptr) {
        TakeInput();
        controller_.StartLoading();
        if (!CreateHidden({L"QuilloOptions", kOptionsCaption, nullptr})) {
            GiveInputBack();
            return false;
        }
        for (ContentPanel* panel : panels_) panel->Load();
        controller_.FinishLoading();
        ShowPage(OptionsPage::Appearance);
        MoveToMiddle();
        ShowWindow(Handle(), SW_SHOW);
        SetTopmost(Handle(), true);
        SetFocus(tabStrip_.Handle());
    }
    // A dialog of the system that it has open comes forward with it.
    SetForegroundWindow(GetLastActivePopup(Handle()));
    return true;
}

void OptionsForm::Unload() {
    if (Handle() == nullptr) return;
    CancelDialogsOf(Handle());
    GiveInputBack();
    Destroy();
}

void OptionsForm::TakeInput() {
    busy_.emplace(dialogs_);
    otherWindows_.emplace();
}

void OptionsForm::GiveInputBack() {
    otherWindows_.reset();
    busy_.reset();
}

void OptionsForm::MoveToMiddle() const {
    const Rect window = WindowRect();
    const Rect area = WorkAreaOf(nullptr);
    const Rect place = PlaceOver(area, Size{window.width, window.height}, area);
    SetWindowPos(Handle(), nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT OptionsForm::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = DialogWindow::HandleMessage(message, wParam, lParam);
    // The system returns the focus to the control that had it; a drag may have hidden its page meanwhile.
    if (message == WM_ACTIVATE || message == WM_SETFOCUS) KeepFocusShown();
    return result;
}

void OptionsForm::KeepFocusShown() const {
    HWND focused = GetFocus();
    if (focused != nullptr && IsChild(Handle(), focused) != 0 && IsWindowVisible(focused) == 0) {
        SetFocus(tabStrip_.Handle());
    }
}

void OptionsForm::CreateControls() {
    TabProperties tabs;
    tabs.tabs = kOptionsTabs;
    tabs.backColor = kSystemButtonFace;
    tabs.tabColor = kSystemWindow;
    tabs.tabForeColor = kSystemWindowText;
    tabs.tabSpacing = kTabSpacing;
    tabStrip_.Create(Handle(), kTabStripId, Wide(std::u16string(kOptionsCaption)), tabs);
    for (ContentPanel* panel : panels_) panel->Create(Handle());
    CreateControl(Handle(), kRuleId, kRule, u"");
    CreateControl(Handle(), IDOK, kDefaultButton, kCloseButtonCaption);
    CreateToolTips();
}

void OptionsForm::CreateToolTips() {
    for (const OptionRow& row : OptionsTable()) {
        if (!row.toolTip.empty()) AddToolTip(ControlWindow(row.control), row.toolTip);
    }
}

void OptionsForm::OnFontsChanged() {
    tabStrip_.SetScale(DialogScale());
    SetTabIcons();
    for (ContentPanel* panel : panels_) panel->SetFonts(Fonts(), DialogScale());
}

void OptionsForm::SetTabIcons() {
    const int edge = Px(kTabIcon);
    tabStrip_.SetPicture(LoadPlanes(TabIconsFor(edge), kPicturePlanes), edge);
}

void OptionsForm::LayOut(HDC dc) {
    const int margin = Px(kPageMargin);
    const int inner = Px(kPageWidth);
    const int outer = inner + 2 * (margin - Px(kDialogMargin));  // the foot's own margins are smaller
    const int strip = Px(kTabStripHeight);
    int height = 0;
    for (ContentPanel* panel : panels_) height = std::max(height, panel->LayOut(dc, inner));
    for (ContentPanel* panel : panels_) {
        MoveWindow(panel->Handle(), margin, strip + margin, inner, height, TRUE);
    }
    LayOutFoot(dc, outer, strip + margin + height + margin, kRuleId, {IDOK});
    MoveWindow(tabStrip_.Handle(), 0, 0, inner + 2 * margin, strip, TRUE);
    FitClient(FootBottom());
}

void OptionsForm::ShowPage(OptionsPage page) {
    current_ = page;
    const int tab = static_cast<int>(page) + 1;
    if (tabStrip_.CurrentTab() != tab) tabStrip_.SetCurrentTab(tab);
    if (page == OptionsPage::Help) help_.Load();
    ShowWindow(Panel(page).Handle(), SW_SHOWNA);
    for (ContentPanel* panel : panels_) {
        if (panel != &Panel(page)) ShowWindow(panel->Handle(), SW_HIDE);
    }
    KeepFocusShown();
}

bool OptionsForm::OnKeyDown(WPARAM key) {
    if (key != VK_TAB || GetKeyState(VK_CONTROL) >= 0) return false;
    const std::size_t step = GetKeyState(VK_SHIFT) < 0 ? kOptionsPageCount - 1 : 1;
    SetFocus(tabStrip_.Handle());  // not in a control on a page that is about to be hidden
    ShowPage(static_cast<OptionsPage>((static_cast<std::size_t>(current_) + step) % kOptionsPageCount));
    return true;
}

HWND OptionsForm::ControlWindow(OptionControl control) const {
    return Panel(RowOf(control).page).Item(control);
}

void OptionsForm::OnCommand(int id, int notification) {
    if (id == IDOK && notification == BN_CLICKED) OnClose();
}

void OptionsForm::OnClose() {
    OptionsTexts texts;
    texts.shortcuts = shortcuts_.Shortcuts();
    texts.reminder = behavior_.ReminderSound();
    texts.noteFolder = behavior_.NoteFolder();
    controller_.Close(texts);
    Unload();
}

void OptionsForm::OnGone() {
    GiveInputBack();
    controller_.StopSound();
}

}  // namespace quillo

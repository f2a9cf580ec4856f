#include "mainmenu/options_help_page.h"

#include <algorithm>
#include <tuple>

#include "mainmenu/options_controller.h"
#include "mainmenu/page_column.h"
#include "platform/dialog_parts.h"
#include "platform/text_tools.h"
#include "platform/wide.h"

namespace quillo {
namespace {

using C = OptionControl;

constexpr int kNoId = -1;  // a label that no code refers to

// Pixels at 96 dpi.
constexpr int kLineGap = 3;
constexpr int kKeysGap = 16;  // between the keys and what they do

}  // namespace

bool OptionsHelpPage::CreateSpecial(const OptionRow& row) {
    if (row.kind != OptionKind::KeyList) return false;
    const auto& texts = OptionsHelpKeys();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        lines_[i].keys = CreateControl(Handle(), kNoId, kLabel, Controller().HelpKeys(texts[i]));
        lines_[i].meaning = CreateControl(Handle(), kNoId, kLabel, texts[i].meaning);
    }
    return true;
}

void OptionsHelpPage::OnScaleChanged() {
    for (const KeyLine& line : lines_) {
        SendMessageW(line.keys, WM_SETFONT, reinterpret_cast<WPARAM>(Fonts().strong.Get()), FALSE);
        SendMessageW(line.meaning, WM_SETFONT, reinterpret_cast<WPARAM>(Fonts().body.Get()), FALSE);
    }
}

void OptionsHelpPage::Load() {
    ContentPanel::Load();
    const auto& texts = OptionsHelpKeys();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        SetWindowTextW(lines_[i].keys, Wide(Controller().HelpKeys(texts[i])));
    }
    SetText(C::HotkeysTakenLabel, Controller().HotkeysTakenText());
}

int OptionsHelpPage::PlaceKeys(PageColumn& column) const {
    // Two columns, with the first half of the lines in the left one.
    constexpr std::size_t kHalf = (std::tuple_size_v<decltype(lines_)> + 1) / 2;
    const int height = column.LineHeight();
    const int step = height + column.Px(kLineGap);
    int keysWidth = 0;
    for (const KeyLine& line : lines_) {
        keysWidth = std::max(keysWidth, MeasureText(column.Dc(), Fonts().strong.Get(), WindowText(line.keys)).width);
    }
    const int halfWidth = column.Width() / 2;
    const int meaningLeft = keysWidth + column.Px(kKeysGap);
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const int left = column.Left() + (i < kHalf ? 0 : halfWidth);
        const int top = column.Bottom() + step * static_cast<int>(i % kHalf);
        MoveWindow(lines_[i].keys, left, top, keysWidth, height, FALSE);
        MoveWindow(lines_[i].meaning, left + meaningLeft, top, halfWidth - meaningLeft, height, FALSE);
    }
    return step * static_cast<int>(kHalf);
}

void OptionsHelpPage::Place(PageColumn& column) {
    column.PutHeading(C::HelpHeading);
    column.PutText(C::HelpLabel, kDialogGap);
    column.Advance(PlaceKeys(column), 0);
    if (!TextOf(C::HotkeysTakenLabel).empty()) column.PutText(C::HotkeysTakenLabel, 0);

    column.PutDivider(C::NotesFolderDivider);
    column.PutText(C::NotesFolderLabel, kDialogSmallGap);
    column.PutBoxWithButton(C::NotesFolderPath, C::OpenNotesFolderButton, kDialogSmallGap);

    column.PutDivider(C::DeletedNotesDivider);
    column.PutText(C::DeletedNotesLabel, kDialogSmallGap);

    column.PutDivider(C::QuitDivider);
    column.PutText(C::QuitLabel, kDialogSmallGap);

    column.PutDivider(C::HelpDivider);
    column.PutTextWithButton(C::HelpFileLabel, C::OpenHelpButton, 0);
}

void OptionsHelpPage::OnCommand(OptionControl control, int notification) {
    if (notification != BN_CLICKED) return;
    if (control == C::OpenNotesFolderButton) Controller().OpenNotesFolder();
    if (control == C::OpenHelpButton) Controller().OpenHelp();
}

}  // namespace quillo

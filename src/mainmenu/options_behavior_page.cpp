#include "mainmenu/options_behavior_page.h"

#include <algorithm>

#include "mainmenu/options_controller.h"
#include "mainmenu/page_column.h"
#include "platform/dialog_parts.h"
#include "platform/file_dialogs.h"
#include "platform/folder_dialog.h"
#include "platform/window_effects.h"
#include "ports/user_notice.h"
#include "util/busy_flag.h"
#include "util/text.h"

namespace quillo {
namespace {

using C = OptionControl;

constexpr int kColumnGap = 24;  // pixels at 96 dpi between the two columns, with the line in the middle
constexpr int kLineWidth = 2;

}  // namespace

void OptionsBehaviorPage::Place(PageColumn& column) {
    column.PutHeading(C::BehaviorHeading);
    column.PutText(C::BehaviorLabel, kDialogMargin);

    const int gap = column.Px(kColumnGap);
    const int width = (column.Width() - gap) / 2;
    PageColumn left(*this, column.Dc(), column.Left(), column.Bottom(), width);
    left.PutChecksAfter(C::BehaviorLabel);
    left.PutDivider(C::BalloonDivider);
    left.PutChecksAfter(C::BalloonDivider);

    PageColumn right(*this, column.Dc(), column.Left() + width + gap, column.Bottom(), column.Width() - width - gap);
    right.PutFirstDivider(C::NoteFilesDivider);
    right.PutText(C::NoteFolderLabel, kDialogSmallGap);
    right.PutBox(C::NoteFolderBox, {C::BrowseNoteFolderButton}, kDialogSmallGap);
    right.PutChecksAfter(C::BrowseNoteFolderButton);
    right.PutDivider(C::RemindersDivider);
    right.PutText(C::ReminderSoundLabel, kDialogSmallGap);
    right.PutBox(C::ReminderSoundBox, {C::BrowseSoundButton, C::PlaySoundButton}, kDialogSmallGap);
    right.PutDivider(C::StartupDivider);
    right.PutChecksAfter(C::StartupDivider);

    const int height = std::max(left.Bottom(), right.Bottom()) - column.Bottom();
    column.PlaceAt(C::ColumnDivider, column.Left() + width + (gap - column.Px(kLineWidth)) / 2, column.Bottom(),
                   column.Px(kLineWidth), height);
    column.Advance(height, 0);
}

void OptionsBehaviorPage::OnCommand(OptionControl control, int notification) {
    if (control == C::ReminderSoundBox && notification == EN_CHANGE) return EnablePlay();
    if (notification != BN_CLICKED) return;
    switch (control) {
        case C::SpecialStartupCheck:
            return OnStartupChecked();
        case C::BrowseNoteFolderButton:
            return BrowseForFolder();
        case C::BrowseSoundButton:
            return BrowseForSound();
        case C::PlaySoundButton:
            return Controller().PlaySound(ReminderSound());
        default:
            return ContentPanel::OnCommand(control, notification);
    }
}

void OptionsBehaviorPage::OnStartupChecked() {
    const bool checked = SendMessageW(Item(C::SpecialStartupCheck), BM_GETCHECK, 0, 0) == BST_CHECKED;
    if (Controller().NeedsWarning(C::SpecialStartupCheck, checked)) {
        SetTopmost(Dialog(), false);  // intended; the box, which the active window owns, is topmost in any case
        notice_.WarnOfChoice(kStartupWarning);
        if (Handle() != nullptr) {
            SetTopmost(Dialog(), true);
            SetForegroundWindow(Dialog());  // the box has no owner if another program was active as it opened
        }
    }
    // Written even if the dialog was closed while the box was open: the user has read the warning.
    Controller().SetChecked(C::SpecialStartupCheck, checked);
}

void OptionsBehaviorPage::BrowseForFolder() {
    const std::u16string now(Trim(NoteFolder()));
    const BusyFlag::Scope busy(Dialogs());
    const std::u16string chosen =
        AskForFolder(Dialog(), u"Choose a folder to save closed notes to.  Normally, this is the Desktop.", now);
    if (!chosen.empty() && Handle() != nullptr) SetText(C::NoteFolderBox, chosen);
}

void OptionsBehaviorPage::BrowseForSound() {
    const std::u16string now = ReminderSound();
    const BusyFlag::Scope busy(Dialogs());
    const std::u16string chosen =
        BrowseForFileToOpen(Dialog(), u"Browse for sound", u"Sound files|*.wav;*.mid;*.mp3;*.wma|All files|*.*", now);
    if (!chosen.empty() && Handle() != nullptr) SetText(C::ReminderSoundBox, chosen);
}

void OptionsBehaviorPage::EnablePlay() const {
    EnableWindow(Item(C::PlaySoundButton), Trim(ReminderSound()).empty() ? FALSE : TRUE);
}

std::u16string OptionsBehaviorPage::NoteFolder() const {
    return TextOf(C::NoteFolderBox);
}

std::u16string OptionsBehaviorPage::ReminderSound() const {
    return TextOf(C::ReminderSoundBox);
}

}  // namespace quillo

#include "mainmenu/options_shortcuts_page.h"

#include <algorithm>

#include "app/base/program_shortcut.h"
#include "mainmenu/options_controller.h"
#include "mainmenu/page_column.h"
#include "platform/dialog_parts.h"
#include "platform/file_dialogs.h"
#include "util/busy_flag.h"

namespace quillo {
namespace {

using C = OptionControl;

struct ProgramRow {
    C label;
    C box;
    C button;
};
constexpr std::array<ProgramRow, 4> kPrograms = {{
    {C::ShortcutLabel1, C::ShortcutBox1, C::BrowseButton1},
    {C::ShortcutLabel2, C::ShortcutBox2, C::BrowseButton2},
    {C::ShortcutLabel3, C::ShortcutBox3, C::BrowseButton3},
    {C::ShortcutLabel4, C::ShortcutBox4, C::BrowseButton4},
}};

constexpr int kKeyBoxWidth = 72;  // pixels at 96 dpi; "Key # 112" fits

}  // namespace

bool OptionsShortcutsPage::CreateSpecial(const OptionRow& row) {
    if (row.kind != OptionKind::KeyBox) return false;
    KeyBox& box = row.control == C::NewNoteKeyBox ? newNoteBox_ : surfaceBox_;
    box.onKey = [this, control = row.control](int key) { OnKey(control, key); };
    box.Create(Handle(), IdOf(row.control));
    return true;
}

void OptionsShortcutsPage::Place(PageColumn& column) {
    column.PutHeading(C::KeyboardHeading);
    column.PutText(C::KeyboardLabel, kDialogMargin);
    const int gap = column.Px(kDialogGap);
    const int nameWidth = std::max(column.TextWidth(C::NewNoteKeyLabel), column.TextWidth(C::SurfaceKeyLabel));
    const int keyLeft = column.Left() + nameWidth + 2 * gap;
    const int keyWidth = column.TextWidth(C::NewNoteWindowsKeyLabel);
    const auto putKey = [&](C name, C windowsKey, C box, int gapAfter) {
        column.PlaceLabelAt(name, column.Left(), column.Bottom(), nameWidth);
        column.PlaceLabelAt(windowsKey, keyLeft, column.Bottom(), keyWidth);
        column.PlaceAt(box, keyLeft + keyWidth + gap, column.Bottom(), column.Px(kKeyBoxWidth), column.BoxHeight());
        column.Advance(column.BoxHeight(), gapAfter);
    };
    putKey(C::NewNoteKeyLabel, C::NewNoteWindowsKeyLabel, C::NewNoteKeyBox, kDialogGap);
    putKey(C::SurfaceKeyLabel, C::SurfaceWindowsKeyLabel, C::SurfaceKeyBox, kDialogMargin);
    column.PutText(C::MoreShortcutsLabel, kDialogGap);

    column.PutDivider(C::MenuShortcutsDivider);
    column.PutText(C::MenuShortcutsLabel, kDialogMargin);
    int labelWidth = 0;
    for (const ProgramRow& row : kPrograms) labelWidth = std::max(labelWidth, column.TextWidth(row.label));
    for (const ProgramRow& row : kPrograms) {
        column.PutLabeledBox(row.label, labelWidth, row.box, {row.button}, kDialogGap);
    }
}

void OptionsShortcutsPage::OnCommand(OptionControl control, int notification) {
    if (notification != BN_CLICKED) return;
    for (const ProgramRow& row : kPrograms) {
        if (row.button == control) return BrowseForProgram(row.box);
    }
}

void OptionsShortcutsPage::OnKey(OptionControl keyBox, int virtualKey) {
    if (!Controller().PressKey(keyBox, virtualKey)) return;
    SetText(keyBox, Controller().TextOf(keyBox));
    SendMessageW(Item(keyBox), EM_SETSEL, 0, -1);
}

void OptionsShortcutsPage::BrowseForProgram(OptionControl box) {
    const std::u16string now = TextOf(box);
    const BusyFlag::Scope busy(Dialogs());
    const std::u16string chosen =
        BrowseForFileToOpen(Dialog(), u"Browse for program", u"Program files|*.exe|All files|*.*", now);
    if (!chosen.empty() && ShortcutFits(chosen) && Handle() != nullptr) SetText(box, chosen);
}

std::array<std::u16string, 4> OptionsShortcutsPage::Shortcuts() const {
    std::array<std::u16string, 4> paths;
    for (std::size_t i = 0; i < paths.size(); ++i) paths[i] = TextOf(kPrograms[i].box);
    return paths;
}

}  // namespace quillo
